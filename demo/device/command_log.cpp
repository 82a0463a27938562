// One file, opened for each line: any program may read it meanwhile or take it away.
#include "demo/device/command_log.h"

#include <windows.h>

#include <mmsystem.h>

#include <mmddk.h>

#include <cstdio>

#include "demo/device/device_options.h"

void LogLine(const std::string& line) {
    const std::wstring path = ReadTextOption(L"Log");
    if (path.empty()) return;
    const DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, shared, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    const std::string text = std::to_string(GetTickCount()) + " " + line + "\n";
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

static std::string Narrow(const wchar_t* text) {
    char narrow[MAX_PATH] = "";
    if (text == nullptr) return "none";
    WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow, MAX_PATH - 1, nullptr, nullptr);
    return narrow;
}

static std::string HexField(const char* name, uint32_t value) {
    char field[64];
    std::snprintf(field, sizeof field, " %s=%08x", name, static_cast<unsigned>(value));
    return field;
}

static std::string NumberField(const char* name, uint32_t value) {
    return std::string(" ") + name + "=" + std::to_string(value);
}

std::string DescribeCommand(UINT message, DWORD flags, const void* parameters,
                            const PositionText& positionText) {
    const auto positionField = [&](const char* name, DWORD position) {
        return HexField(name, position) + " (" + positionText(position) + ")";
    };
    struct MessageName {
        UINT message;
        const char* name;
    };
    static const MessageName kNames[] = {{MCI_OPEN_DRIVER, "open"},
                                         {MCI_CLOSE_DRIVER, "close"},
                                         {MCI_STATUS, "status"},
                                         {MCI_SET, "set"},
                                         {MCI_PLAY, "play"},
                                         {MCI_SEEK, "seek"},
                                         {MCI_PAUSE, "pause"},
                                         {MCI_RESUME, "resume"},
                                         {MCI_STOP, "stop"},
                                         {MCI_INFO, "info"},
                                         {MCI_GETDEVCAPS, "capability"},
                                         {MCI_WHERE, "where"},
                                         {MCI_PUT, "put"}};
    std::string line = "message-" + std::to_string(message);
    for (const MessageName& known : kNames) {
        if (known.message == message) line = known.name;
    }
    line += HexField("flags", flags);
    if (!parameters) return line + " no-parameters";
    if (message == MCI_OPEN_DRIVER && (flags & MCI_OPEN_ELEMENT) != 0) {
        line +=
            " element=" + Narrow(static_cast<const MCI_OPEN_PARMSW*>(parameters)->lpstrElementName);
    } else if (message == MCI_STATUS) {
        const auto& status = *static_cast<const MCI_STATUS_PARMS*>(parameters);
        line += NumberField("item", status.dwItem);
        if ((flags & MCI_TRACK) != 0) line += NumberField("track", status.dwTrack);
    } else if (message == MCI_PLAY) {
        const auto& play = *static_cast<const MCI_PLAY_PARMS*>(parameters);
        if ((flags & MCI_FROM) != 0) line += positionField("from", play.dwFrom);
        if ((flags & MCI_TO) != 0) line += positionField("to", play.dwTo);
    } else if (message == MCI_SEEK && (flags & MCI_TO) != 0) {
        const auto& seek = *static_cast<const MCI_SEEK_PARMS*>(parameters);
        line += positionField("to", seek.dwTo);
    } else if (message == MCI_SET && (flags & MCI_SET_TIME_FORMAT) != 0) {
        line += NumberField("format", static_cast<const MCI_SET_PARMS*>(parameters)->dwTimeFormat);
    } else if (message == MCI_GETDEVCAPS) {
        line += NumberField("item", static_cast<const MCI_GETDEVCAPS_PARMS*>(parameters)->dwItem);
    }
    return line;
}

std::string DescribeResult(UINT message, DWORD result, const void* parameters) {
    std::string line = NumberField("result", LOWORD(result));
    if (message != MCI_STATUS || !parameters || LOWORD(result) != 0) return line;
    auto answer = static_cast<uint32_t>(static_cast<const MCI_STATUS_PARMS*>(parameters)->dwReturn);
    if ((result & MCI_RESOURCE_RETURNED) != 0) answer = LOWORD(answer);
    return line + HexField("answer", answer);
}

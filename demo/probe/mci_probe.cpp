// mci_probe [COMMAND ...]: sends MCI command strings and prints what comes back, for trying devices
// by hand and from scripts. Without arguments it reads commands from the standard input, one a
// line, and answers each with one line before it reads the next:
//   0 ANSWER            the command succeeded
//   CODE TEXT           it failed
// Beside MCI's own commands it knows:
//   wait ALIAS MODE MS  polls until the device's mode is MODE; fails after MS milliseconds
//   raw ALIAS MESSAGE [FLAGS]  sends the message with a null parameter block (numbers as in C)
//   error CODE          the text of an MCI error code
#include <windows.h>

#include <mmsystem.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

static constexpr int kBufferSize = 512;
static constexpr DWORD kPollMs = 20;

// The answer and the line break leave at once, so that a script on the other side of a pipe can
// wait for them.
static void Answer(MCIERROR code, const char* text) {
    std::printf("%lu %s\n", code & 0xFFFFU, text);
    std::fflush(stdout);
}

static MCIERROR SendCommand(const char* command) {
    char text[kBufferSize] = "";
    const MCIERROR code = mciSendStringA(command, text, sizeof text, nullptr);
    if (code != 0) mciGetErrorStringA(code, text, sizeof text);
    Answer(code, text);
    return code;
}

static MCIERROR WaitForMode(const char* alias, const char* mode, DWORD milliseconds) {
    char command[kBufferSize];
    char text[kBufferSize] = "";
    std::snprintf(command, sizeof command, "status %s mode", alias);
    const DWORD start = GetTickCount();
    for (;;) {
        const MCIERROR code = mciSendStringA(command, text, sizeof text, nullptr);
        if (code != 0 || std::strcmp(text, mode) == 0) {
            Answer(code, text);
            return code;
        }
        if (GetTickCount() - start >= milliseconds) break;
        Sleep(kPollMs);
    }
    Answer(MCIERR_DRIVER_INTERNAL, text);
    return MCIERR_DRIVER_INTERNAL;
}

static MCIERROR SendNullBlock(const char* alias, UINT message, DWORD flags) {
    const MCIERROR code = mciSendCommandA(mciGetDeviceIDA(alias), message, flags, 0);
    char text[kBufferSize] = "";
    if (code != 0) mciGetErrorStringA(code, text, sizeof text);
    Answer(code, text);
    return code;
}

static MCIERROR Run(const char* command) {
    char first[64] = "";
    char second[64] = "";
    char third[64] = "0";
    const int words = std::sscanf(command, "%*63s %63s %63s %63s", first, second, third);
    if (std::strncmp(command, "wait ", 5) == 0 && words == 3)
        return WaitForMode(first, second, std::strtoul(third, nullptr, 0));
    if (std::strncmp(command, "raw ", 4) == 0 && words >= 2)
        return SendNullBlock(first, std::strtoul(second, nullptr, 0),
                             std::strtoul(third, nullptr, 0));
    if (std::strncmp(command, "error ", 6) == 0 && words >= 1) {
        char text[kBufferSize] = "";
        mciGetErrorStringA(std::strtoul(first, nullptr, 0), text, sizeof text);
        Answer(0, text);
        return 0;
    }
    return SendCommand(command);
}

int main(int argumentCount, char** arguments) {
    bool failed = false;
    for (int i = 1; i < argumentCount; ++i)
        failed = Run(arguments[i]) != 0 || failed;
    char line[kBufferSize];
    while (argumentCount == 1 && std::fgets(line, sizeof line, stdin)) {
        line[std::strcspn(line, "\r\n")] = '\0';
        if (line[0] != '\0') failed = Run(line) != 0 || failed;
    }
    return failed ? 1 : 0;
}

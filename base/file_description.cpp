// Size and date texts of a file on disk.
#include "base/file_description.h"

#include <windows.h>

#include "base/file_texts.h"

std::string DisplayName(const std::string& path, const std::string& name) {
    if (path.find_first_of("?*") != std::string::npos) return name;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return name;
    FindClose(search);
    return found.cFileName;
}

// Null when the file cannot be opened.
static HANDLE OpenToLook(const std::string& path) {
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return file == INVALID_HANDLE_VALUE ? nullptr : file;
}

static bool ReadSizeText(HANDLE file, std::string& text) {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(file, &size)) return false;
    text = SizeText(static_cast<uint64_t>(size.QuadPart));
    return true;
}

static bool ReadDateText(HANDLE file, std::string& text) {
    FILETIME written;
    WORD date = 0;
    WORD time = 0;
    if (!GetFileTime(file, nullptr, nullptr, &written)) return false;
    if (!FileTimeToDosDateTime(&written, &date, &time)) return false;
    text = DateText(date, time);
    return true;
}

template <typename Reader>
static bool ReadFromFile(const std::string& path, Reader reader) {
    const HANDLE file = OpenToLook(path);
    if (file == nullptr) return false;
    const bool read = reader(file);
    CloseHandle(file);
    return read;
}

bool DescribeFileSize(const std::string& path, std::string& text) {
    return ReadFromFile(path, [&](HANDLE file) { return ReadSizeText(file, text); });
}

bool DescribeFileDate(const std::string& path, std::string& text) {
    return ReadFromFile(path, [&](HANDLE file) { return ReadDateText(file, text); });
}

bool DescribeFile(const std::string& path, std::string& text) {
    return ReadFromFile(path, [&](HANDLE file) {
        std::string date;
        if (!ReadSizeText(file, text)) return false;
        if (ReadDateText(file, date)) text += date;
        return true;
    });
}

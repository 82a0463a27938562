// Names, size and date texts of files on disk.
#include "base/file_description.h"

#include <windows.h>

#include "base/file_texts.h"
#include "base/handles.h"

std::string DisplayName(const std::string& path, const std::string& name) {
    if (path.find_first_of("?*") != std::string::npos) return name;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return name;
    FindClose(search);
    return found.cFileName;
}

bool IsSameFileName(const std::string& first, const std::string& second) {
    const auto lowered = [](std::string text) {
        CharLowerA(text.data());
        return text;
    };
    return lowered(first) == lowered(second);
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

bool DescribeFileSize(const std::string& path, std::string& text) {
    const UniqueFile file = OpenToRead(path);
    return file && ReadSizeText(file.get(), text);
}

bool DescribeFileDate(const std::string& path, std::string& text) {
    const UniqueFile file = OpenToRead(path);
    return file && ReadDateText(file.get(), text);
}

bool DescribeFile(const std::string& path, std::string& text) {
    const UniqueFile file = OpenToRead(path);
    std::string date;
    if (!file || !ReadSizeText(file.get(), text)) return false;
    if (ReadDateText(file.get(), date)) text += date;
    return true;
}

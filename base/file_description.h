// Names, size and date texts of files on disk.
#pragma once

#include <string>

// The name under which the file system finds the path, or the given name when it finds none. A name
// with "?" or "*", which stand for letters that the code page does not have, is never looked for:
// it would find other files.
std::string DisplayName(const std::string& path, const std::string& name);

// Whether the file system takes two names or paths for one: case does not count, and every other
// letter does. The system's own comparison of texts goes by words: to it "ss" is the same as the
// sharp s of code page 1252.
bool IsSameFileName(const std::string& first, const std::string& second);

// These open the file for reading and keep nobody from using it meanwhile. False,
// with the text left alone, when the file cannot be opened.
bool DescribeFileSize(const std::string& path, std::string& text);
// False as well when the last change lies before 1980 or after 2107.
bool DescribeFileDate(const std::string& path, std::string& text);
// The size, then the date when there is one to tell.
bool DescribeFile(const std::string& path, std::string& text);

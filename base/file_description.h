// Size and date texts of a file on disk.
#pragma once

#include <string>

// The name under which the file system finds the path, or the given name when it finds none. A name
// with "?" or "*", which stand for letters that the code page does not have, is never looked for:
// it would find other files.
std::string DisplayName(const std::string& path, const std::string& name);

// These open the file for reading and keep nobody from using it meanwhile. False,
// with the text left alone, when the file cannot be opened.
bool DescribeFileSize(const std::string& path, std::string& text);
// False as well when the last change lies before 1980 or after 2107.
bool DescribeFileDate(const std::string& path, std::string& text);
// The size, then the date when there is one to tell.
bool DescribeFile(const std::string& path, std::string& text);

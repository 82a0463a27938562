// Size and date texts of a file on disk.
#pragma once

#include <string>

// The three procedures open the file for reading and keep nobody from using it meanwhile. False,
// with the text left alone, when the file cannot be opened.
bool DescribeFileSize(const std::string& path, std::string& text);
// False as well when the last change lies before 1980 or after 2107.
bool DescribeFileDate(const std::string& path, std::string& text);
// The size, then the date when there is one to tell.
bool DescribeFile(const std::string& path, std::string& text);

// Writes down every command that reaches the drive, for tests and for the curious: one line each,
// "MILLISECONDS command flags=HEX name=value ... result=CODE". Positions are given as they came, in
// hexadecimal, and as time; the answer to a status question is hexadecimal.
#pragma once

#include <windows.h>

#include <string>

#include "demo/drive/disc_layout.h"

// Adds a line to the file of the option "Log", if it is set. It is on disk when this returns.
void LogLine(const std::string& line);

// The command as it came. parameters is the block that belongs to the message, or null.
std::string DescribeCommand(UINT message, DWORD flags, const void* parameters, TimeFormat format);

// What the driver answered; with a leading blank.
std::string DescribeResult(UINT message, DWORD result, const void* parameters);

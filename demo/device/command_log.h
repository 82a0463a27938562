// Writes down every command that reaches a device, for tests and for the curious: one line each,
// "MILLISECONDS command flags=HEX name=value ... result=CODE". Positions are given as they came, in
// hexadecimal, and in the device's units; the answer to a status question is hexadecimal.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>

// Adds a line to the file of the option "Log", if it is set. It is on disk when this returns.
void LogLine(const std::string& line);

// A position as a person reads it.
using PositionText = std::function<std::string(uint32_t position)>;

// The command as it came. parameters is the block that belongs to the message, or null.
std::string DescribeCommand(UINT message, DWORD flags, const void* parameters,
                            const PositionText& positionText);

// What the driver answered; with a leading blank.
std::string DescribeResult(UINT message, DWORD result, const void* parameters);

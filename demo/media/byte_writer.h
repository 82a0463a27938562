// Building blocks of the file formats: bytes, little- and big-endian numbers, and the file itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

using Bytes = std::vector<uint8_t>;

void PutText(Bytes& bytes, std::string_view text);
void PutLittle16(Bytes& bytes, uint32_t value);
void PutLittle32(Bytes& bytes, uint32_t value);
void PutBig16(Bytes& bytes, uint32_t value);
void PutBig32(Bytes& bytes, uint32_t value);

// Writes value over the four bytes at offset, which must exist.
void SetLittle32(Bytes& bytes, size_t offset, uint32_t value);
void SetBig32(Bytes& bytes, size_t offset, uint32_t value);

// Creates the directory of path if needed. False with a message on the error stream if the file
// could not be written whole.
bool WriteFile(const std::filesystem::path& path, const Bytes& bytes);

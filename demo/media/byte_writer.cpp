// Numbers into bytes, bytes into files.
#include "demo/media/byte_writer.h"

#include <cstdio>
#include <fstream>
#include <system_error>

void PutText(Bytes& bytes, std::string_view text) {
    bytes.insert(bytes.end(), text.begin(), text.end());
}

void PutLittle16(Bytes& bytes, uint32_t value) {
    bytes.push_back(static_cast<uint8_t>(value & 255));
    bytes.push_back(static_cast<uint8_t>(value >> 8 & 255));
}

void PutLittle32(Bytes& bytes, uint32_t value) {
    PutLittle16(bytes, value & 0xFFFF);
    PutLittle16(bytes, value >> 16);
}

void PutBig16(Bytes& bytes, uint32_t value) {
    bytes.push_back(static_cast<uint8_t>(value >> 8 & 255));
    bytes.push_back(static_cast<uint8_t>(value & 255));
}

void PutBig32(Bytes& bytes, uint32_t value) {
    PutBig16(bytes, value >> 16);
    PutBig16(bytes, value & 0xFFFF);
}

void SetLittle32(Bytes& bytes, size_t offset, uint32_t value) {
    for (size_t i = 0; i < 4; ++i)
        bytes.at(offset + i) = static_cast<uint8_t>(value >> (8 * i) & 255);
}

void SetBig32(Bytes& bytes, size_t offset, uint32_t value) {
    for (size_t i = 0; i < 4; ++i)
        bytes.at(offset + i) = static_cast<uint8_t>(value >> (24 - 8 * i) & 255);
}

bool WriteFile(const std::filesystem::path& path, const Bytes& bytes) {
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (file.good()) return true;
    std::fprintf(stderr, "cannot write %s\n", path.string().c_str());
    return false;
}

// What a program of the older executable format says about itself.
#include "files/program_description.h"

static bool ReadWord(std::string_view bytes, size_t at, size_t& word) {
    if (at + 2 > bytes.size()) return false;
    word = static_cast<uint8_t>(bytes[at]) |
           static_cast<size_t>(static_cast<uint8_t>(bytes[at + 1])) << 8;
    return true;
}

std::string ProgramDescription(std::string_view bytes) {
    constexpr size_t headerPlace = 60;
    constexpr size_t tablePlace = 4;  // behind the signature and two bytes of version
    constexpr size_t tableLengthPlace = 6;
    size_t header = 0;
    size_t table = 0;
    size_t tableLength = 0;
    if (!ReadWord(bytes, headerPlace, header) || header >= bytes.size() ||
        bytes.substr(header, 2) != "NE" || !ReadWord(bytes, header + tablePlace, table) ||
        !ReadWord(bytes, header + tableLengthPlace, tableLength)) {
        return {};
    }
    const size_t entry = header + table + tableLength;
    if (entry >= bytes.size()) return {};
    const auto length = static_cast<uint8_t>(bytes[entry]);
    if (entry + 1 + length > bytes.size()) return {};
    return std::string(bytes.substr(entry + 1, length));
}

// Code pages as the C library's converter knows them; everything else is UTF-8 already.
#include <iconv.h>
#include <strings.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "companion/code_page.h"
#include "companion/system.h"

bool CodePointOfByte(int pageNumber, uint8_t byte, char32_t& point, bool& several) {
    const std::string name = "CP" + std::to_string(pageNumber);
    const iconv_t converter = iconv_open("UTF-32LE", name.c_str());
    several = converter == reinterpret_cast<iconv_t>(-1);
    if (several) return false;
    const auto close = [](iconv_t used) { iconv_close(used); };
    const std::unique_ptr<void, decltype(close)> closer(converter, close);

    char source = static_cast<char>(byte);
    char32_t target = 0;
    char* from = &source;
    char* to = reinterpret_cast<char*>(&target);
    size_t fromBytes = 1;
    size_t toBytes = sizeof target;
    if (iconv(converter, &from, &fromBytes, &to, &toBytes) == static_cast<size_t>(-1)) {
        several = errno == EINVAL;  // the byte is complete only with others
        return false;
    }
    if (toBytes != 0) {
        several = true;  // a converter that waits for what follows
        return false;
    }
    point = target;
    return true;
}

std::vector<std::string> Arguments(int argc, char** argv) {
    return {argv + 1, argv + argc};
}

void PrepareOutput() {}

bool ToSystemPath(const std::string& utf8, std::string& path) {
    path = utf8;
    return true;
}

int CompareArtists(const char* first, const char* second) {
    const int order = strcasecmp(first, second);
    return order != 0 ? order : -strcmp(first, second);
}

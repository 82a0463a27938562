// Code pages, arguments and paths as the system knows them.
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "companion/code_page.h"
#include "companion/system.h"

bool CodePointOfByte(int pageNumber, uint8_t byte, char32_t& point, bool& several) {
    const UINT page = static_cast<UINT>(pageNumber);
    CPINFO info;
    several = pageNumber <= 0 || !GetCPInfo(page, &info) || info.MaxCharSize != 1;
    if (several) return false;
    const char source = static_cast<char>(byte);
    wchar_t target[2];
    if (MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, &source, 1, target, 2) != 1) return false;
    point = target[0];
    return true;
}

static std::string Narrow(const wchar_t* text, UINT page, BOOL* lost) {
    const DWORD flags = page == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const int size = WideCharToMultiByte(page, flags, text, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 0) return {};
    std::string result(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(page, flags, text, -1, result.data(), size, nullptr, lost);
    result.pop_back();
    return result;
}

std::vector<std::string> Arguments(int, char**) {
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (words == nullptr) return {};
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> freed(words, LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(Narrow(words[i], CP_UTF8, nullptr));
    return arguments;
}

// The console is the user's, and what runs there next writes in its own code page.
static UINT ConsolePage;

void PrepareOutput() {
    ConsolePage = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    atexit([] { SetConsoleOutputCP(ConsolePage); });
    _setmode(_fileno(stdout), _O_BINARY);
}

bool ToSystemPath(const std::string& utf8, std::string& path) {
    // The conversion below knows no lost characters there, and refuses to be asked for them.
    if (GetACP() == CP_UTF8) {
        path = utf8;
        return true;
    }
    const int size = MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, nullptr, 0);
    if (size <= 0) return false;
    std::wstring wide(static_cast<size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, wide.data(), size);
    BOOL lost = FALSE;
    path = Narrow(wide.c_str(), CP_ACP, &lost);
    return lost == FALSE && !path.empty();
}

int CompareArtists(const char* first, const char* second) {
    return lstrcmpA(first, second);
}

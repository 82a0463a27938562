// Looks options up where they are kept, anew each time: they may change while a program plays.
#include "demo/device/device_options.h"

#include <cwchar>

static constexpr DWORD kMaxText = 1024;

static bool ReadEnvironment(const wchar_t* name, std::wstring& text) {
    std::wstring variable = std::wstring(kOptionsPrefix) + name;
    CharUpperW(variable.data());
    wchar_t value[kMaxText];
    const DWORD length = GetEnvironmentVariableW(variable.c_str(), value, kMaxText);
    if (length == 0 || length >= kMaxText) return false;
    text.assign(value, length);
    return true;
}

static bool ReadRegistry(const wchar_t* name, DWORD expectedType, void* value, DWORD& size) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kOptionsKey, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
        return false;
    DWORD type = 0;
    const LONG result =
        RegQueryValueExW(key, name, nullptr, &type, static_cast<BYTE*>(value), &size);
    RegCloseKey(key);
    return result == ERROR_SUCCESS && type == expectedType;
}

std::wstring ReadTextOption(const wchar_t* name) {
    std::wstring text;
    if (ReadEnvironment(name, text)) return text;
    wchar_t value[kMaxText] = L"";
    DWORD size = sizeof value - sizeof(wchar_t);
    if (!ReadRegistry(name, REG_SZ, value, size)) return L"";
    return value;
}

DWORD ReadNumberOption(const wchar_t* name, DWORD fallback) {
    std::wstring text;
    if (ReadEnvironment(name, text)) return std::wcstoul(text.c_str(), nullptr, 10);
    DWORD value = 0;
    DWORD size = sizeof value;
    return ReadRegistry(name, REG_DWORD, &value, size) ? value : fallback;
}

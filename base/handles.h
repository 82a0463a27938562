// Local handles that free themselves.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

struct DcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
using UniqueMemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DcDeleter>;

// A file; empty when it could not be opened.
struct FileCloser {
    void operator()(HANDLE file) const { CloseHandle(file); }
};
using UniqueFile = std::unique_ptr<std::remove_pointer_t<HANDLE>, FileCloser>;
// To read beside whoever else has the file open.
inline UniqueFile OpenToRead(const std::string& path) {
    HANDLE file = CreateFileA(path.c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    return UniqueFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

struct PenDeleter {
    void operator()(HPEN pen) const { DeleteObject(pen); }
};
using UniquePen = std::unique_ptr<std::remove_pointer_t<HPEN>, PenDeleter>;

// A window's device context, released at the end of the scope.
struct WindowDcDeleter {
    using pointer = HDC;
    HWND window;
    void operator()(HDC dc) const { ReleaseDC(window, dc); }
};
using UniqueWindowDc = std::unique_ptr<HDC, WindowDcDeleter>;
inline UniqueWindowDc GetUniqueDc(HWND window) {
    return UniqueWindowDc(GetDC(window), WindowDcDeleter{window});
}

// Selects an object into a device context and the old one back at the end of the scope. Declare it
// after whatever owns the object, so that the object is deselected before it is deleted.
struct ObjectRestorer {
    using pointer = HGDIOBJ;
    HDC dc;
    void operator()(HGDIOBJ old) const { SelectObject(dc, old); }
};
using SelectedObject = std::unique_ptr<HGDIOBJ, ObjectRestorer>;
inline SelectedObject SelectInto(HDC dc, HGDIOBJ object) {
    return SelectedObject(SelectObject(dc, object), ObjectRestorer{dc});
}

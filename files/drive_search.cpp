// See drive_search.h.
#include "files/drive_search.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "files/drive_walk.h"

struct FindDeleter {
    using pointer = HANDLE;
    void operator()(HANDLE find) const { FindClose(find); }
};
using UniqueFind = std::unique_ptr<HANDLE, FindDeleter>;

// The first entry of a directory; an empty handle when it refuses to be listed.
static UniqueFind FindFirst(const std::string& directory, WIN32_FIND_DATAA& entry) {
    HANDLE find = FindFirstFileA((directory + "*").c_str(), &entry);
    return UniqueFind(find == INVALID_HANDLE_VALUE ? nullptr : find);
}

static bool IsDotEntry(const char* name) {
    return strcmp(name, ".") == 0 || strcmp(name, "..") == 0;
}

// A link may lead back to where the walk came from.
static bool IsToBeEntered(const WIN32_FIND_DATAA& entry) {
    return !(entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) && !IsDotEntry(entry.cFileName);
}

// The system's own listings match a file's short name too, and the file list is filled by those.
static bool IsOfKind(const WIN32_FIND_DATAA& entry, const FileKind& kind) {
    return MatchesMask(entry.cFileName, kind.masks) ||
           MatchesMask(entry.cAlternateFileName, kind.masks);
}

static std::string InLowerCase(std::string text) {
    CharLowerA(text.data());
    return text;
}

// Reads one directory. False when the watch stops the search.
static bool ReadDirectory(const std::string& directory, const FileKind& kind, SearchResult& result,
                          std::vector<std::string>& subdirectories, const SearchWatch& watch) {
    WIN32_FIND_DATAA entry;
    const UniqueFind find = FindFirst(directory, entry);
    if (!find) return watch(directory, "");
    uint32_t found = 0;
    std::string file;
    do {
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
            if (IsToBeEntered(entry)) subdirectories.push_back(entry.cFileName);
        } else if (IsOfKind(entry, kind)) {
            ++found;
            ++result.files;
            file = entry.cFileName;
        }
        if (!watch(directory, file)) return false;
    } while (FindNextFileA(find.get(), &entry));
    if (found > 0) result.directories.push_back({InLowerCase(directory), found});
    return true;
}

bool SearchDrive(char letter, const FileKind& kind, SearchResult& result,
                 const SearchWatch& watch) {
    result = {};
    DriveWalk walk;
    BeginWalk(walk, {letter, ':', '\\'});
    std::vector<std::string> subdirectories;
    do {
        subdirectories.clear();
        if (!ReadDirectory(walk.path, kind, result, subdirectories, watch)) return false;
        std::sort(subdirectories.begin(), subdirectories.end(),
                  [](const std::string& a, const std::string& b) {
                      return lstrcmpiA(a.c_str(), b.c_str()) < 0;
                  });
    } while (GoOn(walk, std::move(subdirectories)));
    return true;
}

struct KeptSearch {
    char letter;
    FileKind kind;
    SearchResult result;
};
static std::optional<KeptSearch> Kept;

const SearchResult* LastSearch(char letter, const FileKind& kind) {
    if (Kept && (Kept->letter != letter || Kept->kind != kind)) Kept.reset();
    return Kept ? &Kept->result : nullptr;
}

void KeepSearch(char letter, const FileKind& kind, const SearchResult& result) {
    Kept = {letter, kind, result};
}

// See export_path.h.
#include "database_dialogs/export_path.h"

#include <windows.h>

#include <cctype>

#include "base/app_directory.h"
#include "base/file_access.h"
#include "base/file_description.h"
#include "base/settings.h"
#include "database/database_format.h"

static size_t NameStart(const std::string& path) {
    return path.find_last_of("\\/") + 1;
}

static bool IsDirectory(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Without blanks and full stops at the end, "..", and devices told as such.
static std::string FullPath(const std::string& path) {
    char full[MAX_PATH] = "";
    const DWORD length = GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
    return length < sizeof full ? std::string(full, length) : std::string();
}

static bool FactsOf(const std::string& path, FileFacts& facts) {
    ScopedFile file;
    return FileCalls.open(path.c_str(), FileMode::kReadShared, file.handle) == FileStatus::kOk &&
           FileCalls.facts(file.handle, facts) == FileStatus::kOk;
}

static bool IsSameFile(const std::string& path, const std::string& other) {
    if (IsSameFileName(path, FullPath(other))) return true;
    FileFacts facts;
    FileFacts otherFacts;
    return FactsOf(path, facts) && FactsOf(other, otherFacts) && facts.index != 0 &&
           facts.volume == otherFacts.volume && facts.index == otherFacts.index;
}

static bool IsOwnFile(const std::string& path) {
    for (const char* name : {kDatabaseName, kNewDatabaseName, kBackupName}) {
        if (IsSameFile(path, InAppDirectory(name))) return true;
    }
    return IsSameFile(path, SettingsPath);
}

bool CheckExportPath(const std::string& typed, std::string& path) {
    std::string checked = typed;
    if (checked.size() < 3 || !std::isalpha(static_cast<unsigned char>(checked[0])) ||
        checked[1] != ':' || checked[2] != '\\') {
        return false;
    }
    checked[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(checked[0])));
    const size_t nameStart = NameStart(checked);
    if (!IsDirectory(checked.substr(0, nameStart))) return false;
    if (nameStart == checked.size()) checked += kDefaultExportName;
    // A stream inside a file, a pattern.
    if (checked.find_first_of(":*?\"<>|", nameStart) != std::string::npos) return false;
    const std::string full = FullPath(checked);
    if (full.empty() || full[0] == '\\' || IsDirectory(full) || IsOwnFile(full)) return false;
    path = checked;
    return true;
}

std::string DirectoryOf(const std::string& path) {
    return path.substr(0, NameStart(path));
}

std::string WithDirectory(const std::string& directory, const std::string& path) {
    const std::string name = path.substr(NameStart(path));
    return directory + (name.empty() ? kDefaultExportName : name);
}

// See database_paths.h.
#include "database/database_paths.h"

#include "base/app_directory.h"
#include "database/database_format.h"

static std::string ChosenPath;

std::string DatabasePath() {
    return ChosenPath.empty() ? InAppDirectory(kDatabaseName) : ChosenPath;
}

static std::string PathBeside(const char* ownName, const char* extension) {
    if (ChosenPath.empty()) return InAppDirectory(ownName);
    const bool replaces = ChosenPath.ends_with(".dat") || ChosenPath.ends_with(".DAT");
    return ChosenPath.substr(0, ChosenPath.size() - (replaces ? 4 : 0)) + extension;
}

std::string NewDatabasePath() {
    return PathBeside(kNewDatabaseName, ".new");
}

std::string BackupPath() {
    return PathBeside(kBackupName, ".dbk");
}

std::string DamagedPath() {
    return PathBeside(kDamagedName, ".BAD");
}

void UseDatabaseFile(const std::string& path) {
    ChosenPath = path;
}

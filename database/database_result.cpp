// What became of a change to the disc database.
#include "database/database_result.h"

static DatabaseResult ResultOf(FileStatus status, DatabaseResult otherwise) {
    switch (status) {
        case FileStatus::kOk:
            return DatabaseResult::kOk;
        case FileStatus::kHeld:
            return DatabaseResult::kHeld;
        case FileStatus::kDenied:
            return DatabaseResult::kReadOnly;
        case FileStatus::kDiskFull:
            return DatabaseResult::kDiskFull;
        case FileStatus::kMissing:
        case FileStatus::kExists:
        case FileStatus::kFailed:
            break;
    }
    return otherwise;
}

DatabaseResult OpenResult(FileStatus status) {
    return ResultOf(status, DatabaseResult::kCannotOpen);
}

DatabaseResult WriteResult(FileStatus status) {
    return ResultOf(status, DatabaseResult::kWriteFailed);
}

const char* DatabaseResultText(DatabaseResult result) {
    switch (result) {
        case DatabaseResult::kOk:
            break;
        case DatabaseResult::kCannotOpen:
            return "Can't open the database! Nothing was changed.";
        case DatabaseResult::kHeld:
            return "Can't open the database! Another program is using it. Nothing was changed.";
        case DatabaseResult::kReadOnly:
            return "Can't write the database! It, its folder or its disk is read-only. Nothing was "
                   "changed.";
        case DatabaseResult::kFull:
            return "Database Full. No more discs can be added!";
        case DatabaseResult::kDiskFull:
            return "Error! Not enough disk space. The database was not changed.";
        case DatabaseResult::kReadFailed:
            return "Error! The database could not be read. It was not changed.";
        case DatabaseResult::kWriteFailed:
            return "Error! The database could not be written. It was not changed.";
        case DatabaseResult::kDamaged:
            return "Error! The database file is damaged. It was not changed.";
        case DatabaseResult::kNoTracks:
            return "Error! A disc without tracks can't be added. The database was not changed.";
        case DatabaseResult::kAddedMeanwhile:
            return "Another program has added this disc. Replace its entry?";
        case DatabaseResult::kChangedMeanwhile:
            return "Error! Another program has changed this entry or its number. Nothing was "
                   "written.";
        case DatabaseResult::kNotTakenBack:
            return "Error! Writing the database failed, and so did taking it back. Please try "
                   "again!";
        case DatabaseResult::kNoMemory:
            return "Error! Not enough memory to do sorting.";
    }
    return "";
}

// What became of a change to the disc database.
#include "database/database_result.h"

const char* DatabaseResultText(DatabaseResult result) {
    switch (result) {
        case DatabaseResult::kOk:
            break;
        case DatabaseResult::kCannotOpen:
            return "Can't open the database for writing! Another program may be using it. Nothing "
                   "was changed.";
        case DatabaseResult::kFull:
            return "Database Full. No more discs can be added!";
        case DatabaseResult::kDiskFull:
            return "Error! Not enough disk space. The database was not changed.";
        case DatabaseResult::kWriteFailed:
            return "Error! The database could not be written. It was not changed.";
        case DatabaseResult::kDamaged:
            return "Error! The database file is damaged. It was not changed.";
        case DatabaseResult::kNoTracks:
            return "Error! A disc without tracks can't be added. The database was not changed.";
        case DatabaseResult::kAddedMeanwhile:
            return "Error! Another program has added this disc. Nothing was changed. Its entry can "
                   "be opened after Cancel.";
        case DatabaseResult::kNotTakenBack:
            return "Error! Writing the database failed, and so did taking it back. Please try "
                   "again!";
    }
    return "";
}

// See rebuild_question.h.
#include "database_dialogs/rebuild_question.h"

#include "database/database_salvage.h"
#include "ui/boxes.h"

std::optional<DatabaseResult> ChangeDatabase(const std::function<DatabaseResult()>& change) {
    const DatabaseResult result = change();
    if (result != DatabaseResult::kDamaged) return result;
    if (!AskQuestion("The database file is damaged. Rebuild it? The damaged file is kept as "
                     "TARNWELL.BAD.")) {
        return std::nullopt;
    }
    const DatabaseResult rebuilt = RebuildDatabase();
    return rebuilt == DatabaseResult::kOk ? change() : rebuilt;
}

// What may stand between a dialog's button and its change: a damaged database.
#pragma once

#include <functional>
#include <optional>

#include "database/database_result.h"

// Makes the change. When the file is damaged, the question box asks whether to rebuild it; after OK
// that is done and the change is made again. Empty after Cancel: nothing was written, and nothing
// more is to be said. Entries lie elsewhere after a rebuild, so the change looks for its own each
// time it is called.
std::optional<DatabaseResult> ChangeDatabase(const std::function<DatabaseResult()>& change);

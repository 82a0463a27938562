// The export of the whole database into a text file.
#pragma once

#include "base/file_access.h"
#include "database/artist_order.h"
#include "database/database_result.h"
#include "database/export_lines.h"

enum class ExportForm { kPlain, kDelimited };

struct ExportRequest {
    ExportItems items = {};
    ExportForm form = ExportForm::kPlain;
    CompareTexts compare = nullptr;  // by which artists are put in order; null for the file's order
};

// Writes every entry behind what an open file holds. What cannot be read of the database is left
// out. kNoMemory: nothing was written; kDiskFull or kWriteFailed: not everything was.
DatabaseResult ExportDatabase(FileHandle exportFile, const ExportRequest& request,
                              const StatusLine& status);

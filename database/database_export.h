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

// Writes every entry behind what an open file holds; what damage hides in the database is left out.
// After a failure not everything was written, and nothing when there is no memory for the order.
DatabaseResult ExportDatabase(FileHandle exportFile, const ExportRequest& request,
                              const StatusLine& status);

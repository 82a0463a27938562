// The sorter: the whole database rewritten in the order of its artists.
#pragma once

#include "database/artist_order.h"
#include "database/database_result.h"

// What the user typed is not concerned, so every failure leaves the file as it was. With fewer than
// two entries it stays as it is, and tarnwell.new is left with a header alone. kDamaged when the
// chain does not hold as many whole entries as counted.
DatabaseResult SortDatabase(CompareTexts compare, const StatusLine& status);

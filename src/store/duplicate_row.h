// A copy of the current row.
#pragma once
#include "store/edition.h"

namespace talpena {

/// Adds a row with every field of Data1's current row but COUNTER; the current row stays.
/// @return the new row's bookmark. Off a row, or before a file is open: NoCurrentRecord (3021).
Bookmark DupliqueLigne(Document& document, Edition& edition);

}  // namespace talpena

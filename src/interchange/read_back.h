// A database that was just written, read again and held against the rows that went into it.
#pragma once
#include <cstdint>
#include <functional>

#include "interchange/database_rows.h"
#include "interchange/database_targets.h"
#include "store/command_context.h"

namespace talpena {

/// Opens the table for reading, as anybody who finds the file would, and compares it row by row
/// with those that the grid shows. A value that comes back otherwise, or another number of rows,
/// is a failure (57) that names row and column. Failures of reading are thrown on.
/// @param avance  told how far it came, 0 to 1; what it throws ends the comparison
void RelitBase(CommandContext c, const DatabaseTarget& target, const DatabasePlace& place,
               DatabaseRows& rows, const std::function<void(double)>& avance);

}  // namespace talpena

// The command Erase column.
#pragma once
#include "store/command_context.h"

namespace talpena {

/// Empties the columns chosen in the grid, or the current one, in every row that the grid shows,
/// once the user has agreed. Columns of numbers become 0. Behind those the field that is emptied
/// is the one to the right of the column: Sex empties the datum, Comments nothing at all. Where
/// the table refuses the empty text, as it does for datum and original coordinates, its failure is
/// shown and nothing has changed.
void MnuEraseCol_Click(CommandContext c);

}  // namespace talpena

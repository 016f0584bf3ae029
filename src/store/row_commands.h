// Commands over single rows of the grid: go to one, add, duplicate, delete.
#pragma once

#include "store/command_context.h"
#include "store/edition.h"

namespace talpena {

// Failures are shown, not thrown; a command that fails has changed nothing. Each sets
// FichierModifie when it has changed rows. Rows that are added stand at the end of the grid.

/// cmdFirstLast: 0 goes to the first row, 1 to the last.
void cmdFirstLast_Click(CommandContext c, int index);

/// Adds as many empty rows as the user wants and goes to the last of them; 0 and less is none.
void MnuAjoutLigne_Click(CommandContext c);

/// Adds a copy of the current row and goes to it.
void mnuDuplic_Click(CommandContext c);

/// Deletes the rows chosen in the grid, once the user has agreed. The position stays, or becomes
/// that of the last row where fewer are left.
void MnuSupprimer_Click(CommandContext c);

/// Empty rows under the hourglass; many of them with a bar. The user may give up: then no row was
/// added. The bookmark of the last.
Bookmark AjouteLignesVides(CommandContext c, Edition& edition, std::int64_t count);

/// Binds the table when no file has bound it yet: rows are about to be added.
void LieTable(Document& document);

}  // namespace talpena

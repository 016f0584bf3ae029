// The rows that the grid shows as lines of a text file.
#pragma once
#include "interchange/export_dialogs.h"
#include "store/command_context.h"

namespace talpena {

/// Asks for the columns (OptionsExport) and the file, and writes the rows in the order of the grid;
/// no row changes. The new file takes the place of the one that stands there when it is complete,
/// or when a row cannot be written: then with the lines before that row. Whatever else fails, and
/// a user who gives up, leaves the former file as it was. Failures are shown and name the row.
///
/// Datum codes that the catalogue lacks are told once (808) behind the writing. DatumSpherique is
/// changed as LambertPoints says where X and Y are written.
///
/// @param index  0 fixed format, 1 commas, 2 tabulations, 3 blanks
void MnuExpAsciiMode(CommandContext c, ExportDialogs& dialogues, int index);

}  // namespace talpena

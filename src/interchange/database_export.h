// The rows that the grid shows as a table of another program's database.
#pragma once
#include "interchange/export_dialogs.h"
#include "store/command_context.h"

namespace talpena {

/// Asks for the columns (OptionsExport) and the file, and writes the rows in the order of the grid
/// into a new table there; no row changes. The table bears the name of the file up to its first
/// point. What stands in its place goes, if the user wants it so, once the new table is there,
/// behind a row that cannot be written with the rows before. A disk that fails, a table that cannot
/// be made, and a user who gives up leave it as it was; a new table has the rows until the disk
/// failed. A place that another program uses is refused before anything is asked. What a killed
/// export left half done in the folder is ended first, and told. Failures are shown.
///
/// Then the file is read again and held against the rows; the status bar says that it was, and a
/// difference is shown with row and column. Datum codes that the catalogue lacks are told once
/// (808). DatumSpherique is changed as LambertPoints says where X and Y are written.
///
/// @param index  as for CibleBase (interchange/database_targets.h)
void MnuExpDB(CommandContext c, ExportDialogs& dialogues, int index);

}  // namespace talpena

// What all imports have in common: how their rows come into the table, and what the user sees of
// them afterwards.
#pragma once
#include <cstdint>
#include <string>

#include "interchange/import_reader.h"
#include "platform/table_engine.h"
#include "store/command_context.h"

namespace talpena {

/// The rows that an import has added, also when it failed: neighbours at the end of those on show.
struct ImportedRows {
  std::int64_t added = 0;
  std::int64_t dropped = 0;  ///< records that did not enter
  Bookmark first = 0;        ///< of `added` rows that follow each other; 0 for none
};

/// Appends every record of the reader to the rows on show, under the hourglass with wait window and
/// bar. Throws what the reader or the table threw, and Cancelled when the user gave up: the rows
/// before that stay, without coordinates and chosen in the grid. FichierModifie is left alone.
/// @param name  of the command, as a menu would say it
/// @param rows  what was added, behind a failure too
void AjouteImportees(CommandContext c, const std::string& name, ImportReader& reader,
                     ImportedRows& rows);

/// Behind the last record: lifts a filter, so that the whole table is seen, computes the points of
/// all its rows anew (AjusteDegres(999, 999)), marks the file as modified, tells the status bar how
/// many rows were added, were dropped and have no point, and chooses the new rows in the grid.
void TermineImport(CommandContext c, const std::string& name, const ImportedRows& rows);

/// Both. A user who gave up is told what stays; the file then counts as modified.
void ImporteTout(CommandContext c, const std::string& name, ImportReader& reader);

/// "214 rows added, 2 dropped, 1 without a point".
std::string AvisImport(std::int16_t langue, std::int64_t added, std::int64_t dropped,
                       std::int64_t withoutPoint);

}  // namespace talpena

// What all imports have in common: how their rows come into the table, and what the user sees of
// them afterwards.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "interchange/import_reader.h"
#include "platform/table_engine.h"
#include "store/command_context.h"

namespace talpena {

/// What an import has done, also when it failed.
struct ImportedRows {
  std::vector<Bookmark> added;  ///< in the order of the file
  std::int64_t dropped = 0;     ///< records that did not enter
};

/// Appends every record of the reader to the rows on show, under the hourglass with wait window and
/// bar. Throws what the reader or the table threw: the rows before that stay, without coordinates
/// and chosen in the grid, and FichierModifie is left alone. A user who gives up is told that they
/// stay, as work of his, before Cancelled is thrown.
/// @param name  of the command, as a menu would say it
/// @param rows  filled behind a failure too
void AjouteImportees(CommandContext c, const std::string& name, ImportReader& reader,
                     ImportedRows& rows);

/// Behind the last record: lifts a filter, so that the whole table is seen, computes the points of
/// all its rows anew (AjusteDegres(999, 999)), marks the file as modified, tells the status bar how
/// many rows were added, were dropped and have no point, and chooses the new rows in the grid, so
/// that one key deletes them.
void TermineImport(CommandContext c, const std::string& name, const ImportedRows& rows);

/// Both. A failure of the first is shown in the common box with the rows added before it, not
/// thrown; false then, and when the user gave up.
/// @param rows  filled behind a failure too
bool ImporteTout(CommandContext c, const std::string& name, ImportReader& reader,
                 ImportedRows& rows);

/// What the user is told of a failure, and how many rows were added before it.
std::string DescriptionEchec(std::int16_t langue, const TalpenaError& error,
                             const ImportedRows& rows);

/// "Import: 214 rows added, 2 dropped, 1 without a point".
std::string AvisImport(std::int16_t langue, std::int64_t added, std::int64_t dropped,
                       std::int64_t withoutPoint);

}  // namespace talpena

// The commands that bring waypoints of receivers into the table.
#pragma once
#include <cstdint>
#include <string>

#include "interchange/garmin_options.h"
#include "interchange/import_context.h"
#include "interchange/mapsource_reader.h"
#include "interchange/mapsource_text.h"

namespace talpena {

/// `mnuImport` 1: asks for a .wpt file; each of its lines becomes a row on the default datum, and
/// the rows get their coordinates. A file that the open document has got already comes in again
/// only when the user says so. Failures are shown, not thrown; rows added before one stay. What is
/// odd about the file, lines without a position and a datum line without numbers, is told by a box
/// and in the status bar.
void ImportGarmin(ImportContext c);

/// `mnuImportGarmin` 0: asks for a text of MapSource and shows it (frmImportGarmin). Tracks, 1, are
/// not read.
void mnuImportGarmin_Click(ImportContext c, int index);

/// Asks for a file and shows frmImportGarmin over it.
/// @param type  0 for a file of MapSource
void ImportMapSource(ImportContext c, std::int16_t type);

/// For frmImportGarmin on load: the options at their first values, and the file. A type other than
/// 0 is told as not available and gives an empty text; so are a wrong file type and any failure,
/// with what was read until then.
MapSourceText ChargeImportGarmin(const SharedState& state, Platform& io, const std::string& path,
                                 std::int16_t type, objGraminImport& options);

/// What came of the checked waypoints.
struct MapSourceOutcome {
  bool finished = false;   ///< all that were to enter did, and have their points
  std::int64_t added = 0;  ///< of the first of them that have a position
};

/// For button 0 of frmImportGarmin, `options` being as the settings have them: the checked
/// waypoints become rows, and the rows get their coordinates. A missing altitude field is told
/// once. Failures are shown, not thrown; rows added before one stay.
MapSourceOutcome ImportMapSource(CommandContext c, InterchangeState& interchange,
                                 const MapSourceText& text, const MapSourceChoice& choice,
                                 const objGraminImport& options);

}  // namespace talpena

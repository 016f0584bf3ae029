// The adjust commands: latitude and longitude of every row anew from ORIGINAL and DATUM, snapped
// to a grid. ORIGINAL and DATUM stay. Rows without ORIGINAL, those that cannot be read and those
// whose datum the catalogue lacks keep their coordinates; the unknown codes are told once, in one
// box, at the end (message 808).
//
// A fault of the arithmetic in one row, and a result that lies nowhere on the globe, leaves that
// row as it is: those rows are chosen in the grid and told at the end, in one box. Any other
// failure takes the whole command back and is shown, not thrown.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "store/command_context.h"
#include "store/edition.h"

namespace talpena {

/// The dialogs of these commands.
class AdjustDialogs {
 public:
  virtual ~AdjustDialogs() = default;
  virtual bool MontreAjustement() = 0;  ///< Ajustement, modal; false when it was cancelled
};

/// Whether the rows whose coordinates name no place are chosen in the grid and told. An import,
/// which tells their number itself, leaves them untold.
enum class SansPlace : std::uint8_t { Dites, Tues };

/// Snaps to a mesh in decimal degrees; SansMaille (999) leaves an axis alone, so that 999 twice
/// recomputes all rows on the file's datum.
void AjusteDegres(CommandContext c, double meshLat, double meshLon,
                  SansPlace faults = SansPlace::Dites);

/// Snaps to the mesh of 0.2 by 0.4 Paris grades.
void AjusteGrades(CommandContext c);

/// Asks for the mesh and the grid (Ajustement), which open on those of the settings and are kept
/// there, and snaps to them; nothing on Cancel.
void AjusteCoor(CommandContext c, AdjustDialogs& dialogues);

/// `mnuAjustGrid`: 0 AjusteCoor, 1 AjusteDegres after asking for both meshes, 2 AjusteGrades.
void mnuAjustGrid_Click(CommandContext c, AdjustDialogs& dialogues, int index);

/// `mnuAjustIFBL`: squares of 32 x 20 km (0), 4 x 4 km (1), 1 x 1 km (2).
void mnuAjustIFBL_Click(CommandContext c, int index);

/// Changes the header as asked and computes every row of the table anew on the datum that the file
/// has then, those that a filter hides included: no row is left on the datum before. Both or, when
/// it fails, neither; false then.
bool RecalculeSurDatum(CommandContext c, const std::string& name,
                       const std::function<void(Edition&)>& entete = {});

/// Makes another datum that of the file: its code, its index, panel 3, and, when the grid is
/// showing, the coordinates of all rows. The file counts as modified. A code that the catalogue
/// lacks is told (808) and changes nothing.
void ChangeDatumFichier(CommandContext c, const std::string& code);

}  // namespace talpena

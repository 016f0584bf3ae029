// The record editor: one row of the distribution at a time, on the row on which Data1 stands.
#pragma once
#include <optional>
#include <string>

#include "store/command_context.h"
#include "store/record/record_screen.h"

namespace talpena {

/// Prepares the free fields for the layout of the file: one empty text per definition.
void CfgFreeFields(const StoreState& state, RecordScreen& ecran);

/// Labels of the free fields for column 0 of Grid, trimmed at their right.
std::vector<std::string> EtiquettesChampsLibres(const StoreState& state);

/// Captions of cmbSystem, in the order of CoordSystem.
std::vector<std::string> NomsDesSystemes(std::int16_t langue);

/// Fills the form from the current row; what cannot be read leaves its field empty. May change
/// InputMode. An unknown datum is told (808), once per row shown, and WGS84 taken for it. Clears
/// the changed flag.
void RempliDessus(CommandContext c, RecordScreen& ecran);

/// Takes InputMode into the form: which boxes are shown, their examples, the datum that the
/// system forces. Again after a change of language.
void AdapteInputbox(StoreState& state, RecordScreen& ecran);

/// The user left a box: its text is put right and, once all boxes of the system are filled, the
/// point is computed on the file's datum and shown in the control notations. A reference that
/// names no point leaves latitude and longitude as they were and says so in `avis`. Boxes that
/// did not change since the row was shown or the point computed leave a point that is there.
/// @param box  0 to 2
void QuitteEditBox(CommandContext c, RecordScreen& ecran, int box);

/// Shows the point once more in the control notations, and latitude and longitude as plain
/// numbers. What has no value in a notation is shown empty there.
void AfficheControle(CommandContext c, RecordScreen& ecran);

/// A field that cannot be saved as it stands, and why, in the user's language.
struct RecordFault {
  RecordField field;
  std::string text;
};

/// Sets `avis` from the form as it stands. Called by the procedures above; the window calls it when
/// any other field is left.
void MetAvis(const StoreState& state, RecordScreen& ecran);

/// The first fault in the order in which SauveEcran tests; empty when the form can be saved.
std::optional<RecordFault> PremiereFaute(const StoreState& state, const RecordScreen& ecran);

/// Checks the form and writes it to the row, whole or not at all. Does nothing while the changed
/// flag is clear. A box that was not left yet is computed first. Failures are shown, not thrown,
/// and `focus` is on the field; numbers are then shown as they were stored.
/// @param failed  set when the row was not written; not cleared otherwise
void SauveEcran(CommandContext c, RecordScreen& ecran, bool& failed);

/// The user chose a coordinate system: `index` of cmbSystem. Boxes keep texts that mean the same
/// kind of thing in the new system, and are emptied otherwise.
void cmbSystem_Click(CommandContext c, RecordScreen& ecran, int index);

/// The user chose a datum for the row in the chooser; "" for none. One without UTM use is refused
/// for UTM and MGRS (807). The point is computed anew from the boxes.
void cmdChangeDatum_Click(CommandContext c, RecordScreen& ecran, const std::string& code);

/// 0 the next row, 1 the previous one, each behind a SauveEcran that succeeded; other: shows the
/// control notations.
void cmdNavig_Click(CommandContext c, RecordScreen& ecran, int index);

/// A new empty row, and one like the current row. What was typed is saved first; when that fails
/// nothing is added. The row stands at the end of the recordset, whatever its order.
void ButNew_Click(CommandContext c, RecordScreen& ecran);
void ButDupl_Click(CommandContext c, RecordScreen& ecran);

/// SauveEcran.
void ButOk_Click(CommandContext c, RecordScreen& ecran);

/// Asks to save a changed form (814). True when the form may close.
bool ButEsc_Click(CommandContext c, RecordScreen& ecran);

}  // namespace talpena

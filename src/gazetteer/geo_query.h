// frmGeoQuery without its controls: the search for a place and its way into the record editor.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "gazetteer/gazetteer_context.h"
#include "gazetteer/gazetteer_file.h"
#include "gazetteer/place_list.h"
#include "store/record/record_screen.h"

namespace talpena {

/// The two buttons, by their indexes.
enum class GeoSearch : std::uint8_t { Exact, Approximate };

/// What the dialog does behind a procedure.
enum class GeoAfter : std::uint8_t {
  Stays,
  Hides,   ///< its list stays for the next opening
  Closes,  ///< the next opening begins anew
};

/// The dialog. The window binds it to its controls: it takes txt in before each of the procedures
/// below and shows everything behind it.
struct GeoQueryScreen {
  std::string txt;
  std::string lblNbre;
  PlaceList ListView1;
  std::optional<std::size_t> choisi;  ///< place in the list of the item that is selected
  std::string PicName;                ///< the name of the selected place
  RegionFont police;                  ///< of PicName
  bool focusTxt = false;              ///< where the keys are to go; taken and cleared by the window
  GeoAfter suite = GeoAfter::Stays;   ///< taken and cleared by the window

  OpenGazetteer base;  ///< kept open from search to search
};

/// On load: the fonts, and the text of a dialog that a failure closed.
void ChargeGeoQuery(GazetteerContext c, GeoQueryScreen& ecran);

/// The statement of a search for a text as it was typed, which is not escaped.
std::string InstructionRecherche(const SettingsState& settings, GeoSearch kind,
                                 std::string_view typed);

/// The search. Any failure is told; then frmGeoSetup opens where the database was not found, and
/// otherwise the dialog closes.
void cmd_Click(GazetteerContext c, GeoQueryScreen& ecran, GeoSearch kind);

/// The font that an item asks for; empty for one outside the table.
std::optional<RegionFont> PoliceDe(const GazetteerState& gazetteer, const PlaceItem& item);

/// Shows the name of an item in the font that it asks for; one outside the table is told (9) and
/// shown in the first.
void AfficheNom(GazetteerContext c, GeoQueryScreen& ecran, const PlaceItem& item);

/// A click on an item, and one on the caption of a column.
void ListView1_ItemClick(GazetteerContext c, GeoQueryScreen& ecran, std::size_t place);
void ListView1_ColumnClick(GazetteerContext c, GeoQueryScreen& ecran, PlaceColumn column);

/// The selected place goes into the record form as if it were typed there, and the dialog hides.
/// Without a selected place nothing happens. One without coordinates beeps, and a datum that the
/// catalogue lacks is told (808): both leave everything as it is. May change InputMode.
void ListView1_DblClick(GazetteerContext c, GeoQueryScreen& ecran, RecordScreen& fiche);

/// The same for a place that was found otherwise: an item of FaitItem.
void ChoisitLieu(GazetteerContext c, GeoQueryScreen& ecran, const PlaceItem& item,
                 RecordScreen& fiche);

}  // namespace talpena

// The preferences: what the dialog Prefer shows, and what its buttons do.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/command_context.h"

namespace talpena {

/// The dialog as it stands: the texts of its controls.
struct PreferencesForm {
  int Combo2 = -1;           ///< coordinate system 0 to 15; -1 while none of them is the setting
  std::string cmbDatum;      ///< an entry of its list, or what the user typed
  std::string lblDatumOrig;  ///< code of the spherical datum; "" for none
  std::string cmbDatumUTM;
  std::array<std::string, 2> ChampNumerique;
  bool OptSilence = false;
  std::string TxtSepar;
  bool ChkAutoSave = false;
  std::string txtSaveInterval;
  std::string txtWorkingDir;
};

/// The form over the state and the store as they are.
PreferencesForm RempliPrefer(const StoreState& state, Platform& io);

/// An entry of a list of datums: "EUR-M - EUROPEAN 1950 (Mean)". Its first five characters are
/// the code.
std::string EntreeDatum(const DatumRecord& datum);

/// The entries of cmbDatum: every datum, in the order of the catalogue.
std::vector<std::string> EntreesDatums(const DatumCatalogue& catalogue);

/// The entries of cmbDatumUTM: the datums that are allowed for UTM and MGRS, and the present one.
std::vector<std::string> EntreesDatumsUtm(const CoordState& state);

/// The datum that a text means: an entry, or a code in any letter case, blanks around it aside;
/// 0 for any other text.
std::int16_t DatumDuTexte(const DatumCatalogue& catalogue, std::string_view text);

/// Where the dialog goes after OK.
enum class PreferencesFocus : std::uint8_t { None, cmbDatum, cmbDatumUTM };
struct PreferencesOutcome {
  bool ferme = false;  ///< the dialog closes
  PreferencesFocus focus = PreferencesFocus::None;
};

/// OK. The interval of the automatic save is put right in the form. A text that is no datum is
/// told (808; 807 where UTM does not allow it) and nothing is stored. When the datum of the file is
/// another one and the grid is showing, the user is asked first; Cancel stores nothing.
/// Then the globals are taken, the datums stored at once, and, while the grid is showing, the
/// coordinates of every row are computed anew. Failures are shown, not thrown; a store that
/// refuses keeps nobody from working with the new values.
PreferencesOutcome ValidePrefer(CommandContext c, PreferencesForm& form);

/// Asks for the folder of the working database and stores it at once, for the next start.
/// Failures are shown, not thrown.
void ChoisitWorkingDir(StoreState& state, Platform& io, PreferencesForm& form);

}  // namespace talpena

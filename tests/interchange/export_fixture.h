// An open distribution and the dialogs of a text export.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "coords/test_catalogue.h"
#include "interchange/text_export.h"
#include "store/save_fixture.h"

namespace talpena::test {

/// All modes of the export, by their index.
enum Mode { Fixed, Commas, Tabs, Blanks };

class TextExportTest : public testing::Test, protected Monde, protected ExportDialogs {
 protected:
  TextExportTest() {
    state.Catalogue = CatalogueDesSources();
    state.Silence = true;
    SansColonnes();
  }

  /// No column at all, for tests that turn on what they want.
  void SansColonnes() {
    for (std::int16_t SettingsState::*flag :
         {&SettingsState::ExportPeriod, &SettingsState::ExportLatitude,
          &SettingsState::ExportLongitude, &SettingsState::ExportNumber1,
          &SettingsState::ExportNumber2, &SettingsState::ExportEllipsoid,
          &SettingsState::ExportOriginalCoord, &SettingsState::ExportDate,
          &SettingsState::ExportFreeField, &SettingsState::ExportSex}) {
      state.*flag = 0;
    }
  }

  /// A row that can be exported.
  static Rangee Ligne(int period = 3) {
    return {.period = period,
            .latitude = 50.41234,
            .longitude = 3.9212,
            .n1 = 7,
            .n2 = 0,
            .sex = "M",
            .datum = "WGS84",
            .original = "deg 50.41234 3.9212",
            .date = "1990/01/31",
            .comment = "Mons/wood"};
  }

  /// Exports to a file and gives its bytes.
  std::string Exporte(int mode = Commas) {
    dialogues.paths = {path};
    MnuExpAsciiMode(context, *this, mode);
    return LitFichier(path);
  }

  /// The same of one row in the mode with commas; the lines.
  std::vector<std::string> LignesDe(const Rangee& row) {
    Ajoute(row);
    return Lignes(Exporte());
  }

  bool MontreOptionsExport(ExportKind kind) override {
    genres.push_back(kind);
    ++options;
    if (choisit) choisit();
    return accepte;
  }

  std::string path = folder / "out.txt";
  int options = 0;                 ///< how often OptionsExport was shown
  std::vector<ExportKind> genres;  ///< what it was shown for
  bool accepte = true;             ///< what it answers
  std::function<void()> choisit;   ///< what the user does in it
};

}  // namespace talpena::test

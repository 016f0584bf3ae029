// A file with rows and the record editor on it, without windows.
#pragma once
#include <string>
#include <utility>
#include <vector>

#include "common/string_table.h"
#include "store/coords_world.h"
#include "store/record/record_editor.h"

namespace talpena::test {

using Fields = std::vector<std::pair<const char*, std::string>>;

struct RecordWorld : CoordsWorld {
  RecordScreen ecran;

  RecordWorld() {
    state.DatumFichierCode = "EUR-M";
    state.DatumFichier = state.Catalogue.DatumEur;
    state.DatumSpheriqueCode = "EUR-M";
    state.DatumSpherique = state.Catalogue.DatumEur;
    state.DatumUtmCode = "WGS84";
    state.DatumUtm = state.Catalogue.DatumWgs84;
    state.NbPivots = 2;
  }

  void DefinitChampsLibres(const std::vector<std::string>& labels) {
    state.FreeFieldDefs.clear();
    for (const std::string& label : labels)
      state.FreeFieldDefs.push_back({.Label = label, .Code = {}});
    state.FreeFieldCount = static_cast<std::int16_t>(labels.size());
  }

  /// Rows of the named fields, the others Null; shown, the first one current and in the form.
  void Ouvre(const std::vector<Fields>& rows) {
    auto table = state.WorkingDb->OpenRecordset("TALPENA");
    for (const Fields& row : rows) {
      table->AddNew();
      for (const auto& [name, text] : row) table->Set(name, Cell::Of(std::string_view(text)));
      table->Update();
    }
    state.Data1.Lie(*state.WorkingDb);
    state.Data1.RecordSource = state.SqlCourant;
    state.Data1.Refresh();
    state.FichierModifie = false;
    RempliDessus(Contexte(), ecran);
  }
  /// One row with these fields and period 1.
  void Ligne(Fields fields = {}) {
    fields.insert(fields.begin(), {"PERIOD", "1"});
    Ouvre({fields});
  }

  /// A system chosen, its boxes emptied, then filled and left one after the other.
  void Tape(CoordSystem system, const std::vector<std::string>& texts) {
    cmbSystem_Click(Contexte(), ecran, static_cast<int>(system));
    ecran.EditBox = {};
    const std::size_t first = ecran.EditBox.size() - texts.size();
    for (std::size_t i = 0; i < texts.size(); ++i) {
      ecran.EditBox[first + i] = texts[i];
      ecran.modifie = ecran.ButOk = true;
      QuitteEditBox(Contexte(), ecran, static_cast<int>(first + i));
    }
  }

  bool Sauve() {
    bool failed = false;
    SauveEcran(Contexte(), ecran, failed);
    return !failed;
  }
  /// A change, and a save.
  bool ChangeEtSauve() {
    ecran.modifie = true;
    return Sauve();
  }

  Cell Champ(const char* name) { return state.Data1.recordset().Get(name); }
  std::string TexteChamp(const char* name) { return Champ(name).Texte(); }
  std::int16_t Indice(const char* code) { return ChercheDatum(state.Catalogue, code); }
  std::string Message(int id) { return talpena::Texte(state.Langue, id); }
};

inline constexpr int German = 3000;

}  // namespace talpena::test

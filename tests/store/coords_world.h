// A program without windows whose catalogue is the shipped one, and rows that tests put in.
#pragma once
#include <string>
#include <vector>

#include "coords/test_catalogue.h"
#include "store/command_context.h"
#include "store/world.h"

namespace talpena::test {

struct CoordsWorld : World {
  CoordsWorld() {
    state.Catalogue = CatalogueDesSources();
    state.DatumFichierCode = "WGS84";
    state.DatumFichier = state.Catalogue.DatumWgs84;
    vue.grilleVisible = true;
    state.Silence = true;
  }

  CommandContext Contexte() { return {state, io, vue}; }

  struct Row {
    std::string datum, original;  ///< "" is Null
    std::string latitude = "1", longitude = "2", comment = {};
  };

  /// Puts rows into the table and shows them, as a file that was just opened.
  void Montre(const std::vector<Row>& rows) {
    auto table = state.WorkingDb->OpenRecordset("TALPENA");
    for (const Row& row : rows) {
      table->AddNew();
      const auto set = [&](int field, const std::string& text) {
        if (!text.empty()) table->Set(field, Cell::Of(std::string_view(text)));
      };
      set(Column::DATUM, row.datum);
      set(Column::ORIGINAL, row.original);
      set(Column::LATITUDE, row.latitude);
      set(Column::LONGITUDE, row.longitude);
      set(Column::COMMENT, row.comment);
      table->Update();
    }
    state.Data1.Lie(*state.WorkingDb);
    state.Data1.RecordSource = state.SqlCourant;
    state.Data1.Refresh();
    state.FichierModifie = false;
  }

  /// "50.5 4.25" of every row, in file order; Null as "-".
  std::vector<std::string> Points() { return Colonnes({Column::LATITUDE, Column::LONGITUDE}); }
  std::vector<std::string> Commentaires() { return Colonnes({Column::COMMENT}); }

 private:
  std::vector<std::string> Colonnes(const std::vector<int>& fields) {
    std::vector<std::string> all;
    const auto rows = state.WorkingDb->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
    for (; !rows->EOF_(); rows->MoveNext()) {
      std::string line;
      for (const int field : fields) {
        const Cell cell = rows->Get(field);
        if (!line.empty()) line += ' ';
        line += cell.EstNull()                  ? "-"
                : cell.kind == Cell::Kind::Real ? Str(static_cast<float>(cell.real))
                                                : cell.Texte();
      }
      all.push_back(line);
    }
    return all;
  }
};

using Lines = std::vector<std::string>;

}  // namespace talpena::test

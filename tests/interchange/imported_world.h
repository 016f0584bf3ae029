// A program without windows into which lists are imported.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "coords/systems.h"
#include "interchange/text_import.h"
#include "store/coords_world.h"

namespace talpena::test {

/// No dialog is expected.
struct NoImportDialogs : ImportDialogs {
  void MontreImportation() override { ADD_FAILURE() << "frmImportation"; }
  void MontreImportGarmin(const std::string&, int) override { ADD_FAILURE() << "frmImportGarmin"; }
};

/// An empty file on WGS84 with the shipped catalogue; new rows in degrees and UTM stand on EUR-M.
struct ImportedWorld : CoordsWorld {
  InterchangeState interchange;
  NoImportDialogs dialogs;

  ImportedWorld() {
    state.DatumUtm = state.DatumSpherique = state.Catalogue.DatumEur;
    Montre({});
  }

  ImportContext Contexte() { return {{context}, interchange, dialogs}; }

  void Importe(CoordSystem system, const std::string& bytes) {
    interchange.FichierImportation = "/data/list.txt";
    files.Pose(interchange.FichierImportation, bytes);
    ImportCoord(Contexte(), static_cast<std::int16_t>(system));
  }

  /// A row of the table. Null is "" or 999.
  struct Row {
    std::int64_t period, n1, n2;
    double latitude, longitude;
    std::string datum, original, date, comment;
  };

  /// In the order of the file.
  std::vector<Row> Rows() {
    std::vector<Row> all;
    const auto rows =
        state.document.WorkingDb->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
    for (; !rows->EOF_(); rows->MoveNext()) {
      const auto text = [&](int field) {
        const Cell cell = rows->Get(field);
        return cell.EstNull() ? std::string() : cell.Texte();
      };
      const auto degrees = [&](int field) {
        const Cell cell = rows->Get(field);
        return cell.EstNull() ? EchecCoord : cell.real;
      };
      all.push_back({rows->Get(Column::PERIOD).integer, rows->Get(Column::N1).integer,
                     rows->Get(Column::N2).integer, degrees(Column::LATITUDE),
                     degrees(Column::LONGITUDE), text(Column::DATUM), text(Column::ORIGINAL),
                     text(Column::DATE), text(Column::COMMENT)});
    }
    return all;
  }
};

}  // namespace talpena::test

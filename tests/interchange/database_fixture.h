// An open distribution and the formats that its rows go out to.
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fakes/fake_maker.h"
#include "interchange/database_export.h"
#include "interchange/database_targets.h"
#include "interchange/export_fixture.h"
#include "platform/foreign/jet_format.h"

namespace talpena::test {

/// The targets, by their index.
enum Target { Access, FoxPro, DBase, Paradox, Excel, GeoPackageFile, Workbook };

inline const std::string dBaseConnect = "dBase IV;";

using Texts = std::vector<std::string>;

/// A table as somebody reads it who finds the file.
struct ReadTable {
  std::string name;
  std::vector<FieldDef> fields;
  std::vector<Texts> rows;  ///< "(null)" for Null

  Texts Noms() const {
    Texts names;
    for (const FieldDef& field : fields) names.push_back(field.name);
    return names;
  }
};

/// Reads the only table of a database.
inline ReadTable LitTable(TableEngine& engine, const std::string& path, std::string_view connect) {
  const auto database = engine.OpenDatabase(path, true, connect);
  ReadTable table;
  const Texts names = database->TableNames();
  if (names.size() != 1) {
    ADD_FAILURE() << path << " holds " << names.size() << " tables";
    return table;
  }
  table.name = names[0];
  const auto rows = database->OpenRecordset(table.name);
  table.fields = rows->Fields();
  for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
    Texts values;
    for (std::size_t i = 0; i < table.fields.size(); ++i) {
      const Cell cell = rows->Get(static_cast<int>(i));
      values.push_back(cell.EstNull() ? "(null)" : cell.Texte());
    }
    table.rows.push_back(std::move(values));
  }
  return table;
}

/// The engine with the formats that a test gives it, in place of one without any.
class DatabaseExportTest : public TextExportTest {
 protected:
  DatabaseExportTest() {
    Edition edition(state.document, "Test");
    edition.Entete().DatumFichier = ChercheDatum(state.Catalogue, "EUR-M");
    edition.Entete().BoxTitre = "Moles";
    edition.Entete().Commentaire = "of Mons";
    edition.Valide();
  }

  void Prend(std::vector<std::unique_ptr<ForeignFormat>> formats) {
    makers = CreeMoteurSqlite(std::move(formats));
  }

  /// The whole command; the file dialog is answered by `chosen`.
  void ExporteVers(int target, const std::string& chosen) {
    dialogues.paths.push_back(chosen);
    Lance(target);
  }
  void Lance(int target) {
    Platform machine{*makers, *files, settings, dialogues, clock, environment, sound};
    MnuExpDB({state, machine, vue, vue, vue}, *this, target);
  }

  std::string Avis() { return state.document.Montre().avis; }

  std::unique_ptr<TableEngine> makers = CreeMoteurSqlite();
};

}  // namespace talpena::test

// An open distribution on the real table engine and in a folder of the test's own.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "fakes/document_states.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_view.h"
#include "fakes/temp_folder.h"
#include "platform/os/file_system.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/deg_writer.h"
#include "store/file_commands.h"
#include "store/table.h"

namespace talpena::test {

/// A row to be added; what is empty is Null.
struct Rangee {
  std::optional<std::int64_t> period = {};
  std::optional<double> latitude = {};
  std::optional<double> longitude = {};
  std::optional<std::int64_t> n1 = {};
  std::optional<std::int64_t> n2 = {};
  std::optional<std::string> sex = {};
  std::optional<std::string> datum = {};
  std::optional<std::string> original = {};
  std::optional<std::string> date = {};
  std::optional<std::string> comment = {};
};

/// The program without its windows, with an empty table bound to the grid.
struct Monde : FakeServices {
  TempFolder folder;
  std::unique_ptr<FileSystem> files = CreeSystemeDeFichiers();
  std::unique_ptr<TableEngine> engine = CreeMoteurSqlite();
  FakeView vue;
  Platform io{*engine, *files, settings, dialogues, clock, environment, sound};
  TempFolder working;  ///< the working database, out of the way
  StoreState state;
  CommandContext context{state, io, vue, vue, vue};

  Monde() {
    state.AppDir = working / "no-program";
    state.WorkingDbPath = working / "talpena_tmp.mdb";
    state.document.WorkingDb = engine->CreateDatabase(state.WorkingDbPath, NewDatabase{});
    CreateTable(*state.document.WorkingDb);
    vue.Suit(state.document);
    Relit();
  }

  void Relit() { state.document.RelieSqlCourant(); }

  void Ajoute(const Rangee& row) {
    Recordset& rows = state.document.Data1.recordset();
    rows.AddNew();
    const auto pose = [&rows](int column, const auto& value) {
      if (value) rows.Set(column, Vue(*value));
    };
    pose(Column::PERIOD, row.period);
    pose(Column::LATITUDE, row.latitude);
    pose(Column::LONGITUDE, row.longitude);
    pose(Column::N1, row.n1);
    pose(Column::N2, row.n2);
    pose(Column::SEX, row.sex);
    pose(Column::DATUM, row.datum);
    pose(Column::ORIGINAL, row.original);
    pose(Column::DATE, row.date);
    pose(Column::COMMENT, row.comment);
    rows.Update();
    MarqueModifie(state.document);
  }
  template <typename... Rows>
  void AjouteToutes(const Rows&... rows) {
    (Ajoute(rows), ...);
  }

  std::int64_t NombreLignes() { return state.document.Data1.recordset().RecordCount(); }

  /// Texts of the message boxes shown.
  std::vector<std::string> Boites() const {
    std::vector<std::string> texts;
    for (const MessageBox& box : dialogues.boxes) texts.push_back(box.text);
    return texts;
  }

 private:
  static Cell Vue(std::int64_t v) { return Cell::Of(v); }
  static Cell Vue(double v) { return Cell::Of(v); }
  static Cell Vue(const std::string& v) { return Cell::Of(std::string_view(v)); }
};

/// The lines of a file, without their CR LF.
inline std::vector<std::string> Lignes(const std::string& bytes) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = bytes.find("\r\n", start);
    lines.push_back(bytes.substr(start, end - start));
    start = end == std::string::npos ? bytes.size() : end + 2;
  }
  return lines;
}

/// The bytes up to and with the last line end.
inline std::string LignesEntieres(const std::string& bytes) {
  const std::size_t end = bytes.rfind("\r\n");
  return end == std::string::npos ? std::string() : bytes.substr(0, end + 2);
}

}  // namespace talpena::test

// Rows of a distribution into tables of dBase IV and FoxPro 2.5, beside a bare loop that scans the
// same rows and writes as many bytes of formatted text; and a table back into the engine, beside a
// loop of prepared INSERTs of as many rows.
//
//   dbase_bench [rows] [folder]
#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "bare_table.h"
#include "exported_rows.h"
#include "measure.h"
#include "platform/foreign/dbase/dbase_format.h"
#include "platform/sqlite/sqlite_engine.h"

using namespace talpena;
namespace fs = std::filesystem;

namespace {

struct Format {
  const char* name;
  std::string_view connect;
  const char* memos;
  std::unique_ptr<ForeignFormat> (*cree)(const LimitesDbase&);
};

constexpr Format formats[] = {{"dBase IV", Connect::DBase4, "bees.dbt", CreeFormatDbase},
                              {"FoxPro 2.5", Connect::FoxPro25, "bees.fpt", CreeFormatFoxPro}};

/// Rows as the tables hold them, made beforehand.
std::vector<std::vector<Value>> LignesFaites() {
  constexpr std::int64_t some = 4096;
  bench::Generator generator(some);
  std::vector<Cell> cells(bench::generatedColumns.size());
  std::vector<std::vector<Value>> rows;
  while (generator.Suivante(cells)) {
    std::vector<Value> row;
    for (const Cell& cell : cells) row.push_back(cell.Garde());
    row.front() = cells.front().Texte();
    row.emplace_back(bench::memo);
    rows.push_back(std::move(row));
  }
  return rows;
}

/// The floor of reading: a loop that binds and steps.
void InsereNu(const std::vector<std::vector<Value>>& rows, std::int64_t count) {
  bench::BareTable bare("");
  bare.Execute(
      "CREATE TABLE bees (a TEXT, b REAL, c REAL, d REAL, e REAL, f TEXT, g TEXT, h TEXT, i TEXT, "
      "j TEXT, k TEXT)");
  bare.Execute("BEGIN");
  sqlite3_stmt* insert = bare.Prepare("INSERT INTO bees VALUES (?,?,?,?,?,?,?,?,?,?,?)");
  for (std::int64_t done = 0; done < count; ++done) {
    int place = 0;
    for (const Value& value : rows[static_cast<std::size_t>(done) % rows.size()]) {
      const Cell cell = Cell::Vue(value);
      if (cell.kind == Cell::Kind::Text) {
        sqlite3_bind_text(insert, ++place, cell.text.data(), static_cast<int>(cell.text.size()),
                          SQLITE_STATIC);
      } else {
        sqlite3_bind_double(insert, ++place, cell.Nombre());
      }
    }
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  bare.Execute("COMMIT");
}

void Mesure(const Format& format, const bench::ExportArguments& arguments) {
  bench::ExportedRows rows(arguments.rows, arguments.folder, "dbase_bench", format.cree({}));
  const fs::path place = rows.folder / "tables";
  const double written = bench::Meilleur([&] {
    fs::remove_all(place);
    fs::create_directories(place);
    rows.Exporte(*rows.engine->OpenDatabase(place.string(), false, format.connect));
  });
  constexpr double writeBound = 1.5, readBound = 1.3;
  const std::size_t bytes = fs::file_size(place / "bees.dbf") + fs::file_size(place / format.memos);
  rows.Compare((std::string("export to ") + format.name).c_str(), written, bytes, writeBound);

  const double read = bench::Meilleur([&] {
    const auto database = rows.engine->OpenDatabase(place.string(), true, format.connect);
    if (database->OpenRecordset("bees")->RecordCount() != arguments.rows) std::exit(1);
  });
  const auto made = LignesFaites();
  const double floor = bench::Meilleur([&] { InsereNu(made, arguments.rows); });
  bench::Rapporte((std::string("reading ") + format.name).c_str(), read, floor, readBound);
  std::printf("memory %ld MB\n", bench::MemoireMaximale());
}

}  // namespace

int main(int argc, char** argv) {
  for (const Format& format : formats) Mesure(format, {argc, argv});
}

// The commands that rewrite coordinates over a table of mixed notations, against a bare loop of
// SQLite that selects, decodes and updates two columns of every row by its key, in the same run.
//
//   adjust_bench [rows] [folder]
#include <cstdio>
#include <filesystem>
#include <string>

#include "bare_table.h"
#include "fakes/document_states.h"

#include "coord_commands/adjust.h"
#include "coord_commands/fill.h"
#include "coords/original_maker.h"
#include "coords/snap.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "measure.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/table.h"

using namespace talpena;
using bench::Millisecondes;
using bench::Rapporte;

namespace {

/// The main window with a dialog that takes 10 km squares of the UTM grid.
class View final : public test::SilentView {
 public:
  explicit View(StoreState& state) : state_(state) {}
  bool MontreAjustement() override {
    state_.MailleChoisie = 4;
    return true;
  }

 private:
  StoreState& state_;
};

/// Rows of all notations in turn, each on the datum of its system.
class MixedRows final : public RowSource {
 public:
  MixedRows(CoordState& state, std::int64_t rows) : state_(state), maker_(state), rows_(rows) {}
  bool Suivante(std::span<Cell> cells) override {
    if (done_ == rows_) return false;
    const auto system = static_cast<CoordSystem>(done_ % CoordSystemCount);
    ++done_;
    original_ = maker_.Original(system);
    datum_ = Rogne(state_.Catalogue.Datum(DatumDuSysteme(state_, system)).code);
    cells[0] = Cell::Of(std::int64_t{1 + done_ % 3});
    cells[1] = cells[2] = Cell::Of(0.0);
    cells[3] = Cell::Of(std::string_view(datum_));
    cells[4] = Cell::Of(std::string_view(original_));
    cells[5] = Cell::Of(std::string_view("Locality 12345/1200 m/Collector 77//////////"));
    return true;
  }

 private:
  CoordState& state_;
  test::OriginalMaker maker_;
  std::int64_t rows_;
  std::int64_t done_ = 0;
  std::string original_, datum_;
};

constexpr std::array<std::string_view, 6> columns = {"PERIOD", "LATITUDE", "LONGITUDE",
                                                     "DATUM",  "ORIGINAL", "COMMENT"};

void RemplitNu(bench::BareTable& bare, CoordState& state, std::int64_t rows) {
  bare.Execute("BEGIN");
  sqlite3_stmt* insert = bare.Prepare(
      "INSERT INTO TALPENA (PERIOD, LATITUDE, LONGITUDE, DATUM, ORIGINAL, COMMENT) "
      "VALUES (?,?,?,?,?,?)");
  MixedRows source(state, rows);
  std::array<Cell, columns.size()> cells;
  while (source.Suivante(cells)) {
    sqlite3_bind_int64(insert, 1, cells[0].integer);
    sqlite3_bind_double(insert, 2, 0);
    sqlite3_bind_double(insert, 3, 0);
    for (int i = 3; i < 6; ++i) {
      const std::string_view text = cells[static_cast<std::size_t>(i)].text;
      sqlite3_bind_text(insert, i + 1, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    }
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  bare.Execute("COMMIT");
}

std::string_view Colonne(sqlite3_stmt* row, int column) {
  return {reinterpret_cast<const char*>(sqlite3_column_text(row, column)),
          static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

/// The floor: a row selected, its coordinates decoded and moved, two columns updated by key.
void RecalculeNu(bench::BareTable& bare, StoreState& state) {
  bare.Execute("BEGIN");
  sqlite3_stmt* row = bare.Prepare("SELECT Counter, DATUM, ORIGINAL FROM TALPENA");
  sqlite3_stmt* update =
      bare.Prepare("UPDATE TALPENA SET LATITUDE = ?, LONGITUDE = ? WHERE Counter = ?");
  std::string code, lastDatum;
  std::int16_t datum = 0;
  while (sqlite3_step(row) == SQLITE_ROW) {
    if (Colonne(row, 1) != lastDatum) {
      lastDatum = Colonne(row, 1);
      datum = ChercheDatum(state.Catalogue, lastDatum);
    }
    double latitude = 0, longitude = 0;
    DecodeOriginal(state, Colonne(row, 2), datum, latitude, longitude, code);
    ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, datum,
                   state.document.Entete().DatumFichier);
    sqlite3_bind_double(update, 1, latitude);
    sqlite3_bind_double(update, 2, longitude);
    sqlite3_bind_int64(update, 3, sqlite3_column_int64(row, 0));
    sqlite3_step(update);
    sqlite3_reset(update);
  }
  sqlite3_finalize(update);
  sqlite3_finalize(row);
  bare.Execute("COMMIT");
}

void Compare(CommandContext c, AdjustDialogs& dialogues, double floor) {
  const auto time = [&](const char* task, double bound, const std::function<void()>& body) {
    Rapporte(task, Millisecondes(body), floor, bound);
  };
  time("AjusteDegres(999, 999)", 0.8, [&] { AjusteDegres(c, SansMaille, SansMaille); });
  time("AjusteDegres(0.1, 0.1)", 1.2, [&] { AjusteDegres(c, 0.1, 0.1); });
  time("AjusteGrades", 1.2, [&] { AjusteGrades(c); });
  time("AjusteCoor, 10 km UTM", 1.2, [&] { AjusteCoor(c, dialogues); });
  time("mnuAjustIFBL, 4 km", 1.2, [&] { mnuAjustIFBL_Click(c, 1); });
  time("AjusteDegres, sorted rows", 1.2, [&] {
    c.state.document.Data1.RecordSource = "SELECT * FROM TALPENA ORDER BY ORIGINAL";
    c.state.document.Data1.Refresh();
    AjusteDegres(c, SansMaille, SansMaille);
  });
  time("MnuRemplirCoo, British", 1.2, [&] { MnuRemplirCoo_Click(c, 1); });
  time("MnuRemplirXY, DMS", 1.2, [&] { MnuRemplirXY_Click(c, 0); });
  time("MnuRemplirXY, Lambert", 1.2, [&] { MnuRemplirXY_Click(c, 2); });
  time("MnuRemplirXY, IFBL", 1.2, [&] { MnuRemplirXY_Click(c, 3); });
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1000000;
  namespace fs = std::filesystem;
  const fs::path folder = argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path();
  const std::string bareFile = (folder / "adjust_bench_bare.db").string();
  const std::string ourFile = (folder / "adjust_bench_ours.mdb").string();
  for (const std::string& file : {bareFile, ourFile}) fs::remove(file);
  {
    test::SilentPlatform machine;
    StoreState state;
    state.Silence = true;
    test::PoseCatalogue(state);
    test::Entete(state.document)->DatumFichierCode = "EUR-M";
    test::Entete(state.document)->DatumFichier = state.Catalogue.DatumEur;
    state.document.WorkingDb = machine.engine->CreateDatabase(ourFile, {});
    CreateTable(*state.document.WorkingDb);
    MixedRows source(state, rows);
    state.document.WorkingDb->InsertRows("TALPENA", columns, source);
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
    View view(state);

    bench::BareTable bare(bareFile);
    RemplitNu(bare, state, rows);
    const double floor = Millisecondes([&] { RecalculeNu(bare, state); });
    std::printf("bare loop over %ld rows: %.0f ms\n", static_cast<long>(rows), floor);
    Compare(view.Contexte(state, machine.io), view, floor);
    std::printf("peak memory %ld MB\n", bench::MemoireMaximale());
    state.document.Data1 = DataControl();
    state.document.WorkingDb.reset();
  }
  for (const std::string& file : {bareFile, bareFile + "-journal", ourFile}) fs::remove(file);
}

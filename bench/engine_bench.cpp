// The table engine against this machine's floor: the same work done with bare SQLite in the
// same run. Prints one line per task: milliseconds of both, and their ratio.
//
//   engine_bench [rows] [folder]
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "bare_table.h"
#include "fakes/talpena_table.h"
#include "generated_rows.h"
#include "measure.h"
#include "platform/sqlite/sqlite_engine.h"

using namespace talpena;
using bench::Generator;
using bench::Meilleur;
using bench::MemoireMaximale;
using bench::Millisecondes;
using bench::Rapporte;

namespace {

/// SQLite by itself, with the statements of this benchmark.
class Bare : public bench::BareTable {
 public:
  using BareTable::BareTable;

  /// Steps through a SELECT; reads all columns when asked.
  std::int64_t Parcourt(const char* sql, bool read) {
    sqlite3_stmt* rows = Prepare(sql);
    std::int64_t sum = 0;
    while (sqlite3_step(rows) == SQLITE_ROW) {
      ++sum;
      if (!read) continue;
      for (int i = 0; i < sqlite3_column_count(rows); ++i) {
        switch (sqlite3_column_type(rows, i)) {
          case SQLITE_INTEGER:
            sum += sqlite3_column_int64(rows, i);
            break;
          case SQLITE_FLOAT:
            sum += static_cast<std::int64_t>(sqlite3_column_double(rows, i));
            break;
          case SQLITE_TEXT:
            sum += reinterpret_cast<const char*>(sqlite3_column_text(rows, i))[0];
            sum += sqlite3_column_bytes(rows, i);
            break;
          default:
            break;
        }
      }
    }
    sqlite3_finalize(rows);
    return sum;
  }
};

std::int64_t Parcourt(Recordset& rows) {
  std::int64_t sum = 0;
  for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext()) {
    ++sum;
    for (int i = 0; i < 11; ++i) {
      const Cell cell = rows.Get(i);
      if (cell.kind == Cell::Kind::Integer) {
        sum += cell.integer;
      } else if (cell.kind == Cell::Kind::Real) {
        sum += static_cast<std::int64_t>(cell.real);
      } else if (cell.kind == Cell::Kind::Text) {
        sum += static_cast<std::int64_t>(cell.text.size()) + cell.text[0];
      }
    }
  }
  return sum;
}

void CompareInsertion(Bare& bare, Database& database, std::int64_t rows) {
  const double floor = Millisecondes([&] { bench::InsereNu(bare, rows); });
  const double ours = Millisecondes([&] {
    Transaction transaction(database);
    Generator generator(rows);
    database.InsertRows("TALPENA", bench::generatedColumns, generator);
    transaction.Valide();
  });
  Rapporte("bulk insert", ours, floor, 0.7);
}

void CompareParcours(Bare& bare, Database& database) {
  const auto rows = database.OpenRecordset("TALPENA");
  std::int64_t a = 0;
  std::int64_t b = 0;
  const double floor = Meilleur([&] { a = bare.Parcourt("SELECT * FROM TALPENA", true); });
  const double ours = Meilleur([&] { b = Parcourt(*rows); });
  if (a != b)
    std::printf("scan: sums differ, %ld and %ld\n", static_cast<long>(a), static_cast<long>(b));
  Rapporte("scan, all columns", ours, floor, 1.2);
}

void CompareTris(Bare& bare, Database& database) {
  const double reference =
      Meilleur([&] { bare.Parcourt("SELECT Counter FROM TALPENA ORDER BY LATITUDE", false); });
  struct Order {
    const char* column;
    const char* bare;
    const char* direction;
  };
  for (const Order& order :
       {Order{"LATITUDE", "LATITUDE", "ASC"}, Order{"LATITUDE", "LATITUDE", "DESC"},
        Order{"PERIOD", "LATITUDE", "ASC"}, Order{"N1", "LATITUDE", "DESC"},
        Order{"SEX", "LATITUDE", "ASC"}, Order{"DATUM", "LATITUDE", "ASC"},
        Order{"ORIGINAL", "ORIGINAL COLLATE NOCASE", "ASC"},
        Order{"DATE", "DATE COLLATE NOCASE", "DESC"},
        Order{"COMMENT", "COMMENT COLLATE NOCASE", "ASC"}}) {
    const std::string sql =
        std::string("SELECT * FROM TALPENA ORDER BY [") + order.column + "] " + order.direction;
    double floor = reference;
    if (order.bare != std::string("LATITUDE")) {
      const std::string bareSql = std::string("SELECT Counter FROM TALPENA ORDER BY ") + order.bare;
      floor = Millisecondes([&] { bare.Parcourt(bareSql.c_str(), false); });
    }
    const double ours = Meilleur([&] { database.OpenRecordset(sql); });
    Rapporte(("sort " + sql.substr(31)).c_str(), ours, floor, 0.5);
  }
  const double ours = Meilleur([&] {
    database.OpenRecordset("SELECT * FROM TALPENA ORDER BY [PERIOD], [LATITUDE], [LONGITUDE]");
  });
  const double floor = Millisecondes([&] {
    bare.Parcourt("SELECT Counter FROM TALPENA ORDER BY PERIOD, LATITUDE, LONGITUDE", false);
  });
  Rapporte("sort by three columns", ours, floor, 0.5);
}

void CompareRecherche(Bare& bare, Database& database) {
  const double floor = Meilleur([&] {
    bare.Parcourt(
        "SELECT Counter FROM TALPENA WHERE SEX LIKE '%zzy%' OR DATUM LIKE '%zzy%' OR ORIGINAL "
        "LIKE '%zzy%' OR DATE LIKE '%zzy%' OR COMMENT LIKE '%zzy%'",
        false);
  });
  for (const char* source : {"TALPENA", "SELECT * FROM TALPENA ORDER BY LATITUDE"}) {
    const auto rows = database.OpenRecordset(source);
    // Another text each time: the rows that the last search found are remembered.
    int run = 0;
    const double ours = Meilleur([&] {
      const std::string x = "'*zz" + std::to_string(run++) + "*'";
      rows->FindFirst("SEX LIKE " + x + " OR DATUM LIKE " + x + " OR ORIGINAL LIKE " + x +
                      " OR DATE LIKE " + x + " OR COMMENT LIKE " + x);
    });
    Rapporte(source[0] == 'T' ? "find, file order" : "find, sorted", ours, floor, 1.2);
  }
}

/// Values of rows, kept packed enough for a million of them.
class KeptRows final : public RowSource {
 public:
  void Garde(std::span<const Cell> cells) {
    for (const Cell& cell : cells) values_.push_back(cell.Garde());
  }
  bool Suivante(std::span<Cell> cells) override {
    if (next_ == values_.size()) return false;
    for (Cell& cell : cells) cell = Cell::Vue(values_[next_++]);
    return true;
  }

 private:
  std::vector<Value> values_;
  std::size_t next_ = 0;
};

/// Every second row goes and comes back, through a recordset that lost them and through one that
/// was opened since.
void MesureRetour(Database& database, const char* source, bool reopened) {
  std::vector<Bookmark> chosen;
  const auto all = database.OpenRecordset("TALPENA");
  for (; !all->EOF_(); all->MoveNext()) {
    if (all->GetBookmark() % 2 != 0) chosen.push_back(all->GetBookmark());
  }
  auto rows = database.OpenRecordset(source);
  std::vector<RowPlace> places;
  KeptRows kept;
  const double keep = Millisecondes([&] {
    rows->LitLignes(chosen, [&](Bookmark row, std::span<const Cell> cells) {
      places.push_back({row, rows->PositionDe(row)});
      kept.Garde(cells);
    });
  });
  const double remove = Millisecondes([&] { rows->SupprimeLignes(chosen); });
  if (reopened) rows = database.OpenRecordset(source);
  const double restore = Millisecondes([&] { rows->RetablitLignes(places, kept); });
  std::printf("%-34s %8.0f ms, delete %.0f, put back %.0f\n",
              reopened ? "keep every second row, reopened" : "keep every second row", keep, remove,
              restore);
}

void MesureReste(Database& database, std::int64_t count) {
  std::unique_ptr<Recordset> rows;
  const double open = Meilleur([&] {
    rows = database.OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
    rows->MoveLast();
    rows->Get(1);
  });
  std::printf("%-34s %8.1f ms\n", "open and go to the last row", open);
  const double edit = Millisecondes([&] {
    database.BeginTrans();
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
      rows->Edit();
      rows->Set("DATE", Cell::Of(std::string_view("")));
      rows->Update();
    }
  });
  std::printf("%-34s %8.0f ms\n", "erase a column, row by row", edit);
  std::printf("%-34s %8.0f ms\n", "roll it back", Millisecondes([&] { database.Rollback(); }));
  std::printf("%-34s %8.0f ms\n", "delete all rows",
              Millisecondes([&] { database.Execute("DELETE FROM TALPENA"); }));
  std::printf("%-34s %8ld MB for %ld rows\n", "peak memory", MemoireMaximale(),
              static_cast<long>(count));
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1000000;
  namespace fs = std::filesystem;
  const fs::path folder = argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path();
  const std::string oursPath = (folder / "engine_bench_ours.mdb").string();
  const std::string barePath = (folder / "engine_bench_bare.mdb").string();
  const auto clean = [&] {
    for (const std::string& path : {oursPath, barePath}) {
      fs::remove(path);
      fs::remove(path + "-journal");
    }
  };
  clean();
  {
    const auto engine = CreeMoteurSqlite();
    const auto database = engine->CreateDatabase(oursPath, {});
    database->CreateTable(test::TalpenaDef());
    Bare bare(barePath);
    CompareInsertion(bare, *database, rows);
    CompareParcours(bare, *database);
    CompareTris(bare, *database);
    CompareRecherche(bare, *database);
    MesureReste(*database, rows);
    Generator generator(rows);
    database->InsertRows("TALPENA", bench::generatedColumns, generator);
    for (const bool reopened : {false, true}) {
      MesureRetour(*database, "SELECT * FROM TALPENA ORDER BY LATITUDE", reopened);
    }
  }
  clean();
  return 0;
}

// Rows of a distribution on their way into another maker's file, and the bare loop that they are
// measured against.
#pragma once
#include <sqlite3.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bare_table.h"
#include "fakes/talpena_table.h"
#include "generated_rows.h"
#include "measure.h"
#include "platform/foreign_format.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena::bench {

namespace fs = std::filesystem;

inline const std::string memo =
    "Carabidae of the Belgian coast and its dunes / Observations of the years 1880 to 2020, "
    "compiled from collections and notebooks";

inline TableDef TableExportee() {
  const auto text = [](const char* name, int size) {
    return FieldDef{.name = name, .type = FieldType::Text, .size = size, .allowZeroLength = true};
  };
  return {.name = "bees",
          .fields = {text("Period", 1),
                     {.name = "Latitude", .type = FieldType::Single},
                     {.name = "Longitude", .type = FieldType::Single},
                     {.name = "Number 1", .type = FieldType::Long},
                     {.name = "Number 2", .type = FieldType::Long},
                     text("Sex", 1),
                     text("Ellipsoid", 5),
                     text("Orig Coor", 24),
                     text("Date", 10),
                     text("Free text", 150),
                     {.name = "Memo", .type = FieldType::Memo, .allowZeroLength = true}},
          .indexes = {}};
}

/// The rows of a recordset, as an export hands them over.
class RowsOfTable final : public RowSource {
 public:
  explicit RowsOfTable(Recordset& rows) : rows_(rows) { rows_.MoveFirst(); }
  bool Suivante(std::span<Cell> cells) override {
    if (started_) rows_.MoveNext();
    started_ = true;
    if (rows_.EOF_()) return false;
    rows_.LitLigne(read_);
    for (std::size_t i = 1; i < read_.size(); ++i) cells[i - 1] = read_[i];
    period_ = read_[1].Texte();
    cells[0] = Cell::Of(std::string_view(period_));
    cells[10] = Cell::Of(std::string_view(memo));
    return true;
  }

 private:
  Recordset& rows_;
  std::array<Cell, 11> read_;
  std::string period_;
  bool started_ = false;
};

/// The floor: a scan, and a line of text for each row, filled up to the width of ours.
inline void EcritPlancher(BareTable& bare, const fs::path& path, std::size_t width) {
  std::FILE* out = std::fopen(path.c_str(), "wb");
  if (out == nullptr) std::exit(1);
  std::vector<char> block(std::size_t{256} * 1024);
  std::setvbuf(out, block.data(), _IOFBF, block.size());
  sqlite3_stmt* rows = bare.Prepare("SELECT * FROM TALPENA ORDER BY Counter");
  std::string line;
  while (sqlite3_step(rows) == SQLITE_ROW) {
    line.clear();
    for (int column = 1; column < sqlite3_column_count(rows); ++column) {
      std::array<char, 32> digits;
      char* const end = digits.data() + digits.size();
      switch (sqlite3_column_type(rows, column)) {
        case SQLITE_INTEGER:
          line.append(digits.data(),
                      std::to_chars(digits.data(), end, sqlite3_column_int64(rows, column)).ptr);
          break;
        case SQLITE_FLOAT:
          line.append(digits.data(),
                      std::to_chars(digits.data(), end,
                                    static_cast<float>(sqlite3_column_double(rows, column)))
                          .ptr);
          break;
        default:
          line.append(reinterpret_cast<const char*>(sqlite3_column_text(rows, column)),
                      static_cast<std::size_t>(sqlite3_column_bytes(rows, column)));
      }
      line += ',';
    }
    line += memo;
    line.resize(width, ' ');
    std::fwrite(line.data(), 1, line.size(), out);
  }
  sqlite3_finalize(rows);
  std::fclose(out);
}

/// A working table of generated rows, and the same rows for the bare loop.
struct ExportedRows {
  ExportedRows(std::int64_t rows, const fs::path& parent, const std::string& name,
               std::unique_ptr<ForeignFormat> format)
      : count(rows), folder(PrepareDossier(parent / name)), bare((folder / "bare.db").string()) {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(std::move(format));
    engine = CreeMoteurSqlite(std::move(formats));
    database = engine->CreateDatabase((folder / "talpena_tmp.mdb").string(), {});
    database->CreateTable(test::TalpenaDef());
    Generator generator(count);
    database->InsertRows("TALPENA", generatedColumns, generator);
    InsereNu(bare, count);
  }
  ExportedRows(const ExportedRows&) = delete;
  ExportedRows& operator=(const ExportedRows&) = delete;
  ~ExportedRows() { fs::remove_all(folder); }

  /// Puts all rows into a new table of a maker's.
  void Exporte(Database& made) const {
    const TableDef table = TableExportee();
    std::vector<std::string_view> columns;
    for (const FieldDef& field : table.fields) columns.push_back(field.name);
    const auto rows = database->OpenRecordset("TALPENA");
    RowsOfTable source(*rows);
    made.CreateTable(table);
    made.InsertRows(table.name, columns, source);
  }

  /// Tells how the times compare; as many bytes go into the bare loop's file.
  void Compare(const char* task, double ours, std::size_t bytes, double bound) {
    const double floor = Meilleur([&] {
      EcritPlancher(bare, folder / "floor.txt", bytes / static_cast<std::size_t>(count));
    });
    Rapporte(task, ours, floor, bound);
    std::printf("files of %zu MB, memory %ld MB\n", bytes >> 20, MemoireMaximale());
  }

  std::int64_t count;
  fs::path folder;
  std::unique_ptr<TableEngine> engine;
  std::unique_ptr<Database> database;
  BareTable bare;

 private:
  static fs::path PrepareDossier(fs::path folder) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
  }
};

/// What the command line of such a benchmark says.
struct ExportArguments {
  ExportArguments(int argc, char** argv)
      : rows(argc > 1 ? std::atoll(argv[1]) : 1'000'000),
        folder(argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path()) {}

  std::int64_t rows;
  fs::path folder;
};

}  // namespace talpena::bench

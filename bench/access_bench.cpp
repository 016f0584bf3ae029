// Rows of a distribution into an Access file, beside a bare loop that scans the same rows and
// writes as many bytes of formatted text; and from that file into the engine, beside mdb-export
// into a text file.
//
//   access_bench [rows] [folder]
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/time.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "bare_table.h"
#include "fakes/talpena_table.h"
#include "generated_rows.h"
#include "measure.h"
#include "platform/foreign/jet_format.h"
#include "platform/sqlite/sqlite_engine.h"

using namespace talpena;
using bench::BareTable;
using bench::Generator;
using bench::Meilleur;
using bench::Rapporte;
namespace fs = std::filesystem;

namespace {

const std::string memo =
    "Carabidae of the Belgian coast and its dunes / Observations of the years 1880 to 2020, "
    "compiled from collections and notebooks";

TableDef TableExportee() {
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
void EcritPlancher(BareTable& bare, const fs::path& path, std::size_t width) {
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

/// Time of the processor that a body takes, here and in the processes that it waits for.
double AvecEnfants(const std::function<void()>& body) {
  const auto used = [] {
    double ms = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
      rusage usage{};
      getrusage(who, &usage);
      for (const timeval& time : {usage.ru_utime, usage.ru_stime}) {
        ms += 1000.0 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1000;
      }
    }
    return ms;
  };
  double best = 0;
  for (int i = 0; i < 3; ++i) {
    const double start = used();
    body();
    best = i == 0 ? used() - start : std::min(best, used() - start);
  }
  return best;
}

/// The largest of the processes that were waited for, in MB.
long MemoireDesEnfants() {
  rusage children{};
  getrusage(RUSAGE_CHILDREN, &children);
  return children.ru_maxrss / 1024;
}

void MesureLecture(TableEngine& engine, const fs::path& path, const fs::path& text) {
  const double ours = AvecEnfants([&] {
    const auto opened = engine.OpenDatabase(path.string(), true);
    if (opened->OpenRecordset("bees")->RecordCount() == 0) std::exit(1);
  });
  const long memory = MemoireDesEnfants();
  const std::string command = "mdb-export '" + path.string() + "' bees > '" + text.string() + "'";
  const double floor = AvecEnfants([&] {
    if (std::system(command.c_str()) != 0) std::exit(1);
  });
  constexpr double bound = 1.2;
  Rapporte("Access into the engine", ours, floor, bound);
  std::printf("memory %ld MB, of the reading process %ld MB\n", bench::MemoireMaximale(), memory);
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t count = argc > 1 ? std::atoll(argv[1]) : 1'000'000;
  const fs::path folder =
      (argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path()) / "access_bench";
  fs::remove_all(folder);
  fs::create_directories(folder);
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  const auto engine = CreeMoteurSqlite(std::move(formats));
  const auto database = engine->CreateDatabase((folder / "talpena_tmp.mdb").string(), {});
  database->CreateTable(test::TalpenaDef());
  Generator generator(count);
  database->InsertRows("TALPENA", bench::generatedColumns, generator);
  BareTable bare((folder / "bare.db").string());
  bench::InsereNu(bare, count);

  const fs::path path = folder / "bees.mdb";
  const TableDef table = TableExportee();
  std::vector<std::string_view> columns;
  for (const FieldDef& field : table.fields) columns.push_back(field.name);
  const double ours = Meilleur([&] {
    fs::remove(path);
    const auto rows = database->OpenRecordset("TALPENA");
    RowsOfTable source(*rows);
    const auto made = engine->CreateForeignDatabase(path.string(), Connect::Access, {});
    made->CreateTable(table);
    made->InsertRows(table.name, columns, source);
  });
  const std::size_t bytes = fs::file_size(path);
  const double floor = Meilleur(
      [&] { EcritPlancher(bare, folder / "floor.txt", bytes / static_cast<std::size_t>(count)); });
  constexpr double bound = 3;
  Rapporte("export to Access", ours, floor, bound);
  std::printf("file of %zu MB, memory %ld MB\n", bytes >> 20, bench::MemoireMaximale());
  MesureLecture(*engine, path, folder / "export.txt");
  fs::remove_all(folder);
}

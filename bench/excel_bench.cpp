// The rows of a distribution that a sheet of Excel 5.0 holds, beside what ogr2ogr needs for an
// .xlsx of the same rows; and our own .xlsx of them.
//
//   excel_bench [folder [rows of our .xlsx]]
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "exported_rows.h"
#include "measure.h"
#include "platform/foreign/excel/excel_format.h"

using namespace talpena;
namespace fs = std::filesystem;

namespace {

constexpr std::int64_t fullSheet = 16383;

std::string EntreQuotes(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string(2, c) : std::string(1, c);
  return quoted + '"';
}

/// The rows as a list that ogr2ogr reads.
void EcritCsv(Database& database, const fs::path& path) {
  const TableDef table = bench::TableExportee();
  std::ofstream out(path, std::ios::binary);
  for (const FieldDef& field : table.fields) out << EntreQuotes(field.name) << ',';
  out << '\n';
  const auto rows = database.OpenRecordset("TALPENA");
  bench::RowsOfTable source(*rows);
  std::vector<Cell> cells(table.fields.size());
  while (source.Suivante(cells)) {
    for (const Cell& cell : cells) {
      out << (cell.kind == Cell::Kind::Text ? EntreQuotes(cell.Texte()) : cell.Texte()) << ',';
    }
    out << '\n';
  }
}

double SecondesDesEnfants() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Milliseconds of the processor that a command takes; the best of three runs.
double MesureCommande(const std::string& command) {
  double best = 0;
  for (int i = 0; i < 3; ++i) {
    const double start = SecondesDesEnfants();
    if (std::system(command.c_str()) != 0) {
      std::printf("cannot run: %s\n", command.c_str());
      std::exit(1);
    }
    const double taken = 1000 * (SecondesDesEnfants() - start);
    best = i == 0 ? taken : std::min(best, taken);
  }
  return best;
}

double Mesure(std::string_view connect, const char* file, std::unique_ptr<ForeignFormat> format,
              std::int64_t count, const fs::path& parent,
              const std::function<void(bench::ExportedRows&)>& also) {
  bench::ExportedRows rows(count, parent, "excel_bench", std::move(format));
  const fs::path path = rows.folder / file;
  const double ours = bench::Meilleur([&] {
    fs::remove(path);
    rows.Exporte(*rows.engine->OpenDatabase(path.string(), false, connect));
  });
  also(rows);
  return ours;
}

}  // namespace

int main(int argc, char** argv) {
  const fs::path folder = argc > 1 ? fs::path(argv[1]) : fs::temp_directory_path();
  const std::int64_t rows = argc > 2 ? std::atoll(argv[2]) : fullSheet;
  double ogr = 0;
  const auto nothing = [](bench::ExportedRows&) {};
  const double xls = Mesure(
      Connect::Excel5, "bees.xls", CreeFormatExcel(), fullSheet, folder,
      [&](bench::ExportedRows& exported) {
        const std::string list = (exported.folder / "bees.csv").string(),
                          out = (exported.folder / "ogr.xlsx").string();
        EcritCsv(*exported.database, list);
        ogr = MesureCommande("rm -f '" + out + "' && ogr2ogr -oo AUTODETECT_TYPE=YES -f XLSX '" +
                             out + "' '" + list + "'");
      });
  constexpr double bound = 0.1;
  bench::Rapporte("16,383 rows to Excel 5.0", xls, ogr, bound);
  const double xlsx =
      Mesure(Connect::Excel12, "bees.xlsx", CreeFormatXlsx(), rows, folder, nothing);
  bench::Rapporte((std::to_string(rows) + " rows to an .xlsx").c_str(), xlsx, ogr, 0);
  std::printf("memory %ld MB\n", bench::MemoireMaximale());
}

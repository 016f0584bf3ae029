// Rows of a distribution into a Paradox table, beside a bare loop that scans the same rows and
// writes as many bytes of formatted text.
//
//   paradox_bench [rows] [folder]
#include <filesystem>

#include "exported_rows.h"
#include "measure.h"
#include "platform/foreign/paradox/paradox_format.h"

using namespace talpena;
namespace fs = std::filesystem;

int main(int argc, char** argv) {
  const bench::ExportArguments arguments(argc, argv);
  bench::ExportedRows rows(arguments.rows, arguments.folder, "paradox_bench", CreeFormatParadox());
  const fs::path place = rows.folder / "tables";
  const double ours = bench::Meilleur([&] {
    fs::remove_all(place);
    fs::create_directories(place);
    rows.Exporte(*rows.engine->OpenDatabase(place.string(), false, Connect::Paradox3));
  });
  constexpr double bound = 3;
  const std::size_t bytes = fs::file_size(place / "bees.db") + fs::file_size(place / "bees.mb");
  rows.Compare("export to Paradox", ours, bytes, bound);
}

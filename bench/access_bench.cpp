// Rows of a distribution into an Access file, beside a bare loop that scans the same rows and
// writes as many bytes of formatted text.
//
//   access_bench [rows] [folder]
#include <filesystem>

#include "exported_rows.h"
#include "measure.h"
#include "platform/foreign/jet_format.h"

using namespace talpena;

int main(int argc, char** argv) {
  const bench::ExportArguments arguments(argc, argv);
  bench::ExportedRows rows(arguments.rows, arguments.folder, "access_bench", CreeFormatJet());
  const auto path = rows.folder / "bees.mdb";
  const double ours = bench::Meilleur([&] {
    std::filesystem::remove(path);
    rows.Exporte(*rows.engine->CreateForeignDatabase(path.string(), Connect::Access, {}));
  });
  constexpr double bound = 3;
  rows.Compare("export to Access", ours, std::filesystem::file_size(path), bound);
}

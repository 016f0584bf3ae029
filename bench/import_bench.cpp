// The import of a text file, against the floor of this machine for the same rows in the same run:
// one read of the file with its lines split, and a bare loop of prepared INSERTs.
//
//   import_bench [rows] [folder]
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "coord_commands/adjust.h"
#include "coords/snap.h"
#include "import_floor.h"
#include "import_program.h"
#include "interchange/import_end.h"
#include "interchange/text_import_reader.h"
#include "measure.h"

using namespace talpena;
using bench::Millisecondes;
using bench::Rapporte;

namespace {

/// A list of records in decimal degrees, one in ten with an accent of code page 1252.
void EcritListe(const std::string& path, std::int64_t rows) {
  std::ofstream out(path, std::ios::binary);
  std::uint32_t seed = 1;
  const auto next = [&seed](std::uint32_t below) {
    seed = seed * 1664525 + 1013904223;
    return static_cast<int>((seed >> 8) % below);
  };
  std::array<char, 200> line{};
  for (std::int64_t i = 0; i < rows; ++i) {
    const int length = std::snprintf(
        line.data(), line.size(), "%d,%.5f,%.5f,%d,%d,%04d/%02d/%02d,\"%s %d, number %d\"\r\n",
        1 + next(3), (next(3000000) + 3500000) / 1e5, next(3000000) / 1e5, next(100), next(3000),
        1900 + next(111), 1 + next(12), 1 + next(28), next(10) == 0 ? "\xC9tang" : "Place",
        next(1000), static_cast<int>(i));
    out.write(line.data(), length);
  }
}

struct Times {
  double split = 1e9, inserts = 1e9, rows = 1e9, adjust = 1e9, whole = 1e9;
  double Socle() const { return split + inserts; }
};

void Mesure(const std::string& list, const std::string& database, std::int64_t rows, Times& best) {
  const auto least = [](double& time, const std::function<void()>& body) {
    time = std::min(time, Millisecondes(body));
  };
  std::int64_t lines = 0;
  least(best.split, [&] { bench::LitLignes(list, [&](std::string_view) { ++lines; }); });
  std::filesystem::remove(database);
  least(best.inserts, [&] { bench::InsereNu(database, rows); });
  bench::ImportProgram program(database);
  const CommandContext c = program.Contexte();
  ImportedRows added;
  double appended = 1e9, ended = 1e9, adjusted = 1e9;
  least(appended, [&] {
    TextImportReader reader(OuvreImport(c.io.files, list), CoordSystem::Deg,
                            DatumImporte(c.state, CoordSystem::Deg));
    AjouteImportees(c, "Import", reader, added);
  });
  least(ended, [&] { TermineImport(c, "Import", added); });
  // Once more from the beginning, so that it writes as many points as the import did.
  c.document().WorkingDb->Execute("UPDATE TALPENA SET LATITUDE = Null, LONGITUDE = Null");
  least(adjusted, [&] { AjusteDegres(c, SansMaille, SansMaille); });
  best.rows = std::min(best.rows, appended);
  best.adjust = std::min(best.adjust, adjusted);
  best.whole = std::min(best.whole, appended + ended);
  if (lines != rows || static_cast<std::int64_t>(added.added.size()) != rows) std::abort();
}

Times MesureTout(const std::filesystem::path& folder, std::int64_t rows) {
  const bench::ImportFiles files(folder / "import_bench");
  EcritListe(files.list, rows);
  Times best;
  for (int run = 0; run < 3; ++run) Mesure(files.list, files.database, rows, best);
  std::printf("%ld rows: split %.0f ms, inserts %.0f ms, AjusteDegres %.0f ms, memory %ld MB\n",
              static_cast<long>(rows), best.split, best.inserts, best.adjust,
              bench::MemoireMaximale());
  Rapporte("import without AjusteDegres", best.rows, best.Socle(), 1.0);
  Rapporte("whole import", best.whole, best.Socle() + best.adjust, 1.0);
  return best;
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1'000'000;
  const std::filesystem::path folder =
      argc > 2 ? std::filesystem::path(argv[2]) : std::filesystem::temp_directory_path();
  const Times small = MesureTout(folder, rows / 10);
  const Times large = MesureTout(folder, rows);
  std::printf("ten times the rows take %.1f times as long (whole: %.1f)\n", large.rows / small.rows,
              large.whole / small.whole);
}

// The import of a text file, against the floor of this machine for the same rows in the same run:
// one read of the file with its lines split, and a bare loop of prepared INSERTs.
//
//   import_bench [rows] [folder]
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "bare_table.h"
#include "coord_commands/adjust.h"
#include "coords/snap.h"
#include "coords/test_catalogue.h"
#include "fakes/document_states.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "interchange/import_end.h"
#include "interchange/text_import_reader.h"
#include "measure.h"
#include "store/table.h"

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

/// One read of the file in blocks, its lines split: `take` gets each.
template <typename Take>
void LitLignes(const std::string& path, Take&& take) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  std::vector<char> buffer(1 << 20);
  std::size_t kept = 0;
  for (std::size_t count = 0;
       (count = std::fread(buffer.data() + kept, 1, buffer.size() - kept, file)) > 0;) {
    const char* from = buffer.data();
    const char* end = from + kept + count;
    while (const auto* cr = static_cast<const char*>(
               std::memchr(from, '\r', static_cast<std::size_t>(end - from)))) {
      if (cr + 1 == end) break;
      take(std::string_view(from, static_cast<std::size_t>(cr - from)));
      from = cr + 2;
    }
    kept = static_cast<std::size_t>(end - from);
    std::memmove(buffer.data(), from, kept);
  }
  std::fclose(file);
}

/// As many rows as the file has, bound from memory.
void InsereNu(const std::string& path, std::int64_t rows) {
  bench::BareTable bare(path);
  bare.Execute("BEGIN");
  sqlite3_stmt* insert = bare.Prepare(
      "INSERT INTO TALPENA (PERIOD, N1, N2, DATUM, ORIGINAL, DATE, COMMENT) "
      "VALUES (?,?,?,?,?,?,?)");
  const auto text = [&](int place, std::string_view value) {
    sqlite3_bind_text(insert, place, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
  };
  for (std::int64_t row = 0; row < rows; ++row) {
    for (int place = 1; place <= 3; ++place) sqlite3_bind_int64(insert, place, row % 100);
    text(4, "EUR-M");
    text(5, "deg +50.50000 +004.25000");
    text(6, "1990/05/01");
    text(7, "Place 123, number 123456");
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  bare.Execute("COMMIT");
}

struct Times {
  double split = 1e9, inserts = 1e9, rows = 1e9, adjust = 1e9, whole = 1e9;
  double Socle() const { return split + inserts; }
};

/// A program with an empty table.
struct Program {
  explicit Program(const std::string& database) {
    state.Silence = true;
    state.Catalogue = test::CatalogueDesSources();
    state.DatumSpherique = state.Catalogue.DatumEur;
    test::Entete(state.document)->DatumFichierCode = "WGS84";
    test::Entete(state.document)->DatumFichier = state.Catalogue.DatumWgs84;
    std::filesystem::remove(database);
    state.document.WorkingDb = machine.engine->CreateDatabase(database, {});
    CreateTable(*state.document.WorkingDb);
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() {
    state.document.Data1 = DataControl();
    state.document.WorkingDb.reset();
  }

  CommandContext Contexte() { return view.Contexte(state, machine.io); }

  test::SilentPlatform machine;
  test::SilentView view;
  StoreState state;
};

void Mesure(const std::string& list, const std::string& database, std::int64_t rows, Times& best) {
  const auto least = [](double& time, const std::function<void()>& body) {
    time = std::min(time, Millisecondes(body));
  };
  std::int64_t lines = 0;
  least(best.split, [&] { LitLignes(list, [&](std::string_view) { ++lines; }); });
  std::filesystem::remove(database);
  least(best.inserts, [&] { InsereNu(database, rows); });
  Program program(database);
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
  const std::string list = (folder / "import_bench.txt").string();
  const std::string database = (folder / "import_bench.db").string();
  EcritListe(list, rows);
  Times best;
  for (int run = 0; run < 3; ++run) Mesure(list, database, rows, best);
  std::printf("%ld rows: split %.0f ms, inserts %.0f ms, AjusteDegres %.0f ms, memory %ld MB\n",
              static_cast<long>(rows), best.split, best.inserts, best.adjust,
              bench::MemoireMaximale());
  Rapporte("import without AjusteDegres", best.rows, best.Socle(), 1.0);
  Rapporte("whole import", best.whole, best.Socle() + best.adjust, 1.0);
  for (const std::string& file : {list, database, database + "-journal"}) {
    std::filesystem::remove(file);
  }
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

// EcritDeg against a bare loop that scans the same rows and writes the same lines.
//
//   save_bench [rows]      default 1000000
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "floor_table.h"
#include "generated_file.h"
#include "store/deg_reader.h"
#include "store/deg_writer.h"
#include "store/sort.h"
#include "store/table.h"

namespace {

using namespace talpena;
using bench::CreeTablePlancher;
using bench::Exige;
using bench::Lit;
using bench::PicMemoireMo;
using bench::PresqueEgal;
using bench::Secondes;
namespace fs = std::filesystem;

constexpr int runs = 5;

/// Scans the table and writes the lines that EcritDeg writes, header aside.
void EcritPlancher(sqlite3* db, const fs::path& path, bool sync) {
  std::FILE* out = std::fopen(path.c_str(), "wb");
  Exige(out != nullptr, "create");
  std::vector<char> block(256 * 1024);
  std::setvbuf(out, block.data(), _IOFBF, block.size());
  sqlite3_stmt* rows = nullptr;
  Exige(sqlite3_prepare_v2(db, "SELECT * FROM TALPENA ORDER BY Counter", -1, &rows, nullptr) ==
            SQLITE_OK,
        "prepare");
  std::array<char, 4096> line;
  while (sqlite3_step(rows) == SQLITE_ROW) {
    char* p = line.data();
    char* const end = line.data() + line.size();
    std::array<char, 32> digits;
    const auto padded = [&](const char* last, std::ptrdiff_t width) {
      const std::ptrdiff_t length = last - digits.data();
      for (std::ptrdiff_t i = length; i < width; ++i) *p++ = ' ';
      p = std::copy(digits.data(), digits.data() + length, p);
    };
    const auto coordinate = [&](int column, char plus, int width) {
      const double value = sqlite3_column_double(rows, column);
      *p++ = value < 0 ? '-' : plus;
      padded(std::to_chars(digits.data(), digits.data() + digits.size(), value < 0 ? -value : value,
                           std::chars_format::fixed, 5)
                 .ptr,
             width);
    };
    const auto number = [&](int column) {
      padded(std::to_chars(digits.data(), digits.data() + digits.size(),
                           sqlite3_column_int(rows, column))
                 .ptr,
             5);
    };
    const auto text = [&](int column, std::size_t width) {
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(rows, column));
      const void* bytes = sqlite3_column_text(rows, column);
      p = std::copy_n(static_cast<const char*>(bytes), size, p);
      for (std::size_t i = size; i < width; ++i) *p++ = ' ';
    };
    p = std::to_chars(p, end, sqlite3_column_int(rows, 1)).ptr;
    *p++ = 'K';
    coordinate(2, '+', 8);
    coordinate(3, ' ', 9);
    number(4);
    number(5);
    text(9, 10);
    text(6, 1);
    text(7, 5);
    text(8, 24);
    text(10, 0);
    *p++ = '\r';
    *p++ = '\n';
    std::fwrite(line.data(), 1, static_cast<std::size_t>(p - line.data()), out);
  }
  sqlite3_finalize(rows);
  std::fflush(out);
  if (sync) fsync(fileno(out));
  std::fclose(out);
}

/// The row lines of a file whose header has so many lines.
std::string SansEnTete(const std::string& bytes, int lines) {
  std::size_t start = 0;
  for (int i = 0; i < lines; ++i) start = bytes.find("\r\n", start) + 2;
  return bytes.substr(start);
}

/// The same rows in the order of ORIGINAL, and grouped, beside the rows as they lie, by turns.
void CompareOrdres(StoreState& state, CommandContext c, const std::string& path, int rows) {
  constexpr int byOriginal = 7;
  constexpr int turns = 3;
  double plain = 1e9, sorted = 1e9, grouped = 1e9;
  const auto ecrit = [&](double& best, WriteMode mode) {
    best = std::min(best, Secondes([&] { EcritDeg(c, path, mode); }));
  };
  for (int turn = 0; turn < turns; ++turn) {
    ChangeTri(state.document, 0, false);
    ecrit(plain, WriteMode::Rows);
    ChangeTri(state.document, byOriginal, false);
    ecrit(sorted, WriteMode::Rows);
    ecrit(grouped, WriteMode::Grouped);
  }
  std::printf("%8d rows  sorted by ORIGINAL / plain = %.2f   (at most 1.5)\n", rows,
              sorted / plain);
  std::printf("%8d rows  group and save / plain = %.2f   (at most 2.0)   peak memory %.0f MB\n",
              rows, grouped / plain, PicMemoireMo());
}

double MesureTout(const fs::path& folder, int rows) {
  constexpr int headerLines = 20;
  const std::string path = (folder / "a.deg").string();
  bench::EcritFichierGenere(path, rows);
  test::SilentPlatform platform;
  test::SilentView view;
  StoreState state;
  state.document.WorkingDb =
      platform.engine->CreateDatabase((folder / "talpena_tmp.mdb").string(), NewDatabase{});
  CreateTable(*state.document.WorkingDb);
  LitDeg(view.Contexte(state, platform.io), path, MergeMode::Replace);
  sqlite3* floor = CreeTablePlancher(folder / "floor.db", *state.document.Data1.Clone());

  double program = 1e9;
  double bare = 1e9;
  double synced = 1e9;
  for (int run = 0; run < runs; ++run) {
    bare = std::min(bare, Secondes([&] { EcritPlancher(floor, folder / "floor.deg", false); }));
    synced = std::min(synced, Secondes([&] { EcritPlancher(floor, folder / "floor.deg", true); }));
    program = std::min(program, Secondes([&] {
                         EcritDeg(view.Contexte(state, platform.io), path, WriteMode::Rows);
                       }));
  }
  sqlite3_close(floor);
  std::printf("%8d rows  (c) bare loop     %7.3f s, synced %.3f s\n", rows, bare, synced);
  std::printf("%8d rows  EcritDeg          %7.3f s   peak memory so far %.0f MB\n", rows, program,
              PicMemoireMo());
  std::printf("%8d rows  EcritDeg / (c) = %.2f   (at most 1.3); against the synced loop %.2f\n",
              rows, program / bare, program / synced);
  Exige(PresqueEgal(SansEnTete(Lit(path), headerLines), Lit(folder / "floor.deg")),
        "the two files differ");
  CompareOrdres(state, view.Contexte(state, platform.io), path, rows);
  return program;
}

}  // namespace

int main(int argc, char** argv) {
  const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
  const fs::path folder = fs::temp_directory_path() / ("talpena-bench-" + std::to_string(getpid()));
  fs::create_directory(folder);
  const double small = MesureTout(folder, rows / 10);
  fs::remove(folder / "talpena_tmp.mdb");
  fs::remove(folder / "floor.db");
  const double large = MesureTout(folder, rows);
  std::printf("ten times the rows take %.1f times as long\n", large / small);
  fs::remove_all(folder);
  return 0;
}

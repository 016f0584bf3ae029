// MnuExpAsciiMode against a bare loop that scans the same rows and writes the same lines, with all
// columns, and with X and Y too, which the bare loop computes by the same procedures.
//
//   export_bench [rows]      default 1000000
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "coords/datum.h"
#include "coords/lambert.h"
#include "coords/test_catalogue.h"
#include "fakes/document_states.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "floor_table.h"
#include "generated_file.h"
#include "interchange/text_export.h"
#include "store/deg_reader.h"
#include "store/sort.h"

namespace {

using namespace talpena;
using bench::Exige;
using bench::Secondes;
namespace fs = std::filesystem;

constexpr int runs = 5;
constexpr int commas = 1;
constexpr int mostCompared = 100'000;  ///< rows; more would be the peak of memory themselves

/// Chooses the file, whatever stands there.
class User final : public test::NoDialogues, public ExportDialogs {
 public:
  explicit User(std::string path) : path_(std::move(path)) {}
  std::string EnregistreFichier(const FileDialog&) override { return path_; }
  Answer Demande(const MessageBox& box) override {
    return box.buttons == Buttons::YesNoCancel ? Answer::Yes : NoDialogues::Demande(box);
  }
  bool MontreOptionsExport(ExportKind) override { return true; }

 private:
  std::string path_;
};

/// One line of the floor.
class BareLine {
 public:
  explicit BareLine(sqlite3_stmt* row) : row_(row) {}

  void Entier(std::int64_t value) { p_ = std::to_chars(p_, End(), value).ptr; }
  void Separe() { *p_++ = ','; }
  void Degres(double value, int width) {
    *p_++ = value < 0 ? '-' : '+';
    Remplit(std::to_chars(digits_.data(), digits_.data() + digits_.size(), std::fabs(value),
                          std::chars_format::fixed, 5)
                .ptr,
            width);
  }
  void Nombre(int column) {
    Remplit(std::to_chars(digits_.data(), digits_.data() + digits_.size(),
                          sqlite3_column_int(row_, column))
                .ptr,
            5);
  }
  void Texte(int column) {
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row_, column));
    p_ = std::copy_n(
        static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(row_, column))), size,
        p_);
  }
  void Ecrit(std::FILE* out) {
    *p_++ = '\r';
    *p_++ = '\n';
    std::fwrite(line_.data(), 1, static_cast<std::size_t>(p_ - line_.data()), out);
    p_ = line_.data();
  }

 private:
  char* End() { return line_.data() + line_.size(); }
  void Remplit(const char* last, std::ptrdiff_t width) {
    const std::ptrdiff_t length = last - digits_.data();
    for (std::ptrdiff_t i = length; i < width; ++i) *p_++ = '0';
    p_ = std::copy(digits_.data(), digits_.data() + length, p_);
  }

  sqlite3_stmt* row_;
  std::array<char, 4096> line_{};
  std::array<char, 32> digits_{};
  char* p_ = line_.data();
};

void EcritXY(BareLine& line, const CoordState& state, sqlite3_stmt* row) {
  const std::int16_t wgs84 = state.Catalogue.DatumWgs84;
  double latitude = sqlite3_column_double(row, Column::LATITUDE);
  double longitude = sqlite3_column_double(row, Column::LONGITUDE);
  double x = 0, y = 0;
  ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, wgs84,
                 state.Catalogue.DatumsSpeciaux[5]);
  LatLonVersLambertBelge(latitude, longitude, x, y);
  line.Entier(std::lrint(x));
  line.Separe();
  line.Entier(std::lrint(y));
  line.Separe();
}

/// Scans the table and writes the lines that the export writes.
void EcritPlancher(sqlite3* db, const fs::path& path, const SettingsState& settings,
                   const CoordState& state) {
  std::FILE* out = std::fopen(path.c_str(), "wb");
  Exige(out != nullptr, "create");
  std::vector<char> block(256 * 1024);
  std::setvbuf(out, block.data(), _IOFBF, block.size());
  const bool xy = settings.ExportCoordSystem > 0;
  std::fputs(xy ? "X,Y" : "", out);
  std::fputs(",Periode,Latitude,Longitude,N1,N2,Datum,Coord_Orig,Date,Sex,Comment\r\n", out);
  sqlite3_stmt* row = nullptr;
  Exige(sqlite3_prepare_v2(db, "SELECT * FROM TALPENA ORDER BY Counter", -1, &row, nullptr) ==
            SQLITE_OK,
        "prepare");
  BareLine line(row);
  while (sqlite3_step(row) == SQLITE_ROW) {
    if (xy) EcritXY(line, state, row);
    line.Entier(sqlite3_column_int(row, Column::PERIOD));
    line.Separe();
    line.Degres(std::fabs(sqlite3_column_double(row, Column::LATITUDE)), 8);
    line.Separe();
    line.Degres(sqlite3_column_double(row, Column::LONGITUDE), 9);
    for (const int column : {Column::N1, Column::N2}) line.Separe(), line.Nombre(column);
    for (const int column :
         {Column::DATUM, Column::ORIGINAL, Column::DATE, Column::SEX, Column::COMMENT}) {
      line.Separe(), line.Texte(column);
    }
    line.Ecrit(out);
  }
  sqlite3_finalize(row);
  std::fclose(out);
}

double Exporte(StoreState& state, const std::string& path) {
  test::SilentPlatform platform;
  User user(path);
  Platform io{*platform.engine, *platform.files,      platform.settings, user,
              platform.clock,   platform.environment, platform.sound};
  test::SilentView view;
  return Secondes([&] { MnuExpAsciiMode(view.Contexte(state, io), user, commas); });
}

/// One comparison: the best of several runs by turns. Returns the time of the export.
double Compare(const char* what, int rows, StoreState& state, sqlite3* floor,
               const fs::path& folder) {
  const std::string path = (folder / "a.txt").string(), bareFile = (folder / "floor.txt").string();
  double program = 1e9, bare = 1e9;
  for (int run = 0; run < runs; ++run) {
    bare = std::min(bare, Secondes([&] { EcritPlancher(floor, bareFile, state, state); }));
    program = std::min(program, Exporte(state, path));
  }
  std::printf("%8d rows  %-14s %7.3f s  floor %7.3f s  ratio %.2f   (at most 1.3)   peak %.0f MB\n",
              rows, what, program, bare, program / bare, bench::PicMemoireMo());
  std::fflush(stdout);
  if (rows > mostCompared) return program;
  Exige(bench::PresqueEgal(bench::Lit(path), bench::Lit(bareFile)), "the two files differ");
  return program;
}

/// The same rows in the order of ORIGINAL beside the rows as they lie.
void CompareTri(int rows, StoreState& state, const fs::path& folder) {
  constexpr int byOriginal = 7;
  const std::string path = (folder / "a.txt").string();
  double plain = 1e9, sorted = 1e9;
  for (int turn = 0; turn < 3; ++turn) {
    ChangeTri(state.document, 0, false);
    plain = std::min(plain, Exporte(state, path));
    ChangeTri(state.document, byOriginal, false);
    sorted = std::min(sorted, Exporte(state, path));
  }
  ChangeTri(state.document, 0, false);
  std::printf("%8d rows  sorted by ORIGINAL / plain = %.2f   peak %.0f MB\n", rows, sorted / plain,
              bench::PicMemoireMo());
}

double MesureTout(const fs::path& folder, int rows) {
  const std::string path = (folder / "a.deg").string();
  bench::EcritFichierGenere(path, rows);
  test::SilentPlatform platform;
  test::SilentView view;
  StoreState state;
  state.Silence = true;
  state.Catalogue = test::CatalogueDesSources();
  state.document.WorkingDb =
      platform.engine->CreateDatabase((folder / "talpena_tmp.mdb").string(), NewDatabase{});
  CreateTable(*state.document.WorkingDb);
  LitDeg(view.Contexte(state, platform.io), path, MergeMode::Replace);
  // Near the poles X and Y are beyond 32 bits, or nowhere.
  state.document.WorkingDb->Execute("UPDATE TALPENA SET LATITUDE = ABS(LATITUDE) / 2");
  sqlite3* floor = bench::CreeTablePlancher(folder / "floor.db", *state.document.Data1.Clone());
  const double time = Compare("all columns", rows, state, floor, folder);
  state.ExportCoordSystem = 7;
  Compare("with X and Y", rows, state, floor, folder);
  state.ExportCoordSystem = -1;
  sqlite3_close(floor);
  CompareTri(rows, state, folder);
  return time;
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

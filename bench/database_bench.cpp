// MnuExpDB into each kind of database, with all columns: the processor's time for writing and for
// reading back, and the peak of memory. The writers alone, beside a bare loop, are measured by
// access_bench, dbase_bench, paradox_bench and excel_bench.
//
//   database_bench [rows] [target]      default 1000000 (16000 into Excel 5.0), every target
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "coords/test_catalogue.h"
#include "fakes/document_states.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "formats.h"
#include "generated_file.h"
#include "interchange/database_export.h"
#include "measure.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/deg_reader.h"
#include "store/table.h"

namespace {

using namespace talpena;
namespace fs = std::filesystem;

constexpr std::array<const char*, 7> names{"a.mdb", "a.dbf",  "a.dbf", "a.db",
                                           "a.xls", "a.gpkg", "a.xlsx"};
constexpr int excel = 4, mostOfExcel = 16'000;

/// Chooses the file, and ends the program on a failure.
class User final : public test::NoDialogues, public ExportDialogs {
 public:
  explicit User(std::string path) : path_(std::move(path)) {}
  std::string EnregistreFichier(const FileDialog&) override { return path_; }
  bool MontreOptionsExport(ExportKind) override { return true; }

 private:
  std::string path_;
};

void Mesure(int rows, int target) {
  const fs::path folder = fs::temp_directory_path() / ("talpena-bench-" + std::to_string(getpid()));
  fs::create_directory(folder);
  bench::EcritFichierGenere((folder / "a.deg").string(), rows);
  test::SilentPlatform platform;
  test::SilentView view;
  StoreState state;
  state.Silence = true;
  state.Catalogue = test::CatalogueDesSources();
  state.document.WorkingDb =
      platform.engine->CreateDatabase((folder / "talpena_tmp.mdb").string(), NewDatabase{});
  CreateTable(*state.document.WorkingDb);
  LitDeg(view.Contexte(state, platform.io), (folder / "a.deg").string(), MergeMode::Replace);
  state.document.WorkingDb->Execute("UPDATE TALPENA SET LATITUDE = ABS(LATITUDE) / 2");
  const long before = bench::MemoireMaximale();
  const auto engine = CreeMoteurSqlite(TousLesFormats());
  User user((folder / names[static_cast<std::size_t>(target)]).string());
  Platform io{*engine,        *platform.files,      platform.settings, user,
              platform.clock, platform.environment, platform.sound};
  const double time =
      bench::Millisecondes([&] { MnuExpDB(view.Contexte(state, io), user, target); });
  std::printf("%-7s %8d rows  %7.2f s   %5.0f MB on the disk   memory %ld MB (%ld before)   %s\n",
              names[static_cast<std::size_t>(target)], rows, time / 1000,
              static_cast<double>(fs::file_size(folder / names[static_cast<std::size_t>(target)])) /
                  (1 << 20),
              bench::MemoireMaximale(), before, state.document.Montre().avis.c_str());
  fs::remove_all(folder);
}

}  // namespace

int main(int argc, char** argv) {
  const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
  if (argc > 2) {
    Mesure(rows, std::atoi(argv[2]));
    return 0;
  }
  // A process each, for its own peak of memory.
  for (int target = 0; target < static_cast<int>(names.size()); ++target) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
      Mesure(target == excel ? std::min(rows, mostOfExcel) : rows, target);
      std::fflush(stdout);
      _exit(0);
    }
    waitpid(child, nullptr, 0);
  }
  return 0;
}

// How long the main window takes to show the first rows of a file behind Open, and all of them;
// beside what reading the file takes without a window.
//
//   first_rows_bench [rows]      default 1000000
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QTableView>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "generated_file.h"
#include "shell/windows/form1.h"
#include "store/deg_reader.h"
#include "store/table.h"

namespace {

using namespace talpena;
namespace fs = std::filesystem;
using SteadyClock = std::chrono::steady_clock;

constexpr double mostMs = 150;

double MillisecondesDepuis(SteadyClock::time_point start) {
  return std::chrono::duration<double, std::milli>(SteadyClock::now() - start).count();
}

class OneFile final : public test::NoDialogues {
 public:
  std::string path;
  std::string OuvreFichier(const FileDialog&) override { return path; }
};

class OneFolder final : public test::NoEnvironment {
 public:
  std::string folder;
  std::string Variable(std::string_view name) override { return name == "TEMP" ? folder : ""; }
  std::string DossierTemporaire() override { return folder; }
};

/// Notes when the grid was first painted with rows in it.
class FirstPainting final : public QObject {
 public:
  explicit FirstPainting(QTableView& grid) : grid_(grid) {
    grid.viewport()->installEventFilter(this);
  }
  SteadyClock::time_point start = SteadyClock::now();
  double ms = -1;

  bool eventFilter(QObject*, QEvent* event) override {
    const bool rows = event->type() == QEvent::Paint && grid_.model()->rowCount() > 0;
    if (rows && ms < 0) ms = MillisecondesDepuis(start);
    return false;
  }

 private:
  QTableView& grid_;
};

double LitSansFenetre(const fs::path& folder, const std::string& path) {
  test::SilentPlatform platform;
  test::SilentView view;
  StoreState state;
  state.document.WorkingDb =
      platform.engine->CreateDatabase((folder / "bare.mdb").string(), NewDatabase{});
  CreateTable(*state.document.WorkingDb);
  const auto start = SteadyClock::now();
  LitDeg(view.Contexte(state, platform.io), path, MergeMode::Replace);
  const double ms = MillisecondesDepuis(start);
  state.document.Data1 = DataControl();
  return ms;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
  const fs::path folder =
      fs::temp_directory_path() / ("talpena-first-rows-" + std::to_string(getpid()));
  fs::create_directory(folder);
  OneFile user;
  user.path = (folder / "generated.deg").string();
  bench::EcritFichierGenere(user.path, rows);
  const double bare = LitSansFenetre(folder, user.path);
  {
    test::SilentPlatform machine;
    OneFolder environment;
    environment.folder = folder.string();
    Platform io{*machine.engine, *machine.files, machine.settings, user,
                machine.clock,   environment,    machine.sound};
    ProcessState state;
    state.Silence = true;
    state.AppDir = QCoreApplication::applicationDirPath().toStdString();
    Form1 form(state, io);
    form.Charge({});
    QCoreApplication::processEvents();
    FirstPainting painting(*form.findChild<QTableView*>(QStringLiteral("TDBGrid1")));
    painting.start = SteadyClock::now();
    form.findChild<QAction*>(QStringLiteral("MnuOuvrir"))->trigger();
    const double all = MillisecondesDepuis(painting.start);
    std::printf("%8d rows  first rows painted %6.0f ms behind Open   (at most %.0f)%s\n", rows,
                painting.ms, mostMs, painting.ms <= mostMs ? "" : "  TOO SLOW");
    std::printf("%8d rows  all of them %.0f ms, without a window %.0f ms, ratio %.2f\n", rows, all,
                bare, all / bare);
  }
  fs::remove_all(folder);
  return 0;
}

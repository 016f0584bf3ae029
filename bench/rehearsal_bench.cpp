// What an import would do, read beforehand: time of the processor until the verdict over a whole
// file, beside a bare read and split of its lines; and how the dialog lives meanwhile: when its
// first rows are painted and the longest time that it does not get its events.
//
//   rehearsal_bench [lines] [rows of the table] [folder]
#include <QApplication>
#include <QElapsedTimer>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "coords/test_catalogue.h"
#include "fakes/document_states.h"
#include "fakes/silent_platform.h"
#include "generated_rows.h"
#include "interchange/import_choice.h"
#include "interchange/rehearsal.h"
#include "interchange/windows/frm_importation.h"
#include "interchange/windows/rehearsal_pane.h"
#include "measure.h"
#include "platform/os/file_system.h"
#include "store/table.h"

using namespace talpena;
using bench::Millisecondes;

namespace {

/// A file in decimal degrees, its rows over all the land and sea of Europe; one in a thousand is
/// far off, one names no place.
void EcritListe(const std::string& path, int lines) {
  std::ofstream out(path, std::ios::binary);
  std::uint32_t seed = 1;
  const auto next = [&seed](std::uint32_t below) {
    seed = seed * 1664525 + 1013904223;
    return (seed >> 8) % below;
  };
  for (int i = 0; i < lines; ++i) {
    const unsigned latitude = i % 1000 == 7 ? 95 : i % 1000 == 8 ? next(80) : 36 + next(30);
    out << 1 + next(3) << ',' << latitude << '.' << 10000 + next(89999) << ',' << next(30) << '.'
        << 10000 + next(89999) << ',' << next(50) << ",1,19" << 10 + next(89) << "/07/14,\"Place "
        << i << ", by the river\"\n";
  }
}

struct World {
  World(const std::string& folder, std::int64_t rows) {
    state.Silence = true;
    state.Langue = 1000;
    state.Catalogue = test::CatalogueDesSources();
    state.DatumSpherique = state.DatumUtm = state.Catalogue.DatumEur;
    test::Entete(state.document)->DatumFichierCode = "WGS84";
    test::Entete(state.document)->DatumFichier = state.Catalogue.DatumWgs84;
    state.document.WorkingDb = machine.engine->CreateDatabase(folder + "/work.db", {});
    CreateTable(*state.document.WorkingDb);
    bench::Generator generator(rows);
    state.document.WorkingDb->InsertRows("TALPENA", bench::generatedColumns, generator);
  }
  test::SilentPlatform machine;
  StoreState state;
  InterchangeState interchange;
};

/// The floor: the file read and its lines split at commas.
std::size_t Decoupe(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::size_t fields = 0;
  for (std::string line; std::getline(in, line);) {
    for (std::size_t at = 0; at != std::string::npos; ++fields) at = line.find(',', at + 1);
  }
  return fields;
}

void Verdict(World& world, const std::string& path) {
  const double floor = Millisecondes([&] { Decoupe(path); });
  const ImportChoice choice(world.state, world.interchange, world.machine.io);
  std::unique_ptr<Rehearsal> rehearsal;
  double read = 0;
  const double all = Millisecondes([&] {
    rehearsal = std::make_unique<Rehearsal>(world.state, world.state.document.Entete().DatumFichier,
                                            world.state.document.Base(), *choice.Plan());
    read = Millisecondes([&] {
      while (!rehearsal->EstLue()) rehearsal->Travaille([] { return false; });
    });
    while (rehearsal->Travaille([] { return true; })) {
    }
  });
  const RehearsalCounts counts = rehearsal->Comptes();
  std::printf("verdict %.0f ms of the processor, with the other systems %.0f ms (floor %.0f ms)\n",
              read, all, floor);
  std::printf("  %lld enter, %lld dropped, %lld without a point, %lld far, %lld not listed\n",
              static_cast<long long>(counts.enter), static_cast<long long>(counts.dropped),
              static_cast<long long>(counts.withoutPoint), static_cast<long long>(counts.far),
              static_cast<long long>(rehearsal->Lignes().NonGardees()));
}

/// From the choice of the file, by the clock of the wall.
void Dialogue(World& world) {
  frmImportation window(world.state, world.interchange, world.machine.io);
  window.show();
  while (!window.findChild<RehearsalPane*>()->EstFinie()) QCoreApplication::processEvents();
  QElapsedTimer clock;
  qint64 last = 0, longest = 0, first = -1;
  std::clock_t lastWork = std::clock(), longestWork = 0;
  QTimer beat;
  QObject::connect(&beat, &QTimer::timeout, [&] {
    longest = std::max(longest, clock.elapsed() - last);
    last = clock.elapsed();
    longestWork = std::max(longestWork, std::clock() - lastWork);
    lastWork = std::clock();
  });
  const auto* list = window.findChild<QTableView*>("lstRepetition");
  auto* pane = window.findChild<RehearsalPane*>();
  clock.start();
  beat.start(0);
  pane->Repete(*ImportChoice(world.state, world.interchange, world.machine.io).Plan());
  while (!pane->EstFinie()) {
    QCoreApplication::processEvents();
    if (first >= 0 || list->model()->rowCount() == 0) continue;
    list->viewport()->repaint();
    first = clock.elapsed();
  }
  std::printf(
      "first rows painted after %lld ms, longest pause %lld ms (%ld ms of the processor), "
      "all %lld ms by the clock\n",
      static_cast<long long>(first), static_cast<long long>(longest),
      static_cast<long>(longestWork * 1000 / CLOCKS_PER_SEC),
      static_cast<long long>(clock.elapsed()));
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const int lines = arguments.empty() ? 100000 : std::stoi(arguments[0]);
  const std::int64_t rows = arguments.size() < 2 ? 10000 : std::stoll(arguments[1]);
  const std::filesystem::path folder =
      (arguments.size() < 3 ? std::filesystem::temp_directory_path()
                            : std::filesystem::path(arguments[2])) /
      "rehearsal_bench";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  const std::string path = folder / "list.txt";
  EcritListe(path, lines);
  {
    World world(folder, rows);
    world.interchange.FichierImportation = path;
    std::printf("%d lines beside %lld rows\n", lines, static_cast<long long>(rows));
    const long before = bench::MemoireMaximale();
    Verdict(world, path);
    std::printf("  memory %ld MB, %ld MB before\n", bench::MemoireMaximale(), before);
    Dialogue(world);
  }
  std::filesystem::remove_all(folder);
  return 0;
}

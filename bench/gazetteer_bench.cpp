// A gazetteer of many places in each of the three formats: its first opening beside what reads as
// many rows, the searches that follow, the search while typing, and the peak of memory.
//
//   gazetteer_bench [rows] [folder]
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bare_table.h"
#include "fakes/silent_platform.h"
#include "gazetteer/gazetteer_file.h"
#include "gazetteer/geo_query.h"
#include "gazetteer/place_index.h"
#include "gazetteer/place_list.h"
#include "gazetteer/place_point.h"
#include "generated_places.h"
#include "measure.h"
#include "platform/foreign/dbase/dbase_format.h"
#include "platform/foreign/jet_format.h"
#include "platform/foreign/paradox/paradox_format.h"
#include "platform/foreign_format.h"
#include "platform/sqlite/sqlite_engine.h"

using namespace talpena;
namespace fs = std::filesystem;

namespace {

struct Format {
  const char* name;
  std::string_view connect;
  const char* place;
  std::unique_ptr<ForeignFormat> (*cree)();
};

std::unique_ptr<ForeignFormat> CreeDbase() { return CreeFormatDbase(); }

constexpr Format formats[] = {
    {"Access", Connect::Access, "places.mdb", [] { return CreeFormatJet(); }},
    {"dBase IV", Connect::DBase4, "dbase", CreeDbase},
    {"Paradox", Connect::Paradox4, "paradox", [] { return CreeFormatParadox(); }},
};

/// Keeps its copies in a folder of the benchmark's own.
class CacheFolder final : public test::NoEnvironment {
 public:
  explicit CacheFolder(std::string folder) : folder_(std::move(folder)) {}
  std::string DossierPrive() override { return folder_; }

 private:
  std::string folder_;
};

std::unique_ptr<TableEngine> MoteurDe(const Format& format) {
  std::vector<std::unique_ptr<ForeignFormat>> readers;
  readers.push_back(format.cree());
  return CreeMoteurSqlite(std::move(readers));
}

struct Machine {
  Machine(const Format& format, const fs::path& folder)
      : engine(MoteurDe(format)), environment((folder / "cache").string()) {
    bench::RegleChamps(state);
    state.GeoFile = (folder / format.place).string();
    state.GeoDbType = format.connect;
  }

  test::SilentPlatform silent;
  std::unique_ptr<TableEngine> engine;
  CacheFolder environment;
  Platform io{*engine,      *silent.files, silent.settings, silent.dialogues,
              silent.clock, environment,   silent.sound};
  SharedState state;
};

void Fait(const Format& format, const fs::path& folder, std::int64_t rows) {
  Machine machine(format, folder);
  const std::string place = machine.state.GeoFile;
  if (!format.connect.empty()) fs::create_directory(place);
  const auto made = format.connect.empty()
                        ? machine.engine->CreateForeignDatabase(place, format.connect, {})
                        : machine.engine->OpenDatabase(place, false, format.connect);
  made->CreateTable(bench::TableDeLieux());
  bench::PlaceGenerator source(rows);
  made->InsertRows("PLACES", bench::placeColumns, source);
}

/// Time of the processor that a body takes, here and in the processes that it waits for.
double AvecEnfants(const std::function<void()>& body) {
  const auto used = [] {
    double ms = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
      rusage usage{};
      getrusage(who, &usage);
      for (const timeval& time : {usage.ru_utime, usage.ru_stime}) {
        ms += 1000.0 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1000;
      }
    }
    return ms;
  };
  const double start = used();
  body();
  return used() - start;
}

double MeilleurDeTrois(const std::function<void()>& body) {
  double best = AvecEnfants(body);
  for (int i = 0; i < 2; ++i) best = std::min(best, AvecEnfants(body));
  return best;
}

PlaceList Cherche(Machine& machine, OpenGazetteer& base, GeoSearch kind, std::string_view typed) {
  return {machine.state, base.Ouvre(machine.state, machine.io)
                             .OpenRecordset(InstructionRecherche(machine.state, kind, typed))};
}

/// The floor of reading a table of a folder: a loop that binds and steps.
void InsereNu(std::int64_t rows) {
  bench::BareTable bare("");
  bare.Execute(
      "CREATE TABLE places (a TEXT, b TEXT, c REAL, d REAL, e TEXT, f TEXT, g TEXT, h TEXT)");
  bare.Execute("BEGIN");
  sqlite3_stmt* insert = bare.Prepare("INSERT INTO places VALUES (?,?,?,?,?,?,?,?)");
  constexpr std::int64_t some = 4096;
  bench::PlaceGenerator source(some);
  std::vector<std::vector<Value>> made;
  std::vector<Cell> cells(bench::placeColumns.size());
  while (source.Suivante(cells)) {
    std::vector<Value>& row = made.emplace_back();
    for (const Cell& cell : cells) row.push_back(cell.Garde());
  }
  for (std::int64_t done = 0; done < rows; ++done) {
    int at = 0;
    for (const Value& value : made[static_cast<std::size_t>(done) % made.size()]) {
      const Cell cell = Cell::Vue(value);
      if (cell.kind == Cell::Kind::Text) {
        sqlite3_bind_text(insert, ++at, cell.text.data(), static_cast<int>(cell.text.size()),
                          SQLITE_STATIC);
      } else {
        sqlite3_bind_double(insert, ++at, cell.Nombre());
      }
    }
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  bare.Execute("COMMIT");
}

void MesureOuverture(const Format& format, const fs::path& folder, std::int64_t rows) {
  const double first = MeilleurDeTrois([&] {
    fs::remove_all(folder / "cache");
    Machine machine(format, folder);
    OpenGazetteer base;
    if (Cherche(machine, base, GeoSearch::Exact, "monsa").Nombre() > 1'000'000) std::exit(1);
  });
  const std::string command = "mdb-export '" + (folder / format.place).string() + "' PLACES > '" +
                              (folder / "export.txt").string() + "'";
  const double floor = MeilleurDeTrois([&] {
    if (!format.connect.empty()) return InsereNu(rows);
    if (std::system(command.c_str()) != 0) std::exit(1);
  });
  constexpr double bound = 1.3;
  bench::Rapporte((std::string("first opening, ") + format.name).c_str(), first, floor, bound);
}

/// What a user waits for, by the clock: the best of seven, in milliseconds.
double Attente(const std::function<void()>& body) {
  double best = 1e9;
  for (int i = 0; i < 7; ++i) {
    const auto start = std::chrono::steady_clock::now();
    body();
    best = std::min(
        best, std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                  .count());
  }
  return best;
}

void Montre(const char* task, const std::string& what, std::size_t found, double ms, double most) {
  std::printf("%-24s %-12s %8zu places %9.2f ms  (at most %.0f)%s\n", task, what.c_str(), found, ms,
              most, ms <= most ? "" : "  TOO SLOW");
  std::fflush(stdout);
}

constexpr double searchBound = 5, listBound = 1000;
constexpr std::size_t page = 50;

/// The rows of a search, up to the first page of the list.
std::size_t PremierePage(Machine& machine, OpenGazetteer& base, GeoSearch kind,
                         std::string_view typed) {
  PlaceList list = Cherche(machine, base, kind, typed);
  for (std::size_t i = 0; i < std::min(page, list.Nombre()); ++i) list.Item(i);
  return list.Nombre();
}

void MesureRecherches(Machine& machine, OpenGazetteer& base) {
  std::size_t found = 0;
  const double again = Attente([&] {
    OpenGazetteer other;
    found = PremierePage(machine, other, GeoSearch::Exact, "mosa");
  });
  Montre("copy opened, exact", "mosa", found, again, searchBound);
  for (const char* typed : {"mosa", "nowhere"}) {
    const double ms =
        Attente([&] { found = PremierePage(machine, base, GeoSearch::Exact, typed); });
    Montre("exact", typed, found, ms, searchBound);
  }
  for (const char* typed : {"mosa", "mon", "mo", ""}) {
    const double ms =
        Attente([&] { found = PremierePage(machine, base, GeoSearch::Approximate, typed); });
    Montre("approximate", typed, found, ms, searchBound);
  }
}

/// All rows of the shipped gazetteer's number, each made as the list shows it.
void MesureListe(Machine& machine, OpenGazetteer& base) {
  constexpr std::size_t shipped = 135'219;
  std::size_t shown = 0;
  const double time = bench::Millisecondes([&] {
    PlaceList list = Cherche(machine, base, GeoSearch::Approximate, "");
    while (shown < std::min(shipped, list.Nombre())) list.Item(shown++);
  });
  Montre("list of items", "*", shown, time, listBound);
}

PlaceIndex Repertoire(Machine& machine, OpenGazetteer& base) {
  PlaceIndex index;
  const auto rows = base.Ouvre(machine.state, machine.io)
                        .OpenRecordset("SELECT FULL_NAME, LATITUDE, LONGITUDE FROM PLACES");
  std::vector<Cell> cells(3);
  for (; !rows->EOF_(); rows->MoveNext()) {
    rows->LitLigne(cells);
    const auto point = PointDuLieu(cells[1], cells[2], machine.state.GeoCoordType);
    index.Ajoute(cells[0].text,
                 point ? std::optional(GeoPoint{point->latitude, point->longitude}) : std::nullopt);
  }
  index.Termine();
  return index;
}

void MesureSaisie(Machine& machine, OpenGazetteer& base) {
  std::optional<PlaceIndex> index;
  const double made = bench::Millisecondes([&] { index = Repertoire(machine, base); });
  std::printf("names for the search while typing: %zu in %.0f ms\n", index->Nombre(), made);
  for (const auto near : {std::optional<GeoPoint>(), std::optional(GeoPoint{50.4, 3.8})}) {
    for (const char* typed : {"mo", "mon", "mosa", "n-b", "osa", "osaba", "ée", "zzz"}) {
      std::size_t found = 0;
      const double ms = Attente([&] { found = index->Cherche(typed, near).size(); });
      Montre(near ? "typing, nearest first" : "typing", typed, found, ms, searchBound);
    }
  }
}

void Mesure(const Format& format, const fs::path& folder, std::int64_t rows) {
  MesureOuverture(format, folder, rows);
  Machine machine(format, folder);
  OpenGazetteer base;
  MesureRecherches(machine, base);
  MesureListe(machine, base);
  MesureSaisie(machine, base);
  std::printf(
      "memory %ld MB (at most 150), copy of %ju MB\n\n", bench::MemoireMaximale(),
      static_cast<std::uintmax_t>(
          fs::file_size(fs::directory_iterator(folder / "cache" / "gazetteer")->path()) >> 20));
}

/// Runs a step in a process of its own, for its own peak of memory.
void DansUnProcessus(const std::function<void()>& step) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    try {
      step();
    } catch (const TalpenaError& error) {
      std::fprintf(stderr, "failed: %d %s\n", error.number(), error.what());
    }
    std::fflush(stdout);
    _exit(0);
  }
  waitpid(child, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1'000'000;
  const fs::path parent = argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path();
  for (const Format& format : formats) {
    const fs::path folder = parent / ("gazetteer_bench_" + std::to_string(getpid()));
    fs::create_directories(folder);
    DansUnProcessus([&] { Fait(format, folder, rows); });
    DansUnProcessus([&] { Mesure(format, folder, rows); });
    fs::remove_all(folder);
  }
}

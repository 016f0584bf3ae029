// The imports of waypoints, a file of fixed columns and a text of MapSource, against the floor of
// this machine for the same rows in the same run: one read of the file with its lines and their
// fields split, and a bare loop of prepared INSERTs.
//
//   waypoint_bench [waypoints] [folder]
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
#include "interchange/garmin_position.h"
#include "interchange/import_end.h"
#include "interchange/mapsource_reader.h"
#include "interchange/mapsource_text.h"
#include "interchange/wpt_reader.h"
#include "measure.h"

using namespace talpena;
using bench::Millisecondes;
using bench::Rapporte;

namespace {

class Hazard {
 public:
  int Sous(std::uint32_t below) {
    seed_ = seed_ * 1664525 + 1013904223;
    return static_cast<int>((seed_ >> 8) % below);
  }

 private:
  std::uint32_t seed_ = 1;
};

constexpr std::array<const char*, 3> months{"APR", "JUN", "OCT"};

int LigneWpt(std::span<char> line, Hazard& next, std::int64_t number) {
  const int day = 1 + next.Sous(28), year = next.Sous(100);
  return std::snprintf(line.data(), line.size(),
                       "W  P%05d N%02d%02d.%03d   E%03d%02d.%03d                         %5d "
                       "%02d-%s-%02d %02d:15:00\r\n",
                       static_cast<int>(number % 100000), 35 + next.Sous(30), next.Sous(60),
                       next.Sous(1000), next.Sous(30), next.Sous(60), next.Sous(1000),
                       next.Sous(900), day, months[static_cast<std::size_t>(next.Sous(3))], year,
                       next.Sous(24));
}

int LigneMapSource(std::span<char> line, Hazard& next, std::int64_t number) {
  const int day = 1 + next.Sous(28), year = next.Sous(100);
  return std::snprintf(line.data(), line.size(),
                       "Waypoint\tP%d\tPlace %d\tUser Waypoint\tN%d %02d.%03d E%d %02d.%03d\t%d "
                       "m\t%02d-%s-%02d\r\n",
                       static_cast<int>(number), next.Sous(1000), 35 + next.Sous(30), next.Sous(60),
                       next.Sous(1000), next.Sous(30), next.Sous(60), next.Sous(1000),
                       next.Sous(900), day, months[static_cast<std::size_t>(next.Sous(3))], year);
}

/// A kind of file, and how its waypoints become rows.
struct Kind {
  const char* name;
  std::string head;
  int (*line)(std::span<char>, Hazard&, std::int64_t);
  char separator;  ///< of the floor's fields
  void (*importe)(CommandContext, const std::string& path, ImportedRows&);
};

void ImporteWpt(CommandContext c, const std::string& path, ImportedRows& rows) {
  WptReader reader(OuvreImport(c.io.files, path), c.state, c.document().Entete());
  if (!reader.LitEnTete()) std::abort();
  AjouteImportees(c, "Import", reader, rows);
  if (!reader.Doutes().EnMots(1000).empty()) std::abort();
}

void ImporteMapSource(CommandContext c, const std::string& path, ImportedRows& rows) {
  MapSourceText text;
  RempliLV(c.io.files, path, text);
  objGraminImport options;
  options.DateImport = 2;
  options.DateField = "Date";
  MapSourceReader reader(text,
                         {.grid = *text.grid, .datum = text.datum, .items = TousLesPoints(text)},
                         options, c.document().Entete());
  AjouteImportees(c, "Import", reader, rows);
  if (!reader.Doutes().EnMots(1000).empty()) std::abort();
}

const std::array<Kind, 2> kinds{{
    {".wpt",
     "\r\nH  SOFTWARE\r\nI  PCX5\r\n\r\nH  R DATUM\r\n"
     "M  G WGS 84               121 +0.000000e+00 +0.000000e+00 +0.000000e+00 +0.000000e+00 "
     "+0.000000e+00\r\n\r\nH  COORDINATE SYSTEM\r\nU  LAT LON DM\r\n\r\nH  IDNT\r\n",
     LigneWpt, ' ', ImporteWpt},
    {"MapSource",
     "Grid\tLat/Lon hddd\xB0mm.mmm'\r\nDatum\tWGS 84\r\n\r\n"
     "Header\tName\tDescription\tType\tPosition\tAltitude\tDate\r\n\r\n",
     LigneMapSource, '\t', ImporteMapSource},
}};

void EcritPoints(const Kind& kind, const std::string& path, std::int64_t rows) {
  std::ofstream out(path, std::ios::binary);
  out << kind.head;
  Hazard next;
  std::array<char, 200> line{};
  for (std::int64_t i = 0; i < rows; ++i) out.write(line.data(), kind.line(line, next, i));
}

struct Times {
  double split = 1e9, inserts = 1e9, rows = 1e9, adjust = 1e9, whole = 1e9;
  double Socle() const { return split + inserts; }
};

void Mesure(const Kind& kind, const bench::ImportFiles& files, std::int64_t rows, Times& best) {
  const auto least = [](double& time, const std::function<void()>& body) {
    time = std::min(time, Millisecondes(body));
  };
  std::size_t fields = 0;
  least(best.split, [&] {
    bench::LitLignes(files.list, [&](std::string_view line) {
      for (const char c : line) fields += c == kind.separator ? 1U : 0U;
    });
  });
  std::filesystem::remove(files.database);
  least(best.inserts, [&] { bench::InsereNu(files.database, rows); });
  bench::ImportProgram program(files.database);
  const CommandContext c = program.Contexte();
  ImportedRows added;
  double appended = 1e9, ended = 1e9;
  least(appended, [&] { kind.importe(c, files.list, added); });
  least(ended, [&] { TermineImport(c, "Import", added); });
  // Once more from the beginning, so that it writes as many points as the import did.
  c.document().WorkingDb->Execute("UPDATE TALPENA SET LATITUDE = Null, LONGITUDE = Null");
  least(best.adjust, [&] { AjusteDegres(c, SansMaille, SansMaille); });
  best.rows = std::min(best.rows, appended);
  best.whole = std::min(best.whole, appended + ended);
  if (fields == 0 || static_cast<std::int64_t>(added.added.size()) != rows) std::abort();
}

Times MesureTout(const Kind& kind, const std::filesystem::path& folder, std::int64_t rows) {
  const bench::ImportFiles files(folder / "waypoint_bench");
  EcritPoints(kind, files.list, rows);
  Times best;
  for (int run = 0; run < 3; ++run) Mesure(kind, files, rows, best);
  std::printf(
      "%s, %ld waypoints: split %.0f ms, inserts %.0f ms, AjusteDegres %.0f ms, memory %ld MB\n",
      kind.name, static_cast<long>(rows), best.split, best.inserts, best.adjust,
      bench::MemoireMaximale());
  Rapporte("import without AjusteDegres", best.rows, best.Socle(), 2.0);
  Rapporte("whole import", best.whole, best.Socle() + best.adjust, 2.0);
  return best;
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1'000'000;
  const std::filesystem::path folder =
      argc > 2 ? std::filesystem::path(argv[2]) : std::filesystem::temp_directory_path();
  for (const Kind& kind : kinds) {
    const Times small = MesureTout(kind, folder, rows / 10);
    const Times large = MesureTout(kind, folder, rows);
    std::printf("ten times the waypoints take %.1f times as long (whole: %.1f)\n",
                large.rows / small.rows, large.whole / small.whole);
  }
}

// Rows of a distribution into an Access file, beside a bare loop that scans the same rows and
// writes as many bytes of formatted text; and from that file into the engine, beside mdb-export
// into a text file.
//
//   access_bench [rows] [folder]
#include <sys/resource.h>
#include <sys/time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "exported_rows.h"
#include "measure.h"
#include "platform/foreign/jet_format.h"

using namespace talpena;
namespace fs = std::filesystem;

namespace {

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
  double best = 0;
  for (int i = 0; i < 3; ++i) {
    const double start = used();
    body();
    best = i == 0 ? used() - start : std::min(best, used() - start);
  }
  return best;
}

/// The largest of the processes that were waited for, in MB.
long MemoireDesEnfants() {
  rusage children{};
  getrusage(RUSAGE_CHILDREN, &children);
  return children.ru_maxrss / 1024;
}

void MesureLecture(TableEngine& engine, const fs::path& path, const fs::path& text) {
  const double ours = AvecEnfants([&] {
    const auto opened = engine.OpenDatabase(path.string(), true);
    if (opened->OpenRecordset("bees")->RecordCount() == 0) std::exit(1);
  });
  const long memory = MemoireDesEnfants();
  const std::string command = "mdb-export '" + path.string() + "' bees > '" + text.string() + "'";
  const double floor = AvecEnfants([&] {
    if (std::system(command.c_str()) != 0) std::exit(1);
  });
  constexpr double bound = 1.2;
  bench::Rapporte("Access into the engine", ours, floor, bound);
  std::printf("memory %ld MB, of the reading process %ld MB\n", bench::MemoireMaximale(), memory);
}

}  // namespace

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
  MesureLecture(*rows.engine, path, rows.folder / "export.txt");
}

// How long LitDeg takes, against the floor of this machine for the same rows: (a) one sequential
// read and parse of the file, (b) a bare loop of prepared INSERTs of the ten values.
#include <sqlite3.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "generated_file.h"
#include "store/deg_reader.h"
#include "store/table.h"

namespace {

using namespace talpena;

/// Seconds of the fastest of three runs.
template <typename Work>
double Mesure(Work&& work) {
  double best = 1e9;
  for (int run = 0; run < 3; ++run) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count());
  }
  return best;
}

double PicMemoireMo() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// A number field of the file: a sign, blanks, digits and a point.
double Nombre(std::string_view field) {
  double sign = 1;
  std::size_t at = 0;
  for (; at < field.size() && (field[at] == ' ' || field[at] == '+' || field[at] == '-'); ++at) {
    if (field[at] == '-') sign = -1;
  }
  double value = 0;
  std::from_chars(field.data() + at, field.data() + field.size(), value);
  return sign * value;
}

struct RawRow {
  std::array<double, 5> numbers;
  std::array<std::string_view, 5> texts;  // sex, datum, original, date, comment
};

RawRow Coupe(std::string_view line) {
  return {{Nombre(line.substr(0, 1)), Nombre(line.substr(2, 9)), Nombre(line.substr(11, 10)),
           Nombre(line.substr(21, 5)), Nombre(line.substr(26, 5))},
          {line.substr(41, 1), line.substr(42, 5), line.substr(47, 24), line.substr(31, 10),
           line.substr(71)}};
}

/// (a): reads the file in blocks and cuts every row line; `take` gets each.
template <typename Take>
void LitEtCoupe(const std::string& path, Take&& take) {
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
      const std::string_view line(from, static_cast<std::size_t>(cr - from));
      if (line.size() > 71 && line[1] == 'K') take(Coupe(line));
      from = cr + 2;
    }
    kept = static_cast<std::size_t>(end - from);
    std::memmove(buffer.data(), from, kept);
  }
  std::fclose(file);
}

void Sql(sqlite3* database, const char* text) {
  if (sqlite3_exec(database, text, nullptr, nullptr, nullptr) == SQLITE_OK) return;
  std::fprintf(stderr, "%s: %s\n", text, sqlite3_errmsg(database));
  std::exit(1);
}

/// (b): the time of the INSERTs alone, the rows being cut in memory.
double MesureInserts(const std::string& path, const std::string& databasePath) {
  std::vector<std::string> lines;
  LitEtCoupe(path, [&](const RawRow& row) {
    lines.emplace_back(row.texts[0].data() - 41, row.texts[4].data() + row.texts[4].size());
  });
  std::vector<RawRow> rows;
  rows.reserve(lines.size());
  for (const std::string& line : lines) rows.push_back(Coupe(line));
  return Mesure([&] {
    std::filesystem::remove(databasePath);
    sqlite3* database = nullptr;
    sqlite3_open(databasePath.c_str(), &database);
    Sql(database,
        "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
        "CREATE TABLE TALPENA(Counter INTEGER PRIMARY KEY AUTOINCREMENT, PERIOD INTEGER,"
        "LATITUDE REAL, LONGITUDE REAL, N1 INTEGER, N2 INTEGER, SEX TEXT, DATUM TEXT,"
        "ORIGINAL TEXT, DATE TEXT, COMMENT TEXT); CREATE INDEX PERIOD ON TALPENA(PERIOD); BEGIN");
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(database,
                       "INSERT INTO TALPENA(PERIOD, LATITUDE, LONGITUDE, N1, N2, SEX, DATUM, "
                       "ORIGINAL, DATE, COMMENT) VALUES(?,?,?,?,?,?,?,?,?,?)",
                       -1, &insert, nullptr);
    for (const RawRow& row : rows) {
      for (const int i : {0, 3, 4}) {
        sqlite3_bind_int(insert, i + 1, static_cast<int>(row.numbers[static_cast<unsigned>(i)]));
      }
      for (const int i : {1, 2}) {
        sqlite3_bind_double(insert, i + 1, row.numbers[static_cast<unsigned>(i)]);
      }
      for (int i = 0; i < 5; ++i) {
        const std::string_view text = row.texts[static_cast<unsigned>(i)];
        sqlite3_bind_text(insert, i + 6, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
      }
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    Sql(database, "COMMIT");
    sqlite3_close(database);
  });
}

struct Times {
  double load;
  double parse;
  double inserts;
  double floor() const { return parse + inserts; }
};

Times MesureTout(const std::filesystem::path& folder, int rows) {
  const std::string path = (folder / "generated.deg").string();
  const std::string database = (folder / "rows.db").string();
  bench::EcritFichierGenere(path, rows);
  Times times{};
  {
    test::SilentPlatform platform;
    test::SilentView view;
    StoreState state;
    std::filesystem::remove(database);
    state.document.WorkingDb = platform.engine->CreateDatabase(database, NewDatabase{});
    CreateTable(*state.document.WorkingDb);
    times.load =
        Mesure([&] { LitDeg(view.Contexte(state, platform.io), path, MergeMode::Replace); });
    if (state.document.Data1.recordset().RecordCount() != rows) std::abort();
    state.document.Data1 = DataControl();
  }
  std::printf("%8d rows  LitDeg        %7.3f s   peak memory so far %.0f MB\n", rows, times.load,
              PicMemoireMo());
  double sum = 0;
  times.parse = Mesure([&] {
    LitEtCoupe(path, [&](const RawRow& row) {
      for (const double number : row.numbers) sum += number;
      sum += static_cast<double>(row.texts[4].size());
    });
  });
  std::printf("%8d rows  (a) parse     %7.3f s   (checksum %.0f)\n", rows, times.parse, sum);
  times.inserts = MesureInserts(path, database);
  std::printf("%8d rows  (b) inserts   %7.3f s\n", rows, times.inserts);
  std::printf("%8d rows  LitDeg / ((a)+(b)) = %.2f   (at most 1.0)\n", rows,
              times.load / times.floor());
  std::filesystem::remove(path);
  std::filesystem::remove(database);
  return times;
}

}  // namespace

int main(int argc, char** argv) {
  const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "talpena_load_bench";
  std::filesystem::create_directories(folder);
  const Times small = MesureTout(folder, rows / 10);
  const Times large = MesureTout(folder, rows);
  std::printf("ten times the rows take %.1f times as long\n", large.load / small.load);
  std::filesystem::remove_all(folder);
  return 0;
}

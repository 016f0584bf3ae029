// EcritDeg against a bare loop that scans the same rows and writes the same lines.
//
//   save_bench [rows]      default 1000000
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/main_window_view.h"
#include "platform/os/file_system.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/deg_line_writer.h"
#include "store/deg_writer.h"
#include "store/table.h"

namespace {

using namespace talpena;
namespace fs = std::filesystem;

constexpr int runs = 5;

/// An invented row of about 115 bytes.
struct Invented {
  int period;
  double latitude;
  double longitude;
  int n1;
  int n2;
  const char* sex;
  std::string original;
  std::string date;
  std::string comment;

  explicit Invented(int i)
      : period(1 + i % 3),
        latitude(36 + i % 800000 / 100000.0),
        longitude(-9.5 + i % 1400000 / 100000.0),
        n1(i % 40),
        n2(i % 2500),
        sex(i % 2 == 0 ? "F" : "M"),
        original("utm 30 T VK " + std::to_string(1000 + i % 9000) + " " +
                 std::to_string(1000 + i % 7919)),
        date(std::to_string(1900 + i % 110) + "/07/1" + std::to_string(i % 10)),
        comment("Toponym " + std::to_string(i) + "/Community//120//////Source/") {}
};

class Rows final : public RowSource {
 public:
  explicit Rows(int count) : count_(count) {}
  bool Suivante(std::span<Cell> cells) override {
    if (next_ == count_) return false;
    row_ = Invented(next_++);
    cells[0] = Cell::Of(std::int64_t{row_.period});
    cells[1] = Cell::Of(row_.latitude);
    cells[2] = Cell::Of(row_.longitude);
    cells[3] = Cell::Of(std::int64_t{row_.n1});
    cells[4] = Cell::Of(std::int64_t{row_.n2});
    cells[5] = Cell::Of(std::string_view(row_.sex));
    cells[6] = Cell::Of(std::string_view("EUR-M"));
    cells[7] = Cell::Of(std::string_view(row_.original));
    cells[8] = Cell::Of(std::string_view(row_.date));
    cells[9] = Cell::Of(std::string_view(row_.comment));
    return true;
  }

 private:
  int count_;
  int next_ = 0;
  Invented row_{0};
};

class Dialogs final : public Dialogues {
 public:
  Answer Demande(const MessageBox& box) override {
    std::fprintf(stderr, "%s\n", box.text.c_str());
    std::exit(1);
  }
  std::string Saisie(const InputBox&) override { return {}; }
  std::string OuvreFichier(const FileDialog&) override { return {}; }
  std::string EnregistreFichier(const FileDialog&) override { return {}; }
  std::string ChoisitDossier(const std::string&, const std::string&) override { return {}; }
  std::uint32_t ChoisitCouleur(std::uint32_t start) override { return start; }
  Font ChoisitPolice(const Font& start) override { return start; }
  void Imprime() override {}
};

class Settings final : public SettingsStore {
 public:
  std::string Lit(std::string_view, std::string_view, std::string_view,
                  std::string_view text) override {
    return std::string(text);
  }
  void Ecrit(std::string_view, std::string_view, std::string_view, std::string_view) override {}
};

class Machine final : public Clock, public Environment, public Sound {
 public:
  int AnneeCourante() override { return 2011; }
  std::string Variable(std::string_view) override { return {}; }
  std::string DossierTemporaire() override { return {}; }
  std::string LecteurCD() override { return {}; }
  bool ChangeDossier(const std::string&) override { return true; }
  void Bip() override {}
};

class View final : public MainWindowView {
 public:
  void ChangeTitreFenetre(const std::string&) override {}
  std::string BoxTitre() const override { return "Invented"; }
  void ChangeBoxTitre(const std::string&) override {}
  std::string Commentaire() const override { return {}; }
  void ChangeCommentaire(const std::string&) override {}
  void MontreTitres() override {}
  void AjusteGrille() override {}
  void ActiveMenus() override {}
  void CacheLbl1() override {}
  void PlaceFocusGrille() override {}
  bool GrilleVisible() const override { return false; }
  std::string TexteCellule(int) override { return "1"; }
  void AfficheMessage(const std::string&) override {}
  void FermeMessage() override {}
  void ChangeSablier(bool) override {}
  void MontreBarre(bool) override {}
  void MontreProgression(double) override {}
  void TraiteMessages() override {}
  void AffichePanneauDatum(const std::string&) override {}
  void AfficheDerniersFichiers(const std::array<std::string, 4>&) override {}
  void MontreOptionsPeriodes() override {}
};

double Secondes(const auto& body) {
  const auto start = std::chrono::steady_clock::now();
  body();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Exige(bool ok, const char* what) {
  if (ok) return;
  std::fprintf(stderr, "failed: %s\n", what);
  std::exit(1);
}

/// The floor's own table: the same columns, rows and index, made with the library alone.
sqlite3* CreeTablePlancher(const fs::path& path, int count) {
  sqlite3* db = nullptr;
  Exige(sqlite3_open(path.c_str(), &db) == SQLITE_OK, "open");
  const auto execute = [db](const char* sql) {
    Exige(sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
  };
  execute("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE");
  execute(
      "CREATE TABLE TALPENA(Counter INTEGER PRIMARY KEY, PERIOD INTEGER, LATITUDE REAL, "
      "LONGITUDE REAL, N1 INTEGER, N2 INTEGER, SEX TEXT, DATUM TEXT, ORIGINAL TEXT, DATE TEXT, "
      "COMMENT TEXT); CREATE INDEX PERIOD ON TALPENA(PERIOD); BEGIN");
  sqlite3_stmt* insert = nullptr;
  Exige(sqlite3_prepare_v2(db, "INSERT INTO TALPENA VALUES(NULL,?,?,?,?,?,?,'EUR-M',?,?,?)", -1,
                           &insert, nullptr) == SQLITE_OK,
        "prepare");
  for (int i = 0; i < count; ++i) {
    const Invented row(i);
    const auto text = [insert](int column, const std::string& value) {
      sqlite3_bind_text(insert, column, value.data(), static_cast<int>(value.size()),
                        SQLITE_STATIC);
    };
    sqlite3_bind_int(insert, 1, row.period);
    sqlite3_bind_double(insert, 2, static_cast<float>(row.latitude));
    sqlite3_bind_double(insert, 3, static_cast<float>(row.longitude));
    sqlite3_bind_int(insert, 4, row.n1);
    sqlite3_bind_int(insert, 5, row.n2);
    text(6, row.sex);
    text(7, row.original);
    text(8, row.date);
    text(9, row.comment);
    Exige(sqlite3_step(insert) == SQLITE_DONE, "insert");
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  execute("COMMIT");
  return db;
}

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

std::string Lit(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The row lines of a .deg without free fields.
std::string SansEnTete(const std::string& bytes) {
  std::size_t start = 0;
  for (int i = 0; i < 8; ++i) start = bytes.find("\r\n", start) + 2;
  return bytes.substr(start);
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
  const fs::path folder = fs::temp_directory_path() / ("talpena-bench-" + std::to_string(getpid()));
  fs::create_directory(folder);

  const auto engine = CreeMoteurSqlite();
  const auto files = CreeSystemeDeFichiers();
  Dialogs dialogs;
  Settings settings;
  Machine machine;
  View view;
  Platform io{*engine, *files, settings, dialogs, machine, machine, machine};
  StoreState state;
  state.WorkingDb = engine->CreateDatabase((folder / "talpena_tmp.mdb").string(), "");
  CreateTable(state);
  Rows source(count);
  constexpr std::array<std::string_view, 10> columns = {
      "PERIOD", "LATITUDE", "LONGITUDE", "N1", "N2", "SEX", "DATUM", "ORIGINAL", "DATE", "COMMENT"};
  state.WorkingDb->InsertRows("TALPENA", columns, source);
  state.Data1.Lie(*state.WorkingDb);
  state.Data1.RecordSource = state.SqlCourant;
  state.Data1.Refresh();
  sqlite3* floor = CreeTablePlancher(folder / "floor.db", count);

  double program = 1e9;
  double bare = 1e9;
  double synced = 1e9;
  for (int run = 0; run < runs; ++run) {
    bare = std::min(bare, Secondes([&] { EcritPlancher(floor, folder / "floor.deg", false); }));
    synced = std::min(synced, Secondes([&] { EcritPlancher(floor, folder / "floor.deg", true); }));
    program = std::min(program, Secondes([&] {
                         EcritDeg(state, io, view, (folder / "a.deg").string(), WriteMode::Rows);
                       }));
  }
  sqlite3_close(floor);
  const std::string written = Lit(folder / "a.deg");
  Exige(SansEnTete(written) == Lit(folder / "floor.deg"), "the two files differ");
  std::printf("%d rows, %zu bytes\n", count, written.size());
  std::printf("bare loop           %.3f s\n", bare);
  std::printf("bare loop, synced   %.3f s\n", synced);
  std::printf("EcritDeg            %.3f s   %.2f times the bare loop, %.2f times the synced one\n",
              program, program / bare, program / synced);
  fs::remove_all(folder);
  return 0;
}

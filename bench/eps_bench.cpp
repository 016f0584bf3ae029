// The distribution on a map: reading and projecting rows, and the EPS file of them, beside bare
// loops that do the same in the same run.
//
//   eps_bench [rows] [folder]
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "bare_table.h"
#include "fakes/silent_map_window.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "generated_rows.h"
#include "maps/canvas_sink.h"
#include "maps/eps.h"
#include "maps/plot.h"
#include "maps/projection.h"
#include "measure.h"
#include "store/table.h"

using namespace talpena;
using bench::Meilleur;
using bench::Rapporte;

namespace {

/// Takes circles and draws none.
class BlankCanvas final : public Canvas {
 public:
  std::int64_t circles = 0;
  double sum = 0;
  void ChargeImage(const std::string&) override {}
  int LargeurPixels() const override { return 1600; }
  int HauteurPixels() const override { return 1000; }
  int LargeurTwips() const override { return 24000; }
  int HauteurTwips() const override { return 15000; }
  void ChangeEchelle(const UserScale&) override {}
  UserScale Echelle() const override { return {}; }
  void Cls() override {}
  void PSet(double, double) override {}
  void Line(double, double, double, double) override {}
  void Circle(double x, double y, double) override {
    ++circles;
    sum += x + y;
  }
  void Polyline(std::span<const PixelPoint>) override {}
  void Polygon(std::span<const PixelPoint>) override {}
  void SauveBmp(const std::string&) override {}
};

class User final : public test::NoDialogues {
 public:
  Answer Demande(const MessageBox& box) override {
    return box.icon == Icon::Information ? Answer::Ok : NoDialogues::Demande(box);
  }
};

class View final : public test::SilentView {
 public:
  std::vector<Bookmark> chosen;
  std::vector<Bookmark> LignesSelectionnees() override { return chosen; }
};

/// The world in Mercator over a table of generated rows.
struct Opened {
  Opened(const std::filesystem::path& folder, std::int64_t rows) {
    state.Silence = true;
    state.WorkingDb = machine.engine->CreateDatabase((folder / "eps_bench_ours.mdb").string(), {});
    CreateTable(state);
    bench::Generator generator(rows);
    state.WorkingDb->InsertRows("TALPENA", bench::generatedColumns, generator);
    state.Data1.Lie(*state.WorkingDb);
    Ordonne(state.SqlCourant);
    Carte(folder);
  }
  void Carte(const std::filesystem::path& folder) {
    carte.CodeProjection = 2;
    carte.LatSud = -70;
    carte.LatNord = 75;
    carte.LonOuest = -180;
    carte.LonEst = 180;
    InitFacteurs(carte);
    InitProjection(carte);
    InitBoite(carte);
    carte.DossierCarte = (folder / "").string();
    carte.FichierPS = (folder / "eps_bench_map.ps").string();
    for (const std::string& path : {carte.DossierCarte + "proltlp.ps", carte.FichierPS}) {
      const auto file = machine.files->Cree(path);
      file->Ecrit("%!PS-Adobe-3.0 EPSF-3.0\r\n");
      file->Remplace();
    }
  }
  void Ordonne(const std::string& sql) {
    state.Data1.RecordSource = sql;
    state.Data1.Refresh();
  }
  ~Opened() { state.Data1 = DataControl(); }

  test::SilentPlatform machine;
  User user;
  Platform io{*machine.engine, *machine.files,      machine.settings, user,
              machine.clock,   machine.environment, machine.sound};
  View vue;
  StoreState state;
  MapState carte;
  MapOption options;
  BlankCanvas canvas;
  test::SilentMapWindow window;
  MapContext context{carte, options, canvas, window, state, io, vue};
};

/// Every row of the bare table with its point on the map.
template <typename Body>
void ParcourtNu(bench::BareTable& bare, const MapState& carte, Body body) {
  sqlite3_stmt* rows = bare.Prepare("SELECT LATITUDE, LONGITUDE FROM TALPENA ORDER BY Counter");
  while (sqlite3_step(rows) == SQLITE_ROW) {
    if (sqlite3_column_type(rows, 0) == SQLITE_NULL || sqlite3_column_type(rows, 1) == SQLITE_NULL)
      continue;
    const auto latitude = static_cast<float>(sqlite3_column_double(rows, 0));
    const auto longitude = static_cast<float>(sqlite3_column_double(rows, 1));
    float X = 0, Y = 0;
    Project(carte, radian(latitude), radian(longitude), X, Y);
    body(X, Y);
  }
  sqlite3_finalize(rows);
}

/// The floor of the EPS file: as many lines through std::to_chars and a buffered file.
void EcritNu(bench::BareTable& bare, const MapState& carte, const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  ParcourtNu(bare, carte, [&](float X, float Y) {
    const float x = (X - carte.XGauche) / carte.LargeurKm * 500 + 50;
    const float y = (Y - carte.YBas) / carte.HauteurKm * 300 + 500;
    std::array<char, 64> line{};
    char* at = line.data();
    char* const end = at + line.size();
    *at++ = ' ';
    at = std::to_chars(at, end, x).ptr;
    *at++ = ' ';
    *at++ = ' ';
    at = std::to_chars(at, end, y).ptr;
    constexpr std::string_view rest = "  5  1  0  0 sc1\r\n";
    at = std::copy(rest.begin(), rest.end(), at);
    std::fwrite(line.data(), 1, static_cast<std::size_t>(at - line.data()), file);
  });
  std::fclose(file);
}

void CompareDessin(Opened& ours, bench::BareTable& bare, std::int64_t rows) {
  double sum = 0;
  const double floor = Meilleur(
      [&] { ParcourtNu(bare, ours.carte, [&](float X, float Y) { sum += double{X} + Y; }); });
  ScreenSink screen(ours.context);
  const auto draw = [&] { PlotDistri(ours.context, screen); };
  Rapporte("read and project all rows", Meilleur(draw), floor, 1.2);
  if (ours.canvas.circles != 3 * rows) std::printf("rows are missing\n");
  for (const char* order : {"Counter DESC", "LATITUDE", "N1"}) {
    ours.Ordonne(std::string("SELECT * FROM TALPENA ORDER BY ") + order);
    Rapporte((std::string("the same ordered by ") + order).c_str(), Meilleur(draw), floor, 2);
  }
  for (std::int64_t row = 1; row <= rows; row += 10) ours.vue.chosen.push_back(row);
  Rapporte("every tenth row, chosen", Meilleur(draw), floor, 1);
  ours.vue.chosen.clear();
  ours.Ordonne(ours.state.SqlCourant);
}

void CompareFichier(Opened& ours, bench::BareTable& bare, const std::filesystem::path& folder) {
  const std::string bareFile = (folder / "eps_bench_bare.eps").string();
  const std::string ourFile = (folder / "eps_bench_ours.eps").string();
  const double floor = Meilleur([&] { EcritNu(bare, ours.carte, bareFile); });
  for (const int mode : {1, 0}) {
    Rapporte(mode == 1 ? "EPS in colour" : "EPS in black",
             Meilleur([&] { FaitEPS(ours.context, ourFile, mode); }), floor, 2);
  }
  std::filesystem::remove(bareFile);
  std::filesystem::remove(ourFile);
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1000000;
  namespace fs = std::filesystem;
  const fs::path folder =
      (argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path()) / "talpena_eps_bench";
  fs::remove_all(folder);
  fs::create_directories(folder);
  {
    bench::BareTable bare((folder / "bare.db").string());
    bench::InsereNu(bare, rows);
    Opened ours(folder, rows);
    const long before = bench::MemoireMaximale();
    CompareFichier(ours, bare, folder);
    std::printf("peak memory of the export: %ld MB over %ld\n", bench::MemoireMaximale() - before,
                before);
    CompareDessin(ours, bare, rows);
    std::printf("peak memory %ld MB\n", bench::MemoireMaximale());
  }
  fs::remove_all(folder);
}

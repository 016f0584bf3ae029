// Pictures of the shipped maps with distributions on them, as the window shows them and as EPS:
//   map_pictures CARTO OUT FILE.deg...
// Every map in the folder CARTO gets the two files that have most rows within its limits, the first
// of them with line layers and grid as well. Leaves MAP-FILE.png and MAP-FILE.eps in OUT. Of the
// raster maps beside the folder CARTO each has the file with most rows: raster-MAP-FILE.png.
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fakes/silent_map_window.h"
#include "maps/eps.h"
#include "maps/grid_overlay.h"
#include "maps/map_files.h"
#include "maps/projection.h"
#include "maps/raster/raster_plot.h"
#include "maps/redraw.h"
#include "platform/os/file_system.h"
#include "platform/qt/qt_canvas.h"
#include "store/coords_world.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;

/// A file of the user, open.
struct Distribution : test::CoordsWorld {
  explicit Distribution(const fs::path& path) : name(path.stem().string()) {
    std::ifstream in(path, std::ios::binary);
    Charge({std::istreambuf_iterator<char>(in), {}});
  }
  ~Distribution() { state.document.Data1 = DataControl(); }

  /// How many rows lie within limits.
  int LignesEntre(double south, double north, double west, double east) {
    const auto inside = [](const char* column, double from, double to) {
      return std::string(column) + " BETWEEN " + Str(from) + " AND " + Str(to);
    };
    const auto rows = state.document.WorkingDb->OpenRecordset(
        "SELECT * FROM TALPENA WHERE " + inside("LATITUDE", south, north) + " AND " +
        inside("LONGITUDE", west, east));
    return static_cast<int>(rows->RecordCount());
  }

  std::string name;
};

/// A map that is open over a distribution.
struct Vue {
  Vue(Distribution& distribution, FileSystem& files)
      : io{*distribution.engine,  files,
           distribution.settings, distribution.dialogues,
           distribution.clock,    distribution.environment,
           distribution.sound},
        context{carte, options,          canvas,          window, distribution.state,
                io,    distribution.vue, distribution.vue} {
    InitUtm(carte);
    InitFacteurs(carte);
  }

  Platform io;
  test::SilentMapWindow window;
  QtCanvas canvas;
  MapState carte;
  MapOption options;
  MapContext context;
};

class Feuille {
 public:
  Feuille(fs::path path, fs::path out) : path_(std::move(path)), out_(std::move(out)) {}

  bool Dessine(Distribution& distribution, bool withLines) {
    Vue vue(distribution, *files_);
    if (!ChargeCarte(vue.context, path_.string())) return false;
    if (withLines) AjouteTraits(vue.carte, vue.options);
    RedrawMap(vue.context);
    const std::string name = path_.stem().string() + "-" + distribution.name;
    const std::string base = (out_ / (name + (withLines ? "-lines" : ""))).string();
    FaitEPS(vue.context, base + ".eps", withLines ? 0 : 1);
    distribution.dialogues.boxes.clear();  // where the file lies
    return vue.canvas.Surface().save(QString::fromStdString(base + ".png"));
  }

  int Lignes(Distribution& distribution) {
    Vue vue(distribution, *files_);
    if (!ChargeCarte(vue.context, path_.string())) return 0;
    const MapState& carte = vue.carte;
    return distribution.LignesEntre(carte.LatSud, carte.LatNord, carte.LonOuest, carte.LonEst);
  }

 private:
  void AjouteTraits(MapState& carte, MapOption& options) const {
    for (const char* layer : {"rivers_detail", "lakes_detail", "borders_detail", "coasts_detail"}) {
      options.Add((path_.parent_path() / (std::string(layer) + ".tlp")).string());
    }
    carte.Pas = carte.LatNord - carte.LatSud > 40 ? 10.F : 1.F;
    carte.Grille = true;
  }

  fs::path path_, out_;
  std::unique_ptr<FileSystem> files_ = CreeSystemeDeFichiers();
};

using Distributions = std::vector<std::unique_ptr<Distribution>>;

class SilentRasterWindow : public RasterWindow {
 public:
  void MontreCanevas() override {}
};

bool DessineRaster(CarteRaster choisie, Distribution& distribution, const fs::path& out) {
  const std::unique_ptr<FileSystem> files = CreeSystemeDeFichiers();
  Vue vue(distribution, *files);
  RasterMap carte;
  RasterSession session;
  SilentRasterWindow window;
  const RasterContext context{carte,  session,          vue.canvas,      window, distribution.state,
                              vue.io, distribution.vue, distribution.vue};
  ChargeCarteRaster(context, choisie);
  vue.canvas.ChangeTaille(vue.canvas.TailleFichier().scaled(1280, 760, Qt::KeepAspectRatio));
  RedessineRaster(context);
  const std::string map = fs::path(LigneRaster(choisie).file).stem().string();
  const fs::path picture = out / ("raster-" + map + "-" + distribution.name + ".png");
  return vue.canvas.Surface().save(QString::fromStdString(picture.string()));
}

/// Every raster map, with the file that has most rows on it.
int DessineRasters(const fs::path& folder, const fs::path& out, const Distributions& all) {
  int failures = 0;
  for (std::size_t i = 0; i < CartesRaster().size(); ++i) {
    const RasterRow& row = CartesRaster()[i];
    const auto lignes = [&row](const auto& d) {
      return d->LignesEntre(row.south, row.north, row.west, row.east);
    };
    const auto& most = *std::max_element(all.begin(), all.end(), [&](const auto& a, const auto& b) {
      return lignes(a) < lignes(b);
    });
    most->state.AppDir = folder.string();
    failures += !DessineRaster(static_cast<CarteRaster>(i), *most, out);
  }
  return failures;
}

int Dessine(const fs::path& carto, const fs::path& out, const std::vector<fs::path>& files) {
  Distributions all;
  for (const fs::path& file : files) all.push_back(std::make_unique<Distribution>(file));
  int failures = DessineRasters(carto.parent_path(), out, all);
  for (const auto& entry : fs::directory_iterator(carto)) {
    if (entry.path().extension() != ".dsw") continue;
    Feuille sheet(entry.path(), out);
    std::vector<std::pair<int, Distribution*>> ranked;
    for (const auto& d : all) ranked.emplace_back(sheet.Lignes(*d), d.get());
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    for (std::size_t i = 0; i < ranked.size() && i < 2; ++i) {
      if (ranked[i].first == 0) break;
      failures += !sheet.Dessine(*ranked[i].second, false);
      if (i == 0) failures += !sheet.Dessine(*ranked[i].second, true);
    }
  }
  return failures;
}

}  // namespace
}  // namespace talpena

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: map_pictures CARTO OUT FILE.deg...\n");
    return 2;
  }
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const int failures = talpena::Dessine(argv[1], argv[2], {argv + 3, argv + argc});
  if (failures > 0) std::fprintf(stderr, "%d pictures could not be made\n", failures);
  return failures > 0 ? 1 : 0;
}

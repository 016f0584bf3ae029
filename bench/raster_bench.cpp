// The distribution on a raster map beside that on a vector map of the same size, and the read-out
// under a moving mouse.
//
//   raster_bench [rows] [folder]
#include <QApplication>
#include <QImage>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "coords/test_catalogue.h"
#include "fakes/silent_map_window.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "generated_rows.h"
#include "maps/canvas_sink.h"
#include "maps/map_files.h"
#include "maps/plot.h"
#include "maps/projection.h"
#include "maps/raster/raster_plot.h"
#include "maps/raster/raster_readout.h"
#include "measure.h"
#include "platform/qt/qt_canvas.h"
#include "store/table.h"

using namespace talpena;
using bench::Meilleur;

namespace {

namespace fs = std::filesystem;

constexpr int width = 1600;
constexpr int height = 949;  // the proportions of the map of the world
constexpr double mostMicroseconds = 5;

class SilentRasterWindow : public RasterWindow {
 public:
  void MontreCanevas() override {}
};

/// The same rows, a vector and a raster map of the world.
struct Mapped {
  Mapped(const fs::path& folder, std::int64_t rows) {
    fs::create_directories(folder);
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.save(QString::fromStdString((folder / "world.bmp").string()));
    std::ofstream(folder / "world.dsw") << "world\r\nworld.ps\r\nworld.bmp\r\n8\r\n"
                                           "0,\"\",88,-60,180,-180,0,0,0,3,0,0,0,0,0,0\r\n";
    state.Silence = true;
    state.AppDir = folder.string();
    state.Catalogue = test::CatalogueDesSources();
    state.document.WorkingDb = machine.engine->CreateDatabase((folder / "rows.mdb").string(), {});
    CreateTable(*state.document.WorkingDb);
    bench::Generator generator(rows);
    state.document.WorkingDb->InsertRows("TALPENA", bench::generatedColumns, generator);
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
    InitFacteurs(carte);
    if (!ChargeCarte(vector, (folder / "world.dsw").string())) {
      std::puts("the vector map cannot be read");
      std::exit(1);
    }
    ChargeCarteRaster(raster, CarteRaster::Monde);
  }
  ~Mapped() { state.document.Data1 = DataControl(); }

  test::SilentPlatform machine;
  test::SilentView vue;
  StoreState state;
  MapState carte;
  MapOption options;
  QtCanvas canvas, rasterCanvas;
  test::SilentMapWindow window;
  SilentRasterWindow rasterWindow;
  RasterMap map;
  RasterSession session;
  MapContext vector{carte, options, canvas, window, state, machine.io, vue, vue};
  RasterContext raster{map, session, rasterCanvas, rasterWindow, state, machine.io, vue, vue};
};

void CompareDessin(Mapped& m) {
  for (const double radius : {2.0, 4.0, 16.0}) {
    const double km = 2 * radius * static_cast<double>(m.carte.LargeurKm) / width;
    m.options.SymbolDiameter = static_cast<std::int32_t>(km * 1000);
    m.state.DiamPoints = static_cast<float>(km);
    const double vector = Meilleur([&] {
      ScreenSink screen(m.vector);
      m.canvas.Cls();
      PlotDistri(m.vector, screen);
    });
    const double raster = Meilleur([&] { RedessineRaster(m.raster); });
    std::printf("circles of %2g px: raster %7.0f ms, vector %7.0f ms, ratio %.2f%s\n", radius,
                raster, vector, raster / vector, raster > vector ? "  TOO SLOW" : "");
  }
}

void MesureLecture(Mapped& m) {
  for (const RasterRow& row : CartesRaster()) {
    const RasterMap map = RasterDe(row, "");
    const UserScale scale = EchelleRaster(map, row);
    constexpr int positions = 20000;
    std::size_t seen = 0;
    const double ms = Meilleur([&] {
      for (int i = 0; i < positions; ++i) {
        const double at = static_cast<double>(i) / positions;
        seen += LitPositionRaster(m.state.Catalogue, map,
                                  {scale.left + at * scale.width, scale.top + at * scale.height})
                    .LblPosition.size();
      }
    });
    const double microseconds = ms * 1000 / positions;
    std::printf("read-out on %-13s %5.2f microseconds%s\n", std::string(row.file).c_str(),
                microseconds, microseconds > mostMicroseconds ? "  TOO SLOW" : "");
    if (seen == 0) std::puts("nothing was read");
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1000000;
  const fs::path folder =
      (argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path()) / "talpena_raster_bench";
  {
    Mapped m(folder, rows);
    CompareDessin(m);
    MesureLecture(m);
  }
  fs::remove_all(folder);
}

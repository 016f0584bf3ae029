// make_raster_maps SCALE_50M.geo SCALE_10M.geo FOLDER [FILE...]: makes the pictures of the raster
// maps, or those named.
#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "carto/colour_table.h"
#include "carto/geo_source.h"
#include "carto/map_drawing.h"
#include "carto/picture_painter.h"
#include "carto/raster_sheets.h"

namespace {

using namespace talpena;
namespace fs = std::filesystem;

void FaitCarte(const RasterStyle& style, const GeoData& small, const GeoData& large,
               const fs::path& folder) {
  const MapSheet sheet = FeuilleRaster(style);
  const MapDrawing drawing = Dessine(sheet, style.detail == Detail::Region ? large : small);
  const PictureSize size = TailleImage(sheet.Etat());
  const double scale = static_cast<double>(CoteRaster) / std::max(size.width, size.height);
  const fs::path file = folder / LigneRaster(style.map).file;
  const QImage picture = AvecTable(PeintCarte(sheet, drawing, scale, lettresRaster));
  if (!picture.save(QString::fromStdString(file.string()), "BMP"))
    throw std::runtime_error("cannot write " + file.string());
}

bool EstDemandee(std::string_view file, std::span<char* const> names) {
  return names.empty() || std::any_of(names.begin(), names.end(),
                                      [file](const char* wanted) { return file == wanted; });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fputs("usage: make_raster_maps scale_50m.geo scale_10m.geo folder [file...]\n", stderr);
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");  // the letters need an application, no screen
  const QGuiApplication application(argc, argv);
  const std::span<char* const> arguments(argv, static_cast<std::size_t>(argc));
  try {
    const GeoData small = LitDonnees(arguments[1]), large = LitDonnees(arguments[2]);
    const fs::path folder(arguments[3]);
    fs::create_directories(folder);
    for (const RasterStyle& style : StylesRaster()) {
      if (EstDemandee(LigneRaster(style.map).file, arguments.subspan(4)))
        FaitCarte(style, small, large, folder);
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "make_raster_maps: %s\n", e.what());
    return 1;
  }
  return 0;
}

// make_maps SCALE_50M.geo SCALE_10M.geo FOLDER [NAME...]: makes the maps that ship, or those named,
// and their line layers.
#include <QImage>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "carto/geo_source.h"
#include "carto/map_catalogue.h"
#include "carto/map_drawing.h"
#include "carto/map_sheet.h"
#include "carto/picture_painter.h"

namespace {

using namespace talpena;
namespace fs = std::filesystem;

void EnregistreImage(const MapSheet& sheet, const MapDrawing& drawing, int scale,
                     const fs::path& file) {
  if (!PeintImage(sheet, drawing, scale).save(QString::fromStdString(file.string()), "PNG"))
    throw std::runtime_error("cannot write " + file.string());
}

void FaitCarte(const MapRow& row, const GeoData& small, const GeoData& large,
               const fs::path& folder) {
  const MapSheet sheet(row);
  const MapDrawing drawing = Dessine(sheet, row.detail == Detail::Region ? large : small);
  const std::string name = row.name;
  EnregistreImage(sheet, drawing, 1, folder / (name + ".png"));
  EnregistreImage(sheet, drawing, 2, folder / (name + "@2x.png"));
}

bool EstDemande(std::string_view name, std::span<char* const> names) {
  for (const char* wanted : names) {
    if (name == wanted) return true;
  }
  return names.empty();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fputs("usage: make_maps scale_50m.geo scale_10m.geo folder [name...]\n", stderr);
    return 2;
  }
  const std::span<char* const> arguments(argv, static_cast<std::size_t>(argc));
  try {
    const GeoData small = LitDonnees(arguments[1]), large = LitDonnees(arguments[2]);
    const fs::path folder(arguments[3]);
    fs::create_directories(folder);
    for (const MapRow& row : Catalogue()) {
      if (EstDemande(row.name, arguments.subspan(4))) FaitCarte(row, small, large, folder);
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "make_maps: %s\n", e.what());
    return 1;
  }
  return 0;
}

// make_maps SCALE_50M.geo SCALE_10M.geo FOLDER [NAME...]: makes the maps that ship, or those named,
// and their line layers.
#include <QGuiApplication>
#include <QImage>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "carto/description_writer.h"
#include "carto/geo_source.h"
#include "carto/layer_writer.h"
#include "carto/map_catalogue.h"
#include "carto/map_drawing.h"
#include "carto/map_sheet.h"
#include "carto/page_writer.h"
#include "carto/picture_painter.h"
#include "carto/plane_geometry.h"

namespace {

using namespace talpena;
namespace fs = std::filesystem;

void EnregistreImage(const MapSheet& sheet, const MapDrawing& drawing, int scale,
                     const fs::path& file) {
  if (!PeintCarte(sheet, drawing, scale, lettresCarte)
           .save(QString::fromStdString(file.string()), "PNG"))
    throw std::runtime_error("cannot write " + file.string());
}

void Enregistre(const std::string& bytes, const fs::path& file) {
  std::ofstream out(file, std::ios::binary);
  if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
    throw std::runtime_error("cannot write " + file.string());
}

void FaitCarte(const MapRow& row, const GeoData& small, const GeoData& large,
               const fs::path& folder) {
  const MapSheet sheet(row);
  const MapDrawing drawing = Dessine(sheet, row.detail == Detail::Region ? large : small);
  const std::string name = row.name;
  EnregistreImage(sheet, drawing, 1, folder / (name + ".png"));
  EnregistreImage(sheet, drawing, 2, folder / (name + "@2x.png"));
  Enregistre(EcritDessin(sheet, drawing), folder / (name + ".ps"));
  Enregistre(EcritDescription(row), folder / (name + ".dsw"));
}

std::vector<Line> Amincies(std::vector<Line> lines, double degrees) {
  for (Line& line : lines) line = Simplifie(line, degrees);
  return lines;
}

/// What lies beyond 180 degrees, a full turn on, behind the lines.
void Repete(std::vector<Line>& lines) {
  const std::size_t count = lines.size();
  for (std::size_t i = 0; i < count; ++i) {
    Line turned = lines[i];
    for (PlanePoint& p : turned) p.x += 360;
    for (Line& part : RogneLigne(turned, {180, -90, farthestEast, 90}))
      lines.push_back(std::move(part));
  }
}

/// The layers of one scale, thinned by a tolerance, their records so many degrees across.
void FaitCouches(const GeoData& data, const std::string& scale, double tolerance, double across,
                 bool repeated, const fs::path& folder) {
  constexpr int none = 6;
  const auto write = [&](const std::string& name, const std::vector<LayerLines>& content) {
    const std::string stem = name + "_" + scale;
    Enregistre(EcritCouche(stem, content, across), folder / (stem + ".tlp"));
  };
  const auto thin = [&](std::vector<Line> lines) {
    if (repeated) Repete(lines);
    return Amincies(std::move(lines), tolerance);
  };
  write("coasts", {{'C', '1', thin(Contours(data.land))}});
  write("lakes", {{'L', '1', thin(Contours(data.lakes))}});
  write("rivers", {{'R', '1', thin(LignesDeRang(data.rivers, 0, none))}});
  write("borders", {{'U', '1', thin(LignesDeRang(data.borders, 0, 1))},
                    {'U', '3', thin(LignesDeRang(data.borders, 1, none))}});
  write("provinces", {{'U', '3', thin(LignesDeRang(data.provinces, 0, 1))}});
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
  qputenv("QT_QPA_PLATFORM", "offscreen");  // the letters need an application, no screen
  const QGuiApplication application(argc, argv);
  const std::span<char* const> arguments(argv, static_cast<std::size_t>(argc));
  try {
    const GeoData small = LitDonnees(arguments[1]), large = LitDonnees(arguments[2]);
    const fs::path folder(arguments[3]);
    fs::create_directories(folder);
    for (const MapRow& row : Catalogue()) {
      if (EstDemande(row.name, arguments.subspan(4))) FaitCarte(row, small, large, folder);
    }
    FaitCouches(small, "world", 0.02, 4, true, folder);
    FaitCouches(large, "detail", 0.002, 1, false, folder);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "make_maps: %s\n", e.what());
    return 1;
  }
  return 0;
}

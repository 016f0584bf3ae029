#include "maps/place_map.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "common/paths.h"
#include "common/talpena_error.h"
#include "maps/canvas_sink.h"
#include "maps/layer_file.h"
#include "maps/layer_plot.h"
#include "maps/map_state.h"
#include "maps/plot.h"
#include "maps/projection.h"

namespace talpena {
namespace {

constexpr std::int16_t sinusoidal = 4;  // true to shape around its central meridian
constexpr double kmPerDegree = 111;
constexpr std::uint32_t placeColour = 0x0000FF, recordColour = 0x00A5FF;  // red, orange

/// Layers by the detail that a scale has room for. A map shows only records wholly within its
/// limits: these are wider than what is seen by the length of the longest record.
struct LayerSet {
  double upToKm;  ///< half the height
  float recordDegrees;
  std::array<const char*, 4> files;
};
constexpr std::array layerSets{
    LayerSet{250,
             1.1F,
             {"lakes_detail.tlp", "rivers_detail.tlp", "borders_detail.tlp", "coasts_detail.tlp"}},
    LayerSet{1e9,
             4.2F,
             {"lakes_world.tlp", "rivers_world.tlp", "borders_world.tlp", "coasts_world.tlp"}},
};

const LayerSet& CouchesPour(double halfHeightKm) {
  return halfHeightKm <= layerSets[0].upToKm ? layerSets[0] : layerSets[1];
}

double Proportion(const Canvas& canvas) {
  return static_cast<double>(canvas.LargeurPixels()) / std::max(1, canvas.HauteurPixels());
}

/// The projection around the place, with the limits within which layers are drawn.
MapState CarteAutour(const PlaceMap& map, double proportion) {
  const float record = CouchesPour(map.halfHeightKm).recordDegrees;
  const double up = map.halfHeightKm / kmPerDegree;
  MapState carte;
  carte.CodeProjection = sinusoidal;
  carte.LatNord = std::min(90.0F, map.latitude + static_cast<float>(up) + record);
  carte.LatSud = std::max(-90.0F, map.latitude - static_cast<float>(up) - record);
  const double farthest = std::min(89.0, std::abs(map.latitude) + up);
  const double aside =
      std::min(180.0, up * proportion / std::cos(farthest * std::acos(-1.0) / 180));
  carte.LonEst = map.longitude + static_cast<float>(aside) + record;
  carte.LonOuest = map.longitude - static_cast<float>(aside) - record;
  carte.MeridienCentralDeg = map.longitude;
  carte.MeridienCentral = radian(map.longitude);
  return carte;
}

void PoseEchelle(Canvas& canvas, const MapState& carte, const PlaceMap& map) {
  float x = 0, y = 0;
  Project(carte, radian(map.latitude), radian(map.longitude), x, y);
  const double halfWidth = map.halfHeightKm * Proportion(canvas);
  canvas.ChangeEchelle({x - halfWidth, y + map.halfHeightKm, 2 * halfWidth, -2 * map.halfHeightKm});
}

void TraceCouche(const MapState& carte, CanvasSink& sink, std::unique_ptr<InputFile> layer) {
  LayerPlot plot(carte, sink);
  LayerFile file(std::move(layer));
  for (LayerRecord record; file.Suivant(record);) {
    if (!plot.Garde(record)) continue;
    for (auto points = file.Points(); !points.empty(); points = file.Points())
      plot.Trace(record, points);
  }
}

void TraceCouches(Canvas& canvas, FileSystem& files, const std::string& folder,
                  const MapState& carte, const PlaceMap& map) {
  PageSink sink(canvas);
  for (const char* name : CouchesPour(map.halfHeightKm).files) {
    const std::string path = AvecSeparateur(folder) + name;
    canvas.Attributs = {};
    try {
      if (files.Existe(path)) TraceCouche(carte, sink, files.Ouvre(path));
    } catch (const TalpenaError&) {  // the place is shown all the same
    }
  }
}

/// Records in view; a file may have a million of them elsewhere.
void TraceEnregistrements(Canvas& canvas, const MapState& carte, const PlaceMap& map,
                          float diameter) {
  std::vector<float> lat, lon;
  for (std::size_t i = 0; i < map.latitudes.size(); ++i) {
    const float latitude = map.latitudes[i], longitude = map.longitudes[i];
    if (latitude < carte.LatSud || latitude > carte.LatNord) continue;
    if (longitude < carte.LonOuest || longitude > carte.LonEst) continue;
    lat.push_back(radian(latitude));
    lon.push_back(radian(longitude));
  }
  std::vector<float> X(lat.size()), Y(lat.size());
  ProjectPoints(carte, lat, lon, X, Y);
  PrepareSymboles(canvas);
  for (std::size_t i = 0; i < X.size(); ++i)
    PlotSymbol(canvas, X[i], Y[i], 1, diameter, recordColour, FillStyle::Solid);
}

/// The place has a ring around it, for those who do not tell the colours apart.
void TraceLieu(Canvas& canvas, const MapState& carte, const PlaceMap& map, float diameter) {
  float x = 0, y = 0;
  Project(carte, radian(map.latitude), radian(map.longitude), x, y);
  PrepareSymboles(canvas);
  PlotSymbol(canvas, x, y, 1, diameter, placeColour, FillStyle::Solid);
  PlotSymbol(canvas, x, y, 1, 2 * diameter, placeColour, FillStyle::Transparent);
}

}  // namespace

void TracePlaceMap(Canvas& canvas, FileSystem& files, const std::string& folder,
                   const PlaceMap& map) {
  constexpr double symbolsPerHeight = 24;
  const MapState carte = CarteAutour(map, Proportion(canvas));
  const auto diameter = static_cast<float>(2 * map.halfHeightKm / symbolsPerHeight);
  canvas.Cls();
  PoseEchelle(canvas, carte, map);
  TraceCouches(canvas, files, folder, carte, map);
  TraceEnregistrements(canvas, carte, map, diameter);
  TraceLieu(canvas, carte, map, diameter);
}

double DemiHauteurPour(double nearestKm) {
  constexpr double least = 60, most = 2000, margin = 1.25;
  return nearestKm < 0 ? least : std::clamp(nearestKm * margin, least, most);
}

}  // namespace talpena

#include "carto/raster_sheets.h"

#include <array>
#include <cmath>
#include <numbers>

#include "maps/projection.h"

namespace talpena {
namespace {

// clang-format off
constexpr std::array styles = {
    // map, detail, graticule, parallel of the scale bar
    RasterStyle{CarteRaster::Europe,           Detail::Continent, 10, 50},
    RasterStyle{CarteRaster::EuropeCentrale,   Detail::Region,     2, 50},
    RasterStyle{CarteRaster::Gaule,            Detail::Region,     2, 45},
    RasterStyle{CarteRaster::Belgique,         Detail::Region,     1, 50.5F},
    RasterStyle{CarteRaster::PaysBas,          Detail::Region,     1, 52},
    RasterStyle{CarteRaster::IlesBritanniques, Detail::Region,     2, 55},
    RasterStyle{CarteRaster::Iberie,           Detail::Region,     2, 40},
    RasterStyle{CarteRaster::Turquie,          Detail::Region,     2, 39},
    RasterStyle{CarteRaster::Afrique,          Detail::Continent, 10, 0},
    RasterStyle{CarteRaster::AsieEurope,       Detail::Continent, 10, 45},
    RasterStyle{CarteRaster::AsieOceanie,      Detail::Continent, 10, 0},
    RasterStyle{CarteRaster::Monde,            Detail::World,     15, 0},
    RasterStyle{CarteRaster::AmeriqueNord,     Detail::Continent, 10, 50},
    RasterStyle{CarteRaster::AmeriqueSud,      Detail::Continent, 10, -20},
};
// clang-format on

double Cosinus(double degrees) { return std::cos(degrees * std::numbers::pi / 180); }

/// Codes of the vector projections of the two types; both take their factor from the state.
std::int16_t CodeDe(const RasterRow& row) {
  constexpr std::int16_t equi = 6, stereo = 8;
  return row.type == RasterEqui ? equi : stereo;
}

MapRow LigneDe(const RasterRow& row, const RasterStyle& style) {
  MapRow drawn{};
  drawn.name = row.file.data();  // a literal
  drawn.title = "";
  drawn.detail = style.detail;
  drawn.code = CodeDe(row);
  drawn.barParallel = style.barParallel;
  drawn.barStretch = Cosinus(row.parallel) / Cosinus(style.barParallel);
  drawn.north = static_cast<float>(row.north);
  drawn.south = static_cast<float>(row.south);
  drawn.east = static_cast<float>(row.east);
  drawn.west = static_cast<float>(row.west);
  drawn.meridian = static_cast<float>(row.meridian);
  drawn.graticule = style.graticule;
  return drawn;
}

MapState EtatDe(const RasterRow& row, const MapRow& drawn) {
  MapState state;
  state.CodeProjection = static_cast<std::int16_t>(drawn.code);
  state.LatNord = drawn.north;
  state.LatSud = drawn.south;
  state.LonEst = drawn.east;
  state.LonOuest = drawn.west;
  state.MeridienCentralDeg = drawn.meridian;
  state.k6 = state.k8 = RasterDe(row, "").FacteurP;
  InitBoite(state);
  return state;
}

}  // namespace

std::span<const RasterStyle> StylesRaster() { return styles; }

MapSheet FeuilleRaster(const RasterStyle& style) {
  const RasterRow& row = LigneRaster(style.map);
  const MapRow drawn = LigneDe(row, style);
  return {drawn, EtatDe(row, drawn)};
}

}  // namespace talpena

#include "maps/raster/raster_map.h"

#include <array>
#include <cmath>

#include "common/msg_id_menus.h"
#include "common/paths.h"
#include "coords/datum.h"
#include "coords/faults.h"
#include "maps/figure.h"

namespace talpena {
namespace {

using Figure::A;

// The meridians of the Netherlands, the British Isles and Spain bear the signs that the pictures
// were made with. Held by RasterMap.MeridiansKeepTheirSigns.
// clang-format off
constexpr std::array cartesRaster = {
    // file           type          meridian parallel south   west       north     east    caption
    RasterRow{"europe.bmp",   RasterEqui,     15,   50, 35,       -12,      73,       46,       MsgId::MenuEurope},
    RasterRow{"centeuro.bmp", RasterStereo,   15,   45, 45.5,     5.5,      55.5,     24.5,     MsgId::MenuEuropeCentrale},
    RasterRow{"gaule.bmp",    RasterStereo,    3,   45, 41,       -5,       52,       10,       MsgId::MenuGaule},
    RasterRow{"belgium.bmp",  RasterStereo,    3,   45, 49.33427, 2.404762, 51.64105, 6.678574, MsgId::MenuBelgique},
    RasterRow{"nederla.bmp",  RasterStereo, -5.3,   45, 50.65,    3.3,      53.6,     7.5,      MsgId::MenuPaysBas},
    RasterRow{"britisle.bmp", RasterStereo, -4.5,   45, 49.5,     -11,      61,       2,        MsgId::MenuIlesBritanniques},
    RasterRow{"spain.bmp",    RasterStereo, -2.55,  45, 35.7,     -9.6,     44,       4.5,      MsgId::MenuIberie},
    RasterRow{"turkey.bmp",   RasterStereo, 35.5,   45, 35.5,     25.5,     42.5,     45.5,     MsgId::MenuTurquie},
    RasterRow{"africa.bmp",   RasterStereo,   15,   30, -37,      -19,      39,       53,       MsgId::MenuAfrique},
    RasterRow{"asieur.bmp",   RasterStereo,   81,   45, 3,        -19,      82,       180,      MsgId::MenuAsieEurope},
    RasterRow{"asiocea.bmp",  RasterStereo, -117,   45, -51,      54,       38,       180,      MsgId::MenuAsieOceanie},
    RasterRow{"world.bmp",    RasterStereo,    3,   45, -60,      -180,     88,       180,      MsgId::MenuMonde},
    RasterRow{"namer.bmp",    RasterEqui,   -117,   50, 13,       -180,     84,       -50,      MsgId::MenuAmeriqueNord},
    RasterRow{"samer.bmp",    RasterStereo,  -63,   45, -57,      -97,      15,       -29,      MsgId::MenuAmeriqueSud},
};
// clang-format on
static_assert(cartesRaster.size() == static_cast<std::size_t>(CarteRaster::AmeriqueSud) + 1);

}  // namespace

std::span<const RasterRow> CartesRaster() { return cartesRaster; }

const RasterRow& LigneRaster(CarteRaster carte) {
  return cartesRaster[static_cast<std::size_t>(carte)];
}

RasterMap RasterDe(const RasterRow& row, std::string_view folder) {
  const double factor = std::cos(EnRadians(row.parallel));
  return {AvecSeparateur(folder) + std::string(row.file),
          static_cast<float>(EnRadians(row.meridian)),
          static_cast<float>(row.type == RasterEqui ? A * factor : factor), row.type};
}

PointKm ProjetteRaster(const RasterMap& carte, PointDegres place) {
  const double phi = EnRadians(place.latitude);
  const double dl = EnRadians(place.longitude) - static_cast<double>(carte.MeridienCentral);
  const double P = static_cast<double>(carte.FacteurP);
  if (carte.TypeCarte == RasterEqui) return {dl * P / 1000, phi * A / 1000};
  return {dl * P * A / 1000, (P + 1) * A * std::tan(phi / 2) / 1000};
}

PointDegres InverseRaster(const RasterMap& carte, PointKm point) {
  const double x = point.X * 1000, y = point.Y * 1000;
  const double P = static_cast<double>(carte.FacteurP);
  const bool equi = carte.TypeCarte == RasterEqui;
  const double dl = Divise(x, equi ? P : P * A);
  const double phi = equi ? y / A : 2 * std::atan(y / ((P + 1) * A));
  return {EnDegres(phi), EnDegres(dl + static_cast<double>(carte.MeridienCentral))};
}

UserScale EchelleRaster(const RasterMap& carte, const RasterRow& row) {
  const PointKm southWest = ProjetteRaster(carte, {row.south, row.west});
  const PointKm northEast = ProjetteRaster(carte, {row.north, row.east});
  return {southWest.X, northEast.Y, northEast.X - southWest.X, southWest.Y - northEast.Y};
}

}  // namespace talpena

// The raster maps: pictures in the program's folder whose place on the earth is built in. Two
// cylinders on the sphere of the International semi-major axis, with a meridian and a factor of
// their own. Kilometres, Y upwards; latitudes and longitudes are decimal degrees.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/canvas.h"

namespace talpena {

/// The rows of CartesRaster, in their order: the entries of mnuEurope first.
enum class CarteRaster : std::uint8_t {
  Europe,
  EuropeCentrale,
  Gaule,
  Belgique,
  PaysBas,
  IlesBritanniques,
  Iberie,
  Turquie,
  Afrique,
  AsieEurope,
  AsieOceanie,
  Monde,
  AmeriqueNord,
  AmeriqueSud,
};

/// Types of projection, by their numbers.
inline constexpr std::int16_t RasterEqui = 1;    ///< parallels equally spaced
inline constexpr std::int16_t RasterStereo = 2;  ///< stereographic cylinder

/// One map as it is built in; degrees.
struct RasterRow {
  std::string_view file;  ///< of the picture, in the program's folder
  std::int16_t type;
  double meridian, parallel;
  double south, west, north, east;  ///< corners of the picture
  int caption;                      ///< base id of its menu entry
};

std::span<const RasterRow> CartesRaster();
const RasterRow& LigneRaster(CarteRaster carte);

/// The map on show. What a menu command sets, all of it or nothing.
struct RasterMap {
  std::string FichierCarte;   ///< path of the picture; "" before the first map
  float MeridienCentral = 0;  ///< radians
  float FacteurP = 0;         ///< type 1: a cos(parallel), metres; type 2: cos(parallel)
  std::int16_t TypeCarte = 0;
};

/// @param folder  the program's, with or without a separator behind it
RasterMap RasterDe(const RasterRow& row, std::string_view folder);

struct PointKm {
  double X = 0;
  double Y = 0;
};
struct PointDegres {
  double latitude = 0;
  double longitude = 0;
};

/// Forward. Longitudes are taken as they are: none is moved by a full turn. Never throws; of a
/// place that is none on earth the result is far off.
PointKm ProjetteRaster(const RasterMap& carte, PointDegres place);

/// Inverse. A map that was never set raises DivisionByZero (11).
PointDegres InverseRaster(const RasterMap& carte, PointKm point);

/// The user scale that the picture spans exactly.
UserScale EchelleRaster(const RasterMap& carte, const RasterRow& row);

}  // namespace talpena

// The built-in raster maps and their projections.
#include "maps/raster/raster_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "common/talpena_error.h"
#include "maps/projection.h"

namespace talpena {
namespace {

constexpr double perDegree = std::numbers::pi / 180;

RasterMap CarteDe(CarteRaster carte) { return RasterDe(LigneRaster(carte), "/app"); }

// clang-format off
struct PlaceCase {
  CarteRaster map;
  const char* path;
  std::int16_t type;
  PointDegres place;
  double X, Y;  ///< kilometres
};

// Expected: the formulas of the two cylinders on a sphere of 6378.388 km, by hand.
const PlaceCase places[] = {
    {CarteRaster::Europe,       "/app/europe.bmp",   1, {50, 25},   10 * perDegree * 6378.388 * std::cos(50 * perDegree), 50 * perDegree * 6378.388},
    {CarteRaster::Belgique,     "/app/belgium.bmp",  2, {50, 4},    1 * perDegree * 6378.388 * std::sqrt(0.5), (std::sqrt(0.5) + 1) * 6378.388 * std::tan(25 * perDegree)},
    {CarteRaster::Afrique,      "/app/africa.bmp",   2, {-30, 15},  0, -(std::cos(30 * perDegree) + 1) * 6378.388 * std::tan(15 * perDegree)},
    {CarteRaster::AsieOceanie,  "/app/asiocea.bmp",  2, {0, 180},   297 * perDegree * 6378.388 * std::sqrt(0.5), 0},
    {CarteRaster::AmeriqueNord, "/app/namer.bmp",    1, {0, -180},  -63 * perDegree * 6378.388 * std::cos(50 * perDegree), 0},
    {CarteRaster::IlesBritanniques, "/app/britisle.bmp", 2, {0, -4.5}, 0, 0},
};
// clang-format on

TEST(RasterMap, ForwardIsThatOfItsCylinder) {
  for (const PlaceCase& c : places) {
    SCOPED_TRACE(c.path);
    const RasterMap map = CarteDe(c.map);
    EXPECT_EQ(map.FichierCarte, c.path);
    EXPECT_EQ(map.TypeCarte, c.type);
    const PointKm point = ProjetteRaster(map, c.place);
    EXPECT_NEAR(point.X, c.X, 0.002);  // meridian and factor are kept in 32 bits
    EXPECT_NEAR(point.Y, c.Y, 0.002);
  }
}

TEST(RasterMap, InverseGivesThePlaceBack) {
  for (const RasterRow& row : CartesRaster()) {
    SCOPED_TRACE(row.file);
    const RasterMap map = RasterDe(row, "/app/");
    for (const PointDegres place :
         {PointDegres{row.south, row.west}, PointDegres{row.north, row.east},
          PointDegres{(row.south + row.north) / 2, row.west + 1}}) {
      const PointDegres back = InverseRaster(map, ProjetteRaster(map, place));
      EXPECT_NEAR(back.latitude, place.latitude, 1e-9);
      EXPECT_NEAR(back.longitude, place.longitude, 1e-9);
    }
  }
}

TEST(RasterMap, TheScaleSpansItsCornersWithYUpwards) {
  for (const RasterRow& row : CartesRaster()) {
    SCOPED_TRACE(row.file);
    const RasterMap map = RasterDe(row, "/app");
    const UserScale scale = EchelleRaster(map, row);
    const PointDegres northWest = InverseRaster(map, {scale.left, scale.top});
    const PointDegres southEast =
        InverseRaster(map, {scale.left + scale.width, scale.top + scale.height});
    EXPECT_GT(scale.width, 0);
    EXPECT_LT(scale.height, 0);
    EXPECT_NEAR(northWest.latitude, row.north, 1e-9);
    EXPECT_NEAR(northWest.longitude, row.west, 1e-9);
    EXPECT_NEAR(southEast.latitude, row.south, 1e-9);
    EXPECT_NEAR(southEast.longitude, row.east, 1e-9);
  }
}

// The pictures are drawn by the vector maps' projections with the factors of the raster maps.
TEST(RasterMap, AgreesWithTheVectorProjectionsOfItsTypeWithinTwoMetres) {
  for (const RasterRow& row : CartesRaster()) {
    SCOPED_TRACE(row.file);
    MapState vector;
    InitFacteurs(vector);
    vector.CodeProjection = row.type == RasterEqui ? 6 : 8;
    vector.k6 = vector.k8 = RasterDe(row, "/app").FacteurP;
    vector.LatNord = static_cast<float>(row.north);
    vector.LatSud = static_cast<float>(row.south);
    vector.LonEst = static_cast<float>(row.east);
    vector.LonOuest = static_cast<float>(row.west);
    vector.MeridienCentralDeg = static_cast<float>(row.meridian);
    InitProjection(vector);
    InitBoite(vector);
    const RasterMap map = RasterDe(row, "/app");
    for (double lat = row.south; lat <= row.north; lat += (row.north - row.south) / 4) {
      float X = 0, Y = 0;
      const double lon = (row.west + row.east) / 2 + 1;
      Project(vector, radian(static_cast<float>(lat)), radian(static_cast<float>(lon)), X, Y);
      const PointKm point = ProjetteRaster(map, {lat, lon});
      EXPECT_NEAR(point.X, static_cast<double>(X), 0.002);
      EXPECT_NEAR(point.Y, static_cast<double>(Y), 0.002);
    }
  }
}

TEST(RasterMap, MeridiansKeepTheirSigns) {
  EXPECT_FLOAT_EQ(CarteDe(CarteRaster::PaysBas).MeridienCentral,
                  static_cast<float>(-5.3 * perDegree));
  EXPECT_FLOAT_EQ(CarteDe(CarteRaster::IlesBritanniques).MeridienCentral,
                  static_cast<float>(-4.5 * perDegree));
  EXPECT_FLOAT_EQ(CarteDe(CarteRaster::Iberie).MeridienCentral,
                  static_cast<float>(-2.55 * perDegree));
}

TEST(RasterMap, LongitudesAreNotWrapped) {
  const RasterMap world = CarteDe(CarteRaster::Monde);
  const double turn = ProjetteRaster(world, {0, 190}).X - ProjetteRaster(world, {0, -170}).X;
  EXPECT_NEAR(turn, 360 * perDegree * 6378.388 * std::sqrt(0.5), 0.01);
}

TEST(RasterMap, AMapThatWasNeverSetHasNoInverse) {
  EXPECT_THROW(InverseRaster(RasterMap(), {1, 1}), TalpenaError);
}

}  // namespace
}  // namespace talpena

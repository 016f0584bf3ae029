// X and Y of exported rows.
#include "interchange/lambert_points.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "coords/datum.h"
#include "coords/lambert.h"
#include "coords/test_catalogue.h"

namespace talpena::test {
namespace {

class LambertPointsTest : public testing::Test {
 protected:
  LambertPointsTest() { state.Catalogue = CatalogueDesSources(); }
  std::int16_t Indice(const char* code) const { return ChercheDatum(state.Catalogue, code); }
  CoordState state;
};

struct PointCase {
  const char* name;
  const char* datum;
  float latitude, longitude;
  LambertPoint expected;
};

// clang-format off
// Expected: PROJ 9, +proj=lcc +lat_1=51.16666723333333 +lat_2=49.8333339 +lat_0=90
// +lon_0=4.367486666666666 +x_0=150000.013 +y_0=5400088.438 +ellps=intl, at the float's own value.
constexpr PointCase pointCases[] = {
    {"Mons",     "BEL72", 50.45F, 3.95F, {120349, 126594}},
    {"Arlon",    "BEL72", 49.68F, 5.81F, {254109, 41874}},
    {"Ghent",    "BEL72", 51.0F,  4.0F,  {124203, 187757}},
};
// clang-format on

TEST_F(LambertPointsTest, RowsOnBel72AreProjectedAsTheyAre) {
  LambertPoints points(state);
  for (const PointCase& c : pointCases) {
    EXPECT_EQ(points.Calcule(c.datum, c.latitude, c.longitude), c.expected) << c.name;
  }
  EXPECT_TRUE(points.DatumsInconnus().empty());
}

TEST_F(LambertPointsTest, RowsOnOtherDatumsAreMovedFirst) {
  LambertPoints points(state);
  for (const char* code : {"WGS84", "EUR-M", "OGB-M"}) {
    double latitude = 50.45F, longitude = 3.95F, x = 0, y = 0;
    ConvertitDatum(state.Catalogue, latitude, longitude, 0, latitude, longitude, Indice(code),
                   Indice("BEL72"));
    LatLonVersLambertBelge(latitude, longitude, x, y);
    EXPECT_EQ(points.Calcule(code, 50.45F, 3.95F), (LambertPoint{Arrondi32(x), Arrondi32(y)}))
        << code;
    EXPECT_EQ(state.DatumSpherique, Indice(code)) << "the side effect stays";
  }
}

TEST_F(LambertPointsTest, CodesAreReadAsTheyAreWrittenWithoutTheirBlanks) {
  LambertPoints points(state);
  state.DatumSpherique = 3;
  EXPECT_NE(points.Calcule("NTF  ", 50.45F, 3.95F), LambertPoint{});
  EXPECT_EQ(state.DatumSpherique, Indice("NTF"));
  EXPECT_EQ(points.Calcule("wgs84", 50.45F, 3.95F), LambertPoint{});
  EXPECT_EQ(points.Calcule("", 50.45F, 3.95F), LambertPoint{});
  EXPECT_EQ(points.Calcule("     ", 50.45F, 3.95F), LambertPoint{});
  EXPECT_EQ(state.DatumSpherique, Indice("NTF")) << "unknown codes leave it alone";
  EXPECT_EQ(points.DatumsInconnus(), (std::vector<std::string>{"wgs84", ""}));
}

TEST_F(LambertPointsTest, ACatalogueWithoutBel72IsTold) {
  std::erase_if(state.Catalogue.Datums, [](const DatumRecord& d) { return d.code == "BEL72"; });
  state.Catalogue.DatumsSpeciaux.fill(0);
  LambertPoints points(state);
  EXPECT_EQ(points.Calcule("WGS84", 50.45F, 3.95F), LambertPoint{});
  EXPECT_EQ(points.DatumsInconnus(), std::vector<std::string>{"BEL72"});
  EXPECT_EQ(state.DatumSpherique, Indice("WGS84"));
}

TEST_F(LambertPointsTest, APointBeyondThePoleFails) {
  LambertPoints points(state);
  EXPECT_THROW(points.Calcule("BEL72", 91, 4), TalpenaError);
}

}  // namespace
}  // namespace talpena::test

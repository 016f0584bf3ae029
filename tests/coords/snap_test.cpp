#include "coords/snap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "common/numbers.h"
#include "common/talpena_error.h"

namespace talpena {
namespace {

TEST(CentreDeMaille, SnapsDownwardsOnTheNegativeSide) {
  EXPECT_DOUBLE_EQ(CentreDeMaille(-0.1, 0.5), -0.25);
  EXPECT_DOUBLE_EQ(CentreDeMaille(0.1, 0.5), 0.25);
  EXPECT_DOUBLE_EQ(CentreDeMaille(50.6, 1), 50.5);
  EXPECT_DOUBLE_EQ(CentreDeMaille(-50.6, 1), -50.5);
  EXPECT_DOUBLE_EQ(CentreDeMaille(-51, 1), -50.5);
}

TEST(CentreDeMaille, LeavesAnAxisAlone) {
  EXPECT_EQ(CentreDeMaille(50.123456789, 999), 50.123456789);
}

TEST(CentreDeMaille, RefusesNoMesh) { EXPECT_THROW(CentreDeMaille(1, 0), TalpenaError); }

TEST(CentreEnGrades, CentresLongitudesOnMultiplesOfFourTenths) {
  // 55.55 gr lies in the cell that starts at 55.4; 2.1 gr is nearest to 2.0.
  double latitude = 55.55 * 0.9, longitude = 2.1 * 0.9 + 2.337222;
  CentreEnGrades(latitude, longitude);
  EXPECT_NEAR(latitude, 55.5 * 0.9, 1e-12);
  EXPECT_NEAR(longitude, 2.0 * 0.9 + 2.337222, 1e-12);
}

TEST(CentreEnGrades, StartsLatitudeCellsOnMultiplesOfTwoTenths) {
  double latitude = -0.05 * 0.9, longitude = -0.3 * 0.9 + 2.337222;
  CentreEnGrades(latitude, longitude);
  EXPECT_NEAR(latitude, -0.1 * 0.9, 1e-12);
  EXPECT_NEAR(longitude, -0.4 * 0.9 + 2.337222, 1e-12);
}

struct MeshRow {
  std::int16_t maille;
  const char* given;
  const char* snapped;
};

TEST(AjusteGrille, KnowsSevenMeshes) {
  const MeshRow rows[] = {
      {1, "ES1234567890", "ES1234967849"}, {2, "ES1234567890", "ES1249967499"},
      {3, "ES1234567890", "ES1255567555"}, {3, "ES1534547890", "ES1755547555"},
      {4, "ES1234567890", "ES1499964999"}, {5, "ES1234567890", "ES1000070000"},
      {5, "ES2034587890", "ES3000090000"}, {6, "ES1234567890", "ES2555575555"},
      {6, "ES5000049999", "ES7555525555"}, {7, "ES1234567890", "ES4999949999"},
  };
  for (const MeshRow& row : rows) {
    std::string text = row.given;
    EXPECT_TRUE(AjusteGrille(text, row.maille)) << row.given;
    EXPECT_EQ(text, row.snapped) << row.maille << ' ' << row.given;
  }
}

TEST(AjusteGrille, CompletesFirst) {
  std::string text = "SU 16";
  EXPECT_TRUE(AjusteGrille(text, 1));
  EXPECT_EQ(text, "SU1494964949");
}

TEST(AjusteGrille, RefusesWhatCannotBeCompleted) {
  for (const char* given : {"SU123", "SU", "", "SU123456789012", "SU12A45678", "S POLAR REGION"}) {
    std::string text = given;
    EXPECT_FALSE(AjusteGrille(text, 4)) << given;
    EXPECT_EQ(text, given);
  }
}

double ParMasque(double value) { return Val(Format(value, "+##.#####;-##.#####")); }

TEST(CinqDecimales, IsWhatTheMaskLeaves) {
  for (const double value : {0.0, -0.0, 0.000004999, 0.000005, -0.000005, 0.015625, -0.015625,
                             50.123455, 179.999995, 1e15 + 0.3, -1e300, 999.0, 0.5}) {
    EXPECT_EQ(CinqDecimales(value), ParMasque(value)) << value;
    EXPECT_FALSE(std::signbit(CinqDecimales(value)) && CinqDecimales(value) == 0) << value;
  }
  std::mt19937 random(7);
  std::uniform_real_distribution<double> degrees(-180, 180);
  std::uniform_int_distribution<int> eighths(-180 * 64, 180 * 64);
  for (int i = 0; i < 100000; ++i) {
    const double value = degrees(random);
    ASSERT_EQ(CinqDecimales(value), ParMasque(value)) << value;
    const double half = eighths(random) / 64.0;  // often an exact half of the sixth decimal
    ASSERT_EQ(CinqDecimales(half), ParMasque(half)) << half;
    const double near = std::round(value * 1e5) / 1e5 + 5e-6;  // next to a half
    ASSERT_EQ(CinqDecimales(near), ParMasque(near)) << near;
  }
}

}  // namespace
}  // namespace talpena

#include "interchange/isolated_points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <vector>

namespace talpena {
namespace {

struct Point {
  double latitude;
  double longitude;
};

/// On the same sphere, by another formula (haversine).
double Km(Point a, Point b) {
  constexpr double radians = 3.14159265358979323846 / 180;
  const double north = std::sin((b.latitude - a.latitude) * radians / 2);
  const double east = std::sin((b.longitude - a.longitude) * radians / 2);
  const double h =
      north * north + std::cos(a.latitude * radians) * std::cos(b.latitude * radians) * east * east;
  return 2 * 6371 * std::asin(std::sqrt(std::min(1.0, h)));
}

/// The names that are isolated, as they were told.
class Watched {
 public:
  explicit Watched(double km)
      : points(km, [this](IsolatedPoints::Name name, bool alone) {
          alone ? static_cast<void>(names.insert(name)) : static_cast<void>(names.erase(name));
        }) {}
  std::set<IsolatedPoints::Name> names;
  IsolatedPoints points;
};

constexpr double degreeKm = 6371 * 3.14159265358979323846 / 180;

TEST(IsolatedPoints, AFirstPointIsAloneUntilAnotherComesNear) {
  Watched w(500);
  w.points.AjouteNomme(50, 4, 0);
  EXPECT_EQ(w.names, (std::set<IsolatedPoints::Name>{0}));
  w.points.AjouteNomme(50 + 490 / degreeKm, 4, 1);
  EXPECT_TRUE(w.names.empty());
  EXPECT_EQ(w.points.Nombre(), 0);
}

TEST(IsolatedPoints, StayAloneBeyondTheDistance) {
  Watched w(500);
  w.points.AjouteNomme(50, 4, 0);
  w.points.AjouteNomme(50 + 501 / degreeKm, 4, 1);
  EXPECT_EQ(w.names.size(), 2U);
}

TEST(IsolatedPoints, ThoseOfTheTableCountAndAreNeverTold) {
  Watched w(500);
  w.points.Ajoute(50, 4);
  w.points.AjouteNomme(51, 5, 0);
  w.points.AjouteNomme(-33, 151, 1);
  EXPECT_EQ(w.names, (std::set<IsolatedPoints::Name>{1}));
  w.points.Ajoute(-34, 150);
  EXPECT_TRUE(w.names.empty());
}

TEST(IsolatedPoints, AreNeighboursAcrossTheDateLineAndThePole) {
  Watched w(500);
  w.points.AjouteNomme(-17, 179.9, 0);
  w.points.AjouteNomme(-17, -179.9, 1);
  w.points.AjouteNomme(89, 10, 2);
  w.points.AjouteNomme(89, -170, 3);
  EXPECT_TRUE(w.names.empty());
}

TEST(IsolatedPoints, TheSamePlaceTwiceIsNotAlone) {
  Watched w(500);
  w.points.AjouteNomme(0, 0, 0);
  w.points.AjouteNomme(0, 0, 1);
  EXPECT_TRUE(w.names.empty());
}

// Against the comparison of every pair; those near the limit are not asked, since of points that
// lie close together only one is kept.
TEST(IsolatedPoints, AgreeWithTheComparisonOfAllPairs) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> any(-1, 1);
  for (const int count : {20, 200, 700}) {
    Watched w(500);
    std::vector<Point> points;
    for (int i = 0; i < count; ++i) {
      const Point p{std::asin(any(random)) * 180 / 3.14159265358979, any(random) * 180};
      points.push_back(p);
      w.points.AjouteNomme(p.latitude, p.longitude, i);
    }
    for (int i = 0; i < count; ++i) {
      double nearest = 1e9;
      for (int k = 0; k < count; ++k) {
        if (k != i)
          nearest = std::min(nearest, Km(points[static_cast<std::size_t>(i)],
                                         points[static_cast<std::size_t>(k)]));
      }
      if (std::fabs(nearest - 500) < 15) continue;
      EXPECT_EQ(w.names.contains(i), nearest > 500) << count << " " << i << " " << nearest;
    }
  }
}

TEST(IsolatedPoints, KnowWhetherAnyIsNear) {
  IsolatedPoints points(100);
  EXPECT_FALSE(points.APresDe(50, 4));
  points.Ajoute(50, 4);
  EXPECT_TRUE(points.APresDe(50, 4));
  EXPECT_TRUE(points.APresDe(50 + 98 / degreeKm, 4));
  EXPECT_FALSE(points.APresDe(50 + 102 / degreeKm, 4));
}

}  // namespace
}  // namespace talpena

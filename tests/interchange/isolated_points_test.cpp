#include "interchange/isolated_points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <vector>

#include "interchange/known_area.h"

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

TEST(IsolatedPoints, TheOnlyPointHasNoOthers) {
  Watched w(500);
  w.points.AjouteNomme(SurSphere(50, 4), 0);
  EXPECT_TRUE(w.names.empty());
  w.points.Ajoute(SurSphere(-33, 151));
  EXPECT_EQ(w.names, (std::set<IsolatedPoints::Name>{0}));
}

TEST(IsolatedPoints, AreAloneUntilAnotherComesNear) {
  Watched w(500);
  w.points.Ajoute(SurSphere(-33, 151));
  w.points.AjouteNomme(SurSphere(50, 4), 0);
  EXPECT_EQ(w.names, (std::set<IsolatedPoints::Name>{0}));
  w.points.AjouteNomme(SurSphere(50 + 490 / degreeKm, 4), 1);
  EXPECT_TRUE(w.names.empty());
  EXPECT_EQ(w.points.Nombre(), 0);
}

TEST(IsolatedPoints, StayAloneBeyondTheDistance) {
  Watched w(500);
  w.points.AjouteNomme(SurSphere(50, 4), 0);
  w.points.AjouteNomme(SurSphere(50 + 501 / degreeKm, 4), 1);
  EXPECT_EQ(w.names.size(), 2U);
}

TEST(IsolatedPoints, ThoseOfTheTableCountAndAreNeverTold) {
  Watched w(500);
  w.points.Ajoute(SurSphere(50, 4));
  w.points.AjouteNomme(SurSphere(51, 5), 0);
  w.points.AjouteNomme(SurSphere(-33, 151), 1);
  EXPECT_EQ(w.names, (std::set<IsolatedPoints::Name>{1}));
  w.points.Ajoute(SurSphere(-34, 150));
  EXPECT_TRUE(w.names.empty());
}

TEST(IsolatedPoints, AreNeighboursAcrossTheDateLineAndThePole) {
  Watched w(500);
  w.points.AjouteNomme(SurSphere(-17, 179.9), 0);
  w.points.AjouteNomme(SurSphere(-17, -179.9), 1);
  w.points.AjouteNomme(SurSphere(89, 10), 2);
  w.points.AjouteNomme(SurSphere(89, -170), 3);
  EXPECT_TRUE(w.names.empty());
}

TEST(IsolatedPoints, TheSamePlaceTwiceIsNotAlone) {
  Watched w(500);
  w.points.AjouteNomme(SurSphere(0, 0), 0);
  w.points.AjouteNomme(SurSphere(0, 0), 1);
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
      w.points.AjouteNomme(SurSphere(p.latitude, p.longitude), i);
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

TEST(KnownArea, HoldsWhatIsNearAndNotWhatIsFar) {
  KnownArea area;
  EXPECT_TRUE(area.EstVide());
  EXPECT_FALSE(area.Contient(SurSphere(50, 4)));
  area.Ajoute(SurSphere(50, 4));
  EXPECT_FALSE(area.EstVide());
  for (int i = 0; i < 360; i += 20) {
    const double north = std::cos(i * 0.01745) / degreeKm;
    const double east = std::sin(i * 0.01745) / degreeKm / std::cos(50 * 0.01745);
    EXPECT_TRUE(area.Contient(SurSphere(50 + 58 * north, 4 + 58 * east))) << i;
    EXPECT_FALSE(area.Contient(SurSphere(50 + 213 * north, 4 + 213 * east))) << i;
  }
}

TEST(KeySet, KnowsWhatWasPutIn) {
  KeySet keys;
  EXPECT_FALSE(keys.Contient(0));
  std::set<std::uint64_t> expected;
  std::mt19937_64 random(3);
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t key = random() % 30000;
    EXPECT_EQ(keys.Ajoute(key), expected.insert(key).second);
  }
  for (std::uint64_t key = 0; key < 30000; ++key) {
    ASSERT_EQ(keys.Contient(key), expected.contains(key)) << key;
  }
}

}  // namespace
}  // namespace talpena

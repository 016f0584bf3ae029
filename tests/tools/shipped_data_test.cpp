// What the map data hold of the earth's waters, ice and inner borders.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "carto/geo_source.h"

namespace talpena {
namespace {

constexpr double kmPerDegree = 111.2;

GeoData Echelle(const char* name) {
  return LitDonnees(std::string(TALPENA_SOURCE_DIR "/data/maps/") + name);
}

double KmEst(double latitude) { return kmPerDegree * std::cos(latitude * std::numbers::pi / 180); }

double Km2(const GeoFeature& area) {
  const Frame frame = CadreDe(area.parts.front());
  double degrees = std::abs(Aire(area.parts.front()));
  for (std::size_t i = 1; i < area.parts.size(); ++i) degrees -= std::abs(Aire(area.parts[i]));
  return degrees * kmPerDegree * KmEst((frame.bottom + frame.top) / 2);
}

/// Areas that are asked for many points, each behind its frame.
class Areas {
 public:
  explicit Areas(const std::vector<GeoFeature>& features) : features_(features) {
    for (const GeoFeature& area : features) frames_.push_back(CadreDe(area.parts.front()));
  }
  bool Contiennent(PlanePoint p) const {
    for (std::size_t i = 0; i < frames_.size(); ++i) {
      if (frames_[i].Contient(p) && EstDedans(features_[i].parts, p)) return true;
    }
    return false;
  }

 private:
  const std::vector<GeoFeature>& features_;
  std::vector<Frame> frames_;
};

std::vector<PlanePoint> PointsDans(const GeoFeature& area) {
  constexpr int lanes = 12;
  const Frame frame = CadreDe(area.parts.front());
  std::vector<PlanePoint> points;
  for (int i = 0; i < lanes * lanes; ++i) {
    const PlanePoint p{frame.left + (frame.right - frame.left) * (i % lanes + 0.5) / lanes,
                       frame.bottom + (frame.top - frame.bottom) * (i / lanes + 0.5) / lanes};
    if (EstDedans(area.parts, p)) points.push_back(p);
  }
  return points;
}

/// Lakes of one scale that are for the most part dry land at the other, named by their middle.
std::vector<std::string> LacsASec(const GeoData& from, const GeoData& other) {
  constexpr double leastKm2 = 100;
  const Areas lakes(other.lakes), land(other.land);
  std::vector<std::string> dry;
  for (const GeoFeature& lake : from.lakes) {
    if (Km2(lake) < leastKm2) continue;
    const std::vector<PlanePoint> points = PointsDans(lake);
    std::size_t wet = 0;
    for (const PlanePoint p : points) wet += lakes.Contiennent(p) ? 1U : 0U;
    if (wet * 5 >= points.size() * 2) continue;
    for (const PlanePoint p : points)
      wet += !lakes.Contiennent(p) && !land.Contiennent(p) ? 1U : 0U;
    if (wet * 5 >= points.size() * 2) continue;
    const Frame frame = CadreDe(lake.parts.front());
    dry.push_back(std::to_string((frame.left + frame.right) / 2) + " E " +
                  std::to_string((frame.bottom + frame.top) / 2) + " N, " +
                  std::to_string(Km2(lake)) + " km2");
  }
  return dry;
}

TEST(ShippedData, HaveTheSameGreatLakesAtBothScales) {
  const GeoData small = Echelle("scale_50m.geo"), large = Echelle("scale_10m.geo");
  EXPECT_EQ(LacsASec(small, large), std::vector<std::string>{}) << "dry on maps of regions";
  EXPECT_EQ(LacsASec(large, small), std::vector<std::string>{}) << "dry on maps of the world";
}

TEST(ShippedData, HaveTheLakesBehindDikes) {
  const GeoData large = Echelle("scale_10m.geo");
  const Areas lakes(large.lakes);
  EXPECT_TRUE(lakes.Contiennent({5.35, 52.85})) << "IJsselmeer";
  EXPECT_TRUE(lakes.Contiennent({5.2, 52.53})) << "Markermeer";
  EXPECT_FALSE(lakes.Contiennent({5.6, 52.5})) << "Flevoland";
}

double KmAuSegment(PlanePoint p, PlanePoint a, PlanePoint b) {
  const double east = KmEst(p.y), ax = (a.x - p.x) * east, ay = (a.y - p.y) * kmPerDegree;
  const double dx = (b.x - a.x) * east, dy = (b.y - a.y) * kmPerDegree;
  const double length = dx * dx + dy * dy;
  const double t = length == 0 ? 0 : std::clamp(-(ax * dx + ay * dy) / length, 0.0, 1.0);
  return std::hypot(ax + t * dx, ay + t * dy);
}

double KmALaLigne(const std::vector<GeoFeature>& lines, PlanePoint p) {
  double nearest = 1e9;
  for (const GeoFeature& feature : lines) {
    for (const Line& line : feature.parts) {
      for (std::size_t i = 1; i < line.size(); ++i)
        nearest = std::min(nearest, KmAuSegment(p, line[i - 1], line[i]));
    }
  }
  return nearest;
}

// clang-format off
struct RiverCase { const char* name; PlanePoint place; double mostKm; };

// The places are bridges in these towns, after topographic maps.
constexpr RiverCase riverCases[] = {
    {"Meuse, Dinant",           {4.911, 50.260},  1},
    {"Lys, Kortrijk",           {3.266, 50.830},  1},
    {"Loire, Orleans",          {1.905, 47.897},  0.5},
    {"Lot, Cahors",             {1.435, 44.449},  2.5},
    {"Tarn, Millau",            {3.081, 44.102},  0.5},
    {"Duero, Soria",            {-2.457, 41.767}, 1},
    {"Tajo, Toledo",            {-4.021, 39.857}, 1.5},
    {"Ebro, Zaragoza",          {-0.877, 41.660}, 1},
    {"Guadiana, Badajoz",       {-6.972, 38.885}, 1.5},
    {"Guadiana, Alcoutim",      {-7.468, 37.472}, 1},
    {"Severn, Shrewsbury",      {-2.750, 52.712}, 1.5},
    {"Tyne, Hexham",            {-2.099, 54.977}, 1},
    {"Trent, Nottingham",       {-1.145, 52.938}, 1},
    {"Neckar, Heidelberg",      {8.710, 49.412},  0.5},
    {"Adige, Trento",           {11.115, 46.070}, 0.5},
    {"Sebou, Fes",              {-4.930, 34.070}, 1.5},
    {"Oum Er-Rbia, Kasba Tadla",{-6.267, 32.600}, 1},
};
// clang-format on

TEST(ShippedData, HaveRiversOfRegionsInTheirPlaces) {
  const GeoData large = Echelle("scale_10m.geo");
  for (const RiverCase& c : riverCases)
    EXPECT_LT(KmALaLigne(large.rivers, c.place), c.mostKm) << c.name;
}

TEST(ShippedData, HaveTheIceShelvesBetweenLandAndFront) {
  for (const char* scale : {"scale_50m.geo", "scale_10m.geo"}) {
    SCOPED_TRACE(scale);
    const GeoData data = Echelle(scale);
    const Areas shelves(data.shelves), land(data.land);
    for (const PlanePoint place :
         {PlanePoint{-175, -81}, {-60, -79}, {71.5, -69.5}, {-62, -67.5}}) {
      EXPECT_TRUE(shelves.Contiennent(place)) << place.x << ' ' << place.y;
      EXPECT_FALSE(land.Contiennent(place)) << place.x << ' ' << place.y;
    }
    EXPECT_FALSE(shelves.Contiennent({-175, -76})) << "the Ross Sea";
    EXPECT_FALSE(shelves.Contiennent({0, -80})) << "inland";
  }
}

TEST(ShippedData, HaveTheBordersOfStatesAndProvinces) {
  for (const char* scale : {"scale_50m.geo", "scale_10m.geo"}) {
    const GeoData data = Echelle(scale);
    const PlanePoint places[] = {{-100, 37}, {-109.05, 39}, {-110, 53}, {-114.04, 39}};
    for (const PlanePoint place : places)
      EXPECT_LT(KmALaLigne(data.provinces, place), 6) << scale << ' ' << place.x << ' ' << place.y;
    EXPECT_GT(KmALaLigne(data.provinces, {-98, 38.5}), 100) << "in the middle of Kansas";
  }
}

}  // namespace
}  // namespace talpena

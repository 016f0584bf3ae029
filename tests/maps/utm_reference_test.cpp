// The grid reference of the status bar, against GeographicLib where its series suffices.
#include <gtest/gtest.h>

#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/TransverseMercator.hpp>
#include <cmath>
#include <limits>
#include <string>

#include "common/talpena_error.h"
#include "coords/proj_oracle.h"
#include "maps/grid_overlay.h"
#include "maps/map_state.h"

namespace talpena {
namespace {

struct Reference {
  float north = -1, east = -1;
  std::string text = "before";
};

Reference Utm(float latitude, float longitude) {
  MapState carte;
  InitUtm(carte);
  Reference r;
  UTM(carte, latitude, longitude, r.north, r.east, r.text);
  return r;
}

/// Central meridian by the east of two places a hair apart in the zone.
double Meridien(float latitude, float longitude) {
  const double degree = 111320 * 0.9996 * std::cos(latitude * M_PI / 180);
  return longitude - (Utm(latitude, longitude).east - 500000) / degree;
}

TEST(UtmReference, HasConstantsOfTheInternationalEllipsoid) {
  MapState carte;
  InitUtm(carte);
  EXPECT_NEAR(carte.utm.c, 6399936.608, 0.001);
  EXPECT_NEAR(carte.utm.e2, 0.00676817, 1e-8);
  EXPECT_NEAR(carte.utm.A, 6367654.5, 0.1);  // the mean radius of the meridian
  EXPECT_NEAR(carte.utm.B, -16107.03, 0.01);
  EXPECT_NEAR(carte.utm.C, 16.976, 0.001);
  EXPECT_NEAR(carte.utm.D, -0.0223, 0.0001);
}

TEST(UtmReference, HasALeadingBlankAndTwoTriplesOfDigits) {
  EXPECT_EQ(Utm(48.8F, 2.3F).text, " 31U DQ 485 055");
  EXPECT_EQ(Utm(-33.9F, 18.4F).text, " 34H BH 596 458");
  EXPECT_EQ(Utm(0, 3).text, " 31N EA 000 000");
}

TEST(UtmReference, EndsAtEightyFourNorth) {
  EXPECT_EQ(Utm(84, 10).text, " 33X VP 417 309");
  const Reference beyond = Utm(84.5F, 10);
  EXPECT_EQ(beyond.text, "");
  EXPECT_EQ(beyond.north, 0);
  EXPECT_EQ(beyond.east, 0);
}

TEST(UtmReference, EndsAtEightySouth) {
  EXPECT_EQ(Utm(-80, 10).text, " 32C NS 193 179");
  const Reference beyond = Utm(-80.5F, 10);
  EXPECT_EQ(beyond.text, "");
  EXPECT_EQ(beyond.north, 0);
  EXPECT_EQ(beyond.east, 0);
}

TEST(UtmReference, WidensTheZonesOfNorwayAndSvalbard) {
  const struct {
    const char* name;
    float latitude, longitude;
    double meridian;
  } places[] = {
      {"Bergen", 60, 5, 9},
      {"its western edge", 56, 3, 9},
      {"its eastern edge", 62, 11.9F, 9},
      {"south of it", 55.9F, 5, 3},
      {"north of it", 63, 5, 3},
      {"west of it", 60, 2.9F, 3},
      {"east of it", 60, 12, 15},
      {"Svalbard 31", 78, 8.9F, 3},
      {"Svalbard 33", 78, 9, 15},
      {"Svalbard 33, east", 72, 20.9F, 15},
      {"Svalbard 35", 78, 21, 27},
      {"Svalbard 37", 78, 33, 39},
      {"Svalbard 37, east", 78, 41.9F, 39},
      {"east of them", 78, 42, 45},
      {"west of them", 78, -0.1F, -3},
      {"south of them", 71.9F, 8, 9},
  };
  for (const auto& p : places) {
    SCOPED_TRACE(p.name);
    EXPECT_NEAR(Meridien(p.latitude, p.longitude), p.meridian, 0.1);
  }
  EXPECT_EQ(Utm(60, 5).text, " 32V KM 770 583");
}

TEST(UtmReference, BringsTheZoneOfTheDateLineBack) {
  EXPECT_EQ(Utm(50, 180).text, Utm(50, -180).text);
  EXPECT_EQ(Utm(50, 180).text.substr(0, 3), " 1U");
  EXPECT_EQ(Utm(50, 200).text.substr(0, 3), " 4U");
  EXPECT_EQ(Utm(50, 179.9F).text.substr(0, 4), " 60U");
  EXPECT_EQ(Utm(50, -0.1F).text.substr(0, 4), " 30U");
}

TEST(UtmReference, NamesTheBands) {
  const std::string bands = "CDEFGHJKLMNPQRSTUVWX";
  for (std::size_t i = 0; i < bands.size(); ++i) {
    const float middle = -76 + 8 * static_cast<float>(i);
    EXPECT_EQ(Utm(middle, 3).text.substr(3, 1), bands.substr(i, 1)) << middle;
  }
  EXPECT_EQ(Utm(82, 3).text.substr(3, 1), "X");  // the twelve degrees of the last
}

/// What the first term of the east lacks: an arc sine is taken for its argument.
double Manque(double latitude, double distance) {
  const double a = 6378388, b = 6356911.9461279465, ep2 = (a * a - b * b) / (b * b);
  const double cosine = std::cos(latitude * M_PI / 180);
  const double N = a * a / b / std::sqrt(1 + ep2 * cosine * cosine);
  const double u = cosine * std::sin(distance * M_PI / 180);
  const auto term = [](double angle) { return std::log(std::tan(M_PI / 4 + angle / 2)); };
  return 0.9996 * N * (term(std::asin(u)) - term(u));
}

const GeographicLib::TransverseMercator& International() {
  static const GeographicLib::TransverseMercator projection(6378388, 1.0 / 297, 0.9996);
  return projection;
}

// Metres: the north loses half a metre to its 32 bits, the rest are the terms that are left out.
TEST(UtmReference, AgreesWithGeographicLibButForTheFirstTermOfTheEast) {
  for (const test::Point& p : test::PointsAuHasard(-80, 84, -3, 3, 10000)) {
    const auto latitude = static_cast<float>(p.latitude);
    const auto longitude = static_cast<float>(p.longitude + 33);
    if (latitude >= 72) continue;
    double x = 0, y = 0;
    International().Forward(33, latitude, longitude, x, y);
    const Reference ours = Utm(latitude, longitude);
    const double lacks = Manque(latitude, longitude - 33.0);
    EXPECT_NEAR(ours.east + lacks, x + 500000, 1.5) << latitude << ' ' << longitude;
    EXPECT_NEAR(ours.north, y + (latitude < 0 ? 1e7 : 0), 1.5) << latitude << ' ' << longitude;
    EXPECT_LT(std::abs(lacks), 170);
  }
}

/// The same reference as GeographicLib writes it, of our own north and east.
std::string TexteMgrs(float latitude, float longitude, const Reference& r) {
  const int zone = static_cast<int>(std::floor((longitude + 180) / 6)) + 1;
  std::string text;
  GeographicLib::MGRS::Forward(zone, latitude >= 0, r.east, r.north, latitude, 3, text);
  return " " + std::to_string(zone) + text.substr(2, 1) + " " + text.substr(3, 2) + " " +
         text.substr(5, 3) + " " + text.substr(8, 3);  // its zone has two digits always
}

TEST(UtmReference, WritesWhatGeographicLibWrites) {
  int told = 0;
  for (const test::Point& p : test::PointsAuHasard(-79.9, 71.9, -179.9, 179.9, 20000)) {
    const auto latitude = static_cast<float>(p.latitude),
               longitude = static_cast<float>(p.longitude);
    if (latitude >= 56 && latitude < 64 && longitude >= 3 && longitude < 12) continue;
    const Reference r = Utm(latitude, longitude);
    // At a band's edge the two take the letter by another digit of the latitude.
    if (std::abs(std::remainder(latitude, 8.0F)) < 1e-4) continue;
    EXPECT_EQ(r.text, TexteMgrs(latitude, longitude, r)) << latitude << ' ' << longitude;
    ++told;
  }
  EXPECT_GT(told, 19000);
}

TEST(UtmReference, EndsForEveryPosition) {
  constexpr float infinite = std::numeric_limits<float>::infinity();
  for (const float longitude : {1e10F, -1e30F, 3e38F, infinite, -infinite, std::nanf("")}) {
    EXPECT_THROW(Utm(50, longitude), TalpenaError) << longitude;
  }
  EXPECT_THROW(Utm(std::nanf(""), 3), TalpenaError);
  EXPECT_EQ(Utm(infinite, 3).text, "");
  EXPECT_EQ(Utm(-infinite, 3).text, "");
}

}  // namespace
}  // namespace talpena

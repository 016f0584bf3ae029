// The point of a place as its table stores it.
#include "gazetteer/place_point.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace talpena {
namespace {

struct PointCase {
  const char* name;
  Value latitude, longitude;
  std::int16_t type;
  std::optional<PlacePoint> expected;
};

const PointCase pointCases[] = {
    {"decimal degrees", 50.5, -4.25, 1, PlacePoint{50.5, -4.25}},
    {"as texts", "50.5", "-4,25", 1, PlacePoint{50.5, -4.25}},
    {"DDMMSS", std::int64_t{503015}, std::int64_t{-41500}, 0, PlacePoint{50.504166667, -4.25}},
    {"DDMMSS without degrees", std::int64_t{-1234}, std::int64_t{0}, 0,
     PlacePoint{-0.209444444, 0}},
    {"DDMMSS as texts", "503015", "41500", 0, PlacePoint{50.504166667, 4.25}},
    {"Null", Value(), 4.0, 1, {}},
    {"blank", " ", 4.0, 1, {}},
    {"words", "north", 4.0, 1, {}},
    {"a number with words", "50.5 N", 4.0, 1, {}},
    {"beyond the pole", 90.5, 4.0, 1, {}},
    {"beyond the half circle", 50.0, 180.5, 1, {}},
    {"sixty minutes", std::int64_t{506000}, std::int64_t{41500}, 0, {}},
    {"sixty seconds", std::int64_t{503060}, std::int64_t{41500}, 0, {}},
    {"DDMMSS beyond the pole", std::int64_t{913000}, std::int64_t{41500}, 0, {}},
    {"infinite", std::numeric_limits<double>::infinity(), 4.0, 1, {}},
    {"beyond all numbers", "1E999", 4.0, 1, {}},
};

TEST(PlacePoint, IsThatOfTwoUsableValues) {
  for (const PointCase& c : pointCases) {
    SCOPED_TRACE(c.name);
    const auto point = PointDuLieu(Cell::Vue(c.latitude), Cell::Vue(c.longitude), c.type);
    ASSERT_EQ(point.has_value(), c.expected.has_value());
    if (!point) continue;
    EXPECT_NEAR(point->latitude, c.expected->latitude, 1e-8);
    EXPECT_NEAR(point->longitude, c.expected->longitude, 1e-8);
  }
}

struct NumberCase {
  Value stored;
  std::optional<double> searched;  ///< as a search reads it
  std::optional<double> whole;
};

const NumberCase numberCases[] = {
    {50.5, 50.5, 50.5},     {std::int64_t{503015}, 503015, 503015},
    {" 50,5 ", 50.5, 50.5}, {"50,5 N", 50.5, {}},
    {"north", 0, {}},       {"", {}, {}},
    {"  ", {}, {}},         {Value(), {}, {}},
    {"1E999", {}, {}},      {std::numeric_limits<double>::quiet_NaN(), {}, {}},
};

TEST(PlacePoint, ASearchTakesTheNumberThatATextBeginsWith) {
  for (const NumberCase& c : numberCases) {
    EXPECT_EQ(CoordonneeDuLieu(Cell::Vue(c.stored)), c.searched) << Cell::Vue(c.stored).Texte();
    EXPECT_EQ(NombreDuLieu(Cell::Vue(c.stored)), c.whole) << Cell::Vue(c.stored).Texte();
  }
}

}  // namespace
}  // namespace talpena

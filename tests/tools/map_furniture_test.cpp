#include "carto/map_furniture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "carto/graticule.h"

namespace talpena {
namespace {

MapSheet Feuille(const std::string& name) {
  const auto rows = Catalogue();
  return MapSheet(
      *std::find_if(rows.begin(), rows.end(), [&](const MapRow& r) { return r.name == name; }));
}

double Lettre(const MapSheet& sheet) { return sheet.Etat().CoteKm / 90; }

const PlacedText* Texte(const MapFurniture& furniture, const std::string& text) {
  for (const PlacedText& placed : furniture.texts) {
    if (placed.text == text) return &placed;
  }
  return nullptr;
}

TEST(TexteDegres, NamesTheSideOfTheEarth) {
  EXPECT_EQ(TexteDegres({true, 60, {}}), "60\xB0N");
  EXPECT_EQ(TexteDegres({true, -15, {}}), "15\xB0S");
  EXPECT_EQ(TexteDegres({true, 0, {}}), "0\xB0");
  EXPECT_EQ(TexteDegres({false, -2, {}}), "2\xB0W");
  EXPECT_EQ(TexteDegres({false, 105, {}}),
            "105\xB0"
            "E");
  EXPECT_EQ(TexteDegres({false, -180, {}}), "180\xB0");
}

TEST(Garnit, PutsTheDegreesWhereTheLinesMeetTheNeatLine) {
  const MapSheet sheet = Feuille("western_europe");
  const MapFurniture furniture = Garnit(sheet, Lettre(sheet));
  const PlacedText* parallel = Texte(furniture, "45\xB0N");
  ASSERT_NE(parallel, nullptr);
  EXPECT_NEAR(parallel->at.y, sheet.Projette({0, 45}).y, Lettre(sheet));
  const PlacedText* meridian = Texte(furniture,
                                     "5\xB0"
                                     "E");
  ASSERT_NE(meridian, nullptr);
  EXPECT_NEAR(meridian->at.x, sheet.Projette({5, 40}).x, 1);
}

TEST(Garnit, NumbersTheMeridiansThatStopShortOfThePoles) {
  const MapSheet sheet = Feuille("world");
  const MapFurniture furniture = Garnit(sheet, Lettre(sheet));
  for (const char* text : {"45\xB0"
                           "W",
                           "30\xB0"
                           "E",
                           "150\xB0"
                           "E"})
    EXPECT_NE(Texte(furniture, text), nullptr) << text;
}

TEST(Garnit, NumbersTheMeridiansOnTheSidesOfAPolarMap) {
  for (const char* map : {"arctic", "antarctic"}) {
    SCOPED_TRACE(map);
    const MapSheet sheet = Feuille(map);
    const MapFurniture furniture = Garnit(sheet, Lettre(sheet));
    for (const char* text : {"80\xB0"
                             "W",
                             "60\xB0"
                             "E",
                             "120\xB0"
                             "E"}) {
      const PlacedText* placed = Texte(furniture, text);
      ASSERT_NE(placed, nullptr) << text;
      EXPECT_EQ(placed->across, text[2] == '\xB0' && text[3] == 'W' ? 0 : 1) << text;
    }
  }
}

struct TrueCase {
  const char* map;
  double latitude;
};
// Where the scale bars say that they are true; a polar map at its pole, the others at a place of
// their central meridian.
constexpr TrueCase trueCases[] = {{"world", 0},
                                  {"world_mercator", 0},
                                  {"world_gall", 45},
                                  {"world_sinusoidal", 30},
                                  {"globe", 25},
                                  {"globe_america", 10},
                                  {"globe_pacific", -12},
                                  {"europe", 42},
                                  {"europe", 62},
                                  {"africa", -30},
                                  {"north_america", 25},
                                  {"north_america", 60},
                                  {"south_america", -40},
                                  {"asia", 44},
                                  {"oceania", -30},
                                  {"united_states", 33},
                                  {"western_europe", 50.5},
                                  {"british_isles", 51},
                                  {"british_isles", 59},
                                  {"france_belgium", 43},
                                  {"france_belgium", 50},
                                  {"iberia", 40},
                                  {"morocco", 31},
                                  {"mediterranean", 38},
                                  {"arctic", 89.9},
                                  {"antarctic", -89.9},
                                  {"north_pole", 89.9},
                                  {"south_pole", -89.9}};

// Against the length of a parallel on the ellipsoid; the figure of most projections is a sphere,
// whose parallels are up to 0.34 per cent shorter.
TEST(Garnit, ItsBarIsTrueWhereItSays) {
  constexpr double a = 6378.388, e2 = 0.00672267, perDegree = std::numbers::pi / 180;
  for (const TrueCase& c : trueCases) {
    SCOPED_TRACE(std::string(c.map) + ' ' + std::to_string(c.latitude));
    const MapSheet sheet = Feuille(c.map);
    const double phi = c.latitude * perDegree, middle = sheet.Description().meridian;
    const PlanePoint west = sheet.Projette({middle - 0.5, c.latitude});
    const PlanePoint east = sheet.Projette({middle + 0.5, c.latitude});
    const double normal = a / std::sqrt(1 - e2 * std::sin(phi) * std::sin(phi));
    const double ground = normal * std::cos(phi) * perDegree;
    EXPECT_NEAR(std::hypot(east.x - west.x, east.y - west.y) / ground, 1, 0.0037);
  }
}

TEST(Garnit, LeavesTheDegreesOutWhereALimbEndsTheLines) {
  const MapSheet sheet = Feuille("globe");
  EXPECT_EQ(Garnit(sheet, Lettre(sheet)).texts.size(), 3U);
}

TEST(Garnit, StaysInsideOfEveryMap) {
  for (const MapRow& row : Catalogue()) {
    const MapSheet sheet(row);
    const MapFurniture furniture = Garnit(sheet, Lettre(sheet));
    for (const PlacedText& text : furniture.texts)
      EXPECT_TRUE(sheet.Cadre().Contient(text.at)) << row.name << ' ' << text.text;
    for (const Line& line : furniture.lines) {
      for (const PlanePoint p : line) EXPECT_TRUE(sheet.Cadre().Contient(p)) << row.name;
    }
  }
}

TEST(Garnit, LetsNoTwoTextsOverlap) {
  for (const MapRow& row : Catalogue()) {
    const MapSheet sheet(row);
    const double em = Lettre(sheet);
    const auto texts = Garnit(sheet, em).texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      for (std::size_t j = i + 1; j < texts.size(); ++j) {
        if (std::abs(texts[i].at.y - texts[j].at.y) > em) continue;
        const auto left = [&](const PlacedText& t) {
          return t.at.x - static_cast<double>(t.text.size()) * 0.6 * em * t.across;
        };
        const PlacedText& a = left(texts[i]) < left(texts[j]) ? texts[i] : texts[j];
        const PlacedText& b = &a == &texts[i] ? texts[j] : texts[i];
        EXPECT_LT(left(a) + static_cast<double>(a.text.size()) * 0.6 * em, left(b))
            << row.name << ' ' << a.text << ' ' << b.text;
      }
    }
  }
}

TEST(Garnit, DrawsABarAsLongAsItSays) {
  for (const MapRow& row : Catalogue()) {
    const MapSheet sheet(row);
    const MapFurniture furniture = Garnit(sheet, Lettre(sheet));
    const Line& bar = furniture.lines.front();
    const auto says =
        std::find_if(furniture.texts.begin(), furniture.texts.end(),
                     [](const PlacedText& t) { return t.text.find(" km ") != std::string::npos; });
    ASSERT_NE(says, furniture.texts.end()) << row.name;
    EXPECT_NEAR(bar[2].x - bar[1].x, std::stod(says->text), 1e-6) << row.name;
    EXPECT_LT(bar[2].x - bar[1].x, sheet.Cadre().right - sheet.Cadre().left) << row.name;
  }
}

TEST(Garnit, NamesProjectionAndSources) {
  const MapSheet sheet = Feuille("british_isles");
  const MapFurniture furniture = Garnit(sheet, Lettre(sheet));
  EXPECT_NE(Texte(furniture, "Conformal conic"), nullptr);
  EXPECT_NE(Texte(furniture, "Natural Earth; GSHHG"), nullptr);
  EXPECT_NE(Texte(furniture, "100 km at 51\xB0N and 59\xB0N"), nullptr);
  EXPECT_EQ(NomProjection(Feuille("globe").Description()), "Orthographic, centre 25\xB0N");
  EXPECT_EQ(NomProjection(Feuille("asia").Description()), "Stereographic, centre 44\xB0N");
}

}  // namespace
}  // namespace talpena

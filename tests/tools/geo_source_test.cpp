#include "carto/geo_source.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QtEndian>
#include <stdexcept>
#include <string>

#include "fakes/temp_folder.h"

namespace talpena {
namespace {

/// A file of map data from its unpacked bytes.
std::string Fichier(const test::TempFolder& folder, const QByteArray& payload) {
  const std::string path = folder / "x.geo";
  std::ofstream out(path, std::ios::binary);
  const QByteArray packed = "TLPGEO1\n" + qCompress(payload);
  out.write(packed.data(), packed.size());
  return path;
}

QByteArray Octets(std::initializer_list<int> values) {
  QByteArray bytes;
  for (const int value : values) bytes.append(static_cast<char>(value));
  return bytes;
}

const QByteArray twoUnits = Octets({2, 0, 0, 0});

TEST(LitDonnees, ReadsStepsOfAGrid) {
  const test::TempFolder folder;
  // One layer; one feature of rank 3 with a line of three points in half degrees.
  const QByteArray payload = twoUnits + Octets({1}) + QByteArray("rivers") +
                             Octets({0, 'L', 1, 3, 1, 3, 20, 3, 1, 4, 0xC8, 1, 0});
  const GeoData data = LitDonnees(Fichier(folder, payload));
  ASSERT_EQ(data.rivers.size(), 1U);
  EXPECT_EQ(data.rivers[0].rank, 3);
  EXPECT_EQ(data.rivers[0].parts.at(0), (Line{{5, -1}, {4.5, 0}, {54.5, 0}}));
}

TEST(LitDonnees, RefusesDamagedFiles) {
  const test::TempFolder folder;
  EXPECT_THROW(LitDonnees(folder / "none.geo"), std::runtime_error);
  EXPECT_THROW(LitDonnees(Fichier(folder, twoUnits + Octets({1}))), std::runtime_error);
  EXPECT_THROW(LitDonnees(Fichier(folder, twoUnits + Octets({1, 'x', 0, 'L', 0}))),
               std::runtime_error);
  EXPECT_THROW(LitDonnees(Fichier(folder, twoUnits + Octets({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 1}))),
               std::runtime_error);
}

TEST(Contours, LeavesOutTheEdgesOfTheCut) {
  const GeoFeature chukotka{0, {{{-180, 65}, {-170, 66}, {-175, 68}, {-180, 69}}}};
  const auto lines = Contours({chukotka});
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0], chukotka.parts[0]);
}

TEST(Contours, LeavesOutThePole) {
  const GeoFeature antarctica{0, {{{-180, -90}, {180, -90}, {180, -84}, {0, -70}, {-180, -84}}}};
  const auto lines = Contours({antarctica});
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0], (Line{{180, -84}, {0, -70}, {-180, -84}}));
}

TEST(Contours, ClosesAnIsland) {
  const auto lines = Contours({{0, {{{0, 0}, {1, 0}, {0, 1}}}}});
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].front(), lines[0].back());
}

/// The data that the maps are made of.
class Sources : public testing::TestWithParam<const char*> {
 protected:
  GeoData data = LitDonnees(std::string(TALPENA_SOURCE_DIR "/data/maps/") + GetParam());
};

TEST_P(Sources, HaveLandAndWaterWhereTheyBelong) {
  const Surface land = SurfaceDe(data.land);
  for (const PlanePoint place : {PlanePoint{2.35, 48.85},
                                 {36.8, -1.3},
                                 {32.9, 39.9},
                                 {-175, 67},
                                 {178, 67.5},
                                 {106.8, -78.5},
                                 {0, -89},
                                 {-42, 72}})
    EXPECT_TRUE(EstDedans(land, place)) << place.x << ' ' << place.y;
  for (const PlanePoint place : {PlanePoint{-35, 30}, {51, 40.5}, {34, 43}, {179.9, 0}, {0, 89}})
    EXPECT_FALSE(EstDedans(land, place)) << place.x << ' ' << place.y;
}

TEST_P(Sources, HaveTheGreatLakes) {
  const Surface lakes = SurfaceDe(data.lakes);
  for (const PlanePoint place :
       {PlanePoint{33, -1}, {-87.5, 47.6}, {31.5, 60.8}, {107.7, 53.4}, {-69.3, -15.8}})
    EXPECT_TRUE(EstDedans(lakes, place)) << place.x << ' ' << place.y;
  EXPECT_FALSE(EstDedans(lakes, {51, 40.5})) << "the Caspian Sea is no lake";
}

TEST_P(Sources, LieWithin180Degrees) {
  for (const auto* layer : {&data.land, &data.lakes, &data.borders, &data.rivers}) {
    EXPECT_FALSE(layer->empty());
    for (const GeoFeature& feature : *layer) {
      for (const Line& part : feature.parts) {
        for (std::size_t i = 0; i < part.size(); ++i) {
          ASSERT_LE(std::abs(part[i].x), 180);
          ASSERT_LE(std::abs(part[i].y), 90);
          if (i > 0 && part[i].y > -89.9) {
            ASSERT_LT(std::abs(part[i].x - part[i - 1].x), 30)
                << part[i].x << ' ' << part[i].y << ": a streak";
          }
        }
      }
    }
  }
}

// Borders are lines between two countries: none follows the coast of Portugal or France.
TEST_P(Sources, HaveNoBordersAlongTheCoast) {
  for (const GeoFeature& border : data.borders) {
    for (const Line& line : border.parts) {
      for (const PlanePoint p : line) {
        EXPECT_FALSE(p.x < -8.9 && p.y > 37 && p.y < 41) << p.x << ' ' << p.y;
        EXPECT_FALSE(p.x > -4.5 && p.x < -2 && p.y > 43.5 && p.y < 48.5) << p.x << ' ' << p.y;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(BothScales, Sources, testing::Values("scale_50m.geo", "scale_10m.geo"),
                         [](const auto& scale) { return std::string(scale.param).substr(0, 9); });

}  // namespace
}  // namespace talpena

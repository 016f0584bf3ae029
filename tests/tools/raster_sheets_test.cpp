// The pictures of the raster maps, and how they are laid out.
#include "carto/raster_sheets.h"

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string>
#include <vector>

#include "carto/colour_table.h"
#include "carto/geo_source.h"
#include "carto/map_drawing.h"
#include "carto/map_furniture.h"

namespace talpena {
namespace {

std::string Chemin(const RasterRow& row) {
  return std::string(TALPENA_CARTO_DIR "/../") + std::string(row.file);
}

TEST(RasterSheets, AreThereForEveryMap) {
  ASSERT_EQ(StylesRaster().size(), CartesRaster().size());
  for (std::size_t i = 0; i < StylesRaster().size(); ++i) {
    EXPECT_EQ(static_cast<std::size_t>(StylesRaster()[i].map), i);
  }
}

// The box of the sheet is the user scale of the window.
TEST(RasterSheets, TheirBoxIsTheUserScale) {
  for (const RasterStyle& style : StylesRaster()) {
    const RasterRow& row = LigneRaster(style.map);
    SCOPED_TRACE(row.file);
    const UserScale scale = EchelleRaster(RasterDe(row, ""), row);
    const Frame box = FeuilleRaster(style).Cadre();
    EXPECT_NEAR(box.left, scale.left, 0.01);
    EXPECT_NEAR(box.top, scale.top, 0.01);
    EXPECT_NEAR(box.right, scale.left + scale.width, 0.01);
    EXPECT_NEAR(box.bottom, scale.top + scale.height, 0.01);
  }
}

/// Kilometres that a scale bar says, and its length on the map.
struct Bar {
  double says = 0, drawn = 0;
};

Bar BarreDe(const MapFurniture& furniture) {
  const Line& line = furniture.lines.front();
  for (const PlacedText& placed : furniture.texts) {
    if (placed.text.find(" km at ") != std::string::npos)
      return {std::stod(placed.text), line[2].x - line[1].x};
  }
  return {};
}

// Against the length of the parallel on the ellipsoid; the figure of the maps is a sphere, whose
// parallels are up to 0.34 per cent shorter.
TEST(RasterSheets, TheirScaleBarIsTrueAtAParallelOfTheMap) {
  constexpr double a = 6378.388, e2 = 0.00672267, perDegree = std::numbers::pi / 180;
  for (const RasterStyle& style : StylesRaster()) {
    const RasterRow& row = LigneRaster(style.map);
    SCOPED_TRACE(row.file);
    EXPECT_GT(style.barParallel, row.south);
    EXPECT_LT(style.barParallel, row.north);
    const MapSheet sheet = FeuilleRaster(style);
    const double sine = std::sin(style.barParallel * perDegree);
    const double cosine = std::cos(style.barParallel * perDegree);
    const double ground = a / std::sqrt(1 - e2 * sine * sine) * cosine * perDegree;
    const double onMap = sheet.Projette({row.west + 2, style.barParallel}).x -
                         sheet.Projette({row.west + 1, style.barParallel}).x;
    const Bar bar = BarreDe(Garnit(sheet, sheet.Etat().CoteKm / 65));
    ASSERT_GT(bar.says, 0);
    EXPECT_NEAR(bar.drawn / bar.says / (onMap / ground), 1, 0.004);
  }
}

TEST(RasterSheets, SayWhereTheirScaleBarIsTrue) {
  const auto texts = [](CarteRaster map) {
    const MapSheet sheet = FeuilleRaster(StylesRaster()[static_cast<std::size_t>(map)]);
    return Garnit(sheet, sheet.Etat().CoteKm / 65).texts;
  };
  const auto has = [](const std::vector<PlacedText>& all, const char* text) {
    return std::any_of(all.begin(), all.end(),
                       [&](const PlacedText& placed) { return placed.text == text; });
  };
  EXPECT_TRUE(has(texts(CarteRaster::Belgique), "50 km at 50.5\xB0N"));
  EXPECT_TRUE(has(texts(CarteRaster::AmeriqueSud), "1000 km at 20\xB0S"));
  EXPECT_TRUE(has(texts(CarteRaster::Afrique), "1000 km at the equator"));
}

TEST(RasterSheets, BearDegreesOnAllFourSides) {
  for (const RasterStyle& style : StylesRaster()) {
    SCOPED_TRACE(LigneRaster(style.map).file);
    const MapSheet sheet = FeuilleRaster(style);
    const double em = sheet.Etat().CoteKm / 65;
    const Frame box = sheet.Cadre();
    std::array<int, 4> sides{};
    for (const PlacedText& placed : Garnit(sheet, em).texts) {
      if (placed.text.find('\xB0') == std::string::npos || placed.text.size() > 5) continue;
      sides[0] += placed.across == 0 ? 1 : 0;
      sides[1] += placed.across == 1 ? 1 : 0;
      if (placed.across != 0.5) continue;
      ++sides[placed.at.y < (box.bottom + box.top) / 2 ? 2 : 3];
    }
    for (const int degrees : sides) EXPECT_GE(degrees, 1);
  }
}

TEST(RasterPictures, AreBitmapsOf256ColoursAndTheProportionsOfTheirBox) {
  for (const RasterRow& row : CartesRaster()) {
    SCOPED_TRACE(row.file);
    const QImage picture(QString::fromStdString(Chemin(row)));
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.format(), QImage::Format_Indexed8);
    EXPECT_LE(picture.colorCount(), 256);
    const int longer = std::max(picture.width(), picture.height());
    EXPECT_GE(longer, 1200);
    EXPECT_LE(longer, 2400);
    const UserScale scale = EchelleRaster(RasterDe(row, ""), row);
    EXPECT_NEAR(picture.width() / scale.width, picture.height() / -scale.height,
                0.002 * picture.width() / scale.width);
  }
}

/// How far colours are apart.
int Ecart(QRgb a, QRgb b) {
  return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
         std::abs(qBlue(a) - qBlue(b));
}

QRgb Encre(Matter matter) {
  const Ink ink = EncreDe(matter, Detail::Region);
  return qRgb(ink.red, ink.green, ink.blue);
}

/// Where land and water meet, seen along one line of the picture from west to east: the middle of
/// the coast line, and where it should be by the data; columns.
struct Shore {
  double seen, expected;
};

bool EstTerre(PointDegres place) {
  static const GeoData data = LitDonnees(TALPENA_SOURCE_DIR "/data/maps/scale_10m.geo");
  static const Surface surface = SurfaceDe(data.land);
  return EstDedans(surface, {place.longitude, place.latitude});
}

/// The first longitude east of another at which land and water of the data meet.
double RivageDesDonnees(double latitude, double from) {
  const bool start = EstTerre({latitude, from});
  double step = 0.05;
  double longitude = from;
  while (EstTerre({latitude, longitude + step}) == start) longitude += step;
  for (; step > 1e-4; step /= 2) {
    if (EstTerre({latitude, longitude + step / 2}) == start) longitude += step / 2;
  }
  return longitude;
}

Shore Rivage(const QImage& picture, const RasterRow& row, double latitude, double from) {
  const RasterMap map = RasterDe(row, "");
  const UserScale scale = EchelleRaster(map, row);
  const auto pixel = [&](double longitude) {
    const PointKm p = ProjetteRaster(map, {latitude, longitude});
    return PointKm{(p.X - scale.left) / scale.width * picture.width(),
                   (p.Y - scale.top) / scale.height * picture.height()};
  };
  const PointKm start = pixel(from);
  const auto est = [&](int x, Matter matter) {
    return Ecart(picture.pixel(x, static_cast<int>(std::lround(start.Y))), Encre(matter)) < 8;
  };
  int x = static_cast<int>(std::lround(start.X));
  const bool fromLand = est(x, Matter::Land);
  while (est(x, fromLand ? Matter::Land : Matter::Water)) ++x;
  const int first = x;  // of the coast line
  while (!est(x, fromLand ? Matter::Water : Matter::Land)) ++x;
  return {(first + x) / 2.0, pixel(RivageDesDonnees(latitude, from)).X};
}

struct ShoreCase {
  const char* name;
  CarteRaster map;
  double latitude, from;
};

// Steep coasts met from the sea or from the land, with no line of the graticule on the way.
constexpr ShoreCase shores[] = {
    {"Holland from the sea", CarteRaster::PaysBas, 52.3, 4.2},
    {"Les Landes from the sea", CarteRaster::Gaule, 44.4, -1.9},
    {"Wales from the sea", CarteRaster::IlesBritanniques, 52.4, -4.6},
    {"Portugal from the sea", CarteRaster::Iberie, 40.3, -9.4},
    {"Valencia from the land", CarteRaster::Iberie, 39.4, -1},
};

TEST(RasterPictures, LieOnTheirPlacesToThePixel) {
  for (const ShoreCase& c : shores) {
    SCOPED_TRACE(c.name);
    const RasterRow& row = LigneRaster(c.map);
    const QImage picture(QString::fromStdString(Chemin(row)));
    ASSERT_FALSE(picture.isNull());
    const Shore shore = Rivage(picture, row, c.latitude, c.from);
    EXPECT_NEAR(shore.seen, shore.expected, 1.5);
  }
}

struct PlaceCase {
  const char* name;
  CarteRaster map;
  PointDegres place;
  Matter matter;
};
constexpr PlaceCase places[] = {
    {"Alice Springs", CarteRaster::AsieOceanie, {-23.9, 133.6}, Matter::Land},
    {"Tasman Sea", CarteRaster::AsieOceanie, {-38, 160}, Matter::Water},
    {"Denver", CarteRaster::AmeriqueNord, {39.7, -104.5}, Matter::Land},
    {"Hudson Bay", CarteRaster::AmeriqueNord, {60, -86}, Matter::Water},
    {"Brasilia", CarteRaster::AmeriqueSud, {-15.6, -47.9}, Matter::Land},
    {"Ulan Bator", CarteRaster::AsieEurope, {47.3, 106}, Matter::Land},
    {"Chukotka", CarteRaster::AsieEurope, {67.4, 177}, Matter::Land},
    {"Nairobi", CarteRaster::Afrique, {-1.6, 36.6}, Matter::Land},
    {"Gulf of Guinea", CarteRaster::Afrique, {1, 3}, Matter::Water},
    {"Chukotka, west of 180 degrees", CarteRaster::Monde, {67.4, 177}, Matter::Land},
    {"Chukotka, east of 180 degrees", CarteRaster::Monde, {66.9, -177.3}, Matter::Land},
    {"Anatolia", CarteRaster::Turquie, {39.2, 33.9}, Matter::Land},
    {"Black Sea", CarteRaster::Turquie, {42.3, 35}, Matter::Water},
    {"Charleroi", CarteRaster::Belgique, {50.45, 4.55}, Matter::Land},
    {"Paris", CarteRaster::Europe, {48.5, 2.1}, Matter::Land},
};

TEST(RasterPictures, ShowLandAndWaterWhereTheyAre) {
  for (const PlaceCase& c : places) {
    SCOPED_TRACE(c.name);
    const RasterRow& row = LigneRaster(c.map);
    const QImage picture(QString::fromStdString(Chemin(row)));
    ASSERT_FALSE(picture.isNull());
    const RasterMap map = RasterDe(row, "");
    const UserScale scale = EchelleRaster(map, row);
    const PointKm p = ProjetteRaster(map, c.place);
    const QRgb pixel =
        picture.pixel(static_cast<int>((p.X - scale.left) / scale.width * picture.width()),
                      static_cast<int>((p.Y - scale.top) / scale.height * picture.height()));
    const QRgb land = Encre(Matter::Land), water = Encre(Matter::Water);
    EXPECT_EQ(Ecart(pixel, land) < Ecart(pixel, water), c.matter == Matter::Land);
  }
}

constexpr ShoreCase crossings[] = {
    {"north of Dundalk", CarteRaster::IlesBritanniques, 54.10, -6.37},
    {"Belleek", CarteRaster::IlesBritanniques, 54.48, -8.09},
    {"between Strabane and Lifford", CarteRaster::IlesBritanniques, 54.83, -7.47},
};

TEST(RasterPictures, ShowTheBorderOfNorthernIreland) {
  for (const ShoreCase& c : crossings) {
    SCOPED_TRACE(c.name);
    const RasterRow& row = LigneRaster(c.map);
    const QImage picture(QString::fromStdString(Chemin(row)));
    ASSERT_FALSE(picture.isNull());
    const RasterMap map = RasterDe(row, "");
    const UserScale scale = EchelleRaster(map, row);
    const PointKm p = ProjetteRaster(map, {c.latitude, c.from});
    const auto x = static_cast<int>((p.X - scale.left) / scale.width * picture.width());
    const auto y = static_cast<int>((p.Y - scale.top) / scale.height * picture.height());
    constexpr int reach = 8;  // 6 km
    int nearest = 765;
    for (int down = -reach; down <= reach; ++down) {
      for (int across = -reach; across <= reach; ++across)
        nearest =
            std::min(nearest, Ecart(picture.pixel(x + across, y + down), Encre(Matter::Border)));
    }
    EXPECT_LT(nearest, 24);
  }
}

TEST(ColourTable, KeepsFrequentColoursAndPutsTheOthersNearThem) {
  QImage picture(64, 64, QImage::Format_RGB32);
  for (int y = 0; y < 64; ++y) {
    for (int x = 0; x < 64; ++x) picture.setPixel(x, y, y < 32 ? 0xFF102030U : qRgb(x, y, 200));
  }
  const QImage indexed = AvecTable(picture);
  EXPECT_EQ(indexed.format(), QImage::Format_Indexed8);
  EXPECT_EQ(indexed.colorCount(), 256);
  EXPECT_EQ(indexed.pixel(5, 5), 0xFF102030U);
  for (int x = 0; x < 64; ++x) EXPECT_LT(Ecart(indexed.pixel(x, 50), qRgb(x, 50, 200)), 60);
}

TEST(ColourTable, APictureOfFewColoursStaysAsItIs) {
  QImage picture(8, 8, QImage::Format_RGB32);
  picture.fill(0xFF336699U);
  picture.setPixel(3, 4, 0xFFFFFFFFU);
  const QImage indexed = AvecTable(picture);
  EXPECT_EQ(indexed.colorCount(), 2);
  EXPECT_EQ(indexed.convertToFormat(QImage::Format_RGB32), picture);
}

}  // namespace
}  // namespace talpena

#include <QImage>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "carto/map_drawing.h"
#include "platform/qt/qt_canvas.h"
#include "tools/shipped_map.h"

namespace talpena {
namespace {

constexpr double radians = std::numbers::pi / 180;

struct Place {
  const char* name;
  float lon, lat;
};

constexpr Place onLand[] = {
    {"Paris", 2.1F, 48.7F},
    {"Nairobi", 36.6F, -1.3F},
    {"Ankara", 32.6F, 39.6F},
    {"Madrid", -3.7F, 40.4F},
    {"Birmingham", -1.9F, 52.3F},
    {"Fes", -4.5F, 34.1F},
    {"Brasilia", -47.9F, -15.6F},
    {"Denver", -104.5F, 39.7F},
    {"Alice Springs", 133.6F, -23.9F},
    {"Moscow", 37.2F, 55.3F},
    {"Ulan Bator", 106, 47.3F},
    {"Greenland", -42, 72},
    {"Vostok", 106.8F, -78.2F},
    {"South Pole", 20, -88.5F},
    {"Chukotka, west of 180 degrees", 177, 67.4F},
    {"Chukotka, east of 180 degrees", -177.3F, 66.9F},
    {"Sahara", 5.5F, 24.8F},
    {"Sumatra", 102, -2.2F},
    {"Patagonia", -69.5F, -47.3F},
};

constexpr Place onWater[] = {
    {"Atlantic", -36, 31},
    {"Caspian Sea", 51, 40.3F},
    {"Lake Victoria", 33.1F, -1.1F},
    {"Black Sea", 34, 43.2F},
    {"Hudson Bay", -85.5F, 59.4F},
    {"Baltic Sea", 19.8F, 57.8F},
    {"Gulf of Mexico", -91, 25.5F},
    {"Pacific", -151, 2},
    {"Pacific at 180 degrees", 179.7F, 3},
    {"Mediterranean", 18, 35},
    {"Bay of Biscay", -5, 45.6F},
    {"North Sea", 3, 56.3F},
    {"Tasman Sea", 161, -39},
    {"Red Sea", 38, 20.4F},
    {"Sea of Okhotsk", 149, 54.4F},
    {"Bering Sea", -176.5F, 58.5F},
    {"Arctic Ocean", 8, 86.5F},
    {"Southern Ocean", 100, -59},
    {"Indian Ocean", 78, -22},
    {"Irish Sea", -5.2F, 53.7F},
    {"Lake Superior", -87.5F, 47.7F},
    {"Lake Ladoga", 31.4F, 60.8F},
};

constexpr Place islands[] = {
    {"Azores", -25.45F, 37.78F},  {"Tenerife", -16.6F, 28.25F},
    {"Madeira", -17, 32.75F},     {"Cape Verde", -23.65F, 15.07F},
    {"Mallorca", 3, 39.6F},       {"Malta", 14.4F, 35.9F},
    {"Iceland", -18.5F, 64.9F},   {"Sri Lanka", 80.7F, 7.6F},
    {"Hawaii", -155.5F, 19.6F},   {"New Caledonia", 165.5F, -21.4F},
    {"Fiji", 178, -17.8F},        {"Reunion", 55.53F, -21.1F},
    {"Crete", 24.9F, 35.2F},      {"Isle of Man", -4.55F, 54.25F},
    {"Faroes", -7, 62.1F},        {"Svalbard", 16, 78.5F},
    {"Galapagos", -91.1F, -0.8F}, {"South Georgia", -36.8F, -54.4F},
    {"Socotra", 53.8F, 12.5F},    {"Kerguelen", 69.4F, -49.4F},
};

/// Colours without the lines: the nearest of land and water to most pixels round a place.
class Picture {
 public:
  Picture(const std::string& name, const std::string& suffix)
      : image_(QString::fromStdString(test::DansCarto(name + suffix + ".png"))) {}
  bool Existe() const { return !image_.isNull(); }
  int Largeur() const { return image_.width(); }
  int Hauteur() const { return image_.height(); }

  /// Where a place lies on the picture, as the canvas puts it: pixel n is centred on n. Empty
  /// where the map does not show it.
  std::optional<QPoint> Pixel(const MapState& carte, const Place& place, int margin) const {
    if (!Montre(carte, place)) return std::nullopt;
    float X = 0, Y = 0;
    Project(carte, radian(place.lat), radian(place.lon), X, Y);
    const double x = static_cast<double>(X - carte.XGauche) / carte.LargeurKm * Largeur();
    const double y = static_cast<double>(carte.YHaut - Y) / carte.HauteurKm * Hauteur();
    if (!(x >= margin && y >= margin && x < Largeur() - margin && y < Hauteur() - margin))
      return std::nullopt;
    return QPoint(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)));
  }

  /// Pixels round a place that are nearer to the colour of land than to that of water.
  int PixelsDeTerre(QPoint at, int reach) const {
    const Ink land = EncreDe(Matter::Land, Detail::World);
    const Ink water = EncreDe(Matter::Water, Detail::World);
    int count = 0;
    for (int y = at.y() - reach; y <= at.y() + reach; ++y) {
      for (int x = at.x() - reach; x <= at.x() + reach; ++x)
        count += Ecart(image_.pixel(x, y), land) < Ecart(image_.pixel(x, y), water) ? 1 : 0;
    }
    return count;
  }

  /// Pixels that are not plain water.
  int PixelsDessines(QPoint at, int reach) const {
    const Ink water = EncreDe(Matter::Water, Detail::World);
    int count = 0;
    for (int y = at.y() - reach; y <= at.y() + reach; ++y) {
      for (int x = at.x() - reach; x <= at.x() + reach; ++x)
        count += Ecart(image_.pixel(x, y), water) > 40 ? 1 : 0;
    }
    return count;
  }

 private:
  static int Ecart(QRgb colour, const Ink& ink) {
    return std::abs(qRed(colour) - ink.red) + std::abs(qGreen(colour) - ink.green) +
           std::abs(qBlue(colour) - ink.blue);
  }

  /// Not behind a globe, nor where a conic map or a sinusoidal one does not reach.
  static bool Montre(const MapState& carte, const Place& place) {
    const double dl = (place.lon - carte.MeridienCentralDeg) * radians;
    const double lat = place.lat * radians;
    const auto cosine = [&](double centre) {
      const double phi = centre * radians;
      return std::sin(phi) * std::sin(lat) + std::cos(phi) * std::cos(lat) * std::cos(dl);
    };
    switch (carte.CodeProjection) {
      case 1:
        return place.lat > 0 && std::abs(dl) < 2.5;
      case 3:
        return cosine((carte.LatNord - carte.LatSud) / 2) > -0.2;
      case 4:
        return std::abs(dl) < 3.05;  // a degree is a pixel or two wide at the rim
      case 10:
        return false;  // all places lie on one line
      case 11:
        return place.lat > 8;
      case 12:
        return place.lat < -8;
      case 13:
        return cosine(carte.ParallelePrincipal) > 0.35;
      default:
        return std::abs(dl) < 3.14;
    }
  }

  QImage image_;
};

/// Calls `check` for every map and both sizes of its picture.
template <typename Check>
void PourChaqueImage(Check&& check) {
  QtCanvas canvas;
  test::MapDesk desk(canvas);
  for (const MapRow& row : Catalogue()) {
    ASSERT_TRUE(desk.Ouvre(row.name)) << row.name;
    for (const char* suffix : {"", "@2x"}) {
      SCOPED_TRACE(std::string(row.name) + suffix);
      const Picture picture(row.name, suffix);
      ASSERT_TRUE(picture.Existe());
      check(picture, desk.carte, suffix[0] == '\0' ? 1 : 2);
    }
  }
}

TEST(ShippedMaps, AreAllThere) {
  std::vector<std::string> found = test::CartesLivrees();
  for (const char* name :
       {"world", "world_mercator", "world_sinusoidal", "europe", "western_europe", "british_isles",
        "france_belgium", "iberia", "morocco", "africa", "north_america", "south_america", "asia",
        "oceania", "north_pole", "south_pole", "globe"})
    EXPECT_NE(std::find(found.begin(), found.end(), name), found.end()) << name;
}

TEST(ShippedMaps, SayWhatTheCatalogueSays) {
  QtCanvas canvas;
  test::MapDesk desk(canvas);
  for (const MapRow& row : Catalogue()) {
    SCOPED_TRACE(row.name);
    ASSERT_TRUE(desk.Ouvre(row.name));
    EXPECT_EQ(desk.carte.CodeProjection, row.code);
    EXPECT_EQ(desk.carte.ParallelePrincipal, row.parallel);
    EXPECT_EQ(desk.carte.LatNord, row.north);
    EXPECT_EQ(desk.carte.LatSud, row.south);
    EXPECT_EQ(desk.carte.LonEst, row.east);
    EXPECT_EQ(desk.carte.LonOuest, row.west);
    EXPECT_EQ(desk.carte.Parallele1, row.parallel1);
    EXPECT_EQ(desk.carte.Parallele2, row.parallel2);
    EXPECT_EQ(desk.carte.MeridienCentralDeg, row.meridian);
    EXPECT_EQ(desk.carte.FichierPS, test::DansCarto(std::string(row.name) + ".ps"));
    EXPECT_TRUE(std::filesystem::exists(desk.carte.FichierPS));
  }
}

TEST(ShippedMaps, HaveAPictureOfTheProportionsOfTheirBox) {
  PourChaqueImage([](const Picture& picture, const MapState& carte, int scale) {
    const double height =
        picture.Largeur() * static_cast<double>(carte.HauteurKm) / carte.LargeurKm;
    EXPECT_NEAR(height, picture.Hauteur(), scale);
    EXPECT_GE(std::max(picture.Largeur(), picture.Hauteur()), 960 * scale);
  });
}

TEST(ShippedMaps, ShowLandAtPlacesOnLand) {
  PourChaqueImage([](const Picture& picture, const MapState& carte, int) {
    for (const Place& place : onLand) {
      if (const auto at = picture.Pixel(carte, place, 3)) {
        EXPECT_GE(picture.PixelsDeTerre(*at, 1), 5) << place.name;
      }
    }
  });
}

TEST(ShippedMaps, ShowWaterAtPlacesAtSea) {
  PourChaqueImage([](const Picture& picture, const MapState& carte, int) {
    for (const Place& place : onWater) {
      if (const auto at = picture.Pixel(carte, place, 3)) {
        EXPECT_LE(picture.PixelsDeTerre(*at, 1), 3) << place.name;
      }
    }
  });
}

TEST(ShippedMaps, ShowIslands) {
  int shown = 0;
  PourChaqueImage([&](const Picture& picture, const MapState& carte, int scale) {
    for (const Place& place : islands) {
      if (const auto at = picture.Pixel(carte, place, 4 * scale)) {
        ++shown;
        EXPECT_GT(picture.PixelsDessines(*at, 2 * scale), 0) << place.name;
      }
    }
  });
  EXPECT_GT(shown, 200);
}

TEST(ShippedMaps, ShowEveryPlaceOnSomeMap) {
  int land = 0, water = 0;
  PourChaqueImage([&](const Picture& picture, const MapState& carte, int) {
    for (const Place& place : onLand) land += picture.Pixel(carte, place, 3) ? 1 : 0;
    for (const Place& place : onWater) water += picture.Pixel(carte, place, 3) ? 1 : 0;
  });
  EXPECT_GT(land, 250);
  EXPECT_GT(water, 250);
}

// The coast is drawn where the program would draw a point on it, to a part of a pixel: the middle
// of the stroke across a straight piece of coast. Checked where the picture changes from water to
// land along a row, against the data through the projection.
TEST(ShippedMaps, LayTheirPixelsWhereTheCanvasHasThem) {
  QtCanvas canvas;
  test::MapDesk desk(canvas);
  const GeoData data = LitDonnees(TALPENA_SOURCE_DIR "/data/maps/scale_10m.geo");
  const MapRow* row = nullptr;
  for (const MapRow& each : Catalogue()) {
    if (std::string(each.name) == "iberia") row = &each;
  }
  ASSERT_NE(row, nullptr);
  ASSERT_TRUE(desk.Ouvre(row->name));
  const MapSheet sheet(*row);
  const Surface land = sheet.PlaceSurface(SurfaceDe(data.land));
  for (const char* suffix : {"", "@2x"}) {
    const QImage image(
        QString::fromStdString(test::DansCarto(std::string("iberia") + suffix + ".png")));
    double shift = 0;
    int rows = 0;
    for (int y = image.height() / 3; y < image.height() / 2; ++y) {
      // The western coast of Portugal: the first land from the left, and the darkest pixels there.
      const double Y =
          desk.carte.YHaut - static_cast<double>(y) * desk.carte.HauteurKm / image.height();
      int first = 0;
      const auto km = [&](double x) {
        return desk.carte.XGauche + x * desk.carte.LargeurKm / image.width();
      };
      while (first < image.width() && !EstDedans(land, {km(first), Y})) ++first;
      double coast = first - 1;
      while (!EstDedans(land, {km(coast), Y})) coast += 0.02;
      double weight = 0, sum = 0;
      for (int x = first - 4; x < first + 5; ++x) {
        const int dark = std::max(0, 215 - qRed(image.pixel(x, y)));
        weight += dark;
        sum += dark * static_cast<double>(x);
      }
      if (weight < 40) continue;
      shift += sum / weight - coast;
      ++rows;
    }
    ASSERT_GT(rows, 50);
    EXPECT_NEAR(shift / rows, 0, 0.25) << suffix;
  }
}

// The projection of this code puts every place on one line, and so does the picture.
TEST(ShippedMaps, DrawTheLineOfCode10) {
  QtCanvas canvas;
  test::MapDesk desk(canvas);
  ASSERT_TRUE(desk.Ouvre("equator"));
  const QImage image(QString::fromStdString(test::DansCarto("equator.png")));
  const Ink land = EncreDe(Matter::Land, Detail::World);
  float X = 0, Y = 0;
  Project(desk.carte, radian(0), radian(20), X, Y);  // Congo
  EXPECT_EQ(Y, 0);
  const auto x = static_cast<int>((X - desk.carte.XGauche) / desk.carte.LargeurKm *
                                  static_cast<float>(image.width()));
  EXPECT_EQ(qRed(image.pixel(x, image.height() / 2 + 5)), land.red);
  EXPECT_NE(qRed(image.pixel(x, image.height() / 2 + 60)), land.red);
}

}  // namespace
}  // namespace talpena

// The waypoint files beside the project, when they are there.
#include <gtest/gtest.h>

#include <GeographicLib/UTMUPS.hpp>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "interchange/waypoint_world.h"

namespace talpena {
namespace {

using test::Lines;
using test::Metres;
using test::WaypointWorld;

struct Point {
  double latitude, longitude;
};

class GpsFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << folder << " is not there";
  }
  static std::string Bytes(const std::string& name) {
    const std::ifstream file(folder + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
  }
  static Lines MapSource(const std::string& name) {
    WaypointWorld world;
    world.ImporteMapSource(Bytes(name));
    return world.Lignes();
  }
  static Lines Wpt(const std::string& name) {
    WaypointWorld world;
    world.ImporteWpt(Bytes(name));
    return world.Lignes();
  }
  static std::vector<Point> Points(const Lines& rows) {
    std::vector<Point> all;
    for (const std::string& row : rows) {
      const Lines cells = Decoupe(row, '|');
      all.push_back({Val(cells[1]), Val(cells[2])});
    }
    return all;
  }
  /// Every point has one of the others near it.
  static void ExpectNear(const std::vector<Point>& points, const std::vector<Point>& others,
                         double metres) {
    for (const Point& p : points) {
      const bool found = std::any_of(others.begin(), others.end(), [&](const Point& o) {
        return Metres(p.latitude, p.longitude, o.latitude, o.longitude) < metres;
      });
      EXPECT_TRUE(found) << p.latitude << ' ' << p.longitude;
    }
  }

  static inline const std::string folder = std::string(TALPENA_SHARED_DATA) + "/gps/";
};

TEST_F(GpsFiles, AWaypointFileGivesThePointsOfItsMapSourceText) {
  const Lines wpt = Wpt("expertgps_gpsbabel.wpt"), text = MapSource("expertgps_deg.txt");
  EXPECT_EQ(wpt.size(), 86U);
  EXPECT_EQ(text.size(), 85U);
  ExpectNear(Points(wpt), Points(text), 4);
  ExpectNear(Points(text), Points(wpt), 4);
}

TEST_F(GpsFiles, NothingIsOddAboutThem) {
  WaypointWorld world;
  for (const std::string name :
       {"expertgps_gpsbabel.wpt", "derived/expertgps_line9_crlf.wpt", "bngtest_bng.txt",
        "bngtest_dms.txt", "expertgps_deg.txt", "garmin_txt.txt", "gridutm_dmm.txt"}) {
    if (name.ends_with(".wpt")) {
      world.ImporteWpt(Bytes(name));
    } else {
      world.ImporteMapSource(Bytes(name));
    }
    const std::string notice = world.state.document.Montre().avis;
    EXPECT_EQ(notice.find("look at"), std::string::npos) << name << ": " << notice;
    EXPECT_EQ(notice.find("datum line"), std::string::npos) << name << ": " << notice;
  }
}

TEST_F(GpsFiles, AWaypointFileWithItsEmptyFirstLineGivesTheSame) {
  EXPECT_EQ(Wpt("derived/expertgps_line9_crlf.wpt"), Wpt("expertgps_gpsbabel.wpt"));
}

TEST_F(GpsFiles, BothLayoutsGiveTheSame) {
  for (const std::string name :
       {"bngtest_bng", "bngtest_dms", "expertgps_deg", "garmin_txt", "gridutm_utm"}) {
    EXPECT_EQ(MapSource("derived/" + name + "_5line.txt"), MapSource(name + ".txt")) << name;
  }
}

// The two files were written from the same points. Expected on the British grid: the datum shift
// of three parameters, good to some 20 m.
TEST_F(GpsFiles, TheBritishGridGivesThePointsInDegrees) {
  const auto grid = Points(MapSource("bngtest_bng.txt"));
  const auto degrees = Points(MapSource("bngtest_dms.txt"));
  ASSERT_EQ(grid.size(), 2U);
  ASSERT_EQ(degrees.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_LT(
        Metres(grid[i].latitude, grid[i].longitude, degrees[i].latitude, degrees[i].longitude), 20);
  }
  EXPECT_NEAR(degrees[0].latitude, 50 + 49 / 60.0 + 38.638 / 3600, 1e-5);
  EXPECT_NEAR(degrees[0].longitude, -(2 + 3 / 60.0 + 1.164 / 3600), 1e-5);
}

/// "44 R 413954 2809536"
Point DeUtm(const std::string& position) {
  std::istringstream parts(position);
  int zone = 0;
  char band = 0;
  double x = 0, y = 0;
  parts >> zone >> band >> x >> y;
  Point p{};
  GeographicLib::UTMUPS::Reverse(zone, band >= 'N', x, y, p.latitude, p.longitude);
  return p;
}

TEST_F(GpsFiles, MinutesGiveThePointsThatStandInUtmBeside) {
  const auto points = Points(MapSource("gridutm_dmm.txt"));
  WaypointWorld world;
  world.files.Pose("utm", Bytes("gridutm_utm.txt"));
  MapSourceText utm;
  RempliLV(world.files, "utm", utm);
  ASSERT_EQ(points.size(), 37U);
  ASSERT_EQ(utm.items.Nombre(), 37U);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const std::string position(utm.items.Texte(i, WaypointColumn::Position));
    const Point p = DeUtm(position);
    EXPECT_LT(Metres(points[i].latitude, points[i].longitude, p.latitude, p.longitude), 3)
        << position;
  }
}

TEST_F(GpsFiles, PositionsInUtmEnterWithoutAPoint) {
  const Lines rows = MapSource("gridutm_utm.txt");
  ASSERT_EQ(rows.size(), 37U);
  for (const std::string& row : rows) EXPECT_EQ(row.substr(0, 20), "1|-|-|-|-|-|WGS84|-|");
}

TEST_F(GpsFiles, WaypointsAreTakenOutOfATextWithRoutesAndTracks) {
  const Lines rows = MapSource("garmin_txt.txt");
  ASSERT_EQ(rows.size(), 14U);
  EXPECT_EQ(rows[0].substr(rows[0].rfind('|')), "|001 - ");
  const auto points = Points(rows);
  EXPECT_NEAR(points[0].latitude, 50 + 29.556188732 / 60, 1e-5);
  EXPECT_NEAR(points[0].longitude, 12 + 6.325848140 / 60, 1e-5);
  EXPECT_EQ(MapSource("garmincategories.txt").size(), 2U);
}

TEST_F(GpsFiles, ATrackIsReadAsWaypointsByItsColumnsAndItsLinesAreTold) {
  WaypointWorld world;
  world.ImporteWpt(Bytes("pcx.trk"));
  EXPECT_EQ(world.Lignes().size(), 66U);
  EXPECT_EQ(world.Boites(),
            Lines{"Rows to look at: 66; the first, line 11 of the file: the line does "
                  "not begin with W, so it is probably no waypoint (a track?)."});
}

TEST_F(GpsFiles, AnotherDialectIsRefused) {
  WaypointWorld world;
  world.ImporteWpt(Bytes("gpsutil-1.pcx"));
  EXPECT_EQ(world.Boites(), Lines{"Les coordonnées doivent être exprimées en LAT LON DM.\n"
                                  "Importation annulée."});
  EXPECT_EQ(world.Lignes(), Lines{});
}

}  // namespace
}  // namespace talpena

// MapSource text as another program writes and reads it.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "fakes/temp_folder.h"
#include "interchange/garmin_position.h"
#include "interchange/waypoint_world.h"

namespace talpena {
namespace {

using test::Lines;
using test::Metres;
using test::WaypointWorld;

struct Waypoint {
  std::string name;
  double latitude, longitude;
};

/// Half of them on the British grid, all where UTM is defined.
const std::vector<Waypoint> waypoints = {
    {"Dover", 51.127876, 1.313403},
    {"Lands End", 50.066111, -5.714722},
    {"Orkney", 58.984722, -2.958889},
    {"Bath", 51.381389, -2.356667},
    {"Brussels", 50.846667, 4.3525},
    {"Ushuaia", -54.801912, -68.302951},
    {"Wellington", -41.288889, 174.777222},
    {"Equator", 0.000123, -0.000456},
    {"Bering", 65.5, -168.999},
    {"Fiji", -16.5, 179.99},
};
constexpr std::size_t british = 4;

class Gpsbabel : public ::testing::Test {
 protected:
  void SetUp() override {
    if (std::system("gpsbabel -V > /dev/null 2>&1") != 0) GTEST_SKIP() << "no gpsbabel";
  }
  void Execute(const std::string& arguments) const {
    const std::string command =
        "cd '" + (folder / "") + "' && gpsbabel " + arguments + " > log 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << command << '\n' << Bytes("log");
  }
  std::string Bytes(const std::string& name) const {
    const std::ifstream file(folder / name, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
  }
  void Ecrit(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
  }
  /// The first of the waypoints as a text on a grid.
  std::string MapSource(const std::string& options, std::size_t count) const {
    std::string csv = "name,lat,lon\n";
    for (std::size_t i = 0; i < count; ++i) {
      csv += waypoints[i].name + "," + Str(waypoints[i].latitude) + "," +
             Str(waypoints[i].longitude) + "\n";
    }
    Ecrit("in.csv", csv);
    Execute("-i unicsv -f in.csv -o garmin_txt," + options + " -F out.txt");
    return Bytes("out.txt");
  }
  static void ExpectPoints(WaypointWorld& world, std::size_t count, double metres) {
    const Lines rows = world.Lignes();
    ASSERT_EQ(rows.size(), count);
    for (const std::string& row : rows) {
      const Lines cells = Decoupe(row, '|');
      const std::string name = cells.back().substr(0, cells.back().find(" - "));
      const auto meant = std::find_if(waypoints.begin(), waypoints.end(),
                                      [&](const Waypoint& w) { return w.name == name; });
      ASSERT_NE(meant, waypoints.end()) << row;
      EXPECT_LT(Metres(Val(cells[1]), Val(cells[2]), meant->latitude, meant->longitude), metres)
          << row;
    }
  }

  test::TempFolder folder;
};

struct GridCase {
  const char* name;
  const char* options;
  std::size_t count;
  double metres;  ///< half of the last digit that is stored; the datum shift on the British grid
};

constexpr GridCase grids[] = {
    {"degrees", "grid=0,prec=6", 10, 1}, {"degrees, three decimals", "grid=0", 10, 80},
    {"minutes", "grid=1,prec=5", 10, 1}, {"minutes, three decimals", "grid=1", 10, 2},
    {"seconds", "grid=2,prec=4", 10, 4}, {"seconds, three decimals", "grid=2", 10, 4},
    {"British", "grid=3", british, 20},
};

TEST_F(Gpsbabel, WhatItWritesOnEveryGridComesIn) {
  for (const GridCase& grid : grids) {
    SCOPED_TRACE(grid.name);
    WaypointWorld world;
    world.ImporteMapSource(MapSource(grid.options, grid.count));
    EXPECT_EQ(world.Boites(), Lines{});
    ExpectPoints(world, grid.count, grid.metres);
  }
}

TEST_F(Gpsbabel, WhatItWritesOnOtherDatumsComesIn) {
  struct DatumCase {
    const char* name;
    const char* code;
  };
  for (const DatumCase datum : {DatumCase{"European 1950", "EUR-M"},
                                {"Ord Srvy Grt Britn", "OGB-M"},
                                {"WGS 72", "WGS72"}}) {
    SCOPED_TRACE(datum.name);
    WaypointWorld world;
    world.ImporteMapSource(
        MapSource("grid=0,prec=6,datum=\"" + std::string(datum.name) + "\"", british));
    EXPECT_EQ(Decoupe(world.Lignes().at(0), '|')[6], datum.code);
    ExpectPoints(world, british, 5);
  }
}

TEST_F(Gpsbabel, ItsPositionsInUtmEnterWithoutAPoint) {
  WaypointWorld world;
  world.ImporteMapSource(MapSource("grid=4", 6));
  ASSERT_EQ(world.Lignes().size(), 6U);
  EXPECT_EQ(world.Lignes()[0].substr(0, 20), "1|-|-|-|-|-|WGS84|-|");
}

TEST_F(Gpsbabel, ASwissGridSelectsNothing) {
  Ecrit("in.csv", "name,lat,lon\nBern,46.95,7.44\n");
  Execute("-i unicsv -f in.csv -o garmin_txt,grid=5 -F out.txt");
  WaypointWorld world;
  MapSourceText text;
  world.files.Pose("w", Bytes("out.txt"));
  RempliLV(world.files, "w", text);
  EXPECT_EQ(text.grid, std::nullopt);
  EXPECT_EQ(text.datum, "WGS84");
  EXPECT_EQ(text.items.Nombre(), 1U);
}

/// A MapSource text of the rows of a table.
std::string EnMapSource(const Lines& rows) {
  std::string text =
      "Grid\tLat/Lon hddd.ddddd\xB0\r\nDatum\tWGS 84\r\n\r\n"
      "Header\tName\tDescription\tType\tPosition\tAltitude\r\n\r\n";
  for (const std::string& row : rows) {
    const Lines cells = Decoupe(row, '|');
    const double latitude = Val(cells[1]), longitude = Val(cells[2]);
    text += "Waypoint\t" + cells.back() + "\t\tUser Waypoint\t" + (latitude < 0 ? "S" : "N") +
            Format(std::fabs(latitude), "0.00000") + (longitude < 0 ? " W" : " E") +
            Format(std::fabs(longitude), "0.00000") + "\t\r\n";
  }
  return text;
}

TEST_F(Gpsbabel, ReadsATextOfOurRowsAsWeDo) {
  WaypointWorld world;
  world.ImporteMapSource(MapSource("grid=2", waypoints.size()));
  const std::string ours = EnMapSource(world.Lignes());
  Ecrit("ours.txt", ours);
  Execute("-i garmin_txt -f ours.txt -o garmin_txt,grid=0,prec=5 -F again.txt");
  WaypointWorld direct, through;
  direct.ImporteMapSource(ours);
  through.ImporteMapSource(Bytes("again.txt"));
  Lines expected = direct.Points(), read = through.Points();
  std::sort(expected.begin(), expected.end());
  std::sort(read.begin(), read.end());
  EXPECT_EQ(read, expected);
}

}  // namespace
}  // namespace talpena

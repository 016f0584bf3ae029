// The lists that ship as examples come in whole, and their points lie where such records may lie.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "common/text.h"
#include "interchange/imported_world.h"
#include "interchange/real_lists.h"
#include "interchange/waypoint_commands.h"

namespace talpena {
namespace {

using test::RealArea;

struct Sample {
  const char* code;  ///< its file is data/samples/import/CODE.txt
  RealArea area;
};

// The countries that the records are made up in. References of Morocco read 3.6 and 4.3 km too far
// to the south.
// clang-format off
constexpr std::array<Sample, CoordSystemCount> samples{{
    {"deg", {45, 51, -2, 17}},   {"dms", {46, 52, -2, 17}},   {"utm", {44, 53, -2, 14}},
    {"mgr", {44, 53, -2, 14}},   {"grp", {45, 50, 0, 8}},     {"bng", {50, 57, -4, 1}},
    {"itm", {52, 55, -10, -5}},  {"lmb", {49.5, 51.2, 3, 6}}, {"ifb", {49.5, 51.2, 3, 6}},
    {"lf1", {48.5, 50.5, 1, 7}}, {"lf2", {46, 48, -2, 7}},    {"lf3", {43, 45, 0, 6}},
    {"lf4", {41, 43, 8, 10}},    {"lfe", {43, 49, -5, 8}},    {"nma", {32, 36, -8, -1}},
    {"sma", {29, 32, -10, -5}},
}};
// clang-format on

constexpr int systems[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};

std::string Contenu(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::stringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

class ImportSamples : public ::testing::TestWithParam<int> {
 protected:
  const Sample& sample = samples[static_cast<std::size_t>(GetParam())];
  CoordSystem system = static_cast<CoordSystem>(GetParam());
  std::string bytes =
      Contenu(std::string(TALPENA_SOURCE_DIR "/data/samples/import/") + sample.code + ".txt");
};

TEST_P(ImportSamples, ComeInWithAllTheirRows) {
  test::ImportedWorld world;
  world.Importe(system, bytes);
  ASSERT_TRUE(world.dialogues.boxes.empty()) << world.dialogues.boxes[0].text;
  const auto rows = world.Rows();
  ASSERT_EQ(rows.size(), 6U);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.original);
    EXPECT_EQ(row.original.substr(0, 4), sample.code + std::string(" "));
    EXPECT_GT(row.latitude, sample.area.south);
    EXPECT_LT(row.latitude, sample.area.north);
    EXPECT_GT(row.longitude, sample.area.west);
    EXPECT_LT(row.longitude, sample.area.east);
    EXPECT_TRUE(row.period >= 1 && row.period <= 3);
    EXPECT_TRUE(row.n1 >= 1 && row.n2 >= 1);
    EXPECT_EQ(row.date.size(), 10U);
    EXPECT_FALSE(row.comment.empty());
  }
  EXPECT_EQ(rows[5].comment, "É. Fictif");
}

// One comment line at their head, six records, and what every editor shows alike.
TEST_P(ImportSamples, AreInTheFormOfWindows) {
  EXPECT_EQ(bytes.substr(0, 2), "* ");
  EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
  std::size_t lines = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    EXPECT_NE(bytes[i], '\t');
    if (bytes[i] != '\n') continue;
    ++lines;
    EXPECT_EQ(bytes[i - 1], '\r');
  }
  EXPECT_EQ(lines, 7U);
}

// Whoever has no example at hand sees two of its records in the guide.
TEST_P(ImportSamples, StandInTheGuide) {
  std::vector<std::string> lines = Decoupe(bytes, '\n');
  for (const char* language : {"en", "fr"}) {
    const std::string guide =
        Contenu(TALPENA_SOURCE_DIR "/data/help/" + std::string(language) + "/import-text.html");
    EXPECT_NE(guide.find("<code>" + std::string(sample.code) + ".txt</code>"), std::string::npos);
    for (const std::size_t line : {1U, 3U}) {
      const std::string record = lines[line].substr(0, lines[line].size() - 1);
      EXPECT_NE(guide.find("<code>" + record + "</code>"), std::string::npos) << record;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Systems, ImportSamples, ::testing::ValuesIn(systems));

std::string Exemple(const std::string& name) {
  return Contenu(TALPENA_SOURCE_DIR "/data/samples/import/" + name);
}

void ExpectSixPoints(const std::vector<test::ImportedWorld::Row>& rows) {
  ASSERT_EQ(rows.size(), 6U);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.original);
    EXPECT_EQ(row.original.substr(0, 4), "deg ");
    EXPECT_TRUE(row.latitude > 42 && row.latitude < 52);
    EXPECT_TRUE(row.longitude > -2 && row.longitude < 5);
  }
}

TEST(WaypointSamples, OfWptFilesComeInWithAllTheirRows) {
  test::ImportedWorld world;
  world.files.Pose("/data/garmin.wpt", Exemple("garmin.wpt"));
  world.dialogues.paths.emplace_back("/data/garmin.wpt");
  ImportGarmin(world.Contexte());
  ASSERT_TRUE(world.dialogues.boxes.empty()) << world.dialogues.boxes[0].text;
  const auto rows = world.Rows();
  ExpectSixPoints(rows);
  EXPECT_EQ(rows[0].date, "1998/04/17");
  EXPECT_EQ(rows[3].date, "");
  EXPECT_EQ(rows[3].comment.substr(0, 38), "  150 HILLS  Molehills along the hedge");
}

// With the dates of its last column.
TEST(WaypointSamples, OfMapSourceComeInWithAllTheirRows) {
  test::ImportedWorld world;
  world.files.Pose("/data/mapsource.txt", Exemple("mapsource.txt"));
  objGraminImport options;
  const MapSourceText text =
      ChargeImportGarmin(world.state, world.io, "/data/mapsource.txt", 0, options);
  ASSERT_FALSE(text.wrongType);
  ASSERT_EQ(text.datum, "WGS84");
  options.DateImport = 2;
  options.DateField = "Date Modified";
  InterchangeState interchange;
  ImportMapSource(world.context, interchange, text, {*text.grid, text.datum, TousLesPoints(text)},
                  options);
  ASSERT_TRUE(world.dialogues.boxes.empty()) << world.dialogues.boxes[0].text;
  const auto rows = world.Rows();
  ExpectSixPoints(rows);
  EXPECT_EQ(rows[0].date, "2002/04/17");
  EXPECT_EQ(rows[5].date, "1999/03/30");
  EXPECT_EQ(rows[5].comment, "MOLE6 - É. Fictif");
}

}  // namespace
}  // namespace talpena

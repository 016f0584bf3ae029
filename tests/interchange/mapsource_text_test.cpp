#include "interchange/mapsource_text.h"

#include <gtest/gtest.h>

#include "common/talpena_error.h"
#include "common/text.h"
#include "interchange/import_records.h"

namespace talpena {
namespace {

MapSourceText TexteDe(const std::string& bytes) {
  MapSourceText text;
  RempliLV(test::EnMemoire(bytes), "/gps/w.txt", text);
  return text;
}

/// The layout of five lines.
const std::string five =
    "Grid\tLat/Lon hddd.ddddd°\r\n"
    "\r\n"
    "Datum\tWGS 84\r\n"
    "any text\r\n"
    "Header\tName\tDescription\tType\tPosition\tAltitude\t\r\n"
    "Waypoint\tA\tAlpha\tUser\tN1 E2\t10 m\t\r\n"
    "Track\tNot a point\t\r\n"
    "Waypoint without a tab\r\n"
    "waypoint\tB\tBeta\tUser\tN3 E4\t20 m\t\r\n";

TEST(RempliLV, ReadsTheLayoutOfFiveLines) {
  const MapSourceText text = TexteDe(five);
  EXPECT_FALSE(text.wrongType);
  EXPECT_EQ(text.grid, GarminGrid::Degrees);
  EXPECT_EQ(text.datum, "WGS84");
  EXPECT_EQ(text.captions, (std::vector<std::string>{"Header", "Name", "Description", "Type",
                                                     "Position", "Altitude"}));
  ASSERT_EQ(text.items.Nombre(), 2U);
  EXPECT_EQ(text.items.Texte(0, 0), "Waypoint");
  EXPECT_EQ(text.items.Texte(0, WaypointColumn::Name), "A");
  EXPECT_EQ(text.items.Texte(0, WaypointColumn::Description), "Alpha");
  EXPECT_EQ(text.items.Texte(0, WaypointColumn::Position), "N1 E2");
  EXPECT_EQ(text.items.Texte(0, 5), "10 m");
  EXPECT_EQ(text.items.Texte(0, 6), "");
  EXPECT_EQ(text.items.Texte(1, 0), "waypoint");
  EXPECT_EQ(text.items.Texte(1, WaypointColumn::Name), "B");
  EXPECT_EQ(text.items.Ligne(0), 6);
  EXPECT_EQ(text.items.Ligne(1), 9);
}

TEST(RempliLV, KeepsTheFirstLinesForTheHeaderBox) {
  EXPECT_EQ(TexteDe(five).header,
            "/gps/w.txt\r\nGrid\tLat/Lon hddd.ddddd°\r\n\r\nDatum\tWGS 84\r\nany text\r\n");
}

TEST(RempliLV, ReadsTheDatumOnTheSecondLineToo) {
  const MapSourceText text = TexteDe(
      "Grid\tBritish National Grid\nDatum\tOrd Srvy Grt Britn\n\n  \nHeader\tName\tLast\n\n"
      "Waypoint\tA\tkept\nWaypoint\tB\t\n");
  EXPECT_FALSE(text.wrongType);
  EXPECT_EQ(text.grid, GarminGrid::British);
  EXPECT_EQ(text.datum, "OGB-M");
  EXPECT_EQ(text.captions, (std::vector<std::string>{"Header", "Name", "Last"}));
  ASSERT_EQ(text.items.Nombre(), 2U);
  EXPECT_EQ(text.items.Texte(0, 2), "kept");
  EXPECT_EQ(text.items.Texte(1, 1), "B");
  EXPECT_EQ(text.items.Texte(1, 2), "");
  EXPECT_EQ(text.header,
            "/gps/w.txt\r\nGrid\tBritish National Grid\r\nDatum\tOrd Srvy Grt Britn\r\n\r\n  \r\n");
}

TEST(RempliLV, DropsTheLastElementAlwaysInTheLayoutOfFiveLines) {
  const MapSourceText text = TexteDe(
      "GRID\tUTM\nx\nDATUM\tWGS 84\nx\nHEADER\tName\tDropped\nWAYPOINT\tA\tdropped\nWAYPOINT\tB\n");
  EXPECT_EQ(text.captions, (std::vector<std::string>{"HEADER", "Name"}));
  EXPECT_EQ(text.items.Texte(0, 1), "A");
  EXPECT_EQ(text.items.Texte(0, 2), "");
  EXPECT_EQ(text.items.Texte(1, 0), "WAYPOINT");
  EXPECT_EQ(text.items.Texte(1, 1), "");
}

TEST(RempliLV, DropsOnlyAnEmptyLastElementInTheOtherLayout) {
  const MapSourceText text =
      TexteDe("Grid\tUTM\nDatum\tWGS 84\nHeader\tName\t\nWaypoint\tA\t\t\nWaypoint\tB\tc\n");
  EXPECT_EQ(text.captions, (std::vector<std::string>{"Header", "Name"}));
  EXPECT_EQ(text.items.Texte(0, 1), "A");
  EXPECT_EQ(text.items.Texte(1, 2), "c");
}

TEST(RempliLV, KnowsSevenGridsInAnyCase) {
  for (std::size_t i = 0; i < GrillesGarmin.size(); ++i) {
    const std::string name(GrillesGarmin[i]);
    EXPECT_EQ(TexteDe("GRID\t" + name + "\nDatum\tWGS 84\nHeader\tA\n").grid, static_cast<int>(i));
    EXPECT_EQ(TexteDe("grid\t" + Minuscules(name) + "\nDatum\tWGS 84\nHeader\tA\n").grid,
              static_cast<int>(i));
  }
  EXPECT_EQ(TexteDe("Grid\tSwiss Grid\nDatum\tWGS 84\nHeader\tA\n").grid, std::nullopt);
}

TEST(RempliLV, ReadsDegreeSignsInBothCharacterSets) {
  const std::string rest = "\nDatum\tWGS 84\nHeader\tA\n";
  EXPECT_EQ(TexteDe("Grid\tLat/Lon hddd\xB0mm.mmm'" + rest).grid, GarminGrid::Minutes);
  EXPECT_EQ(TexteDe("Grid\tLat/Lon hddd°mm.mmm'" + rest).grid, GarminGrid::Minutes);
  EXPECT_EQ(TexteDe("\xEF\xBB\xBFGrid\tLat/Lon hddd°mm.mmm'" + rest).grid, GarminGrid::Minutes);
}

TEST(RempliLV, LeavesTheDatumEmptyForAnUnknownName) {
  const MapSourceText text = TexteDe("Grid\tUTM\nDatum\tMoon 2000\nHeader\tA\n");
  EXPECT_FALSE(text.wrongType);
  EXPECT_EQ(text.datum, "");
}

struct WrongFile {
  const char* name;
  const char* bytes;
  std::optional<int> grid;
  const char* datum;
};

// clang-format off
const WrongFile wrongFiles[] = {
    {"first line",               "Gird\tUTM\nx\nDatum\tWGS 84\nx\nHeader\tA\t\n", {}, ""},
    {"third line",               "Grid\tUTM\nx\nDatm\tWGS 84\nx\nHeader\tA\t\n",  4,  ""},
    {"fifth line",               "Grid\tUTM\nx\nDatum\tWGS 84\nx\nHeaders\tA\t\n", 4, "WGS84"},
    {"header behind the datum",  "Grid\tUTM\nDatum\tWGS 84\n\nx\n",               4,  "WGS84"},
    {"another kind",             "a,b,c\n",                                       {}, ""},
};
// clang-format on

TEST(RempliLV, TellsFilesOfAnotherKindWithWhatWasReadOfThem) {
  for (const WrongFile& file : wrongFiles) {
    SCOPED_TRACE(file.name);
    const MapSourceText text = TexteDe(file.bytes);
    EXPECT_TRUE(text.wrongType);
    EXPECT_EQ(text.grid, file.grid);
    EXPECT_EQ(text.datum, file.datum);
    EXPECT_EQ(text.items.Nombre(), 0U);
  }
}

struct CutFile {
  const char* name;
  const char* bytes;
  int number;
  std::int64_t line;
};

// clang-format off
constexpr CutFile cutFiles[] = {
    {"empty",                     "",                                    62, 0},
    {"nothing but the end mark",  "\x1A",                                62, 0},
    {"one line",                  "Grid\tUTM",                           62, 0},
    {"no header",                 "Grid\tUTM\nDatum\tWGS 84\n\n",        62, 0},
    {"no header of five lines",   "Grid\tUTM\nx\nDatum\tWGS 84\nx",      62, 0},
    {"no name of the grid",       "Grid\nDatum\tWGS 84\nHeader\tA\n",     9, 1},
    {"no name of the datum",      "Grid\tUTM\nDatum\nHeader\tA\n",        9, 2},
    {"no name on the third line", "Grid\tUTM\nx\nDatum\nx\nHeader\tA\n",  9, 3},
};
// clang-format on

TEST(RempliLV, FailsWhereAFileIsCut) {
  for (const CutFile& file : cutFiles) {
    SCOPED_TRACE(file.name);
    try {
      TexteDe(file.bytes);
      ADD_FAILURE() << "read";
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), file.number);
      EXPECT_EQ(e.words().line, file.line);
    }
  }
}

TEST(RempliLV, KeepsWhatWasReadBeforeAFailure) {
  MapSourceText text;
  EXPECT_THROW(RempliLV(test::EnMemoire("Grid\tUTM\nDatum\tWGS 84\n"), "p", text), TalpenaError);
  EXPECT_EQ(text.grid, GarminGrid::Utm);
  EXPECT_EQ(text.datum, "WGS84");
  EXPECT_EQ(text.header, "p\r\nGrid\tUTM\r\nDatum\tWGS 84\r\n");
}

TEST(RempliLV, TakesAnyLineEndAndABareEnd) {
  const std::string lf = "Grid\tUTM\nDatum\tWGS 84\n\nHeader\tName\n\nWaypoint\tA";
  for (const char* end : {"\n", "\r\n", "\r"}) {
    const MapSourceText text = TexteDe(Remplace(lf, "\n", end));
    ASSERT_EQ(text.items.Nombre(), 1U);
    EXPECT_EQ(text.items.Texte(0, 1), "A");
  }
  EXPECT_EQ(TexteDe(lf + "\n\x1AWaypoint\tB\n").items.Nombre(), 1U);
}

TEST(RempliLV, KeepsBytesThatAreNoTextAsCharacters) {
  const std::string line = std::string("Waypoint\tA") + '\0' + "\xE9\t";
  const MapSourceText text = TexteDe("Grid\tUTM\nDatum\tWGS 84\nHeader\tName\n" + line);
  EXPECT_EQ(text.items.Texte(0, 1), std::string("A") + '\0' + "é");
}

TEST(WaypointList, TellsWhenItHoldsTooMuch) {
  WaypointList list;
  const std::string big(WaypointList::longest / 2 + 1, 'x');
  list.Ajoute(big, 1);
  EXPECT_THROW(list.Ajoute(big, 2), TalpenaError);
  EXPECT_EQ(list.Nombre(), 1U);
}

}  // namespace
}  // namespace talpena

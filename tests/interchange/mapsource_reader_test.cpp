#include "interchange/mapsource_reader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/error_words.h"
#include "common/msg_id_errors.h"
#include "common/msg_id_import.h"
#include "common/talpena_error.h"
#include "interchange/import_records.h"

namespace talpena {
namespace {

using test::EnteteAvec;
using Lines = std::vector<std::string>;

/// Waypoints with an altitude and a date.
MapSourceText PointsDe(const std::string& waypoints) {
  const std::string bytes =
      "Grid\tLat/Lon hddd.ddddd°\nDatum\tWGS 84\n\n"
      "Header\tName\tDescription\tType\tPosition\tAltitude\tDate\n\n" +
      waypoints;
  MapSourceText text;
  RempliLV(test::EnMemoire(bytes), "w.txt", text);
  return text;
}

const std::string alpha = "Waypoint\tA\tAlpha\tUser\tN1 E2\t123 M\t17-APR-02\n";

class MapSourceReaderTest : public ::testing::Test {
 protected:
  Lines Lit(const std::string& waypoints) {
    text = PointsDe(waypoints);
    choice.items = TousLesPoints(text);
    if (adapte) adapte();
    MapSourceReader reader(text, choice, options, entete);
    return test::Fiches(reader);
  }
  std::string Une(const std::string& waypoint = alpha) {
    const Lines all = Lit(waypoint);
    return all.size() == 1 ? all.front().substr(all.front().find(' ') + 1) : "not one row";
  }

  MapSourceText text;
  MapSourceChoice choice{.grid = 0, .datum = "NTF", .items = {}};
  objGraminImport options;
  DistributionHeader entete;
  std::function<void()> adapte;
};

TEST_F(MapSourceReaderTest, GivesPeriodDatumOriginalNameAndDescription) {
  options.Period = 3;
  EXPECT_EQ(Lit(alpha), Lines{"6: 3|-|-|NTF  |deg 1 2|-|A - Alpha"});
}

TEST_F(MapSourceReaderTest, DropsUncheckedWaypointsAndThoseWithoutAPosition) {
  adapte = [&] { choice.items[1].checked = false; };
  EXPECT_EQ(Lit(alpha + alpha + "Waypoint\tC\tGamma\tUser\t\t\t\nWaypoint\tD\n"),
            (Lines{"6: 1|-|-|NTF  |deg 1 2|-|A - Alpha",
                   "7: dropped " + std::to_string(MsgId::PointNonCoche),
                   "8: dropped " + std::to_string(MsgId::PointSansPosition),
                   "9: dropped " + std::to_string(MsgId::PointSansPosition)}));
}

TEST_F(MapSourceReaderTest, GoesInTheOrderOfTheList) {
  adapte = [&] { std::reverse(choice.items.begin(), choice.items.end()); };
  EXPECT_EQ(Lit("Waypoint\tA\t\t\tN1 E2\nWaypoint\tB\t\t\tN3 E4\n"),
            (Lines{"7: 1|-|-|NTF  |deg 3 4|-|B - ", "6: 1|-|-|NTF  |deg 1 2|-|A - "}));
}

TEST_F(MapSourceReaderTest, GivesRowsOnGridUtmWithoutOriginal) {
  choice.grid = GarminGrid::Utm;
  EXPECT_EQ(Une("Waypoint\tA\tAlpha\tUser\t44 R 413954 2809536\n"), "1|-|-|NTF  |-|-|A - Alpha");
}

TEST_F(MapSourceReaderTest, WritesTheFixedDate) {
  options.DateImport = 1;
  options.DateFixed = "2002/04/17";
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|2002/04/17|A - Alpha");
}

TEST_F(MapSourceReaderTest, CutsTheDateOutOfItsColumn) {
  options.DateImport = 2;
  options.DateField = "Date";
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|2002/04/17|A - Alpha");
  options.DateBegin = 4;
  EXPECT_EQ(Une("Waypoint\tA\tB\tU\tN1 E2\t\tat 17-APR-81 noon\n"),
            "1|-|-|NTF  |deg 1 2|1981/04/17|A - B");
}

TEST_F(MapSourceReaderTest, TakesTheDateOfTheFirstColumnFromTheItemItself) {
  options.DateImport = 2;
  options.DateField = "Header";
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|2000/00/00|A - Alpha");
}

TEST_F(MapSourceReaderTest, GivesNoDateWhereItsColumnIsMissing) {
  options.DateImport = 2;
  options.DateField = "date";
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|A - Alpha");
  options.DateField = "";
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|A - Alpha");
}

TEST_F(MapSourceReaderTest, WritesTheFixedAltitudeIntoItsFreeField) {
  entete = EnteteAvec({"STAT.TOPO", "STAT.ALTI", "REM"});
  options.AltitudeImport = 1;
  options.AltitudeFixed = "about 5 m";
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|/about 5 m//A - Alpha");
}

TEST_F(MapSourceReaderTest, ReadsAltitudesInMetres) {
  entete = EnteteAvec({"ALTI"});
  options.AltitudeImport = 2;
  options.AltitudeField = "Altitude";
  options.AltitudeLength = 6;
  const auto altitude = [&](const std::string& column) {
    const std::string row = Une("Waypoint\tA\tB\tU\tN1 E2\t" + column + "\tx\n");
    return row.substr(row.rfind('|') + 1);
  };
  EXPECT_EQ(altitude("123 M"), "123/A - B");
  EXPECT_EQ(altitude("54 m"), "54/A - B");
  EXPECT_EQ(altitude("-5 m"), "-5/A - B");
  EXPECT_EQ(altitude("1 234"), "1234/A - B");
  EXPECT_EQ(altitude("abc"), "/A - B");
  EXPECT_EQ(altitude("12 ft"), "/A - B");
  EXPECT_EQ(altitude(""), "/A - B");
  options.AltitudeLength = 2;
  EXPECT_EQ(altitude("123 M"), "12/A - B");
  options.AltitudeBegin = 2;
  EXPECT_EQ(altitude("123 M"), "23/A - B");
}

TEST_F(MapSourceReaderTest, FindsTheAltitudeFieldInAnyCase) {
  options.AltitudeImport = 1;
  options.AltitudeFixed = "7";
  for (const char* code : {"alti", "Alti", "stat.alti", "STAT.ALTI"}) {
    entete = EnteteAvec({"a", code});
    EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|/7/A - Alpha") << code;
  }
  entete = EnteteAvec({"ALTI", "STAT.ALTI"});
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|7//A - Alpha");
}

TEST_F(MapSourceReaderTest, WritesNoSeparatorsWithoutAnAltitude) {
  entete = EnteteAvec({"a", "ALTI"});
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|A - Alpha");  // nothing asked for
  options.AltitudeImport = 2;
  options.AltitudeField = "altitude";
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|A - Alpha");  // no such column
  options.AltitudeImport = 1;
  entete = EnteteAvec({"a", "b"});
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|A - Alpha");  // no such field
  entete = EnteteAvec({"ALTI"});
  entete.FreeFieldCount = 0;
  EXPECT_EQ(Une(), "1|-|-|NTF  |deg 1 2|-|A - Alpha");  // no layout in force
}

TEST_F(MapSourceReaderTest, NamesTheWaypointOfAPositionWithTooFewParts) {
  const std::string bad = "Waypoint\tB\tBeta\tUser\tN1\n";
  text = PointsDe(alpha + bad + alpha);
  choice.items = TousLesPoints(text);
  MapSourceReader reader(text, choice, options, entete);
  ImportRecord record;
  EXPECT_TRUE(reader.Suivant(record));
  for (int again = 0; again < 2; ++again) {
    try {
      reader.Suivant(record);
      ADD_FAILURE() << "read";
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::SubscriptOutOfRange);
      EXPECT_EQ(DescriptionErreur(1000, e),
                "Line 7 of the file: The position “N1” of the waypoint “B” does not have the form "
                "of the grid that is chosen; choose the grid of the file.");
    }
  }
}

TEST_F(MapSourceReaderTest, TellsHowFarItIs) {
  text = PointsDe(alpha + alpha);
  choice.items = TousLesPoints(text);
  MapSourceReader reader(text, choice, options, entete);
  ImportRecord record;
  EXPECT_EQ(reader.Part(), 0);
  reader.Suivant(record);
  EXPECT_EQ(reader.Part(), 0.5);
  reader.Suivant(record);
  EXPECT_EQ(reader.Part(), 1);
  EXPECT_FALSE(reader.Suivant(record));
}

TEST_F(MapSourceReaderTest, TellsColumnsThatTheFileLacks) {
  text = PointsDe(alpha);
  EXPECT_EQ(AvisMapSource(1000, text, 0, options), Lines{});
  options = {.DateImport = 2, .DateField = "Date", .AltitudeImport = 2, .AltitudeField = "Height"};
  EXPECT_EQ(AvisMapSource(1000, text, 0, options),
            Lines{"This file has no column “Height”, so the rows get no altitude; choose another "
                  "one in the options."});
  options.AltitudeField = "Altitude";
  options.DateField = "When";
  EXPECT_EQ(AvisMapSource(1000, text, 0, options),
            Lines{"This file has no column “When”, so the rows get no date; choose another one in "
                  "the options."});
}

TEST_F(MapSourceReaderTest, TellsIrishReferencesWithOneLetter) {
  text = PointsDe("Waypoint\tA\t\t\tIO 15904 34671\nWaypoint\tB\t\t\tO 15904 34671\n");
  EXPECT_EQ(AvisMapSource(1000, text, GarminGrid::British, options), Lines{});
  EXPECT_EQ(AvisMapSource(1000, text, GarminGrid::Irish, options),
            Lines{"Irish references need two letters, IO for O: rows with one get a point in a "
                  "wrong square."});
  text = PointsDe("Waypoint\tA\t\t\tIO 15904 34671\n");
  EXPECT_EQ(AvisMapSource(1000, text, GarminGrid::Irish, options), Lines{});
}

TEST_F(MapSourceReaderTest, DoubtsDatesThatAreNotOfTheirForm) {
  options.DateImport = 2;
  options.DateField = "Date";
  const auto doutes = [&](const std::string& date) {
    text = PointsDe("Waypoint\tA\tAlpha\tUser\tN1 E2\t123 M\t" + date + "\tx\n");
    choice.items = TousLesPoints(text);
    MapSourceReader reader(text, choice, options, entete);
    return test::Doutes(reader);
  };
  EXPECT_EQ(doutes("17-APR-02"), std::vector{0});
  EXPECT_EQ(doutes("17-APR-02 12:15"), std::vector{0});
  for (const char* date : {"2002-04-17", "", "17-AVR-02", "17-APR-2002"}) {
    EXPECT_EQ(doutes(date), std::vector<int>{MsgId::DouteDate}) << date;
  }
  options.DateLength = 8;
  EXPECT_EQ(doutes("17-APR-02"), std::vector<int>{MsgId::DouteDate}) << "its year is cut";
  options.DateImport = 0;
  EXPECT_EQ(doutes("2002-04-17"), std::vector{0}) << "no date is asked for";
}

TEST_F(MapSourceReaderTest, CountsDoubtsOfWaypointsThatEnter) {
  text = PointsDe(alpha + "Waypoint\tB\t\t\t1 2\nWaypoint\tC\t\t\t\nWaypoint\tD\t\t\t3 4\n");
  choice.items = TousLesPoints(text);
  MapSourceReader reader(text, choice, options, entete);
  EXPECT_TRUE(reader.Doutes().EnMots(1000).empty());
  EXPECT_EQ(test::Doutes(reader),
            (std::vector<int>{0, MsgId::DouteHemisphere, 0, MsgId::DouteHemisphere}));
  EXPECT_EQ(reader.Doutes().EnMots(1000),
            std::vector<std::string>{"Rows to look at: 2; the first, line 7 of the file: its "
                                     "position has no N or S, or no E or W."});
}

// Of decimal commas and missing fields only lists can be suspected.
TEST_F(MapSourceReaderTest, ANumberTooLongForItsColumnIsNotOfTheGrid) {
  text = PointsDe("Waypoint\tB\t\t\tN123456789012345 E1234567890123\n");
  choice.items = TousLesPoints(text);
  MapSourceReader reader(text, choice, options, entete);
  ImportRecord record;
  try {
    reader.Suivant(record);
    ADD_FAILURE() << record.row.original.value_or("-");
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::FieldTooSmall);
    EXPECT_EQ(e.words().text, MsgId::PositionIllisible);
    EXPECT_GT(e.words().line, 0);
  }
}

}  // namespace
}  // namespace talpena

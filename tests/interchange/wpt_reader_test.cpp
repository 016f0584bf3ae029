#include "interchange/wpt_reader.h"

#include <gtest/gtest.h>

#include "common/error_words.h"
#include "common/msg_id_import.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/original.h"
#include "coords/test_catalogue.h"
#include "interchange/import_records.h"
#include "interchange/wpt_files.h"

namespace talpena {
namespace {

using test::EnColonnes;
using test::EnteteAvec;
using test::FichierWpt;
using test::LigneWpt;
using test::wptWgs84;
using Lines = std::vector<std::string>;

const CoordState& Etat(const std::string& code) {
  static CoordState state;
  if (state.Catalogue.Datums.empty()) state.Catalogue = test::CatalogueDesSources();
  state.DatumSpheriqueCode = code;
  state.DatumSpherique = ChercheDatum(state.Catalogue, code);
  return state;
}

Lines Lit(const std::string& bytes, const DistributionHeader& entete = {},
          const std::string& datum = "WGS84") {
  WptReader reader(test::EnMemoire(bytes), Etat(datum), entete);
  EXPECT_TRUE(reader.LitEnTete());
  return test::Fiches(reader);
}

/// The row of the only waypoint.
std::string Une(const std::string& waypoint, const DistributionHeader& entete = {}) {
  const Lines all = Lit(FichierWpt({waypoint}), entete);
  return all.size() == 1 ? all.front().substr(all.front().find(' ') + 1) : "not one row";
}

std::string Colonne(const std::string& row, std::size_t column) {
  return Decoupe(row, '|')[column];
}
constexpr std::size_t original = 4, date = 5, comment = 6;

TEST(WptReader, GivesARowOfDecimalDegreesOnTheDefaultDatum) {
  EXPECT_EQ(Lit(FichierWpt({LigneWpt("POINT1", "by the river")})),
            Lines{"12: 1|1|1|WGS84|deg +50.50833 -002.25417||  100 POINT1 by the river"});
}

struct AngleCase {
  const char* name;
  std::vector<std::pair<std::size_t, std::string>> parts;
  const char* original;
};

// Expected: by hand, degrees and minutes as decimal degrees.
const AngleCase angles[] = {
    {"north and east", {{11, "N5030.500"}, {23, "E00215.250"}}, "deg +50.50833 +002.25417"},
    {"south", {{11, "S5030.500"}, {23, "E00215.250"}}, "deg -50.50833 +002.25417"},
    {"west", {{11, "N0030.000"}, {23, "W17959.999"}}, "deg +00.50000 -179.99998"},
    {"anything else counts as plus",
     {{11, "s5030.500"}, {23, "X00215.250"}},
     "deg +50.50833 +002.25417"},
    {"three digits of a minute are read",
     {{11, "N4226.33268"}, {23, "W07107.15662"}},
     "deg +42.43887 -071.11927"},
    {"a line that ends early", {{11, "N5030"}}, "deg +50.50000 +000.00000"},
    {"a line without a position", {{1, "W"}}, "deg +00.00000 +000.00000"},
};

TEST(WptReader, ReadsAnglesByTheirColumns) {
  for (const AngleCase& c : angles) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Colonne(Une(EnColonnes(c.parts)), original), c.original);
  }
}

TEST(WptReader, CountsColumnsInCharacters) {
  const std::string line = Remplace(LigneWpt("ETE", "été"), "ETE", "ÉTÉ");
  EXPECT_EQ(Une(line), "1|1|1|WGS84|deg +50.50833 -002.25417||  100 ÉTÉ    été");
  const auto cp1252 = Utf8VersCp1252(line);
  ASSERT_TRUE(cp1252);
  EXPECT_EQ(Une(*cp1252), "1|1|1|WGS84|deg +50.50833 -002.25417||  100 ÉTÉ    été");
}

TEST(WptReader, DatesAllWaypointsInThe1900s) {
  EXPECT_EQ(Une(LigneWpt("POINT1", "17-APR-02 10:15:00")),
            "1|1|1|WGS84|deg +50.50833 -002.25417|1902/04/17|  100 POINT1");
  EXPECT_EQ(Colonne(Une(LigneWpt("P", "01-DEC-99 00:00")), date), "1999/12/01");
}

TEST(WptReader, KeepsTheFormerDateForAnUnknownMonth) {
  const Lines rows =
      Lit(FichierWpt({LigneWpt("A", "17-AVR-02 10:15:00"), LigneWpt("B", "17-APR-02 10:15:00"),
                      LigneWpt("C", "18-avr-03 10:15:00"), LigneWpt("D", "no date"),
                      LigneWpt("E", "19-avr-03 10:15:00")}));
  ASSERT_EQ(rows.size(), 5U);
  EXPECT_EQ(Colonne(rows[0], date), "");
  EXPECT_EQ(Colonne(rows[1], date), "1902/04/17");
  EXPECT_EQ(Colonne(rows[2], date), "1902/04/17");
  EXPECT_EQ(Colonne(rows[3], date), "");
  EXPECT_EQ(Colonne(rows[4], date), "");
}

TEST(WptReader, KnowsADateByItsDashesAndItsColon) {
  for (const char* text : {"17 APR-02 10:15:00", "17-APR 02 10:15:00", "17-APR-02 10.15.00",
                           "17-APR-02", "free text"}) {
    const std::string row = Une(LigneWpt("POINT1", text));
    EXPECT_EQ(Colonne(row, date), "") << text;
    EXPECT_EQ(Colonne(row, comment), std::string("  100 POINT1 ") + text);
  }
}

TEST(WptReader, TakesFortyCharactersOfFreeText) {
  const std::string forty = "1234567890123456789012345678901234567890";
  EXPECT_EQ(Colonne(Une(LigneWpt("POINT1", forty + "more")), comment), "  100 POINT1 " + forty);
}

TEST(WptReader, PutsTheTextBehindEmptyFreeFields) {
  const std::string line = LigneWpt("A/B", "c/d");
  EXPECT_EQ(Colonne(Une(line, EnteteAvec({"x", "y", "z"})), comment), "///  100 A B    c d");
  EXPECT_EQ(Colonne(Une(line, EnteteAvec({"x", "y"}, "#")), comment), "##  100 A/B    c/d");
}

TEST(WptReader, PutsNoSeparatorBeforeTheTextOfASingleFreeField) {
  const std::string line = LigneWpt("A/B", "c/d");
  EXPECT_EQ(Colonne(Une(line, EnteteAvec({"x"})), comment), "  100 A B    c d");
  DistributionHeader entete = EnteteAvec({"x", "y"});
  entete.FreeFieldCount = 0;
  EXPECT_EQ(Colonne(Une(line, entete), comment), "  100 A B    c d");
  EXPECT_EQ(Colonne(Une(line, EnteteAvec({"x"}, "")), comment), "  100 A/B    c/d");
}

/// The point of a row.
Place Point(const std::string& row) {
  const Lines tokens = Decoupe(Colonne(row, original), ' ');
  return {Val(tokens[1]), Val(tokens[2])};
}

TEST(WptReader, MovesPointsToTheDefaultDatum) {
  const Lines rows = Lit(FichierWpt({LigneWpt("A", "b")}), {}, "EUR-M");
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(Colonne(rows[0], 3), "EUR-M");
  const DatumCatalogue& catalogue = Etat("EUR-M").Catalogue;
  double latitude = 0, longitude = 0;
  ConvertitDatum(catalogue, 50 + 30.5 / 60, -(2 + 15.25 / 60), 0, latitude, longitude,
                 catalogue.DatumWgs84, catalogue.DatumEur);
  EXPECT_NEAR(Point(rows[0]).latitude, latitude, 0.6e-5);
  EXPECT_NEAR(Point(rows[0]).longitude, longitude, 0.6e-5);
  EXPECT_GT(test::Metres(Point(rows[0]).latitude, Point(rows[0]).longitude, 50 + 30.5 / 60,
                         -(2 + 15.25 / 60)),
            100);
}

TEST(WptReader, PadsTheCodeOfTheDatum) {
  const Lines rows = Lit(FichierWpt({LigneWpt("A", "b")}), {}, "NTF");
  EXPECT_EQ(Colonne(rows[0], 3), "NTF  ");
}

TEST(WptReader, LeavesPointsOnWgs84WhereTheDefaultDatumIsUnknown) {
  const Lines rows = Lit(FichierWpt({LigneWpt("A", "b")}), {}, "XYZ");
  EXPECT_EQ(rows, Lines{"12: 1|1|1|XYZ  |deg +50.50833 -002.25417||  100 A      b"});
}

TEST(WptReader, MovesPointsByTheNumbersOfTheDatumLine) {
  const std::string shifts =
      "M  G USER                 100 -2.510000e+02-1.419270e-05 -8.700000e+01-9.800000e+01 "
      "-1.210000e+02";
  const std::string spaced = EnColonnes({{1, "M  G USER"},
                                         {31, "-2.510000e+02"},
                                         {45, "-1.419270e-05"},
                                         {59, "-8.700000e+01"},
                                         {73, "-9.800000e+01"},
                                         {87, "-1.210000e+02"}});
  const Lines rows = Lit(FichierWpt({LigneWpt("A", "b")}, spaced));
  double latitude = 0, longitude = 0;
  MolodenskyParametres(50 + 30.5 / 60, -(2 + 15.25 / 60), 0, -251, -1.419270e-05, -87, -98, -121,
                       latitude, longitude);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_NEAR(Point(rows[0]).latitude, latitude, 0.6e-5);
  EXPECT_NEAR(Point(rows[0]).longitude, longitude, 0.6e-5);
}

TEST(WptReader, ReadsExponentsOfAnyLength) {
  const std::string three = EnColonnes({{1, "M  G USER"},
                                        {31, "+0.00000e+000"},
                                        {45, "+0.00000e+000"},
                                        {59, "+1.00000e+002"},
                                        {73, "+0.00000e+000"},
                                        {87, "+0.000000e+000"}});
  const std::string two = EnColonnes({{1, "M  G USER"}, {59, "100"}});
  EXPECT_EQ(Lit(FichierWpt({LigneWpt("A", "b")}, three)),
            Lit(FichierWpt({LigneWpt("A", "b")}, two)));
  EXPECT_NE(Lit(FichierWpt({LigneWpt("A", "b")}, three)), Lit(FichierWpt({LigneWpt("A", "b")})));
}

bool Accepte(const std::string& bytes) {
  const DistributionHeader entete;
  WptReader reader(test::EnMemoire(bytes), Etat("WGS84"), entete);
  return reader.LitEnTete();
}

TEST(WptReader, RefusesAnotherFormOfCoordinates) {
  const std::string file = FichierWpt({LigneWpt("A", "b")});
  EXPECT_TRUE(Accepte(file));
  for (const char* form :
       {"U  LAT LON DEG", "U  LAT LON DM ", "u  lat lon dm", "", "U LAT LON DM"}) {
    EXPECT_FALSE(Accepte(Remplace(file, "U  LAT LON DM", form))) << form;
  }
  EXPECT_FALSE(Accepte("\r\n" + file));
}

TEST(WptReader, ReadsFilesThatBeginOneLineEarlier) {
  const std::string earlier =
      FichierWpt({LigneWpt("A", "b"), LigneWpt("B", "c")}, EnColonnes({{1, "M"}, {59, "100"}}));
  const std::string file = earlier.substr(2);
  const Lines rows = Lit(file), whole = Lit(earlier);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].substr(0, 3), "11:");
  EXPECT_EQ(rows[0].substr(3), whole[0].substr(3));
  EXPECT_EQ(rows[1].substr(3), whole[1].substr(3));
  EXPECT_FALSE(Accepte(Remplace(file, "U  LAT LON DM", "U  LAT LON DM ")));
}

TEST(WptReader, PrefersTheNinthLine) {
  const std::string file =
      Remplace(FichierWpt({LigneWpt("A", "b")}), "H  COORDINATE SYSTEM", "U  LAT LON DM");
  EXPECT_EQ(Lit(file).size(), 1U);
  EXPECT_EQ(Lit(file)[0].substr(0, 3), "12:");
}

TEST(WptReader, FailsForFilesThatEndInTheirFirstLines) {
  const std::string file = FichierWpt({});
  EXPECT_EQ(Lit(file), Lines{});
  for (const std::string& cut : {std::string(), std::string("x"), file.substr(0, 40),
                                 file.substr(0, file.find("H  IDNT"))}) {
    try {
      Accepte(cut);
      ADD_FAILURE() << "read: " << cut;
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::InputPastEnd);
      EXPECT_EQ(DescriptionErreur(1000, e).find("distribution"), std::string::npos);
    }
  }
}

TEST(WptReader, TellsThatAWaypointFileEndsTooEarly) {
  try {
    Accepte("\r\nH  SOFTWARE\r\n");
    ADD_FAILURE() << "read";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(DescriptionErreur(1000, e),
              "The waypoint file ends too early, behind line 2, before its first waypoint; look "
              "whether it is whole, or write it again from the receiver.");
  }
}

TEST(WptReader, TakesAnyLineEndPassesOverEmptyLinesAndEndsAt1A) {
  const std::string file = FichierWpt({LigneWpt("A", "b"), "", "   ", LigneWpt("B", "c")});
  const Lines rows = Lit(file);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[1].substr(0, 3), "15:");
  EXPECT_EQ(Lit(Remplace(file, "\r\n", "\n")), rows);
  EXPECT_EQ(Lit(Remplace(file, "\r\n", "\r")), rows);
  EXPECT_EQ(Lit(file.substr(0, file.size() - 2)), rows);
  EXPECT_EQ(Lit(file + "\x1A" + LigneWpt("C", "d") + "\r\n"), rows);
}

TEST(WptReader, NamesTheLineOfAPositionThatCannotBeComputed) {
  const std::string file =
      FichierWpt({LigneWpt("A", "b"), EnColonnes({{11, "N50309e99"}, {23, "E00215.250"}})});
  const DistributionHeader entete;
  WptReader reader(test::EnMemoire(file), Etat("WGS84"), entete);
  ASSERT_TRUE(reader.LitEnTete());
  ImportRecord record;
  EXPECT_TRUE(reader.Suivant(record));
  for (int again = 0; again < 2; ++again) {
    try {
      reader.Suivant(record);
      ADD_FAILURE() << "read";
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::Overflow);
      EXPECT_EQ(DescriptionErreur(1000, e),
                "Line 13 of the file: The position “N50309e99   E00215.250” cannot be computed; "
                "correct it in the file.");
    }
  }
}

struct OddLineCase {
  const char* name;
  std::string line;
  int doubt;
};

// clang-format off
const OddLineCase oddLines[] = {
    {"a waypoint", LigneWpt("A", "b"), 0},
    {"more decimals of a minute", EnColonnes({{11, "N4226.33268"}, {23, "W07107.15662"}}), 0},
    {"whole minutes", EnColonnes({{11, "N5030"}, {23, "E00215"}}), 0},
    {"a track", "T  N3003.73100 W09136.62100 25-MAY-02 17:06:21 1", MsgId::DouteLigne},
    {"a waypoint without a position", "W  A      somewhere", MsgId::DoutePosition},
    {"a remark", "H  written by hand in the field, not by the receiver", MsgId::DouteLigne},
    {"nothing but a word", "END", MsgId::DouteLigne},
    {"no longitude", EnColonnes({{11, "N5030"}}), MsgId::DoutePosition},
    {"a column too far", EnColonnes({{12, "N5030.500"}, {24, "W00215.250"}}), MsgId::DoutePosition},
    {"degrees apart from the minutes", EnColonnes({{11, "N50 30.500"}, {23, "W002 15.250"}}), MsgId::DoutePosition},
    {"a small letter", EnColonnes({{11, "s5030.500"}, {23, "E00215.250"}}), MsgId::DouteHemisphere},
    {"no letter", EnColonnes({{12, "5030.500"}, {23, "E00215.250"}}), MsgId::DouteHemisphere},
    {"60 minutes, which are rounded", EnColonnes({{11, "N5060.000"}, {23, "E00260.000"}}), 0},
    {"60.5 minutes of latitude", EnColonnes({{11, "N5060.500"}, {23, "E00215.250"}}), MsgId::DouteMinutes},
    {"99 minutes of longitude", EnColonnes({{11, "N5030.500"}, {23, "E00299.250"}}), MsgId::DouteMinutes},
    {"an unknown month", LigneWpt("A", "17-AVR-02 10:15:00"), MsgId::DouteMois},
};
// clang-format on

TEST(WptReader, DoubtsLinesThatAreNoWaypoints) {
  const DistributionHeader entete;
  for (const OddLineCase& c : oddLines) {
    SCOPED_TRACE(c.name);
    const std::string file = FichierWpt({c.line});
    WptReader reader(test::EnMemoire(file), Etat("WGS84"), entete);
    ASSERT_TRUE(reader.LitEnTete());
    EXPECT_EQ(test::Doutes(reader), std::vector{c.doubt});
  }
}

TEST(WptReader, TellsADatumLineThatLacksNumbers) {
  const DistributionHeader entete;
  const auto has = [&](const std::string& datum) {
    const std::string file = FichierWpt({}, datum);
    WptReader reader(test::EnMemoire(file), Etat("WGS84"), entete);
    EXPECT_TRUE(reader.LitEnTete());
    return reader.ADatum();
  };
  EXPECT_TRUE(has(wptWgs84));
  EXPECT_FALSE(has(""));
  EXPECT_FALSE(has("M  G EUROPEAN 1950"));
  EXPECT_FALSE(has(EnColonnes({{1, "M"}, {59, "100"}}))) << "four are missing";
}

}  // namespace
}  // namespace talpena

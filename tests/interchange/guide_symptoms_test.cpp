// What the chapter "Your list does not come in" of the guide says of lists in another form.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "interchange/imported_world.h"

namespace talpena {
namespace {

using enum CoordSystem;
using Row = test::ImportedWorld::Row;

/// What came in of a list, and the box that ended it.
struct Outcome {
  std::vector<Row> rows;
  std::string box;
};

Outcome Importe(CoordSystem system, const std::string& list) {
  test::ImportedWorld world;
  world.Importe(system, list);
  Outcome outcome{world.Rows(), {}};
  for (const std::string& box : world.Boites()) outcome.box += box;
  return outcome;
}

bool Contient(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

const std::string good = "1,50.41234,3.92120,1,1,1948/05/17,Garden\r\n";

TEST(GuideSymptoms, ALineOfHeadingsEndsTheImportUnlessItHasAStar) {
  const Outcome plain = Importe(Deg, "Period,Lat,Lon,N1,N2,Date,Comment\r\n" + good);
  EXPECT_TRUE(plain.rows.empty());
  EXPECT_TRUE(Contient(plain.box, "Period")) << plain.box;
  const Outcome star = Importe(Deg, "*Period,Lat,Lon,N1,N2,Date,Comment\r\n" + good);
  EXPECT_EQ(star.rows.size(), 1U);
  EXPECT_EQ(star.box, "");
}

TEST(GuideSymptoms, SemicolonsMakeAFieldOfTheLine) {
  const Outcome list = Importe(Deg, "1;50.4;3.9\r\n");
  EXPECT_TRUE(list.rows.empty());
  EXPECT_TRUE(Contient(list.box, "1;50.4;3.9")) << list.box;
}

TEST(GuideSymptoms, DecimalCommasEndTheImportAtTheFirstLine) {
  const Outcome list = Importe(Deg, "1,50,41234,3,92120,1,1,1948/05/17,Garden\r\n");
  EXPECT_TRUE(list.rows.empty());
  EXPECT_TRUE(Contient(list.box, "Line 1")) << list.box;
  EXPECT_TRUE(Contient(list.box, "“deg +50.00000 +41234.00000”")) << list.box;
}

TEST(GuideSymptoms, DatesInWordsEndTheImport) {
  const Outcome list = Importe(Deg, good + "1,50.4,3.9,1,1,14 July 1998,Garden\r\n");
  EXPECT_EQ(list.rows.size(), 1U);
  EXPECT_TRUE(Contient(list.box, "Line 2")) << list.box;
  EXPECT_TRUE(Contient(list.box, "“14 July 1998”")) << list.box;
}

TEST(GuideSymptoms, AMissingFieldMakesACommentOfTheNextPeriod) {
  const std::string cut = "2,50.41234,3.92120,1,1948/05/17,Garden\r\n";
  const Outcome list = Importe(Deg, "1,50.41234,3.92120,1,5,Garden\r\n" + cut);
  ASSERT_EQ(list.rows.size(), 1U);
  EXPECT_EQ(list.rows[0].comment, "2");
  EXPECT_NE(list.box, "");
}

TEST(GuideSymptoms, WordsBehindANumberEndTheImportAndDecimalsAreRounded) {
  EXPECT_NE(Importe(Deg, "1,50.4,3.9,3 specimens,1,,\r\n").box, "");
  const Outcome decimals = Importe(Deg, "1,50.4,3.9,12.6,,,\r\n");
  ASSERT_EQ(decimals.rows.size(), 1U);
  EXPECT_EQ(decimals.rows[0].n1, 13);
  EXPECT_EQ(decimals.rows[0].n2, 0);
}

TEST(GuideSymptoms, LettersInAFieldOfTheirOwnAreAReferenceTooShort) {
  EXPECT_TRUE(Importe(Bng, "1,SU,519,783,2,1,1948/05/17,Garden\r\n").rows.empty());
}

TEST(GuideSymptoms, IrishReferencesWithOneLetterLieInTheSouthWest) {
  const Outcome list = Importe(Itm, "1,O153346,1,1,,\r\n1,IO153346,1,1,,\r\n");
  ASSERT_EQ(list.rows.size(), 2U);
  EXPECT_LT(list.rows[0].latitude, 52);
  EXPECT_LT(list.rows[0].longitude, -9.5);
  EXPECT_NEAR(list.rows[1].latitude, 53.35, 0.01);
  EXPECT_NEAR(list.rows[1].longitude, -6.26, 0.02);
}

TEST(GuideSymptoms, MgrsZonesOfOneDigitAndOddDigitsHaveNoPoint) {
  const Outcome list = Importe(Mgr, "1,9UXA12,1,1,,\r\n1,31UFR123,1,1,,\r\n1,31UFR12,1,1,,\r\n");
  ASSERT_EQ(list.rows.size(), 3U);
  EXPECT_EQ(list.rows[0].latitude, EchecCoord);
  EXPECT_EQ(list.rows[1].latitude, EchecCoord);
  EXPECT_NEAR(list.rows[2].latitude, 50, 1);
}

TEST(GuideSymptoms, UtmOfTheSouthWantsAMinus) {
  const Outcome list = Importe(Utm, "1,60,296351,-5924311,1,1,,\r\n1,60,296351,5924311,1,1,,\r\n");
  ASSERT_EQ(list.rows.size(), 2U);
  EXPECT_NEAR(list.rows[0].latitude, -36.8, 0.1);
  EXPECT_GT(list.rows[1].latitude, 50);
}

TEST(GuideSymptoms, AQuoteThatIsNotClosedHoldsTheRest) {
  const Outcome list = Importe(Deg, "1,50.4,3.9,1,1,,\"Garden\r\n" + good);
  EXPECT_TRUE(list.rows.empty());
  EXPECT_NE(list.box, "");
}

}  // namespace
}  // namespace talpena

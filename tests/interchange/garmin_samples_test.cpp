#include "interchange/garmin_samples.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "interchange/column_cut.h"
#include "interchange/import_records.h"

namespace talpena {
namespace {

TEST(CoupeColonne, CutsByCharacters) {
  EXPECT_EQ(CoupeColonne("abcdef", 2, 3), "bcd");
  EXPECT_EQ(CoupeColonne("äbcdöf", 4, 2), "dö");
  EXPECT_EQ(CoupeColonne("abc", 3, 9), "c");
  EXPECT_EQ(CoupeColonne("abc", 4, 9), "");
  EXPECT_EQ(CoupeColonne("abc", 0, 2), "ab");
  EXPECT_EQ(CoupeColonne("abc", -7, 2), "ab");
  EXPECT_EQ(CoupeColonne("abc", 1, -1), "");
  EXPECT_EQ(CoupeColonne("", 1, 1), "");
}

TEST(TexteExemple, IsTheFirstThatIsNotEmptyInTheOrderOfTheList) {
  MapSourceText text;
  RempliLV(test::EnMemoire("Grid\tUTM\nDatum\tWGS 84\nHeader\tName\tDate\n"
                           "Waypoint\tA\t\nWaypoint\tB\t1\nWaypoint\tC\t2\n"),
           "w", text);
  auto items = TousLesPoints(text);
  EXPECT_EQ(TexteExemple(text, items, 2), "1");
  EXPECT_EQ(TexteExemple(text, items, 0), "Waypoint");
  EXPECT_EQ(TexteExemple(text, items, 1), "A");
  EXPECT_EQ(TexteExemple(text, items, 9), "");
  EXPECT_EQ(TexteExemple(text, items, -1), "");
  std::reverse(items.begin(), items.end());
  EXPECT_EQ(TexteExemple(text, items, 2), "2");
}

TEST(Exemple, ShowsTheCutOfTheSample) {
  EXPECT_EQ(Exemple("4", "9", "at 17-APR-02 noon"), "17-APR-02");
  EXPECT_EQ(Exemple("1", "999", "123 M"), "123 M");
  EXPECT_EQ(Exemple("1", "1e9", "123 M"), "123 M");
  EXPECT_EQ(Exemple("7", "2", "123 M"), "");
}

TEST(Exemple, ShowsNothingNewWithoutNumbersOrSample) {
  EXPECT_EQ(Exemple("", "9", "17-APR-02"), std::nullopt);
  EXPECT_EQ(Exemple("1", "x", "17-APR-02"), std::nullopt);
  EXPECT_EQ(Exemple("1", "9", ""), std::nullopt);
}

TEST(DateFixe, GoesThroughItsMask) {
  EXPECT_EQ(DateFixeMontree(""), "____/__/__");
  EXPECT_EQ(DateFixeMontree("2002/04/17"), "2002/04/17");
  EXPECT_EQ(DateFixeGardee("____/__/__"), "");
  EXPECT_EQ(DateFixeGardee("2002/__/__"), "2002/  /  ");
  EXPECT_EQ(DateFixeGardee("2002/04/17"), "2002/04/17");
}

}  // namespace
}  // namespace talpena

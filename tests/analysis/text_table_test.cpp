#include "analysis/text_table.h"

#include <gtest/gtest.h>

namespace talpena::test {
namespace {

TEST(TextTable, CommasQuotesAndBreaksOfAFieldStandInQuotes) {
  EXPECT_EQ(AvecVirgules({{"a", "b,c"}, {"d \"e\"", "f\ng"}}),
            "a,\"b,c\"\r\n\"d \"\"e\"\"\",\"f\ng\"\r\n");
}

TEST(TextTable, TabsAndBreaksOfAFieldBecomeBlanks) {
  EXPECT_EQ(AvecTabulations({{"a\tb", "c\r\nd"}, {"e", "f"}}), "a b\tc  d\ne\tf\n");
}

TEST(NumbersOfAChart, OnePointALineWithoutThoseNeverCharted) {
  ChartPicture picture;
  picture.numPoints = 3;
  picture.bottomTitle = "Number 1";
  picture.leftTitle = "OGUs";
  picture.series = {{"", {2, std::nullopt, 0.5}, false}};
  EXPECT_EQ(AvecVirgules(NombresDe(picture)), "Number 1,OGUs\r\n1,2\r\n3,0.5\r\n");
}

TEST(NumbersOfAChart, SeriesStandSideBySideUnderTheirNames) {
  ChartPicture picture;
  picture.numPoints = 2;
  picture.firstPoint = 1999;
  picture.bottomTitle = "Year";
  picture.series = {{"Records", {4, 0}, false}, {"New points", {1, std::nullopt}, true}};
  EXPECT_EQ(AvecVirgules(NombresDe(picture)), "Year,Records,New points\r\n1999,4,1\r\n2000,0,\r\n");
}

TEST(NumbersOfAChart, AnEmptyChartHasItsHeadingsAlone) {
  ChartPicture picture;
  picture.numPoints = 1;
  picture.bottomTitle = "Number 1";
  EXPECT_EQ(AvecVirgules(NombresDe(picture)), "Number 1\r\n");
}

}  // namespace
}  // namespace talpena::test

// What a chart decides without a window.
#include "platform/chart.h"

#include <gtest/gtest.h>

namespace talpena::test {
namespace {

ChartPicture Numbered(int points, int labelEvery) {
  ChartPicture picture;
  picture.numPoints = points;
  picture.labelEvery = labelEvery;
  return picture;
}

TEST(ChartLabels, StandAtTheMultiplesOfLabelEvery) {
  const ChartPicture picture = Numbered(10, 2);
  const int step = PasLisible(picture, 10, 100);
  EXPECT_EQ(step, 2);
  EXPECT_FALSE(EstEtiquete(picture, 1, step));
  EXPECT_TRUE(EstEtiquete(picture, 2, step));
  EXPECT_TRUE(EstEtiquete(picture, 10, step));
}

TEST(ChartLabels, AreThinnedToTheRoomThatThereIs) {
  for (const double room : {1, 2, 3, 5, 8, 13, 30, 200}) {
    const int step = PasLisible(Numbered(2001, 2), 2001, room);
    EXPECT_LE(2001 / step, room) << room;
    EXPECT_EQ(step % 2, 0) << room;
  }
}

TEST(ChartLabels, AreCloserWhereFewPointsAreOnShow) {
  EXPECT_EQ(PasLisible(Numbered(3800, 1000), 3800, 50), 1000);
  EXPECT_LE(PasLisible(Numbered(3800, 1000), 10, 50), 5);
  EXPECT_EQ(PasLisible(Numbered(1, 2), 1, 50), 1);
}

TEST(ChartLabels, OfMonthsAndStepsBeginWithTheFirst) {
  ChartPicture picture = Numbered(36, 1);
  picture.labels.assign(36, "x");
  EXPECT_EQ(PasLisible(picture, 36, 12), 3);
  EXPECT_TRUE(EstEtiquete(picture, 1, 3));
  EXPECT_TRUE(EstEtiquete(picture, 4, 3));
  EXPECT_FALSE(EstEtiquete(picture, 3, 3));
}

TEST(ChartLabels, OfYearsAreRoundYears) {
  ChartPicture picture = Numbered(100, 1);
  picture.firstPoint = 1903;
  EXPECT_EQ(PasLisible(picture, 100, 12), 10);
  EXPECT_TRUE(EstEtiquete(picture, 8, 10)) << "1910";
  EXPECT_EQ(NomDuPoint(picture, 8), "1910");
}

TEST(ChartValues, AreToldWithTheNamesOfTheirSeries) {
  ChartPicture picture = Numbered(2, 1);
  picture.series = {{"Records", {4, 0}, false}, {"New points", {1, std::nullopt}, true}};
  EXPECT_EQ(TexteDuPoint(picture, 1), "1: Records 4, New points 1");
  EXPECT_EQ(TexteDuPoint(picture, 2), "2: Records 0");
  picture.series = {{"", {std::nullopt, 3}, false}};
  EXPECT_EQ(TexteDuPoint(picture, 1), "1: –");
  EXPECT_EQ(TexteDuPoint(picture, 2), "2: 3");
}

TEST(ChartValues, StackedOnesAddUpOnTheirSideOfZero) {
  ChartPicture picture = Numbered(1, 1);
  picture.series = {{"a", {4}, false}, {"b", {3}, false}, {"c", {-2}, false}, {"d", {50}, true}};
  picture.style = ChartStyle::Stacked;
  EXPECT_EQ(EtendueDesValeurs(picture, false).highest, 7);
  EXPECT_EQ(EtendueDesValeurs(picture, false).lowest, -2);
  EXPECT_EQ(EtendueDesValeurs(picture, true).highest, 50);
  picture.style = ChartStyle::Beside;
  EXPECT_EQ(EtendueDesValeurs(picture, false).highest, 4);
}

}  // namespace
}  // namespace talpena::test

// The rows of the distribution on the canvas.
#include "maps/plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "maps/canvas_sink.h"
#include "maps/map_world.h"

namespace talpena {
namespace {

using test::CanvasCall;
using test::MapWorld;

class PlotDistriTest : public ::testing::Test {
 protected:
  void Trace() {
    ScreenSink ecran(w.Contexte());
    PlotDistri(w.Contexte(), ecran);
  }
  MapWorld w;
};

/// Kilometres of an angle on the map in plate carrée.
double Km(double degrees) { return 6378.388 * degrees * std::acos(-1.0) / 180; }

TEST_F(PlotDistriTest, DrawsACircleForEachRowInTheOrderOfTheRows) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({{10, 20}, {-45.5, 0}, {0, -170}});
  Trace();
  const auto circles = w.canvas.Appels("Circle");
  ASSERT_EQ(circles.size(), 3U);
  const double expected[3][2] = {{20, 10}, {0, -45.5}, {-170, 0}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(circles[i].numbers[0], Km(expected[i][0]), 0.002);
    EXPECT_NEAR(circles[i].numbers[1], Km(expected[i][1]), 0.002);
  }
}

TEST_F(PlotDistriTest, FillsInTheColourOfTheOptionsWithABlackSolidOutline) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({{10, 20}});
  w.options.SymbolColor = 0x00C0FF;
  w.canvas.Attributs.ForeColor = 0xFF0000;
  w.canvas.Attributs.drawStyle = DrawStyle::Dashed;
  w.canvas.Attributs.DrawWidth = 3;
  Trace();
  const DrawAttributes with = w.canvas.calls.at(0).attributs;
  EXPECT_EQ(with.FillColor, 0x00C0FFU);
  EXPECT_EQ(with.fillStyle, FillStyle::Solid);
  EXPECT_EQ(with.ForeColor, 0U);
  EXPECT_EQ(with.drawStyle, DrawStyle::Solid);
  EXPECT_EQ(with.DrawWidth, 1);
  EXPECT_EQ(with.RingWidth, 1) << "symbols that overlap stay apart";
}

TEST_F(PlotDistriTest, AnAutomaticDiameterIsAFiftiethOfTheLongerSide) {
  w.OuvrePlate(0, 0, 10, 20);
  w.Remplit({{5, 5}});
  w.options.SymbolDiameter = -1;
  Trace();
  EXPECT_NEAR(w.canvas.calls.at(0).numbers[2], Km(20) / 50 / 2, 0.001);
}

TEST_F(PlotDistriTest, ADiameterIsMetresOnTheGround) {
  w.OuvrePlate(0, 0, 10, 20);
  w.Remplit({{5, 5}});
  w.options.SymbolDiameter = 50000;
  Trace();
  EXPECT_DOUBLE_EQ(w.canvas.calls.at(0).numbers[2], 25);
}

TEST_F(PlotDistriTest, ADiameterOf0OnAGeoreferencedMapGivesCirclesOfRadius0) {
  w.OuvrePlate(0, 0, 10, 20);
  w.Remplit({{5, 5}});
  w.options.SymbolDiameter = 0;
  Trace();
  ASSERT_EQ(w.canvas.calls.size(), 1U);
  EXPECT_EQ(w.canvas.calls[0].numbers[2], 0);
}

TEST_F(PlotDistriTest, ADiameterOnAMapOfCode0IsInItsUnits) {
  w.carte.CodeProjection = 0;
  w.carte.CoteKm = 640;
  w.options.SymbolDiameter = 7;
  EXPECT_EQ(DiametreSymbole(w.carte, w.options), 7.0F);
  w.options.SymbolDiameter = -1;
  EXPECT_EQ(DiametreSymbole(w.carte, w.options), 12.8F);
}

TEST_F(PlotDistriTest, RowsWithoutCoordinatesArePassedOver) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({{{}, 20}, {10, {}}, {{}, {}}, {1, 2}});
  Trace();
  EXPECT_EQ(w.Cercles().size(), 1U);
}

TEST_F(PlotDistriTest, ARowAtZeroIsDrawn) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({{0, 0}});
  Trace();
  EXPECT_EQ(w.Cercles(), (std::vector<std::string>{"0.000 0.000 400.766"}));
}

TEST_F(PlotDistriTest, AnEmptyTableBeepsAndDrawsNothing) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({});
  Trace();
  EXPECT_EQ(w.sound.bips, 1);
  EXPECT_TRUE(w.canvas.calls.empty());
  EXPECT_TRUE(w.dialogues.boxes.empty());
}

TEST_F(PlotDistriTest, ATableThatNoFileHasBoundYetIsEmpty) {
  w.OuvrePlate(-90, -180, 90, 180);
  Trace();
  EXPECT_EQ(w.sound.bips, 1);
  EXPECT_TRUE(w.canvas.calls.empty());
}

TEST_F(PlotDistriTest, AnEmptyTableIsToldBeforeAMapOfCode0) {
  w.Remplit({});
  Trace();
  EXPECT_TRUE(w.dialogues.boxes.empty());
}

TEST_F(PlotDistriTest, TheBeepIsLeftOutInSilence) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({});
  w.state.Silence = true;
  Trace();
  EXPECT_EQ(w.sound.bips, 0);
}

TEST_F(PlotDistriTest, AMapOfCode0SaysThatItIsNotGeoreferenced) {
  w.Remplit({{10, 20}});
  Trace();
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_EQ(w.dialogues.boxes[0].text, "This map is not georeferenced.\rMapping aborted");
  EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(w.dialogues.boxes[0].buttons, Buttons::Ok);
  EXPECT_TRUE(w.canvas.calls.empty());
}

TEST_F(PlotDistriTest, ASelectionLimitsTheMapAndOrdersIt) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({{1, 0}, {2, 0}, {3, 0}, {4, 0}});
  w.vue.selection = {4, 2};
  Trace();
  const auto circles = w.canvas.Appels("Circle");
  ASSERT_EQ(circles.size(), 2U);
  EXPECT_NEAR(circles[0].numbers[1], Km(4), 0.002);
  EXPECT_NEAR(circles[1].numbers[1], Km(2), 0.002);
}

TEST_F(PlotDistriTest, TheOrderAndTheFilterOfTheGridHold) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({{1, 0}, {2, 0}, {3, 0}});
  w.Ordonne("SELECT * FROM TALPENA WHERE LATITUDE > 1.5 ORDER BY [LATITUDE] DESC");
  Trace();
  const auto circles = w.canvas.Appels("Circle");
  ASSERT_EQ(circles.size(), 2U);
  EXPECT_NEAR(circles[0].numbers[1], Km(3), 0.002);
}

TEST_F(PlotDistriTest, ThePositionOfTheGridStays) {
  w.OuvrePlate(-90, -180, 90, 180);
  w.Remplit({{1, 0}, {2, 0}, {3, 0}});
  w.state.document.Data1.recordset().SetAbsolutePosition(1);
  Trace();
  EXPECT_EQ(w.state.document.Data1.recordset().AbsolutePosition(), 1);
}

TEST_F(PlotDistriTest, PointsOffTheMapAndBehindTheGlobeGoToTheCanvas) {
  w.OuvreCode(13, -90, -180, 90, 180);
  w.Remplit({{0, 180}, {0, 0}});
  Trace();
  const auto circles = w.canvas.Appels("Circle");
  ASSERT_EQ(circles.size(), 2U);
  EXPECT_EQ(circles[0].numbers[0], double{HORS_CARTE});
  EXPECT_EQ(circles[0].numbers[1], double{HORS_CARTE});
}

TEST_F(PlotDistriTest, ARowThatCannotBeProjectedDoesNotEndTheMap) {
  w.OuvreCode(3, 0, -20, 0, 20);  // the antipode of its centre has no projection
  w.Remplit({{0, 180}, {5, 5}});
  Trace();
  const auto circles = w.canvas.Appels("Circle");
  ASSERT_EQ(circles.size(), 2U);
  EXPECT_EQ(circles[0].numbers[0], double{HORS_CARTE});
  EXPECT_NEAR(circles[1].numbers[1], Km(5), 3);
}

TEST(PlotSymbol, OnlyShape1IsDrawn) {
  test::FakeCanvas canvas;
  for (int shape = 0; shape <= 8; ++shape) {
    PlotSymbol(canvas, 1, 2, shape, 6, 255, FillStyle::Transparent);
  }
  ASSERT_EQ(canvas.calls.size(), 1U);
  EXPECT_EQ(canvas.calls[0].numbers, (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(canvas.calls[0].attributs.FillColor, 255U);
  EXPECT_EQ(canvas.calls[0].attributs.fillStyle, FillStyle::Transparent);
}

TEST(AnnonceAttente, BringsUpTheWaitWindowAtOnceForManyRows) {
  MapWorld w;
  {
    Busy few(w.vue);
    AnnonceAttente(few, w.state, 199999);
    EXPECT_EQ(w.vue.message, "");
  }
  Busy many(w.vue);
  AnnonceAttente(many, w.state, 200000);
  EXPECT_EQ(w.vue.message, "Please wait...");
}

}  // namespace
}  // namespace talpena

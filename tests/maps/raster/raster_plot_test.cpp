// The distribution on a raster map.
#include "maps/raster/raster_plot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "maps/raster/raster_clicks.h"
#include "maps/raster/raster_world.h"

namespace talpena {
namespace {

using test::CanvasCall;
using test::RasterWorld;

TEST(RasterPlot, AMissingPictureIsError53WithItsPathAndLeavesTheGlobals) {
  RasterWorld w;
  w.Ouvre(CarteRaster::Belgique);
  w.canvas.images.erase("/app/spain.bmp");
  try {
    w.Ouvre(CarteRaster::Iberie);
    FAIL() << "no failure";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::FileNotFound);
    EXPECT_NE(e.description().find("/app/spain.bmp"), std::string::npos);
  }
  EXPECT_EQ(w.carte.FichierCarte, "/app/belgium.bmp");
  EXPECT_EQ(w.canvas.echelle.left, EchelleRaster(w.carte, LigneRaster(CarteRaster::Belgique)).left);
}

TEST(RasterPlot, ARowWithLatitude0AndLongitude0IsNotDrawn) {
  RasterWorld w;
  w.Remplit({{1, 0, 0}, {1, 0, 10}, {1, 10, 0}});
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  EXPECT_EQ(w.Cercles().size(), 2U);
}

TEST(RasterPlot, ARowWithANullCoordinateIsNotDrawn) {
  RasterWorld w;
  w.Remplit({{1, {}, 10}, {1, 10, {}}, {1, {}, {}}, {1, 10, 10}});
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  EXPECT_EQ(w.Cercles().size(), 1U);
}

TEST(RasterPlot, APeriodOf0ANegativeOneAndNullAreDrawnAsPeriod1) {
  RasterWorld w;
  w.state.SymbolColor = {0x0000FF, 0x00FF00, 0xFF0000};
  w.Remplit({{0, 1, 1}, {-3, 1, 1}, {{}, 1, 1}, {1, 1, 1}});
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  EXPECT_EQ(w.Couleurs(), (std::vector<std::uint32_t>{255, 255, 255, 255}));
}

TEST(RasterPlot, CirclesHaveARingThatKeepsThemApart) {
  RasterWorld w;
  w.Remplit({{1, 1, 1}});
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  ASSERT_EQ(w.Cercles().size(), 1U);
  EXPECT_EQ(w.Cercles().front().attributs.RingWidth, 1);
}

TEST(RasterPlot, PeriodsHaveTheirColoursAndTheFourthIsBlack) {
  RasterWorld w;
  w.state.SymbolColor = {0x0000FF, 0x00FF00, 0xFF0000};
  w.state.StrokeColor = 0x123456;
  w.Remplit({{1, 1, 1}, {2, 1, 1}, {3, 1, 1}, {4, 1, 1}, {9, 1, 1}});
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  EXPECT_EQ(w.Couleurs(), (std::vector<std::uint32_t>{0x0000FF, 0x00FF00, 0xFF0000, 0, 0}));
  for (const CanvasCall& call : w.Cercles()) {
    EXPECT_EQ(call.attributs.ForeColor, 0x123456U);
    EXPECT_EQ(call.attributs.fillStyle, FillStyle::Solid);
    EXPECT_EQ(call.attributs.drawStyle, DrawStyle::Solid);
  }
}

TEST(RasterPlot, RowsAreDrawnInTheOrderOfTheGridAtTheirPlaces) {
  RasterWorld w;
  w.Remplit({{1, 10, 20}, {1, -20, 30}});
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  const auto circles = w.Cercles();
  ASSERT_EQ(circles.size(), 2U);
  const PointKm first = ProjetteRaster(w.carte, {10, 20});
  EXPECT_NEAR(circles[0].numbers[0], first.X, 1e-6);
  EXPECT_NEAR(circles[0].numbers[1], first.Y, 1e-6);
  EXPECT_LT(circles[1].numbers[1], 0);
}

TEST(RasterPlot, ASelectionInTheGridLimitsTheRows) {
  RasterWorld w;
  w.Remplit({{1, 10, 20}, {2, -20, 30}, {3, 5, 5}});
  w.vue.selection = {3, 1};
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  EXPECT_EQ(w.Couleurs(),
            (std::vector<std::uint32_t>{w.state.SymbolColor[2], w.state.SymbolColor[0]}));
}

// A click chooses its row in the grid: that must not take the others off the map.
TEST(RasterPlot, RowsChosenLaterDoNotLimitTheMap) {
  RasterWorld w;
  w.Remplit({{1, 10, 20}, {2, -20, 30}});
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  w.vue.selection = {2};
  w.canvas.calls.clear();
  RedessineRaster(w.Carte());
  EXPECT_EQ(w.Cercles().size(), 2U);
}

// What was chosen limits the map though none of it is left.
TEST(RasterPlot, AChosenRowThatWasTakenBackIsNotDrawnAnew) {
  RasterWorld w;
  w.Remplit({{1, 10, 20}, {2, -20, 30}, {3, 5, 5}});
  w.vue.selection = {3, 1};
  w.Ouvre(CarteRaster::Afrique);
  for (const std::size_t left : {2U, 1U, 0U}) {
    w.canvas.calls.clear();
    RedessineRaster(w.Carte());
    EXPECT_EQ(w.Cercles().size(), left);
    if (left > 0) RetirePointRaster(w.Carte());
  }
}

TEST(RasterPlot, RowsThatWereAddedAreDrawnAnewWithThoseThatWereChosen) {
  RasterWorld w;
  w.Remplit({{1, 10, 20}, {2, -20, 30}});
  w.vue.selection = {2};
  w.Ouvre(CarteRaster::Afrique);
  RedessineRaster(w.Carte());
  AjoutePointRaster(w.Carte(), {3, ""}, ProjetteRaster(w.carte, {5, 5}));
  w.canvas.calls.clear();
  RedessineRaster(w.Carte());
  EXPECT_EQ(w.Couleurs(),
            (std::vector<std::uint32_t>{w.state.SymbolColor[1], w.state.SymbolColor[2]}));
}

/// Diameter of a circle as a share of the picture's width.
double Part(RasterWorld& w, CarteRaster carte) {
  w.Ouvre(carte);
  w.canvas.calls.clear();
  RedessineRaster(w.Carte());
  return w.Cercles().at(0).numbers[2] * 2 / w.canvas.echelle.width;
}

TEST(RasterPlot, WithAutoTheCirclesKeepTheirSizeOnTheScreenWhenTheMapChanges) {
  RasterWorld w;
  w.Remplit({{1, 50, 5}});
  for (const CarteRaster map : {CarteRaster::Belgique, CarteRaster::Monde, CarteRaster::Europe}) {
    EXPECT_NEAR(Part(w, map), 1.0 / 50, 1e-12);
  }
}

TEST(RasterPlot, ADiameterOfTheOptionsIsInKilometres) {
  RasterWorld w;
  w.state.DiamPoints = 12.5F;
  w.Remplit({{1, 50, 5}});
  w.Ouvre(CarteRaster::Belgique);
  RedessineRaster(w.Carte());
  EXPECT_DOUBLE_EQ(w.Cercles().at(0).numbers[2], 6.25);
}

TEST(RasterPlot, ProgressIsTold) {
  RasterWorld w;
  w.Remplit(std::vector<RasterWorld::Point>(5000, {1, 50, 5}));
  w.Ouvre(CarteRaster::Belgique);
  RedessineRaster(w.Carte());
  EXPECT_FALSE(w.vue.progression.empty());
  EXPECT_EQ(*std::max_element(w.vue.progression.begin(), w.vue.progression.end()), 100);
  EXPECT_FALSE(w.vue.barre);
  EXPECT_FALSE(w.vue.sablier);
}

TEST(RasterPlot, ATableWithoutRowsDrawsNothingAndSaysNothing) {
  RasterWorld w;
  w.Remplit({});
  w.Ouvre(CarteRaster::Belgique);
  RedessineRaster(w.Carte());
  EXPECT_TRUE(w.Cercles().empty());
  EXPECT_EQ(w.fenetre.montres, 1);
}

}  // namespace
}  // namespace talpena

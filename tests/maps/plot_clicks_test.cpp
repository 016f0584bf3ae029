// Clicks on the map.
#include <gtest/gtest.h>

#include "common/talpena_error.h"
#include "maps/canvas_sink.h"
#include "maps/map_world.h"
#include "maps/plot.h"
#include "maps/redraw.h"

namespace talpena {
namespace {

using test::MapWorld;

class MapClickTest : public ::testing::Test {
 protected:
  MapClickTest() {
    w.OuvrePlate(-90, -180, 90, 180);
    w.state.Silence = true;
  }
  void Gauche(float latitude, float longitude) {
    float X = 0, Y = 0;
    Project(w.carte, radian(latitude), radian(longitude), X, Y);
    AjouteLigneCarte(w.Contexte(), X, Y);
  }
  void Droite() { RetireLigneCarte(w.Contexte(), 0, 0); }
  MapWorld w;
};

TEST_F(MapClickTest, AddsARowOfTheStatedValues) {
  w.Remplit({});
  Gauche(45.12345F, -123.5F);
  EXPECT_EQ(w.Lignes(),
            (std::vector<std::string>{"1|45.12345|-123.5|1|1|-|EUR-M|deg +45.12345 -123.5|-|-"}));
}

TEST_F(MapClickTest, ANewRowHasOneInPeriodAndNumbersWhateverTheRowsBeforeIt) {
  w.Remplit({{1, 2}});
  w.state.WorkingDb->Execute("UPDATE TALPENA SET PERIOD = 3, N1 = 12, N2 = 99");
  Gauche(10, 20);
  const auto rows = w.state.WorkingDb->OpenRecordset("SELECT * FROM TALPENA WHERE N1 = 1");
  EXPECT_EQ(rows->Get("N2").integer, 1);
  EXPECT_EQ(rows->Get("PERIOD").integer, 1);
}

// Kilometres over 6378.388 are radians.
TEST_F(MapClickTest, CoordinatesHaveFiveDecimalsAndOriginalTheSameNumbers) {
  w.Remplit({});
  AjouteLigneCarte(w.Contexte(), 1234.5678F, 4321.8765F);
  const auto rows = w.state.WorkingDb->OpenRecordset("TALPENA");
  const std::string original = rows->Get("ORIGINAL").Texte();
  EXPECT_EQ(original, "deg +38.82255 +11.08987");
  EXPECT_EQ(static_cast<float>(rows->Get("LATITUDE").real), 38.82255F);
  EXPECT_EQ(static_cast<float>(rows->Get("LONGITUDE").real), 11.08987F);
}

struct MaskCase {
  float latitude, longitude;
  const char* original;
};

TEST_F(MapClickTest, TextsFollowTheMasks) {
  w.Remplit({});
  for (const MaskCase& c : {MaskCase{45, 7, "deg +45. +7."},
                            {.5F, -.25F, "deg +.5 -.25"},
                            {0, 0, "deg +. +."},
                            {-8.5F, 170, "deg -8.5 +170."}}) {
    Gauche(c.latitude, c.longitude);
    const auto rows = w.state.WorkingDb->OpenRecordset("TALPENA");
    rows->MoveLast();
    EXPECT_EQ(rows->Get("ORIGINAL").Texte(), c.original);
  }
}

TEST_F(MapClickTest, DrawsTheSymbolWhereARedrawPutsIt) {
  w.Remplit({});
  w.options.SymbolColor = 0x00FF00;
  w.canvas.Attributs.ForeColor = 0xFF0000;
  Gauche(45.123456F, 7.654321F);
  const auto clicked = w.canvas.calls;
  ASSERT_EQ(clicked.size(), 1U);
  EXPECT_EQ(clicked[0].attributs.FillColor, 0x00FF00U);
  EXPECT_EQ(clicked[0].attributs.ForeColor, 0U);
  w.canvas.calls.clear();
  w.vue.selection.clear();
  ScreenSink ecran(w.Contexte());
  PlotDistri(w.Contexte(), ecran);
  EXPECT_EQ(w.canvas.calls.at(0).numbers, clicked[0].numbers);
  EXPECT_EQ(w.fenetre.calls, std::vector<std::string>{"MontreCanevas"});
}

TEST_F(MapClickTest, TheRowIsCurrentAndChosenBesidesThoseChosenBefore) {
  w.Remplit({{1, 1}, {2, 2}});
  w.vue.selection = {2, 1};
  int rows = 0, positions = 0;
  w.state.Data1.Ecoute([&](DataControl::Change change) {
    rows += change == DataControl::Change::Rows ? 1 : 0;
    positions += change == DataControl::Change::Position ? 1 : 0;
  });
  Gauche(3, 3);
  EXPECT_EQ(w.vue.selection, (std::vector<Bookmark>{2, 1, 3}));
  EXPECT_EQ(w.state.Data1.recordset().GetBookmark(), 3);
  EXPECT_EQ(rows, 1);
  EXPECT_EQ(positions, 1);
  EXPECT_TRUE(w.state.FichierModifie);
}

TEST_F(MapClickTest, TheCaptionTakesThePosition) {
  w.Remplit({});
  AjouteLigneCarte(w.Contexte(), 123.25F, -.5F);
  EXPECT_EQ(w.fenetre.titre, " 123.25-.5");
  RetireLigneCarte(w.Contexte(), -7, 8.5F);
  EXPECT_EQ(w.fenetre.titre, "-7 8.5");
}

TEST_F(MapClickTest, AMapOfCode0GetsNoRow) {
  w.Remplit({{1, 1}});
  w.carte.CodeProjection = 0;
  AjouteLigneCarte(w.Contexte(), 10, 20);
  EXPECT_EQ(w.Lignes().size(), 1U);
  EXPECT_TRUE(w.canvas.calls.empty());
  EXPECT_FALSE(w.state.FichierModifie);
  EXPECT_EQ(w.fenetre.titre, " 10 20");
}

TEST_F(MapClickTest, OutsideTheDiscOfAGlobeTheRowLiesAtZero) {
  w.OuvreCode(13, -90, -180, 90, 180);
  w.Remplit({});
  AjouteLigneCarte(w.Contexte(), 6300, 6300);
  EXPECT_EQ(w.Lignes(), (std::vector<std::string>{"1|0|0|1|1|-|EUR-M|deg +. +.|-|-"}));
}

TEST_F(MapClickTest, AFaultOfTheProjectionAddsNothing) {
  w.carte.Parallele1 = 42;
  w.carte.Parallele2 = 48;
  w.OuvreCode(1, 40, -5, 50, 10);
  w.Remplit({});
  EXPECT_THROW(AjouteLigneCarte(w.Contexte(), 10, 0), TalpenaError);
  EXPECT_TRUE(w.Lignes().empty());
  EXPECT_TRUE(w.vue.selection.empty());
  EXPECT_TRUE(w.canvas.calls.empty());
  EXPECT_FALSE(w.state.FichierModifie);
}

TEST_F(MapClickTest, WithoutAFileTheTableIsBoundFirst) {
  Gauche(10, 20);
  EXPECT_TRUE(w.state.Data1.EstLie());
  EXPECT_EQ(w.Lignes().size(), 1U);
  EXPECT_EQ(w.vue.selection, std::vector<Bookmark>{1});
}

TEST_F(MapClickTest, ARightClickTakesBackTheRowThatALeftClickAdded) {
  w.Remplit({{1, 1}, {2, 2}});
  w.vue.selection = {2};
  Gauche(30, 40);
  const auto added = w.canvas.calls.at(0).numbers;
  w.canvas.calls.clear();
  w.state.FichierModifie = false;
  Droite();
  EXPECT_EQ(w.Lignes().size(), 2U);
  EXPECT_EQ(w.vue.selection, std::vector<Bookmark>{2});
  EXPECT_TRUE(w.state.FichierModifie);
  ASSERT_EQ(w.canvas.calls.size(), 1U);
  const auto& spot = w.canvas.calls[0];
  EXPECT_EQ(spot.numbers[0], added[0]);
  EXPECT_EQ(spot.numbers[1], added[1]);
  EXPECT_DOUBLE_EQ(spot.numbers[2], added[2] / 2);  // d / 4 beside d / 2
  EXPECT_EQ(spot.attributs.FillColor, 0xFFFFFFU);
  EXPECT_EQ(spot.attributs.ForeColor, 0xFFFFFFU);
  EXPECT_EQ(spot.attributs.fillStyle, FillStyle::Solid);
}

TEST_F(MapClickTest, ARightClickActsOnTheSelectionWhateverItsPosition) {
  w.Remplit({{1, 1}, {2, 2}, {3, 3}});
  w.vue.selection = {3, 1};
  RetireLigneCarte(w.Contexte(), 99999, -99999);
  EXPECT_EQ(w.vue.selection, std::vector<Bookmark>{3});
  EXPECT_EQ(w.Lignes().size(), 2U);
  EXPECT_EQ(w.Lignes()[0].substr(0, 4), "-|2|");
}

TEST_F(MapClickTest, ARightClickKeepsThePlaceInTheGrid) {
  w.Remplit({{1, 1}, {2, 2}, {3, 3}});
  w.vue.selection = {3};
  w.state.Data1.recordset().SetAbsolutePosition(1);
  Droite();
  EXPECT_EQ(w.state.Data1.recordset().AbsolutePosition(), 1);
  w.vue.selection = {2};
  Droite();
  EXPECT_EQ(w.state.Data1.recordset().AbsolutePosition(), 0);
  w.vue.selection = {1};
  Droite();
  EXPECT_EQ(w.state.Data1.recordset().RecordCount(), 0);
}

TEST_F(MapClickTest, ARightClickWithoutSelectionOrRowsBeeps) {
  w.state.Silence = false;
  w.Remplit({{1, 1}});
  Droite();
  EXPECT_EQ(w.sound.bips, 1);
  EXPECT_EQ(w.Lignes().size(), 1U);
  EXPECT_FALSE(w.state.FichierModifie);
  w.state.WorkingDb->Execute("DELETE FROM TALPENA");
  w.vue.selection = {1};
  Droite();
  EXPECT_EQ(w.sound.bips, 2);
}

TEST_F(MapClickTest, RowsWithoutCoordinatesOrAtZeroGoWithoutASpot) {
  w.Remplit({{{}, 3}, {4, {}}, {0, 0}});
  for (const Bookmark row : {1, 2, 3}) {
    w.vue.selection = {row};
    Droite();
  }
  EXPECT_TRUE(w.Lignes().empty());
  EXPECT_TRUE(w.canvas.calls.empty());
}

TEST_F(MapClickTest, ARowOnTheEquatorGetsItsSpot) {
  w.Remplit({{0, 5}});
  w.vue.selection = {1};
  Droite();
  EXPECT_EQ(w.canvas.calls.size(), 1U);
}

}  // namespace
}  // namespace talpena

#include "maps/print_map.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "layer_bytes.h"
#include "map_world.h"

namespace talpena {
namespace {

using test::FakeCanvas;

TEST(PlaceSurLaPage, FillsThePageInOneDirection) {
  const PagePlace wide = PlaceSurLaPage({780, 540}, 800, 400);
  EXPECT_DOUBLE_EQ(wide.width, 780);
  EXPECT_DOUBLE_EQ(wide.height, 390);
  EXPECT_DOUBLE_EQ(wide.left, 0);
  EXPECT_DOUBLE_EQ(wide.top, 75);
  const PagePlace high = PlaceSurLaPage({540, 780}, 100, 400);
  EXPECT_DOUBLE_EQ(high.height, 780);
  EXPECT_DOUBLE_EQ(high.width, 195);
  EXPECT_DOUBLE_EQ(high.left, (540 - 195) / 2.0);
}

TEST(FinesseImpression, Gives300DotsToTheInch) {
  // 720 points are 10 inches.
  EXPECT_DOUBLE_EQ(FinesseImpression({0, 0, 720, 360}, 1000, 500), 3);
}

TEST(FinesseImpression, IsNeverCoarserThanTheScreenNorTooLargeForTheMemory) {
  EXPECT_DOUBLE_EQ(FinesseImpression({0, 0, 72, 72}, 1000, 1000), 1);
  const double finesse = FinesseImpression({0, 0, 7200, 7200}, 1000, 1000);
  EXPECT_NEAR(finesse * 1000 * finesse * 1000, 40e6, 1);
}

/// A map of 300 by 200 pixels with one row in its middle.
struct PrintWorld : test::MapWorld {
  PrintWorld() {
    OuvrePlate(40, -10, 60, 20);
    Remplit({{50.0, 5.0}});
    carte.FichierImage = "map.png";
    canvas.pixels = {300, 200};
    canvas.echelle = {-1670, 6680, 3340, -2227};
    dialogues.imprimante.canevas = [this] {
      auto page = std::make_unique<FakeCanvas>();
      page->images["map.png"] = {300, 200};
      paper = page.get();
      return page;
    };
    dialogues.imprimante.surPage = [this](Canvas&) {
      names = paper->Noms();
      scale = paper->echelle;
    };
  }

  FakeCanvas* paper = nullptr;
  std::vector<std::string> names;  ///< what was drawn on paper
  UserScale scale;
};

TEST(PrintMap, DrawsTheMapAnewOnTheScaleOfTheScreen) {
  PrintWorld w;
  PrintMap(w.Contexte(), w.dialogues.imprimante);
  ASSERT_EQ(w.dialogues.imprimante.pages.size(), 1U);
  EXPECT_EQ(w.names.front(), "ChargeImage");
  EXPECT_EQ(std::count(w.names.begin(), w.names.end(), "Circle"), 1);
  EXPECT_EQ(w.scale.left, -1670);
  EXPECT_EQ(w.scale.height, -2227);
  EXPECT_TRUE(w.canvas.calls.empty()) << "the screen stays as it is";
}

TEST(PrintMap, PrintsTheGridThatIsOnShow) {
  PrintWorld w;
  w.carte.Pas = 5;
  w.carte.Grille = true;
  PrintMap(w.Contexte(), w.dialogues.imprimante);
  EXPECT_GT(std::count(w.names.begin(), w.names.end(), "Line"), 10);
  EXPECT_TRUE(w.dialogues.asked.empty());
}

TEST(PrintMap, LeavesALineThatWaitsOnTheScreenWhereItIs) {
  PrintWorld w;
  // A layer whose first point draws what was collected before it.
  w.files.Pose("/maps/a.tlp",
               test::EnTeteTlp() +
                   test::TeteTlp({.count = 1, .north = 51, .south = 49, .east = 6, .west = 4}) +
                   test::PointTlp(-1, 50, 5));
  w.options.Add("/maps/a.tlp");
  w.carte.polygone.Device(w.canvas);
  w.carte.polygone.Point(1, 1);
  w.carte.polygone.Point(500, 500);
  PrintMap(w.Contexte(), w.dialogues.imprimante);
  EXPECT_EQ(std::count(w.names.begin(), w.names.end(), "Polyline"), 0);
  w.carte.polygone.DrawTLP();
  const auto onScreen = w.canvas.Noms();
  EXPECT_EQ(std::count(onScreen.begin(), onScreen.end(), "Polyline"), 1);
}

TEST(PrintMap, APageThatFailsLeavesTheLineThatWaitsOnTheScreen) {
  struct FailingCanvas final : FakeCanvas {
    void Circle(double, double, double) override { throw TalpenaError(ErrorNumber::Overflow, "x"); }
  };
  PrintWorld w;
  w.dialogues.imprimante.canevas = [] {
    auto page = std::make_unique<FailingCanvas>();
    page->images["map.png"] = {300, 200};
    return page;
  };
  w.carte.polygone.Device(w.canvas);
  w.carte.polygone.Point(1, 1);
  w.carte.polygone.Point(500, 500);
  EXPECT_THROW(PrintMap(w.Contexte(), w.dialogues.imprimante), TalpenaError);
  w.carte.polygone.DrawTLP();
  EXPECT_EQ(w.canvas.Noms(), std::vector<std::string>{"Polyline"});
}

TEST(PrintMap, AMapThatIsNotGeoreferencedPrintsWithoutAMessage) {
  PrintWorld w;
  w.carte.CodeProjection = 0;
  PrintMap(w.Contexte(), w.dialogues.imprimante);
  EXPECT_EQ(w.dialogues.imprimante.pages.size(), 1U);
  EXPECT_TRUE(w.dialogues.boxes.empty());
}

TEST(PrintMap, WithoutAPictureNothingIsPrinted) {
  PrintWorld w;
  w.canvas.pixels = {0, 0};
  PrintMap(w.Contexte(), w.dialogues.imprimante);
  ImprimeSurPapier(w.Contexte());
  MontreApercu(w.Contexte());
  EXPECT_TRUE(w.dialogues.imprimante.pages.empty());
}

TEST(ImprimeSurPapier, TurnsThePageAsThePictureIs) {
  PrintWorld w;
  ImprimeSurPapier(w.Contexte());
  EXPECT_TRUE(w.dialogues.imprimante.paysage);
  ASSERT_EQ(w.dialogues.imprimante.pages.size(), 1U);
  EXPECT_DOUBLE_EQ(w.dialogues.imprimante.pages[0].width, 780);
  w.canvas.pixels = {200, 300};
  ImprimeSurPapier(w.Contexte());
  EXPECT_FALSE(w.dialogues.imprimante.paysage);
}

TEST(ImprimeSurPapier, CancelPrintsNothing) {
  PrintWorld w;
  w.dialogues.imprimeAnnule = true;
  try {
    ImprimeSurPapier(w.Contexte());
    ADD_FAILURE() << "no Cancel";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::Cancelled);
  }
  EXPECT_TRUE(w.dialogues.imprimante.pages.empty());
}

TEST(MontreApercu, ShowsWhatWouldBePrinted) {
  PrintWorld w;
  MontreApercu(w.Contexte());
  EXPECT_TRUE(w.dialogues.imprimante.paysage);
  EXPECT_EQ(w.dialogues.imprimante.pages.size(), 1U);
}

}  // namespace
}  // namespace talpena

// Clicks on a raster map, the year box, what closing asks, grid files.
#include "maps/raster/raster_clicks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "maps/raster/raster_world.h"

namespace talpena {
namespace {

class RasterClicks : public ::testing::Test {
 protected:
  RasterClicks() {
    w.Remplit({});
    w.Ouvre(CarteRaster::Europe);
  }
  void Gauche(PointDegres place, const RasterEntry& entry = {}) {
    AjoutePointRaster(w.Carte(), entry, ProjetteRaster(w.carte, place));
  }
  void Droite() { RetirePointRaster(w.Carte()); }
  void Ferme() { FermeRaster(w.Carte()); }
  std::size_t Compte() { return w.Lignes().size(); }

  test::RasterWorld w;
};

TEST_F(RasterClicks, ANewRowHasPeriodDateAndEurM) {
  Gauche({50.5, 4.5}, {2, "1987-05"});
  // The whole metre of UTM, 31UFR0638495414, lies 0.4 m west of the click.
  EXPECT_EQ(w.Lignes(),
            (std::vector<std::string>{"2|50.5|4.49999|1|1|-|EUR-M|deg +50.5 +4.49999|1987-05|-"}));
  EXPECT_TRUE(w.state.document.FichierModifie());
}

TEST_F(RasterClicks, AnEmptyYearLeavesTheDateNull) {
  Gauche({50.5, 4.5});
  EXPECT_EQ(w.Lignes().at(0).substr(0, 2), "1|");
  EXPECT_NE(w.Lignes().at(0).find("|-|-"), std::string::npos);
}

TEST_F(RasterClicks, AMeshOfTheSettingsPutsThePointOnItsGrid) {
  w.state.UtmAjust = 4;  // 10 km: FR04999 94999
  Gauche({50.5, 4.5});
  const auto rows = w.state.document.WorkingDb->OpenRecordset("TALPENA");
  const PointDegres snapped = PlaceSurGrille({50.5, 4.5}, 4);
  EXPECT_NEAR(rows->Get(Column::LATITUDE).real, snapped.latitude, 1e-5);
  EXPECT_NEAR(rows->Get(Column::LONGITUDE).real, snapped.longitude, 1e-5);
  // 94999 less 95414 m of northing, 04999 less 06384 m of easting, turned by the convergence of the
  // meridians, 1.16 degrees.
  EXPECT_NEAR((snapped.latitude - 50.5) * 111.2, -0.387, 0.01);
  EXPECT_NEAR((snapped.longitude - 4.5) * 70.9, -1.393, 0.01);
}

TEST(PlaceSurGrille, TwoPointsOfACellComeToItsCentre) {
  const PointDegres a = PlaceSurGrille({50.5, 4.5}, 7), b = PlaceSurGrille({50.4, 4.6}, 7);
  EXPECT_DOUBLE_EQ(a.latitude, b.latitude);
  EXPECT_DOUBLE_EQ(a.longitude, b.longitude);
}

TEST(PlaceSurGrille, WithoutAMeshTheWholeMetreStays) {
  const PointDegres place = PlaceSurGrille({50.123456, 4.654321}, 0);
  EXPECT_NEAR(place.latitude, 50.123456, 1e-5);
  EXPECT_NEAR(place.longitude, 4.654321, 1e-5);
  EXPECT_NE(place.latitude, 50.123456);
}

TEST(PlaceSurGrille, WhereThereIsNoReferenceThePlaceStays) {
  for (const std::int16_t mesh : {std::int16_t{0}, std::int16_t{4}}) {
    const PointDegres place = PlaceSurGrille({86.5, 12.25}, mesh);
    EXPECT_EQ(place.latitude, 86.5);
    EXPECT_EQ(place.longitude, 12.25);
  }
}

TEST(PlaceSurGrille, AMeshThatIsNoneCountsAsNone) {
  const PointDegres without = PlaceSurGrille({50.123456, 4.654321}, 0);
  for (const int mesh : {-1, 8, 99}) {
    const PointDegres place =
        PlaceSurGrille({50.123456, 4.654321}, static_cast<std::int16_t>(mesh));
    EXPECT_EQ(place.latitude, without.latitude);
  }
}

TEST_F(RasterClicks, TheCircleIsDrawnAtOnceInTheColourOfThePeriod) {
  w.state.SymbolColor = {1, 2, 3};
  Gauche({50.5, 4.5}, {3, ""});
  ASSERT_EQ(w.Cercles().size(), 1U);
  EXPECT_EQ(w.Couleurs(), (std::vector<std::uint32_t>{3}));
  const PointKm point = ProjetteRaster(w.carte, {50.5, 4.5});
  EXPECT_NEAR(w.Cercles()[0].numbers[0], point.X, 0.002);
  EXPECT_EQ(w.fenetre.montres, 1);
}

TEST_F(RasterClicks, TheNewRowJoinsTheSelection) {
  w.Remplit({{1, 10, 10}, {1, 20, 20}});
  w.vue.selection = {2};
  Gauche({50.5, 4.5});
  EXPECT_EQ(w.vue.selection, (std::vector<Bookmark>{2, 3}));
}

TEST_F(RasterClicks, ARightClickTakesTheLastChosenRowBackWhereverItLies) {
  w.Remplit({{1, 40, 10}, {1, 50, 20}});
  w.vue.selection = {2, 1};
  w.canvas.calls.clear();
  Droite();
  EXPECT_EQ(Compte(), 1U);
  EXPECT_EQ(w.vue.selection, (std::vector<Bookmark>{2}));
  ASSERT_EQ(w.Cercles().size(), 1U);
  EXPECT_EQ(w.Couleurs(), (std::vector<std::uint32_t>{0xFFFFFF}));
  EXPECT_NEAR(w.Cercles()[0].numbers[0], ProjetteRaster(w.carte, {40, 10}).X, 1e-6);
  EXPECT_NEAR(w.Cercles()[0].numbers[2], DiametreRaster(w.Carte()) / 4, 1e-9);
}

TEST_F(RasterClicks, ARowAt00IsTakenBackWithoutASpot) {
  w.Remplit({{1, 0, 0}});
  w.vue.selection = {1};
  Droite();
  EXPECT_EQ(Compte(), 0U);
  EXPECT_TRUE(w.Cercles().empty());
}

TEST_F(RasterClicks, ARightClickWithNothingChosenBeeps) {
  w.state.Silence = false;
  Droite();
  EXPECT_EQ(w.sound.bips, 1);
}

TEST_F(RasterClicks, ClosingWithoutNewPointsAsksNothing) {
  w.Remplit({{1, 10, 10}});
  Ferme();
  EXPECT_TRUE(w.dialogues.boxes.empty());
}

TEST_F(RasterClicks, ClosingAsksOnceWhetherNewPointsStay) {
  Gauche({50.5, 4.5});
  Gauche({51, 5});
  w.dialogues.answers = {Answer::Yes};
  Ferme();
  EXPECT_EQ(w.dialogues.boxes.back().closing, Answer::Yes) << "Escape takes no point away";
  EXPECT_EQ(w.Boites(), (std::vector<std::string>{"Save new points?"}));
  EXPECT_EQ(Compte(), 2U);
  Ferme();
  EXPECT_TRUE(w.dialogues.boxes.empty());
}

TEST_F(RasterClicks, NoTakesExactlyTheNewPointsAway) {
  w.Remplit({{1, 10, 10}, {1, 20, 20}});
  w.vue.selection = {1};
  Gauche({50.5, 4.5});
  Gauche({51, 5});
  w.dialogues.answers = {Answer::No};
  Ferme();
  w.Boites();
  EXPECT_EQ(Compte(), 2U);
  EXPECT_EQ(w.vue.selection, (std::vector<Bookmark>{1}));
}

TEST_F(RasterClicks, NoTakesPointsThatAnAutosaveWroteAndLeavesTheFileModified) {
  Gauche({50.5, 4.5});
  w.state.document.OublieModifications();
  w.dialogues.answers = {Answer::No};
  Ferme();
  w.Boites();
  EXPECT_EQ(Compte(), 0U);
  EXPECT_TRUE(w.state.document.FichierModifie());
}

TEST_F(RasterClicks, APointThatWasTakenBackIsNotAskedFor) {
  Gauche({50.5, 4.5});
  Droite();
  Ferme();
  EXPECT_TRUE(w.dialogues.boxes.empty());
}

TEST_F(RasterClicks, AnotherOpeningDoesNotAskForThePointsOfTheOneBefore) {
  Gauche({50.5, 4.5});
  w.Ouvre(CarteRaster::Belgique);
  Ferme();
  EXPECT_TRUE(w.dialogues.boxes.empty());
}

// clang-format off
struct YearCase { int pivots; const char* text; int period; };
constexpr YearCase years[] = {
    {0, "1900", 1}, {0, "2000", 1}, {0, "", 1},
    {1, "1949", 1}, {1, "1950", 2}, {1, "2001", 2}, {1, "", 1}, {1, "19", 1}, {1, "1950-03-01", 2},
    {2, "1949", 1}, {2, "1950", 2}, {2, "1979", 2}, {2, "1980", 3}, {2, "", 1}, {2, "year", 1},
    {2, "é1980", 1}, {2, "198012", 3}, {2, "9E99", 3},
};
// clang-format on

TEST(RasterYear, FallsIntoThePeriodOfThePivots) {
  for (const YearCase& c : years) {
    SCOPED_TRACE(std::to_string(c.pivots) + " " + c.text);
    DistributionHeader header;
    header.NbPivots = static_cast<std::int16_t>(c.pivots);
    header.Pivot1 = 1950;
    header.Pivot2 = 1980;
    EXPECT_EQ(PeriodeDeLAnnee(c.text, header), c.period);
    EXPECT_EQ(NombrePeriodes(header), c.pivots + 1);
  }
}

TEST_F(RasterClicks, Command1WritesBothGridsInASaveDialogEach) {
  w.Ouvre(CarteRaster::IlesBritanniques);
  w.dialogues.paths = {"/maps/gb.prn", "/maps/ie.prn"};
  EcritGrillesPrn(w.Carte());
  ASSERT_EQ(w.dialogues.fileDialogs.size(), 2U);
  EXPECT_EQ(w.dialogues.fileDialogs[0].title, "File Name for the PRN British National Grid");
  EXPECT_EQ(w.dialogues.fileDialogs[1].title, "File Name for the PRN Irish TM Grid");
  EXPECT_EQ(w.files.Contenu("/maps/gb.prn").substr(0, 3), "-1 ");
  EXPECT_EQ(w.files.Contenu("/maps/ie.prn").substr(0, 3), "-1 ");
}

TEST_F(RasterClicks, LeavingOneSaveDialogStillOffersTheOther) {
  w.Ouvre(CarteRaster::IlesBritanniques);
  w.dialogues.paths = {"", "/maps/ie.prn"};
  EcritGrillesPrn(w.Carte());
  EXPECT_EQ(w.files.Contenu("/maps/ie.prn").substr(0, 3), "-1 ");
}

// 11 rows of 101 points and 14 columns of 131, less what a line begins with.
TEST_F(RasterClicks, The100KmLinesAreDrawnAndStayWhenTheMapIsDrawnAnew) {
  w.Ouvre(CarteRaster::IlesBritanniques);
  w.dialogues.paths = {"/maps/gb.prn", ""};
  EcritGrillesPrn(w.Carte());
  const auto lines = w.canvas.Appels("Line").size(), dots = w.canvas.Appels("PSet").size();
  EXPECT_EQ(dots, 25U);
  EXPECT_GT(lines, 200U);
  w.canvas.calls.clear();
  RedessineRaster(w.Carte());
  EXPECT_EQ(w.canvas.Appels("Line").size(), lines);
  EXPECT_EQ(w.canvas.Appels("PSet").size(), dots);
}

TEST_F(RasterClicks, AFailureOfAGridFileIsThrownOn) {
  w.Ouvre(CarteRaster::IlesBritanniques);
  w.dialogues.paths = {"/maps/gb.prn"};
  w.files.ecritureJusqua = 1000;
  EXPECT_THROW(EcritGrillesPrn(w.Carte()), TalpenaError);
}

}  // namespace
}  // namespace talpena

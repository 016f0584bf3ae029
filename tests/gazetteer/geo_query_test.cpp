// The search for a place, without the window.
#include <gtest/gtest.h>

#include "gazetteer/geo_world.h"

namespace talpena {
namespace {

using test::GeoWorld;
using Names = std::vector<std::string>;

TEST(GeoQuery, OnlyTheTableNamedExactlySoLosesBlanksAndHyphens) {
  SettingsState s;
  s.GeoTable = "bgntable";
  const std::string rest = " WHERE [Sort_Name] = '";
  EXPECT_EQ(InstructionRecherche(s, GeoSearch::Exact, "saint-ghislain"),
            "SELECT * FROM [bgntable] WHERE [Sort_Name] = 'SAINTGHISLAIN' ORDER BY [Sort_Name];");
  EXPECT_EQ(InstructionRecherche(s, GeoSearch::Approximate, " la  louviere "),
            "SELECT * FROM [bgntable] WHERE [Sort_Name] LIKE 'LALOUVIERE*' ORDER BY [Sort_Name];");
  s.GeoTable = "BGNTABLE";
  EXPECT_EQ(InstructionRecherche(s, GeoSearch::Exact, "saint-ghislain"),
            "SELECT * FROM [BGNTABLE] WHERE [Sort_Name] = 'SAINT-GHISLAIN' ORDER BY [Sort_Name];");
}

TEST(GeoQuery, ATextIsSentInCapitalsTrimmedAndNotEscaped) {
  SettingsState s;
  s.GeoTable = "Order Details";
  EXPECT_EQ(InstructionRecherche(s, GeoSearch::Exact, "  l'étang "),
            "SELECT * FROM [Order Details] WHERE [Sort_Name] = 'L'ÉTANG' ORDER BY [Sort_Name];");
}

TEST(GeoQuery, SortsByFipsWhenAskedTo) {
  SettingsState s;
  s.GeoTable = "[Umsätze]";
  s.GeoSort = 1;
  s.GeoFipsField = "FIPS";
  EXPECT_EQ(InstructionRecherche(s, GeoSearch::Exact, "x"),
            "SELECT * FROM [Umsätze] WHERE [Sort_Name] = 'X' ORDER BY [FIPS];");
}

TEST(GeoQuery, AnExactSearchListsThePlacesInTheOrderOfTheFile) {
  GeoWorld w;
  w.Fait({{"GENT", "Gent b", 51.0, 3.7},
          {"GENTBRUGGE", "Gentbrugge", 51.0, 3.8},
          {"GENT", "Gent a", 1.0, 2.0}});
  w.Cherche("gent");
  EXPECT_EQ(w.Noms(), (Names{"Gent b", "Gent a"}));
  EXPECT_EQ(w.query.lblNbre, "2");
  EXPECT_EQ(w.query.choisi, 0U);
  EXPECT_EQ(w.query.PicName, "Gent b");
  EXPECT_EQ(w.query.suite, GeoAfter::Stays);
}

TEST(GeoQuery, AnApproximateSearchTakesWhatBeginsWithIt) {
  GeoWorld w;
  w.Fait({{"GENT", "Gent", 51.0, 3.7},
          {"GENTBRUGGE", "Gentbrugge", 51.0, 3.8},
          {"AGENT", "Agent", 1.0, 2.0}});
  w.Cherche("gent", GeoSearch::Approximate);
  EXPECT_EQ(w.Noms(), (Names{"Gent", "Gentbrugge"}));
  w.Cherche("?gent", GeoSearch::Approximate);
  EXPECT_EQ(w.Noms(), Names{"Agent"});
  w.Cherche("?gent");
  EXPECT_EQ(w.Noms(), Names{});
}

TEST(GeoQuery, ASearchForNothingInVainShowsZero) {
  GeoWorld w;
  w.Fait({{"GENT", "Gent", 51.0, 3.7}});
  w.Cherche("gent");
  w.Cherche("nowhere");
  EXPECT_EQ(w.query.lblNbre, "0");
  EXPECT_EQ(w.Noms(), Names{});
  EXPECT_EQ(w.query.choisi, std::nullopt);
}

TEST(GeoQuery, WithFipsSortingTheOrderIsByThatField) {
  GeoWorld w;
  w.state.GeoSort = 1;
  w.Fait({{"A", "first", 1.0, 1.0, "FR01"}, {"A", "second", 1.0, 1.0, "BE01"}});
  w.Cherche("a");
  EXPECT_EQ(w.Noms(), (Names{"second", "first"}));
}

TEST(GeoQuery, AnEmptyTextBeepsAndEmptiesTheList) {
  GeoWorld w;
  w.Fait({{"GENT", "Gent", 51.0, 3.7}});
  w.Cherche("gent");
  w.Cherche("");
  EXPECT_EQ(w.sound.bips, 1);
  EXPECT_EQ(w.Noms(), Names{});
  w.state.Silence = true;
  w.Cherche("");
  EXPECT_EQ(w.sound.bips, 1);
}

TEST(GeoQuery, ATextOfBlanksIsLookedForAsTheEmptyName) {
  GeoWorld w;
  w.Fait({{"", "No key", 51.0, 3.7}});
  w.Cherche("  ");
  EXPECT_EQ(w.sound.bips, 0);
  EXPECT_EQ(w.Noms(), Names{"No key"});
}

TEST(GeoQuery, AMissingDatabaseIsToldEvenForAnEmptyTextAndOpensTheSetup) {
  GeoWorld w;
  w.Cherche("");
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  const MessageBox& box = w.dialogues.boxes[0];
  EXPECT_TRUE(box.text.starts_with("Error during database Query\n")) << box.text;
  EXPECT_TRUE(box.text.ends_with(" 3024")) << box.text;
  EXPECT_EQ(box.icon, Icon::None);
  EXPECT_EQ(w.dialogs.setups, 1);
  EXPECT_EQ(w.query.suite, GeoAfter::Stays);
  EXPECT_EQ(w.sound.bips, 0);
}

TEST(GeoQuery, AQuoteClosesTheDialogAndTheTextComesBack) {
  GeoWorld w;
  w.Fait({{"GENT", "Gent", 51.0, 3.7}});
  w.Cherche("l'étang");
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_TRUE(w.dialogues.boxes[0].text.starts_with("Error during database Query\n"));
  EXPECT_EQ(w.query.suite, GeoAfter::Closes);
  EXPECT_EQ(w.dialogs.setups, 0);
  GeoQueryScreen next;
  ChargeGeoQuery(w.geo, next);
  EXPECT_EQ(next.txt, "l'étang");
  GeoQueryScreen third;
  ChargeGeoQuery(w.geo, third);
  EXPECT_EQ(third.txt, "");
}

TEST(GeoQuery, ATableOrFieldThatIsNotThereClosesTheDialog) {
  GeoWorld w;
  w.Fait({{"GENT", "Gent", 51.0, 3.7}});
  w.state.GeoLatitudeField = "Height";
  w.Cherche("gent");
  EXPECT_EQ(w.Noms(), Names{});
  w.state.GeoTable = "Elsewhere";
  w.Cherche("gent");
  ASSERT_EQ(w.dialogues.boxes.size(), 2U);
  EXPECT_TRUE(w.dialogues.boxes[0].text.ends_with(" 3265")) << w.dialogues.boxes[0].text;
  EXPECT_TRUE(w.dialogues.boxes[1].text.ends_with(" 3078")) << w.dialogues.boxes[1].text;
  EXPECT_EQ(w.query.suite, GeoAfter::Closes);
}

TEST(GeoQuery, AFileOfAnotherKindClosesTheDialog) {
  GeoWorld w;
  test::EcritFichier(w.path, "no database");
  w.Cherche("gent");
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_TRUE(w.dialogues.boxes[0].text.ends_with(" 3343")) << w.dialogues.boxes[0].text;
  EXPECT_EQ(w.query.suite, GeoAfter::Closes);
}

TEST(Drive, TheLetterStandsBeforeTwoBackslashes) {
  for (const auto& [langue, words] :
       {std::pair{std::int16_t{1000}, "Please insert CD-ROM in drive "},
        {std::int16_t{0}, "Veuillez insérer le CD-ROM dans le lecteur "}}) {
    GeoWorld w;
    w.state.Langue = langue;
    w.state.GeoFile = "Q:\\bgn\\names.mdb";
    w.Cherche("gent");
    ASSERT_EQ(w.dialogues.boxes.size(), 2U);
    EXPECT_EQ(w.dialogues.boxes[0].text, words + std::string("Q:\\\\"));
    EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::Exclamation);
    EXPECT_EQ(w.dialogs.setups, 1);
  }
}

TEST(Drive, AFolderThatIsNotThereStandsForTheLetter) {
  GeoWorld w;
  w.state.GeoFile = "/nowhere/at/all/names.mdb";
  w.Cherche("gent");
  ASSERT_EQ(w.dialogues.boxes.size(), 2U);
  EXPECT_EQ(w.dialogues.boxes[0].text, "Please insert CD-ROM in drive /nowhere/at/all/");
}

TEST(GeoQuery, TheGazetteerOfTheProgramStandsInForTheDiscOfAFirstRun) {
  GeoWorld w;
  w.path = w.working / "tlpgazet.mdb";
  w.state.AppDir = w.working.path().string();
  w.state.GeoFile = w.environment.LecteurCD() + "tlpgazet.mdb";
  w.Fait({{"GENT", "Gent", 51.0, 3.7}});
  w.Cherche("gent");
  EXPECT_EQ(w.Noms(), Names{"Gent"});
  EXPECT_EQ(w.state.GeoFile, "D:\\tlpgazet.mdb");
}

TEST(GeoQuery, AFirstRunWithoutAnyGazetteerAsksForTheDiscAndOpensTheSetup) {
  GeoWorld w;
  w.state.AppDir = w.working.path().string();
  w.state.GeoFile = w.environment.LecteurCD() + "tlpgazet.mdb";
  w.Cherche("gent");
  ASSERT_EQ(w.dialogues.boxes.size(), 2U);
  EXPECT_EQ(w.dialogues.boxes[0].text, "Please insert CD-ROM in drive D:\\\\");
  EXPECT_TRUE(w.dialogues.boxes[1].text.ends_with(" 3024")) << w.dialogues.boxes[1].text;
  EXPECT_EQ(w.dialogs.setups, 1);
  EXPECT_TRUE(w.environment.dossiers.empty()) << "the process stays in its folder";
}

TEST(GeoQuery, CaseDoesNotCountAndAccentsDo) {
  GeoWorld w;
  w.Fait({{"étang", "with", 1.0, 1.0}, {"ETANG", "without", 1.0, 1.0}});
  for (const GeoSearch kind : {GeoSearch::Exact, GeoSearch::Approximate}) {
    w.Cherche("Étang", kind);
    EXPECT_EQ(w.Noms(), Names{"with"});
    w.Cherche("etang", kind);
    EXPECT_EQ(w.Noms(), Names{"without"});
  }
}

TEST(GeoQuery, ThePathOfATableMeansItsFolder) {
  GeoWorld w;
  for (const auto& [connect, file] : {std::pair{"dBase IV;", "/geo/names.DBF"},
                                      {"Paradox 4.X;", "/geo/names.db"},
                                      {"dBase IV;", "/geo"}}) {
    w.state.GeoDbType = connect;
    w.state.GeoFile = file;
    EXPECT_EQ(FichierGazetier(w.state, w.io), "/geo") << file;
  }
}

TEST(AfficheNom, ShowsTheNameInTheFontOfItsTag) {
  GeoWorld w;
  w.gazetteer.Polices[2] = {"DejaVu Sans", 14};
  w.Fait({{"KIEV", "<B3>Kiev</B3>", 50.4, 30.5}});
  w.Cherche("kiev");
  EXPECT_EQ(w.query.PicName, "Kiev");
  EXPECT_EQ(w.query.police, (RegionFont{"DejaVu Sans", 14}));
}

TEST(AfficheNom, AFontOutsideTheTableIsToldAndShownInTheFirst) {
  GeoWorld w;
  w.gazetteer.Polices[0] = {"First", 12};
  w.Fait({{"X", "<B7>X", 50.4, 30.5}});
  w.Cherche("x");
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_TRUE(w.dialogues.boxes[0].text.starts_with("Error 9\n")) << w.dialogues.boxes[0].text;
  EXPECT_EQ(w.query.police, (RegionFont{"First", 12}));
  EXPECT_EQ(w.query.ListView1.Nombre(), 1U);
  EXPECT_EQ(w.query.suite, GeoAfter::Stays);
}

TEST(GeoList, IsSortedByTheTextsOfAColumnAndTheOtherWayRound) {
  GeoWorld w;
  w.Fait({{"A", "b", 1.0, 1.0}, {"A", "C", 1.0, 1.0}, {"A", "a", 1.0, 1.0}});
  w.Cherche("a");
  ListView1_ItemClick(w.geo, w.query, 1);
  ListView1_ColumnClick(w.geo, w.query, PlaceColumn::Name);
  EXPECT_EQ(w.Noms(), (Names{"a", "b", "C"}));
  EXPECT_EQ(w.query.choisi, 2U);
  ListView1_ColumnClick(w.geo, w.query, PlaceColumn::Name);
  EXPECT_EQ(w.Noms(), (Names{"C", "b", "a"}));
  ListView1_ColumnClick(w.geo, w.query, PlaceColumn::Fips);
  EXPECT_EQ(w.Noms(), (Names{"b", "C", "a"}));
}

}  // namespace
}  // namespace talpena

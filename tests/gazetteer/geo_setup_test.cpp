// What the set-up of the gazetteer does: files, tables, fields, buttons.
#include "gazetteer/geo_setup.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "common/text.h"
#include "fakes/fake_tables.h"
#include "gazetteer/geo_settings.h"
#include "gazetteer/geo_setup_fixture.h"

namespace talpena {
namespace {

using test::EcritFichier;
using test::Texts;
using enum GeoList;

struct Setup : test::SetupFixture {};

// ---- The dialog is loaded

TEST_F(Setup, ShowsTheSettings) {
  const std::string path = Access();
  state.GeoSort = 1;
  state.GeoCoordType = 0;
  state.GeoDatum = "NTF";
  setup.Charge();
  EXPECT_EQ(Form().lblFile, path);
  EXPECT_EQ(Form().lblDatum, "NTF");
  EXPECT_EQ(Form().lblDbType, "");
  EXPECT_EQ(Form().Option1, 1);
  EXPECT_EQ(Form().Option2, 0);
  EXPECT_EQ(Entrees(Table), (Texts{"Places", "Other"})) << "in the order of the file";
  EXPECT_EQ(Choisi(Table), "Places");
  EXPECT_EQ(Entrees(Research), (Texts{"KEY", "NAME", "LAT", "LON", "FIPS"}));
  EXPECT_EQ(Choisi(Research), "KEY");
  EXPECT_EQ(Choisi(Longitude), "LON");
  EXPECT_EQ(Choisi(Fips), "FIPS");
  EXPECT_EQ(Boites(), Texts{});
}

TEST_F(Setup, OptionalListsBeginWithAnEmptyEntry) {
  Access();
  setup.Charge();
  for (const GeoList list : {Fips, Province, Feature, CountryName, ProvinceName}) {
    EXPECT_EQ(Entrees(list), (Texts{"", "KEY", "NAME", "LAT", "LON", "FIPS"}));
  }
  EXPECT_EQ(Form().Liste(Province).choix, 0) << "the setting is empty, and so is the entry";
}

TEST_F(Setup, AFieldThatTheTableLacksIsNotChosen) {
  Access();
  state.GeoLatitudeField = "Latitude";
  state.GeoFeatureField = "DESI";
  setup.Charge();
  EXPECT_EQ(Form().Liste(Latitude).choix, -1);
  EXPECT_EQ(Form().Liste(Feature).choix, -1);
}

TEST_F(Setup, WithoutAFileNothingIsOpened) {
  state.GeoFile = "";
  setup.Charge();
  EXPECT_EQ(Entrees(Table), Texts{});
  EXPECT_EQ(Boites(), Texts{});
}

TEST_F(Setup, AsksForTheDiscOnceForEachOpeningOfTheDialog) {
  state.GeoFile = "D:\\tlpgazet.mdb";
  setup.Charge();
  const Texts boxes = Boites();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_EQ(boxes[0], "Please insert CD-ROM in drive D:\\\\");
  EXPECT_TRUE(boxes[1].ends_with("\n3024")) << boxes[1];
  setup.MapGeo();
  EXPECT_EQ(Boites().size(), 1U) << "only that it cannot be opened";
}

TEST_F(Setup, AsksForTheDiscInFrenchForTheFrenchInterface) {
  state.Langue = 0;
  state.GeoFile = "D:\\tlpgazet.mdb";
  setup.Charge();
  EXPECT_EQ(Boites()[0], "Veuillez insérer le CD-ROM dans le lecteur D:\\\\");
}

TEST_F(Setup, AFileThatCannotBeOpenedIsToldWithItsNumberAndTheStopIcon) {
  EcritFichier(dossier / "bad.mdb", "no database");
  Regle(dossier / "bad.mdb", "", "Places");
  setup.Charge();
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_TRUE(dialogues.boxes[0].text.ends_with("\n3343")) << dialogues.boxes[0].text;
  EXPECT_EQ(Entrees(Table), Texts{});
  EXPECT_EQ(vue.sablier, false);
}

// ---- Kinds of files

TEST_F(Setup, ADbaseFileLeavesItsFolderAndTheTablesOfThatFolder) {
  const std::string folder = Cree("geo", Connect::DBase4, {"names", "Alt"});
  Change(folder + "/names.dbf");
  EXPECT_EQ(Form().lblFile, folder);
  EXPECT_EQ(Form().lblDbType, "dBase IV;");
  ASSERT_EQ(Entrees(Table).size(), 2U);
  EXPECT_TRUE(EgalSansCasse(Entrees(Table)[0], "alt"))
      << "in alphabetical order without regard to case";
  EXPECT_TRUE(EgalSansCasse(Choisi(Table), "names")) << "the file that was chosen";
}

TEST_F(Setup, TheTableOfTheSettingsGoesBeforeThatOfTheFile) {
  const std::string folder = Cree("geo", Connect::DBase4, {"names", "alt"});
  Change(folder + "/names.dbf");
  state.GeoTable = Entrees(Table)[0];
  Change(folder + "/names.dbf");
  EXPECT_EQ(Choisi(Table), Entrees(Table)[0]);
}

TEST_F(Setup, TheExtensionDbfIsDbaseThoughItContainsThatOfParadox) {
  EXPECT_EQ(ConnectDuFichier("C:\\geo\\NAMES.DBF", "x"), "dBase IV;");
  EXPECT_EQ(ConnectDuFichier("C:\\geo\\names.db", "x"), "Paradox 4.X;");
  EXPECT_EQ(ConnectDuFichier("C:\\geo\\names.Mdb", "x"), "");
  EXPECT_EQ(ConnectDuFichier("C:\\geo\\names.txt", "x"), "x");
}

TEST_F(Setup, AParadoxFileIsReadByItsFolder) {
  const std::string source = TALPENA_SHARED_DATA "/db/paradox/AREACODE.DB";
  if (!std::filesystem::exists(source)) GTEST_SKIP() << source;
  std::filesystem::copy(source, dossier.path());
  Change(dossier / "AREACODE.DB");
  EXPECT_EQ(Form().lblFile, dossier.path().string());
  EXPECT_EQ(Form().lblDbType, "Paradox 4.X;");
  EXPECT_TRUE(EgalSansCasse(Choisi(Table), "areacode"));
  EXPECT_FALSE(setup.Champs().empty());
}

TEST_F(Setup, ADamagedTableOfAFolderIsListedAndFailsWhenItIsChosen) {
  const std::string folder = Cree("geo", Connect::DBase4, {"names"});
  EcritFichier(folder + "/broken.dbf", "nothing of a table");
  Regle(folder, "dBase IV;", "");
  setup.Charge();
  EXPECT_EQ(Boites(), Texts{});
  ASSERT_EQ(Entrees(Table).size(), 2U);
  setup.cmb_Click(Table, 0);
  const Texts boxes = Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_TRUE(boxes[0].ends_with("\n3343")) << boxes[0];
  EXPECT_EQ(Entrees(Research), Texts{});
  setup.cmb_Click(Table, 1);
  EXPECT_EQ(Entrees(Research).size(), 5U);
}

TEST_F(Setup, WithNoTableChosenTheListsOfFieldsAreEmpty) {
  Access();
  state.GeoTable = "Gone";
  setup.Charge();
  EXPECT_EQ(Form().Liste(Table).choix, -1);
  for (std::size_t i = 1; i < GeoListCount; ++i) EXPECT_EQ(Form().cmb[i].entrees, Texts{});
}

TEST_F(Setup, AFileOfAnotherKindOpensNothing) {
  Change(dossier / "names.txt");
  EXPECT_EQ(Form().lblFile, dossier / "names.txt");
  EXPECT_EQ(Entrees(Table), Texts{});
  EXPECT_EQ(Boites(), Texts{});
}

TEST_F(Setup, ListsSelectQueriesAndTheirFields) {
  const std::string source = TALPENA_SHARED_DATA "/db/mdb/queryTestV2003.mdb";
  if (!std::filesystem::exists(source)) GTEST_SKIP() << source;
  Regle(source, "", "");
  setup.Charge();
  for (const QueryDef& query : engine->OpenDatabase(source, true)->Queries()) {
    const bool listed = std::ranges::count(Entrees(Table), query.name) > 0;
    EXPECT_EQ(listed, query.kind == 0 && !query.name.starts_with('~')) << query.name;
  }
}

TEST_F(Setup, ListsHiddenTablesButNoneOfTheMakersNorLinkedOnesNorQueriesOfOtherKinds) {
  test::FakeTables tables;
  const std::vector<FieldDef> fields{{.name = "NAME"}};
  tables.bases["geo.mdb"];
  tables.tables = {
      {.name = "Seen", .fields = fields, .indexes = {}},
      {.name = "Hidden", .fields = fields, .indexes = {}, .attributes = TableAttribute::Hidden},
      {.name = "MSysObjects",
       .fields = fields,
       .indexes = {},
       .attributes = TableAttribute::System},
      {.name = "HiddenByTheMaker", .fields = fields, .indexes = {}, .attributes = 2},
      {.name = "Linked", .fields = {}, .indexes = {}}};
  tables.queries = {{.name = "Chosen", .sql = {}, .fields = {}},
                    {.name = "~sq_cForm", .sql = {}, .fields = {}},
                    {.name = "Append", .kind = 64, .sql = {}, .fields = {}}};
  Platform other{tables, *files, settings, dialogues, clock, environment, sound};
  GeoSetup here({state, other, vue, vue, vue}, *this);
  Regle("geo.mdb", "", "");
  state.GeoFile = "geo.mdb";
  here.Charge();
  Boites();
  EXPECT_EQ(here.Form().Liste(Table).entrees, (Texts{"Seen", "Hidden", "Chosen"}));
}

TEST_F(Setup, TheFolderOfAFileInTheRootIsTheRoot) {
  for (const auto& [file, folder] :
       {std::pair{"C:\\names.dbf", "C:\\"}, std::pair{"C:\\geo\\names.dbf", "C:\\geo"}}) {
    Change(file);
    EXPECT_EQ(Form().lblFile, folder);
    Boites();
  }
}

TEST_F(Setup, AStoredPathOfATableIsUnderstoodAsItsFolder) {
  const std::string folder = Cree("geo", Connect::DBase4, {"names"});
  Regle(folder + "/NAMES.DBF", "dbase iv;", "");
  setup.Charge();
  EXPECT_EQ(Form().lblFile, folder);
  EXPECT_EQ(Form().lblDbType, "dBase IV;");
  EXPECT_EQ(Entrees(Table).size(), 1U);
}

TEST_F(Setup, OnAFirstRunTheGazetteerBesideTheProgramIsShown) {
  const std::string path = Cree("tlpgazet.mdb", "", {"Places"});
  Regle(environment.cd + "tlpgazet.mdb", "", "Places");
  setup.Charge();
  EXPECT_EQ(Form().lblFile, path);
  EXPECT_EQ(Choisi(Table), "Places");
}

TEST_F(Setup, AChosenQueryGivesItsFields) {
  const std::string source = TALPENA_SHARED_DATA "/db/mdb/queryTestV2003.mdb";
  if (!std::filesystem::exists(source)) GTEST_SKIP() << source;
  Regle(source, "", "");
  setup.Charge();
  Clique(Table, "SelectQuery");
  EXPECT_FALSE(Entrees(Research).empty());
}

// ---- Sorting

TEST_F(Setup, SortingByFipsWithoutAFipsFieldFallsBackToTheLocality) {
  Access();
  setup.Charge();
  setup.Option1_Click(1);
  EXPECT_EQ(Form().Option1, 1);
  Clique(Fips, "");
  EXPECT_EQ(Form().Option1, 0) << "the field went";
  setup.Option1_Click(1);
  EXPECT_EQ(Form().Option1, 0) << "it cannot be chosen";
  Clique(Fips, "FIPS");
  setup.Option1_Click(1);
  EXPECT_EQ(Form().Option1, 1);
}

// ---- Ok and Escape

TEST_F(Setup, OkStoresEverything) {
  const std::string path = Cree("geo.mdb", "", {"Places"});
  Regle("/old.mdb", "dBase IV;", "Old");
  state.GeoLatitudeField = state.GeoLongitudeField = state.GeoFullNameField = "";
  Change(path);
  Clique(Table, "Places");
  for (const auto& [list, field] : std::vector<std::pair<GeoList, std::string>>{{Research, "NAME"},
                                                                                {FullName, "KEY"},
                                                                                {Latitude, "LAT"},
                                                                                {Longitude, "LON"},
                                                                                {Fips, "FIPS"},
                                                                                {Feature, "KEY"}}) {
    Clique(list, field);
  }
  setup.Option1_Click(1);
  setup.Option2_Click(0);
  EXPECT_EQ(state.GeoTable, "Old") << "not yet";
  EXPECT_TRUE(Bouton(GeoCommand::Ok).ferme);
  EXPECT_EQ(state.GeoFile, path);
  EXPECT_EQ(state.GeoDbType, "");
  EXPECT_EQ(state.GeoTable, "Places");
  EXPECT_EQ(state.GeoResearchField, "NAME");
  EXPECT_EQ(state.GeoFullNameField, "KEY");
  EXPECT_EQ(state.GeoFeatureField, "KEY");
  EXPECT_EQ(state.GeoProvinceField, "");
  EXPECT_EQ(state.GeoSort, 1);
  EXPECT_EQ(state.GeoCoordType, 0);
}

TEST_F(Setup, EscapeKeepsNothing) {
  Access();
  setup.Charge();
  const SettingsState before = state;
  const std::string folder = Cree("geo", Connect::DBase4, {"names"});
  Change(folder + "/names.dbf");
  setup.Option2_Click(0);
  EXPECT_TRUE(Bouton(GeoCommand::Escape).ferme);
  EXPECT_EQ(state.GeoFile, before.GeoFile);
  EXPECT_EQ(state.GeoDbType, before.GeoDbType);
  EXPECT_EQ(state.GeoCoordType, before.GeoCoordType);
}

TEST_F(Setup, OkBeepsAtAnEmptyRequiredListAndStoresNothing) {
  Access();
  setup.Charge();
  for (const GeoList list : {Table, Research, FullName, Latitude, Longitude}) {
    const std::string chosen = Choisi(list);
    const int before = sound.bips;
    state.GeoDatum = "NTF";
    setup.cmb_Click(list, -1);
    const GeoSuite next = Bouton(GeoCommand::Ok);
    EXPECT_FALSE(next.ferme);
    EXPECT_EQ(next.focus, list);
    EXPECT_EQ(sound.bips, before + 1);
    EXPECT_EQ(state.GeoTable, "Places");
    Clique(list, chosen);
  }
  EXPECT_TRUE(Bouton(GeoCommand::Ok).ferme);
}

TEST_F(Setup, OkWithTheDiscNotInItsDriveStoresNothing) {
  Regle("D:\\tlpgazet.mdb", "", "TLPGazet_Decoding");
  setup.Charge();
  Boites();
  EXPECT_EQ(Bouton(GeoCommand::Ok).focus, Table);
  EXPECT_EQ(state.GeoTable, "TLPGazet_Decoding");
  EXPECT_EQ(state.GeoResearchField, "KEY");
}

TEST_F(Setup, ATableNamedBgntableInAnyCaseSetsTheEllipsoid) {
  const std::string path = Cree("bgn.mdb", "", {"BgnTable"});
  Regle(path, "", "BgnTable");
  state.EllipsoideReglage = 15;
  state.Catalogue.EllipsoideCourant = 0;
  setup.Charge();
  EXPECT_TRUE(Bouton(GeoCommand::Ok).ferme);
  EXPECT_EQ(state.EllipsoideReglage, 21);
  EXPECT_EQ(state.Catalogue.DemiGrandAxe, 6378137.0);
  EXPECT_EQ(settings.written, Texts{}) << "the settings are stored at the end";
}

TEST_F(Setup, AnyOtherTableLeavesTheEllipsoid) {
  Access();
  state.EllipsoideReglage = 15;
  setup.Charge();
  Bouton(GeoCommand::Ok);
  EXPECT_EQ(state.EllipsoideReglage, 15);
}

// ---- Change

TEST_F(Setup, ChangeAsksForTheThreeKindsOfFiles) {
  Access();
  setup.Charge();
  Change("");
  ASSERT_EQ(dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(dialogues.fileDialogs[0].filter,
            "Access (*.mdb)|*.mdb|dBase IV (*.dbf)|*.dbf|Paradox 4.x (*.db)|*.db");
  EXPECT_EQ(dialogues.fileDialogs[0].name, state.GeoFile);
  EXPECT_EQ(Form().lblFile, state.GeoFile) << "after Cancel";
}

}  // namespace
}  // namespace talpena

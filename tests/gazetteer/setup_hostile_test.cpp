// The set-up over gazetteers and set-up files that are damaged, gone, or meant to do harm: what is
// wrong is told, and nothing is set up.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "gazetteer/geo_settings.h"
#include "gazetteer/geo_setup_fixture.h"
#include "gazetteer/setup_sample.h"

namespace talpena {
namespace {

using test::EcritFichier;
using test::LitFichier;
using test::Texts;

struct HostileSetup : test::SetupFixture {
  SetupSample sample{context, setup};

  /// Everything that the dialog does with a file by itself, and the button Test.
  void Parcourt() {
    setup.Charge();
    sample.Lit();
    sample.Lignes();
    sample.Essaie();
  }
  void Reste(const SettingsState& before) const {
    EXPECT_EQ(state.GeoFile, before.GeoFile);
    EXPECT_EQ(state.GeoDbType, before.GeoDbType);
    EXPECT_EQ(NomsGeo(state), NomsGeo(before));
    EXPECT_FALSE(vue.sablier);
  }
};

TEST_F(HostileSetup, AHalfWrittenAccessFileIsToldAndNothingIsSetUp) {
  const std::string path =
      CreeTable("geo.mdb", TableDeLieux("Places"), std::vector(3000, Lieux()[0]));
  const std::string whole = LitFichier(path);
  Regle(path, "", "Places");
  for (const std::size_t kept : {std::size_t{0}, std::size_t{100}, std::size_t{4096},
                                 whole.size() / 2, whole.size() - 4096}) {
    SCOPED_TRACE(kept);
    EcritFichier(path, whole.substr(0, kept));
    const SettingsState before = state;
    Parcourt();
    EXPECT_FALSE(Boites().empty());
    Reste(before);
  }
}

TEST_F(HostileSetup, SurvivesChangedBytesOfAnyFormat) {
  std::mt19937 random(62);
  for (const auto& [connect, file] :
       {std::pair{std::string(), std::string("geo.mdb")},
        std::pair{std::string(Connect::DBase4), std::string("geo/names.dbf")}}) {
    Cree(connect.empty() ? "geo.mdb" : "geo", connect, {"names"});
    const std::string path = dossier / file, whole = LitFichier(path);
    Regle(dossier / (connect.empty() ? "geo.mdb" : "geo"), connect, "names");
    const SettingsState before = state;
    for (int i = 0; i < 40; ++i) {
      SCOPED_TRACE(i);
      std::string bytes = whole;
      for (int k = 0; k < 20; ++k) bytes[random() % bytes.size()] = static_cast<char>(random());
      EcritFichier(path, bytes);
      Parcourt();
      Boites();
      Reste(before);
    }
  }
}

TEST_F(HostileSetup, ATableThatVanishedIsToldWhenItIsChosen) {
  const std::string folder = Cree("geo", Connect::DBase4, {"names"});
  Regle(folder, "dBase IV;", "");
  setup.Charge();
  std::filesystem::remove_all(folder);
  setup.cmb_Click(GeoList::Table, 0);
  sample.Lit();
  EXPECT_TRUE(sample.Lignes().empty());
  EXPECT_FALSE(Boites().empty());
}

TEST_F(HostileSetup, WhatIsNoFileAtAllIsToldAndNotWaitedFor) {
  std::filesystem::create_directory(dossier / "folder.mdb");
  ASSERT_EQ(mkfifo((dossier / "pipe.mdb").c_str(), 0600), 0);
  for (const char* name : {"folder.mdb", "pipe.mdb"}) {
    SCOPED_TRACE(name);
    Regle(dossier / name, "", "Places");
    const SettingsState before = state;
    Parcourt();
    const Texts boxes = Boites();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(boxes[0].ends_with("\n3343")) << boxes[0];
    Reste(before);
  }
}

TEST_F(HostileSetup, FieldsOfAnyTypeAreReadAsFarAsTheyHoldNumbers) {
  const TableDef table{.name = "Odd",
                       .fields = {{.name = "TEXT", .type = FieldType::Text, .size = 20},
                                  {.name = "MEMO", .type = FieldType::Memo},
                                  {.name = "DATE", .type = FieldType::Date},
                                  {.name = "LOGICAL", .type = FieldType::Boolean},
                                  {.name = "BINARY", .type = FieldType::Binary},
                                  {.name = "MONEY", .type = FieldType::Currency}},
                       .indexes = {}};
  const std::string path =
      CreeTable("odd.mdb", table,
                {{"50,5", std::string(1'000'000, 'x'), 40000.0, std::int64_t{-1}, Value(), 12.5}});
  for (const FieldDef& north : table.fields) {
    for (const FieldDef& east : table.fields) {
      SCOPED_TRACE(north.name + " " + east.name);
      Regle(path, "", "Odd");
      state.GeoFullNameField = state.GeoResearchField = east.name;
      state.GeoLatitudeField = north.name;
      state.GeoLongitudeField = east.name;
      state.GeoFipsField = state.GeoFeatureField = north.name;
      Parcourt();
      EXPECT_EQ(sample.Lignes().size(), 1U);
      EXPECT_EQ(Boites(), Texts{});
    }
  }
}

TEST_F(HostileSetup, ANameOfAMillionCharactersIsShownCut) {
  const TableDef table{.name = "Long",
                       .fields = {{.name = "NAME", .type = FieldType::Memo},
                                  {.name = "LAT", .type = FieldType::Double},
                                  {.name = "LON", .type = FieldType::Double}},
                       .indexes = {}};
  Regle(CreeTable("long.mdb", table, {{std::string(1'000'000, 'x'), 50.0, 4.0}}), "", "Long");
  state.GeoResearchField = "NAME";
  state.GeoFipsField = "";
  Parcourt();
  ASSERT_EQ(sample.Lignes().size(), 1U);
  EXPECT_EQ(sample.Lignes()[0].lieu.Texte(PlaceColumn::Name), std::string(200, 'x'));
  EXPECT_EQ(Boites(), Texts{});
}

TEST_F(HostileSetup, TablesAndFieldsWithAwkwardNamesAreSetUpLikeAnyOther) {
  for (const char* name : {"Order Details", "Table", "Umsätze", "it's", "SELECT"}) {
    SCOPED_TRACE(name);
    TableDef table = TableDeLieux(name);
    table.fields[1].name = "na'me of \"it\"";
    const std::string file = std::string("geo-") + name + ".mdb";
    Regle(CreeTable(file, table, Lieux()), "", name);
    state.GeoFullNameField = table.fields[1].name;
    Parcourt();
    EXPECT_EQ(Choisi(GeoList::Table), name);
    EXPECT_EQ(sample.Lignes().size(), 3U);
    EXPECT_EQ(Boites(), Texts{});
  }
}

TEST_F(HostileSetup, ACopyOfTheTableThatIsDamagedIsReadAnew) {
  Regle(CreeTable("geo.mdb", TableDeLieux("Places"), std::vector(3000, Lieux()[0])), "", "Places");
  Parcourt();
  for (const auto& copy : std::filesystem::directory_iterator(environment.prive + "/gazetteer")) {
    const std::string whole = LitFichier(copy.path().string());
    EcritFichier(copy.path().string(), whole.substr(0, 8192) + std::string(whole.size(), '!'));
  }
  Parcourt();
  EXPECT_EQ(sample.Essaie()->lignes, 3000);
  EXPECT_EQ(Boites(), Texts{});
}

TEST_F(HostileSetup, WithoutAPlaceForCopiesTheTableIsReadEachTime) {
  EcritFichier(environment.prive, "a file where the folder should be");
  Regle(Cree("geo.mdb", "", {"Places"}), "", "Places");
  Parcourt();
  EXPECT_EQ(sample.Lignes().size(), 3U);
  EXPECT_EQ(Boites(), Texts{});
}

// ---- Set-up files

TEST_F(HostileSetup, ASetUpThatIsNoFileIsToldAndNotWaitedFor) {
  Access();
  setup.Charge();
  std::filesystem::create_directory(dossier / "folder.cfg");
  ASSERT_EQ(mkfifo((dossier / "pipe.cfg").c_str(), 0600), 0);
  const SettingsState before = state;
  for (const char* name : {"folder.cfg", "pipe.cfg", "gone.cfg"}) {
    SCOPED_TRACE(name);
    dialogues.paths = {dossier / name};
    Bouton(GeoCommand::Open);
    EXPECT_EQ(Boites().size(), 1U);
    Reste(before);
  }
}

TEST_F(HostileSetup, ASetUpOfAMillionLinesIsReadAsFarAsItIsOne) {
  const std::string path = Access();
  std::string lines;
  for (int i = 0; i < 1'000'000; ++i) lines += "x\r\n";
  OuvreCfg(Cfg(path, "", "Other") + lines);
  EXPECT_EQ(Choisi(GeoList::Table), "Other");
  EXPECT_EQ(Boites(), Texts{});
}

TEST_F(HostileSetup, ASetUpOfOtherBytesIsToldAndNothingIsSetUp) {
  Access();
  setup.Charge();
  const SettingsState before = state;
  const std::string million(1'000'000, 'x');
  for (const std::string& bytes : {million, "<TALPENA 2.0>\r\n" + million}) {
    SCOPED_TRACE(bytes.size());
    OuvreCfg(bytes);
    EXPECT_EQ(Boites().size(), 1U);
    Reste(before);
  }
}

TEST_F(HostileSetup, AConnectStringThatNobodyKnowsOpensNothing) {
  OuvreCfg(Cfg("/etc", "ODBC;DSN=x;", "names"));
  EXPECT_EQ(state.GeoDbType, "ODBC;DSN=x;") << "what Open reads holds at once";
  EXPECT_EQ(Entrees(GeoList::Table), Texts{});
  EXPECT_EQ(Bouton(GeoCommand::Ok).focus, GeoList::Table) << "and cannot be taken for a set-up";
  Boites();
}

TEST_F(HostileSetup, SaveToAPlaceThatCannotBeWrittenIsTold) {
  Access();
  setup.Charge();
  dialogues.paths = {dossier / "gone" + std::string("/my.cfg")};
  Bouton(GeoCommand::Save);
  EXPECT_EQ(Boites().size(), 1U);
}

}  // namespace
}  // namespace talpena

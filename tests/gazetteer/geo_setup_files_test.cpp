// The set-ups that are saved and opened.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/text.h"
#include "gazetteer/geo_setup_fixture.h"

namespace talpena {
namespace {

using test::EcritFichier;
using test::LitFichier;
using test::Texts;
using enum GeoList;

struct SetupFiles : test::SetupFixture {};

TEST_F(SetupFiles, SaveWritesWhatTheControlsShow) {
  const std::string path = Access();
  setup.Charge();
  dialogues.paths = {dossier / "my.cfg"};
  Bouton(GeoCommand::Save);
  EXPECT_EQ(LitFichier(dossier / "my.cfg"), Remplace(Cfg(path, "", "Places"), "EUR-M", "WGS84"));
  EXPECT_EQ(dialogues.fileDialogs[0].filter, "*.cfg|*.cfg|*.*|*.*");
  EXPECT_EQ(dialogues.fileDialogs[0].folder, state.AppDir);
  EXPECT_EQ(dialogues.fileDialogs[0].name, "");
}

TEST_F(SetupFiles, SaveAsksBeforeItReplacesAFile) {
  Access();
  setup.Charge();
  EcritFichier(dossier / "my.cfg", "before");
  dialogues.paths = {dossier / "my.cfg"};
  dialogues.answers = {Answer::No};
  Bouton(GeoCommand::Save);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "File already exists! Replace?");
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(dialogues.boxes[0].defaultButton, Answer::No);
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(LitFichier(dossier / "my.cfg"), "before");
  dialogues.paths = {dossier / "my.cfg"};
  dialogues.answers = {Answer::Yes};
  Bouton(GeoCommand::Save);
  EXPECT_NE(LitFichier(dossier / "my.cfg"), "before");
}

TEST_F(SetupFiles, SaveWarnsOfAPathWithAComma) {
  const std::string path = Cree("geo, old.mdb", "", {"Places"});
  Regle(path, "", "Places");
  setup.Charge();
  dialogues.paths = {dossier / "my.cfg"};
  Bouton(GeoCommand::Save);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_NE(dialogues.boxes[0].text.find(path), std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(dossier / "my.cfg"));
}

TEST_F(SetupFiles, OpenTakesASetUpAtOnce) {
  const std::string path = Cree("geo.mdb", "", {"Places"});
  setup.Charge();
  Boites();
  OuvreCfg(Cfg(path, "", "Places", "0\r\n-1\r\n-1\r\n0\r\n"));
  EXPECT_EQ(Form().lblFile, path);
  EXPECT_EQ(Choisi(Table), "Places");
  EXPECT_EQ(Choisi(Research), "KEY");
  EXPECT_EQ(Form().Option1, 1);
  EXPECT_EQ(Form().Option2, 0);
  EXPECT_EQ(state.GeoFile, path);
  EXPECT_EQ(state.GeoDatum, "EUR-M");
  EXPECT_EQ(state.GeoProvinceName, "");
  Bouton(GeoCommand::Escape);
  EXPECT_EQ(state.GeoFile, path) << "stays after Escape";
}

TEST_F(SetupFiles, ASetUpOfTheOlderFormLeavesTheNamesOfCountryAndProvince) {
  const std::string path = Cree("geo.mdb", "", {"Places"});
  state.GeoCountryName = "Country_Name";
  state.GeoProvinceName = "Province_Name";
  OuvreCfg(path + "\r\n\r\nWGS84\r\nPlaces\r\nKEY\r\nNAME\r\nLAT\r\nLON\r\nFIPS\r\n\r\n\r\n" +
           "-1\r\n0\r\n-1\r\n0\r\n");
  EXPECT_EQ(state.GeoFile, path);
  EXPECT_EQ(state.GeoFipsField, "FIPS");
  EXPECT_EQ(state.GeoCountryName, "Country_Name");
  EXPECT_EQ(state.GeoProvinceName, "Province_Name");
  EXPECT_EQ(Form().Option2, 0);
}

TEST_F(SetupFiles, ASetUpThatEndsEarlyKeepsWhatItGaveAndSaysSo) {
  const std::string path = Access();
  state.GeoLongitudeField = "Before";
  OuvreCfg("<TALPENA 2.0>\r\n" + path + "\r\n\r\nEUR-M\r\nOther\r\nNAME\r\n");
  EXPECT_EQ(state.GeoTable, "Other");
  EXPECT_EQ(state.GeoResearchField, "NAME");
  EXPECT_EQ(state.GeoLongitudeField, "Before");
  EXPECT_EQ(Choisi(Table), "Other");
  EXPECT_EQ(Boites(),
            Texts{"Error 62\nThe set-up file ends after line 6: the settings that should follow "
                  "stayed as they were."});
}

TEST_F(SetupFiles, AFileThatIsGoneIsLookedForInOtherCaseAndBesideTheSetUp) {
  const std::string path = Cree("Geo.mdb", "", {"Places"});
  OuvreCfg(Cfg(dossier.path().string() + "\\GEO.MDB", "", "Places"));
  EXPECT_EQ(state.GeoFile, path) << "other case, other separators";
  OuvreCfg(Cfg("E:\\elsewhere\\geo.mdb", "", "Places"));
  EXPECT_EQ(state.GeoFile, path) << "beside the set-up";
  EXPECT_EQ(Boites(), Texts{});
}

TEST_F(SetupFiles, AFileThatIsGoneIsAskedForUntilItIsThere) {
  const std::string path = Cree("other.mdb", "", {"Places"});
  dialogues.paths = {dossier / "nor this.mdb", path};
  OuvreCfg(Cfg("E:\\Elsewhere\\GEO.mdb", "", "Places"));
  EXPECT_EQ(Boites(),
            (Texts{"E:\\Elsewhere\\GEO.mdb not found", (dossier / "nor this.mdb") + " not found"}));
  EXPECT_EQ(sound.bips, 2);
  EXPECT_EQ(state.GeoFile, path);
  ASSERT_EQ(dialogues.fileDialogs.size(), 3U);
  EXPECT_EQ(dialogues.fileDialogs[1].filter, "*.*|*.*|*.mdb|*.mdb|*.dbf|*.dbf");
  EXPECT_EQ(dialogues.fileDialogs[1].name, "geo.mdb");
}

TEST_F(SetupFiles, TheConnectStringFollowsTheFileThatIsChosenInstead) {
  const std::string folder = Cree("geo", Connect::DBase4, {"names"});
  dialogues.paths = {folder + "/names.dbf"};
  OuvreCfg(Cfg("E:\\geo.mdb", "", "NAMES"));
  Boites();
  EXPECT_EQ(state.GeoDbType, "dBase IV;");
  EXPECT_EQ(Form().lblFile, folder);
}

TEST_F(SetupFiles, GivingUpTheSearchForAFileChangesNothing) {
  Access();
  const std::string before = state.GeoFile;
  setup.Charge();
  dialogues.paths = {""};
  OuvreCfg(Cfg("E:\\gone.mdb", "", "Names"));
  EXPECT_EQ(Boites(), Texts{"E:\\gone.mdb not found"});
  EXPECT_EQ(state.GeoFile, before);
  EXPECT_EQ(state.GeoTable, "Places");
}

TEST_F(SetupFiles, AFolderThatIsGoneIsNotAskedFor) {
  OuvreCfg(Cfg("E:\\geo", "dBase IV;", "NAMES"));
  EXPECT_EQ(state.GeoFile, "E:\\geo");
  const Texts boxes = Boites();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_EQ(boxes[0], "Please insert CD-ROM in drive E:\\\\");
}

TEST_F(SetupFiles, ASetUpThatCannotBeReadIsToldInTheCommonBox) {
  dialogues.paths = {dossier / "gone.cfg"};
  Bouton(GeoCommand::Open);
  EXPECT_EQ(Boites().size(), 1U);
  OuvreCfg("");
  EXPECT_EQ(Boites().size(), 1U);
}

TEST_F(SetupFiles, ASavedSetUpIsTheSameWhenItIsOpenedAgain) {
  const std::string path = Access();
  state.GeoSort = 1;
  setup.Charge();
  dialogues.paths = {dossier / "my.cfg"};
  Bouton(GeoCommand::Save);
  const SettingsState before = state;
  Regle("/elsewhere.mdb", "dBase IV;", "x");
  dialogues.paths = {dossier / "my.cfg"};
  Bouton(GeoCommand::Open);
  EXPECT_EQ(state.GeoFile, path);
  EXPECT_EQ(state.GeoDbType, before.GeoDbType);
  EXPECT_EQ(state.GeoTable, before.GeoTable);
  EXPECT_EQ(Form().Option1, 1);
}

}  // namespace
}  // namespace talpena

// The order in which the process comes up, and what a failure on the way leaves.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "shell/start_machine.h"

namespace talpena {
namespace {

using test::FakeSettings;
using test::Journal;
using test::StartMachine;

TEST(ChargeForm1, TakesItsStepsInOrder) {
  StartMachine m;
  m.Charge();
  const Journal expected = {
      "Sablier",
      "DesactiveMenus",
      "WorkingDir",
      "CreateDatabase /tmp/talpena_tmp.mdb ;LANGID=0x0409;CP=1252;COUNTRY=0",
      "CreateTable TALPENA",
      "FondGrilleSysteme",
      "OpenDatabase /opt/talpena/DATUM.MDB",
      "ChargeReglages",
      "AppliqueReglages",
      "AppliqueLangue",
      "InitFenetres",
      "InitTDBgrid",
      "ColoreOptTri",
      "MontreFenetre",
      "TraiteMessages",
      "ColoreFenetres",
      "FermeSplash",
      "Pointeur",
      "TraiteMessages",
  };
  EXPECT_EQ(m.journal, expected);
}

TEST(ChargeForm1, LeavesAnUnmodifiedEmptyFileInItsOwnOrder) {
  StartMachine m;
  m.Charge();
  EXPECT_FALSE(m.state.document.FichierModifie());
  EXPECT_EQ(m.state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY Counter");
  EXPECT_TRUE(m.state.document.Fichier.NomFichier.empty());
  EXPECT_FALSE(m.state.document.Data1.EstLie())
      << "the first command that fills the table binds it";
  EXPECT_FALSE(m.vue.menusActifs);
  EXPECT_FALSE(m.vue.sablier);
}

TEST(ChargeForm1, KeepsASecondCopyOfTheProgramsFolder) {
  StartMachine m;
  m.Charge();
  EXPECT_EQ(m.state.DossierCartes, "/opt/talpena");
}

struct FolderCase {
  const char* name;
  const char* stored;  ///< nullptr: no such key
  const char* folder;
};

constexpr std::array folderCases = {
    FolderCase{"TEMP when nothing is stored", nullptr, "/tmp/"},
    FolderCase{"stored, without a separator", "/nowhere/rows", "/nowhere/rows/"},
    FolderCase{"stored, with one", "/nowhere/rows/", "/nowhere/rows/"},
    FolderCase{"stored, with the other one", "\\nowhere\\rows\\", "/nowhere/rows/"},
    FolderCase{"empty: the current folder", "", ""},
};

TEST(ChargeForm1, PutsTheWorkingDatabaseIntoTheWorkingFolder) {
  for (const FolderCase& c : folderCases) {
    SCOPED_TRACE(c.name);
    StartMachine m;
    if (c.stored != nullptr) m.settings.values["TALPENA/CONFIG/WORKINGDIR"] = c.stored;
    m.Charge();
    EXPECT_EQ(m.state.WorkingDir, c.folder);
    EXPECT_EQ(m.state.WorkingDbPath, std::string(c.folder) + "talpena_tmp.mdb");
  }
}

TEST(ChargeForm1, DeletesAStaleWorkingDatabaseWithoutAQuestion) {
  StartMachine m;
  m.files.Pose("/tmp/talpena_tmp.mdb", "rows of a crashed run");
  m.Charge();
  EXPECT_FALSE(m.files.Existe("/tmp/talpena_tmp.mdb"));
  EXPECT_TRUE(m.dialogues.boxes.empty());
  const auto deleted =
      std::find(m.journal.begin(), m.journal.end(), "Supprime /tmp/talpena_tmp.mdb");
  ASSERT_NE(deleted, m.journal.end());
  EXPECT_EQ((deleted + 1)->rfind("CreateDatabase", 0), 0U) << "before the new one is made";
}

TEST(ChargeForm1, TakesTheLanguageOfTheSettingsBeforeItWritesCaptions) {
  StartMachine m;
  m.settings.values["TALPENA/LANGUAGE/LANGUAGE"] = "0";
  m.Charge();
  EXPECT_EQ(m.state.Langue, 0);
  EXPECT_EQ(m.state.FichierAide, "/opt/talpena/TALPENAF.HLP");
}

TEST(ChargeForm1, AnErrorEndsTheLoadInSilenceWhereItStands) {
  for (const char* step : {"DesactiveMenus", "FondGrilleSysteme", "AppliqueLangue", "InitTDBgrid",
                           "MontreFenetre", "FermeSplash"}) {
    SCOPED_TRACE(step);
    StartMachine m;
    m.shell.echecDe = step;
    m.Charge("/data/a.deg");
    EXPECT_EQ(m.journal.back(), step) << "nothing runs behind it";
    EXPECT_TRUE(m.dialogues.boxes.empty()) << "no message";
    EXPECT_TRUE(m.vue.sablier) << "the hourglass stays";
    EXPECT_FALSE(m.shell.termine) << "the process goes on";
    EXPECT_TRUE(m.state.document.Fichier.NomFichier.empty());
  }
}

TEST(ChargeForm1, AnErrorKeepsWhatWasDoneBefore) {
  StartMachine m;
  m.engine.failures = {ErrorNumber::PathFileAccess, ErrorNumber::PathFileAccess};
  m.Charge();
  EXPECT_EQ(m.state.WorkingDbPath, "/tmp/talpena_tmp.mdb");
  EXPECT_EQ(m.state.document.WorkingDb, nullptr);
  EXPECT_FALSE(m.AFait("CreateTable TALPENA"));
}

TEST(ChargeForm1, Error3028DeletesTheSystemDatabaseAndRunsTheStatementAgain) {
  StartMachine m;
  m.settings.values["TALPENA/CONFIG/WORKINGDIR"] = "/elsewhere";
  m.files.Pose("/tmp/TALPENA.MDB", "damaged");
  m.files.Pose("/elsewhere/TALPENA.MDB", "another's");
  m.engine.failures = {ErrorNumber::SystemDatabase};
  m.Charge();
  EXPECT_FALSE(m.files.Existe("/tmp/TALPENA.MDB")) << "TEMP, whatever the working folder";
  EXPECT_TRUE(m.files.Existe("/elsewhere/TALPENA.MDB"));
  EXPECT_EQ(std::count_if(m.journal.begin(), m.journal.end(),
                          [](const std::string& s) { return s.rfind("CreateDatabase", 0) == 0; }),
            2);
  EXPECT_TRUE(m.AFait("MontreFenetre")) << "the load goes on";
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(ChargeForm1, Error3028WithNothingToDeleteEndsTheLoad) {
  StartMachine m;
  m.engine.failures = {ErrorNumber::SystemDatabase, ErrorNumber::SystemDatabase};
  m.Charge();
  EXPECT_FALSE(m.AFait("MontreFenetre"));
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(ChargeForm1, TheCatalogueCanBeGivenUpAndTheProcessEnds) {
  StartMachine m;
  m.vue.abandonDans = 1;
  m.Charge("/data/a.deg");
  EXPECT_TRUE(m.shell.termine);
  EXPECT_FALSE(m.AFait("MontreFenetre"));
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(ChargeForm1, NothingElseOfTheStartCanBeGivenUp) {
  StartMachine m;
  m.Charge();
  EXPECT_EQ(m.vue.annulable, Annulation::Aucune);
  m.vue.abandonDans = 1;
  ASSERT_TRUE(m.engine.attente);
  EXPECT_TRUE(m.engine.attente());
}

TEST(ChargeForm1, EndsTheProcessWithoutADatumCatalogue) {
  StartMachine m;
  m.files.FakeFiles::Supprime("/opt/talpena/DATUM.MDB");
  m.dialogues.paths = {""};  // Cancel
  m.Charge("/data/a.deg");
  EXPECT_TRUE(m.shell.termine);
  EXPECT_FALSE(m.AFait("MontreFenetre"));
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "The file DATUM.MDB cannot be found!");
}

TEST(ChargeForm1, AMissingFileOfTheCommandLineLeavesTheMenusEnabled) {
  StartMachine m;
  m.Charge("/data/missing.deg");
  EXPECT_EQ(m.state.document.Fichier.NomFichier, "");
  EXPECT_EQ(m.state.document.Montre().titreFenetre, "Talpena");
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "File not found");
  EXPECT_EQ(m.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_TRUE(m.vue.menusActifs);
}

TEST(ChargeForm1, ClearsLeftOversAwayWhereFilesWereOpenLast) {
  StartMachine m;
  m.settings.values[FakeSettings::Cle("TALPENA", "Paths", "LastDeg")] = "/data/moles/";
  m.settings.values[FakeSettings::Cle("TALPENA", "Files", "LastFile1")] = "/data/b.deg";
  m.Charge({});
  EXPECT_EQ(m.files.nettoyes, (std::vector<std::string>{"/data/moles/", "/data/b.deg"}));
}

TEST(ChargeForm1, TellsOfTheFilesOfAKilledExportThere) {
  StartMachine m;
  m.settings.values[FakeSettings::Cle("TALPENA", "Paths", "LastDeg")] = "/data/moles/";
  m.files.places = {{"/data/moles/a.dbf", false}, {"/data/moles/a.dbt", false}};
  m.Charge({});
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text,
            "An export into this folder was interrupted; the former files are back in their "
            "places.");
  EXPECT_EQ(m.dialogues.boxes[0].detail, "/data/moles/a.dbf\n/data/moles/a.dbt");
}

TEST(ChargeForm1, TheSplashIsGoneBeforeTheFileIsRead) {
  StartMachine m;
  m.Charge("/data/missing.deg");
  const auto splash = std::find(m.journal.begin(), m.journal.end(), "FermeSplash");
  const auto menus = std::find(m.journal.begin(), m.journal.end(), "ActiveMenus");
  ASSERT_NE(menus, m.journal.end());
  EXPECT_LT(splash, menus);
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "File not found");
}

TEST(LigneDeCommande, IsTakenWhole) {
  const char* const none[] = {"talpena"};
  EXPECT_EQ(LigneDeCommande(none), "");
  const char* const blanks[] = {"talpena", "/data/my", "moles.deg"};
  EXPECT_EQ(LigneDeCommande(blanks), "/data/my moles.deg");
  const char* const options[] = {"talpena", "-style", "--help"};
  EXPECT_EQ(LigneDeCommande(options), "-style --help");
}

TEST(LigneDeCommande, QuotesReachTheReaderAsTheyStand) {
  const char* const quoted[] = {"talpena", "\"/data/my moles.deg\""};
  StartMachine m;
  m.files.Pose("/data/my moles.deg", "there");
  m.Charge(LigneDeCommande(quoted));
  EXPECT_EQ(m.state.document.Fichier.NomFichier, "");
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "File not found");
}

}  // namespace
}  // namespace talpena

#include "store/file_commands.h"

#include <sys/stat.h>

#include "store/deg_reader.h"
#include "store/free_fields.h"
#include "store/recent_files.h"
#include "store/save_fixture.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* changedByAnother =
    "The file has been changed by another program since it was opened or saved. Replace it?";

class FileCommands : public testing::Test, protected Monde {
 protected:
  std::string path = folder / "a.deg";
  std::string bak = folder / "a.BAK";

  /// A file of `rows` rows on disk, without a trace in the state.
  void PoseFichier(const std::string& name, int rows) {
    Monde other;
    for (int i = 0; i < rows; ++i) other.Ajoute({.period = 1, .latitude = i, .longitude = i});
    EcritDeg(other.state, other.io, other.vue, name, WriteMode::Rows);
  }
  void OuvreA(int rows) {
    PoseFichier(path, rows);
    dialogues.paths = {path};
    MnuOuvrir_Click(context);
    ASSERT_EQ(NombreLignes(), rows);
    vue.calls.clear();
    dialogues.fileDialogs.clear();
    sound.bips = 0;
  }
  void Modifie() { Ajoute({.period = 2, .latitude = 1, .longitude = 1}); }
};

// CheckSauvegarde

TEST_F(FileCommands, NothingIsAskedWhileNothingChanged) {
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(FileCommands, TheSaveQuestionHasThreeButtons) {
  Modifie();
  dialogues.answers = {Answer::Cancel};
  EXPECT_TRUE(CheckSauvegarde(context));
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Save file ?");
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNoCancel);
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(FileCommands, NoSavesNothing) {
  OuvreA(1);
  Modifie();
  const std::string before = LitFichier(path);
  dialogues.answers = {Answer::No};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(FileCommands, YesSavesWithoutABackup) {
  OuvreA(1);
  Modifie();
  dialogues.answers = {Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 10U);
  EXPECT_FALSE(fs::exists(bak));
  EXPECT_FALSE(state.FichierModifie);
}

TEST_F(FileCommands, YesWithoutANameSavesAs) {
  Modifie();
  dialogues.answers = {Answer::Yes};
  dialogues.paths = {path};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_TRUE(fs::exists(path));
}

TEST_F(FileCommands, ACancelledSaveAsEndsTheCommandThatAsked) {
  Modifie();
  dialogues.answers = {Answer::Yes};
  dialogues.paths = {""};
  MnuOuvrir_Click(context);
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(NombreLignes(), 1);
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(FileCommands, ARefusedSaveEndsTheCommandThatAsked) {
  OuvreA(1);
  Ajoute({.period = 1});  // no point: asked for
  dialogues.answers = {Answer::Yes, Answer::No};
  MnuOuvrir_Click(context);
  EXPECT_TRUE(dialogues.fileDialogs.empty());
  EXPECT_EQ(NombreLignes(), 2);
}

TEST_F(FileCommands, AnEmptyTableDoesNotHoldTheUserBack) {
  OuvreA(1);
  state.WorkingDb->Execute("DELETE FROM TALPENA");
  Relit();
  state.FichierModifie = true;
  dialogues.answers = {Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
}

// New

class NewCommand : public FileCommands {};

TEST_F(NewCommand, AsksForTheNumberOfLines) {
  dialogues.inputs = {"3"};
  MnuNouveau_Click(context);
  ASSERT_EQ(dialogues.asked.size(), 1U);
  EXPECT_EQ(dialogues.asked[0].prompt, "Number of lines");
  EXPECT_EQ(dialogues.asked[0].text, "10");
  EXPECT_EQ(NombreLignes(), 3);
}

TEST_F(NewCommand, AsksAgainForANegativeNumber) {
  dialogues.inputs = {"-1", "-20", "2"};
  MnuNouveau_Click(context);
  EXPECT_EQ(dialogues.asked.size(), 3U);
  EXPECT_EQ(NombreLignes(), 2);
}

TEST_F(NewCommand, ZeroAndCancelLeaveEverything) {
  OuvreA(2);
  Modifie();
  for (const char* answer : {"0", "", "none"}) {
    SCOPED_TRACE(answer);
    dialogues.inputs = {answer};
    MnuNouveau_Click(context);
    EXPECT_TRUE(dialogues.boxes.empty());
    EXPECT_EQ(NombreLignes(), 3);
    EXPECT_EQ(state.NomFichier, path);
    EXPECT_TRUE(state.FichierModifie);
  }
}

TEST_F(NewCommand, ANumberTooLargeIsShown) {
  dialogues.inputs = {"1E20"};
  MnuNouveau_Click(context);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text.rfind("Error 6\n", 0), 0U);
}

TEST_F(NewCommand, CancelInTheSaveQuestionLeavesEverything) {
  OuvreA(2);
  Modifie();
  dialogues.inputs = {"5"};
  dialogues.answers = {Answer::Cancel};
  MnuNouveau_Click(context);
  EXPECT_EQ(NombreLignes(), 3);
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(NewCommand, TakesTheNumberThatItIsGiven) {
  CreationNouveau(context, 4);
  EXPECT_TRUE(dialogues.asked.empty());
  EXPECT_EQ(NombreLignes(), 4);
}

TEST_F(NewCommand, StartsAFileWithoutAName) {
  OuvreA(2);
  Modifie();
  dialogues.answers = {Answer::No};
  dialogues.inputs = {"2"};
  vue.boxTitre = "old";
  vue.commentaire = "kept";
  MnuNouveau_Click(context);
  EXPECT_EQ(state.NomFichier, "");
  EXPECT_FALSE(state.FichierModifie);
  EXPECT_FALSE(state.EmpreinteFichier.has_value());
  EXPECT_EQ(vue.boxTitre, "");
  EXPECT_EQ(vue.commentaire, "kept");
  EXPECT_EQ(state.Data1.RecordSource, "TALPENA");
  EXPECT_EQ(state.Data1.recordset().AbsolutePosition(), 1);
  EXPECT_TRUE(state.Data1.recordset().Get(Column::LATITUDE).EstNull());
  EXPECT_EQ(vue.calls, (std::vector<std::string>{"AjusteGrille", "ChangeBoxTitre", "MontreTitres",
                                                 "MontreOptionsPeriodes", "ActiveMenus"}));
}

TEST_F(NewCommand, NouveauEnCoursHoldsWhileThePeriodsAreAsked) {
  class Watcher : public FakeView {
   public:
    explicit Watcher(StoreState& s) : state(s) {}
    StoreState& state;
    bool seen = false;
    void MontreOptionsPeriodes() override { seen = state.NouveauEnCours; }
  } watcher(state);
  CreationNouveau({state, io, watcher}, 1);
  EXPECT_TRUE(watcher.seen);
  EXPECT_FALSE(state.NouveauEnCours);
}

TEST_F(NewCommand, WithoutStandardHdrTheDefinitionsFormOneLine) {
  CreationNouveau(context, 1);
  EXPECT_EQ(state.FreeFieldCount, 11);
  EXPECT_EQ(state.FreeFieldDefs.at(1).Label, "Localité");
  EXPECT_EQ(state.FreeFieldSeparator, "/");
  EXPECT_EQ(state.FreeFieldText.rfind("/\r\nSTAT.TOPO,Toponyme,Nom du lieu-dit,50STAT.LOCA,", 0),
            0U);
  EXPECT_EQ(state.FreeFieldText.find("\r\n", 3), std::string::npos);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(NewCommand, SuchAFileReadsBackWithASingleFreeField) {
  CreationNouveau(context, 1);
  Ajoute({.period = 1, .latitude = 1, .longitude = 1});
  EcritDeg(state, io, vue, path, WriteMode::Rows);
  LitDeg(state, io, vue, path, MergeMode::Replace);
  EXPECT_EQ(state.FreeFieldCount, 1);
  EXPECT_EQ(state.FreeFieldDefs.at(0).Code, "STAT.TOPO");
}

class WithStandardHdr : public FileCommands {
 protected:
  WithStandardHdr() {
    state.AppDir = folder / "program";
    fs::create_directory(state.AppDir);
    EcritFichier(folder / "program/standard.hdr", "|\r\nA,Alpha,1\r\nB,Beta,22,more\r\n");
  }
};

TEST_F(WithStandardHdr, YesTakesItsFields) {
  dialogues.answers = {Answer::Yes};
  CreationNouveau(context, 1);
  EXPECT_EQ(Boites(), std::vector<std::string>{"Use standard configuration of free fields?"});
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(state.FreeFieldSeparator, "|");
  EXPECT_EQ(state.FreeFieldText, "|\r\nA,Alpha,1\r\nB,Beta,22,more");
  EXPECT_EQ(state.FreeFieldCount, 2);
  EXPECT_EQ(state.FreeFieldDefs.at(1).Width, 22);
}

TEST_F(WithStandardHdr, NoGivesAFileWithoutFreeFields) {
  state.FreeFieldCount = 3;
  state.FreeFieldDefs.resize(3);
  state.FreeFieldText = "old";
  dialogues.answers = {Answer::No};
  CreationNouveau(context, 1);
  EXPECT_EQ(state.FreeFieldCount, 0);
  EXPECT_TRUE(state.FreeFieldDefs.empty());
  EXPECT_EQ(state.FreeFieldText, "");
  EXPECT_EQ(NombreLignes(), 1);
}

// Open

TEST_F(FileCommands, OpenReadsTheChosenFile) {
  PoseFichier(path, 3);
  dialogues.paths = {path};
  state.AppDir = "/somewhere";
  MnuOuvrir_Click(context);
  ASSERT_EQ(dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(dialogues.fileDialogs[0].filter, "Distribution (*.deg)|*.deg");
  EXPECT_EQ(dialogues.fileDialogs[0].folder, "/somewhere");
  EXPECT_EQ(NombreLignes(), 3);
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_EQ(settings.values["TALPENA/PATHS/LASTDEG"], folder.path().string() + "/");
  EXPECT_EQ(state.EmpreinteFichier, files->Empreinte(path));
  EXPECT_TRUE(vue.menusActifs);
  EXPECT_EQ(vue.calls.back(), "CacheLbl1");
}

TEST_F(FileCommands, OpenStartsInTheFolderOfTheLastFile) {
  settings.Ecrit("TALPENA", "Paths", "LastDeg", "/last/");
  dialogues.paths = {""};
  MnuOuvrir_Click(context);
  EXPECT_EQ(dialogues.fileDialogs.at(0).folder, "/last/");
}

TEST_F(FileCommands, CancelInOpenLeavesNameAndTable) {
  OuvreA(2);
  dialogues.paths = {""};
  MnuOuvrir_Click(context);
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_EQ(NombreLignes(), 2);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(FileCommands, CancelInTheSaveQuestionOfOpenStops) {
  Modifie();
  dialogues.answers = {Answer::Cancel};
  MnuOuvrir_Click(context);
  EXPECT_TRUE(dialogues.fileDialogs.empty());
}

// Save

TEST_F(FileCommands, SaveKeepsTheFormerStateAsBak) {
  OuvreA(2);
  const std::string before = LitFichier(path);
  EcritFichier(bak, "older");
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(bak), before);
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 11U);
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.BAK", "a.deg"}));
  EXPECT_FALSE(state.FichierModifie);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(FileCommands, SaveKeepsModeAndLink) {
  fs::create_directory(folder.path() / "real");
  OuvreA(2);
  fs::rename(path, folder / "real/r.deg");
  fs::create_symlink("real/r.deg", path);
  ASSERT_EQ(chmod((folder / "real/r.deg").c_str(), 0604), 0);
  state.EmpreinteFichier = files->Empreinte(path);
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_FALSE(fs::is_symlink(bak));
  EXPECT_EQ(Lignes(LitFichier(folder / "real/r.deg")).size(), 11U);
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0604U);
}

TEST_F(FileCommands, SaveWithoutANameSavesAs) {
  Modifie();
  dialogues.paths = {path};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_EQ(vue.calls.back(), "PlaceFocusGrille");
}

TEST_F(FileCommands, SaveWithoutANameAndCancelStillFocusesTheGrid) {
  Modifie();
  dialogues.paths = {""};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(state.NomFichier, "");
  EXPECT_EQ(vue.calls, std::vector<std::string>{"PlaceFocusGrille"});
}

TEST_F(FileCommands, SaveOfAnEmptyTableLeavesOnlyTheBak) {
  OuvreA(2);
  const std::string before = LitFichier(path);
  state.WorkingDb->Execute("DELETE FROM TALPENA");
  Relit();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.BAK"});
  EXPECT_EQ(LitFichier(bak), before);
  // The next save finds no file to move, and keeps the backup.
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(LitFichier(bak), before);
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 9U);
}

TEST_F(FileCommands, TheBackupsNameEndsAtTheFirstDot) {
  EXPECT_EQ(CheminBak("/a/b.deg"), "/a/b.BAK");
  EXPECT_EQ(CheminBak("/a/b.c.deg"), "/a/b.BAK");
  EXPECT_EQ(CheminBak("/a.b/c.deg"), "/a.BAK");
  EXPECT_EQ(CheminBak("/a/b"), "BAK");
  EXPECT_EQ(CheminBak(""), "BAK");
  path = folder / "a.b.deg";
  PoseFichier(path, 1);
  state.NomFichier = path;
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.BAK", "a.b.deg"}));
}

TEST_F(FileCommands, ADotInAFolderNameFailsBeforeAnythingIsMoved) {
  fs::create_directory(folder.path() / "my.files");
  path = folder / "my.files/a.deg";
  PoseFichier(path, 1);
  const std::string before = LitFichier(path);
  EcritFichier(folder / "my.BAK", "older");
  state.NomFichier = path;
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(),
            std::vector<std::string>{"Error 75\nPath/File access error: " + folder / "my.BAK" +
                                     "\nSave as works for this path."});
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_EQ(LitFichier(folder / "my.BAK"), "older");
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(FileCommands, AFileThatIsItsOwnBackupIsNotDeleted) {
  PoseFichier(bak, 1);
  const std::string before = LitFichier(bak);
  state.NomFichier = bak;
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{"Error 58\nFile already exists: " + bak +
                                               "\nSave as works for this path."});
  EXPECT_EQ(LitFichier(bak), before);
}

TEST_F(FileCommands, AMissingFileDoesNotCostTheBackup) {
  OuvreA(1);
  EcritFichier(bak, "the only copy");
  fs::remove(path);
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{"Error 53\nFile not found: " + path +
                                               "\nSave as works for this path."});
  EXPECT_EQ(LitFichier(bak), "the only copy");
}

TEST_F(FileCommands, AFolderInTheBackupsPlaceStopsTheSave) {
  OuvreA(1);
  const std::string before = LitFichier(path);
  fs::create_directory(bak);
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{"Error 58\nFile already exists: " + bak});
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_TRUE(state.FichierModifie);
}

// A file that another program changed

class ChangedFile : public FileCommands {
 protected:
  ChangedFile() {
    OuvreA(1);
    EcritFichier(path, "somebody else's work");
    Modifie();
  }
};

TEST_F(ChangedFile, IsNotSavedOverWithoutAYes) {
  dialogues.answers = {Answer::No};
  MnuEnregistrer_Click(context);
  ASSERT_EQ(Boites(), std::vector<std::string>{changedByAnother});
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_FALSE(fs::exists(bak));
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(ChangedFile, GoesToTheBackupOnYes) {
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(bak), "somebody else's work");
  EXPECT_FALSE(state.FichierModifie);
  Modifie();
  MnuEnregistrer_Click(context);  // ours again: nothing is asked
  EXPECT_EQ(dialogues.boxes.size(), 1U);
}

TEST_F(ChangedFile, IsAskedForByTheAutomaticSave) {
  state.AutoSave = true;
  state.SaveInterval = 1;
  dialogues.answers = {Answer::No};
  Timer1_Timer(context);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(ChangedFile, IsAskedForBeforeAnotherFileIsOpened) {
  dialogues.answers = {Answer::Yes, Answer::No};
  MnuOuvrir_Click(context);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_TRUE(dialogues.fileDialogs.empty());
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(ChangedFile, IsAskedForBySaveAsOnTheSameName) {
  dialogues.paths = {path};
  dialogues.answers = {Answer::No};
  MnuEnrSous_Click(context);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_TRUE(state.FichierModifie);
}

// A file of which only a part could be read

class PartlyReadFile : public FileCommands {
 protected:
  PartlyReadFile() {
    PoseFichier(path, 2);
    // Too short for the coordinates, and these may not be empty: the load ends there.
    EcritFichier(path, LitFichier(path) + std::string(45, '1') + "\r\n");
    dialogues.paths = {path};
    MnuOuvrir_Click(context);
    dialogues.boxes.clear();
    before = LitFichier(path);
  }
  std::string before;
  const std::string onlyPart =
      "Only part of this file could be read. Replace it by the rows shown?";
};

TEST_F(PartlyReadFile, IsNotSavedOverWithoutAYes) {
  EXPECT_EQ(NombreLignes(), 2);
  Modifie();
  dialogues.answers = {Answer::No};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{onlyPart});
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_FALSE(fs::exists(bak));
}

TEST_F(PartlyReadFile, GoesToTheBackupOnYes) {
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(bak), before);
  MnuEnregistrer_Click(context);  // whole again: nothing is asked
  EXPECT_EQ(dialogues.boxes.size(), 1U);
}

TEST_F(PartlyReadFile, IsForgottenByNew) {
  dialogues.inputs = {"1"};
  MnuNouveau_Click(context);
  EXPECT_FALSE(state.LecturePartielle);
}

// Save as

TEST_F(FileCommands, SaveAsTakesTheNewName) {
  OuvreA(2);
  Modifie();
  const std::string other = folder / "b.deg";
  dialogues.paths = {other};
  MnuEnrSous_Click(context);
  ASSERT_EQ(dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(dialogues.fileDialogs[0].filter, "Distribution files (*.deg)|*.deg");
  EXPECT_EQ(dialogues.fileDialogs[0].name, path);
  EXPECT_TRUE(dialogues.fileDialogs[0].confirmReplace);
  EXPECT_EQ(state.NomFichier, other);
  EXPECT_EQ(vue.titre, "Talpena - " + other);
  EXPECT_EQ(state.EmpreinteFichier, files->Empreinte(other));
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"a.deg", "b.deg"}));
}

TEST_F(FileCommands, SaveAsWritesOverAFileWithoutABackup) {
  EcritFichier(path, "old");
  Modifie();
  dialogues.paths = {path};
  MnuEnrSous_Click(context);
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 9U);
}

TEST_F(FileCommands, CancelInSaveAsLeavesEverything) {
  Modifie();
  dialogues.paths = {""};
  MnuEnrSous_Click(context);
  EXPECT_EQ(state.NomFichier, "");
  EXPECT_TRUE(state.FichierModifie);
  EXPECT_TRUE(dialogues.boxes.empty());
}

// Merge

TEST_F(FileCommands, MergeAddsRowsAndKeepsTheName) {
  OuvreA(2);
  PoseFichier(folder / "b.deg", 3);
  // A merge of files without free fields runs into the end of its header: these have one.
  dialogues.paths = {folder / "b.deg"};
  MnuFusionner_Click(context);
  EXPECT_EQ(dialogues.fileDialogs.at(0).filter, "Distribution (*.deg)|*.deg");
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_TRUE(vue.menusActifs);
}

TEST_F(FileCommands, MergeAsksNothingBefore) {
  OuvreA(1);
  Modifie();
  dialogues.paths = {""};
  MnuFusionner_Click(context);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(NombreLignes(), 2);
}

// Group and save

TEST_F(FileCommands, GroupWritesANewFileAndKeepsTheName) {
  OuvreA(1);
  Ajoute({.period = 1, .latitude = 0, .longitude = 0, .n1 = 5});
  const std::string other = folder / "g.deg";
  dialogues.paths = {other};
  MnuGrouper_Click(context);
  EXPECT_EQ(dialogues.fileDialogs.at(0).filter, "Fichiers distribution (*.deg)|*.deg");
  EXPECT_EQ(dialogues.fileDialogs.at(0).name, "");
  EXPECT_EQ(Lignes(LitFichier(other)).size(), 9U);
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_FALSE(state.FichierModifie);
}

TEST_F(FileCommands, GroupAsksBeforeItReplaces) {
  EcritFichier(path, "old");
  Modifie();
  dialogues.paths = {path, path};
  dialogues.answers = {Answer::No, Answer::Yes};
  MnuGrouper_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{"File already exists! Replace?"});
  EXPECT_EQ(LitFichier(path), "old");
  EXPECT_EQ(sound.bips, 1);
  MnuGrouper_Click(context);
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 9U);
}

// Recent files

TEST_F(FileCommands, RecentFileOpensTheEntry) {
  PoseFichier(path, 2);
  state.LastFiles = {"", path, "", ""};
  MnuLastFile_Click(context, 1);
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_EQ(vue.titre, "Talpena - " + path);
  EXPECT_EQ(NombreLignes(), 2);
  EXPECT_TRUE(vue.menusActifs);
  EXPECT_EQ(state.LastFiles[0], path);
}

TEST_F(FileCommands, RecentFileIsFoundInAnyLetterCase) {
  PoseFichier(path, 2);
  state.LastFiles[0] = folder / "A.DEG";
  MnuLastFile_Click(context, 0);
  EXPECT_EQ(state.NomFichier, path);
  EXPECT_EQ(NombreLignes(), 2);
}

TEST_F(FileCommands, AnEmptyRecentFileDoesNothing) {
  MnuLastFile_Click(context, 0);
  EXPECT_TRUE(vue.calls.empty());
}

TEST_F(FileCommands, RecentFileAsksToSaveFirst) {
  Modifie();
  state.LastFiles[0] = path;
  dialogues.answers = {Answer::Cancel};
  MnuLastFile_Click(context, 0);
  EXPECT_EQ(state.NomFichier, "");
}

TEST_F(FileCommands, TheCaptionHoldsThePathFromItsFourthCharacter) {
  EXPECT_EQ(LegendeDernierFichier(0, "/a/b.deg"), "&1 /a/b.deg");
  EXPECT_EQ(LegendeDernierFichier(3, ""), "&4 ");
  EXPECT_EQ(CheminDeLegende("&1 /a/b.deg"), "/a/b.deg");
  EXPECT_EQ(CheminDeLegende("&1   /a/b c.deg "), "/a/b c.deg");
  EXPECT_EQ(CheminDeLegende("&1 "), "");
  EXPECT_EQ(CheminDeLegende(""), "");
}

TEST_F(FileCommands, ANewRecentFilePushesTheOldestOut) {
  state.LastFiles = {"a", "b", "c", "d"};
  MajLastFiles(context, "e");
  EXPECT_EQ(state.LastFiles, (std::array<std::string, 4>{"e", "a", "b", "c"}));
  EXPECT_EQ(vue.derniers, state.LastFiles);
}

TEST_F(FileCommands, AKnownRecentFileMovesUpWhateverItsCase) {
  state.LastFiles = {"a", "b", "Été.deg", "d"};
  MajLastFiles(context, "ÉTÉ.DEG");
  EXPECT_EQ(state.LastFiles, (std::array<std::string, 4>{"Été.deg", "a", "b", "d"}));
}

TEST_F(FileCommands, TheFirstRecentFileStaysFirst) {
  state.LastFiles = {"a", "b", "", ""};
  MajLastFiles(context, "A");
  EXPECT_EQ(state.LastFiles, (std::array<std::string, 4>{"a", "b", "", ""}));
}

// Autosave

class Autosave : public FileCommands {
 protected:
  Autosave() {
    OuvreA(1);
    state.AutoSave = true;
    state.SaveInterval = 3;
  }
};

TEST_F(Autosave, SavesAtTheIntervalWithoutABackup) {
  Modifie();
  Timer1_Timer(context);
  Timer1_Timer(context);
  EXPECT_TRUE(state.FichierModifie);
  Timer1_Timer(context);
  EXPECT_FALSE(state.FichierModifie);
  EXPECT_EQ(state.CompteurTimer, 0);
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
}

TEST_F(Autosave, LeavesAnUnchangedFileAlone) {
  for (int i = 0; i < 3; ++i) Timer1_Timer(context);
  EXPECT_TRUE(vue.calls.empty());
  EXPECT_EQ(state.CompteurTimer, 0);
}

TEST_F(Autosave, StandsStillWhileItIsOff) {
  state.CompteurTimer = 2;
  state.AutoSave = false;
  Modifie();
  Timer1_Timer(context);
  EXPECT_EQ(state.CompteurTimer, 2);
  EXPECT_TRUE(state.FichierModifie);
}

TEST_F(Autosave, AnIntervalBelowTheCounterIsPassedUntilItWraps) {
  Modifie();
  state.CompteurTimer = 4;
  Timer1_Timer(context);
  EXPECT_EQ(state.CompteurTimer, 5);
  EXPECT_TRUE(state.FichierModifie);
  state.CompteurTimer = 32767;
  Timer1_Timer(context);
  EXPECT_EQ(state.CompteurTimer, -32768);
  state.CompteurTimer = 2;
  Timer1_Timer(context);
  EXPECT_FALSE(state.FichierModifie);
}

TEST_F(Autosave, WithoutANameOpensTheDialog) {
  Modifie();
  state.NomFichier.clear();
  state.CompteurTimer = 2;
  dialogues.paths = {""};
  Timer1_Timer(context);
  EXPECT_EQ(dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(state.CompteurTimer, 0);
  EXPECT_TRUE(dialogues.boxes.empty());
}

}  // namespace
}  // namespace talpena::test

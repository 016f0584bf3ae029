// Save, Save as, Group and save.
#include <sys/stat.h>

#include "store/file_commands_fixture.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

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
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(FileCommands, SaveKeepsModeAndLink) {
  fs::create_directory(folder.path() / "real");
  OuvreA(2);
  fs::rename(path, folder / "real/r.deg");
  fs::create_symlink("real/r.deg", path);
  ASSERT_EQ(chmod((folder / "real/r.deg").c_str(), 0604), 0);
  state.document.Fichier.EmpreinteFichier = files->Empreinte(path);
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
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(vue.calls.back(), "PlaceFocusGrille");
}

TEST_F(FileCommands, SaveWithoutANameAndCancelStillFocusesTheGrid) {
  Modifie();
  dialogues.paths = {""};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(state.document.Fichier.NomFichier, "");
  EXPECT_EQ(vue.calls, std::vector<std::string>{"PlaceFocusGrille"});
}

TEST_F(FileCommands, SaveOfAnEmptyTableLeavesOnlyTheBak) {
  OuvreA(2);
  const std::string before = LitFichier(path);
  state.document.WorkingDb->Execute("DELETE FROM TALPENA");
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
  state.document.Fichier.NomFichier = path;
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
  state.document.Fichier.NomFichier = path;
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(),
            std::vector<std::string>{"Error 75\nThis file or folder cannot be used here or under "
                                     "this name; choose another one.\n" +
                                     folder / "my.BAK" + "\nSave as works for this path."});
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_EQ(LitFichier(folder / "my.BAK"), "older");
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(FileCommands, AFileThatIsItsOwnBackupIsNotDeleted) {
  PoseFichier(bak, 1);
  const std::string before = LitFichier(bak);
  state.document.Fichier.NomFichier = bak;
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{
                          "Error 58\nThere is a file of this name already; choose another name.\n" +
                          bak + "\nSave as works for this path."});
  EXPECT_EQ(LitFichier(bak), before);
}

TEST_F(FileCommands, AMissingFileDoesNotCostTheBackup) {
  OuvreA(1);
  EcritFichier(bak, "the only copy");
  fs::remove(path);
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(),
            std::vector<std::string>{
                "Error 53\nThis file cannot be found; look whether it was moved or renamed.\n" +
                path + "\nSave as works for this path."});
  EXPECT_EQ(LitFichier(bak), "the only copy");
}

TEST_F(FileCommands, AFolderInTheBackupsPlaceStopsTheSave) {
  OuvreA(1);
  const std::string before = LitFichier(path);
  fs::create_directory(bak);
  Modifie();
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(),
            std::vector<std::string>{
                "Error 58\nThere is a file of this name already; choose another name.\n" + bak});
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_TRUE(state.document.FichierModifie());
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
  EXPECT_EQ(state.document.Fichier.NomFichier, other);
  EXPECT_EQ(vue.titre, "Talpena - " + other);
  EXPECT_EQ(state.document.Fichier.EmpreinteFichier, files->Empreinte(other));
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
  EXPECT_EQ(state.document.Fichier.NomFichier, "");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_TRUE(dialogues.boxes.empty());
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
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_FALSE(state.document.FichierModifie());
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

}  // namespace
}  // namespace talpena::test

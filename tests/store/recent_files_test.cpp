#include "store/recent_files.h"

#include "store/file_commands_fixture.h"

namespace talpena::test {
namespace {

TEST_F(FileCommands, RecentFileOpensTheEntry) {
  PoseFichier(path, 2);
  state.LastFiles = {"", path, "", ""};
  MnuLastFile_Click(context, 1);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(vue.titre, "Talpena - " + path);
  EXPECT_EQ(NombreLignes(), 2);
  EXPECT_TRUE(vue.menusActifs);
  EXPECT_EQ(state.LastFiles[0], path);
}

TEST_F(FileCommands, RecentFileIsFoundInAnyLetterCase) {
  PoseFichier(path, 2);
  state.LastFiles[0] = folder / "A.DEG";
  MnuLastFile_Click(context, 0);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(NombreLignes(), 2);
}

TEST_F(FileCommands, AnEmptyRecentFileDoesNothing) {
  MnuLastFile_Click(context, 0);
  EXPECT_TRUE(vue.calls.empty());
}

TEST_F(FileCommands, ARecentFileThatIsGoneLeavesTheOpenOneWithItsName) {
  OuvreA(2);
  Modifie();
  const std::string title = vue.titre;
  state.LastFiles = {path, folder / "gone.deg", "/c", ""};
  dialogues.answers = {Answer::No, Answer::No};
  MnuLastFile_Click(context, 1);
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_EQ(vue.titre, title);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(NombreLignes(), 3);
  EXPECT_EQ(Boites().back(),
            "File not found\n\nRemove it from the list of recent files?\n" + folder / "gone.deg");
  EXPECT_EQ(dialogues.boxes.back().icon, Icon::Stop);
  EXPECT_EQ(state.LastFiles[1], folder / "gone.deg");
  // The save question of the next command writes them where they came from.
  dialogues.answers = {Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 11U);
  EXPECT_FALSE(std::filesystem::exists(folder / "gone.deg"));
}

TEST_F(FileCommands, ARecentFileThatIsGoneCanBeTakenFromTheList) {
  state.LastFiles = {"/a", folder / "gone.deg", "/c", "/d"};
  dialogues.answers = {Answer::Yes};
  MnuLastFile_Click(context, 1);
  EXPECT_EQ(state.LastFiles, (std::array<std::string, 4>{"/a", "/c", "/d", ""}));
  EXPECT_EQ(state.document.Fichier.NomFichier, "");
}

TEST_F(FileCommands, RecentFileAsksToSaveFirst) {
  Modifie();
  state.LastFiles[0] = path;
  dialogues.answers = {Answer::Cancel};
  MnuLastFile_Click(context, 0);
  EXPECT_EQ(state.document.Fichier.NomFichier, "");
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
  MajLastFiles(state, "e");
  EXPECT_EQ(state.LastFiles, (std::array<std::string, 4>{"e", "a", "b", "c"}));
}

TEST_F(FileCommands, AKnownRecentFileMovesUpWhateverItsCase) {
  state.LastFiles = {"a", "b", "Été.deg", "d"};
  MajLastFiles(state, "ÉTÉ.DEG");
  EXPECT_EQ(state.LastFiles, (std::array<std::string, 4>{"Été.deg", "a", "b", "d"}));
}

TEST_F(FileCommands, TheFirstRecentFileStaysFirst) {
  state.LastFiles = {"a", "b", "", ""};
  MajLastFiles(state, "A");
  EXPECT_EQ(state.LastFiles, (std::array<std::string, 4>{"a", "b", "", ""}));
}

}  // namespace
}  // namespace talpena::test

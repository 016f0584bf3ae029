// Files that a save replaces only when the user says so.
#include "store/file_commands_fixture.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* changedByAnother =
    "The file has been changed by another program since it was opened or saved. Replace it?";

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
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(ChangedFile, GoesToTheBackupOnYes) {
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(bak), "somebody else's work");
  EXPECT_FALSE(state.document.FichierModifie());
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
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(ChangedFile, IsAskedForBeforeAnotherFileIsOpened) {
  dialogues.answers = {Answer::Yes, Answer::No};
  MnuOuvrir_Click(context);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_TRUE(dialogues.fileDialogs.empty());
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(ChangedFile, IsAskedForBySaveAsOnTheSameName) {
  dialogues.paths = {path};
  dialogues.answers = {Answer::No};
  MnuEnrSous_Click(context);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_TRUE(state.document.FichierModifie());
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
  EXPECT_FALSE(state.document.Fichier.LecturePartielle);
}

}  // namespace
}  // namespace talpena::test

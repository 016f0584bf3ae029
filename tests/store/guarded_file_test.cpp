// Files that a save replaces only when the user says so.
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "store/file_commands_fixture.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

const std::string keptBeside =
    "\n\nA copy of the file as it is now will stay beside it: a 2011-07-04 08-30-00.deg";
const std::string changedByAnother =
    "The file has been changed by another program since it was opened or saved. Replace it?" +
    keptBeside;

// A file that another program changed

class ChangedFile : public FileCommands {
 protected:
  ChangedFile() {
    OuvreA(1);
    EcritFichier(path, "somebody else's work");
    Modifie();
  }
  std::string copy = folder / "a 2011-07-04 08-30-00.deg";
};

TEST_F(ChangedFile, IsNotSavedOverWithoutAYes) {
  dialogues.answers = {Answer::No};
  MnuEnregistrer_Click(context);
  ASSERT_EQ(Boites(), std::vector<std::string>{changedByAnother});
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(dialogues.boxes[0].defaultButton, Answer::No);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(ChangedFile, GoesToTheBackupOnYes) {
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(bak), "somebody else's work");
  EXPECT_EQ(LitFichier(copy), "somebody else's work");
  EXPECT_FALSE(state.document.FichierModifie());
  Modifie();
  MnuEnregistrer_Click(context);  // ours again: nothing is asked
  EXPECT_EQ(dialogues.boxes.size(), 1U);
}

TEST_F(ChangedFile, StaysBesideUnderANameOfItsOwnWhereNoBackupIsMade) {
  dialogues.answers = {Answer::Yes, Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(LitFichier(copy), "somebody else's work");
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 10U);
  EXPECT_FALSE(fs::exists(bak));
}

TEST_F(ChangedFile, NeverTakesThePlaceOfAnEarlierCopy) {
  EcritFichier(copy, "an earlier copy");
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LitFichier(copy), "an earlier copy");
  EXPECT_EQ(LitFichier(folder / "a 2011-07-04 08-30-00 (2).deg"), "somebody else's work");
}

TEST_F(ChangedFile, IsNotReplacedWhereNoCopyCanBeMade) {
  fs::create_directory(copy);
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites().back(),
            "Error 58\nThere is a file of this name already; choose another name.\n" + copy);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(ChangedFile, MakesTheAutomaticSaveWaitAndSaySo) {
  state.AutoSave = true;
  state.SaveInterval = 1;
  Timer1_Timer(context);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(LitFichier(path), "somebody else's work");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(state.document.Montre().avis,
            "The automatic save waits: Save has a question about the file.");
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(state.document.Montre().avis, "");
  Modifie();
  Timer1_Timer(context);  // nothing is in its way any more
  EXPECT_FALSE(state.document.FichierModifie());
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

TEST_F(ChangedFile, IsAskedForBySaveAsOnTheSameFileByAnotherPath) {
  dialogues.paths = {folder / "./a.deg"};
  dialogues.answers = {Answer::No};
  MnuEnrSous_Click(context);
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_EQ(LitFichier(path), "somebody else's work");
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
      "Only part of this file could be read. Replace it by the rows shown?" + keptBeside;
};

TEST_F(PartlyReadFile, IsNotSavedOverWithoutAYes) {
  EXPECT_EQ(NombreLignes(), 2);
  Modifie();
  dialogues.answers = {Answer::No};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{onlyPart});
  EXPECT_EQ(dialogues.boxes[0].defaultButton, Answer::No);
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

TEST_F(PartlyReadFile, StaysBesideUnderANameOfItsOwn) {
  Modifie();
  dialogues.answers = {Answer::Yes, Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(LitFichier(folder / "a 2011-07-04 08-30-00.deg"), before);
}

TEST_F(PartlyReadFile, MakesTheAutomaticSaveWait) {
  Modifie();
  state.AutoSave = true;
  state.SaveInterval = 1;
  Timer1_Timer(context);
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_NE(state.document.Montre().avis, "");
}

TEST_F(PartlyReadFile, IsForgottenByNew) {
  dialogues.inputs = {"1"};
  MnuNouveau_Click(context);
  EXPECT_FALSE(state.document.Fichier.LecturePartielle);
}

// A file that the user may not write into

class ProtectedFile : public FileCommands {
 protected:
  void SetUp() override {
    nobody_ = geteuid() == 0 ? getpwnam("nobody") : nullptr;
    if (nobody_ == nullptr) GTEST_SKIP() << "needs root, to become the user nobody";
    OuvreA(1);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    state.document.Fichier.EmpreinteFichier = files->Empreinte(path);
    before = LitFichier(path);
    Modifie();
  }
  /// Runs a command as somebody whom the protection holds.
  template <typename Command>
  void CommeNobody(Command&& command) {
    ASSERT_EQ(seteuid(nobody_->pw_uid), 0);
    command();
    ASSERT_EQ(seteuid(0), 0);
  }

  const passwd* nobody_ = nullptr;
  std::string before;
  const std::string question = "The file is write-protected. Replace it all the same?";
};

TEST_F(ProtectedFile, IsNotSavedOverWithoutAYes) {
  dialogues.answers = {Answer::No};
  CommeNobody([&] { MnuEnregistrer_Click(context); });
  EXPECT_EQ(Boites(), std::vector<std::string>{question});
  EXPECT_EQ(dialogues.boxes[0].defaultButton, Answer::No);
  EXPECT_EQ(dialogues.boxes[0].detail, path);
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
}

TEST_F(ProtectedFile, IsSavedOnYes) {
  dialogues.answers = {Answer::Yes};
  CommeNobody([&] { MnuEnregistrer_Click(context); });
  EXPECT_EQ(Boites(), std::vector<std::string>{question});
  EXPECT_EQ(LitFichier(bak), before);
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 10U);
}

TEST_F(ProtectedFile, MakesTheAutomaticSaveWait) {
  state.AutoSave = true;
  state.SaveInterval = 1;
  CommeNobody([&] { Timer1_Timer(context); });
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_NE(state.document.Montre().avis, "");
}

}  // namespace
}  // namespace talpena::test

// The question before a command that drops the rows.
#include "store/file_commands_fixture.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

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
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(FileCommands, NoSavesNothing) {
  OuvreA(1);
  Modifie();
  const std::string before = LitFichier(path);
  dialogues.answers = {Answer::No};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(LitFichier(path), before);
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(FileCommands, YesSavesWithoutABackup) {
  OuvreA(1);
  Modifie();
  dialogues.answers = {Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(Lignes(LitFichier(path)).size(), 10U);
  EXPECT_FALSE(fs::exists(bak));
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(FileCommands, YesWithoutANameSavesAs) {
  Modifie();
  dialogues.answers = {Answer::Yes};
  dialogues.paths = {path};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_TRUE(fs::exists(path));
}

TEST_F(FileCommands, ACancelledSaveAsEndsTheCommandThatAsked) {
  Modifie();
  dialogues.answers = {Answer::Yes};
  dialogues.paths = {""};
  MnuOuvrir_Click(context);
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(NombreLignes(), 1);
  EXPECT_TRUE(state.document.FichierModifie());
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
  state.document.WorkingDb->Execute("DELETE FROM TALPENA");
  Relit();
  MarqueModifie(state.document);
  dialogues.answers = {Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
}

}  // namespace
}  // namespace talpena::test

// The automatic save of the timer.
#include "store/file_commands_fixture.h"

namespace talpena::test {
namespace {

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
  EXPECT_TRUE(state.document.FichierModifie());
  Timer1_Timer(context);
  EXPECT_FALSE(state.document.FichierModifie());
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
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(Autosave, AnIntervalBelowTheCounterIsPassedUntilItWraps) {
  Modifie();
  state.CompteurTimer = 4;
  Timer1_Timer(context);
  EXPECT_EQ(state.CompteurTimer, 5);
  EXPECT_TRUE(state.document.FichierModifie());
  state.CompteurTimer = 32767;
  Timer1_Timer(context);
  EXPECT_EQ(state.CompteurTimer, -32768);
  state.CompteurTimer = 2;
  Timer1_Timer(context);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(Autosave, WithoutANameOpensTheDialog) {
  Modifie();
  state.document.Fichier.NomFichier.clear();
  state.CompteurTimer = 2;
  dialogues.paths = {""};
  Timer1_Timer(context);
  EXPECT_EQ(dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(state.CompteurTimer, 0);
  EXPECT_TRUE(dialogues.boxes.empty());
}

}  // namespace
}  // namespace talpena::test

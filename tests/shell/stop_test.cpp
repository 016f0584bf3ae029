// Quit, the close box, and the switch of language.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "shell/start_machine.h"

namespace talpena {
namespace {

using test::Journal;
using test::StartMachine;

TEST(MnuQuitter, SavesTheSettingsOfTheWindowAndEnds) {
  StartMachine m;
  MnuQuitter_Click(m.contexte);
  EXPECT_EQ(m.journal,
            (Journal{"Sablier", "ReleveReglages", "SauveReglages", "Pointeur", "Termine"}));
  EXPECT_TRUE(m.dialogues.boxes.empty()) << "nothing to save, nothing to ask";
}

TEST(MnuQuitter, CancelStaysInTheProgram) {
  StartMachine m;
  test::MarqueModifie(m.state.document);
  m.dialogues.answers = {Answer::Cancel};
  MnuQuitter_Click(m.contexte);
  EXPECT_FALSE(m.shell.termine);
  EXPECT_TRUE(m.settings.written.empty());
  EXPECT_TRUE(m.state.document.FichierModifie());
}

TEST(MnuQuitter, NoDiscardsTheRows) {
  StartMachine m;
  test::MarqueModifie(m.state.document);
  m.state.document.Fichier.NomFichier = "/data/a.deg";
  m.files.Pose("/data/a.deg", "before");
  m.dialogues.answers = {Answer::No};
  MnuQuitter_Click(m.contexte);
  EXPECT_TRUE(m.shell.termine);
  EXPECT_EQ(m.files.Contenu("/data/a.deg"), "before");
  EXPECT_TRUE(m.AFait("SauveReglages"));
}

TEST(MnuQuitter, AStoreThatRefusesKeepsNobodyInTheProgram) {
  StartMachine m;
  m.settings.refuse = true;
  MnuQuitter_Click(m.contexte);
  EXPECT_TRUE(m.shell.termine);
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text.rfind("Error 75\n", 0), 0U);
}

TEST(Form1Unload, CancelSkipsTheSettingsAndLosesTheChanges) {
  StartMachine m;
  test::MarqueModifie(m.state.document);
  m.dialogues.answers = {Answer::Cancel};
  Form1_Unload(m.contexte);
  EXPECT_TRUE(m.settings.written.empty());
  EXPECT_FALSE(m.shell.termine) << "the window closes by itself, and the process with it";
}

TEST(Form1Unload, IsQuitOtherwise) {
  StartMachine m;
  Form1_Unload(m.contexte);
  EXPECT_TRUE(m.AFait("SauveReglages"));
  EXPECT_TRUE(m.shell.termine);
}

TEST(MnuLang, SwitchesEveryCaption) {
  StartMachine m;
  MnuLang_Click(m.contexte, 3);
  EXPECT_EQ(m.state.Langue, 3000);
  EXPECT_EQ(m.journal, (Journal{"AppliqueLangue", "InitFenetres", "InitTDBgrid"}));
}

TEST(MnuLang, TheCurrentLanguageAgainRunsNothing) {
  StartMachine m;
  MnuLang_Click(m.contexte, 1);
  EXPECT_EQ(m.state.Langue, 1000);
  EXPECT_TRUE(m.journal.empty());
}

TEST(MnuLang, SpanishSaysThatItIsUnavailable) {
  StartMachine m;
  MnuLang_Click(m.contexte, 2);
  EXPECT_EQ(m.state.Langue, 1000);
  EXPECT_TRUE(m.journal.empty());
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "Feature unavailable in this version");
}

TEST(MnuLang, LeavesTheUsersOwnCaptions) {
  StartMachine m;
  m.state.LabelNumeric1 = "Mounds";
  MnuLang_Click(m.contexte, 0);
  EXPECT_EQ(m.state.LabelNumeric1, "Mounds");
}

TEST(MnuLang, IsStoredAtQuitOnly) {
  StartMachine m;
  MnuLang_Click(m.contexte, 5);
  EXPECT_TRUE(m.settings.written.empty());
  m.state.document.OublieModifications();
  MnuQuitter_Click(m.contexte);
  EXPECT_EQ(m.settings.values["TALPENA/LANGUAGE/LANGUAGE"], "5000");
}

TEST(CheminAide, IsFrenchForFrenchAndEnglishForEveryOther) {
  ProcessState state;
  state.AppDir = "/opt/talpena";
  for (const std::int16_t langue : std::array<std::int16_t, 5>{0, 1000, 3000, 4000, 5000}) {
    state.Langue = langue;
    EXPECT_EQ(CheminAide(state),
              langue == 0 ? "/opt/talpena/TALPENAF.HLP" : "/opt/talpena/TALPENAE.HLP");
  }
}

}  // namespace
}  // namespace talpena

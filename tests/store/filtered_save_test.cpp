// Saving while a filter hides rows: nothing is left out unseen.
#include "common/text.h"
#include "store/file_commands_fixture.h"
#include "store/filter.h"

namespace talpena::test {
namespace {

constexpr std::size_t headLines = 8;

class FilteredSave : public FileCommands {
 protected:
  FilteredSave() {
    OuvreA(5);
    Filtre("LATITUDE > 2");
    MarqueModifie(state.document);
  }
  void Filtre(const std::string& condition) {
    state.document.MontreLignes(RowsShown::Filtrees(condition));
  }
  void RetireFiltre() { state.document.MontreLignes(RowsShown::Toutes()); }
  std::size_t LignesDuFichier(const std::string& name) {
    return Lignes(LitFichier(name)).size() - headLines;
  }
  const std::string question = "Only 2 of 5 rows are shown: the file will hold only these. Save?";
};

TEST_F(FilteredSave, SaveAsksFirstAndNoIsTheDefault) {
  dialogues.answers = {Answer::No};
  MnuEnregistrer_Click(context);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, question);
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(dialogues.boxes[0].defaultButton, Answer::No);
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(LignesDuFichier(path), 5U);
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(FilteredSave, YesWritesTheRowsShown) {
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LignesDuFichier(path), 2U);
  EXPECT_EQ(LignesDuFichier(bak), 5U);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(FilteredSave, SaveAsAsksBeforeItsDialog) {
  dialogues.answers = {Answer::No};
  MnuEnrSous_Click(context);
  EXPECT_TRUE(dialogues.fileDialogs.empty());
  dialogues.answers = {Answer::Yes};
  dialogues.paths = {folder / "b.deg"};
  MnuEnrSous_Click(context);
  EXPECT_EQ(Boites(), (std::vector<std::string>{question, question}));
  EXPECT_EQ(LignesDuFichier(folder / "b.deg"), 2U);
  EXPECT_EQ(LignesDuFichier(path), 5U);
}

TEST_F(FilteredSave, TheSaveQuestionAsksToo) {
  dialogues.answers = {Answer::Yes, Answer::No};
  EXPECT_TRUE(CheckSauvegarde(context)) << "the rows are not saved: the command ends";
  EXPECT_EQ(Boites(), (std::vector<std::string>{"Save file ?", question}));
  EXPECT_EQ(LignesDuFichier(path), 5U);
  dialogues.answers = {Answer::Yes, Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(LignesDuFichier(path), 2U);
}

TEST_F(FilteredSave, AFilterThatHidesNothingAsksNothing) {
  Filtre("LATITUDE > -1");
  MnuEnregistrer_Click(context);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(LignesDuFichier(path), 5U);
}

TEST_F(FilteredSave, WithoutARowOnShowNothingIsMovedOrWritten) {
  Filtre("LATITUDE > 99");
  MnuEnregistrer_Click(context);
  MnuEnrSous_Click(context);
  dialogues.answers = {Answer::Yes};
  EXPECT_TRUE(CheckSauvegarde(context)) << "the hidden rows would be lost";
  const std::string refusal =
      "No row meets the filter, so there is nothing to save. Show all rows first.";
  EXPECT_EQ(Boites(), (std::vector<std::string>{refusal, refusal, "Save file ?", refusal}));
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"a.deg"});
  EXPECT_EQ(LignesDuFichier(path), 5U);
  EXPECT_TRUE(dialogues.fileDialogs.empty());
}

TEST_F(FilteredSave, GroupAndSaveWritesTheWholeTable) {
  dialogues.paths = {folder / "g.deg"};
  MnuGrouper_Click(context);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(LignesDuFichier(folder / "g.deg"), 5U);
  EXPECT_FALSE(state.document.FiltreActif());
}

TEST_F(FilteredSave, RowsLeftOutCountAsUnsavedOnceTheyAreShownAgain) {
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  EXPECT_FALSE(CheckSauvegarde(context)) << "what was asked for was saved";
  RetireFiltre();
  dialogues.boxes.clear();
  dialogues.answers = {Answer::Yes};
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(Boites(), std::vector<std::string>{"Save file ?"});
  EXPECT_EQ(LignesDuFichier(path), 5U);
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_EQ(dialogues.boxes.size(), 1U) << "now they are in the file";
}

TEST_F(FilteredSave, AnotherFileForgetsTheRowsLeftOut) {
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  dialogues.paths = {path};
  MnuOuvrir_Click(context);
  EXPECT_FALSE(state.document.FiltreActif()) << "opening a file ends the filter";
  dialogues.boxes.clear();
  EXPECT_FALSE(CheckSauvegarde(context));
  Filtre("LATITUDE > 3");
  dialogues.answers = {Answer::Yes};
  MnuEnregistrer_Click(context);
  CreationNouveau(context, 3);
  EXPECT_FALSE(state.document.FiltreActif());
  dialogues.boxes.clear();
  EXPECT_FALSE(CheckSauvegarde(context));
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(FilteredSave, TheAutomaticSaveWaitsUntilAllRowsAreShown) {
  state.AutoSave = true;
  state.SaveInterval = 3;
  for (int i = 0; i < 10; ++i) Timer1_Timer(context);
  EXPECT_EQ(LignesDuFichier(path), 5U);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_TRUE(dialogues.boxes.empty()) << "nobody is asked";
  RetireFiltre();
  state.document.WorkingDb->Execute("DELETE FROM TALPENA WHERE LATITUDE = 0");
  state.document.Data1.Refresh();
  Timer1_Timer(context);
  EXPECT_EQ(LignesDuFichier(path), 4U) << "with the first tick behind the filter";
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_EQ(state.CompteurTimer, 0);
}

TEST_F(FilteredSave, MergingShowsAndSavesAllRows) {
  PoseFichier(folder / "b.deg", 2);
  const std::string bytes = LitFichier(folder / "b.deg");  // a merge wants free fields
  EcritFichier(folder / "b.deg", Remplace(bytes, "<END>", "/\r\nSTAT.TOPO,Place,50\r\n<END>"));
  dialogues.paths = {folder / "b.deg"};
  MnuFusionner_Click(context);
  EXPECT_FALSE(state.document.FiltreActif());
  EXPECT_EQ(NombreLignes(), 7);
  MnuEnregistrer_Click(context);
  EXPECT_EQ(LignesDuFichier(path), 7U + 2) << "with two lines of free fields in the header";
}

}  // namespace
}  // namespace talpena::test

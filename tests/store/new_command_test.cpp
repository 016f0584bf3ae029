// New.
#include "store/deg_reader.h"
#include "store/file_commands_fixture.h"
#include "store/free_fields.h"
#include "store/sort.h"

namespace talpena::test {
namespace {

namespace fs = std::filesystem;

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
    EXPECT_EQ(state.document.Fichier.NomFichier, path);
    EXPECT_TRUE(state.document.FichierModifie());
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
  EXPECT_EQ(state.document.Fichier.NomFichier, path);
  EXPECT_TRUE(state.document.FichierModifie());
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
  Entete(state.document)->BoxTitre = "old";
  Entete(state.document)->Commentaire = "source of the old file";
  state.document.ChangeTitreFenetre("Talpena - " + path);
  ChangeTri(state.document, 4, true);
  vue.calls.clear();
  MnuNouveau_Click(context);
  EXPECT_EQ(state.document.Fichier.NomFichier, "");
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_FALSE(state.document.Fichier.EmpreinteFichier.has_value());
  EXPECT_EQ(vue.boxTitre, "");
  EXPECT_EQ(vue.commentaire, "");
  EXPECT_EQ(vue.titre, "Talpena");
  EXPECT_EQ(state.document.Data1.RecordSource, "TALPENA");
  EXPECT_EQ(state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY Counter");
  EXPECT_EQ(state.document.LignesMontrees().Ordre(), RowOrder());
  EXPECT_TRUE(state.document.Data1.recordset().Get(Column::LATITUDE).EstNull());
  EXPECT_EQ(vue.calls,
            (std::vector<std::string>{
                "ChangeTitreFenetre Talpena", "ChangeBoxTitre", "ChangeCommentaire", "AjusteGrille",
                "MontreTitres", "MontreOptionsPeriodes", "ActiveMenus", "PlaceFocusColonne 0"}));
}

TEST_F(NewCommand, BeginsInTheFirstCell) {
  vue.colonneCourante = 7;
  CreationNouveau(context, 3);
  EXPECT_EQ(state.document.Data1.recordset().AbsolutePosition(), 0);
  EXPECT_EQ(vue.calls.back(), "PlaceFocusColonne 0");
}

TEST_F(NewCommand, KeepsTheDatumOfTheFile) {
  Entete(state.document)->DatumFichierCode = "NTF";
  CreationNouveau(context, 1);
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
}

TEST_F(NewCommand, NouveauEnCoursHoldsWhileThePeriodsAreAsked) {
  class Watcher : public FakeView {
   public:
    explicit Watcher(StoreState& s) : state(s) {}
    StoreState& state;
    bool seen = false;
    void MontreOptionsPeriodes() override { seen = state.document.NouveauEnCours; }
  } watcher(state);
  CreationNouveau({state, io, vue, vue, watcher}, 1);
  EXPECT_TRUE(watcher.seen);
  EXPECT_FALSE(state.document.NouveauEnCours);
}

TEST_F(NewCommand, WithoutStandardHdrTheDefinitionsFormOneLine) {
  CreationNouveau(context, 1);
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 11);
  EXPECT_EQ(state.document.Entete().FreeFieldDefs.at(1).Label, "Localité");
  EXPECT_EQ(state.document.Entete().FreeFieldSeparator, "/");
  EXPECT_EQ(state.document.Entete().FreeFieldText.rfind(
                "/\r\nSTAT.TOPO,Toponyme,Nom du lieu-dit,50STAT.LOCA,", 0),
            0U);
  EXPECT_EQ(state.document.Entete().FreeFieldText.find("\r\n", 3), std::string::npos);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(NewCommand, SuchAFileReadsBackWithASingleFreeField) {
  CreationNouveau(context, 1);
  Ajoute({.period = 1, .latitude = 1, .longitude = 1});
  EcritDeg(context, path, WriteMode::Rows);
  LitDeg(context, path, MergeMode::Replace);
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 1);
  EXPECT_EQ(state.document.Entete().FreeFieldDefs.at(0).Code, "STAT.TOPO");
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
  EXPECT_EQ(state.document.Entete().FreeFieldSeparator, "|");
  EXPECT_EQ(state.document.Entete().FreeFieldText, "|\r\nA,Alpha,1\r\nB,Beta,22,more");
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 2);
  EXPECT_EQ(state.document.Entete().FreeFieldDefs.at(1).Width, 22);
}

TEST_F(WithStandardHdr, NothingOfTheFileBeforeIsOnShowDuringItsQuestions) {
  OuvreA(2);
  Modifie();
  Entete(state.document)->BoxTitre = "old";
  Entete(state.document)->Commentaire = "source of the old file";
  class Watcher : public FakeDialogues {
   public:
    Monde* monde = nullptr;
    Answer Demande(const MessageBox& box) override {
      const Answer answer = FakeDialogues::Demande(box);
      if (box.text == "Save file ?") return answer;
      EXPECT_EQ(monde->NombreLignes(), 0);
      EXPECT_EQ(monde->vue.boxTitre + monde->vue.commentaire, "");
      EXPECT_EQ(monde->vue.titre, "Talpena");
      return answer;
    }
  } watcher;
  watcher.monde = this;
  watcher.answers = {Answer::No, Answer::Yes};
  Platform asked{*engine, *files, settings, watcher, clock, environment, sound};
  CreationNouveau({state, asked, vue, vue, vue}, 3);
  EXPECT_EQ(watcher.boxes.size(), 2U);
  EXPECT_EQ(NombreLignes(), 3);
}

/// The one beside the program.
class WithShippedStandardHdr : public FileCommands {
 protected:
  WithShippedStandardHdr() { state.AppDir = std::string(TALPENA_SOURCE_DIR) + "/data"; }
};

TEST_F(WithShippedStandardHdr, HoldsTheElevenFieldsALineEach) {
  std::string bytes = "/\r\n";
  for (const std::string_view line : ChampsLibresInternes()) {
    bytes += *Utf8VersCp1252(line) + "\r\n";
  }
  EXPECT_EQ(LitFichier(state.AppDir + "/standard.hdr"), bytes);
}

TEST_F(WithShippedStandardHdr, AFileOfNewReadsBackWithItsElevenFields) {
  dialogues.answers = {Answer::Yes};
  CreationNouveau(context, 1);
  EXPECT_EQ(Boites(), std::vector<std::string>{"Use standard configuration of free fields?"});
  const std::vector<FreeFieldDef> fields = state.document.Entete().FreeFieldDefs;
  EXPECT_EQ(fields.size(), 11U);
  Ajoute({.period = 1, .latitude = 1, .longitude = 1});
  EcritDeg(context, path, WriteMode::Rows);
  LitDeg(context, path, MergeMode::Replace);
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 11);
  EXPECT_EQ(state.document.Entete().FreeFieldDefs, fields);
  EXPECT_EQ(state.document.Entete().FreeFieldSeparator, "/");
}

TEST_F(WithStandardHdr, NoGivesAFileWithoutFreeFields) {
  Entete(state.document)->FreeFieldCount = 3;
  Entete(state.document)->FreeFieldDefs.resize(3);
  Entete(state.document)->FreeFieldText = "old";
  dialogues.answers = {Answer::No};
  CreationNouveau(context, 1);
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 0);
  EXPECT_TRUE(state.document.Entete().FreeFieldDefs.empty());
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
  EXPECT_EQ(NombreLignes(), 1);
}

}  // namespace
}  // namespace talpena::test

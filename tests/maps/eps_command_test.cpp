// The export as a command: dialog, message, failures.
#include <gtest/gtest.h>

#include "common/talpena_error.h"
#include "maps/eps_world.h"

namespace talpena {
namespace {

using test::EpsWorld;
using Strings = std::vector<std::string>;

class EpsCommandTest : public ::testing::Test {
 protected:
  EpsCommandTest() { w.Remplit({{5, 5}}); }
  /// Number of the failure that the export ends with; 0 without one.
  int Echec() {
    try {
      FaitEPS(w.Contexte(), path, 1);
    } catch (const TalpenaError& error) {
      return error.number();
    }
    return 0;
  }
  std::string Sortie() const { return w.files.Contenu(path); }

  EpsWorld w;
  const std::string path = "/out/map.eps";
};

TEST_F(EpsCommandTest, TellsInFrenchInEveryLanguage) {
  w.state.Silence = false;
  for (std::int16_t language = 0; language <= 4000; language += 1000) {
    w.state.Langue = language;
    FaitEPS(w.Contexte(), path, 1);
    ASSERT_EQ(w.dialogues.boxes.size(), 1U);
    EXPECT_EQ(w.dialogues.boxes[0].text, "Fichier /out/map.eps créé avec succès.");
    EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::Information);
    EXPECT_EQ(w.dialogues.boxes[0].buttons, Buttons::Ok);
    w.dialogues.boxes.clear();
  }
  EXPECT_EQ(w.sound.bips, 5);
}

TEST_F(EpsCommandTest, AsksForThePathWithAQuestionBeforeOverwriting) {
  w.settings.values["TALPENA/PATHS/DATA"] = "/data";
  w.dialogues.paths = {path};
  Imprime(w.Contexte(), 1);
  ASSERT_EQ(w.dialogues.fileDialogs.size(), 1U);
  const FileDialog& asked = w.dialogues.fileDialogs[0];
  EXPECT_EQ(asked.filter, "Fichiers EPS (*.eps)|*.eps|Tous les fichiers (*.*)|*.*");
  EXPECT_EQ(asked.folder, "/data");
  EXPECT_TRUE(asked.confirmReplace);
  EXPECT_NE(Sortie().find("/coul true def"), std::string::npos);
  EXPECT_TRUE(w.settings.written.empty());
  w.DitCree();
}

TEST_F(EpsCommandTest, TheModeGoesThroughTheDialog) {
  w.dialogues.paths = {path};
  Imprime(w.Contexte(), 0);
  EXPECT_NE(Sortie().find("/coul false def"), std::string::npos);
  w.DitCree();
}

TEST_F(EpsCommandTest, ACancelledDialogEndsInSilence) {
  w.dialogues.paths = {""};
  Imprime(w.Contexte(), 1);
  EXPECT_TRUE(w.dialogues.boxes.empty());
  EXPECT_TRUE(w.files.journal.empty());
}

TEST_F(EpsCommandTest, ReplacesWhatWasThere) {
  w.files.Pose(path, std::string(100000, 'x'));
  EXPECT_EQ(Echec(), 0);
  EXPECT_TRUE(Sortie().starts_with("%!PS\r\n"));
  EXPECT_TRUE(Sortie().ends_with("clear\r\n%%Trailer\r\n"));
  w.DitCree();
}

TEST_F(EpsCommandTest, ShowsTheHourglassMeanwhileAndThePointerAfterwards) {
  EXPECT_EQ(Echec(), 0);
  EXPECT_EQ(w.vue.sabliers, (std::vector{true, false}));
  w.DitCree();
}

TEST_F(EpsCommandTest, WithoutAPrologueTheFileIsEmpty) {
  w.files.Supprime("/carto/proltlp.ps");
  EXPECT_EQ(Echec(), ErrorNumber::FileNotFound);
  EXPECT_TRUE(w.files.Existe(path));
  EXPECT_EQ(Sortie(), "");
  EXPECT_TRUE(w.dialogues.boxes.empty());
  EXPECT_FALSE(w.vue.sablier);
}

TEST_F(EpsCommandTest, WithoutADrawingTheFileStaysAsFarAsItCame) {
  w.carte.FichierPS = "/carto/none.ps";
  EXPECT_EQ(Echec(), ErrorNumber::FileNotFound);
  EXPECT_TRUE(Sortie().starts_with("%!PS\r\n%%BoundingBox"));
  EXPECT_TRUE(Sortie().ends_with("/coul true def\r\n/PresLeg false def \r\n"));
  EXPECT_TRUE(w.dialogues.boxes.empty());
  EXPECT_EQ(w.vue.sabliers, (std::vector{true, false}));
}

TEST_F(EpsCommandTest, ADrawingThatCannotBeReadToItsEndEndsTheFileThere) {
  std::string drawing;
  for (int i = 0; i < 2000; ++i) drawing += "0 0 m 10 10 l s\r\n";
  w.files.Pose("/carto/map.ps", drawing);
  w.files.bloc = 1000;
  w.files.lectureJusqua = 9000;
  EXPECT_EQ(Echec(), ErrorNumber::DeviceFault);
  EXPECT_TRUE(Sortie().ends_with("0 0 m 10 10 l s\r\n"));
  EXPECT_EQ(Sortie().find("sc1"), std::string::npos);
}

TEST_F(EpsCommandTest, AFullDiskLeavesWhatItTook) {
  std::string drawing;
  for (int i = 0; i < 20000; ++i) drawing += "0 0 m 10 10 l s\r\n";
  w.files.Pose("/carto/map.ps", drawing);
  w.files.ecritureJusqua = 200000;
  EXPECT_EQ(Echec(), ErrorNumber::DiskFull);
  EXPECT_GT(Sortie().size(), 100000U);
  EXPECT_LE(Sortie().size(), 200000U);
  EXPECT_TRUE(w.dialogues.boxes.empty());
  EXPECT_FALSE(w.vue.sablier);
}

TEST_F(EpsCommandTest, AnOutputThatCannotBeOpenedChangesNothing) {
  w.files.refus[path] = ErrorNumber::PermissionDenied;
  EXPECT_EQ(Echec(), ErrorNumber::PermissionDenied);
  EXPECT_FALSE(w.files.Existe(path));
}

TEST_F(EpsCommandTest, TheCommandShowsAFailureInTheCommonBox) {
  w.files.Supprime("/carto/proltlp.ps");
  w.dialogues.paths = {path};
  Imprime(w.Contexte(), 1);
  EXPECT_EQ(w.Boites(), Strings{"Error 53\nThis file cannot be found; look whether it was moved or "
                                "renamed.\n/carto/proltlp.ps"});
}

TEST_F(EpsCommandTest, ATableWithoutRowsBeepsAndThePageHasTheMapAlone) {
  w.state.document.WorkingDb->Execute("DELETE FROM TALPENA");
  w.state.document.Data1.Refresh();
  w.state.Silence = false;
  EXPECT_EQ(Echec(), 0);
  EXPECT_EQ(w.sound.bips, 2);  // one more for the message
  EXPECT_EQ(Sortie().find(" sc1"), std::string::npos);
  EXPECT_NE(Sortie().find("% the map\r\n/Courier"), std::string::npos);
  w.DitCree();
}

TEST_F(EpsCommandTest, TheCanvasIsLeftAlone) {
  EXPECT_EQ(Echec(), 0);
  EXPECT_TRUE(w.canvas.calls.empty());
  w.DitCree();
}

}  // namespace
}  // namespace talpena

// MnuExpAsciiMode: what is asked, which file is written, what is said.
#include "interchange/text_export.h"

#include "common/text.h"
#include "interchange/export_fixture.h"
#include "store/edition.h"

namespace talpena::test {
namespace {

using Texts = std::vector<std::string>;

TEST_F(TextExportTest, WritesPeriodLatitudeAndLongitudeWithCommas) {
  state.ExportPeriod = state.ExportLatitude = state.ExportLongitude = 1;
  EXPECT_EQ(LignesDe(Ligne()), (Texts{",Periode,Latitude,Longitude", "3,+50.41234,+003.92120"}));
}

TEST_F(TextExportTest, WritesTheFixedFormatWithoutAnySeparator) {
  state.ExportPeriod = state.ExportLatitude = state.ExportLongitude = 1;
  Ajoute(Ligne());
  EXPECT_EQ(Exporte(Fixed), "PeriodeLatitudeLongitude\r\n3+50.41234+003.92120\r\n");
}

TEST_F(TextExportTest, LosesTheSignOfASouthernLatitude) {
  state.ExportLatitude = 1;
  Rangee row = Ligne();
  row.latitude = -12.5;
  EXPECT_EQ(LignesDe(row), (Texts{",Latitude", "+12.50000"}));
}

TEST_F(TextExportTest, KeepsTheSignOfAWesternLongitude) {
  state.ExportLongitude = 1;
  Rangee row = Ligne();
  row.longitude = -12.5;
  EXPECT_EQ(LignesDe(row), (Texts{",Longitude", "-012.50000"}));
}

TEST_F(TextExportTest, WritesN1OfSevenWithFiveDigits) {
  state.ExportNumber1 = 1;
  EXPECT_EQ(LignesDe(Ligne()), (Texts{",N1", "00007"}));
}

TEST_F(TextExportTest, WritesOnlyTheHeaderOfAnEmptyTable) {
  state.ExportPeriod = 1;
  EXPECT_EQ(Exporte(), ",Periode\r\n");
}

TEST_F(TextExportTest, AnswersNoToTheQuestionByTheDialogAgainAndTouchesNoFile) {
  EcritFichier(path, "former");
  state.ExportPeriod = 1;
  Ajoute(Ligne());
  const std::string other = folder / "other.txt";
  dialogues.answers = {Answer::No};
  dialogues.paths = {path, other};
  MnuExpAsciiMode(context, *this, Commas);
  EXPECT_EQ(LitFichier(path), "former");
  EXPECT_EQ(LitFichier(other), ",Periode\r\n3\r\n");
  EXPECT_EQ(dialogues.fileDialogs.size(), 2U);
  EXPECT_EQ(options, 1);
}

TEST_F(TextExportTest, AsksWithYesNoAndCancelAndNoIsTheDefault) {
  EcritFichier(path, "former");
  state.Silence = false;
  dialogues.answers = {Answer::Cancel};
  EXPECT_EQ(Exporte(), "former");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  const MessageBox& box = dialogues.boxes[0];
  EXPECT_EQ(box.text, "File already exists! Replace?");
  EXPECT_EQ(box.detail, path);
  EXPECT_EQ(box.buttons, Buttons::YesNoCancel);  // closed by Escape it counts as Cancel
  EXPECT_EQ(box.defaultButton, Answer::No);
  EXPECT_EQ(box.icon, Icon::Exclamation);
  EXPECT_EQ(sound.bips, 1);
}

TEST_F(TextExportTest, YesReplacesTheFile) {
  EcritFichier(path, "former");
  state.ExportPeriod = 1;
  dialogues.answers = {Answer::Yes};
  EXPECT_EQ(Exporte(), ",Periode\r\n");
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(sound.bips, 0) << "the setting Silence";
  EXPECT_EQ(folder.Noms(), Texts{"out.txt"});
}

TEST_F(TextExportTest, AsksForTheFileByItsFilterWithoutAName) {
  state.document.Fichier.NomFichier = folder / "moles.deg";
  Exporte();
  ASSERT_EQ(dialogues.fileDialogs.size(), 1U);
  const FileDialog& dialog = dialogues.fileDialogs[0];
  EXPECT_EQ(dialog.filter, "Fichiers texte (*.txt)|*.txt");
  EXPECT_EQ(dialog.name, "");
  EXPECT_EQ(dialog.folder, folder / "");
  EXPECT_FALSE(dialog.confirmReplace);
}

TEST_F(TextExportTest, LooksForTheNextFileWhereTheLastOneWasWritten) {
  state.document.Fichier.NomFichier = "/elsewhere/moles.deg";
  Exporte();
  std::filesystem::remove(path);
  Exporte();
  ASSERT_EQ(dialogues.fileDialogs.size(), 2U);
  EXPECT_EQ(dialogues.fileDialogs[0].folder, "/elsewhere/");
  EXPECT_EQ(dialogues.fileDialogs[1].folder, folder / "");
}

TEST_F(TextExportTest, AsksForNoFileBehindTheOptionsLeftByCancel) {
  accepte = false;
  MnuExpAsciiMode(context, *this, Commas);
  EXPECT_EQ(options, 1);
  EXPECT_TRUE(dialogues.fileDialogs.empty());
  EXPECT_TRUE(folder.Noms().empty());
}

TEST_F(TextExportTest, ASaveDialogLeftByCancelEndsItInSilence) {
  dialogues.paths = {""};
  MnuExpAsciiMode(context, *this, Commas);
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_TRUE(folder.Noms().empty());
  EXPECT_FALSE(vue.sablier);
}

TEST_F(TextExportTest, WritesWhatTheDialogHasJustChosen) {
  Ajoute(Ligne());
  choisit = [this] { state.ExportSex = 1; };
  EXPECT_EQ(Exporte(), ",Sex\r\nM\r\n");
}

TEST_F(TextExportTest, ChangesNoRowAndMarksNothing) {
  Ajoute(Ligne());
  state.document.OublieModifications();
  state.ExportPeriod = 1;
  state.document.Data1.recordset().MoveLast();
  const Bookmark here = state.document.Data1.recordset().GetBookmark();
  Exporte();
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_EQ(state.document.Data1.recordset().GetBookmark(), here);
}

TEST_F(TextExportTest, WritesTheRowsInTheOrderOfTheGrid) {
  for (const int period : {2, 3, 1}) Ajoute(Ligne(period));
  state.ExportPeriod = 1;
  state.document.Relie(RowsShown::Dans({1, Direction::Descending}));
  EXPECT_EQ(Exporte(), ",Periode\r\n3\r\n2\r\n1\r\n");
}

TEST_F(TextExportTest, DoesNotLookAtTheChosenRows) {
  for (const int period : {1, 2}) Ajoute(Ligne(period));
  state.ExportPeriod = 1;
  vue.selection = {2};
  EXPECT_EQ(Exporte(), ",Periode\r\n1\r\n2\r\n");
}

class FilteredExport : public TextExportTest {
 protected:
  FilteredExport() {
    state.ExportPeriod = 1;
    for (int i = 0; i < 3245; ++i) Ajoute(Ligne(i < 12 ? 2 : 1));
    state.document.MontreLignes(RowsShown::Filtrees("PERIOD = 2"));
  }
  std::string Avis() { return state.document.Montre().avis; }
};

TEST_F(FilteredExport, WritesTheRowsShownAndSaysSo) {
  EXPECT_EQ(Lignes(Exporte()).size(), 13U);
  EXPECT_EQ(Avis(), "12 of 3,245 rows written");
}

TEST_F(FilteredExport, SaysSoInTheLanguageOfTheInterface) {
  const std::pair<int, const char*> notices[] = {{0, "12 lignes écrites sur 3\u202F245"},
                                                 {1000, "12 of 3,245 rows written"},
                                                 {3000, "12 von 3.245 Zeilen geschrieben"},
                                                 {4000, "12 righe scritte su 3.245"},
                                                 {5000, "12 van 3.245 rijen geschreven"}};
  for (const auto& [langue, notice] : notices) {
    state.Langue = static_cast<std::int16_t>(langue);
    std::filesystem::remove(path);
    Exporte();
    EXPECT_EQ(Avis(), notice);
  }
}

TEST_F(FilteredExport, TheNoticeGoesWithTheFilter) {
  Exporte();
  state.document.MontreLignes(RowsShown::Toutes());
  EXPECT_EQ(Avis(), "");
}

TEST_F(FilteredExport, AnExportOfAllRowsSaysSoUntilTheNextEdit) {
  state.document.MontreLignes(RowsShown::Toutes());
  Exporte();
  EXPECT_EQ(Avis(), "3,245 rows written");
  Edition edition(state.document, "Edit");
  edition.AjouteLigne({});
  edition.Valide();
  EXPECT_EQ(Avis(), "");
}

TEST_F(TextExportTest, TellsEachDatumOnceThatTheCatalogueLacks) {
  state.ExportCoordSystem = 7;
  for (const char* code : {"QQQ", "WGS84", "QQQ", "ZZZ", "   "}) {
    Rangee row = Ligne();
    row.datum = code;
    Ajoute(row);
  }
  const Texts lines = Lignes(Exporte());
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[0], "X,Y");
  EXPECT_EQ(lines[1], "0,0");
  EXPECT_NE(lines[2], "0,0");
  EXPECT_EQ(lines[3], "0,0");
  EXPECT_EQ(lines[4], "0,0");
  EXPECT_EQ(lines[5], "0,0");
  EXPECT_EQ(Boites(), Texts{"This datum is absent from the available datums!\n\nQQQ, ZZZ, \"\""});
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
}

TEST_F(TextExportTest, AsksForNoDatumWithoutXAndY) {
  state.ExportEllipsoid = 1;
  const std::int16_t before = state.DatumSpherique = 4;
  for (const int system : {-1, 0}) {
    state.ExportCoordSystem = static_cast<std::int16_t>(system);
    Rangee row = Ligne();
    row.datum = "QQQ";
    Ajoute(row);
    std::filesystem::remove(path);
    EXPECT_EQ(Lignes(Exporte())[0], ",Datum");
  }
  EXPECT_EQ(state.DatumSpherique, before);
}

TEST_F(TextExportTest, LeavesTheDefaultDatumOnThatOfTheLastRow) {
  state.ExportCoordSystem = 7;
  for (const char* code : {"WGS84", "BEL72", "QQQ"}) {
    Rangee row = Ligne();
    row.datum = code;
    Ajoute(row);
  }
  Exporte();
  EXPECT_EQ(state.DatumSpherique, ChercheDatum(state.Catalogue, "BEL72"));
  EXPECT_EQ(state.DatumSpheriqueCode, "EUR-M") << "the setting stays";
  EXPECT_EQ(Boites().size(), 1U);
}

TEST_F(TextExportTest, ShowsTheWorkAndPutsEverythingBack) {
  for (int i = 0; i < 20; ++i) Ajoute(Ligne());
  state.ExportPeriod = 1;
  Exporte();
  EXPECT_EQ(vue.sabliers, (std::vector<bool>{true, false}));
  ASSERT_GT(vue.progression.size(), 10U);
  EXPECT_EQ(*(vue.progression.end() - 2), 100);
  EXPECT_FALSE(vue.barre);
}

TEST_F(TextExportTest, AModeThatThereIsNotWritesNothing) {
  Exporte(4);
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(folder.Noms().empty());
}

// Its rows would be lost with it, and nothing would ask for a save.
TEST_F(TextExportTest, TheOpenDistributionIsNotReplaced) {
  Ajoute(Ligne());
  EcritFichier(path, "the rows of the file");
  state.document.Fichier.NomFichier = path;
  const std::string other = path + ".txt";
  dialogues.paths = {path, other};
  MnuExpAsciiMode(context, *this, Commas);
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("This is the distribution that is open")) << Boites()[0];
  EXPECT_EQ(LitFichier(path), "the rows of the file");
  EXPECT_FALSE(LitFichier(other).empty());
}

}  // namespace
}  // namespace talpena::test

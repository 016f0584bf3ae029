// MnuExpDB: what is asked, which table is written, what is said.
#include "interchange/database_fixture.h"

namespace talpena::test {
namespace {

/// Tables in a folder, in files of a maker of the test's own.
class FolderExport : public DatabaseExportTest {
 protected:
  FolderExport() { PrendUn(rules); }
  void PrendUn(MakerRules& maker) {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(std::make_unique<FakeMaker>(maker));
    Prend(std::move(formats));
  }

  ReadTable Exporte(const std::string& name = "deg.dbf") {
    ExporteVers(DBase, folder / name);
    return LitTable(*makers, folder / (name.substr(0, name.find('.')) + ".dbf"), dBaseConnect);
  }

  MakerRules rules{.connect = dBaseConnect, .endings = {".dbf", ".dbt"}};
};

TEST_F(FolderExport, MakesTheTableInTheFolderOfTheChosenPath) {
  Ajoute(Ligne());
  EXPECT_EQ(Exporte("deg.dbf").name, "deg");
  EXPECT_EQ(folder.Noms(), (Texts{"deg.dbf", "deg.dbt"}));
}

TEST_F(FolderExport, NamesTheTableUpToTheFirstPoint) {
  ExporteVers(DBase, folder / "my.file.dbf");
  EXPECT_EQ(folder.Noms(), (Texts{"my.dbf", "my.dbt"}));
  EXPECT_EQ(LitTable(*makers, folder / "my.dbf", dBaseConnect).name, "my");
}

TEST_F(FolderExport, WritesMemoAloneForEachRowWithNoColumnOn) {
  AjouteToutes(Ligne(1), Ligne(2), Ligne(3));
  const ReadTable table = Exporte();
  EXPECT_EQ(table.Noms(), Texts{"Memo"});
  EXPECT_EQ(table.rows, std::vector<Texts>(3, Texts{"Moles / of Mons"}));
}

TEST_F(FolderExport, WritesANullLatitudeAsZero) {
  state.ExportLatitude = 1;
  Rangee row = Ligne();
  row.latitude.reset();
  Ajoute(row);
  EXPECT_EQ(Exporte().rows[0][0], "0");
}

TEST_F(FolderExport, KeepsTheSignOfASouthernLatitude) {
  state.ExportLatitude = 1;
  Rangee row = Ligne();
  row.latitude = -12.5;
  Ajoute(row);
  EXPECT_EQ(Exporte().rows[0][0], "-12.5");
}

TEST_F(FolderExport, WritesZerosForXAndYOfARowWithoutADatum) {
  state.ExportCoordSystem = 7;
  Rangee row = Ligne();
  row.datum.reset();
  Ajoute(row);
  const ReadTable table = Exporte();
  EXPECT_EQ(table.Noms(), (Texts{"X", "y", "Memo"}));
  EXPECT_EQ(table.rows[0][0], "0");
  EXPECT_EQ(table.rows[0][1], "0");
}

TEST_F(FolderExport, MakesATableWithoutRowsOfAnEmptyOne) {
  state.ExportPeriod = 1;
  const ReadTable table = Exporte();
  EXPECT_EQ(table.Noms(), (Texts{"Period", "Memo"}));
  EXPECT_TRUE(table.rows.empty());
  EXPECT_EQ(Avis(), "0 rows written and read back");
}

TEST_F(FolderExport, AnswersNoToTheQuestionByTheDialogAgainAndTouchesNoFile) {
  EcritFichier(folder / "deg.dbf", "former");
  Ajoute(Ligne());
  dialogues.answers = {Answer::No};
  dialogues.paths = {folder / "deg.dbf", folder / "other.dbf"};
  Lance(DBase);
  EXPECT_EQ(LitFichier(folder / "deg.dbf"), "former");
  EXPECT_EQ(folder.Noms(), (Texts{"deg.dbf", "other.dbf", "other.dbt"}));
  EXPECT_EQ(dialogues.fileDialogs.size(), 2U);
  EXPECT_EQ(options, 1);
}

// --- columns ---------------------------------------------------------------------------------

class AllColumns : public FolderExport {
 protected:
  AllColumns() {
    state.ExportPeriod = state.ExportLatitude = state.ExportLongitude = state.ExportNumber1 =
        state.ExportNumber2 = state.ExportEllipsoid = state.ExportOriginalCoord = state.ExportDate =
            state.ExportSex = state.ExportFreeField = 1;
    state.ExportCoordSystem = 7;
  }
};

struct ExpectedField {
  const char* name;
  FieldType type;
  int size;
};

// clang-format off
constexpr ExpectedField expectedFields[] = {
    {"X",         FieldType::Long,   0},   {"y",         FieldType::Long,   0},
    {"Period",    FieldType::Text,   1},   {"Latitude",  FieldType::Single, 0},
    {"Longitude", FieldType::Single, 0},   {"Number 1",  FieldType::Long,   0},
    {"Number 2",  FieldType::Long,   0},   {"Ellipsoid", FieldType::Text,   5},
    {"Orig Coor", FieldType::Text,   24},  {"Date",      FieldType::Text,   10},
    {"Sex",       FieldType::Text,   1},   {"Free text", FieldType::Text,   150},
    {"Memo",      FieldType::Memo,   0},
};
// clang-format on

TEST_F(AllColumns, StandInTheirOrderWithTheirTypesAndSizes) {
  const ReadTable table = Exporte();
  ASSERT_EQ(table.fields.size(), std::size(expectedFields));
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    EXPECT_EQ(table.fields[i].name, expectedFields[i].name);
    EXPECT_EQ(table.fields[i].type, expectedFields[i].type) << expectedFields[i].name;
    EXPECT_EQ(table.fields[i].size, expectedFields[i].size) << expectedFields[i].name;
  }
}

TEST_F(AllColumns, HoldTheValuesOfTheRow) {
  Rangee row = Ligne();
  row.datum = "BEL72";
  row.date = " 1990/01  ";
  row.comment = "  Mons / wood ";
  row.n1 = -7;
  Ajoute(row);
  const ReadTable table = Exporte();
  ASSERT_EQ(table.rows.size(), 1U);
  const Texts values(table.rows[0].begin() + 2, table.rows[0].end());
  const std::string latitude = Str(static_cast<double>(50.41234F));
  const std::string longitude = Str(static_cast<double>(3.9212F));
  EXPECT_EQ(values, (Texts{"3", latitude, longitude, "-7", "0", "BEL72", "deg 50.41234 3.9212",
                           "1990/01", "M", "Mons / wood", "Moles / of Mons"}));
}

TEST_F(AllColumns, TakeNullAsEmptyOrZero) {
  Ajoute({});
  const ReadTable table = Exporte();
  EXPECT_EQ(table.rows[0],
            (Texts{"0", "0", "", "0", "0", "0", "0", "", "", "", "", "", "Moles / of Mons"}));
  EXPECT_TRUE(dialogues.boxes.empty());
}

// As PROJ has it with the three shifts of BEL72: 159391.34, 87650.59.
TEST_F(AllColumns, HaveXAndYOfTheRowOnItsDatum) {
  Rangee row = Ligne();
  row.latitude = 50.1;
  row.longitude = 4.5;
  Ajoute(row);
  const ReadTable table = Exporte();
  EXPECT_EQ(table.rows[0][0], "159391");
  EXPECT_EQ(table.rows[0][1], "87651");
  EXPECT_EQ(state.DatumSpherique, ChercheDatum(state.Catalogue, "WGS84"));
}

TEST_F(AllColumns, TellEachDatumOnceThatTheCatalogueLacks) {
  for (const char* code : {"QQQ", "WGS84", "QQQ", "ZZZ"}) {
    Rangee row = Ligne();
    row.datum = code;
    Ajoute(row);
  }
  const ReadTable table = Exporte();
  EXPECT_EQ(table.rows[0][0], "0");
  EXPECT_NE(table.rows[1][0], "0");
  EXPECT_EQ(Boites(), Texts{"This datum is absent from the available datums!\n\nQQQ, ZZZ"});
}

TEST_F(FolderExport, WritesTheRowsInTheOrderOfTheGrid) {
  for (const int period : {2, 3, 1}) Ajoute(Ligne(period));
  state.ExportPeriod = 1;
  state.document.Relie(RowsShown::Dans({1, Direction::Descending}));
  const ReadTable table = Exporte();
  EXPECT_EQ(table.rows[0][0] + table.rows[1][0] + table.rows[2][0], "321");
}

TEST_F(FolderExport, ChangesNoRowAndMarksNothing) {
  Ajoute(Ligne());
  state.document.OublieModifications();
  Exporte();
  EXPECT_FALSE(state.document.FichierModifie());
}

// --- dialogs ---------------------------------------------------------------------------------

TEST_F(FolderExport, AsksForNoFileBehindTheOptionsLeftByCancel) {
  accepte = false;
  Lance(DBase);
  EXPECT_EQ(options, 1);
  EXPECT_EQ(genres, std::vector{ExportKind::Database});
  EXPECT_TRUE(dialogues.fileDialogs.empty());
}

TEST_F(FolderExport, ASaveDialogLeftByCancelEndsItInSilence) {
  ExporteVers(DBase, "");
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_TRUE(folder.Noms().empty());
  EXPECT_FALSE(vue.sablier);
}

struct FilterCase {
  Target target;
  const char* filter;
};

constexpr FilterCase filters[] = {
    {Access, "Fichiers mdb (*.mdb)|*.mdb"},  {FoxPro, "Fichiers dbf (*.dbf)|*.dbf"},
    {DBase, "Fichiers dbf (*.dbf)|*.dbf"},   {Paradox, "Fichiers pdx (*.db)|*.db"},
    {Excel, "Fichiers Excel (*.xls)|*.xls"}, {GeoPackageFile, "GeoPackage (*.gpkg)|*.gpkg"},
    {Workbook, "Excel (*.xlsx)|*.xlsx"}};

TEST_F(FolderExport, AsksForTheFileByTheFilterOfItsTarget) {
  state.document.Fichier.NomFichier = folder / "moles.deg";
  for (const FilterCase& c : filters) {
    ExporteVers(c.target, "");
    const FileDialog& dialog = dialogues.fileDialogs.back();
    EXPECT_EQ(dialog.filter, c.filter);
    EXPECT_EQ(dialog.name, "");
    EXPECT_EQ(dialog.folder, folder / "");
    EXPECT_FALSE(dialog.confirmReplace);
  }
}

TEST_F(FolderExport, AsksWithYesNoAndCancelAndNoIsTheDefault) {
  EcritFichier(folder / "deg.dbf", "former");
  state.Silence = false;
  dialogues.answers = {Answer::Cancel};
  ExporteVers(DBase, folder / "deg.dbf");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  const MessageBox& box = dialogues.boxes[0];
  EXPECT_EQ(box.text, "File already exists! Replace?");
  EXPECT_EQ(box.buttons, Buttons::YesNoCancel);  // closed by Escape it counts as Cancel
  EXPECT_EQ(box.defaultButton, Answer::No);
  EXPECT_EQ(box.icon, Icon::Exclamation);
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(LitFichier(folder / "deg.dbf"), "former");
}

// "my.file.dbf" is no file; what is written is.
TEST_F(FolderExport, AsksOfTheFileThatWillBeWritten) {
  EcritFichier(folder / "my.dbf", "former");
  EcritFichier(folder / "my.file.dbf", "another table");
  dialogues.answers = {Answer::Cancel};
  ExporteVers(DBase, folder / "my.file.dbf");
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(folder.Noms(), (Texts{"my.dbf", "my.file.dbf"}));
}

TEST_F(FolderExport, YesTakesTheTableAndWhatBelongsToItAndNothingElse) {
  for (const char* name :
       {"DEG.DBF", "DEG.DBT", "deg.fpt", "deg.cpg", "deg.cdx", "degs.dbf", "degs.dbt"}) {
    EcritFichier(folder / name, "former");
  }
  Ajoute(Ligne());
  dialogues.answers = {Answer::Yes};
  ExporteVers(DBase, folder / "deg.dbf");
  EXPECT_EQ(folder.Noms(), (Texts{"deg.cdx", "deg.dbf", "deg.dbt", "degs.dbf", "degs.dbt"}));
  EXPECT_NE(LitFichier(folder / "deg.dbf"), "former");
  EXPECT_NE(LitFichier(folder / "deg.dbt"), "former");
  EXPECT_EQ(dialogues.boxes.size(), 1U);
}

TEST_F(FolderExport, AsksOfAMemoFileWithoutItsTableToo) {
  EcritFichier(folder / "deg.dbt", "of a table that is gone");
  dialogues.answers = {Answer::Cancel};
  ExporteVers(DBase, folder / "deg.dbf");
  EXPECT_EQ(LitFichier(folder / "deg.dbt"), "of a table that is gone");
}

TEST_F(FolderExport, ATableThatCameInBetweenIsNotTouched) {
  rules.avantTable = [this] { EcritFichier(folder / "deg.dbf", "another program's"); };
  Ajoute(Ligne());
  ExporteVers(DBase, folder / "deg.dbf");
  EXPECT_EQ(Boites(), Texts{"Error 3010\nThere is a table “deg” in this folder already; choose "
                            "another name."})
      << Boites()[0];
  EXPECT_EQ(LitFichier(folder / "deg.dbf"), "another program's");
  EXPECT_EQ(folder.Noms(), Texts{"deg.dbf"});
}

TEST_F(FolderExport, TheOpenDistributionIsNotReplaced) {
  EcritFichier(folder / "deg.dbf", "the rows of the file");
  state.document.Fichier.NomFichier = folder / "deg.dbf";
  dialogues.paths = {folder / "deg.dbf", ""};
  Lance(DBase);
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("This is the distribution that is open")) << Boites()[0];
}

// --- notices ---------------------------------------------------------------------------------

class FilteredDatabaseExport : public FolderExport {
 protected:
  FilteredDatabaseExport() {
    state.ExportPeriod = 1;
    for (int i = 0; i < 3245; ++i) Ajoute(Ligne(i < 12 ? 2 : 1));
  }
};

TEST_F(FilteredDatabaseExport, SaysHowManyRowsWereWrittenAndReadBack) {
  const std::pair<int, const char*> notices[] = {
      {0, "3\u202F245 lignes écrites et relues"},
      {1000, "3,245 rows written and read back"},
      {3000, "3.245 Zeilen geschrieben und zurückgelesen"},
      {4000, "3.245 righe scritte e rilette"},
      {5000, "3.245 rijen geschreven en teruggelezen"}};
  for (const auto& [langue, notice] : notices) {
    state.Langue = static_cast<std::int16_t>(langue);
    for (const std::string& name : folder.Noms()) std::filesystem::remove(folder / name);
    Exporte();
    EXPECT_EQ(Avis(), notice);
  }
}

TEST_F(FilteredDatabaseExport, WritesTheRowsShownAndSaysSo) {
  state.document.MontreLignes(RowsShown::Filtrees("PERIOD = 2"));
  EXPECT_EQ(Exporte().rows.size(), 12U);
  EXPECT_EQ(Avis(), "12 of 3,245 rows written and read back");
}

TEST_F(FilteredDatabaseExport, ShowsTheWorkAndPutsEverythingBack) {
  Exporte();
  EXPECT_EQ(vue.sabliers, (std::vector<bool>{true, false, true, false}));
  ASSERT_GT(vue.progression.size(), 10U);
  EXPECT_EQ(*(vue.progression.end() - 2), 100);
  EXPECT_FALSE(vue.barre);
}

// Who looks at what the command left finds it, whoever wrote it.
TEST_F(FilteredDatabaseExport, WhoGivesUpTheReadingKeepsTheFile) {
  rules.avantLecture = [this] { vue.abandonDans = 2; };
  ExporteVers(DBase, folder / "deg.dbf");
  EXPECT_EQ(Avis(), "3,245 rows written, not read back");
  EXPECT_EQ(folder.Noms(), (Texts{"deg.dbf", "deg.dbt"}));
  EXPECT_TRUE(dialogues.boxes.empty());
}

}  // namespace
}  // namespace talpena::test

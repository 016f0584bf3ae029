// Every target in its genuine format: what goes out comes back, and other programs read it.
#include <map>

#include "formats.h"
#include "interchange/database_fixture.h"
#include "platform/foreign/command_output.h"

namespace talpena::test {
namespace {

struct TargetCase {
  const char* name;
  Target target;
  const char* chosen;
  Texts files;  ///< that are written
};

const std::vector<TargetCase>& Cibles() {
  static const std::vector<TargetCase> targets = {
      {"Access", Access, "deg.mdb", {"deg.mdb"}},
      {"FoxPro", FoxPro, "deg.dbf", {"deg.dbf", "deg.fpt"}},
      {"dBase", DBase, "deg.dbf", {"deg.dbf", "deg.dbt"}},
      {"Paradox", Paradox, "deg.db", {"deg.db", "deg.mb"}},
      {"Excel", Excel, "deg.xls", {"deg.xls"}},
      {"GeoPackage", GeoPackageFile, "deg.gpkg", {"deg.gpkg"}},
      {"workbook", Workbook, "deg.xlsx", {"deg.xlsx"}},
  };
  return targets;
}

class EveryTarget : public DatabaseExportTest {
 protected:
  EveryTarget() {
    Prend(TousLesFormats());
    state.ExportPeriod = state.ExportLatitude = state.ExportLongitude = state.ExportNumber1 =
        state.ExportNumber2 = state.ExportEllipsoid = state.ExportOriginalCoord = state.ExportDate =
            state.ExportSex = state.ExportFreeField = 1;
  }

  void Vide() {
    dialogues.boxes.clear();
    for (const std::string& name : folder.Noms()) std::filesystem::remove_all(folder / name);
  }
  ReadTable Lit(const TargetCase& c) {
    return LitTable(*makers, folder / c.chosen, CibleBase(c.target).connect);
  }
  ReadTable Exporte(const TargetCase& c) {
    ExporteVers(c.target, folder / c.chosen);
    return Lit(c);
  }
  void Memo(const std::string& comment) {
    Edition edition(state.document, "Test");
    edition.Entete().Commentaire = comment;
    edition.Valide();
  }
};

/// Rows with what formats stumble over.
std::vector<Rangee> LignesDifficiles() {
  std::vector<Rangee> rows;
  for (int i = 0; i < 40; ++i) {
    const float latitude = -89.99999F + static_cast<float>(i) * 4.61803F;
    rows.push_back({.period = i % 10,
                    .latitude = latitude,
                    .longitude = 179.99998F - static_cast<float>(i) * 9.13131F,
                    .n1 = 2147483647 - i,
                    .n2 = -2147483648LL + i,
                    .sex = i % 2 == 0 ? "M" : "é",
                    .datum = "WGS84",
                    .original = i == 0 ? std::string(24, 'x') : "0012",
                    .date = i == 1 ? "2011/07/04" : "1E5",
                    .comment = i == 2 ? std::string(150, 'z') : "€ œ 'a' \"b\" ; - = 5/3"});
  }
  rows.push_back({});
  return rows;
}

TEST_F(EveryTarget, GivesEveryValueBack) {
  for (const Rangee& row : LignesDifficiles()) Ajoute(row);
  Memo("first line\nsecond line with € and œ");
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    const ReadTable table = Exporte(c);
    EXPECT_EQ(Boites(), Texts{});
    EXPECT_EQ(Avis(), "41 rows written and read back");
    EXPECT_EQ(folder.Noms(), c.files);
    EXPECT_EQ(table.name, Majuscules(table.name) == "DEG" ? table.name : "deg");
    EXPECT_EQ(table.rows.size(), 41U);
    Vide();
  }
}

TEST_F(EveryTarget, WithXAndYToo) {
  state.ExportCoordSystem = 7;
  Rangee row = Ligne();
  row.latitude = 50.1;
  row.longitude = 4.5;
  Ajoute(row);
  row.datum.reset();
  Ajoute(row);
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    const ReadTable table = Exporte(c);
    EXPECT_EQ(Boites(), Texts{});
    EXPECT_EQ(table.rows[0][0], "159391");
    EXPECT_EQ(table.rows[0][1], "87651");
    EXPECT_EQ(table.rows[1][0] + table.rows[1][1], "00");
    Vide();
  }
}

TEST_F(EveryTarget, WritesMemoAloneForEachRowWithNoColumnOn) {
  SansColonnes();
  AjouteToutes(Ligne(1), Ligne(2));
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    const ReadTable table = Exporte(c);
    EXPECT_EQ(Boites(), Texts{});
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(table.rows[1][0], "Moles / of Mons");
    EXPECT_EQ(table.fields.size(), c.target == GeoPackageFile ? 2U : 1U);
    Vide();
  }
}

TEST_F(EveryTarget, MakesATableWithoutRowsOfAnEmptyOne) {
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    EXPECT_TRUE(Exporte(c).rows.empty());
    EXPECT_EQ(Boites(), Texts{});
    EXPECT_EQ(Avis(), "0 rows written and read back");
    Vide();
  }
}

TEST_F(EveryTarget, KeepsTheSignOfASouthernLatitudeAndZeroForNone) {
  SansColonnes();
  state.ExportLatitude = 1;
  Rangee row = Ligne();
  row.latitude = -12.5;
  Ajoute(row);
  row.latitude.reset();
  Ajoute(row);
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    const ReadTable table = Exporte(c);
    EXPECT_EQ(Val(table.rows[0][0]), -12.5);
    if (c.target <= Excel) {
      EXPECT_EQ(Val(table.rows[1][0]), 0);
    } else {
      EXPECT_EQ(table.rows[1][0], "(null)") << "who reads headings sees that there is none";
    }
    Vide();
  }
}

TEST_F(EveryTarget, YesReplacesAFormerExportAndLeavesNothingBesides) {
  Ajoute(Ligne());
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    Exporte(c);
    Ajoute(Ligne());
    dialogues.answers = {Answer::Yes};
    const ReadTable table = Exporte(c);
    EXPECT_EQ(dialogues.boxes.size(), 1U);
    EXPECT_EQ(table.rows.size(), static_cast<std::size_t>(NombreLignes()));
    EXPECT_EQ(folder.Noms(), c.files);
    Vide();
  }
}

TEST_F(EveryTarget, ARowThatDoesNotFitLeavesTheRowsBefore) {
  Ajoute(Ligne());
  Rangee row = Ligne();
  row.period = 10;
  Ajoute(row);
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    const ReadTable table = Exporte(c);
    if (c.target <= Excel) {
      EXPECT_EQ(Boites(), Texts{"Error 3163\nRow 2: Period (A text is longer than its column; "
                                "shorten it.)\nThe file holds the rows before this one."});
      EXPECT_EQ(table.rows.size(), 1U);
    } else {
      EXPECT_EQ(Boites(), Texts{});
    }
    EXPECT_EQ(folder.Noms(), c.files);
    Vide();
  }
}

TEST_F(EveryTarget, ACharacterThatTheFormatLacksLeavesTheRowsBefore) {
  Ajoute(Ligne());
  Rangee row = Ligne();
  row.comment = "L\u00F3d\u017A";
  Ajoute(row);
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    const ReadTable table = Exporte(c);
    if (c.target != Access && c.target <= Excel) {
      ASSERT_EQ(Boites().size(), 1U);
      EXPECT_TRUE(Boites()[0].starts_with("Error 481\nRow 2: Free text (")) << Boites()[0];
      EXPECT_TRUE(Boites()[0].ends_with("\nThe file holds the rows before this one."))
          << Boites()[0];
      EXPECT_EQ(table.rows.size(), 1U);
    } else {
      EXPECT_EQ(Boites(), Texts{});
    }
    Vide();
  }
}

TEST_F(EveryTarget, KeepsALongMemoButInASheetOfExcel) {
  Memo(std::string(20000, 'x'));
  AjouteToutes(Ligne(), Ligne(), Ligne());
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    const ReadTable table = Exporte(c);
    const std::size_t memo = table.fields.size() - (c.target == GeoPackageFile ? 2 : 1);
    EXPECT_EQ(table.rows[2][memo].size(), c.target == Excel ? 255U : 20008U);
    EXPECT_EQ(Avis(), "3 rows written and read back");
    EXPECT_EQ(Boites(),
              c.target == Excel
                  ? Texts{"The title and the comment of the file are too long for a cell of "
                          "this format; the column of them holds the first 255 characters."}
                  : Texts{});
    Vide();
  }
}

TEST_F(EveryTarget, WhoGivesUpGetsNothing) {
  for (int i = 0; i < 1000; ++i) Ajoute(Ligne());
  for (const TargetCase& c : Cibles()) {
    SCOPED_TRACE(c.name);
    vue.abandonDans = 3;
    ExporteVers(c.target, folder / c.chosen);
    EXPECT_EQ(Boites(), Texts{});
    EXPECT_EQ(Avis(), "No file was written.");
    EXPECT_TRUE(folder.Noms().empty());
  }
}

TEST_F(EveryTarget, ASheetThatIsFullTellsTheRowsThatDidNotFit) {
  SansColonnes();
  Memo("");
  for (int i = 0; i < 16385; ++i) Ajoute({.period = 1});
  const ReadTable table = Exporte(Cibles()[Excel]);
  EXPECT_EQ(table.rows.size(), 16383U);
  EXPECT_EQ(Boites(), Texts{"Error 3437\nA sheet of this format holds no more rows; 2 rows did not "
                            "fit, and those before them are in the file."});
}

// --- names -----------------------------------------------------------------------------------

TEST_F(EveryTarget, HasTheNamesOfItsFormat) {
  state.ExportCoordSystem = 7;
  Ajoute(Ligne());
  const Texts given = {"X",        "y",         "Period",    "Latitude",  "Longitude",
                       "Number 1", "Number 2",  "Ellipsoid", "Orig Coor", "Date",
                       "Sex",      "Free text", "Memo"};
  const Texts capitals = {"X",        "Y",         "PERIOD",    "LATITUDE",  "LONGITUDE",
                          "NUMBER_1", "NUMBER_2",  "ELLIPSOID", "ORIG_COOR", "DATE",
                          "SEX",      "FREE_TEXT", "MEMO"};
  for (const TargetCase& c : Cibles()) {
    if (c.target > Excel) continue;
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Exporte(c).Noms(), c.target == FoxPro || c.target == DBase ? capitals : given);
    Vide();
  }
}

TEST_F(EveryTarget, AWorkbookHasTheHeadingsOfTheGrid) {
  state.LabelNumeric1 = state.LabelNumeric2 = "Bees";
  state.Langue = 0;
  Ajoute(Ligne());
  const ReadTable table = Exporte(Cibles()[Workbook]);
  EXPECT_EQ(table.Noms(), (Texts{"Numéro de période", "Latitude", "Longitude", "Bees", "Bees_2",
                                 "Datum", "Coordonnées originales", "Date", "Sex", "Commentaires",
                                 "Titre et commentaire"}));
}

TEST_F(EveryTarget, TheBlanksOfAnEmptyColumnAreNoTextToReadersOfHeadings) {
  auto row = Ligne();
  row.datum = std::string(5, ' ');
  row.original = std::string(24, ' ');
  Ajoute(row);
  const ReadTable places = Exporte(Cibles()[GeoPackageFile]);
  EXPECT_EQ(places.rows[0][5], "");
  EXPECT_EQ(places.rows[0][6], "");
  const ReadTable sheet = Exporte(Cibles()[Workbook]);
  EXPECT_EQ(sheet.rows[0][5], "(null)") << "a cell without a value";
  EXPECT_EQ(sheet.rows[0][6], "(null)");
  EXPECT_EQ(Boites(), Texts{});
}

// --- files of its own making in other programs ------------------------------------------------

TEST_F(EveryTarget, OpensInAnUnrelatedReader) {
  if (!Sortie("command -v ogrinfo")) GTEST_SKIP() << "the tools of GDAL are not installed";
  for (const Rangee& row : LignesDifficiles()) Ajoute(row);
  const std::map<Target, std::string> layers = {
      {FoxPro, "deg"}, {DBase, "deg"}, {Excel, ""}, {GeoPackageFile, "deg"}, {Workbook, "deg"}};
  for (const TargetCase& c : Cibles()) {
    const auto layer = layers.find(c.target);
    if (layer == layers.end() || layer->second.empty()) continue;
    SCOPED_TRACE(c.name);
    ExporteVers(c.target, folder / c.chosen);
    const auto told =
        Sortie("ogrinfo -so '" + (folder / c.chosen) + "' " + layer->second + " 2>&1");
    ASSERT_TRUE(told);
    EXPECT_NE(told->find("Feature Count: 41"), std::string::npos) << *told;
    EXPECT_EQ(told->find("Warning"), std::string::npos) << *told;
    EXPECT_EQ(told->find("ERROR"), std::string::npos) << *told;
    Vide();
  }
}

}  // namespace
}  // namespace talpena::test

// Database exports that fail: the rows before stay, or everything is as it was.
#include <new>

#include "common/grouped_number.h"
#include "common/msg_id_errors.h"
#include "fakes/file_limit.h"
#include "interchange/database_fixture.h"

namespace talpena::test {
namespace {

const std::string until = "\nThe file holds the rows before this one.";

class DatabaseFailure : public DatabaseExportTest {
 protected:
  DatabaseFailure() {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(std::make_unique<FakeMaker>(rules));
    formats.push_back(CreeFormatJet());
    Prend(std::move(formats));
    state.ExportPeriod = state.ExportOriginalCoord = state.ExportFreeField = 1;
  }

  /// Rows in the file of the folder target.
  std::size_t Ecrites() { return LitTable(*makers, folder / "deg.dbf", dBaseConnect).rows.size(); }
  void Exporte() { ExporteVers(DBase, folder / "deg.dbf"); }

  MakerRules rules{.connect = dBaseConnect, .endings = {".dbf", ".dbt"}};
};

struct TooLongCase {
  const char* column;
  void (*allonge)(Rangee& row);
};

// clang-format off
constexpr TooLongCase tooLong[] = {
    {"Period",    [](Rangee& r) { r.period = 10; }},
    {"Free text", [](Rangee& r) { r.comment = std::string(151, 'x'); }},
};
// clang-format on

TEST_F(DatabaseFailure, AValueThatIsTooLongEndsItBehindTheRowsBefore) {
  state.Silence = false;
  Ajoute(Ligne());
  Ajoute(Ligne());
  for (const TooLongCase& c : tooLong) {
    SCOPED_TRACE(c.column);
    Rangee row = Ligne();
    c.allonge(row);
    Ajoute(row);
    Ajoute(Ligne());
    dialogues.boxes.clear();
    sound.bips = 0;
    for (const std::string& name : folder.Noms()) std::filesystem::remove(folder / name);
    Exporte();
    EXPECT_EQ(Boites(), Texts{"Error 3163\nRow 3: " + std::string(c.column) +
                              " (A text is longer than its column; shorten it.)" + until});
    EXPECT_EQ(sound.bips, 1);
    EXPECT_EQ(Ecrites(), 2U);
    EXPECT_FALSE(vue.sablier);
    EXPECT_FALSE(vue.barre);
    EXPECT_EQ(Avis(), "");
    state.document.WorkingDb->Execute("DELETE FROM TALPENA WHERE Counter > 2");
    Relit();
  }
}

// The table allows 24 characters, as the format does; 150 characters go in, whatever their bytes.
TEST_F(DatabaseFailure, SizesCountCharacters) {
  Rangee row = Ligne();
  row.original = std::string("é") + std::string(23, 'x');
  row.comment.emplace();
  for (int i = 0; i < 150; ++i) *row.comment += "é";
  Ajoute(row);
  Exporte();
  EXPECT_EQ(Avis(), "1 rows written and read back");
}

TEST_F(DatabaseFailure, ACharacterThatTheFormatLacksIsNamedWithItsRowAndColumn) {
  Ajoute(Ligne());
  Rangee row = Ligne();
  row.comment = "L\u00F3d\u017A";
  Ajoute(row);
  rules.avantLigne = [](std::int64_t n) {
    if (n == 2) throw TalpenaError(ErrorNumber::NotInCodePage, "not there", {});
  };
  Exporte();
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("Error 481\nRow 2: Free text (")) << Boites()[0];
  EXPECT_TRUE(Boites()[0].ends_with(until)) << Boites()[0];
  EXPECT_EQ(Ecrites(), 1U);
}

TEST_F(DatabaseFailure, OfARowWithoutAColumnNamesTheRow) {
  Ajoute(Ligne());
  rules.avantLigne = [](std::int64_t) {
    throw TalpenaError(ErrorNumber::RecordTooLarge, "Record is too large.", {});
  };
  Exporte();
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("Error 3047\nRow 1: The values of a row are too long"))
      << Boites()[0];
}

// Beyond the pole the projection has no value.
TEST_F(DatabaseFailure, OfXAndYNamesTheRow) {
  state.ExportCoordSystem = 7;
  Rangee row = Ligne();
  row.latitude = 91;
  row.datum = "BEL72";
  Ajoute(Ligne());
  Ajoute(row);
  Exporte();
  EXPECT_EQ(Boites(), Texts{"Error 5\nRow 2: X, Y (Nothing can be computed from this value; check "
                            "the numbers and the coordinates.)" +
                            until});
  EXPECT_EQ(Ecrites(), 1U);
}

TEST_F(DatabaseFailure, AFaultyRowReplacesTheFormerTableByTheRowsUntilThere) {
  EcritFichier(folder / "deg.dbf", "former");
  dialogues.answers = {Answer::Yes};
  Ajoute(Ligne());
  Rangee row = Ligne();
  row.period = 10;
  Ajoute(row);
  Exporte();
  EXPECT_EQ(dialogues.boxes.size(), 2U);
  EXPECT_EQ(Ecrites(), 1U);
}

struct PlaceCase {
  const char* name;
  int number;
  const char* words;
};

// clang-format off
constexpr PlaceCase placeCases[] = {
    {"a medium that is gone", ErrorNumber::DeviceFault,
     "The disk or the device cannot be read or written; check it and try again."},
    {"a full disk", ErrorNumber::DiskFull, "The disk is full; make room on it and try again."},
};
// clang-format on

TEST_F(DatabaseFailure, OfTheDiskBehindSomeRowsKeepsThemAndSaysSo) {
  AjouteToutes(Ligne(), Ligne(), Ligne());
  for (const PlaceCase& c : placeCases) {
    dialogues.boxes.clear();
    for (const std::string& name : folder.Noms()) std::filesystem::remove(folder / name);
    rules.avantLigne = [&](std::int64_t n) {
      if (n == 3) throw TalpenaError(c.number, c.name, {});
    };
    Exporte();
    EXPECT_EQ(Boites(), Texts{"Error " + std::to_string(c.number) + "\n" + c.words +
                              "\nThe file holds the first 2 of 3 rows."});
    EXPECT_EQ(Ecrites(), 2U);
    EXPECT_EQ(folder.Noms(), (Texts{"deg.dbf", "deg.dbt"}));
  }
}

TEST_F(DatabaseFailure, OfTheDiskTellsNoNumberWhereTheFileCannotBeReadEither) {
  AjouteToutes(Ligne(), Ligne());
  const auto echoue = [] { throw TalpenaError(ErrorNumber::DeviceFault, "gone", {}); };
  rules.avantLigne = [&](std::int64_t n) {
    if (n == 2) echoue();
  };
  rules.avantLecture = echoue;
  Exporte();
  rules.avantLecture = {};
  EXPECT_EQ(Boites(), Texts{std::string("Error 57\n") + placeCases[0].words +
                            "\nThe file holds the rows that were written until then."});
  EXPECT_EQ(Ecrites(), 1U);
}

TEST_F(DatabaseFailure, OfTheDiskBeforeTheFirstRowLeavesNoFile) {
  Ajoute(Ligne());
  rules.avantLigne = [](std::int64_t) { throw TalpenaError(ErrorNumber::DiskFull, "full", {}); };
  Exporte();
  EXPECT_EQ(Boites(),
            Texts{std::string("Error 61\n") + placeCases[1].words + "\nNo file was written."});
  EXPECT_TRUE(folder.Noms().empty());
}

TEST_F(DatabaseFailure, OfTheDiskKeepsAFormerTable) {
  AjouteToutes(Ligne(), Ligne(), Ligne());
  for (const PlaceCase& c : placeCases) {
    dialogues.boxes.clear();
    EcritFichier(folder / "deg.dbf", "former");
    EcritFichier(folder / "deg.dbt", "its memos");
    dialogues.answers = {Answer::Yes};
    rules.avantLigne = [&](std::int64_t n) {
      if (n == 3) throw TalpenaError(c.number, c.name, {});
    };
    Exporte();
    ASSERT_EQ(Boites().size(), 2U);
    EXPECT_EQ(Boites()[1], "Error " + std::to_string(c.number) + "\n" + c.words +
                               "\nThe former file stands unchanged.");
    EXPECT_EQ(LitFichier(folder / "deg.dbf"), "former");
    EXPECT_EQ(LitFichier(folder / "deg.dbt"), "its memos");
    EXPECT_EQ(folder.Noms(), (Texts{"deg.dbf", "deg.dbt"}));
  }
}

// The limit of a format is no fault of the disk.
TEST_F(DatabaseFailure, OfTheFormatReplacesTheFormerTableByTheRowsUntilThere) {
  AjouteToutes(Ligne(), Ligne());
  EcritFichier(folder / "deg.dbf", "former");
  dialogues.answers = {Answer::Yes};
  rules.avantLigne = [](std::int64_t n) {
    if (n == 2) {
      throw TalpenaError(ErrorNumber::InvalidArgument, "full", {.text = MsgId::FichierAccessPlein});
    }
  };
  Exporte();
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_EQ(Boites()[1],
            "Error 3001\nThe file has reached the 2 GB that its format allows; the "
            "rows up to here are in it.");
  EXPECT_EQ(Ecrites(), 1U);
}

TEST_F(DatabaseFailure, BeforeThereIsATableLeavesEverythingAsItWas) {
  Ajoute(Ligne());
  rules.avantTable = [] {
    throw TalpenaError(ErrorNumber::InvalidName, "no name", {.about = {"deg"}});
  };
  EcritFichier(folder / "deg.dbf", "former");
  EcritFichier(folder / "deg.dbt", "its memos");
  dialogues.answers = {Answer::Yes};
  Exporte();
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_TRUE(Boites()[1].starts_with("Error 3125\n“deg” cannot be the name of a table"));
  EXPECT_TRUE(Boites()[1].ends_with("\nThe former file stands unchanged.")) << Boites()[1];
  EXPECT_EQ(LitFichier(folder / "deg.dbf"), "former");
  EXPECT_EQ(LitFichier(folder / "deg.dbt"), "its memos");
  EXPECT_EQ(folder.Noms(), (Texts{"deg.dbf", "deg.dbt"}));
}

TEST_F(DatabaseFailure, WhoGivesUpKeepsTheFormerTable) {
  EcritFichier(folder / "deg.dbf", "former");
  dialogues.answers = {Answer::Yes};
  for (int i = 0; i < 1000; ++i) Ajoute(Ligne());
  vue.abandonDans = 3;
  Exporte();
  EXPECT_EQ(LitFichier(folder / "deg.dbf"), "former");
  EXPECT_EQ(dialogues.boxes.size(), 1U) << "the question alone";
  EXPECT_EQ(Avis(), "The former file stands unchanged.");
  EXPECT_EQ(folder.Noms(), Texts{"deg.dbf"});
  EXPECT_FALSE(vue.sablier);
}

TEST_F(DatabaseFailure, WhoGivesUpANewTableGetsNone) {
  for (int i = 0; i < 1000; ++i) Ajoute(Ligne());
  vue.abandonDans = 3;
  Exporte();
  EXPECT_EQ(Avis(), "No file was written.");
  EXPECT_TRUE(folder.Noms().empty());
}

TEST_F(DatabaseFailure, AFolderThatIsNotThereIsNamed) {
  ExporteVers(DBase, folder / "none/deg.dbf");
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("Error 76\n")) << Boites()[0];
}

TEST_F(DatabaseFailure, AFolderOfThatNameStands) {
  std::filesystem::create_directory(folder / "deg.dbf");
  Exporte();
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("Error 3010\n")) << Boites()[0];
  EXPECT_EQ(folder.Noms(), Texts{"deg.dbf"});
}

TEST_F(DatabaseFailure, AFormatThatIsNotThereIsToldAndWritesNothing) {
  ExporteVers(Paradox, folder / "deg.db");
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Boites()[0].starts_with("Error 3251\n")) << Boites()[0];
  EXPECT_TRUE(folder.Noms().empty());
}

TEST_F(DatabaseFailure, ATargetThatThereIsNotAsksForNothing) {
  for (const int index : {-1, 7}) {
    dialogues.boxes.clear();
    Lance(index);
    EXPECT_EQ(Boites().size(), 1U);
    EXPECT_EQ(options, 0);
  }
}

TEST_F(DatabaseFailure, OfMemoryLeavesTheFormerTable) {
  EcritFichier(folder / "deg.dbf", "former");
  dialogues.answers = {Answer::Yes};
  Ajoute(Ligne());
  rules.avantLigne = [](std::int64_t) { throw std::bad_alloc(); };
  EXPECT_THROW(Exporte(), std::bad_alloc);
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(folder.Noms(), Texts{"deg.dbf"});
  EXPECT_FALSE(vue.sablier);
}

// --- Access, as the one that is a file -------------------------------------------------------

TEST_F(DatabaseFailure, ANameThatAccessRefusesIsToldBeforeAnythingIsWritten) {
  const std::string file = folder / (std::string(65, 'x') + ".mdb");
  EcritFichier(file, "former");
  dialogues.answers = {Answer::Yes};
  Ajoute(Ligne());
  ExporteVers(Access, file);
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_TRUE(Boites()[1].starts_with("Error 3125\n")) << Boites()[1];
  EXPECT_EQ(LitFichier(file), "former");
  for (const char* name : {"a!b.mdb", "a`b.mdb", "a[b.mdb", "a]b.mdb", " ab.mdb", ".mdb"}) {
    dialogues.boxes.clear();
    ExporteVers(Access, folder / name);
    EXPECT_TRUE(Boites().at(0).starts_with("Error 3125\n")) << name << Boites()[0];
  }
  EXPECT_EQ(folder.Noms().size(), 1U);
}

TEST_F(DatabaseFailure, YesReplacesAnAccessFileAndALinkToItStays) {
  EcritFichier(folder / "real.mdb", "former");
  std::filesystem::create_symlink(folder / "real.mdb", folder / "deg.mdb");
  Ajoute(Ligne());
  dialogues.answers = {Answer::Yes};
  ExporteVers(Access, folder / "deg.mdb");
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(Avis(), "1 rows written and read back");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "deg.mdb"));
  EXPECT_EQ(LitTable(*makers, folder / "real.mdb", "").name, "deg");
}

TEST_F(DatabaseFailure, ADiskThatIsTooSmallForAnAccessFileLeavesTheFormerOne) {
  EcritFichier(folder / "deg.mdb", "former");
  Ajoute(Ligne());
  dialogues.answers = {Answer::Yes};
  {
    const FileLimit full(20000);
    ExporteVers(Access, folder / "deg.mdb");
  }
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_EQ(Boites()[1], "Error 61\nThe disk is full; make room on it and try again.\n" +
                             (folder / "deg.mdb") + "\nThe former file stands unchanged.");
  EXPECT_EQ(LitFichier(folder / "deg.mdb"), "former");
  EXPECT_EQ(folder.Noms(), Texts{"deg.mdb"});
}

TEST_F(DatabaseFailure, ADiskThatFillsLeavesAnAccessFileWithTheRowsUntilThen) {
  SansColonnes();
  state.ExportNumber1 = 1;
  for (int i = 0; i < 3000; ++i) Ajoute(Ligne());
  {
    const FileLimit full(200000);
    ExporteVers(Access, folder / "deg.mdb");
  }
  ASSERT_EQ(Boites().size(), 1U);
  const std::size_t rows = LitTable(*makers, folder / "deg.mdb", "").rows.size();
  EXPECT_EQ(Boites()[0], "Error 61\nThe disk is full; make room on it and try again.\n" +
                             (folder / "deg.mdb") + "\nThe file holds the first " +
                             NombreGroupe(state.Langue, static_cast<std::int64_t>(rows)) +
                             " of 3,000 rows.");
  EXPECT_GT(rows, 500U);
}

}  // namespace
}  // namespace talpena::test

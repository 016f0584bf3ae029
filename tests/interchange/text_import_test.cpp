// The import of text files into the table.
#include "interchange/text_import.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <utility>

#include "common/msg_id.h"
#include "interchange/import_end.h"
#include "platform/os/file_system.h"
#include "store/coords_world.h"

namespace talpena {
namespace {

using test::Lines;

/// An open file of one row, and a list beside it.
class TextImport : public ::testing::Test, protected test::CoordsWorld {
 protected:
  TextImport() {
    state.UtmAjust = 3;
    state.GridAjust = 2;
    state.DatumSpherique = state.DatumUtm = state.Catalogue.DatumWgs84;
    Montre({{"WGS84", "deg 10.5 20.5", "10.5", "20.5"}});
  }

  ImportContext Import() { return {Contexte(), interchange, vue}; }

  void Importe(const std::string& bytes, std::int16_t type = 0) {
    files.Pose("/data/list.txt", bytes);
    interchange.FichierImportation = "/data/list.txt";
    ImportCoord(Import(), type);
  }

  std::int64_t Nombre() { return static_cast<std::int64_t>(Lignes().size()); }
  bool Modifie() const { return state.document.FichierModifie(); }
  const std::string& Avis() const { return state.document.Montre().avis; }
  /// ORIGINAL of the rows chosen in the grid.
  Lines Choisies() {
    Lines texts;
    const auto rows = state.document.Data1.Clone();
    for (const Bookmark row : vue.selection) {
      rows->SetBookmark(row);
      texts.push_back(rows->Get(Column::ORIGINAL).Texte());
    }
    return texts;
  }

  InterchangeState interchange;
};

const std::string threeRows =
    "1,50.5,4.25,7,8,1990/05/01,Nivelles\r\n"
    "2,-1.5,-30.125,0,0,,\r\n"
    "* a remark\r\n"
    "3,0,0,1,1,x,\"a, b\"\r\n";

TEST_F(TextImport, AppendsRowsAndComputesThePointsOfTheWholeTable) {
  Importe(threeRows);
  EXPECT_EQ(Lignes(), (Lines{"-|10.5|20.5|-|-|-|WGS84|deg 10.5 20.5|-|-",
                             "1|50.5|4.25|7|8|-|WGS84|deg +50.50000 +004.25000|1990/05/01|Nivelles",
                             "2|-1.5|-30.125|0|0|-|WGS84|deg -01.50000 -030.12500||",
                             "3|0|0|1|1|-|WGS84|deg +00.00000 +000.00000|x|a, b"}));
  EXPECT_TRUE(Modifie());
  EXPECT_EQ(interchange.Variable, "1");
  EXPECT_EQ(state.UtmAjust, 0);
  EXPECT_EQ(state.GridAjust, 0);
  EXPECT_EQ(files.ouverts, 0);
  EXPECT_FALSE(vue.sablier);
}

TEST_F(TextImport, SnappedPointsOfRowsBeforeGoBack) {
  Montre({{"WGS84", "deg 1.25 2.25", "1.5", "2.5"}});
  Importe(threeRows);
  EXPECT_EQ(Points()[1], "1.25 2.25");
}

TEST_F(TextImport, TwiceGivesTheRowsTwice) {
  Importe(threeRows);
  Importe(threeRows);
  EXPECT_EQ(Nombre(), 7);
}

TEST_F(TextImport, NothingHappensWithoutAFile) {
  ImportCoord(Import(), 0);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_FALSE(Modifie());
  EXPECT_EQ(interchange.Variable, "");
  EXPECT_EQ(state.UtmAjust, 3);
  EXPECT_TRUE(vue.sabliers.empty());
}

TEST_F(TextImport, TellsAddedDroppedAndThoseWithoutAPoint) {
  Importe("1,31ufs1234,1,1,d,c\r\n1,31u,1,1,d,c\r\n1,9UXA12,1,1,d,c\r\n", 3);
  EXPECT_EQ(Nombre(), 3);
  EXPECT_EQ(Avis(), "Import: 2 rows added, 1 dropped, 1 without a point");
  EXPECT_EQ(Points()[2], "- -");
}

// Old editors end a file so; a list that goes on behind it has lost rows.
TEST_F(TextImport, TellsThatMoreStandsBehindAnEndMark) {
  state.Langue = 1000;
  Importe("1,50,4,1,0,,a\r\n1,51,4,1,0,,b\x1A\r\n1,52,4,1,0,,c\r\n");
  EXPECT_EQ(Nombre(), 3);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_TRUE(dialogues.boxes[0].text.starts_with("An end-of-file character (1A) stands in line 2"))
      << dialogues.boxes[0].text;
  EXPECT_TRUE(Avis().ends_with(dialogues.boxes[0].text)) << Avis();
}

TEST_F(TextImport, SaysNothingOfAnEndMarkBehindTheList) {
  Importe("1,50,4,1,0,,a\r\n\x1A\x1A \r\n");
  EXPECT_EQ(Nombre(), 2);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(TextImport, PointsBeyondTheGlobeHaveNoBox) {
  Importe("1,95,4,0,0,d,c\r\n");
  EXPECT_EQ(Avis(), "Import: 1 rows added, 0 dropped, 1 without a point");
}

TEST_F(TextImport, TheNewRowsAreChosenInTheGridAndTheFirstIsTheCurrentOne) {
  Importe(threeRows);
  EXPECT_EQ(Choisies(), (Lines{"deg +50.50000 +004.25000", "deg -01.50000 -030.12500",
                               "deg +00.00000 +000.00000"}));
  EXPECT_EQ(state.document.Data1.recordset().AbsolutePosition(), 1);
}

TEST_F(TextImport, StandAtTheEndOfASortedGrid) {
  state.document.Relie(RowsShown::Dans({2, Direction::Ascending}));
  Importe("1,1,4,0,0,d,c\r\n");
  EXPECT_EQ(state.document.Data1.recordset().AbsolutePosition(), 1);
}

TEST_F(TextImport, LiftsAFilterSoThatTheWholeTableIsSeen) {
  Montre({{"WGS84", "deg 1.25 2.25", "1.5", "2.5"}});
  state.document.MontreLignes(RowsShown::Filtrees("LATITUDE > 5"));
  Importe("1,1,4,0,0,d,c\r\n");
  EXPECT_FALSE(state.document.FiltreActif());
  EXPECT_EQ(Points(), (Lines{"10.5 20.5", "1.25 2.25", "1 4"}));
  EXPECT_EQ(Choisies(), (Lines{"deg +01.00000 +004.00000"}));
}

TEST_F(TextImport, LambertFranceArrivesWithTheBelgianDatum) {
  Importe("1,600000,2200000,0,0,d,c\r\n", 10);
  EXPECT_EQ(Lignes()[1].substr(Lignes()[1].find("BEL72")), "BEL72|lf2 600000 2200000|d|c");
}

TEST_F(TextImport, AnMgrsReferenceEntersInUpperCase) {
  Importe("1,31ufs1234,1,1,d,c\r\n", 3);
  EXPECT_NE(Lignes()[1].find("|mgr 31 U FS1234|"), std::string::npos);
}

TEST_F(TextImport, AnUnknownDatumIsToldOnceAndItsRowsHaveNoPoint) {
  state.DatumSpherique = 0;
  state.DatumSpheriqueCode = "QQQ";
  Importe("1,1,4,0,0,d,c\r\n1,2,4,0,0,d,c\r\n");
  EXPECT_EQ(Boites(), (Lines{"This datum is absent from the available datums!\n\nQQQ"}));
  EXPECT_EQ(Points(), (Lines{"10.5 20.5", "- -", "- -"}));
  EXPECT_EQ(Avis(), "Import: 2 rows added, 0 dropped, 2 without a point");
  EXPECT_EQ(state.DatumSpherique, 0) << "no other datum was left behind";
}

TEST_F(TextImport, ATableThatNoFileCouldBeReadIntoTakesRows) {
  state.document.Data1 = DataControl();
  state.document.Data1.Lie(*state.document.WorkingDb);
  Importe(threeRows);
  EXPECT_EQ(Nombre(), 4);
}

// ---- failures

TEST_F(TextImport, AFailureLeavesTheRowsBeforeItWithoutCoordinates) {
  Importe("1,50.5,4.25,7,8,d,c\r\n40000,50.5,4.25,7,8,d,c\r\n1,1,1,1,1,d,c\r\n");
  EXPECT_EQ(Boites(),
            (Lines{"An error occured during importation\rLine 2 of the file: Field 1 holds 40000, "
                   "which is too large for it.\nRows added before it: 1."}));
  EXPECT_EQ(Points(), (Lines{"10.5 20.5", "- -"}));
  EXPECT_FALSE(Modifie());
  EXPECT_EQ(state.UtmAjust, 3);
  EXPECT_EQ(interchange.Variable, "");
  EXPECT_EQ(files.ouverts, 0);
  EXPECT_FALSE(vue.sablier);
  EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
}

TEST_F(TextImport, TheRowsBeforeAFailureAreShownAndChosen) {
  Importe("1,50.5,4.25,7,8,d,c\r\n1,,4.25,7,8,d,c\r\n");
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_EQ(state.document.Data1.recordset().RecordCount(), 2);
  EXPECT_EQ(Choisies(), (Lines{"deg +50.50000 +004.25000"}));
}

TEST_F(TextImport, AFileThatWasModifiedStaysSoBehindAFailure) {
  Importe(threeRows);
  Importe("x");
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_TRUE(Modifie());
  EXPECT_EQ(Avis(), "") << "what the import before said";
}

TEST_F(TextImport, BeepsBeforeTheBoxUnlessSilent) {
  Importe("x");
  EXPECT_EQ(sound.bips, 0);
  state.Silence = false;
  Importe("x");
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(Boites().size(), 2U);
}

struct FailureCase {
  const char* name;
  std::string bytes;
  std::int16_t type;
  const char* description;
};

// clang-format off
const FailureCase failureCases[] = {
    {"no number", "1,abc,4,0,0,d,c", 0, "Line 1 of the file: Field 2 holds “abc”, which is no number."},
    {"nothing", "1,,4,0,0,d,c", 0, "Line 1 of the file: Field 2 is empty; it has to hold a number."},
    {"cut", "1,50,4,0", 0, "Line 1 of the file: The file ends within a record: field 5 is missing.\nEvery line needs exactly the fields of the expected structure: decimals with a point (50.5), texts that hold commas in double quotes, and a comma for each empty field."},
    {"open quote", "1,50,4,0,0,d,\"c", 0, "Line 1 of the file: The double quote that opens field 7 is not closed before the file ends; close it or take it away."},
    {"long date", "\r\n1,50,4,0,0,12 May 1990 at night,c", 0, "Line 2 of the file: The date “12 May 1990 at night” is longer than its column; write it as 1998/07/14."},
    {"long reference", "1,0123456789012345678901234,0,0,d,c", 8, "Line 1 of the file: The original coordinates would be “ifb 0123456789012345678901234”, longer than their column; look for decimal commas or a missing field."},
};
// clang-format on

TEST_F(TextImport, SaysWhatEndedItInWordsOfTheUser) {
  for (const FailureCase& c : failureCases) {
    SCOPED_TRACE(c.name);
    Importe(c.bytes, c.type);
    EXPECT_EQ(Boites(), (Lines{"An error occured during importation\r" +
                               std::string(c.description) + "\nRows added before it: 0."}));
    EXPECT_EQ(Nombre(), 1);
  }
}

TEST_F(TextImport, AFileThatCannotBeOpenedTakesTheSameBox) {
  interchange.FichierImportation = "/data/none.txt";
  ImportCoord(Import(), 0);
  EXPECT_EQ(Boites(), (Lines{"An error occured during importation\rThis file cannot be found; look "
                             "whether it was moved or renamed.\n/data/none.txt\nRows added before "
                             "it: 0."}));
}

TEST_F(TextImport, AFolderAndADeviceTakeTheSameBox) {
  const auto os = CreeSystemeDeFichiers();
  Platform machine{*engine, *os, settings, dialogues, clock, environment, sound};
  const CommandContext c{state, machine, vue, vue, vue};
  for (const std::string& path : {working.path().string(), std::string("/dev/zero")}) {
    interchange.FichierImportation = path;
    ImportCoord({c, interchange, vue}, 0);
    const Lines boxes = Boites();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].find("An error occured during importation\r"), 0U) << boxes[0];
  }
  EXPECT_EQ(Nombre(), 1);
}

/// A window in which another program writes while the import is at work.
class Interrupted final : public test::FakeView {
 public:
  std::function<void()> meanwhile;
  bool EstAbandonne() override {
    if (const auto once = std::exchange(meanwhile, nullptr)) once();
    return false;
  }
};

TEST_F(TextImport, AFileThatIsWrittenMeanwhileEndsTheImportWithWholeRows) {
  const std::string line = "1,50.5,4.25,7,8,1990/05/01,Nivelles\r\n";
  std::string bytes;
  for (int i = 0; i < 12000; ++i) bytes += line;  // more than one block
  files.Pose("/data/list.txt", bytes);
  interchange.FichierImportation = "/data/list.txt";
  Interrupted window;
  window.meanwhile = [&] { files.Pose("/data/list.txt", bytes + line); };
  ImportCoord({{state, io, window, window, window}, interchange, window}, 0);
  const Lines boxes = Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("The file was changed by another program while it was read"),
            std::string::npos)
      << boxes[0];
  const Lines lines = Lignes();
  EXPECT_GT(lines.size(), 1000U);
  EXPECT_LT(lines.size(), 12001U);
  EXPECT_NE(lines.back().find("|1990/05/01|Nivelles"), std::string::npos) << lines.back();
}

TEST_F(TextImport, AFileThatBreaksOffLeavesWholeRows) {
  std::string bytes;
  for (int i = 0; i < 5000; ++i) bytes += "1,50.5,4.25,7,8,1990/05/01,Nivelles\r\n";
  files.lectureJusqua = 100 * 37;
  files.bloc = 4096;
  Importe(bytes);
  const Lines boxes = Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("The disk or the device cannot be read"), std::string::npos) << boxes[0];
  for (const std::string& line : Lignes()) EXPECT_EQ(std::count(line.begin(), line.end(), '|'), 9);
}

TEST_F(TextImport, ATextAboveSixteenMegabytesIsRefused) {
  Importe("1,50.5,4.25,7,8,d,\"" + std::string(std::size_t{20} << 20, 'x') + "\"");
  EXPECT_EQ(Boites(),
            (Lines{"An error occured during importation\rLine 1 of the file: The line is "
                   "longer than 16 MB; this is no list of records.\nRows added before it: "
                   "0."}));
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(TextImport, NulsAndAccentsComeThrough) {
  Importe(std::string("1,50.5,4.25,7,8,d,a\0\xE9\r\n", 23));
  EXPECT_EQ(Lignes()[1].substr(Lignes()[1].rfind('|') + 1), std::string("a\0\xC3\xA9", 4));
}

TEST_F(TextImport, TheUserMayGiveUpAndKeepsWhatWasRead) {
  vue.abandonDans = 3;
  Importe(threeRows);
  EXPECT_EQ(Boites(), (Lines{"The import was ended: the first 2 rows were added, without "
                             "coordinates, and are now selected in the table."}));
  EXPECT_EQ(Points(), (Lines{"10.5 20.5", "- -", "- -"}));
  EXPECT_EQ(Choisies().size(), 2U);
  EXPECT_TRUE(Modifie());
  EXPECT_EQ(interchange.Variable, "");
}

// ---- the menu

TEST_F(TextImport, TheMenuImportsWhatTheDialogAnswers) {
  files.Pose("/data/list.txt", threeRows);
  vue.importation = [&] {
    interchange.TypeImportation = 0;
    interchange.FichierImportation = "/data/list.txt";
    interchange.Variable = "0";
  };
  mnuImport_Click(Import(), 0);
  EXPECT_EQ(Nombre(), 4);
}

TEST_F(TextImport, CancelInTheDialogImportsNothing) {
  files.Pose("/data/list.txt", threeRows);
  interchange.FichierImportation = "/data/list.txt";
  vue.importation = [&] { interchange.Variable = "-1"; };
  mnuImport_Click(Import(), 0);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_FALSE(Modifie());
}

TEST_F(TextImport, OkWithoutAFileImportsNothingAndShowsNothing) {
  vue.importation = [&] { interchange.Variable = "0"; };
  mnuImport_Click(Import(), 0);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_FALSE(Modifie());
  EXPECT_TRUE(dialogues.boxes.empty());
}

// ---- the first three lines

class Preview : public ::testing::Test {
 protected:
  std::string Lit(const std::string& bytes) {
    files.Pose("/list.txt", bytes);
    return TroisPremieresLignes(files, "/list.txt");
  }
  test::FakeFiles files;
};

TEST_F(Preview, JoinsThreeLinesByCr) {
  EXPECT_EQ(Lit("a\r\nb\nc\rd\r\n"), "a\rb\rc");
  EXPECT_EQ(Lit("a\r\n\r\nc"), "a\r\rc");
}

TEST_F(Preview, ASingleLineLeavesTheOthersEmpty) {
  EXPECT_EQ(Lit("a"), "a\r\r");
  EXPECT_EQ(Lit("a\r\n"), "a\r\r");
  EXPECT_EQ(Lit("\r\n"), "\r\r");
}

TEST_F(Preview, CutsALineBehindFiveHundredCharacters) {
  std::string accents, expected;
  for (int i = 0; i < 600; ++i) accents += "\xC3\xA9";
  EXPECT_EQ(Lit(accents + "\r\nb"), accents.substr(0, 1000) + "\rb\r");
  EXPECT_EQ(Lit(std::string(std::size_t{5} << 20, 'x')), std::string(500, 'x') + "\r\r");
}

TEST_F(Preview, ReadsBothKindsOfCharacters) {
  EXPECT_EQ(Lit("\xE9"), "\xC3\xA9\r\r");
  EXPECT_EQ(Lit("\xEF\xBB\xBF\xC3\xA9\r\nb\x1A"), "\xC3\xA9\rb\r");
}

TEST_F(Preview, AnEmptyOrMissingFileFails) {
  for (const char* bytes : {"", "\x1A", "\xEF\xBB\xBF"}) {
    EXPECT_THROW(Lit(bytes), TalpenaError);
  }
  EXPECT_THROW(TroisPremieresLignes(files, "/none.txt"), TalpenaError);
}

}  // namespace
}  // namespace talpena

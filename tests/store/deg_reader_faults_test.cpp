#include "store/deg_reader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "store/deg_files.h"
#include "store/file_commands.h"
#include "store/lit_deg_fixture.h"

namespace talpena {
namespace {

using test::EnTete2;
using test::LitDegTest;
using test::oneField;
using test::Rangee;
using test::RangeeLue;
using Texts = std::vector<std::string>;

// ---- failures

TEST_F(LitDegTest, AHeaderThatBreaksOffKeepsTheModifiedMark) {
  world.Charge(EnTete2() + Rangee("1"));
  test::MarqueModifie(state.document);
  world.Charge("<TALPENA 2.0>\r\nNTF\r\n");
  EXPECT_EQ(world.Boites().size(), 1U);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_TRUE(world.Lignes().empty());
}

TEST_F(LitDegTest, AHeaderThatBreaksOffLeavesNothingOfTheFileBefore) {
  world.Charge(EnTete2() + Rangee("1"));
  EXPECT_NE(state.document.Entete().BoxTitre + state.document.Entete().Commentaire, "");
  world.Charge("<TALPENA 2.0>\r\nNTF\r\n");
  EXPECT_EQ(world.Boites().size(), 1U);
  EXPECT_EQ(state.document.Entete().BoxTitre, "");
  EXPECT_EQ(state.document.Entete().Commentaire, "");
  EXPECT_EQ(world.vue.boxTitre, "");
}

TEST_F(LitDegTest, SaysThatThereIsNoFile) {
  world.Charge(EnTete2() + Rangee("1"));
  test::Entete(state.document)->FreeFieldText = "kept";
  world.vue.calls.clear();
  LitDeg(world.context, "\"/data/f.deg\"", MergeMode::Replace);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, "File not found");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "kept");
  EXPECT_EQ(world.vue.calls, Texts{});
  EXPECT_EQ(world.Lignes().size(), 1U);
}

TEST_F(LitDegTest, SaysWhyAFileCannotBeOpened) {
  world.files.refus["/data/f.deg"] = ErrorNumber::PermissionDenied;
  world.Charge(EnTete2() + Rangee("1"));
  EXPECT_EQ(
      world.Boites(),
      Texts{"Access is refused; the file or the folder may be protected or in use.\n/data/f.deg"});
  EXPECT_EQ(world.Lignes(), Texts{});
  ExpectFerme();
}

std::string SansCr(std::string bytes) {
  bytes.erase(std::remove(bytes.begin(), bytes.end(), '\r'), bytes.end());
  return bytes;
}

TEST_F(LitDegTest, RowsThatEndInLfAloneMakeOneRowAndCanBeOpenedLineByLine) {
  state.document.Fichier.NomFichier = "/data/f.deg";
  world.Charge(EnTete2() + SansCr(Rangee("1") + Rangee("2") + Rangee("3")));
  EXPECT_EQ(world.Lignes().size(), 1U);
  EXPECT_TRUE(state.document.Fichier.FinsLf);
  RouvreEnLf(world.context);
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1"), RangeeLue("2"), RangeeLue("3")}));
  EXPECT_FALSE(state.document.Fichier.FinsLf);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(LitDegTest, AFileOfLfFromItsFirstLineCanBeOpenedLineByLineToo) {
  state.document.Fichier.NomFichier = "/data/f.deg";
  for (const std::size_t remark : {std::size_t{1}, std::size_t{2} << 20}) {
    world.Charge(SansCr(EnTete2() + Rangee("1", std::string(remark, 'x')) + Rangee("2")));
    EXPECT_EQ(world.Boites().size(), 1U);
    EXPECT_TRUE(state.document.Fichier.FinsLf);
    RouvreEnLf(world.context);
    EXPECT_EQ(world.Lignes().size(), 2U);
    EXPECT_FALSE(state.document.Fichier.FinsLf);
  }
}

TEST_F(LitDegTest, LineBreaksInARemarkAreNoReasonToOfferThat) {
  world.Charge(EnTete2() + Rangee("1", "one\ntwo"));
  EXPECT_FALSE(state.document.Fichier.FinsLf);
  world.Charge(EnTete2() + SansCr(Rangee("1") + Rangee("2")));
  EXPECT_TRUE(state.document.Fichier.FinsLf);
  world.Charge(EnTete2() + Rangee("1"));
  EXPECT_FALSE(state.document.Fichier.FinsLf);
}

TEST_F(LitDegTest, TheUserMayGiveUpAndKeepsTheRowsBefore) {
  std::string bytes = EnTete2();
  for (int i = 0; i < 1000; ++i) bytes += Rangee("5");
  world.vue.abandonDans = 400;
  world.files.Pose("/data/f.deg", bytes);
  EXPECT_EQ(LitDeg(world.context, "/data/f.deg", MergeMode::Replace), LoadOutcome::Failed);
  EXPECT_EQ(
      world.Boites(),
      Texts{"Reading was ended: the table holds the first 399 rows of the file, and Save asks "
            "before it replaces it."});
  EXPECT_EQ(world.Lignes().size(), 399U);
  EXPECT_EQ(LignesLiees().size(), 399U);
  EXPECT_TRUE(state.document.Fichier.LecturePartielle);
  ExpectFerme();
}

struct BadFile {
  const char* name;
  std::string bytes;
  const char* message;
};

TEST_F(LitDegTest, SaysWhatIsWrongWithAFileThatIsNone) {
  const std::string lfHint =
      "\nThe lines of this file end in LF alone; those of a .deg file end in CR LF.";
  std::string lfOnly = EnTete2() + Rangee();
  lfOnly.erase(std::remove(lfOnly.begin(), lfOnly.end(), '\r'), lfOnly.end());
  const BadFile badFiles[] = {
      {"empty", "", "The file is empty; choose another one."},
      {"one line", "title",
       "The file ends behind line 1, in its header; it is damaged, or no distribution file."},
      {"header cut", "a\r\nb\r\nc\r\nd\r\n",
       "The file ends behind line 4, in its header; it is damaged, or no distribution file."},
      {"100 MB line", std::string(100 << 20, 'x'),
       "Line 1 of the file is longer than 1 MB; this is no distribution file."},
      {"two items", EnTete2("WGS84", "/\r\na,b\r\n"),
       "Line 4 of the file: The definition of a free field needs a code, a label and a width with "
       "commas between them; this one has not: a,b"},
      {"row too long", EnTete2() + std::string(17 << 20, ' '),
       "Line 9 of the file is longer than 16 MB; this is no distribution file."},
      {"number too large", EnTete2() + "1K    1E39\r\n",
       "Line 9 of the file: A number is too large for its place; correct it."},
  };
  for (const BadFile& bad : badFiles) {
    SCOPED_TRACE(bad.name);
    world.Charge(bad.bytes);
    EXPECT_EQ(world.Boites(), Texts{bad.message});
    ExpectFerme();
  }
  world.Charge(lfOnly);
  EXPECT_EQ(
      world.Boites(),
      Texts{"The file ends behind line 1, in its header; it is damaged, or no distribution file." +
            lfHint});
  world.Charge(EnTete2() + Rangee("5"));
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("5")}) << "the next file opens";
}

TEST_F(LitDegTest, MakesRowsOfZerosOfAFileOfCr) {
  world.Charge("\r\r\r\r\r\r");
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), Texts{"0|0|0|0|0|-|EUR-M|deg  ||"});
}

TEST_F(LitDegTest, ShowsItsFailuresInAPlainBoxAfterABeep) {
  world.Charge("");
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::None);
  EXPECT_EQ(world.dialogues.boxes[0].buttons, Buttons::Ok);
  EXPECT_EQ(world.sound.bips, 1);
  state.Silence = true;
  world.Charge("");
  EXPECT_EQ(world.dialogues.boxes.size(), 2U);
  EXPECT_EQ(world.sound.bips, 1);
}

TEST_F(LitDegTest, KeepsTheRowsBeforeARefusedOne) {
  const std::string noDatum = "2K+ 4.50000-  3.25000    3    72004/07/01F\r\n";
  const std::string noOriginal = "2K+ 4.50000-  3.25000    3    72004/07/01FWGS84\r\n";
  world.Charge(EnTete2() + noDatum + Rangee("1"));
  EXPECT_EQ(world.Boites().size(), 1U);
  EXPECT_EQ(world.Lignes(), Texts{});
  world.Charge(EnTete2() + Rangee("1") + Rangee("2") + noOriginal + Rangee("4"));
  const Texts boxes = world.Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].rfind("Line 11 of the file ends before the original coordinates; ", 0), 0U)
      << boxes[0];
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1"), RangeeLue("2")}));
  EXPECT_EQ(LignesLiees(), world.Lignes()) << "the grid shows what stayed";
  EXPECT_FALSE(state.document.Fichier.EmpreinteFichier.has_value());
  ExpectFerme();
  world.Charge(EnTete2() + Rangee("5"));
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("5")});
}

TEST_F(LitDegTest, KeepsTheRowsBeforeAFaultOfTheDisk) {
  std::string bytes = EnTete2();
  for (int i = 0; i < 10; ++i) bytes += Rangee(std::to_string(i));
  world.files.bloc = 100;
  for (std::size_t end = 0; end < bytes.size(); end += 97) {
    world.files.lectureJusqua = end;
    world.Charge(bytes);
    const Texts boxes = world.Boites();
    ASSERT_EQ(boxes.size(), 1U) << end;
    EXPECT_NE(boxes[0].find("The disk or the device cannot be read"), std::string::npos)
        << boxes[0];
    const std::size_t header = EnTete2().size();
    const std::size_t row = Rangee().size();
    const std::size_t whole = end < header ? 0 : (end - header) / row;
    EXPECT_GE(world.Lignes().size() + 1, whole) << end;
    EXPECT_LE(world.Lignes().size(), whole) << end;
    ExpectFerme();
  }
  world.files.lectureJusqua.reset();
  world.Charge(bytes);
  EXPECT_EQ(world.Lignes().size(), 10U);
}

TEST_F(LitDegTest, KeepsTheRowsOfTheTableWhenAMergeFailsMidway) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1", "a/b"));
  world.Charge(EnTete2("WGS84", oneField) + Rangee("2", "c/d") + "1K    1E39\r\n",
               MergeMode::Merge);
  EXPECT_EQ(world.Boites(),
            Texts{"Line 12 of the file: A number is too large for its place; correct it."});
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "a/b"), RangeeLue("2", "c/d")}));
  EXPECT_EQ(LignesLiees(), world.Lignes());
  ExpectFerme();
}

TEST_F(LitDegTest, SaysThatThereIsNoWorkingDatabase) {
  world.state.document.WorkingDb.reset();
  world.Charge(EnTete2() + Rangee("1"));
  EXPECT_EQ(world.Boites(),
            Texts{"This database cannot be found; look whether it was moved or renamed."});
}

}  // namespace
}  // namespace talpena

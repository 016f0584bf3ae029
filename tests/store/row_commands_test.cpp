// First and last, add, duplicate, delete.
#include "store/row_commands.h"

#include "store/deg_files.h"
#include "store/file_commands.h"
#include "store/grid_commands_fixture.h"
#include "store/sort.h"

namespace talpena::test {
namespace {

class AddLines : public GridCommands {
 protected:
  void Ajoute(const std::string& answer) {
    dialogues.inputs = {answer};
    MnuAjoutLigne_Click(context);
  }
};

TEST_F(AddLines, AsksForTheirNumber) {
  Ouvre();
  Ajoute("0");
  ASSERT_EQ(dialogues.asked.size(), 1U);
  EXPECT_EQ(dialogues.asked[0].prompt, "Number of line(s) to add");
  EXPECT_EQ(dialogues.asked[0].text, "1");
}

TEST_F(AddLines, NoneWithZeroCancelOrANumberBelow) {
  Ouvre();
  for (const char* answer : {"0", "", "none", "-3"}) {
    SCOPED_TRACE(answer);
    Ajoute(answer);
    EXPECT_EQ(N1().size(), 5U);
    EXPECT_FALSE(state.document.FichierModifie());
    EXPECT_TRUE(dialogues.boxes.empty());
  }
}

TEST_F(AddLines, StandEmptyAtTheEndAndTheLastIsTheCurrentRow) {
  Ouvre();
  NoteChangements();
  Ajoute("3");
  EXPECT_EQ(N1(), (Numbers{1, 2, 3, 4, 5, 0, 0, 0}));
  EXPECT_EQ(Rows().AbsolutePosition(), 7);
  EXPECT_EQ(Lignes().back(), "-|-|-|-|-|-|-|-|-|-");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(changes, (std::vector{DataControl::Change::Rows, DataControl::Change::Position}));
  EXPECT_FALSE(vue.sablier);
  EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
}

TEST_F(AddLines, ToAnEmptyTable) {
  Ouvre(0);
  Ajoute("1");
  EXPECT_EQ(Rows().RecordCount(), 1);
  EXPECT_EQ(Rows().AbsolutePosition(), 0);
}

TEST_F(AddLines, ToATableThatNoFileCouldBeReadInto) {
  Ajoute("2");
  EXPECT_EQ(Rows().RecordCount(), 2);
  EXPECT_EQ(Appels("AjusteGrille"), 1);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(AddLines, StandAtTheEndOfASortedGridUntilTheNextSort) {
  Ouvre();
  ChangeTri(state.document, 4, true);
  Ajoute("1");
  EXPECT_EQ(N1(), (Numbers{5, 4, 3, 2, 1, 0}));
  EXPECT_EQ(Rows().AbsolutePosition(), 5);
  ChangeTri(state.document, 4, false);
  EXPECT_EQ(N1(), (Numbers{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(Rows().AbsolutePosition(), 0) << "still on the new row";
}

TEST_F(AddLines, AreSeenThroughAFilterThatTheyDoNotMeet) {
  Ouvre();
  Montre("SELECT * FROM TALPENA WHERE N1 > 3");
  Ajoute("2");
  EXPECT_EQ(N1(), (Numbers{4, 5, 0, 0}));
  Montre(state.document.Data1.RecordSource);
  EXPECT_EQ(N1(), (Numbers{4, 5}));
  EXPECT_EQ(Lignes().size(), 7U);
}

TEST_F(AddLines, AboveAHundredThousandTheirNumberIsAskedFor) {
  Ouvre();
  dialogues.answers = {Answer::No};
  Ajoute("100001");
  EXPECT_EQ(Boites(), (Strings{"Add 100,001 empty lines?"}));
  EXPECT_EQ(Rows().RecordCount(), 5);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(AddLines, ManyHaveABarAndAreAddedAllTheSame) {
  Ouvre();
  dialogues.answers = {Answer::Yes};
  Ajoute("100001");
  EXPECT_EQ(Rows().RecordCount(), 100006);
  EXPECT_EQ(Rows().AbsolutePosition(), 100005);
  EXPECT_GT(vue.progression.size(), 90U);
  EXPECT_FALSE(vue.barre);
}

TEST_F(AddLines, MoreThanTheWindowCanShowAreRefusedBeforeAnythingIsDone) {
  Ouvre();
  Ajoute("99999999");
  EXPECT_EQ(Boites(),
            (Strings{"99,999,999 lines do not fit here; there is room for 49,999,995 at most."}));
  EXPECT_EQ(Rows().RecordCount(), 5);
}

TEST_F(AddLines, MoreThanMemoryOrDiskHoldAreRefusedBeforeAnythingIsDone) {
  Ouvre();
  environment.memoire = 64 * 900;
  Ajoute("1000");
  environment.place = 64 * 10;
  Ajoute("11");
  EXPECT_EQ(Boites(), (Strings{"1,000 lines do not fit here; there is room for 900 at most.",
                               "11 lines do not fit here; there is room for 10 at most."}));
  Ajoute("10");
  EXPECT_EQ(Rows().RecordCount(), 15);
}

TEST_F(AddLines, ThatAreGivenUpLeaveTheTableAsItWas) {
  Ouvre();
  NoteChangements();
  state.document.WorkingDb->SuitTravail([this] { return vue.Bat(); });
  vue.abandonDans = 3;
  Ajoute("50000");
  EXPECT_EQ(N1(), (Numbers{1, 2, 3, 4, 5}));
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_TRUE(changes.empty());
  EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
}

TEST_F(AddLines, ANumberTooLargeIsShown) {
  Ouvre();
  Ajoute("1E20");
  EXPECT_EQ(Boites(), (Strings{"Error 6\nOverflow"}));
  EXPECT_EQ(N1().size(), 5U);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(AddLines, AFailureLeavesNoneOfThem) {
  Ouvre();
  state.document.WorkingDb->Execute("INSERT INTO TALPENA (Counter, N1) VALUES (2147483646, 6)");
  Montre(state.document.SqlCourant());
  Va(2);
  Ajoute("3");  // the second would need a number beyond 32 bits
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text.rfind("Error 6\n", 0), 0U) << dialogues.boxes[0].text;
  EXPECT_EQ(N1(), (Numbers{1, 2, 3, 4, 5, 6})) << "in the grid's list too";
  EXPECT_EQ(Rows().AbsolutePosition(), 2);
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
  EXPECT_FALSE(vue.sablier);
}

class Duplicate : public GridCommands {};

TEST_F(Duplicate, CopiesTheCurrentRowBehindTheOthersAndGoesThere) {
  Ouvre();
  Pose(2, "COMMENT", "a//b");
  Va(1);
  NoteChangements();
  mnuDuplic_Click(context);
  const std::vector<std::string> lines = Lignes();
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[5], lines[1]);
  EXPECT_EQ(Rows().AbsolutePosition(), 5);
  EXPECT_EQ(Rows().Get("COUNTER").integer, 6);
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(changes, (std::vector{DataControl::Change::Rows, DataControl::Change::Position}));
}

TEST_F(Duplicate, CopiesARowOfNulls) {
  Ouvre(0);
  dialogues.inputs = {"1"};
  MnuAjoutLigne_Click(context);
  mnuDuplic_Click(context);
  EXPECT_EQ(Lignes(), (Strings{"-|-|-|-|-|-|-|-|-|-", "-|-|-|-|-|-|-|-|-|-"}));
}

TEST_F(Duplicate, WorksInASortedAndFilteredGrid) {
  Ouvre();
  Montre("SELECT * FROM TALPENA WHERE N1 > 2 ORDER BY N1 DESC");
  Va(1);
  mnuDuplic_Click(context);
  EXPECT_EQ(N1(), (Numbers{5, 4, 3, 4}));
  EXPECT_EQ(Rows().AbsolutePosition(), 3);
}

TEST_F(Duplicate, AnEmptyTableHasNoRowForIt) {
  Ouvre(0);
  mnuDuplic_Click(context);
  EXPECT_EQ(Boites(), (Strings{"Error 3021\nNo current record."}));
  EXPECT_FALSE(state.document.FichierModifie());
}

class DeleteRows : public GridCommands {
 protected:
  /// The rows with these numbers are chosen; N1 and Counter are the same.
  void Supprime(std::vector<Bookmark> chosen, Answer answer = Answer::Yes) {
    vue.selection = std::move(chosen);
    dialogues.answers = {answer};
    MnuSupprimer_Click(context);
  }
};

TEST_F(DeleteRows, WithoutAChosenRowSaysSo) {
  Ouvre();
  MnuSupprimer_Click(context);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Select row(s) before");
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::Ok);
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(N1().size(), 5U);
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(DeleteRows, SilenceIsKept) {
  Ouvre();
  state.Silence = true;
  MnuSupprimer_Click(context);
  EXPECT_EQ(Boites(), std::vector<std::string>{"Select row(s) before"});
  Supprime({1}, Answer::No);
  EXPECT_EQ(sound.bips, 0);
}

TEST_F(DeleteRows, Asks) {
  Ouvre();
  Supprime({1, 2}, Answer::No);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Are you sure to delete selected rows?");
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(N1().size(), 5U);
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_EQ(Appels("AfficheMessage Supressing row(s)..."), 0);
}

TEST_F(DeleteRows, DeletesThemUnderTheWaitWindow) {
  Ouvre();
  NoteChangements();
  Supprime({4, 2});
  EXPECT_EQ(N1(), (Numbers{1, 3, 5}));
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(Appels("AfficheMessage Supressing row(s)..."), 1);
  EXPECT_EQ(Appels("FermeMessage"), 1);
  EXPECT_FALSE(vue.sablier);
  EXPECT_EQ(changes, (std::vector{DataControl::Change::Rows, DataControl::Change::Position}));
  EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
}

TEST_F(DeleteRows, TheSamePositionIsKept) {
  Ouvre();
  Va(1);
  Supprime({1, 2});
  EXPECT_EQ(Rows().AbsolutePosition(), 1);
  EXPECT_EQ(Ici(), 4);
}

TEST_F(DeleteRows, TheLastRowWhereFewerAreLeft) {
  Ouvre();
  Va(4);
  Supprime({4, 5});
  EXPECT_EQ(Rows().AbsolutePosition(), 2);
  EXPECT_EQ(Ici(), 3);
}

TEST_F(DeleteRows, ATableOfOneRowBecomesEmpty) {
  Ouvre(1);
  Supprime({1});
  EXPECT_EQ(Rows().RecordCount(), 0);
  EXPECT_TRUE(Rows().BOF());
  EXPECT_TRUE(Rows().EOF_());
  EXPECT_TRUE(dialogues.boxes.size() == 1) << "the question only";
  EXPECT_TRUE(state.document.FichierModifie());
}

TEST_F(DeleteRows, AllRows) {
  Ouvre();
  Va(3);
  Supprime({5, 4, 3, 2, 1});
  EXPECT_TRUE(Lignes().empty());
  EXPECT_EQ(Rows().AbsolutePosition(), -1);
  dialogues.inputs = {"1"};
  MnuAjoutLigne_Click(context);
  EXPECT_EQ(Rows().AbsolutePosition(), 0) << "and the table goes on";
}

TEST_F(DeleteRows, RowsThatAnotherCommandDeletedArePassedOver) {
  Ouvre();
  state.document.WorkingDb->Execute("DELETE FROM TALPENA WHERE N1 = 2");
  Supprime({2, 3});
  EXPECT_EQ(N1(), (Numbers{1, 4, 5}));
  EXPECT_EQ(dialogues.boxes.size(), 1U) << "the question only";
}

TEST_F(DeleteRows, FromASortedAndFilteredGrid) {
  Ouvre();
  Montre("SELECT * FROM TALPENA WHERE N1 > 1 ORDER BY N1 DESC");
  Va(0);
  Supprime({5, 3});
  EXPECT_EQ(N1(), (Numbers{4, 2}));
  EXPECT_EQ(Ici(), 4);
  EXPECT_EQ(Lignes().size(), 3U) << "the hidden row stays";
}

TEST_F(DeleteRows, DoesNotRunTheQueryAgain) {
  Ouvre();
  Montre("SELECT * FROM TALPENA WHERE N1 > 1");
  Pose(3, "N1", "0");  // no longer in the filter, but shown until the next query
  Supprime({2});
  EXPECT_EQ(N1(), (Numbers{0, 4, 5}));
}

class FirstLast : public GridCommands {};

TEST_F(FirstLast, GoThere) {
  Ouvre();
  NoteChangements();
  cmdFirstLast_Click(context, 1);
  EXPECT_EQ(Ici(), 5);
  cmdFirstLast_Click(context, 0);
  EXPECT_EQ(Ici(), 1);
  EXPECT_EQ(changes, (std::vector{DataControl::Change::Position, DataControl::Change::Position}));
}

TEST_F(FirstLast, OnAnEmptyTableNothingHappens) {
  cmdFirstLast_Click(context, 0);
  Ouvre(0);
  cmdFirstLast_Click(context, 1);
  cmdFirstLast_Click(context, 0);
  EXPECT_TRUE(dialogues.boxes.empty());
}

class SortOverFiles : public GridCommands {
 protected:
  static std::string Fichier(int first, int last) {
    std::string bytes = EnTete2("WGS84", "/\r\n");
    for (int n = first; n <= last; ++n) bytes += Rangee(std::to_string(n));
    return bytes;
  }
};

TEST_F(SortOverFiles, OutlastsOpenAndMergeWhileNewShowsTheTable) {
  ChangeTri(state.document, 4, true);
  Charge(Fichier(1, 3));
  EXPECT_EQ(N1(), (Numbers{3, 2, 1}));
  Charge(Fichier(4, 5), MergeMode::Merge, "/data/g.deg");
  EXPECT_EQ(N1(), (Numbers{5, 4, 3, 2, 1}));
  state.document.OublieModifications();
  dialogues.inputs = {"2"};
  MnuNouveau_Click(context);
  EXPECT_EQ(state.document.Data1.RecordSource, "TALPENA");
  EXPECT_EQ(state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY  [N1] DESC");
  Charge(Fichier(7, 8));
  EXPECT_EQ(N1(), (Numbers{8, 7})) << "and is back with the next file";
}

}  // namespace
}  // namespace talpena::test

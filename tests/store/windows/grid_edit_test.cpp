// Editing in the grid: what is stored, what is refused, and by which keys.
#include <gtest/gtest.h>

#include <array>

#include "store/edition.h"
#include "store/windows/grid_machine.h"

namespace talpena {
namespace {

using test::ShownGrid;

using namespace test::column;

TEST(GridEdit, AChangedCellIsStoredAndMarksTheFileModified) {
  ShownGrid g;
  g.Tape(1, n1, "42");
  EXPECT_EQ(g.Texte(1, n1), "42");
  EXPECT_TRUE(g.state.document.FichierModifie());
  EXPECT_TRUE(g.machine.dialogues.boxes.empty());
}

TEST(GridEdit, TheSameTextAgainChangesNothing) {
  ShownGrid g;
  g.Tape(1, latitude, "50.1");
  EXPECT_FALSE(g.state.document.FichierModifie());
}

TEST(GridEdit, ALongTextIsShownInPartAndEditedWhole) {
  ShownGrid g(1);
  const std::string text(40000, 'x');
  {
    Edition edition(g.state.document, "Edit");
    auto rows = g.state.document.Data1.Clone();
    edition.ModifieLigne(
        *rows, [&](Recordset& row) { row.Set(Column::COMMENT, Cell::Of(std::string_view(text))); });
  }
  const QString shown = g.Cellule(0, comment).data().toString();
  EXPECT_EQ(shown.size(), 1001);
  EXPECT_TRUE(shown.endsWith(QChar(0x2026)));
  g.grid.setCurrentIndex(g.Cellule(0, comment));
  QTest::keyClick(&g.grid, Qt::Key_F2);
  ASSERT_NE(g.Editeur(), nullptr);
  EXPECT_EQ(g.Editeur()->text().size(), 40000);
  QTest::keyClick(g.Editeur(), Qt::Key_End);
  QTest::keyClick(g.Editeur(), Qt::Key_Y);
  QTest::keyClick(g.Editeur(), Qt::Key_Return);
  g.Traite();
  EXPECT_EQ(g.Texte(0, comment), text + "y");
}

TEST(GridEdit, EscapeDropsWhatWasTyped) {
  ShownGrid g;
  g.Tape(1, n1, "42", Qt::Key_Escape);
  EXPECT_EQ(g.Texte(1, n1), "2");
  EXPECT_FALSE(g.state.document.FichierModifie());
}

TEST(GridEdit, TypingStartsTheEdit) {
  ShownGrid g;
  g.grid.setCurrentIndex(g.Cellule(0, n1));
  QTest::keyClicks(&g.grid, "7");
  ASSERT_NE(g.Editeur(), nullptr);
  EXPECT_EQ(g.Editeur()->text(), "7");
}

TEST(GridEdit, EnterAndTabGoOnToTheNextCell) {
  ShownGrid g;
  g.Tape(1, n1, "42", Qt::Key_Return);
  EXPECT_EQ(g.grid.currentIndex(), g.Cellule(1, n1 + 1));
  g.Tape(1, comment, "end of the row", Qt::Key_Tab);
  EXPECT_EQ(g.grid.currentIndex(), g.Cellule(2, 0));
  g.Tape(2, 0, "2", Qt::Key_Backtab);
  EXPECT_EQ(g.grid.currentIndex(), g.Cellule(1, comment));
  QTest::keyClick(&g.grid, Qt::Key_Return);
  EXPECT_EQ(g.grid.currentIndex(), g.Cellule(2, 0)) << "outside an edit as well";
}

TEST(GridEdit, CtrlHomeAndCtrlEndChooseTheCellTheyGoTo) {
  ShownGrid shown;
  for (const auto& [key, row, column] :
       {std::tuple{Qt::Key_End, 4, Column::GridCount - 1}, std::tuple{Qt::Key_Home, 0, 0}}) {
    QTest::keyClick(&shown.grid, key, Qt::ControlModifier);
    EXPECT_EQ(shown.grid.currentIndex(), shown.Cellule(row, column));
    EXPECT_EQ(shown.grid.selectionModel()->selectedIndexes(),
              QModelIndexList{shown.Cellule(row, column)});
  }
}

TEST(GridEdit, ADecimalCommaIsTaken) {
  ShownGrid g;
  g.Tape(0, latitude, "-12,25");
  EXPECT_EQ(g.Texte(0, latitude), "-12.25");
}

TEST(GridEdit, AFloatIsTheShortestDecimalOfTheSameFloat) {
  ShownGrid g;
  g.Tape(0, latitude, "50.36381");
  EXPECT_EQ(g.Texte(0, latitude), "50.36381");
  g.Tape(0, latitude, "50.123456789");
  EXPECT_EQ(g.Texte(0, latitude), "50.123455");
}

TEST(GridEdit, AnEmptiedCellIsNullWhereNoEmptyTextCanBe) {
  ShownGrid g;
  g.Tape(0, n1, "");
  g.Tape(0, datum, "WGS84");
  g.Tape(0, datum, "");
  g.Tape(0, comment, "x");
  g.Tape(0, comment, "");
  const auto rows = g.state.document.Data1.Clone();
  rows->MoveFirst();
  EXPECT_TRUE(rows->Get("N1").EstNull());
  EXPECT_TRUE(rows->Get("DATUM").EstNull());
  EXPECT_FALSE(rows->Get("COMMENT").EstNull());
  EXPECT_EQ(g.Texte(0, n1), "") << "Null is shown as nothing";
}

struct RefusalCase {
  const char* name;
  int column;
  const char* typed;
  const char* reason;
};

constexpr std::array refusals = {
    RefusalCase{"PERIOD beyond 16 bits", period, "32768",
                "This column takes whole numbers from -32768 to 32767."},
    RefusalCase{"PERIOD no number", period, "two",
                "This column takes whole numbers from -32768 to 32767."},
    RefusalCase{"N1 beyond 32 bits", n1, "2147483648",
                "This column takes whole numbers from -2147483648 to 2147483647."},
    RefusalCase{"LATITUDE no number", latitude, "north", "This column takes a number."},
    RefusalCase{"LATITUDE beyond a float", latitude, "1E39", "This column takes a number."},
    RefusalCase{"SEX too long", sex, "MF", "This column takes at most 1 characters."},
    RefusalCase{"DATUM too long", datum, "WGS-84", "This column takes at most 5 characters."},
    RefusalCase{"ORIGINAL too long", original, "utm 31 533781 4103899 abcd",
                "This column takes at most 24 characters."},
    RefusalCase{"DATE too long", date, "2010/10/031", "This column takes at most 10 characters."},
};

TEST(GridEdit, ARefusedValueSaysWhyAndKeepsTheCellInEdit) {
  for (const RefusalCase& c : refusals) {
    SCOPED_TRACE(c.name);
    ShownGrid g;
    const std::string before = g.Texte(2, c.column);
    g.Tape(2, c.column, QString::fromUtf8(c.typed));
    ASSERT_EQ(g.machine.dialogues.boxes.size(), 1U);
    EXPECT_EQ(g.machine.dialogues.boxes[0].text, std::string("Value not accepted\n\n") + c.reason);
    EXPECT_EQ(g.machine.dialogues.boxes[0].icon, Icon::Exclamation);
    EXPECT_EQ(g.machine.sound.bips, 1);
    ASSERT_NE(g.Editeur(), nullptr);
    EXPECT_EQ(g.Editeur()->text(), c.typed) << "what was typed can be corrected";
    EXPECT_EQ(g.grid.currentIndex(), g.Cellule(2, c.column));
    EXPECT_EQ(g.Texte(2, c.column), before);
    EXPECT_FALSE(g.state.document.FichierModifie());
  }
}

TEST(GridEdit, ARefusedValueCanBeCorrectedOrDropped) {
  ShownGrid g;
  g.Tape(2, period, "99999");
  ASSERT_NE(g.Editeur(), nullptr);
  g.Editeur()->selectAll();
  QTest::keyClicks(g.Editeur(), "3");
  QTest::keyClick(g.Editeur(), Qt::Key_Return);
  ShownGrid::Traite();
  EXPECT_EQ(g.Texte(2, period), "3");

  g.Tape(1, period, "99999");
  QTest::keyClick(g.Editeur(), Qt::Key_Escape);
  ShownGrid::Traite();
  EXPECT_EQ(g.Texte(1, period), "1");
  EXPECT_EQ(g.machine.dialogues.boxes.size(), 2U) << "one box for each refusal";
}

TEST(GridEdit, ARefusalIsSilentToTheEarWithTheSettingSilence) {
  ShownGrid g;
  g.state.Silence = true;
  g.Tape(2, period, "99999");
  EXPECT_EQ(g.machine.dialogues.boxes.size(), 1U);
  EXPECT_EQ(g.machine.sound.bips, 0);
}

TEST(GridEdit, GoingToAnotherCellWithARefusedValueComesBack) {
  ShownGrid g;
  g.grid.setCurrentIndex(g.Cellule(2, period));
  QTest::keyClick(&g.grid, Qt::Key_F2);
  g.Editeur()->selectAll();
  QTest::keyClicks(g.Editeur(), "99999");
  const QPoint elsewhere = g.grid.visualRect(g.Cellule(4, n1)).center();
  QTest::mouseClick(g.grid.viewport(), Qt::LeftButton, {}, elsewhere);
  ShownGrid::Traite();
  EXPECT_EQ(g.machine.dialogues.boxes.size(), 1U);
  EXPECT_EQ(g.grid.currentIndex(), g.Cellule(2, period));
  ASSERT_NE(g.Editeur(), nullptr);
  EXPECT_EQ(g.Editeur()->text(), "99999");
}

TEST(GridEdit, ValideEditionStoresWhatIsBeingTyped) {
  ShownGrid g;
  g.grid.setCurrentIndex(g.Cellule(0, n1));
  QTest::keyClicks(&g.grid, "7");
  QTest::keyClicks(g.Editeur(), "7");
  EXPECT_TRUE(g.grid.ValideEdition());
  EXPECT_EQ(g.Texte(0, n1), "77");
  QTest::keyClicks(&g.grid, "x");
  EXPECT_FALSE(g.grid.ValideEdition()) << "a command does not run over a refused value";
  EXPECT_EQ(g.Texte(0, n1), "77");
}

TEST(GridEdit, TermineEditionSaysNothing) {
  ShownGrid g;
  g.grid.setCurrentIndex(g.Cellule(0, n1));
  QTest::keyClicks(&g.grid, "x");
  g.grid.TermineEdition();
  ShownGrid::Traite();
  EXPECT_TRUE(g.machine.dialogues.boxes.empty());
  EXPECT_EQ(g.Texte(0, n1), "1");
  QTest::keyClicks(&g.grid, "8");
  g.grid.TermineEdition();
  EXPECT_EQ(g.Texte(0, n1), "8");
}

TEST(GridEdit, ALineBreakOfARemarkIsKeptThroughAnEdit) {
  ShownGrid g;
  const auto rows = g.state.document.Data1.Clone();
  rows->MoveFirst();
  Edition(g.state.document, "a test").ModifieLigne(*rows, [](Recordset& row) {
    row.Set("COMMENT", Cell::Of(std::string_view("one\ntwo")));
  });
  EXPECT_EQ(g.Cellule(0, comment).data(Qt::DisplayRole).toString(), QStringLiteral("one↵two"));
  g.grid.setCurrentIndex(g.Cellule(0, comment));
  QTest::keyClick(&g.grid, Qt::Key_F2);
  ASSERT_NE(g.Editeur(), nullptr);
  QTest::keyClick(g.Editeur(), Qt::Key_End);
  QTest::keyClicks(g.Editeur(), "!");
  QTest::keyClick(g.Editeur(), Qt::Key_Return);
  ShownGrid::Traite();
  EXPECT_EQ(g.Texte(0, comment), "one\ntwo!");
}

}  // namespace
}  // namespace talpena

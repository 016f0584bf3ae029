// Choosing rows and columns in the grid, by mouse and keyboard.
#include <gtest/gtest.h>

#include "store/edition.h"
#include "store/row_commands.h"
#include "store/sort.h"
#include "store/windows/grid_machine.h"

namespace talpena {
namespace {

using test::ShownGrid;

using namespace test::column;
using Numbers = std::vector<std::int64_t>;

/// N1 of the chosen rows, in the order in which they were chosen.
Numbers Numeros(ShownGrid& g) {
  Numbers numbers;
  const auto rows = g.state.document.Data1.Clone();
  for (const Bookmark bookmark : g.grid.LignesChoisies()) {
    rows->SetBookmark(bookmark);
    numbers.push_back(rows->Get("N1").integer);
  }
  return numbers;
}

/// Where a heading stands.
QPoint Titre(const ShownGrid& g, int column) {
  const QHeaderView* headings = g.grid.horizontalHeader();
  return {headings->sectionViewportPosition(column) + headings->sectionSize(column) / 2,
          headings->height() / 2};
}

void Clique(ShownGrid& g, int column, Qt::KeyboardModifiers modifiers = {}) {
  QTest::mouseClick(g.grid.horizontalHeader()->viewport(), Qt::LeftButton, modifiers,
                    Titre(g, column));
}

TEST(GridRows, ComeInTheOrderInWhichTheyWereChosen) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(7, {});
  g.grid.ChoisitLigne(2, Qt::ControlModifier);
  g.grid.ChoisitLigne(4, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{8, 3, 4, 5}));
  g.grid.ChoisitLigne(0, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{8, 3, 4, 5, 2, 1})) << "upwards from the row chosen last";
}

TEST(GridRows, ThoseBehindTheCursorComeIntoView) {
  ShownGrid g(1000);
  g.grid.resize(600, 400);
  g.state.document.Data1.recordset().SetBookmark(501);
  g.state.document.Data1.SignalePosition();
  g.grid.ChoisitLignes({501, 502, 503, 504, 505});
  EXPECT_TRUE(g.grid.viewport()->rect().contains(g.grid.visualRect(g.grid.model()->index(504, 0))));
}

TEST(GridRows, ControlTakesARowOutAndAddsItAgainAtTheEnd) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(1, {});
  g.grid.ChoisitLigne(4, Qt::ShiftModifier);
  g.grid.ChoisitLigne(2, Qt::ControlModifier);
  EXPECT_EQ(Numeros(g), (Numbers{2, 4, 5}));
  g.grid.ChoisitLigne(2, Qt::ControlModifier);
  EXPECT_EQ(Numeros(g), (Numbers{2, 4, 5, 3}));
}

TEST(GridRows, ShiftAfterARowWasTakenOutGoesOnFromTheLastThatIsLeft) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(1, {});
  g.grid.ChoisitLigne(8, Qt::ControlModifier);
  g.grid.ChoisitLigne(8, Qt::ControlModifier);
  g.grid.ChoisitLigne(3, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{2, 3, 4}));
}

TEST(GridRows, AreChosenByTheirNamesInThatOrder) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(9, {});
  g.grid.ChoisitLignes({8, 2, 3, 4, 1});  // the bookmarks are the numbers
  EXPECT_EQ(Numeros(g), (Numbers{8, 2, 3, 4, 1}));
  EXPECT_TRUE(g.grid.selectionModel()->isRowSelected(7));
  EXPECT_TRUE(g.grid.selectionModel()->isRowSelected(2));
  EXPECT_FALSE(g.grid.selectionModel()->isRowSelected(9));
  EXPECT_EQ(g.grid.currentIndex().row(), 9) << "the cursor stays";
  g.grid.ChoisitLigne(0, Qt::ControlModifier);
  EXPECT_EQ(Numeros(g), (Numbers{8, 2, 3, 4})) << "the mouse goes on from there";
  g.grid.ChoisitLignes({});
  EXPECT_TRUE(Numeros(g).empty());
  EXPECT_FALSE(g.grid.selectionModel()->hasSelection());
}

TEST(GridRows, NamesOfRowsThatAreNotShownArePassedOver) {
  ShownGrid g(5);
  g.state.document.Data1.ChangeSource("SELECT * FROM TALPENA WHERE N1 > 2 ORDER BY Counter DESC");
  g.grid.ChoisitLignes({1, 3, 99, 5, -1});
  EXPECT_EQ(Numeros(g), (Numbers{3, 5}));
  EXPECT_TRUE(g.grid.selectionModel()->isRowSelected(0));
  EXPECT_TRUE(g.grid.selectionModel()->isRowSelected(2));
}

TEST(GridRows, ChosenByNameTakeThePlaceOfColumns) {
  ShownGrid g(5);
  g.grid.SelectionneColonnes({1, 2});
  g.grid.ChoisitLignes({2});
  EXPECT_FALSE(g.grid.ColonnesChoisies().has_value());
  EXPECT_EQ(Numeros(g), (Numbers{2}));
}

TEST(GridRows, AHundredThousandScatteredOnesAreChosenByName) {
  ShownGrid g(200000);
  std::vector<Bookmark> names;
  for (Bookmark name = 199999; name > 0; name -= 2) names.push_back(name);
  g.grid.ChoisitLignes(names);
  EXPECT_EQ(g.grid.LignesChoisies(), names);
}

TEST(GridRows, AChosenCellIsNoChosenRow) {
  ShownGrid g(10);
  g.grid.setCurrentIndex(g.Cellule(3, n1));
  EXPECT_TRUE(g.grid.LignesChoisies().empty());
  g.grid.ChoisitLigne(3, Qt::ControlModifier);
  EXPECT_EQ(Numeros(g), (Numbers{4})) << "the cell is part of the row";
}

TEST(GridRows, TheSelectionOfAllCellsChoosesAllRows) {
  ShownGrid g(4);
  g.grid.selectAll();
  EXPECT_EQ(Numeros(g), (Numbers{1, 2, 3, 4}));
}

TEST(GridRows, AClickOnACellForgetsThem) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(2, {});
  QTest::mouseClick(g.grid.viewport(), Qt::LeftButton, {},
                    g.grid.visualRect(g.Cellule(4, n1)).center());
  EXPECT_TRUE(g.grid.LignesChoisies().empty());
  g.grid.ChoisitLigne(6, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{7})) << "there is no row to extend from";
}

TEST(GridRows, DraggingOverTheRowNumbersChoosesThem) {
  ShownGrid g(10);
  QHeaderView* rows = g.grid.verticalHeader();
  const auto at = [&](int row) {
    return QPoint(rows->width() / 2,
                  rows->sectionViewportPosition(row) + rows->sectionSize(row) / 2);
  };
  QTest::mousePress(rows->viewport(), Qt::LeftButton, {}, at(1));
  for (const int row : {2, 3, 4}) QTest::mouseMove(rows->viewport(), at(row));
  QTest::mouseRelease(rows->viewport(), Qt::LeftButton, {}, at(4));
  EXPECT_EQ(Numeros(g), (Numbers{2, 3, 4, 5}));
  EXPECT_EQ(g.grid.selectionModel()->selection().size(), 1) << "one range, however far it goes";
}

TEST(GridRows, TheKeyboardChoosesExtendsAndTakesOut) {
  ShownGrid g(10);
  g.grid.setCurrentIndex(g.Cellule(2, n1));
  QTest::keyClick(&g.grid, Qt::Key_Space, Qt::ShiftModifier);
  QTest::keyClick(&g.grid, Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(&g.grid, Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(&g.grid, Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{3, 4, 5}));
  QTest::keyClick(&g.grid, Qt::Key_Up, Qt::ControlModifier);
  QTest::keyClick(&g.grid, Qt::Key_Space, Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(Numeros(g), (Numbers{3, 5}));
  EXPECT_EQ(g.state.document.Data1.recordset().AbsolutePosition(), 3) << "the cursor's row";
}

TEST(GridRows, ShiftAndTheArrowsChooseFromWhereTheyBegan) {
  ShownGrid g(10);
  g.grid.setCurrentIndex(g.Cellule(4, n1));
  QTest::keyClick(&g.grid, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&g.grid, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{5, 6, 7}));
  QTest::keyClick(&g.grid, Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{5, 6})) << "back again takes the last one out";
  for (int i = 0; i < 3; ++i) QTest::keyClick(&g.grid, Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{5, 4, 3})) << "upwards";
  EXPECT_EQ(g.state.document.Data1.recordset().AbsolutePosition(), 2);
  QTest::keyClick(&g.grid, Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(Numeros(g), (Numbers{5, 6, 7, 8, 9, 10}));
  g.grid.ChoisitLigne(1, {});
  QTest::keyClick(&g.grid, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{2, 3})) << "a row chosen otherwise begins anew";
}

TEST(GridRows, AreForgottenWhenRowsAreAddedOrDeleted) {
  ShownGrid g(5);
  g.grid.ChoisitLigne(1, {});
  g.grid.ChoisitLigne(3, Qt::ShiftModifier);
  const auto rows = g.state.document.Data1.Clone();
  rows->SetAbsolutePosition(2);
  const Bookmark third = rows->GetBookmark();
  Edition(g.state.document, "a test").SupprimeLignes(std::span(&third, 1));
  EXPECT_TRUE(g.grid.LignesChoisies().empty());
  EXPECT_EQ(g.grid.model()->rowCount(), 4);
}

TEST(GridRows, ThoseDeletedBehindItsBackAreLeftOut) {
  ShownGrid g(5);
  g.grid.ChoisitLigne(1, {});
  g.grid.ChoisitLigne(3, Qt::ShiftModifier);
  g.state.document.WorkingDb->Execute("DELETE FROM TALPENA WHERE N1 = 5");
  EXPECT_EQ(Numeros(g), (Numbers{2, 3, 4}));
}

TEST(GridRows, AHundredThousandAreChosenAndListed) {
  ShownGrid g(0);
  Edition(g.state.document, "a test").AjouteLignesVides(100000);
  g.grid.ChoisitLigne(99999, {});
  g.grid.ChoisitLigne(0, Qt::ShiftModifier);
  const std::vector<Bookmark> chosen = g.grid.LignesChoisies();
  ASSERT_EQ(chosen.size(), 100000U);
  EXPECT_EQ(chosen.front(), 100000);
  EXPECT_EQ(chosen.back(), 1);
}

TEST(GridColumns, AClickOnAHeadingChoosesTheColumn) {
  ShownGrid g(10);
  g.grid.setCurrentIndex(g.Cellule(4, n1));
  EXPECT_FALSE(g.grid.ColonnesChoisies());
  Clique(g, sex);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{sex, sex}));
  EXPECT_EQ(g.grid.currentIndex(), g.Cellule(4, sex)) << "the cursor stays in its row";
  EXPECT_EQ(g.state.document.Data1.recordset().AbsolutePosition(), 4);
  EXPECT_TRUE(g.grid.selectionModel()->isColumnSelected(sex));
  EXPECT_TRUE(g.grid.LignesChoisies().empty());
  EXPECT_TRUE(g.grid.hasFocus());
}

TEST(GridColumns, ShiftChoosesFromTheFirstOne) {
  ShownGrid g(10);
  Clique(g, sex);
  Clique(g, 8, Qt::ShiftModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{sex, 8}));
  Clique(g, n1, Qt::ShiftModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{n1, sex}));
}

TEST(GridColumns, ControlAddsTheNextOneOrTakesItOut) {
  ShownGrid g(10);
  Clique(g, sex);
  Clique(g, datum, Qt::ControlModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{sex, datum}));
  Clique(g, 4, Qt::ControlModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{4, datum}));
  Clique(g, datum, Qt::ControlModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{4, sex}));
  Clique(g, 4, Qt::ControlModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{sex, sex}));
  Clique(g, 1, Qt::ControlModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{1, 1})) << "never with a gap between them";
}

TEST(GridColumns, DraggingChoosesSeveral) {
  ShownGrid g(10);
  QWidget* headings = g.grid.horizontalHeader()->viewport();
  QTest::mousePress(headings, Qt::LeftButton, {}, Titre(g, 2));
  QTest::mouseMove(headings, Titre(g, 3));
  QTest::mouseMove(headings, Titre(g, 4));
  QTest::mouseRelease(headings, Qt::LeftButton, {}, Titre(g, 4));
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{2, 4}));
}

TEST(GridColumns, TheKeyboardChoosesThemToo) {
  ShownGrid g(10);
  g.grid.setCurrentIndex(g.Cellule(2, n1));
  QTest::keyClick(&g.grid, Qt::Key_Space, Qt::ControlModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{n1, n1}));
  QTest::keyClick(&g.grid, Qt::Key_Right, Qt::ControlModifier);
  QTest::keyClick(&g.grid, Qt::Key_Space, Qt::ControlModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{n1, n1 + 1}));
  QTest::keyClick(&g.grid, Qt::Key_Right);
  EXPECT_FALSE(g.grid.ColonnesChoisies()) << "the cursor moves on alone";
}

TEST(GridColumns, RowsAndColumnsAreNotChosenTogether) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(2, {});
  Clique(g, sex, Qt::ControlModifier);
  EXPECT_TRUE(g.grid.LignesChoisies().empty());
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{sex, sex}));
  g.grid.ChoisitLigne(4, Qt::ControlModifier);
  EXPECT_FALSE(g.grid.ColonnesChoisies());
  EXPECT_EQ(Numeros(g), (Numbers{5}));
}

TEST(GridColumns, AllTenAreStillColumns) {
  ShownGrid g(3);
  Clique(g, 0);
  Clique(g, 9, Qt::ShiftModifier);
  EXPECT_EQ(g.grid.ColonnesChoisies(), (ColumnRange{0, 9}));
  EXPECT_TRUE(g.grid.LignesChoisies().empty());
}

TEST(GridColumns, InAnEmptyGridThereAreNone) {
  ShownGrid g(0);
  Clique(g, sex);
  g.grid.SelectionneColonnes({1, 2});
  EXPECT_FALSE(g.grid.ColonnesChoisies());
}

TEST(GridColumns, TheCursorsColumnOutlivesASort) {
  ShownGrid g(5);
  g.grid.setCurrentIndex(g.Cellule(1, datum));
  ChangeTri(g.state.document, 4, true);
  EXPECT_EQ(g.grid.currentIndex(), g.Cellule(3, datum));
  EXPECT_EQ(g.grid.ColonneCourante(), datum);
}

}  // namespace
}  // namespace talpena

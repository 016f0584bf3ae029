// What the grid shows, the current row, chosen rows, widths and colours.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

#include "fakes/dark_palette.h"
#include "platform/qt/colours.h"
#include "platform/qt/contrast.h"
#include "platform/qt/legible_palette.h"
#include "store/cell_text.h"
#include "store/sort.h"
#include "store/windows/grid_cells.h"
#include "store/windows/grid_colours.h"
#include "store/windows/grid_machine.h"

namespace talpena {
namespace {

using test::GridMachine;
using test::ShownGrid;

using namespace test::column;

TEST(Grid, IsEmptyUntilTheDataControlIsBound) {
  GridMachine m;
  TDBGrid grid(m.state, m.machine.io);
  EXPECT_EQ(grid.model()->rowCount(), 0);
  EXPECT_EQ(grid.model()->columnCount(), 10) << "Counter is not shown";
}

TEST(Grid, ShowsTheRowsOfTheDataControl) {
  ShownGrid g;
  ASSERT_EQ(g.grid.model()->rowCount(), 5);
  EXPECT_EQ(g.Texte(3, n1), "4");
  EXPECT_EQ(g.Texte(3, 1), "50.1") << "a 32-bit float";
  EXPECT_EQ(g.Texte(3, 4), "") << "Null";
}

TEST(Grid, HasTheHeadingsOfTheLanguage) {
  ShownGrid g;
  const auto heading = [&](int column) {
    return g.grid.model()->headerData(column, Qt::Horizontal).toString().toStdString();
  };
  EXPECT_EQ(heading(0), "Period number");
  EXPECT_EQ(heading(3), "Number 1");
  g.state.Langue = 0;
  g.state.LabelNumeric1 = "Mounds";
  g.grid.InitTDBgrid();
  EXPECT_EQ(heading(3), "Mounds");
  EXPECT_NE(heading(0), "Period number");
}

TEST(Grid, FollowsASort) {
  ShownGrid g;
  ChangeTri(g.state.document, 4, true);
  EXPECT_EQ(g.Texte(0, n1), "5");
  EXPECT_EQ(g.Texte(4, n1), "1");
}

TEST(Grid, ASortKeepsTheCurrentRow) {
  ShownGrid g;
  g.grid.setCurrentIndex(g.Cellule(1, n1));
  ChangeTri(g.state.document, 0, true);
  EXPECT_EQ(g.grid.currentIndex().row(), 3) << "the second of five from below";
  EXPECT_EQ(g.Texte(g.grid.currentIndex().row(), n1), "2");
}

TEST(Grid, ItsRowIsTheProgramsCurrentRow) {
  ShownGrid g;
  g.grid.setCurrentIndex(g.Cellule(2, n1));
  EXPECT_EQ(g.state.document.Data1.recordset().AbsolutePosition(), 2);
  EXPECT_EQ(TextePosition(g.state.document.Data1), "3/5");
  g.state.document.Data1.recordset().MoveLast();
  g.state.document.Data1.SignalePosition();
  EXPECT_EQ(g.grid.currentIndex().row(), 4);
  EXPECT_EQ(g.grid.currentIndex().column(), n1) << "the column stays";
}

TEST(Grid, ChoosesOneCellWhateverKeysMovedTheProgramsRow) {
  ShownGrid g;
  g.grid.setCurrentIndex(g.Cellule(2, n1));
  QTest::keyPress(g.grid.windowHandle(), Qt::Key_Control, Qt::ControlModifier);
  ASSERT_EQ(QGuiApplication::keyboardModifiers(), Qt::ControlModifier);
  g.state.document.Data1.recordset().MoveLast();
  g.state.document.Data1.SignalePosition();
  QTest::keyRelease(g.grid.windowHandle(), Qt::Key_Control);
  EXPECT_EQ(g.grid.selectionModel()->selectedIndexes(), QModelIndexList{g.Cellule(4, n1)});
}

TEST(Grid, TellsThePositionOfAnEmptyTable) {
  GridMachine m(0);
  EXPECT_EQ(TextePosition(m.state.document.Data1), "");
  m.state.document.RelieSqlCourant();
  EXPECT_EQ(TextePosition(m.state.document.Data1), "0/0");
}

TEST(Grid, SurvivesRowsThatWereDeletedBehindItsBack) {
  ShownGrid g;
  g.state.document.WorkingDb->Execute("DELETE FROM TALPENA");
  EXPECT_NO_THROW(g.grid.grab());
  g.state.document.Data1.Refresh();
  EXPECT_EQ(g.grid.model()->rowCount(), 0);
}

std::vector<std::int64_t> Numeros(ShownGrid& g) {
  std::vector<std::int64_t> numbers;
  const auto rows = g.state.document.Data1.Clone();
  for (const Bookmark bookmark : g.grid.LignesChoisies()) {
    rows->SetBookmark(bookmark);
    numbers.push_back(rows->Get("N1").integer);
  }
  return numbers;
}

using Numbers = std::vector<std::int64_t>;

TEST(GridSelection, AClickOnARowChoosesItAlone) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(2, {});
  EXPECT_EQ(Numeros(g), (Numbers{3}));
  g.grid.ChoisitLigne(5, {});
  EXPECT_EQ(Numeros(g), (Numbers{6}));
  EXPECT_EQ(g.state.document.Data1.recordset().AbsolutePosition(), 5);
}

TEST(GridSelection, ShiftExtendsFromTheRowChosenLast) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(2, {});
  g.grid.ChoisitLigne(4, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{3, 4, 5}));
  g.grid.ChoisitLigne(1, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{3, 4, 5, 2})) << "backwards, behind what was chosen";
  g.grid.ChoisitLigne(8, Qt::ControlModifier);
  g.grid.ChoisitLigne(9, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{3, 4, 5, 2, 9, 10}));
}

TEST(GridSelection, ShiftFollowsTheOrderOnScreen) {
  ShownGrid g(10);
  ChangeTri(g.state.document, 4, true);
  g.grid.ChoisitLigne(0, {});
  g.grid.ChoisitLigne(2, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{10, 9, 8}));
}

TEST(GridSelection, ARefreshForgetsIt) {
  ShownGrid g(10);
  g.grid.ChoisitLigne(2, {});
  g.state.document.Data1.Refresh();
  g.grid.ChoisitLigne(6, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{7}));
}

TEST(GridSelection, WorksByMouseOnTheRowNumbers) {
  ShownGrid g(10);
  QHeaderView* rows = g.grid.verticalHeader();
  const auto at = [&](int row) {
    return QPoint(rows->width() / 2,
                  rows->sectionViewportPosition(row) + rows->sectionSize(row) / 2);
  };
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, at(1));
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, Qt::ShiftModifier, at(3));
  EXPECT_EQ(Numeros(g), (Numbers{2, 3, 4}));
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, Qt::ControlModifier, at(2));
  EXPECT_EQ(Numeros(g), (Numbers{2, 4}));
}

TEST(GridSelection, WorksByKeyboard) {
  ShownGrid g(10);
  g.grid.setCurrentIndex(g.Cellule(2, n1));
  QTest::keyClick(&g.grid, Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_EQ(Numeros(g), (Numbers{3}));
}

TEST(GridWidths, StoredWidthsAreShownAndGivenBack) {
  GridMachine m;
  m.state.LargeurColonnes[7] = 3000;  // 200 pixels
  m.state.LargeurColonnes[0] = 1200;
  TDBGrid grid(m.state, m.machine.io);
  grid.InitTDBgrid();
  EXPECT_EQ(grid.columnWidth(7), 200);
  EXPECT_EQ(grid.columnWidth(0), 80);
  grid.setColumnWidth(1, 100);
  grid.ReleveLargeurs();
  EXPECT_EQ(m.state.LargeurColonnes[1], 1500);
  EXPECT_EQ(m.state.LargeurColonnes[7], 3000);
}

TEST(GridWidths, DefaultWidthsThatWidenForTheirTextsStayTheDefaultsInTheStore) {
  ShownGrid g;
  EXPECT_GT(g.grid.columnWidth(n1), 25) << "375 twips hold no five digits";
  g.grid.ReleveLargeurs();
  EXPECT_EQ(g.state.LargeurColonnes, SettingsState().LargeurColonnes);
}

TEST(GridWidths, TheFreeTextTakesTheRestOfTheWindow) {
  ShownGrid g;
  g.grid.resize(2000, 300);
  QApplication::processEvents();
  const int end = g.grid.columnViewportPosition(comment) + g.grid.columnWidth(comment);
  EXPECT_EQ(end, g.grid.viewport()->width());
}

TEST(GridColours, TheStoredColoursAreShown) {
  GridMachine m;
  m.state.CouleurFondGrille = 0x0000FF;  // red
  m.state.CouleurTexteGrille = 0xFF0000;
  const TDBGrid grid(m.state, m.machine.io);
  EXPECT_EQ(grid.palette().color(QPalette::Base), QColor(255, 0, 0));
  EXPECT_EQ(grid.palette().color(QPalette::Text), QColor(0, 0, 255)) << "the user's own choice";
}

/// For as long as it lives.
struct DarkDesktop {
  DarkDesktop() { QApplication::setPalette(test::PaletteSombre()); }
  DarkDesktop(const DarkDesktop&) = delete;
  DarkDesktop& operator=(const DarkDesktop&) = delete;
  ~DarkDesktop() { QApplication::setPalette(before); }
  QPalette before = QApplication::palette();
};

TEST(GridColours, TheDesktopsTextColourStaysLegibleOnALightGridInADarkDesktop) {
  const DarkDesktop dark;
  GridMachine m;
  m.state.CouleurFondGrille = 0xE0FFFE;  // the user's own
  const TDBGrid grid(m.state, m.machine.io);
  EXPECT_EQ(grid.palette().color(QPalette::Base), QColor(254, 255, 224));
  EXPECT_EQ(grid.palette().color(QPalette::Text), QColor(Qt::black));
  EXPECT_EQ(m.state.CouleurTexteGrille, 0x80000008U) << "the stored number stays";
}

TEST(GridColours, TheDefaultsHaveADarkCounterpart) {
  const DarkDesktop dark;
  GridMachine m;
  const TDBGrid grid(m.state, m.machine.io);
  const QColor base = grid.palette().color(QPalette::Base);
  EXPECT_LT(base.lightness(), 60);
  EXPECT_EQ(grid.palette().color(QPalette::Text), QColor(0xE6, 0xE6, 0xE6));
  EXPECT_EQ(m.state.CouleurFondGrille, 0xE0FFFFU) << "the stored numbers stay";
  EXPECT_EQ(m.state.CouleurTexteGrille, 0x80000008U);
}

TEST(GridColours, AColourOfTheUsersKeepsBothAsTheyAre) {
  const DarkDesktop dark;
  GridMachine m;
  m.state.CouleurTexteGrille = 0x800000;
  const TDBGrid grid(m.state, m.machine.io);
  EXPECT_EQ(grid.palette().color(QPalette::Base), QColor(255, 255, 224));
  EXPECT_EQ(grid.palette().color(QPalette::Text), QColor(0, 0, 128));
}

TEST(GridColours, AGridOnShowFollowsTheDesktop) {
  ShownGrid g;
  EXPECT_EQ(g.grid.palette().color(QPalette::Base), QColor(255, 255, 224));
  {
    const DarkDesktop dark;
    QApplication::processEvents();
    EXPECT_LT(g.grid.palette().color(QPalette::Base).lightness(), 60);
  }
  QApplication::processEvents();
  EXPECT_EQ(g.grid.palette().color(QPalette::Base), QColor(255, 255, 224));
}

// The current row is tinted, and chosen cells have the colours of the palette.
TEST(GridColours, EveryTextOfTheGridStandsOut) {
  for (const QPalette& desktop : {QApplication::palette(), test::PaletteSombre()}) {
    const QPalette palette = PaletteLisible(desktop);
    const GridColours colours = CouleursDeGrille(SettingsState(), 0xE0FFFF, palette);
    EXPECT_GE(Contraste(colours.text, colours.background), ContrasteLisible);
    QColor tint = palette.color(QPalette::Highlight);
    tint.setAlphaF(0.16F);
    EXPECT_GE(Contraste(colours.text, VuSur(tint, colours.background)), ContrasteLisible);
  }
}

/// Fills the grid with rows that have their number in N1.
void MontreUnMillion(ShownGrid& g) {
  class Million : public RowSource {
   public:
    bool Suivante(std::span<Cell> cells) override {
      if (row_ == 1000000) return false;
      cells[0] = Cell::Of(++row_);
      return true;
    }

   private:
    std::int64_t row_ = 0;
  } million;
  const std::array<std::string_view, 1> columns = {"N1"};
  g.state.document.WorkingDb->BeginTrans();
  g.state.document.WorkingDb->InsertRows("TALPENA", columns, million);
  g.state.document.WorkingDb->CommitTrans();
  g.state.document.Data1.Refresh();
}

TEST(Grid, OpensAMillionRowsAtOnceAndJumpsToTheLast) {
  ShownGrid g(0);
  MontreUnMillion(g);
  EXPECT_EQ(g.grid.model()->rowCount(), 1000000);
  QTest::keyClick(&g.grid, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(g.grid.currentIndex().row(), 999999);
  EXPECT_EQ(g.Texte(999999, n1), "1000000");
  EXPECT_EQ(TextePosition(g.state.document.Data1), "1000000/1000000");
}

// As an import leaves its rows.
TEST(Grid, ChoosesAMillionRowsThatFollowEachOtherAsOne) {
  ShownGrid g(0);
  MontreUnMillion(g);
  std::vector<Bookmark> rows(999990);
  std::iota(rows.begin(), rows.end(), 11);
  g.grid.ChoisitLignes(rows);
  EXPECT_EQ(g.grid.LignesChoisies(), rows);
  EXPECT_EQ(g.grid.selectionModel()->selection().size(), 1);
}

}  // namespace
}  // namespace talpena

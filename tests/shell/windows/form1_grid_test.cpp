// The commands over the grid's rows and columns, by menu, button and key.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>

#include "form1_machine.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

using test::Form1Machine;

constexpr int n1 = 3, comment = 9;

/// The window with a file of rows whose N1 is 1, 2, ...
struct Opened : Form1Machine {
  explicit Opened(int rows = 5) {
    form->Charge(Fichier(Lignes(rows)));
    form->activateWindow();
    grid = Controle<TDBGrid>("TDBGrid1");
    grid->setFocus();
    QApplication::processEvents();
  }
  std::string N1() const {
    std::string all;
    for (int row = 0; row < grid->model()->rowCount(); ++row) {
      all += (row == 0 ? "" : " ") + Texte(row, n1);
    }
    return all;
  }
  std::string Texte(int row, int column) const {
    return grid->model()->index(row, column).data(Qt::EditRole).toString().toStdString();
  }
  std::string Position() const {
    return Controle<QLabel>("StatusBar1_Panel_1")->text().toStdString();
  }
  void Va(int row, int column) const { grid->setCurrentIndex(grid->model()->index(row, column)); }

  TDBGrid* grid = nullptr;
};

TEST(Form1Grid, FindAndNextGoToTheRows) {
  Opened m(12);
  EXPECT_FALSE(m.Entree("mnuChercher_1")->isEnabled());
  m.dialogues.inputs = {"1990"};
  m.Entree("mnuChercher_0")->trigger();
  EXPECT_EQ(m.Position(), "1/12");
  EXPECT_TRUE(m.Entree("mnuChercher_1")->isEnabled());
  QTest::keyClick(m.grid, Qt::Key_F3);
  EXPECT_EQ(m.Position(), "2/12");
  EXPECT_EQ(m.grid->currentIndex().row(), 1);
  EXPECT_TRUE(m.grid->hasFocus());
  m.dialogues.inputs = {"12"};
  QTest::keyClick(m.grid, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(m.Position(), "12/12");
}

TEST(Form1Grid, NextStaysOfferedWithAnotherFile) {
  Opened m;
  m.dialogues.inputs = {"1990"};
  m.Entree("mnuChercher_0")->trigger();
  m.dialogues.paths = {m.Fichier(Form1Machine::Lignes(3), "b.deg")};
  m.Entree("MnuOuvrir")->trigger();
  EXPECT_TRUE(m.Entree("mnuChercher_1")->isEnabled());
  m.Entree("mnuChercher_1")->trigger();
  EXPECT_EQ(m.Position(), "2/3");
}

TEST(Form1Grid, TheButtonsFindAndDelete) {
  Opened m;
  m.dialogues.inputs = {"4"};
  QTest::mouseClick(m.Controle<QToolButton>("cmd_4"), Qt::LeftButton);
  EXPECT_EQ(m.Position(), "4/5");
  QTest::mouseClick(m.Controle<QToolButton>("cmd_5"), Qt::LeftButton);
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "Select row(s) before");
  m.grid->ChoisitLigne(1, {});
  m.grid->ChoisitLigne(3, Qt::ControlModifier);
  m.dialogues.answers = {Answer::Yes};
  QTest::mouseClick(m.Controle<QToolButton>("cmd_5"), Qt::LeftButton);
  EXPECT_EQ(m.N1(), "1 3 5");
  EXPECT_EQ(m.Position(), "3/3");
  EXPECT_TRUE(m.state.document.FichierModifie());
  EXPECT_FALSE(m.Controle<QWidget>("frmMessage")->isVisible());
  EXPECT_TRUE(m.grid->LignesChoisies().empty());
}

TEST(Form1Grid, CommandsChooseRowsByTheirNames) {
  Opened m;
  m.form->ChoisitLignes({4, 2});
  EXPECT_EQ(m.form->LignesSelectionnees(), (std::vector<Bookmark>{4, 2}));
  m.dialogues.answers = {Answer::Yes};
  QTest::mouseClick(m.Controle<QToolButton>("cmd_5"), Qt::LeftButton);
  EXPECT_EQ(m.N1(), "1 3 5");
}

TEST(Form1Grid, RowsOfLfAloneAreOpenedLineByLineFromTheStatusBar) {
  Form1Machine m;
  std::string rows = Form1Machine::Lignes(3);
  rows.erase(std::remove(rows.begin(), rows.end(), '\r'), rows.end());
  m.form->Charge(m.Fichier(rows));
  auto* panel = m.Controle<QLabel>("StatusBar1_Panel_2");
  EXPECT_TRUE(panel->text().contains("The lines of this file end in LF alone"));
  EXPECT_EQ(panel->focusPolicy(), Qt::StrongFocus) << "Tab goes to the link";
  EXPECT_EQ(m.state.document.Data1.recordset().RecordCount(), 1);
  Q_EMIT panel->linkActivated("lf");
  EXPECT_EQ(m.state.document.Data1.recordset().RecordCount(), 3);
  EXPECT_EQ(panel->text(), "");
  EXPECT_EQ(panel->focusPolicy(), Qt::NoFocus);
}

TEST(Form1Grid, WithoutAFileTheButtonsAreOff) {
  Form1Machine m;
  m.form->Charge({});
  for (const char* name : {"cmd_4", "cmd_5"}) {
    EXPECT_FALSE(m.Controle<QToolButton>(name)->isEnabled()) << name;
  }
  EXPECT_FALSE(m.Entree("MnuAjoutLigne")->isEnabled());
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  for (const char* name : {"cmd_4", "cmd_5"}) {
    EXPECT_TRUE(m.Controle<QToolButton>(name)->isEnabled()) << name;
    EXPECT_NE(m.Controle<QToolButton>(name)->toolTip().indexOf(QLatin1String("Ctrl+")), -1) << name;
  }
}

TEST(Form1Grid, LinesAreAddedAndDuplicatedByKey) {
  Opened m;
  m.Va(1, 4);
  QTest::keyClick(m.grid, Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(m.N1(), "1 2 3 4 5 2");
  EXPECT_EQ(m.Position(), "6/6");
  EXPECT_EQ(m.grid->currentIndex().column(), 4) << "the column stays";
  m.dialogues.inputs = {"2"};
  QTest::keyClick(m.grid, Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(m.Position(), "8/8");
  EXPECT_EQ(m.Texte(7, n1), "");
  QTest::keyClicks(m.grid, "7");
  EXPECT_TRUE(m.grid->hasFocus() || m.grid->isAncestorOf(QApplication::focusWidget()))
      << "and can be typed into at once";
}

TEST(Form1Grid, WhatIsBeingTypedIsStoredFirst) {
  Opened m;
  m.Va(1, n1);
  QTest::keyClicks(m.grid, "7");
  QTest::keyClicks(m.grid->findChild<QLineEdit*>(), "7");
  m.Entree("mnuDuplic")->trigger();
  EXPECT_EQ(m.N1(), "1 77 3 4 5 77");
}

TEST(Form1Grid, ARefusedCellHoldsTheCommandBack) {
  Opened m;
  m.Va(1, 0);
  QTest::keyClicks(m.grid, "x");
  m.Entree("mnuDuplic")->trigger();
  QApplication::processEvents();
  EXPECT_EQ(m.N1(), "1 2 3 4 5");
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text.rfind("Value not accepted", 0), 0U);
}

TEST(Form1Grid, AColumnIsErased) {
  Opened m;
  m.Va(2, n1);
  m.dialogues.answers = {Answer::No, Answer::Yes};
  m.Entree("MnuEraseCol")->trigger();
  EXPECT_EQ(m.grid->ColonnesChoisies(), (ColumnRange{n1, n1})) << "shown before it is erased";
  EXPECT_EQ(m.N1(), "1 2 3 4 5");
  m.Entree("MnuEraseCol")->trigger();
  EXPECT_EQ(m.N1(), "0 0 0 0 0");
  EXPECT_EQ(m.Position(), "3/5");
  EXPECT_EQ(m.grid->currentIndex().column(), n1);
  EXPECT_TRUE(m.grid->updatesEnabled());
  EXPECT_TRUE(m.state.document.FichierModifie());
}

TEST(Form1Grid, TheChosenColumnsAreErased) {
  Opened m;
  m.grid->ChoisitColonne(8, {});
  m.grid->ChoisitColonne(9, Qt::ShiftModifier);
  m.dialogues.answers = {Answer::Yes};
  QTest::keyClick(m.grid, Qt::Key_Delete, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(m.Texte(0, comment), "");
  EXPECT_EQ(m.Texte(0, 8), "1990/01/01") << "the heading is not the field";
}

TEST(Form1Grid, ARefusedErasureShowsTheRowsAsTheyWere) {
  Opened m;
  m.grid->ChoisitColonne(n1, {});
  m.grid->ChoisitColonne(5, Qt::ShiftModifier);
  m.dialogues.answers = {Answer::Yes};
  m.Entree("MnuEraseCol")->trigger();
  ASSERT_EQ(m.dialogues.boxes.size(), 2U);
  EXPECT_EQ(m.dialogues.boxes[1].text.rfind("Error 3315\n", 0), 0U);
  EXPECT_EQ(m.N1(), "1 2 3 4 5");
  EXPECT_TRUE(m.grid->updatesEnabled());
  EXPECT_FALSE(m.state.document.FichierModifie());
}

TEST(Form1Grid, AllRowsAreDeletedAndALineIsAdded) {
  Opened m;
  m.grid->selectAll();
  m.dialogues.answers = {Answer::Yes};
  QTest::keyClick(m.grid, Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(m.grid->model()->rowCount(), 0);
  EXPECT_EQ(m.Position(), "0/0");
  m.dialogues.inputs = {"1"};
  m.Entree("MnuAjoutLigne")->trigger();
  EXPECT_EQ(m.Position(), "1/1");
  EXPECT_EQ(m.grid->currentIndex().row(), 0);
}

TEST(Form1Grid, ThePositionFollowsTheCursor) {
  Opened m;
  QTest::keyClick(m.grid, Qt::Key_Down);
  EXPECT_EQ(m.Position(), "2/5");
  m.grid->ChoisitLigne(4, {});
  EXPECT_EQ(m.Position(), "5/5");
}

}  // namespace
}  // namespace talpena

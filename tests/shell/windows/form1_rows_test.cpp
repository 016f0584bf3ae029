// What the main window shows of filter and order.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "fakes/dialog_driver.h"
#include "shell/windows/form1_machine.h"
#include "store/deg_reader.h"
#include "store/edition.h"
#include "store/filter.h"
#include "store/windows/tdb_grid.h"

namespace talpena::test {
namespace {

class Form1Rows : public testing::Test, protected Form1Machine {
 protected:
  void SetUp() override { ASSERT_TRUE(form->Charge(Fichier(Lignes(12)))); }

  /// Opens Selection from the menu, types a condition and presses Enter.
  void Choisit(const QString& condition) {
    const DialogDriver driver("Selection", [&](QDialog& dialog) {
      auto* box = dialog.findChild<QLineEdit*>("TxtSelect");
      box->selectAll();
      QTest::keyClicks(box, condition);
      QTest::keyClick(box, Qt::Key_Return);
    });
    Entree("MnuSelection")->trigger();
  }
  std::string Panneau() const {
    return Controle<QLabel>("StatusBar1_Panel_2")->text().toStdString();
  }
  bool Coche() const { return Entree("MnuSelection")->isChecked(); }
  int Montrees() const { return Controle<TDBGrid>("TDBGrid1")->model()->rowCount(); }
};

TEST_F(Form1Rows, AFilterIsSaidAndChecked) {
  EXPECT_EQ(Panneau(), "");
  EXPECT_FALSE(Coche());
  Choisit("N1 > 9");
  EXPECT_EQ(Panneau(), "3 of 12 rows shown");
  EXPECT_TRUE(Coche());
  EXPECT_EQ(Montrees(), 3);
  EXPECT_EQ(Controle<QLabel>("StatusBar1_Panel_1")->text(), "1/3");
  EXPECT_FALSE(Controle<QLabel>("StatusBar1_Panel_2")->toolTip().isEmpty());
}

TEST_F(Form1Rows, ANoticeStandsBeforeTheFilterUntilItIsOver) {
  state.document.ChangeAvis("The automatic save waits.");
  EXPECT_EQ(Panneau(), "The automatic save waits.");
  Choisit("N1 > 9");
  EXPECT_EQ(Panneau(), "The automatic save waits.");
  state.document.OublieModifications();
  EXPECT_EQ(Panneau(), "3 of 12 rows shown");
}

TEST_F(Form1Rows, ARowThatIsAddedComesIntoView) {
  form->Commande(
      [&] { LitDeg(form->Commandes(), Fichier(Lignes(400), "long.deg"), MergeMode::Replace); });
  auto* grid = Controle<TDBGrid>("TDBGrid1");
  for (int i = 0; i < 3; ++i) {
    Entree("mnuDuplic")->trigger();
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(grid->currentIndex()))) << i;
    EXPECT_EQ(grid->currentIndex().row(), 400 + i);
  }
}

TEST_F(Form1Rows, AFilterThatMatchesNothingIsChecked) {
  Choisit("N1 > 99");
  EXPECT_EQ(Panneau(), "0 of 12 rows shown");
  EXPECT_TRUE(Coche());
  EXPECT_EQ(Montrees(), 0);
}

TEST_F(Form1Rows, ClosingTheSelectionLeavesTheMark) {
  for (const bool filtered : {false, true}) {
    if (filtered) Choisit("N1 > 9");
    const DialogDriver driver("Selection", [](QDialog& dialog) { dialog.reject(); });
    Entree("MnuSelection")->trigger();
    EXPECT_EQ(Coche(), filtered);
  }
}

TEST_F(Form1Rows, TheMarkGoesWithTheFilter) {
  Choisit("N1 > 9");
  const DialogDriver driver("Selection", [](QDialog& dialog) {
    dialog.findChild<QRadioButton*>("OptSelect_0")->click();
    dialog.findChild<QPushButton*>("CmdSelect_0")->click();
  });
  Entree("MnuSelection")->trigger();
  EXPECT_FALSE(Coche());
  EXPECT_EQ(Panneau(), "Filter off: all 12 rows shown");
  EXPECT_TRUE(Controle<QLabel>("StatusBar1_Panel_2")->toolTip().isEmpty());
}

TEST_F(Form1Rows, ASortEndsTheFilterForAllToSee) {
  Choisit("N1 > 9");
  Controle<QComboBox>("CmbTri")->setCurrentIndex(4);
  EXPECT_FALSE(Coche());
  EXPECT_EQ(Panneau(), "Filter off: all 12 rows shown");
  Controle<QRadioButton>("OptTri_1")->click();
  EXPECT_EQ(Panneau(), "") << "told once";
}

TEST_F(Form1Rows, AnotherFileEndsTheFilter) {
  Choisit("N1 > 9");
  dialogues.paths = {Fichier(Lignes(4), "b.deg")};
  Entree("MnuOuvrir")->trigger();
  EXPECT_FALSE(Coche());
  EXPECT_EQ(Montrees(), 4);
  EXPECT_EQ(Panneau().find("of"), Panneau().find("off"));
}

TEST_F(Form1Rows, NewEndsTheFilter) {
  Choisit("N1 > 9");
  dialogues.inputs = {"3"};
  dialogues.answers = {Answer::Yes};  // the free fields of standard.hdr
  const DialogDriver driver("frmOptionsPeriodes", [](QDialog& dialog) { dialog.reject(); });
  Entree("MnuNouveau")->trigger();
  EXPECT_FALSE(Coche());
  EXPECT_EQ(Montrees(), 3);
}

TEST_F(Form1Rows, TheNumbersFollowRowsThatComeAndGo) {
  Choisit("N1 > 9");
  const Bookmark first = state.document.Data1.Clone()->GetBookmark();
  Edition(state.document, "a test").SupprimeLignes(std::span(&first, 1));
  EXPECT_EQ(Panneau(), "2 of 11 rows shown");
  Edition(state.document, "a test").AjouteLigne();
  EXPECT_EQ(Panneau(), "3 of 12 rows shown");
}

TEST_F(Form1Rows, TheWordsFollowTheLanguage) {
  Choisit("N1 > 9");
  Entree("MnuLang_3")->trigger();
  EXPECT_EQ(Panneau(), "3 von 12 Zeilen angezeigt");
  Controle<QComboBox>("CmbTri")->setCurrentIndex(4);
  Entree("MnuLang_1")->trigger();
  EXPECT_EQ(Panneau(), "Filter off: all 12 rows shown");
}

TEST_F(Form1Rows, ARefusedConditionIsToldAndLeavesTheWindow) {
  Choisit("N1 > 9");
  const DialogDriver driver("Selection", [&](QDialog& dialog) {
    auto* box = dialog.findChild<QLineEdit*>("TxtSelect");
    QTest::keyClicks(box, " AND");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    dialog.reject();
  });
  Entree("MnuSelection")->trigger();
  EXPECT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(Panneau(), "3 of 12 rows shown");
  EXPECT_TRUE(Coche());
}

TEST_F(Form1Rows, TheSortControlsShowTheOrderThatTheRowsHave) {
  auto* list = Controle<QComboBox>("CmbTri");
  list->setCurrentIndex(4);
  Controle<QRadioButton>("OptTri_1")->click();
  Choisit("N1 > 9");
  EXPECT_EQ(list->currentIndex(), 0) << "a filter shows file order";
  EXPECT_TRUE(Controle<QRadioButton>("OptTri_0")->isChecked());
  list->setCurrentIndex(4);  // and so the same order can be chosen again
  EXPECT_EQ(state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY  [N1] ASC");
  EXPECT_EQ(Montrees(), 12);
  dialogues.paths = {Fichier(Lignes(4), "b.deg")};
  Entree("MnuOuvrir")->trigger();
  EXPECT_EQ(list->currentIndex(), 4) << "the order survives Open";
}

}  // namespace
}  // namespace talpena::test

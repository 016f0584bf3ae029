// New in the main window, and what the window shows before there is a file.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "fakes/dialog_driver.h"
#include "form1_machine.h"
#include "store/windows/tdb_grid.h"

namespace talpena::test {
namespace {

class Form1New : public testing::Test, protected Form1Machine {
 protected:
  void Nouveau() {
    dialogues.inputs = {"3"};
    dialogues.answers.push_back(Answer::Yes);  // the free fields of standard.hdr
    const DialogDriver driver("frmOptionsPeriodes", [](QDialog& dialog) { dialog.reject(); });
    Entree("MnuNouveau")->trigger();
  }
};

TEST_F(Form1New, TheEmptyWindowShowsTheDatumOfTheFile) {
  form->Charge("");
  EXPECT_EQ(Controle<QLabel>("StatusBar1_Panel_3")->text().toStdString(),
            state.document.Entete().DatumFichierCode);
}

TEST_F(Form1New, ShowsNothingOfTheFileBefore) {
  form->Charge(Fichier(Lignes(12)));
  Controle<QComboBox>("CmbTri")->setCurrentIndex(4);
  Nouveau();
  EXPECT_EQ(form->windowTitle(), "Talpena");
  EXPECT_EQ(Controle<QLineEdit>("BoxTitre")->text(), "");
  EXPECT_EQ(Controle<QLineEdit>("Commentaire")->text(), "");
  EXPECT_EQ(Controle<QComboBox>("CmbTri")->currentIndex(), 0);
  EXPECT_EQ(Controle<QLabel>("StatusBar1_Panel_1")->text(), "1/3");
  EXPECT_EQ(Controle<QLabel>("StatusBar1_Panel_3")->text(), "WGS84") << "the datum stays";
}

TEST_F(Form1New, TypingBeginsInTheFirstCell) {
  form->Charge(Fichier(Lignes(12)));
  auto* grid = Controle<TDBGrid>("TDBGrid1");
  grid->setCurrentIndex(grid->model()->index(5, 7));
  Controle<QLineEdit>("BoxTitre")->setFocus();
  Nouveau();
  EXPECT_EQ(grid->currentIndex(), grid->model()->index(0, 0));
  EXPECT_EQ(form->focusWidget(), grid);
}

TEST_F(Form1New, WithoutRowsTheKeysOfARowSayWhyNot) {
  form->Charge(Fichier(""));
  form->activateWindow();
  auto* grid = Controle<TDBGrid>("TDBGrid1");
  grid->setFocus();
  const std::string why = "There is no row to work on; add a row or choose one first.";
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End}) {
    QTest::keyClick(grid, key, Qt::ControlModifier);
    ASSERT_EQ(dialogues.boxes.size(), 1U);
    EXPECT_EQ(dialogues.boxes[0].text, why);
    dialogues.boxes.clear();
  }
  form->MontreEdition();
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, why);
  Entree("mnuDuplic")->trigger();
  ASSERT_EQ(dialogues.boxes.size(), 2U);
  EXPECT_EQ(dialogues.boxes[1].text, "Error 3021\n" + why);
}

TEST_F(Form1New, InTheEmptyWindowTheKeysOfARowSayThatThereIsNoFile) {
  form->Charge("");
  auto* list = Controle<QComboBox>("CmbTri");
  list->setCurrentIndex(4);
  for (QWidget* focus : {static_cast<QWidget*>(list), Controle<QWidget>("lbl1")}) {
    QTest::keyClick(focus, Qt::Key_Home, Qt::ControlModifier);
    ASSERT_EQ(dialogues.boxes.size(), 1U);
    EXPECT_EQ(dialogues.boxes[0].text, "No file is open; open one or begin a new one.");
    dialogues.boxes.clear();
  }
  EXPECT_EQ(list->currentIndex(), 4) << "the order is not touched";
  form->MontreEdition();
  EXPECT_EQ(dialogues.boxes.size(), 1U);
}

TEST_F(Form1New, CtrlHomeInTheSortListGoesToTheFirstRow) {
  form->Charge(Fichier(Lignes(12)));
  auto* grid = Controle<TDBGrid>("TDBGrid1");
  grid->setCurrentIndex(grid->model()->index(5, 7));
  auto* list = Controle<QComboBox>("CmbTri");
  QTest::keyClick(list, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(grid->currentIndex(), grid->model()->index(11, 7));
  QTest::keyClick(list, Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(grid->currentIndex(), grid->model()->index(0, 7));
  EXPECT_EQ(list->currentIndex(), 0);
}

}  // namespace
}  // namespace talpena::test

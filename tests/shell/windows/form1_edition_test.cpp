// The record editor opened from the main window.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include "fakes/dialog_driver.h"
#include "shell/windows/form1_machine.h"
#include "store/windows/tdb_grid.h"

namespace talpena::test {
namespace {

struct EditionMachine : Form1Machine {
  explicit EditionMachine(int rows = 3) {
    form->Charge(Fichier(Lignes(rows)));
    form->activateWindow();
    grid = Controle<TDBGrid>("TDBGrid1");
    grid->setFocus();
    QApplication::processEvents();
  }
  void DoubleClique(int row, int column) const {
    const QRect cell = grid->visualRect(grid->model()->index(row, column));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
  }
  TDBGrid* grid;
};

std::string Position(QDialog& editor) {
  return editor.findChild<QLabel*>("lblCpt")->text().toStdString();
}

/// A first number for the row.
void Tape(QDialog& editor, const char* number) {
  auto* field = editor.findChild<QLineEdit*>("ChampCh1");
  field->selectAll();
  QTest::keyClicks(field, QLatin1String(number));
}

TEST(Form1Edition, ADoubleClickOpensTheRowInTheEditor) {
  EditionMachine m;
  std::string position;
  {
    const DialogDriver driver("EditForm", [&](QDialog& editor) {
      position = Position(editor);
      editor.close();
    });
    m.DoubleClique(1, 3);
  }
  EXPECT_EQ(position, "2/3");
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  EXPECT_EQ(m.grid->findChild<QLineEdit*>(), nullptr) << "no cell is edited in place";
}

TEST(Form1Edition, TheToolButtonOpensTheCurrentRow) {
  EditionMachine m;
  m.grid->setCurrentIndex(m.grid->model()->index(2, 5));
  std::string position;
  {
    const DialogDriver driver("EditForm", [&](QDialog& editor) {
      position = Position(editor);
      editor.close();
    });
    m.Controle<QToolButton>("cmd_3")->click();
  }
  EXPECT_EQ(position, "3/3");
}

TEST(Form1Edition, TheKeysComeBackToTheRowShownLast) {
  EditionMachine m;
  {
    const DialogDriver driver("EditForm", [](QDialog& editor) {
      editor.findChild<QPushButton*>("cmdNavig_0")->click();
      editor.findChild<QPushButton*>("cmdNavig_0")->click();
      QTest::keyClick(&editor, Qt::Key_Escape);
    });
    m.DoubleClique(0, 3);
  }
  EXPECT_EQ(m.form->focusWidget(), m.grid);
  EXPECT_EQ(m.grid->currentIndex().row(), 2);
  EXPECT_EQ(m.Controle<QLabel>("StatusBar1_Panel_1")->text(), "3/3");
}

TEST(Form1Edition, SavedValuesStandInTheGrid) {
  EditionMachine m;
  {
    const DialogDriver driver("EditForm", [](QDialog& editor) {
      Tape(editor, "77");
      editor.findChild<QPushButton*>("ButOk")->click();
      editor.findChild<QPushButton*>("ButNew")->click();
      editor.close();
    });
    m.DoubleClique(0, 3);
  }
  EXPECT_EQ(m.grid->model()->index(0, 3).data().toString(), "77");
  EXPECT_EQ(m.grid->model()->rowCount(), 4);
  EXPECT_EQ(m.grid->currentIndex().row(), 3);
  EXPECT_TRUE(m.state.document.FichierModifie());
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(Form1Edition, NeedsAFileWithRows) {
  Form1Machine empty;
  empty.form->Charge({});
  EXPECT_FALSE(empty.Controle<QToolButton>("cmd_3")->isEnabled());
  Form1Machine noRows;
  noRows.form->Charge(noRows.Fichier({}));
  EXPECT_FALSE(noRows.Controle<QToolButton>("cmd_3")->isEnabled());
  const EditionMachine rows;
  EXPECT_TRUE(rows.Controle<QToolButton>("cmd_3")->isEnabled());
}

TEST(Form1Edition, TypingAndF2StillEditInPlace) {
  EditionMachine m;
  m.grid->setCurrentIndex(m.grid->model()->index(0, 3));
  QTest::keyClick(m.grid, Qt::Key_F2);
  ASSERT_NE(m.grid->findChild<QLineEdit*>(), nullptr);
  QTest::keyClick(m.grid->findChild<QLineEdit*>(), Qt::Key_Escape);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QTest::keyClick(m.grid, Qt::Key_7);
  ASSERT_NE(m.grid->findChild<QLineEdit*>(), nullptr);
  EXPECT_EQ(m.grid->findChild<QLineEdit*>()->text(), "7");
}

TEST(Form1Edition, AnAutomaticSaveGoesOnWhileItIsOpen) {
  EditionMachine m;
  m.state.AutoSave = true;
  m.state.SaveInterval = 1;
  bool saved = false;
  {
    const DialogDriver driver("EditForm", [&](QDialog& editor) {
      Tape(editor, "77");
      editor.findChild<QPushButton*>("ButOk")->click();
      auto* timer = m.form->findChild<QTimer*>("Timer1");
      for (int i = 0; i < 3; ++i) QMetaObject::invokeMethod(timer, "timeout");
      saved = !m.state.document.FichierModifie();
      editor.close();
    });
    m.DoubleClique(0, 3);
  }
  EXPECT_TRUE(saved);
}

TEST(Form1Edition, ClosingTheProgramClosesTheEditorFirst) {
  EditionMachine m;
  bool stayed = false;
  m.dialogues.answers = {Answer::Cancel, Answer::No};
  {
    const DialogDriver driver("EditForm", [&](QDialog& editor) {
      Tape(editor, "77");
      m.form->close();
      stayed = editor.isVisible() && m.form->isVisible();
      m.form->close();
    });
    m.DoubleClique(0, 3);
  }
  EXPECT_TRUE(stayed) << "Cancel keeps both";
  QTest::qWait(10);
  EXPECT_FALSE(m.form->isVisible());
  EXPECT_EQ(m.dialogues.boxes.size(), 2U);
}

}  // namespace
}  // namespace talpena::test

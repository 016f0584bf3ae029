// The free fields of the record editor and the editor that floats over their cells.
#include "store/windows/free_fields_grid.h"

#include <QClipboard>
#include <QInputMethodEvent>

#include "store/windows/edit_form_machine.h"

namespace talpena::test {
namespace {

using Lines = std::vector<std::string>;

struct GridForm : FormMachine {
  GridForm() : FormMachine({Rangee("mgr 31 U FR1664", "a/b/c/remark")}, {"One", "Two  ", "Three"}) {
    Ouvre();
    grid = Controle<FreeFieldsGrid>("Grid");
    PlaceFocus("Grid");
  }
  QLineEdit* Editeur() const { return Champ("txtEdit"); }
  int Rang() const { return grid->currentIndex().row(); }
  FreeFieldsGrid* grid;
};

TEST(FreeFieldsGrid, ShowsLabelsAndValues) {
  GridForm g;
  const auto* model = g.grid->model();
  ASSERT_EQ(model->rowCount(), 3);
  EXPECT_EQ(model->index(1, 0).data().toString(), "Two");
  EXPECT_EQ(model->index(2, 1).data().toString(), "c");
  EXPECT_FALSE(model->flags(model->index(0, 0)).testFlag(Qt::ItemIsEditable));
  EXPECT_EQ(g.Rang(), 0);
  EXPECT_FALSE(g.Editeur()->isVisible());
}

TEST(FreeFieldsGrid, TypingReplacesTheValueAndEnterGoesOn) {
  GridForm g;
  FormMachine::Tape("Wood");
  EXPECT_EQ(FormMachine::Focus(), "txtEdit");
  EXPECT_EQ(g.Editeur()->text(), "Wood");
  EXPECT_EQ(g.Editeur()->accessibleName(), "One");
  EXPECT_EQ(g.grid->Textes()[0], "a") << "not stored yet";
  EXPECT_TRUE(g.Bouton("ButOk")->isEnabled());
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(g.grid->Textes(), (Lines{"Wood", "b", "c"}));
  EXPECT_EQ(g.Rang(), 1);
  EXPECT_EQ(FormMachine::Focus(), "Grid");
  FormMachine::Tape("x");
  FormMachine::Touche(Qt::Key_Return);
  FormMachine::Tape("y");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(FormMachine::Focus(), "ChampLibre") << "behind the last field";
  FormMachine::Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(g.Commentaires(), Lines{"Wood/x/y/remark"});
}

TEST(FreeFieldsGrid, OpensACellWithItsText) {
  for (const int key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    GridForm g;
    FormMachine::Touche(key);
    EXPECT_TRUE(g.Editeur()->isVisible());
    EXPECT_EQ(g.Editeur()->text(), "a");
    FormMachine::Touche(Qt::Key_End);
    FormMachine::Tape("!");
    FormMachine::Touche(Qt::Key_Return);
    EXPECT_EQ(g.grid->Textes()[0], "a!");
  }
}

TEST(FreeFieldsGrid, ADoubleClickOpensTheValueOfItsRow) {
  for (const int column : {0, 1}) {
    GridForm g;
    const QRect cell = g.grid->visualRect(g.grid->model()->index(1, column));
    QTest::mouseClick(g.grid->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(g.grid->currentIndex().column(), 1) << "labels are no cells to stand on";
    QTest::mouseDClick(g.grid->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(g.Editeur()->text(), "b");
    EXPECT_TRUE(g.grid->visualRect(g.grid->currentIndex()).contains(g.Editeur()->geometry()));
    EXPECT_NEAR(g.Editeur()->height(), cell.height(), 2);
  }
}

TEST(FreeFieldsGrid, EscapeLeavesTheCellUnchangedAndTheFormOpen) {
  GridForm g;
  FormMachine::Tape("Wood");
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_EQ(g.grid->Textes()[0], "a");
  EXPECT_FALSE(g.Editeur()->isVisible());
  EXPECT_EQ(FormMachine::Focus(), "Grid");
  EXPECT_FALSE(g.Bouton("ButOk")->isEnabled()) << "nothing has changed";
  EXPECT_TRUE(g.form->isVisible());
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_FALSE(g.form->isVisible());
}

TEST(FreeFieldsGrid, EscapeKeepsTheOtherChanges) {
  GridForm g;
  g.PlaceFocus("ChampCh1");
  FormMachine::Tape("9");
  g.PlaceFocus("Grid");
  FormMachine::Tape("Wood");
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_TRUE(g.Bouton("ButOk")->isEnabled());
}

struct ArrowCase {
  const char* name;
  int key;
  int row;  ///< from row 1
};

TEST(FreeFieldsGrid, ArrowsStoreAndGoToAnotherCell) {
  const ArrowCase cases[] = {
      {"up", Qt::Key_Up, 0}, {"down", Qt::Key_Down, 2}, {"right at the end", Qt::Key_Right, 2}};
  for (const ArrowCase& c : cases) {
    SCOPED_TRACE(c.name);
    GridForm g;
    FormMachine::Touche(Qt::Key_Down);
    FormMachine::Tape("new");
    FormMachine::Touche(c.key);
    EXPECT_EQ(g.grid->Textes()[1], "new");
    EXPECT_EQ(g.Rang(), c.row);
    EXPECT_FALSE(g.Editeur()->isVisible());
  }
}

TEST(FreeFieldsGrid, ArrowsInsideTheTextMoveTheCursor) {
  GridForm g;
  FormMachine::Touche(Qt::Key_Down);
  FormMachine::Tape("new");
  FormMachine::Touche(Qt::Key_Left);
  EXPECT_TRUE(g.Editeur()->isVisible());
  EXPECT_EQ(g.Editeur()->cursorPosition(), 2);
  FormMachine::Touche(Qt::Key_Home);
  EXPECT_TRUE(g.Editeur()->isVisible());
  FormMachine::Touche(Qt::Key_Left);
  EXPECT_EQ(g.Rang(), 0);
  EXPECT_EQ(g.grid->Textes()[1], "new");
}

TEST(FreeFieldsGrid, ShowsLabelsWithoutTheBlanksBeforeThem) {
  FormMachine m({Rangee()}, {"Toponym", " Altitude ", "  Source"});
  m.Ouvre();
  const auto* grid = m.Controle<FreeFieldsGrid>("Grid");
  EXPECT_EQ(grid->model()->index(1, 0).data().toString(), "Altitude");
  EXPECT_EQ(grid->model()->index(2, 0).data().toString(), "Source");
  EXPECT_EQ(m.state.document.Entete().FreeFieldDefs[1].Label, " Altitude ") << "the file's stays";
}

TEST(FreeFieldsGrid, ASelectionIsLeftBeforeTheCell) {
  GridForm g;
  FormMachine::Touche(Qt::Key_F2);
  FormMachine::Touche(Qt::Key_Right);
  EXPECT_TRUE(g.Editeur()->isVisible());
  EXPECT_FALSE(g.Editeur()->hasSelectedText());
}

TEST(FreeFieldsGrid, TabStoresAndGoesThroughTheFields) {
  GridForm g;
  FormMachine::Tape("Wood");
  FormMachine::Touche(Qt::Key_Tab);
  EXPECT_EQ(g.grid->Textes()[0], "Wood");
  EXPECT_EQ(FormMachine::Focus(), "Grid");
  EXPECT_EQ(g.Rang(), 1);
  FormMachine::Touche(Qt::Key_Tab);
  EXPECT_EQ(g.Rang(), 2);
  FormMachine::Tape("Heath");
  FormMachine::Touche(Qt::Key_Tab);
  EXPECT_EQ(g.grid->Textes()[2], "Heath");
  EXPECT_EQ(FormMachine::Focus(), "ChampLibre") << "behind the last one";
}

TEST(FreeFieldsGrid, BacktabStoresAndGoesBackThroughTheFields) {
  GridForm g;
  g.PlaceFocus("ChampLibre");
  for (int row = 2; row >= 0; --row) {
    FormMachine::Touche(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(FormMachine::Focus(), "Grid");
    EXPECT_EQ(g.Rang(), row);
  }
  FormMachine::Tape("Fen");
  FormMachine::Touche(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(g.grid->Textes()[0], "Fen");
  EXPECT_EQ(FormMachine::Focus(), "ChampSex") << "before the first one";
}

TEST(FreeFieldsGrid, TabComesToTheFirstFieldAndBackToTheLast) {
  GridForm g;
  FormMachine::Touche(Qt::Key_Down);
  g.PlaceFocus("ChampSex");
  FormMachine::Touche(Qt::Key_Tab);
  EXPECT_EQ(g.Rang(), 0);
  g.PlaceFocus("ChampLibre");
  FormMachine::Touche(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(FormMachine::Focus(), "Grid");
  EXPECT_EQ(g.Rang(), 2);
}

TEST(FreeFieldsGrid, AClickElsewhereStores) {
  GridForm g;
  FormMachine::Tape("Wood");
  g.Champ("ChampCh1")->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(g.grid->Textes()[0], "Wood");
  EXPECT_EQ(FormMachine::Focus(), "ChampCh1");
}

TEST(FreeFieldsGrid, SavingTakesWhatIsBeingTyped) {
  GridForm g;
  FormMachine::Tape("Wood");
  FormMachine::Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(g.Commentaires(), Lines{"Wood/b/c/remark"});
  EXPECT_EQ(FormMachine::Focus(), "Grid");
  EXPECT_FALSE(g.Bouton("ButOk")->isEnabled());
}

TEST(FreeFieldsGrid, ClosingAsksForWhatIsBeingTyped) {
  GridForm g;
  FormMachine::Tape("Wood");
  g.dialogues.answers = {Answer::Yes};
  EXPECT_TRUE(g.form->close());
  EXPECT_EQ(g.Commentaires(), Lines{"Wood/b/c/remark"});
}

TEST(FreeFieldsGrid, DeleteAndBackspaceEmptyACell) {
  GridForm g;
  FormMachine::Touche(Qt::Key_Delete);
  EXPECT_EQ(g.grid->Textes()[0], "");
  EXPECT_TRUE(g.Bouton("ButOk")->isEnabled());
  FormMachine::Touche(Qt::Key_Down);
  FormMachine::Touche(Qt::Key_Backspace);
  EXPECT_TRUE(g.Editeur()->isVisible());
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(g.grid->Textes(), (Lines{"", "", "c"}));
}

TEST(FreeFieldsGrid, ComposedLettersOpenACellToo) {
  GridForm g;
  QInputMethodEvent letter;
  letter.setCommitString(QStringLiteral("é"));
  QApplication::sendEvent(g.grid, &letter);
  FormMachine::Tape("tang");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(g.grid->Textes()[0], "étang");
}

TEST(FreeFieldsGrid, UndoBringsTheOldTextBack) {
  GridForm g;
  FormMachine::Tape("x");
  FormMachine::Touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(g.Editeur()->text(), "a");
}

TEST(FreeFieldsGrid, TheEditorFollowsItsCell) {
  FormMachine m({Rangee()}, Lines(60, "Field"));
  m.Ouvre();
  m.PlaceFocus("Grid");
  auto* grid = m.Controle<FreeFieldsGrid>("Grid");
  grid->setCurrentIndex(grid->model()->index(5, 1));
  FormMachine::Touche(Qt::Key_F2);
  const auto over = [&] {
    return m.Champ("txtEdit")->y() == grid->visualRect(grid->currentIndex()).y();
  };
  EXPECT_TRUE(over());
  QTest::qWait(1);
  grid->scrollTo(grid->model()->index(20, 1));
  EXPECT_TRUE(over());
  m.form->resize(m.form->width() + 50, m.form->height() + 40);
  FormMachine::Traite();
  EXPECT_TRUE(over());
  EXPECT_NEAR(m.Champ("txtEdit")->width(), grid->columnWidth(1), 3);
}

TEST(FreeFieldsGrid, ColumnsFillTheGridAndCutNoLabel) {
  const std::string label = "Associated taxon, with the flower on which it sat";
  FormMachine m({Rangee()}, {"Toponym", label});
  m.Ouvre();
  const auto* grid = m.Controle<FreeFieldsGrid>("Grid");
  EXPECT_EQ(grid->columnWidth(0) + grid->columnWidth(1), grid->viewport()->width());
  EXPECT_GT(grid->columnWidth(0),
            grid->fontMetrics().horizontalAdvance(QString::fromStdString(label)));
  FormMachine narrow({Rangee()}, {"A"});
  narrow.Ouvre();
  EXPECT_EQ(narrow.Controle<FreeFieldsGrid>("Grid")->columnWidth(0), 133) << "2000 twips";
}

TEST(FreeFieldsGrid, ManyFieldsScroll) {
  FormMachine m({Rangee()}, Lines(2000, "Field"));
  m.Ouvre();
  EXPECT_LE(m.form->minimumSizeHint().height(), 768);
  m.PlaceFocus("Grid");
  FormMachine::Touche(Qt::Key_End, Qt::ControlModifier);
  const auto* grid = m.Controle<FreeFieldsGrid>("Grid");
  EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(grid->currentIndex()).center()));
}

TEST(FreeFieldsGrid, TheNextRowHasItsOwnTexts) {
  FormMachine m({Rangee("", "a/b/"), Rangee("", "c/d/")});
  m.Ouvre();
  m.PlaceFocus("Grid");
  FormMachine::Tape("typed");
  FormMachine::Touche(Qt::Key_PageDown);
  const auto* grid = m.Controle<FreeFieldsGrid>("Grid");
  EXPECT_EQ(grid->Textes(), (Lines{"c", "d"}));
  EXPECT_EQ(m.Commentaires()[0], "typed/b/");
}

}  // namespace
}  // namespace talpena::test

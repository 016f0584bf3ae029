// Choosing rows and columns, by mouse and keyboard.
#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <optional>

#include "store/windows/grid_model.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

/// A column chosen together with those that are chosen already: one next to them widens them,
/// the one at their edge is taken out, any other one stands alone.
ColumnRange AvecColonne(ColumnRange chosen, int column) {
  if (column == chosen.first - 1 || column == chosen.last + 1) {
    return {std::min(chosen.first, column), std::max(chosen.last, column)};
  }
  if (chosen.first < chosen.last && column == chosen.first) return {column + 1, chosen.last};
  if (chosen.first < chosen.last && column == chosen.last) return {chosen.first, column - 1};
  return {column, column};
}

}  // namespace

/// Where a key goes that chooses rows with Shift; empty for other keys.
std::optional<TDBGrid::CursorAction> TDBGrid::Mouvement(const QKeyEvent& event) {
  if (!event.modifiers().testFlag(Qt::ShiftModifier)) return std::nullopt;
  const bool control = event.modifiers().testFlag(Qt::ControlModifier);
  switch (event.key()) {
    case Qt::Key_Up:
      return MoveUp;
    case Qt::Key_Down:
      return MoveDown;
    case Qt::Key_PageUp:
      return MovePageUp;
    case Qt::Key_PageDown:
      return MovePageDown;
    case Qt::Key_Home:
      return control ? std::optional(MoveHome) : std::nullopt;
    case Qt::Key_End:
      return control ? std::optional(MoveEnd) : std::nullopt;
    default:
      return std::nullopt;
  }
}

/// The headings choose columns; the view's own way would also move the cursor to another row.
void TDBGrid::RelieTitres() {
  QHeaderView* headings = horizontalHeader();
  disconnect(headings, &QHeaderView::sectionPressed, this, nullptr);
  disconnect(headings, &QHeaderView::sectionEntered, this, nullptr);
  connect(headings, &QHeaderView::sectionPressed, this,
          [this](int column) { ChoisitColonne(column, QApplication::keyboardModifiers()); });
  connect(headings, &QHeaderView::sectionEntered, this,
          [this](int column) { ChoisitColonne(column, Qt::ShiftModifier); });
}

void TDBGrid::OublieChoix() {
  chosen_.Vide();
  columns_.reset();
  lastChosen_ = keyAnchor_ = -1;
}

void TDBGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (!choosing_) NoteChoix(false);
}

/// Takes the rows that are selected from end to end, whatever selected them.
void TDBGrid::NoteChoix(bool upwards) {
  columns_.reset();
  std::vector<RowRun> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    if (range.width() == Column::GridCount) rows.push_back({range.top(), range.bottom()});
  }
  chosen_.Devient(std::move(rows), upwards);
  lastChosen_ = chosen_.Derniere().value_or(-1);
  chosenTop_ = chosenBottom_ = lastChosen_;
}

void TDBGrid::ChoisitLigne(int row, Qt::KeyboardModifiers modifiers) {
  keyAnchor_ = -1;
  const int last = lastChosen_;
  const bool extend = modifiers.testFlag(Qt::ShiftModifier) && last >= 0;
  const bool more = modifiers.testFlag(Qt::ControlModifier) && last >= 0;
  int top = row, bottom = row;
  QItemSelectionModel::SelectionFlags how = QItemSelectionModel::ClearAndSelect;
  if (extend) {
    // With the rows that the same extension has added already: one range instead of many.
    top = std::min(chosenTop_, row);
    bottom = std::max(chosenBottom_, row);
    how = QItemSelectionModel::Select;
  } else if (more) {
    how = chosen_.Contient(row) ? QItemSelectionModel::Deselect : QItemSelectionModel::Select;
  }
  choosing_ = true;
  selectionModel()->setCurrentIndex(model_->index(row, ColonneCourante()),
                                    QItemSelectionModel::NoUpdate);
  selectionModel()->select(
      QItemSelection(model_->index(top, 0), model_->index(bottom, Column::GridCount - 1)), how);
  choosing_ = false;
  NoteChoix(row < last);
  if (chosen_.Contient(row)) {
    lastChosen_ = row;
    chosenTop_ = top;
    chosenBottom_ = bottom;
  }
  setFocus();
}

void TDBGrid::PlaceColonne(int column) {
  column_ = column;
  const QModelIndex cell = model_->index(currentIndex().row(), column);
  if (!cell.isValid()) return;
  selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
}

void TDBGrid::ChoisitLignes(const std::vector<Bookmark>& rows) {
  OublieChoix();
  std::vector<RowRun> runs;
  for (const int row : model_->LignesDe(rows)) runs.push_back({row, row});
  chosen_.DevientDansLOrdre(runs);
  QItemSelection selection;
  for (const RowRun run : chosen_.Suites()) {
    selection.append(
        QItemSelectionRange(model_->index(std::min(run.from, run.to), 0),
                            model_->index(std::max(run.from, run.to), Column::GridCount - 1)));
  }
  choosing_ = true;
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  choosing_ = false;
  lastChosen_ = chosenTop_ = chosenBottom_ = chosen_.Derniere().value_or(-1);
  // Where the cursor stands on the first of several, those behind it are seen too.
  const QModelIndex here = currentIndex();
  if (rows.size() > 1 && chosen_.Contient(here.row())) scrollTo(here, PositionAtCenter);
}

std::vector<Bookmark> TDBGrid::LignesChoisies() const {
  std::vector<Bookmark> bookmarks;
  bookmarks.reserve(static_cast<std::size_t>(chosen_.Nombre()));
  for (const RowRun run : chosen_.Suites()) model_->AjouteSignets(run.from, run.to, bookmarks);
  return bookmarks;
}

void TDBGrid::ChoisitColonne(int column, Qt::KeyboardModifiers modifiers) {
  ColumnRange columns{column, column};
  int anchor = column;
  if (columns_ && modifiers.testFlag(Qt::ShiftModifier)) {
    anchor = columnAnchor_;
    columns = {std::min(anchor, column), std::max(anchor, column)};
  } else if (columns_ && modifiers.testFlag(Qt::ControlModifier)) {
    columns = AvecColonne(*columns_, column);
  }
  const QModelIndex cell = model_->index(std::max(currentIndex().row(), 0), column);
  selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
  SelectionneColonnes(columns);
  columnAnchor_ = anchor;
  setFocus();
}

void TDBGrid::SelectionneColonnes(ColumnRange columns) {
  const int rows = model_->rowCount();
  if (rows == 0) return;
  choosing_ = true;
  selectionModel()->select(
      QItemSelection(model_->index(0, columns.first), model_->index(rows - 1, columns.last)),
      QItemSelectionModel::ClearAndSelect);
  choosing_ = false;
  OublieChoix();
  columns_ = columns;
  columnAnchor_ = columns.first;
}

bool TDBGrid::EtendParTouche(const QKeyEvent& event) {
  const std::optional<CursorAction> move = Mouvement(event);
  if (!move || !currentIndex().isValid()) return false;
  const int here = currentIndex().row();
  const int anchor = keyAnchor_ >= 0 && lastChosen_ == here ? keyAnchor_ : here;
  const int there = moveCursor(*move, event.modifiers() & Qt::ControlModifier).row();
  if (there < 0) return false;
  ChoisitLigne(anchor, {});
  ChoisitLigne(there, Qt::ShiftModifier);
  keyAnchor_ = anchor;
  return true;
}

bool TDBGrid::ChoisitParTouche(Qt::KeyboardModifiers modifiers) {
  if (!currentIndex().isValid()) return false;
  const bool shift = modifiers.testFlag(Qt::ShiftModifier);
  const bool control = modifiers.testFlag(Qt::ControlModifier);
  if (shift) {
    ChoisitLigne(currentIndex().row(), control ? Qt::ControlModifier : Qt::ShiftModifier);
  } else if (control) {
    ChoisitColonne(currentIndex().column(), Qt::ShiftModifier);
  }
  return shift || control;
}

}  // namespace talpena

// Editing in place: what is refused keeps the cell in edit.
#include <QKeyEvent>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/commands.h"
#include "store/windows/grid_model.h"
#include "store/windows/tdb_grid.h"

namespace talpena {

bool TDBGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  // While a cell waits for a value that its column can hold no other one is opened.
  if (refused_ && edited_.isValid() && index != edited_) return false;
  const bool opened = QTableView::edit(index, trigger, event);
  if (opened) edited_ = index;
  return opened;
}

void TDBGrid::commitData(QWidget* editor) {
  if (telling_) return;
  model_->OublieRefus();
  QTableView::commitData(editor);
  refused_ = model_->Refus().has_value();
  if (!refused_) return;
  telling_ = true;
  // Later, because this may be the middle of a change of focus.
  QMetaObject::invokeMethod(this, &TDBGrid::MontreRefus, Qt::QueuedConnection);
}

void TDBGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const bool dropped = hint == QAbstractItemDelegate::RevertModelCache;
  if (refused_ && !dropped) return;
  refused_ = false;
  edited_ = QModelIndex();
  QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
  setFocus();
  if (hint == QAbstractItemDelegate::EditNextItem ||
      hint == QAbstractItemDelegate::SubmitModelCache) {
    Avance(1);
  } else if (hint == QAbstractItemDelegate::EditPreviousItem) {
    Avance(-1);
  }
}

void TDBGrid::MontreRefus() {
  const std::string reason = model_->Refus().value_or(std::string());
  Bip(state_, io_);
  io_.dialogues.Demande({.text = Texte(state_.Langue, MsgId::ValeurRefusee) + "\n\n" + reason,
                         .icon = Icon::Exclamation});
  if (QWidget* editor = indexWidget(edited_); editor != nullptr) {
    setCurrentIndex(edited_);
    editor->setFocus();
  }
  telling_ = false;
}

bool TDBGrid::ValideEdition() {
  QWidget* editor = edited_.isValid() ? indexWidget(edited_) : nullptr;
  if (editor == nullptr) return true;
  commitData(editor);
  if (refused_) return false;
  closeEditor(editor, QAbstractItemDelegate::NoHint);
  return true;
}

void TDBGrid::TermineEdition() {
  QWidget* editor = edited_.isValid() ? indexWidget(edited_) : nullptr;
  if (editor == nullptr || telling_) return;
  telling_ = true;  // nothing is said
  QTableView::commitData(editor);
  telling_ = false;
  closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

void TDBGrid::Avance(int cells) {
  if (!currentIndex().isValid()) return;
  const qint64 all = qint64{model_->rowCount()} * Column::GridCount;
  const qint64 here = qint64{currentIndex().row()} * Column::GridCount + currentIndex().column();
  const qint64 there = std::clamp(here + cells, qint64{0}, all - 1);
  setCurrentIndex(model_->index(static_cast<int>(there / Column::GridCount),
                                static_cast<int>(there % Column::GridCount)));
}

QItemSelectionModel::SelectionFlags TDBGrid::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
  const auto* key = event != nullptr && event->type() == QEvent::KeyPress
                        ? static_cast<const QKeyEvent*>(event)
                        : nullptr;
  const bool jump = key != nullptr && (key->key() == Qt::Key_Home || key->key() == Qt::Key_End);
  if (jump && key->modifiers() == Qt::ControlModifier) return QItemSelectionModel::ClearAndSelect;
  return QTableView::selectionCommand(index, event);
}

void TDBGrid::keyPressEvent(QKeyEvent* event) {
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // The editor passes the key on while it ends; closeEditor goes to the next cell.
      if (state() != EditingState) Avance(shift ? -1 : 1);
      return;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      if (control) {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): the view's own goes to the next cell
        QWidget::focusNextPrevChild(event->key() == Qt::Key_Tab);
        return;
      }
      break;
    case Qt::Key_Home:
    case Qt::Key_End:
      if (control && model_->rowCount() == 0) return event->ignore();  // the window says why
      if (EtendParTouche(*event)) return;
      break;
    case Qt::Key_Space:
      if (ChoisitParTouche(event->modifiers())) return;
      break;
    default:
      if (EtendParTouche(*event)) return;
      break;
  }
  QTableView::keyPressEvent(event);
}

}  // namespace talpena

#include "store/windows/free_fields_grid.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <algorithm>

#include "platform/qt/window_place.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr int labelColumn = 0, valueColumn = 1;
constexpr float labelWidthTwips = 2000;
constexpr int cellMargins = 16;
constexpr int cellPadding = 8;  ///< above and below a text together

/// Paints the current value as the chosen one while it has the keys.
class ValueDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
    const auto* grid = qobject_cast<const QTableView*>(option->widget);
    if (grid != nullptr && grid->hasFocus() && index == grid->currentIndex()) {
      option->state |= QStyle::State_Selected;
    }
  }
};

}  // namespace

class FreeFieldsModel final : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void ChangeEtiquettes(const std::vector<std::string>& labels) {
    beginResetModel();
    labels_ = labels;
    texts_.resize(labels_.size());
    endResetModel();
  }
  void ChangeTextes(const std::vector<std::string>& texts) {
    texts_ = texts;
    texts_.resize(labels_.size());
    if (texts_.empty()) return;
    Q_EMIT dataChanged(index(0, valueColumn), index(rowCount() - 1, valueColumn));
  }
  /// False when it is the same.
  bool Change(int row, const QString& text) {
    std::string& cell = texts_.at(static_cast<std::size_t>(row));
    if (cell == text.toStdString()) return false;
    cell = text.toStdString();
    Q_EMIT dataChanged(index(row, valueColumn), index(row, valueColumn));
    return true;
  }
  const std::vector<std::string>& Textes() const { return texts_; }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(labels_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : 2;
  }
  QVariant data(const QModelIndex& at, int role) const override {
    const bool label = at.column() == labelColumn;
    if (role == Qt::DisplayRole || (role == Qt::ToolTipRole && label)) {
      const auto row = static_cast<std::size_t>(at.row());
      // Definitions often have a blank behind the comma.
      return label ? QString::fromStdString(labels_[row]).trimmed()
                   : QString::fromStdString(texts_[row]);
    }
    // The labels stand back from the values.
    if (role == Qt::BackgroundRole && label) return QApplication::palette().alternateBase();
    return {};
  }
  Qt::ItemFlags flags(const QModelIndex& at) const override {
    if (at.column() == labelColumn) return Qt::ItemIsEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
  }

 private:
  std::vector<std::string> labels_, texts_;
};

FreeFieldsGrid::FreeFieldsGrid(QWidget* parent)
    : QTableView(parent), model_(new FreeFieldsModel(this)), txtEdit(new QLineEdit(viewport())) {
  setModel(model_);
  setItemDelegate(new ValueDelegate(this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(NoSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  horizontalHeader()->hide();
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cellPadding);
  txtEdit->setObjectName(u"txtEdit"_s);
  txtEdit->setFocusPolicy(Qt::ClickFocus);
  txtEdit->setAutoFillBackground(true);
  txtEdit->hide();
  txtEdit->installEventFilter(this);
  connect(txtEdit, &QLineEdit::textEdited, this, &FreeFieldsGrid::Tape);
}

void FreeFieldsGrid::ChangeEtiquettes(const std::vector<std::string>& labels) {
  FermeEditeur();
  model_->ChangeEtiquettes(labels);
  setCurrentIndex(Fgi(0));
  MesureEtiquettes();
  DisposeColonnes();
  updateGeometry();
}

void FreeFieldsGrid::ChangeTextes(const std::vector<std::string>& texts) {
  if (texts == model_->Textes()) return;
  FermeEditeur();
  model_->ChangeTextes(texts);
}

const std::vector<std::string>& FreeFieldsGrid::Textes() const { return model_->Textes(); }

bool FreeFieldsGrid::EnEdition() const { return edited_ >= 0; }

/// The cell of a row's value.
QModelIndex FreeFieldsGrid::Fgi(int row) const { return model_->index(row, valueColumn); }

/// Opens the current cell. What was typed takes the place of its text, which Undo brings back.
void FreeFieldsGrid::MSHFlexGridEdit(const QString& typed) {
  const QModelIndex cell = currentIndex();
  if (!cell.isValid() || EnEdition()) return;
  edited_ = cell.row();
  scrollTo(cell);
  txtEdit->setAccessibleName(cell.siblingAtColumn(labelColumn).data().toString());
  txtEdit->setText(cell.data().toString());
  txtEdit->selectAll();
  PlaceEditeur();
  txtEdit->show();
  txtEdit->setFocus();
  if (!typed.isEmpty()) txtEdit->insert(typed);
}

void FreeFieldsGrid::Valide() {
  if (!EnEdition()) return;
  const bool changed = model_->Change(edited_, txtEdit->text());
  FermeEditeur();
  if (changed) {
    Q_EMIT Modifie();
  } else {
    Q_EMIT Abandonne();
  }
}

void FreeFieldsGrid::FermeEditeur() {
  if (!EnEdition()) return;
  edited_ = -1;
  if (txtEdit->hasFocus()) setFocus(Qt::OtherFocusReason);
  txtEdit->hide();
}

void FreeFieldsGrid::PlaceEditeur() {
  if (EnEdition()) txtEdit->setGeometry(visualRect(Fgi(edited_)).adjusted(0, 0, -1, -1));
}

/// False when there is no such row.
bool FreeFieldsGrid::Deplace(int rows) {
  const int row = currentIndex().row() + rows;
  if (row < 0 || row >= model_->rowCount()) return false;
  setCurrentIndex(Fgi(row));
  return true;
}

bool FreeFieldsGrid::focusNextPrevChild(bool next) {
  return Deplace(next ? 1 : -1) || QTableView::focusNextPrevChild(next);
}

/// True when the arrow still has text to go over.
bool FreeFieldsGrid::TraverseTexte(const QKeyEvent& key) const {
  if (key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) return true;
  if (txtEdit->hasSelectedText()) return true;
  const int end = key.key() == Qt::Key_Left ? 0 : static_cast<int>(txtEdit->text().size());
  return txtEdit->cursorPosition() != end;
}

/// A key of txtEdit; false when it is the editor's own.
bool FreeFieldsGrid::EditKeyCode(const QKeyEvent& key) {
  const bool back = key.modifiers().testFlag(Qt::ShiftModifier);
  const auto store = [this](int rows) {
    Valide();
    Deplace(rows);
    return true;
  };
  switch (key.key()) {
    case Qt::Key_Escape:
      FermeEditeur();
      Q_EMIT Abandonne();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: {
      if (key.modifiers().testFlag(Qt::ControlModifier)) return false;
      const bool last = !back && currentIndex().row() + 1 == model_->rowCount();
      store(back ? -1 : 1);
      if (last) Q_EMIT Quitte(true);
      return true;
    }
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (key.modifiers().testFlag(Qt::ControlModifier)) return false;
      return store(key.key() == Qt::Key_Up ? -1 : 1);
    case Qt::Key_Left:
    case Qt::Key_Right:
      return !TraverseTexte(key) && store(key.key() == Qt::Key_Left ? -1 : 1);
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
      const bool forward = key.key() == Qt::Key_Tab;
      Valide();
      if (!Deplace(forward ? 1 : -1)) Q_EMIT Quitte(forward);
      return true;
    }
    default:
      return false;
  }
}

bool FreeFieldsGrid::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtEdit && event->type() == QEvent::KeyPress) {
    return EditKeyCode(*static_cast<QKeyEvent*>(event));
  }
  if (watched == txtEdit && event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
        reason != Qt::MenuBarFocusReason) {
      Valide();
    }
  }
  return QTableView::eventFilter(watched, event);
}

void FreeFieldsGrid::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers().testFlag(Qt::ControlModifier) ||
                       event->modifiers().testFlag(Qt::AltModifier);
  switch (event->key()) {
    case Qt::Key_F2:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (control) break;
      MSHFlexGridEdit({});
      return;
    case Qt::Key_Backspace:
      MSHFlexGridEdit({});
      txtEdit->del();
      return;
    case Qt::Key_Delete:
      if (currentIndex().isValid() && model_->Change(currentIndex().row(), {})) Q_EMIT Modifie();
      return;
    case Qt::Key_Left:
      Deplace(-1);
      return;
    case Qt::Key_Right:
      Deplace(1);
      return;
    case Qt::Key_Escape:
      event->ignore();
      return;
    default:
      if (!control && !event->text().isEmpty() && event->text()[0].isPrint()) {
        MSHFlexGridEdit(event->text());
        return;
      }
  }
  QTableView::keyPressEvent(event);
}

// Letters that are composed, such as those with an accent, begin an edit too.
void FreeFieldsGrid::inputMethodEvent(QInputMethodEvent* event) {
  if (event->preeditString().isEmpty() && event->commitString().isEmpty()) return;
  MSHFlexGridEdit({});
  QCoreApplication::sendEvent(txtEdit, event);
}

void FreeFieldsGrid::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason) setCurrentIndex(Fgi(0));
  if (event->reason() == Qt::BacktabFocusReason) setCurrentIndex(Fgi(model_->rowCount() - 1));
}

void FreeFieldsGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex cell = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !cell.isValid()) return;
  setCurrentIndex(Fgi(cell.row()));
  MSHFlexGridEdit({});
}

void FreeFieldsGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.isValid() && current.column() == labelColumn) setCurrentIndex(Fgi(current.row()));
}

void FreeFieldsGrid::MesureEtiquettes() {
  widestLabel_ = 0;
  for (int row = 0; row < model_->rowCount(); ++row) {
    const QString label = model_->index(row, labelColumn).data().toString();
    widestLabel_ = std::max(widestLabel_, fontMetrics().horizontalAdvance(label) + cellMargins);
  }
}

/// The labels' own width, but never one that cuts them while the values have room left.
void FreeFieldsGrid::DisposeColonnes() {
  if (model_->rowCount() == 0) return;
  const int room = viewport()->width();
  const int labels = std::min(std::max(EnPixels(labelWidthTwips), widestLabel_), room * 3 / 5);
  setColumnWidth(labelColumn, labels);
  setColumnWidth(valueColumn, room - labels);
  PlaceEditeur();
}

void FreeFieldsGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  DisposeColonnes();
}

void FreeFieldsGrid::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  PlaceEditeur();
}

void FreeFieldsGrid::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() != QEvent::FontChange) return;
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cellPadding);
  MesureEtiquettes();
  DisposeColonnes();
}

/// Room for a number of rows, or for all of them when there are fewer.
QSize FreeFieldsGrid::Taille(int rows) const {
  const int shown = std::max(1, std::min(rows, model_->rowCount()));
  return {fontMetrics().averageCharWidth() * 40,
          shown * verticalHeader()->defaultSectionSize() + 2 * frameWidth()};
}

}  // namespace talpena

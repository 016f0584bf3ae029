#include "analysis/windows/condition_edit.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>

#include "analysis/selection.h"

namespace talpena {

ConditionEdit::ConditionEdit(const QStringList& columns, QWidget* parent)
    : QComboBox(parent), columns_(new QCompleter(columns, this)) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);  // the toolkit's would complete whole conditions, not the word
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  columns_->setWidget(lineEdit());
  columns_->setCaseSensitivity(Qt::CaseInsensitive);
  columns_->popup()->installEventFilter(this);
  connect(columns_, qOverload<const QString&>(&QCompleter::activated), this,
          &ConditionEdit::PrendColonne);
  connect(lineEdit(), &QLineEdit::textEdited, this, &ConditionEdit::ProposeColonnes);
}

void ConditionEdit::ChangeConditions(const QStringList& conditions) {
  const QString typed = currentText();
  clear();
  addItems(conditions);
  setCurrentIndex(-1);
  setEditText(typed);
}

void ConditionEdit::ProposeColonnes() {
  const QString before = lineEdit()->text().left(lineEdit()->cursorPosition());
  const QString word = QString::fromStdString(MotACompleter(before.toStdString()));
  columns_->setCompletionPrefix(word);
  const bool whole = columns_->completionCount() == 1 &&
                     columns_->currentCompletion().compare(word, Qt::CaseInsensitive) == 0;
  if (word.isEmpty() || whole || columns_->completionCount() == 0) {
    columns_->popup()->hide();
    return;
  }
  QRect place = lineEdit()->rect();
  place.setLeft(lineEdit()->fontMetrics().horizontalAdvance(before.chopped(word.size())));
  place.setWidth(columns_->popup()->sizeHintForColumn(0) + 2 * fontMetrics().height());
  columns_->complete(place);
}

/// The name takes the place of its beginning.
void ConditionEdit::PrendColonne(const QString& name) {
  QLineEdit& line = *lineEdit();
  line.setSelection(line.cursorPosition() - static_cast<int>(columns_->completionPrefix().size()),
                    static_cast<int>(columns_->completionPrefix().size()));
  line.insert(name);
}

bool ConditionEdit::eventFilter(QObject* watched, QEvent* event) {
  QAbstractItemView* offered = columns_->popup();
  if (watched == offered && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab) {
    const QModelIndex chosen = offered->currentIndex();
    offered->hide();
    PrendColonne(chosen.isValid() ? chosen.data().toString() : columns_->currentCompletion());
    return true;
  }
  return QComboBox::eventFilter(watched, event);
}

}  // namespace talpena

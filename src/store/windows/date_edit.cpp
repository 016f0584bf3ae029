#include "store/windows/date_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <array>

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr QLatin1String emptyMask("____/__/__");

/// Month and day in the mask: where each begins, two places wide.
constexpr std::array parts = {5, 8};

QString Deux(const QString& digits) { return digits.rightJustified(2, u'0'); }

}  // namespace

QString DateTapee(const QString& text) {
  static const QRegularExpression yearFirst(
      uR"(^([\d_]{4})(?:[-/. ]([\d_]{1,2})(?:[-/. ]([\d_]{1,2}))?)?$)"_s);
  static const QRegularExpression dayFirst(uR"(^(\d{1,2})[-/. ]\s?(\d{1,2})[-/. ]\s?(\d{4})$)"_s);
  static const QRegularExpression packed(uR"(^(\d{4})(\d{2})(\d{2})$)"_s);
  const QString trimmed = text.trimmed();
  for (const QRegularExpression& pattern : {packed, yearFirst}) {
    const QRegularExpressionMatch m = pattern.match(trimmed);
    if (!m.hasMatch()) continue;
    const auto part = [&m](int i) {
      return m.captured(i).isEmpty() ? u"__"_s : Deux(m.captured(i));
    };
    return m.captured(1) + u'/' + part(2) + u'/' + part(3);
  }
  const QRegularExpressionMatch m = dayFirst.match(trimmed);
  if (!m.hasMatch()) return {};
  return m.captured(3) + u'/' + Deux(m.captured(2)) + u'/' + Deux(m.captured(1));
}

DateEdit::DateEdit(QWidget* parent) : QLineEdit(parent) {
  setInputMask(u"0000/00/00;_"_s);
  ChangeMasque(emptyMask);
  connect(this, &QLineEdit::textEdited, this, [this] { edited_ = true; });
}

QString DateEdit::Masque() const { return edited_ ? displayText() : given_; }

void DateEdit::ChangeMasque(const QString& masque) {
  given_ = masque;
  edited_ = false;
  if (displayText() != masque) setText(masque);
}

/// The mask with a lone digit of a month or a day, from a place on, made two.
QString DateEdit::Complete(int from) const {
  QString masque = displayText();
  for (const int part : parts) {
    if (part < from || !masque[part].isDigit() || masque[part + 1] != u'_') continue;
    masque[part + 1] = masque[part];
    masque[part] = u'0';
  }
  return masque;
}

void DateEdit::Remplace(const QString& masque, int cursor) {
  const bool changed = masque != displayText();
  if (changed) setText(masque);
  setCursorPosition(cursor);
  if (changed) Q_EMIT textEdited(text());
}

/// Behind the slash that follows, the part left made whole.
void DateEdit::PartieSuivante() {
  const int cursor = selectionStart() >= 0 ? selectionEnd() : cursorPosition();
  const int slash = static_cast<int>(displayText().indexOf(u'/', std::max(cursor - 1, 0)));
  // The digit just typed may have jumped over the slash already.
  const bool jumped = slash == cursor - 1;
  if (slash < 0 && cursor <= parts[1]) return;
  const int next = slash < 0 ? static_cast<int>(displayText().size()) : slash + 1;
  Remplace(Complete(0), jumped ? cursor : next);
}

void DateEdit::Colle(const QString& text) {
  const QString masque = DateTapee(text);
  if (!masque.isEmpty()) {
    Remplace(masque, static_cast<int>(masque.size()));
  } else {
    insert(text);
  }
}

void DateEdit::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) {
    Colle(QApplication::clipboard()->text());
    return;
  }
  const QString typed = event->text();
  if (typed == "/"_L1 || typed == "-"_L1 || typed == "."_L1) {
    PartieSuivante();
    return;
  }
  if (typed == " "_L1) {
    insert(u"_"_s);
    return;
  }
  QLineEdit::keyPressEvent(event);
}

// A mask would put the cursor into its first empty place.
void DateEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
      event->reason() == Qt::ShortcutFocusReason) {
    selectAll();
  }
}

void DateEdit::focusOutEvent(QFocusEvent* event) {
  if (edited_ && event->reason() != Qt::PopupFocusReason) Remplace(Complete(0), cursorPosition());
  QLineEdit::focusOutEvent(event);
}

void DateEdit::mouseReleaseEvent(QMouseEvent* event) {
  const QClipboard* clipboard = QApplication::clipboard();
  if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
    Colle(clipboard->text(QClipboard::Selection));
    return;
  }
  QLineEdit::mouseReleaseEvent(event);
}

void DateEdit::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  if (menu == nullptr) return;
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (QAction* action : menu->actions()) {
    if (!action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
    action->disconnect(this);
    connect(action, &QAction::triggered, this,
            [this] { Colle(QApplication::clipboard()->text()); });
  }
  menu->popup(event->globalPos());
}

void DateEdit::dropEvent(QDropEvent* event) {
  selectAll();
  Colle(event->mimeData()->text());
  event->acceptProposedAction();
}

}  // namespace talpena

#include "store/windows/hint_label.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <array>

#include "platform/qt/contrast.h"

namespace talpena {
namespace {

constexpr QRgb onLight = 0xFF9A3300, onDark = 0xFFFFB27A;
constexpr int gap = 6;

}  // namespace

HintLabel::HintLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setIndent(0);
  setContentsMargins(IconSize() + gap, 0, 0, 0);
}

void HintLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) setContentsMargins(IconSize() + gap, 0, 0, 0);
}

QColor HintLabel::Couleur(const QPalette& palette) {
  const std::array window = {palette.color(QPalette::Window)};
  return Eloigne(QColor(EstSombre(palette) ? onDark : onLight), window, ContrasteLisible);
}

void HintLabel::Montre(const QString& hint) {
  if (hint == text()) return;
  setText(hint);
  setToolTip(hint);
  update();  // the sign too, which stands beside the room of the text
  if (hint.isEmpty()) return;
  QAccessibleEvent announced(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&announced);
}

// One line, however long the hint: it never moves what stands around it.
QSize HintLabel::sizeHint() const {
  return {IconSize() + gap, std::max(IconSize(), fontMetrics().lineSpacing())};
}

QSize HintLabel::minimumSizeHint() const { return sizeHint(); }

void HintLabel::paintEvent(QPaintEvent*) {
  if (text().isEmpty()) return;
  QPainter painter(this);
  const int size = IconSize();
  style()->standardIcon(QStyle::SP_MessageBoxWarning).paint(&painter, 0, 0, size, size);
  painter.setPen(Couleur(palette()));
  const QRect room = contentsRect();
  style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, palette(), true,
                        fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

}  // namespace talpena

#include "maps/windows/colour_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "platform/qt/colours.h"

namespace talpena {

ColourLabel::ColourLabel(QWidget* parent) : QLabel(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

void ColourLabel::ChangeCouleur(std::uint32_t couleur) {
  colour_ = EnQColor(couleur, palette());
  setAccessibleDescription(colour_.name());
  setToolTip(colour_.name());
  update();
}

QSize ColourLabel::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 12, fontMetrics().height() + 10};
}

void ColourLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
  painter.setBrush(colour_);
  painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), 2, 2);
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

void ColourLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    Q_EMIT Clique();
  }
}

void ColourLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space) return Clique();
  QLabel::keyPressEvent(event);
}

void ColourLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  update();
}

void ColourLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  update();
}

}  // namespace talpena

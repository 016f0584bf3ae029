#include "maps/windows/map_view.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <array>

#include "platform/qt/qt_canvas.h"

namespace talpena {
namespace {

constexpr int arm = 14;    // of the cross, pixels
constexpr int hollow = 3;  // around its middle, which stays to be seen
constexpr int stepShift = 10, stepControl = 50;
constexpr int notch = 120;  // of a wheel, eighths of a degree
constexpr int wheelStep = 60;

struct Arrow {
  int key;
  QPoint direction;
};
constexpr std::array arrows = {Arrow{Qt::Key_Left, {-1, 0}}, Arrow{Qt::Key_Right, {1, 0}},
                               Arrow{Qt::Key_Up, {0, -1}}, Arrow{Qt::Key_Down, {0, 1}}};

}  // namespace

MapView::MapView(QtCanvas& canvas, QWidget* parent) : QWidget(parent), canvas_(canvas) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void MapView::Rafraichit() {
  if (canvas_.TailleImage() != pixels_) {
    pixels_ = canvas_.TailleImage();
    moved_ = {};
    cross_.reset();
    setCursor(pixels_.isEmpty() ? Qt::ArrowCursor : Qt::CrossCursor);
  }
  update();
}

void MapView::Deplace(QPoint origin) {
  if (origin == moved_) return;
  moved_ = origin;
  update();
}

QPoint MapView::Origine() const {
  const auto place = [](int room, int picture, int moved) {
    return picture < room ? (room - picture) / 2 : moved;
  };
  return {place(width(), pixels_.width(), moved_.x()),
          place(height(), pixels_.height(), moved_.y())};
}

bool MapView::EstSurImage(QPointF pixel) const {
  return QRectF(QPointF(), QSizeF(pixels_)).contains(pixel);
}

void MapView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect picture(Origine(), pixels_);
  for (const QRect& exposed : event->region()) {
    if (!picture.contains(exposed)) {
      painter.fillRect(exposed, palette().brush(QPalette::Window).color().darker(112));
    }
    const QRect part = exposed & picture;
    if (part.isEmpty()) continue;
    const QImage& surface = canvas_.Surface();
    const double dots = double{1} * surface.width() / pixels_.width();
    const QRectF source(QPointF(part.topLeft() - picture.topLeft()) * dots,
                        QSizeF(part.size()) * dots);
    painter.drawImage(QRectF(part), surface, source);
  }
  if (!cross_ || !hasFocus()) return;
  const QPointF middle = QPointF(*cross_ + picture.topLeft()) + QPointF(0.5, 0.5);
  for (const auto& [colour, width] : {std::pair(Qt::white, 3), std::pair(Qt::black, 1)}) {
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap));
    for (const Arrow& arrow : arrows) {
      const QPointF direction(arrow.direction);
      painter.drawLine(middle + direction * hollow, middle + direction * arm);
    }
  }
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
  if (cross_) PlaceCroix(std::nullopt);
  const QPointF pixel = event->position() - Origine();
  if (!EstSurImage(pixel)) return Quitte();
  Q_EMIT Survole(pixel);
}

void MapView::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  if (!cross_) Q_EMIT Quitte();
}

void MapView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) mousePressEvent(event);
}

void MapView::mousePressEvent(QMouseEvent* event) {
  const QPointF pixel = event->position() - Origine();
  if (EstSurImage(pixel)) Q_EMIT Appuie(event->button(), pixel);
}

void MapView::wheelEvent(QWheelEvent* event) {
  QPoint pixels = event->pixelDelta();
  if (pixels.isNull()) pixels = event->angleDelta() * wheelStep / notch;
  if (event->modifiers().testFlag(Qt::ShiftModifier)) pixels = pixels.transposed();
  Q_EMIT Roule(pixels);
  event->accept();
}

void MapView::keyPressEvent(QKeyEvent* event) {
  if (pixels_.isEmpty()) return QWidget::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Insert:
      if (!cross_) return PlaceCroix(MilieuVisible());
      return Appuie(Qt::LeftButton, *cross_);
    case Qt::Key_F10:  // not every desktop makes the request for a menu of it
      if (event->modifiers() != Qt::ShiftModifier) return QWidget::keyPressEvent(event);
      return DemandeMenu(CoinMenu());
    case Qt::Key_Delete:
      return Appuie(Qt::RightButton, cross_.value_or(MilieuVisible()));
    default:
      if (!BougeCroix(*event)) QWidget::keyPressEvent(event);
  }
}

bool MapView::BougeCroix(const QKeyEvent& event) {
  const auto arrow = std::find_if(arrows.begin(), arrows.end(),
                                  [&](const Arrow& a) { return a.key == event.key(); });
  if (arrow == arrows.end()) return false;
  if (!cross_) {
    PlaceCroix(MilieuVisible());
    return true;
  }
  const int step = event.modifiers().testFlag(Qt::ControlModifier) ? stepControl
                   : event.modifiers().testFlag(Qt::ShiftModifier) ? stepShift
                                                                   : 1;
  const QPoint wanted = *cross_ + arrow->direction * step;
  PlaceCroix(QPoint(std::clamp(wanted.x(), 0, pixels_.width() - 1),
                    std::clamp(wanted.y(), 0, pixels_.height() - 1)));
  return true;
}

void MapView::PlaceCroix(std::optional<QPoint> pixel) {
  if (cross_) update(TraceCroix(*cross_));
  cross_ = pixel;
  if (!cross_) return;
  update(TraceCroix(*cross_));
  Q_EMIT CroixDeplacee(*cross_);
  Q_EMIT Survole(*cross_);
}

QRect MapView::TraceCroix(QPoint pixel) const {
  const QPoint middle = pixel + Origine();
  const QPoint reach(arm + 2, arm + 2);
  return {middle - reach, middle + reach};
}

QPoint MapView::MilieuVisible() const {
  return (rect() & QRect(Origine(), pixels_)).center() - Origine();
}

/// The right button of the mouse takes rows back: the menu comes by its key.
void MapView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard) return;
  Q_EMIT DemandeMenu(CoinMenu());
}

QPoint MapView::CoinMenu() const {
  return mapToGlobal(cross_ ? *cross_ + Origine() : rect().center());
}

void MapView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  if (cross_) update(TraceCroix(*cross_));
}

void MapView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  if (cross_) update(TraceCroix(*cross_));
}

}  // namespace talpena

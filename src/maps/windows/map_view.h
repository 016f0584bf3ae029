// What the map window shows of its canvas, and the cross that the keys move over it.
#pragma once
#include <QPoint>
#include <QPointF>
#include <QSize>
#include <QWidget>
#include <optional>

namespace talpena {

class QtCanvas;

/// The picture stands at a place that may lie outside the widget, or in the middle where there is
/// more room than it needs. Positions are pixels of the picture, screen pixels of 96 to the inch
/// whatever the screen. The arrow keys bring up a cross and move it, ten pixels with Shift, fifty
/// with Ctrl; Enter and Insert press the left button at the cross, Delete the right one. The mouse
/// takes it away.
class MapView : public QWidget {
  Q_OBJECT

 public:
  MapView(QtCanvas& canvas, QWidget* parent);

  /// What is on the canvas becomes visible.
  void Rafraichit();
  /// Left and top of the picture while it is larger than the widget; 0 or negative.
  void Deplace(QPoint origin);

  QSize TailleImage() const { return pixels_; }
  const std::optional<QPoint>& Croix() const { return cross_; }
  /// The place of a position of the picture in the widget.
  QPointF DansLaVue(QPointF pixel) const { return pixel + Origine(); }

  QSize sizeHint() const override { return {640, 400}; }
  QSize minimumSizeHint() const override { return {160, 120}; }

 Q_SIGNALS:
  void Survole(QPointF pixel);  ///< the mouse, or the cross, is at this position
  void Quitte();                ///< the mouse is no longer on the picture
  void Appuie(Qt::MouseButton button, QPointF pixel);
  void Roule(QPoint pixels);  ///< the wheel asks for another part of the picture
  void DemandeMenu(QPoint global);
  void CroixDeplacee(QPoint pixel);  ///< it has to be in view

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  /// The second left press of a double click is none: it would add a second row at the same place.
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QPoint Origine() const;
  bool EstSurImage(QPointF pixel) const;
  bool BougeCroix(const QKeyEvent& event);
  void PlaceCroix(std::optional<QPoint> pixel);
  QRect TraceCroix(QPoint pixel) const;
  QPoint MilieuVisible() const;
  QPoint CoinMenu() const;  ///< where the menu stands, on the screen

  QtCanvas& canvas_;
  QSize pixels_;  ///< of the picture
  QPoint moved_;
  std::optional<QPoint> cross_;
};

}  // namespace talpena

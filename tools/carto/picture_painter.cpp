#include "carto/picture_painter.h"

#include <QColor>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

namespace talpena {
namespace {

/// Kilometres of a map to pixels of its picture at normal size.
class PixelScale {
 public:
  explicit PixelScale(const MapSheet& sheet) : box_(sheet.Cadre()) {
    const PictureSize size = TailleImage(sheet.Etat());
    across_ = size.width / (box_.right - box_.left);
    down_ = size.height / (box_.top - box_.bottom);
  }
  QPointF operator()(PlanePoint p) const {
    return {(p.x - box_.left) * across_, (box_.top - p.y) * down_};
  }

 private:
  Frame box_;
  double across_ = 1;
  double down_ = 1;
};

void AjouteLigne(QPainterPath& path, const Line& line, bool closed, const PixelScale& pixel) {
  path.moveTo(pixel(line.front()));
  for (std::size_t i = 1; i < line.size(); ++i) path.lineTo(pixel(line[i]));
  if (closed) path.closeSubpath();
}

QPen PlumeDe(const Ink& ink) {
  QPen pen(QColor(ink.red, ink.green, ink.blue), ink.width);
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::RoundJoin);
  if (ink.dash > 0) pen.setDashPattern({ink.dash / ink.width, ink.dash / ink.width});
  return pen;
}

void PeintCouche(QPainter& painter, const DrawnLayer& layer, const Ink& ink,
                 const PixelScale& pixel) {
  QPainterPath surface;
  surface.setFillRule(Qt::OddEvenFill);
  for (const Ring& ring : layer.surface) AjouteLigne(surface, ring, true, pixel);
  painter.fillPath(surface, QColor(ink.red, ink.green, ink.blue));
  painter.setPen(PlumeDe(ink));
  for (const Line& line : layer.lines) {
    QPainterPath path;
    AjouteLigne(path, line, line.front() == line.back(), pixel);
    painter.drawPath(path);
  }
}

}  // namespace

QImage PeintImage(const MapSheet& sheet, const MapDrawing& drawing, int scale) {
  const PictureSize size = TailleImage(sheet.Etat());
  QImage image(size.width * scale, size.height * scale, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  const PixelScale pixel(sheet);
  for (const DrawnLayer& layer : drawing)
    PeintCouche(painter, layer, EncreDe(layer.matter, sheet.Description().detail), pixel);
  painter.end();
  return image;
}

}  // namespace talpena

#include "carto/picture_painter.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QString>

#include "carto/map_furniture.h"

namespace talpena {
namespace {

/// Kilometres of a map to pixels of its picture at normal size. What the box cut off goes on a
/// little beyond it, since pixels are half their size off: the canvas of the map view puts the
/// corner of the box on the middle of the first pixel.
class PixelScale {
 public:
  PixelScale(const MapSheet& sheet, double scale)
      : box_(sheet.Cadre()),
        shift_(0.5 / scale),
        beyond_(sheet.Limbe().empty() ? 1 : 0),
        edge_((box_.right - box_.left) * 1e-9) {
    const PictureSize size = TailleImage(sheet.Etat());
    across_ = size.width / (box_.right - box_.left);
    down_ = size.height / (box_.top - box_.bottom);
  }
  QPointF operator()(PlanePoint p) const {
    const double x = (p.x - box_.left) * across_ + Depasse(p.x, box_.left, box_.right);
    const double y = (box_.top - p.y) * down_ - Depasse(p.y, box_.bottom, box_.top);
    return {x + shift_, y + shift_};
  }

 private:
  double Depasse(double value, double least, double most) const {
    if (value <= least + edge_) return -beyond_;
    return value >= most - edge_ ? beyond_ : 0;
  }

  Frame box_;
  double shift_;
  double beyond_;
  double edge_;
  double across_ = 1;
  double down_ = 1;
};

void AjouteLigne(QPainterPath& path, const Line& line, bool closed, const PixelScale& pixel) {
  path.moveTo(pixel(line.front()));
  for (std::size_t i = 1; i < line.size(); ++i) path.lineTo(pixel(line[i]));
  if (closed) path.closeSubpath();
}

constexpr QColor textInk(50, 58, 64);
constexpr QColor textRing(255, 255, 255);

/// What `Garnit` lays out, in a light ring. Letters need the fonts of an application.
void PeintGarniture(QPainter& painter, const MapSheet& sheet, const PixelScale& pixel,
                    int letterPixels) {
  const double kmPerPixel =
      static_cast<double>(sheet.Etat().LargeurKm) / TailleImage(sheet.Etat()).width;
  const MapFurniture furniture = Garnit(sheet, letterPixels * kmPerPixel);
  QPainterPath lines, letters;
  for (const Line& line : furniture.lines) AjouteLigne(lines, line, false, pixel);
  if (qGuiApp != nullptr) {
    QFont font("DejaVu Sans");
    font.setPixelSize(letterPixels);
    const QFontMetricsF metrics(font);
    for (const PlacedText& placed : furniture.texts) {
      const QString text = QString::fromLatin1(placed.text);
      const double left = metrics.horizontalAdvance(text) * placed.across;
      letters.addText(pixel(placed.at) - QPointF(left, 0), font, text);
    }
  }
  painter.setBrush(Qt::NoBrush);
  painter.strokePath(lines, QPen(textRing, 3.5));
  painter.strokePath(letters, QPen(textRing, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.strokePath(lines, QPen(textInk, 1));
  painter.fillPath(letters, textInk);
}

/// The neat line: the outermost pixel all round.
void PeintCadre(QPainter& painter, const PictureSize& size) {
  painter.setPen(QPen(textInk, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(0.5, 0.5, size.width - 1, size.height - 1));
}

/// In pixels of the picture at its normal size.
void Prepare(QPainter& painter, const PictureSize& size) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(static_cast<double>(painter.device()->width()) / size.width,
                static_cast<double>(painter.device()->height()) / size.height);
}

QPen PlumeDe(const Ink& ink, double weight) {
  QPen pen(QColor(ink.red, ink.green, ink.blue), ink.width * weight);
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::RoundJoin);
  if (ink.dash > 0) pen.setDashPattern({ink.dash / ink.width, ink.dash / ink.width});
  return pen;
}

void PeintCouche(QPainter& painter, const DrawnLayer& layer, const Ink& ink,
                 const PixelScale& pixel, double weight) {
  QPainterPath surface;
  surface.setFillRule(Qt::OddEvenFill);
  for (const Ring& ring : layer.surface) AjouteLigne(surface, ring, true, pixel);
  painter.fillPath(surface, QColor(ink.red, ink.green, ink.blue));
  painter.setPen(PlumeDe(ink, weight));
  for (const Line& line : layer.lines) {
    QPainterPath path;
    AjouteLigne(path, line, line.front() == line.back(), pixel);
    painter.drawPath(path);
  }
}

QImage PeintDessin(const MapSheet& sheet, const MapDrawing& drawing, double scale, double weight) {
  const PictureSize size = TailleImage(sheet.Etat());
  QImage image(qRound(size.width * scale), qRound(size.height * scale), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  Prepare(painter, size);
  const PixelScale pixel(sheet, scale);
  for (const DrawnLayer& layer : drawing)
    PeintCouche(painter, layer, EncreDe(layer.matter, sheet.Description().detail), pixel, weight);
  painter.end();
  return image;
}

}  // namespace

QImage PeintCarte(const MapSheet& sheet, const MapDrawing& drawing, double scale,
                  int letterPixels) {
  const double weight = static_cast<double>(letterPixels) / lettresCarte;
  QImage image = PeintDessin(sheet, drawing, scale, weight);
  const PictureSize size = TailleImage(sheet.Etat());
  QPainter painter(&image);
  Prepare(painter, size);
  PeintGarniture(painter, sheet, PixelScale(sheet, scale), letterPixels);
  PeintCadre(painter, size);
  painter.end();
  return image;
}

}  // namespace talpena

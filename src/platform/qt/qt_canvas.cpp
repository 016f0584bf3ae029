#include "platform/qt/qt_canvas.h"

#include <QFileInfo>
#include <QPainter>
#include <QPolygonF>
#include <QSaveFile>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "common/msg_id_errors.h"
#include "common/paths.h"
#include "common/talpena_error.h"
#include "platform/qt/colours.h"
#include "platform/qt/picture_file.h"

namespace talpena {
namespace {

constexpr qint64 mostPixels = qint64{1} << 28;  ///< of a surface, 1 GB
constexpr int longestSide = 1 << 20;

[[noreturn]] void RefuseImage(const std::string& path, int words = 0) {
  throw TalpenaError(ErrorNumber::PathFileAccess, "Path/File access error: " + path,
                     {.text = words, .about = {path}});
}

QString VarianteDense(const QString& path) {
  const QFileInfo info(path);
  return info.path() + "/" + info.completeBaseName() + "@2x." + info.suffix();
}

bool Contient(const SurfaceRect& rect, SurfacePoint p) {
  return p.x >= rect.left && p.x <= rect.right && p.y >= rect.top && p.y <= rect.bottom;
}

/// Lengths of a pattern's stroke and gap, in widths of the line. Strokes have round ends, which
/// lengthen them by a width: a dot has no length of its own.
struct Pattern {
  double stroke;
  double gap;
};
Pattern Motif(DrawStyle style) {
  return style == DrawStyle::Dashed ? Pattern{4, 4} : Pattern{0, 3};
}

}  // namespace

QtCanvas::QtCanvas(double ratio) : ratio_(std::clamp(ratio, 0.25, 8.0)) {}

void QtCanvas::ChangeRapport(double ratio) {
  ratio_ = std::clamp(ratio, 0.25, 8.0);
  if (!picturePath_.empty()) ChargeImage(std::string(picturePath_));
}

void QtCanvas::ChangeTaille(QSize size) {
  wantedSize_ = size;
  if (!picturePath_.empty()) ChargeImage(std::string(picturePath_));
}

QPointF QtCanvas::EnUnites(QPointF pixel) const {
  return {scale_.left + scale_.width * pixel.x() / pictureSize_.width(),
          scale_.top + scale_.height * pixel.y() / pictureSize_.height()};
}

void QtCanvas::ChargeImage(const std::string& path) {
  const std::string native = RendNatif(path);
  const QString file = QString::fromStdString(native);
  if (!QFileInfo(file).isFile()) {
    throw TalpenaError(ErrorNumber::FileNotFound, "File not found: " + native, {.about = {native}});
  }
  const QImage base = LitImage(file);
  if (base.isNull()) RefuseImage(native, MsgId::EchecImage);
  QImage picture = base;
  if (const QString dense = VarianteDense(file); ratio_ > 1 && QFileInfo(dense).isFile()) {
    if (const QImage sharper = LitImage(dense); !sharper.isNull()) picture = sharper;
  }
  const QSize shown = wantedSize_.isEmpty() ? base.size() : wantedSize_;
  const QSize size(std::max(1, qRound(shown.width() * ratio_)),
                   std::max(1, qRound(shown.height() * ratio_)));
  const bool tooLarge = std::max(size.width(), size.height()) > longestSide ||
                        qint64{size.width()} * size.height() > mostPixels;
  if (tooLarge) RefuseImage(native);
  // Before it is scaled: of one with a colour table the toolkit would make a pattern of its
  // colours.
  picture.convertTo(QImage::Format_ARGB32_Premultiplied);
  if (picture.size() != size) {
    picture = picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  if (picture.isNull()) RefuseImage(native);
  picturePath_ = path;
  fileSize_ = base.size();
  PoseFond(std::move(picture), shown);
}

void QtCanvas::MontreImage(const QImage& picture) {
  picturePath_.clear();
  PoseFond(picture.convertToFormat(QImage::Format_ARGB32_Premultiplied),
           (QSizeF(picture.size()) / ratio_).toSize());
}

void QtCanvas::ChangeFeuille(QSize size, double ratio) {
  ratio_ = std::clamp(ratio, 0.25, 8.0);
  picturePath_.clear();
  fileSize_ = size;
  QImage sheet(std::max(1, qRound(size.width() * ratio_)),
               std::max(1, qRound(size.height() * ratio_)), QImage::Format_ARGB32_Premultiplied);
  sheet.fill(Qt::white);
  PoseFond(std::move(sheet), size);
}

void QtCanvas::PoseFond(QImage background, QSize size) {
  background.setDevicePixelRatio(1);
  pictureSize_ = size;
  background_ = std::move(background);
  mask_.Dimensionne(background_.width(), background_.height());
  Cls();
  ChangeEchelle(scale_);
}

const QImage& QtCanvas::Surface() {
  Vide();
  return surface_;
}

void QtCanvas::ChangeEchelle(const UserScale& scale) {
  scale_ = scale;
  factorX_ = LargeurPixels() / scale.width;
  factorY_ = HauteurPixels() / scale.height;
}

void QtCanvas::Cls() {
  mask_.Oublie();
  lineEnd_ = {};
  dashPhase_ = 0;
  surface_ = background_;
}

double QtCanvas::LargeurTrait() const { return std::max(1, Attributs.DrawWidth) * ratio_; }

SurfaceRect QtCanvas::Cadre(double margin) const {
  return {-margin, -margin, surface_.width() - 1 + margin, surface_.height() - 1 + margin};
}

SurfacePoint QtCanvas::EnPixels(double x, double y) const {
  return {(x - scale_.left) * factorX_, (y - scale_.top) * factorY_};
}

PixelRows QtCanvas::Rangees() {
  return {reinterpret_cast<std::uint32_t*>(surface_.bits()), surface_.width(), surface_.height()};
}

void QtCanvas::Vide() {
  if (mask_.Vide()) return;
  mask_.Peint(Rangees(), EnQColor(maskColour_).rgb());
}

void QtCanvas::Prepare() {
  if (maskColour_ != Attributs.ForeColor) Vide();
  maskColour_ = Attributs.ForeColor;
}

void QtCanvas::PSet(double x, double y) {
  const SurfacePoint p = EnPixels(x, y);
  Prepare();
  if (CoupeLigne(p, p, Cadre(LargeurTrait()))) mask_.Segment(p, p, LargeurTrait());
}

void QtCanvas::Line(double x1, double y1, double x2, double y2) {
  const SurfacePoint from = EnPixels(x1, y1);
  const SurfacePoint to = EnPixels(x2, y2);
  Prepare();
  if (!(from == lineEnd_)) dashPhase_ = 0;  // a line that goes on from the last keeps its pattern
  Trace(from, to);
  lineEnd_ = to;
}

void QtCanvas::Trace(SurfacePoint from, SurfacePoint to) {
  const double width = LargeurTrait();
  const SurfaceRect frame = Cadre(width + 1);
  const bool solid = Attributs.drawStyle == DrawStyle::Solid;
  if (solid && Contient(frame, from) && Contient(frame, to)) return mask_.Segment(from, to, width);
  const auto part = CoupeLigne(from, to, frame);
  if (solid) {
    if (part) mask_.Segment(part->from, part->to, width);
    return;
  }
  const double before = dashPhase_;
  if (part) {
    dashPhase_ += part->skipped;
    TraceTirets(*part);
  }
  const Pattern pattern = Motif(Attributs.drawStyle);
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  dashPhase_ = std::isfinite(length)
                   ? std::fmod(before + length, (pattern.stroke + pattern.gap) * width)
                   : 0;
}

void QtCanvas::TraceTirets(const LinePart& part) {
  const double width = LargeurTrait();
  const Pattern pattern = Motif(Attributs.drawStyle);
  const double period = (pattern.stroke + pattern.gap) * width;
  const double length = std::hypot(part.to.x - part.from.x, part.to.y - part.from.y);
  const auto at = [&](double along) {
    const double t = length > 0 ? std::clamp(along / length, 0.0, 1.0) : 0;
    return SurfacePoint{part.from.x + t * (part.to.x - part.from.x),
                        part.from.y + t * (part.to.y - part.from.y)};
  };
  double start = -std::fmod(dashPhase_, period);
  for (; start < length || start == 0; start += period) {
    const double end = start + pattern.stroke * width;
    if (end >= 0) mask_.Segment(at(start), at(end), width);
  }
}

void QtCanvas::Circle(double x, double y, double radius) {
  const SurfacePoint centre = EnPixels(x, y);
  const CircleLook look{radius * std::abs(factorX_), LargeurTrait(), Attributs};
  if (!EstFini(centre) || !(look.radius >= 0)) return;
  Vide();
  if (look.radius <= CircleStamps::largestRadius) {
    stamps_.Pose(Rangees(), centre.x, centre.y, look);
  } else {
    GrandCercle(centre, look);
  }
}

void QtCanvas::Circles(std::span<const CirclePlace> places, double radius) {
  CircleLook look{radius * std::abs(factorX_), LargeurTrait(), Attributs};
  const bool stamped = look.radius >= 0 && look.radius <= CircleStamps::largestRadius;
  if (places.empty() || !stamped) return Canvas::Circles(places, radius);
  Vide();
  const PixelRows target = Rangees();
  SurfacePoint next = EnPixels(places.front().x, places.front().y);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const SurfacePoint centre = next;
    if (i + 1 < places.size()) {
      next = EnPixels(places[i + 1].x, places[i + 1].y);
      stamps_.Annonce(target, next.x, next.y);
    }
    look.attributes.FillColor = places[i].FillColor;
    if (EstFini(centre)) stamps_.Pose(target, centre.x, centre.y, look);
  }
  Attributs.FillColor = places.back().FillColor;
}

/// A circle so large that only part of it may be in sight: an outline of chords that lie within a
/// twentieth of a pixel of it, as far as their number allows.
void QtCanvas::GrandCercle(SurfacePoint centre, const CircleLook& look) {
  const SurfaceRect frame = Cadre(look.penWidth + 1);
  const double nearX = std::clamp(centre.x, frame.left, frame.right) - centre.x;
  const double nearY = std::clamp(centre.y, frame.top, frame.bottom) - centre.y;
  if (!std::isfinite(look.radius) || std::hypot(nearX, nearY) > look.radius + look.penWidth) return;
  const int chords = static_cast<int>(std::min(std::sqrt(look.radius / 0.1) * 4, 8192.0));
  std::vector<SurfacePoint> outline;
  for (int i = 0; i < chords; ++i) {
    const double angle = 2 * std::numbers::pi * i / chords;
    outline.push_back(
        {centre.x + look.radius * std::cos(angle), centre.y + look.radius * std::sin(angle)});
  }
  if (Attributs.fillStyle == FillStyle::Solid) Remplit(outline);
  Prepare();
  dashPhase_ = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    Trace(outline[i], outline[(i + 1) % outline.size()]);
  }
}

void QtCanvas::Polyline(std::span<const PixelPoint> points) {
  if (points.size() < 2) return;
  Prepare();
  TraceSuite(points);
}

void QtCanvas::TraceSuite(std::span<const PixelPoint> points) {
  const bool solid = Attributs.drawStyle == DrawStyle::Solid;
  const double width = LargeurTrait();
  dashPhase_ = 0;
  bool drawn = false;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const PixelPoint from = points[i - 1];
    const PixelPoint to = points[i];
    if (from == to && (drawn || i + 1 < points.size())) continue;
    if (!solid || !mask_.Copie(from, to, width)) {
      Trace({double(from.x), double(from.y)}, {double(to.x), double(to.y)});
    }
    drawn = true;
  }
}

void QtCanvas::Polygon(std::span<const PixelPoint> points) {
  if (points.size() < 2) return;
  if (Attributs.fillStyle == FillStyle::Solid) {
    std::vector<SurfacePoint> outline;
    outline.reserve(points.size());
    for (const PixelPoint p : points) outline.push_back({double(p.x), double(p.y)});
    Remplit(std::move(outline));
  }
  Prepare();
  TraceSuite(points);
  const std::array<PixelPoint, 2> closing{points.back(), points.front()};
  if (!(closing[0] == closing[1])) TraceSuite(closing);
}

void QtCanvas::Remplit(std::vector<SurfacePoint> points) {
  points = CoupePolygone(std::move(points), Cadre(LargeurTrait() + 1));
  if (points.size() < 3 || surface_.isNull()) return;
  Vide();
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (const SurfacePoint p : points) polygon.append(QPointF(p.x + 0.5, p.y + 0.5));
  QPainter painter(&surface_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(EnQColor(Attributs.FillColor));
  painter.drawPolygon(polygon, Qt::OddEvenFill);
}

void QtCanvas::SauveBmp(const std::string& path) {
  QImage picture = Surface().convertToFormat(QImage::Format_RGB32);
  const int dotsPerMeter = qRound(96 * ratio_ / 0.0254);
  picture.setDotsPerMeterX(dotsPerMeter);
  picture.setDotsPerMeterY(dotsPerMeter);
  QSaveFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::WriteOnly) || !picture.save(&file, "BMP") || !file.commit()) {
    RefuseImage(path);
  }
}

}  // namespace talpena

#include "platform/qt/circle_stamps.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/qt/colours.h"

namespace talpena {
namespace {

constexpr int shortestCopy = 4;  ///< opaque runs below this are quicker blended with their edges

Qt::PenStyle StyleDePlume(DrawStyle style) {
  switch (style) {
    case DrawStyle::Dashed:
      return Qt::DashLine;
    case DrawStyle::Dotted:
      return Qt::DotLine;
    case DrawStyle::Solid:
      break;
  }
  return Qt::SolidLine;
}

/// The nearest whole number of one that lies near the surface.
int PlusProche(double value) {
  constexpr int shift = 1 << 20;  // makes it positive, so that a cast rounds down
  return static_cast<int>(value + 0.5 + shift) - shift;
}

void Melange(const std::uint32_t* above, std::uint32_t* below, int count) {
  for (int i = 0; i < count; ++i) below[i] = Superpose(above[i], below[i]);
}

}  // namespace

bool CircleLook::operator==(const CircleLook& other) const {
  const DrawAttributes& a = attributes;
  const DrawAttributes& b = other.attributes;
  return radius == other.radius && penWidth == other.penWidth && a.ForeColor == b.ForeColor &&
         a.FillColor == b.FillColor && a.fillStyle == b.fillStyle && a.drawStyle == b.drawStyle;
}

void DessineCercle(QPainter& painter, double x, double y, const CircleLook& look) {
  const DrawAttributes& a = look.attributes;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(EnQColor(a.ForeColor), look.penWidth, StyleDePlume(a.drawStyle), Qt::RoundCap,
                      Qt::RoundJoin));
  painter.setBrush(a.fillStyle == FillStyle::Solid ? QBrush(EnQColor(a.FillColor))
                                                   : QBrush(Qt::NoBrush));
  const QPointF centre(x + 0.5, y + 0.5);             // the toolkit counts from the pixel's corner
  const double radius = std::max(look.radius, 0.01);  // the toolkit draws nothing for 0
  painter.drawEllipse(centre, radius, radius);
}

void CircleStamps::Pose(const PixelRows& target, double x, double y, const CircleLook& look) {
  if (!(look == look_)) {
    look_ = look;
    margin_ = static_cast<int>(std::ceil(look.radius + look.penWidth / 2)) + 1;
    for (Stamp& stamp : stamps_) stamp = Stamp();
  }
  if (!(x > -margin_ - 1 && x < target.width + margin_ && y > -margin_ - 1 &&
        y < target.height + margin_)) {
    return;
  }
  const int stepX = PlusProche(x * phases);
  const int stepY = PlusProche(y * phases);
  const Stamp& stamp = Donne(stepX & (phases - 1), stepY & (phases - 1));
  const int left = (stepX - (stepX & (phases - 1))) / phases - margin_;
  const int top = (stepY - (stepY & (phases - 1))) / phases - margin_;
  for (const Span& span : stamp.spans) {
    const int row = top + span.row;
    const int first = std::max<int>(span.first, -left);
    const int count = std::min<int>(span.last, target.width - left) - first;
    if (row < 0 || row >= target.height || count <= 0) continue;
    const std::uint32_t* above = stamp.pixels.data() + Rangee(stamp, span.row) + first;
    std::uint32_t* below =
        target.pixels + static_cast<std::ptrdiff_t>(row) * target.width + left + first;
    if (span.opaque) {
      std::memcpy(below, above, static_cast<std::size_t>(count) * sizeof *below);
    } else {
      Melange(above, below, count);
    }
  }
}

std::ptrdiff_t CircleStamps::Rangee(const Stamp& stamp, int row) {
  return static_cast<std::ptrdiff_t>(row) * stamp.side;
}

const CircleStamps::Stamp& CircleStamps::Donne(int phaseX, int phaseY) {
  Stamp& stamp =
      stamps_[static_cast<std::size_t>(phaseY) * phases + static_cast<std::size_t>(phaseX)];
  if (stamp.side == 0) stamp = Fabrique(phaseX, phaseY);
  return stamp;
}

CircleStamps::Stamp CircleStamps::Fabrique(int phaseX, int phaseY) const {
  Stamp stamp;
  stamp.side = 2 * margin_ + 2;
  QImage image(stamp.side, stamp.side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  DessineCercle(painter, margin_ + static_cast<double>(phaseX) / phases,
                margin_ + static_cast<double>(phaseY) / phases, look_);
  painter.end();
  stamp.pixels.resize(static_cast<std::size_t>(stamp.side) * static_cast<std::size_t>(stamp.side));
  std::memcpy(stamp.pixels.data(), image.constBits(), stamp.pixels.size() * sizeof(std::uint32_t));
  Decoupe(stamp);
  return stamp;
}

void CircleStamps::Decoupe(Stamp& stamp) {
  const auto kind = [](std::uint32_t pixel) { return pixel >> 24 == 255 ? 2 : pixel != 0 ? 1 : 0; };
  for (int row = 0; row < stamp.side; ++row) {
    const std::uint32_t* pixels = stamp.pixels.data() + Rangee(stamp, row);
    const std::size_t before = stamp.spans.size();
    for (int first = 0; first < stamp.side;) {
      int last = first + 1;
      while (last < stamp.side && kind(pixels[last]) == kind(pixels[first])) ++last;
      const bool opaque = kind(pixels[first]) == 2 && last - first >= shortestCopy;
      const bool more = stamp.spans.size() > before && stamp.spans.back().last == first;
      if (kind(pixels[first]) == 0) {
        // nothing to copy
      } else if (more && !opaque && !stamp.spans.back().opaque) {
        stamp.spans.back().last = static_cast<std::int16_t>(last);
      } else {
        stamp.spans.push_back({static_cast<std::int16_t>(row), static_cast<std::int16_t>(first),
                               static_cast<std::int16_t>(last), opaque});
      }
      first = last;
    }
  }
}

}  // namespace talpena

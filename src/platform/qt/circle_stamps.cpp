#include "platform/qt/circle_stamps.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "platform/qt/colours.h"

namespace talpena {
namespace {

constexpr int group = 4;           ///< pixels that are blended at once
constexpr int shortestPlain = 16;  ///< what is shorter is quicker blended with its edges
constexpr int fetched = 16;        ///< pixels that the processor fetches at once

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

bool EstOpaque(std::uint32_t pixel) { return pixel >> 24 == 255; }

/// Behind the pixels that equal the one at `first`.
int FinDeSuite(const std::uint32_t* pixels, int first, int side) {
  int last = first + 1;
  while (last < side && pixels[last] == pixels[first]) ++last;
  return last;
}

void Attend(const std::uint32_t* pixel) {
#ifdef __GNUC__
  __builtin_prefetch(pixel, 1);
#else
  static_cast<void>(pixel);
#endif
}

/// Superpose for `group` pixels, each byte by itself: compilers make a few instructions of it.
void MelangeGroupe(const std::uint32_t* above, std::uint32_t* below) {
  constexpr std::size_t bytes = group * sizeof(std::uint32_t);
  std::array<std::uint32_t, group> kept{};  // what shines through, in every byte of its pixel
  for (std::size_t i = 0; i < group; ++i) {
    const std::uint32_t share = 255 - (above[i] >> 24);
    const std::uint32_t both = share | share << 8;
    kept[i] = both | both << 16;
  }
  std::array<std::uint8_t, bytes> shares, over, under;
  std::memcpy(shares.data(), kept.data(), bytes);
  std::memcpy(over.data(), above, bytes);
  std::memcpy(under.data(), below, bytes);
  for (std::size_t i = 0; i < bytes; ++i) {
    const auto product = static_cast<std::uint16_t>(under[i] * shares[i] + 128);
    const auto rounded = static_cast<std::uint16_t>(product + (product >> 8));
    under[i] = static_cast<std::uint8_t>(over[i] + (rounded >> 8));
  }
  std::memcpy(below, under.data(), bytes);
}

void Melange(const std::uint32_t* above, std::uint32_t* below, int count) {
  int i = 0;
  for (; i + group <= count; i += group) MelangeGroupe(above + i, below + i);
  for (; i < count; ++i) below[i] = Superpose(above[i], below[i]);
}

void Couvre(std::uint32_t colour, std::uint32_t* below, int count) {
  std::array<std::uint32_t, group> same{};
  same.fill(colour);
  int i = 0;
  for (; i + group <= count; i += group) std::memcpy(below + i, same.data(), sizeof same);
  for (; i < count; ++i) below[i] = colour;
}

}  // namespace

double CircleLook::RayonTotal() const {
  const double perPixel = penWidth / std::max(attributes.DrawWidth, 1);
  return radius + penWidth / 2 + attributes.RingWidth * perPixel;
}

bool CircleLook::operator==(const CircleLook& other) const {
  const DrawAttributes& a = attributes;
  const DrawAttributes& b = other.attributes;
  return a.FillColor == b.FillColor && radius == other.radius && penWidth == other.penWidth &&
         a.ForeColor == b.ForeColor && a.fillStyle == b.fillStyle && a.drawStyle == b.drawStyle &&
         a.RingWidth == b.RingWidth;
}

void DessineCercle(QPainter& painter, double x, double y, const CircleLook& look) {
  const DrawAttributes& a = look.attributes;
  const QPointF centre(x + 0.5, y + 0.5);  // the toolkit counts from the pixel's corner
  painter.setRenderHint(QPainter::Antialiasing);
  if (a.RingWidth > 0) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(centre, look.RayonTotal(), look.RayonTotal());
  }
  painter.setPen(QPen(EnQColor(a.ForeColor), look.penWidth, StyleDePlume(a.drawStyle), Qt::RoundCap,
                      Qt::RoundJoin));
  painter.setBrush(a.fillStyle == FillStyle::Solid ? QBrush(EnQColor(a.FillColor))
                                                   : QBrush(Qt::NoBrush));
  const double radius = std::max(look.radius, 0.01);  // the toolkit draws nothing for 0
  painter.drawEllipse(centre, radius, radius);
}

CircleStamps::Set& CircleStamps::SetDe(const CircleLook& look) {
  const auto fits = [&look](const Set& set) { return set.margin > 0 && set.look == look; };
  if (fits(sets_[last_])) return sets_[last_];
  auto found = std::find_if(sets_.begin(), sets_.end(), fits);
  if (found == sets_.end()) {
    found = sets_.begin() + static_cast<std::ptrdiff_t>(next_);
    next_ = (next_ + 1) % sets_.size();
    const int margin = static_cast<int>(std::ceil(look.RayonTotal())) + 1;
    *found = Set{look, margin, {}};
  }
  last_ = static_cast<std::size_t>(found - sets_.begin());
  return *found;
}

void CircleStamps::Pose(const PixelRows& target, double x, double y, const CircleLook& look) {
  Set& set = SetDe(look);
  const int margin = set.margin;
  if (!(x > -margin - 1 && x < target.width + margin && y > -margin - 1 &&
        y < target.height + margin)) {
    return;
  }
  const int stepX = PlusProche(x * phases);
  const int stepY = PlusProche(y * phases);
  const Stamp& stamp = Donne(set, stepX & (phases - 1), stepY & (phases - 1));
  const int left = (stepX - (stepX & (phases - 1))) / phases - margin;
  const int top = (stepY - (stepY & (phases - 1))) / phases - margin;
  for (const Span& span : stamp.spans) {
    const int row = top + span.row;
    const int first = std::max<int>(span.first, -left);
    const int count = std::min<int>(span.last, target.width - left) - first;
    if (row < 0 || row >= target.height || count <= 0) continue;
    std::uint32_t* below =
        target.pixels + static_cast<std::ptrdiff_t>(row) * target.width + left + first;
    if (span.plain) {
      Couvre(span.from, below, count);
    } else {
      Melange(stamp.pixels.data() + span.from + (first - span.first), below, count);
    }
  }
}

void CircleStamps::Annonce(const PixelRows& target, double x, double y) const {
  const int margin = sets_[last_].margin;
  if (!(x > -margin && x < target.width + margin && y > -margin && y < target.height + margin)) {
    return;
  }
  const int left = std::max(static_cast<int>(x) - margin, 0);
  const int right = std::min(static_cast<int>(x) + margin, target.width - 1);
  const int top = std::max(static_cast<int>(y) - margin, 0);
  const int bottom = std::min(static_cast<int>(y) + margin, target.height - 1);
  for (int row = top; row <= bottom; ++row) {
    const std::uint32_t* pixels = target.pixels + static_cast<std::ptrdiff_t>(row) * target.width;
    for (int column = left; column < right; column += fetched) Attend(pixels + column);
    Attend(pixels + right);
  }
}

const CircleStamps::Stamp& CircleStamps::Donne(Set& set, int phaseX, int phaseY) {
  Stamp& stamp =
      set.stamps[static_cast<std::size_t>(phaseY) * phases + static_cast<std::size_t>(phaseX)];
  if (!stamp.made) stamp = Fabrique(set, phaseX, phaseY);
  return stamp;
}

CircleStamps::Stamp CircleStamps::Fabrique(const Set& set, int phaseX, int phaseY) {
  const int side = 2 * set.margin + 2 + group;  // room on the right for whole groups
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  DessineCercle(painter, set.margin + static_cast<double>(phaseX) / phases,
                set.margin + static_cast<double>(phaseY) / phases, set.look);
  painter.end();
  Stamp stamp;
  stamp.made = true;
  Decoupe(stamp, image);
  return stamp;
}

void CircleStamps::Decoupe(Stamp& stamp, const QImage& image) {
  const int side = image.width();
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(side) *
                                    static_cast<std::size_t>(side));
  std::memcpy(pixels.data(), image.constBits(), pixels.size() * sizeof(std::uint32_t));
  for (int row = 0; row < side; ++row) {
    DecoupeRangee(stamp, pixels.data() + static_cast<std::ptrdiff_t>(row) * side, side, row);
  }
  // What a blended span gains stays as it is: nothing is drawn there, or it is opaque.
  for (Span& span : stamp.spans) {
    if (span.plain) continue;
    const int over = (span.last - span.first) % group;
    if (over != 0) span.last = static_cast<std::int16_t>(span.last + group - over);
    span.from = static_cast<std::uint32_t>(stamp.pixels.size());
    const auto start = pixels.begin() + static_cast<std::ptrdiff_t>(span.row) * side;
    stamp.pixels.insert(stamp.pixels.end(), start + span.first, start + span.last);
  }
}

void CircleStamps::DecoupeRangee(Stamp& stamp, const std::uint32_t* pixels, int side, int row) {
  const std::size_t before = stamp.spans.size();
  for (int first = 0, last = 0; first < side; first = last) {
    last = FinDeSuite(pixels, first, side);
    if (pixels[first] == 0) continue;
    const bool plain = EstOpaque(pixels[first]) && last - first >= shortestPlain;
    Span* const former = stamp.spans.size() > before ? &stamp.spans.back() : nullptr;
    if (!plain && former != nullptr && !former->plain && first - former->last < group) {
      former->last = static_cast<std::int16_t>(last);
    } else {
      stamp.spans.push_back({static_cast<std::int16_t>(row), static_cast<std::int16_t>(first),
                             static_cast<std::int16_t>(last), plain, pixels[first]});
    }
  }
}

}  // namespace talpena

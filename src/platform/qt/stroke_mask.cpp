#include "platform/qt/stroke_mask.h"

#include <algorithm>
#include <cmath>

namespace talpena {

/// A segment made ready: the distance of a pixel from it gives the pixel's coverage.
struct SegmentShape {
  SegmentShape(SurfacePoint from, SurfacePoint to, double width)
      : x(static_cast<float>(from.x)),
        y(static_cast<float>(from.y)),
        dx(static_cast<float>(to.x - from.x)),
        dy(static_cast<float>(to.y - from.y)),
        reach(static_cast<float>(width / 2 + 0.5)),
        outside(reach * reach),
        inside(reach > 1 ? (reach - 1) * (reach - 1) : 0) {
    const float square = dx * dx + dy * dy;
    inverse = square > 1e-12F ? 1 / square : 0;
  }
  /// 0 to 255.
  int Couverture(float px, float py) const {
    const float ox = px - x;
    const float oy = py - y;
    const float along = std::clamp((ox * dx + oy * dy) * inverse, 0.0F, 1.0F);
    const float ex = ox - along * dx;
    const float ey = oy - along * dy;
    const float square = ex * ex + ey * ey;
    if (square >= outside) return 0;
    if (square < inside) return 255;
    return static_cast<int>(std::lrint((reach - std::sqrt(square)) * 255));
  }

  float x, y, dx, dy;
  float reach;    ///< distance at which nothing of the line is left
  float outside;  ///< its square
  float inside;   ///< square of the distance up to which a pixel is covered whole
  float inverse;  ///< 1 / length squared; 0 for a dot
};

namespace {

/// Pixels from one to another, both included, that a surface has.
struct PixelRange {
  PixelRange(double from, double to, int size) {
    const double start = std::clamp(from, 0.0, double(size));
    first = static_cast<int>(start);
    if (first < start) ++first;
    last = to < 0 ? -1 : static_cast<int>(std::min(to, double(size - 1)));
  }
  int first;
  int last;
};

}  // namespace

void StrokeMask::Dimensionne(int width, int height) {
  width_ = width;
  height_ = height;
  coverage_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
  touched_.clear();
  partsWidth_ = 0;  // they count in pixels of rows of another length
}

void StrokeMask::Segment(SurfacePoint from, SurfacePoint to, double width) {
  const SegmentShape shape(from, to, width);
  const double reach = width / 2 + 0.5;
  const double left = std::min(from.x, to.x) - reach;
  const double right = std::max(from.x, to.x) + reach;
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const bool steep = std::abs(dy) > 1e-6;
  const double slope = steep ? dx / dy : 0;
  const double half = steep ? reach * std::sqrt(1 + slope * slope) : 0;  // along the row
  const PixelRange rows(std::min(from.y, to.y) - reach, std::max(from.y, to.y) + reach, height_);
  for (int y = rows.first; y <= rows.last; ++y) {
    const double middle = from.x + (y - from.y) * slope;
    const PixelRange range(steep ? std::max(left, middle - half) : left,
                           steep ? std::min(right, middle + half) : right, width_);
    Rangee(y, range.first, range.last, shape);
  }
}

void StrokeMask::Rangee(int y, int first, int last, SegmentShape shape) {
  const std::size_t start = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
  for (int x = first; x <= last; ++x) {
    Couvre(start + static_cast<std::size_t>(x),
           shape.Couverture(static_cast<float>(x), static_cast<float>(y)));
  }
}

inline void StrokeMask::Couvre(std::size_t pixel, int coverage) {
  std::uint8_t& covered = coverage_[pixel];
  if (coverage <= covered) return;
  if (covered == 0) touched_.push_back(static_cast<std::uint32_t>(pixel));
  covered = static_cast<std::uint8_t>(coverage);
}

bool StrokeMask::Copie(PixelPoint from, PixelPoint to, double width) {
  if (width != partsWidth_) OublieParts(width);
  const std::int64_t dx = std::int64_t{to.x} - from.x;
  const std::int64_t dy = std::int64_t{to.y} - from.y;
  const int m = partsMargin_;
  const bool inside = std::min(from.x, to.x) >= m && std::max(from.x, to.x) < width_ - m &&
                      std::min(from.y, to.y) >= m && std::max(from.y, to.y) < height_ - m;
  if (!inside || std::abs(dx) > longestCopy || std::abs(dy) > longestCopy) return false;
  std::vector<Share>& parts =
      parts_[static_cast<std::size_t>((dy + longestCopy) * directions + dx + longestCopy)];
  if (parts.empty()) parts = Parts(static_cast<int>(dx), static_cast<int>(dy));
  const std::ptrdiff_t start = static_cast<std::ptrdiff_t>(from.y) * width_ + from.x;
  for (const Share& part : parts)
    Couvre(static_cast<std::size_t>(start + part.offset), part.coverage);
  return true;
}

std::vector<StrokeMask::Share> StrokeMask::Parts(int dx, int dy) const {
  const SegmentShape shape({0, 0}, {double(dx), double(dy)}, partsWidth_);
  std::vector<Share> parts;
  for (int y = std::min(dy, 0) - partsMargin_; y <= std::max(dy, 0) + partsMargin_; ++y) {
    for (int x = std::min(dx, 0) - partsMargin_; x <= std::max(dx, 0) + partsMargin_; ++x) {
      const int coverage = shape.Couverture(static_cast<float>(x), static_cast<float>(y));
      if (coverage > 0) parts.push_back({y * width_ + x, static_cast<std::uint8_t>(coverage)});
    }
  }
  return parts;
}

void StrokeMask::OublieParts(double width) {
  partsWidth_ = width;
  partsMargin_ = static_cast<int>(std::ceil(width / 2 + 0.5));
  parts_.assign(std::size_t{directions} * directions, {});
}

void StrokeMask::Peint(const PixelRows& target, std::uint32_t colour) {
  for (const std::uint32_t pixel : touched_) {
    std::uint8_t& covered = coverage_[pixel];
    std::uint32_t& below = target.pixels[pixel];
    below = covered == 255 ? colour : Superpose(Echelonne(colour, covered), below);
    covered = 0;
  }
  touched_.clear();
}

void StrokeMask::Oublie() {
  for (const std::uint32_t pixel : touched_) coverage_[pixel] = 0;
  touched_.clear();
}

}  // namespace talpena

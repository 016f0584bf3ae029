#include "platform/qt/clipping.h"

#include <algorithm>
#include <cmath>

namespace talpena {
namespace {

SurfacePoint Entre(SurfacePoint a, SurfacePoint b, double t) {
  return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
}

/// The share of a line that is left, from `first` to `last`, and the borders that cut it.
struct Share {
  double first = 0;
  double last = 1;
  const double* firstX = nullptr;  ///< border across which the line enters, if it is an upright one
  const double* firstY = nullptr;
  const double* lastX = nullptr;
  const double* lastY = nullptr;

  /// One border. `delta` is how far the line goes outwards, `room` how far the border lies ahead.
  bool Restreint(double delta, double room, const double* x, const double* y) {
    if (delta == 0) return room >= 0;
    const double t = room / delta;
    if (delta < 0 && t > first) {
      first = t, firstX = x, firstY = y;
    } else if (delta > 0 && t < last) {
      last = t, lastX = x, lastY = y;
    }
    return first <= last;
  }
};

/// Where a line crosses a border: on it to the last bit, however far away its ends are.
SurfacePoint Croisement(SurfacePoint from, SurfacePoint to, double t, const double* x,
                        const double* y, const SurfaceRect& rect) {
  const SurfacePoint p = Entre(from, to, t);
  return {x != nullptr ? *x : std::clamp(p.x, rect.left, rect.right),
          y != nullptr ? *y : std::clamp(p.y, rect.top, rect.bottom)};
}

/// One border: how far a point lies on its inner side.
struct Border {
  double x, y, offset;
  double Dedans(SurfacePoint p) const { return p.x * x + p.y * y + offset; }
};

std::vector<SurfacePoint> CoupeCote(const std::vector<SurfacePoint>& points, const Border& border) {
  std::vector<SurfacePoint> kept;
  kept.reserve(points.size() + 4);
  SurfacePoint before = points.back();
  double inBefore = border.Dedans(before);
  for (const SurfacePoint p : points) {
    const double in = border.Dedans(p);
    if ((in >= 0) != (inBefore >= 0)) kept.push_back(Entre(before, p, inBefore / (inBefore - in)));
    if (in >= 0) kept.push_back(p);
    before = p;
    inBefore = in;
  }
  return kept;
}

}  // namespace

bool EstFini(SurfacePoint p) { return std::isfinite(p.x) && std::isfinite(p.y); }

std::optional<LinePart> CoupeLigne(SurfacePoint from, SurfacePoint to, const SurfaceRect& rect) {
  if (!EstFini(from) || !EstFini(to)) return std::nullopt;
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  Share share;
  const bool meets = share.Restreint(-dx, from.x - rect.left, &rect.left, nullptr) &&
                     share.Restreint(dx, rect.right - from.x, &rect.right, nullptr) &&
                     share.Restreint(-dy, from.y - rect.top, nullptr, &rect.top) &&
                     share.Restreint(dy, rect.bottom - from.y, nullptr, &rect.bottom);
  if (!meets) return std::nullopt;
  LinePart part{from, to, 0};
  if (share.last < 1) part.to = Croisement(from, to, share.last, share.lastX, share.lastY, rect);
  if (share.first > 0) {
    part.from = Croisement(from, to, share.first, share.firstX, share.firstY, rect);
    part.skipped = share.first * std::hypot(dx, dy);
  }
  return part;
}

std::vector<SurfacePoint> CoupePolygone(std::vector<SurfacePoint> points, const SurfaceRect& rect) {
  std::erase_if(points, [](SurfacePoint p) { return !EstFini(p); });
  const Border borders[] = {
      {1, 0, -rect.left}, {-1, 0, rect.right}, {0, 1, -rect.top}, {0, -1, rect.bottom}};
  for (const Border& border : borders) {
    if (points.empty()) break;
    points = CoupeCote(points, border);
  }
  return points;
}

}  // namespace talpena

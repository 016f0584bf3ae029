#include "carto/plane_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace talpena {
namespace {

PlanePoint Entre(PlanePoint a, PlanePoint b, double t) {
  return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

/// Liang and Barsky: the stretch of a segment inside the frame as two parameters; false if none.
bool Troncon(PlanePoint a, PlanePoint b, const Frame& frame, double& from, double& to) {
  from = 0;
  to = 1;
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double direction[] = {-dx, dx, -dy, dy};
  const double room[] = {a.x - frame.left, frame.right - a.x, a.y - frame.bottom, frame.top - a.y};
  for (int side = 0; side < 4; ++side) {
    if (direction[side] == 0) {
      if (room[side] < 0) return false;
      continue;
    }
    const double t = room[side] / direction[side];
    if (direction[side] < 0) {
      from = std::max(from, t);
    } else {
      to = std::min(to, t);
    }
  }
  return from < to;
}

double DistanceCarree(PlanePoint p, PlanePoint a, PlanePoint b) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double length = dx * dx + dy * dy;
  double t = length == 0 ? 0 : ((p.x - a.x) * dx + (p.y - a.y) * dy) / length;
  t = std::clamp(t, 0.0, 1.0);
  const double ex = a.x + t * dx - p.x, ey = a.y + t * dy - p.y;
  return ex * ex + ey * ey;
}

void MarquePoints(const Line& line, double squared, std::vector<char>& kept) {
  std::vector<std::pair<std::size_t, std::size_t>> waiting{{0, line.size() - 1}};
  while (!waiting.empty()) {
    const auto [first, last] = waiting.back();
    waiting.pop_back();
    std::size_t far = first;
    double most = squared;
    for (std::size_t i = first + 1; i < last; ++i) {
      const double d = DistanceCarree(line[i], line[first], line[last]);
      if (d > most) most = d, far = i;
    }
    if (far == first) continue;
    kept[far] = 1;
    waiting.emplace_back(first, far);
    waiting.emplace_back(far, last);
  }
}

}  // namespace

Frame CadreDe(const std::vector<PlanePoint>& points) {
  constexpr double none = std::numeric_limits<double>::infinity();
  Frame frame{none, none, -none, -none};
  for (const PlanePoint p : points) {
    frame.left = std::min(frame.left, p.x);
    frame.right = std::max(frame.right, p.x);
    frame.bottom = std::min(frame.bottom, p.y);
    frame.top = std::max(frame.top, p.y);
  }
  return frame;
}

bool SeTouchent(const Frame& a, const Frame& b) {
  return a.left <= b.right && b.left <= a.right && a.bottom <= b.top && b.bottom <= a.top;
}

std::vector<Line> RogneLigne(const Line& line, const Frame& frame) {
  std::vector<Line> parts;
  bool open = false;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const PlanePoint a = line[i - 1], b = line[i];
    double from = 0, to = 1;
    if (!Troncon(a, b, frame, from, to)) {
      open = false;
      continue;
    }
    if (!open || from > 0) parts.push_back({from > 0 ? Entre(a, b, from) : a});
    parts.back().push_back(to < 1 ? Entre(a, b, to) : b);
    open = to >= 1;
  }
  return parts;
}

Line Densifie(const Line& line, double step) {
  Line dense;
  dense.reserve(line.size());
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (i > 0) {
      const PlanePoint a = line[i - 1], b = line[i];
      const double distance = std::max(std::abs(b.x - a.x), std::abs(b.y - a.y));
      const int pieces = static_cast<int>(std::ceil(distance / step));
      for (int k = 1; k < pieces; ++k)
        dense.push_back(Entre(a, b, static_cast<double>(k) / pieces));
    }
    dense.push_back(line[i]);
  }
  return dense;
}

Line Simplifie(const Line& line, double tolerance) {
  if (line.size() < 3) return line;
  std::vector<char> kept(line.size(), 0);
  kept.front() = kept.back() = 1;
  MarquePoints(line, tolerance * tolerance, kept);
  Line thin;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (kept[i]) thin.push_back(line[i]);
  }
  return thin;
}

double Aire(const Ring& ring) {
  double twice = 0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const PlanePoint a = ring[i], b = ring[i + 1 == ring.size() ? 0 : i + 1];
    twice += a.x * b.y - b.x * a.y;
  }
  return twice / 2;
}

double Aire(const Surface& surface) {
  double sum = 0;
  for (const Ring& ring : surface) sum += std::abs(Aire(ring));
  return sum;
}

bool EstDedans(const Surface& surface, PlanePoint p) {
  bool inside = false;
  for (const Ring& ring : surface) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const PlanePoint a = ring[i == 0 ? ring.size() - 1 : i - 1], b = ring[i];
      if ((a.y > p.y) == (b.y > p.y)) continue;
      if (p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
    }
  }
  return inside;
}

Line Ferme(const Ring& ring) {
  Line line = ring;
  if (!ring.empty()) line.push_back(ring.front());
  return line;
}

}  // namespace talpena

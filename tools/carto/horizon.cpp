#include "carto/horizon.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace talpena {
namespace {

constexpr double radians = std::numbers::pi / 180;
constexpr double edgeStepDegrees = 1;  ///< edges are straight in longitude and latitude only

double Azimut(double east, double north) { return std::atan2(east, north); }

double PlusCourt(double turn) { return std::remainder(turn, 2 * std::numbers::pi); }

}  // namespace

Horizon::Horizon(double latitude, double longitude, double radius)
    : sine_(std::sin(latitude * radians)),
      cosine_(std::cos(latitude * radians)),
      longitude_(longitude * radians),
      limit_(std::cos(radius * radians)),
      edge_(std::sin(radius * radians)) {}

Horizon::View Horizon::Depuis(PlanePoint lonLat) const {
  const double lat = lonLat.y * radians, dl = lonLat.x * radians - longitude_;
  const double across = std::cos(lat) * std::cos(dl), up = std::sin(lat);
  return {sine_ * up + cosine_ * across, std::cos(lat) * std::sin(dl),
          cosine_ * up - sine_ * across};
}

PlanePoint Horizon::Vers(const View& view) const {
  const double up = std::clamp(view.c * sine_ + view.north * cosine_, -1.0, 1.0);
  const double dl = std::atan2(view.east, view.c * cosine_ - view.north * sine_);
  return {PlusCourt(longitude_ + dl) / radians, std::asin(up) / radians};
}

PlanePoint Horizon::AuBord(double azimuth) const {
  return Vers({limit_, edge_ * std::sin(azimuth), edge_ * std::cos(azimuth)});
}

PlanePoint Horizon::Croise(const View& a, const View& b) const {
  const double t = (limit_ - a.c) / (b.c - a.c);
  return AuBord(Azimut(a.east + (b.east - a.east) * t, a.north + (b.north - a.north) * t));
}

// Stops at whole degrees only, so that two arcs over the same stretch have the same points and
// cancel out.
void Horizon::AjouteArc(Ring& ring, double from, double to) const {
  const double turn = PlusCourt(to - from);
  const double first = from / radians, last = (from + turn) / radians;
  if (turn > 0) {
    for (double d = std::floor(first) + 1; d <= last; ++d) ring.push_back(AuBord(d * radians));
  } else {
    for (double d = std::ceil(first) - 1; d >= last; --d) ring.push_back(AuBord(d * radians));
  }
}

Ring Horizon::RogneAnneau(const Ring& ring) const {
  const Line dense = Densifie(Ferme(ring), edgeStepDegrees);
  Ring kept;
  bool seen = false;
  double turned = 0;
  View from = Depuis(dense.front());
  for (std::size_t i = 1; i < dense.size(); ++i) {
    const View to = Depuis(dense[i]);
    const bool showsFrom = from.c >= limit_, showsTo = to.c >= limit_;
    double start = Azimut(from.east, from.north), end = Azimut(to.east, to.north);
    turned += PlusCourt(end - start);
    if (showsFrom != showsTo) {
      const View cross = Depuis(Croise(from, to));
      (showsTo ? end : start) = Azimut(cross.east, cross.north);
      if (!showsTo) kept.push_back(Vers(cross));
    }
    if (!showsFrom || !showsTo) AjouteArc(kept, start, end);
    if (showsFrom != showsTo && showsTo) kept.push_back(AuBord(end));
    if (showsTo) kept.push_back(dense[i]);
    seen = seen || showsTo;
    from = to;
  }
  return seen || std::abs(turned) > 1 ? kept : Ring{};  // otherwise a walk along the edge and back
}

Surface Horizon::Rogne(const Surface& surface) const {
  Surface kept;
  for (const Ring& ring : surface) {
    if (Ring part = RogneAnneau(ring); part.size() >= 3) kept.push_back(std::move(part));
  }
  const PlanePoint opposite{PlusCourt(longitude_ + std::numbers::pi) / radians,
                            -std::asin(sine_) / radians};
  if (EstDedans(surface, opposite)) kept.push_back(Bord());
  return kept;
}

std::vector<Line> Horizon::RogneLigne(const Line& line) const {
  const Line dense = Densifie(line, edgeStepDegrees);
  std::vector<Line> parts;
  bool shows = false;
  View last;
  for (std::size_t i = 0; i < dense.size(); ++i) {
    const View view = Depuis(dense[i]);
    const bool showsNow = view.c >= limit_;
    if (showsNow && !shows) {
      parts.emplace_back();
      if (i > 0) parts.back().push_back(Croise(last, view));
    }
    if (!showsNow && shows) parts.back().push_back(Croise(last, view));
    if (showsNow) parts.back().push_back(dense[i]);
    shows = showsNow;
    last = view;
  }
  return parts;
}

Ring Horizon::Bord() const {
  Ring edge;
  for (int d = 0; d < 360; ++d) edge.push_back(AuBord(d * radians));
  return edge;
}

}  // namespace talpena

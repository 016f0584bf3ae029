#include "maps/layer_plot.h"

#include <cmath>
#include <limits>

#include "maps/map_projection.h"
#include "maps/projection.h"

namespace talpena {
namespace {

constexpr float unwritten = std::numeric_limits<float>::quiet_NaN();

std::uint32_t Couleur(char kind) {
  switch (kind) {
    case 'R':
      return 0xFF0000;  // blue
    case 'L':
      return 0xFFFF00;  // cyan
    default:
      return 0;
  }
}

DrawStyle Style(int style) {
  return style == 1 || style == 2 ? DrawStyle::Solid : DrawStyle::Dashed;
}

/// What is no number stays none, for the projection to refuse.
float EnRadians(float degrees) { return std::isfinite(degrees) ? radian(degrees) : degrees; }

bool EstEchec(const MapState& carte, float X, float Y) {
  if (X != HORS_CARTE || Y != HORS_CARTE) return false;
  const MapProjection* projection = ProjectionDe(carte);
  return projection != nullptr && projection->lointain == FarPoint::Failed;
}

}  // namespace

LayerPlot::LayerPlot(const MapState& carte, CanvasSink& surface)
    : carte_(carte), canvas_(surface.Canevas()), collecteur_(surface.Collecteur()) {
  collecteur_.Device(canvas_);
}

bool LayerPlot::Garde(const LayerRecord& record) const {
  return carte_.LatSud - 1 <= record.south && carte_.LatNord + 1 >= record.north &&
         record.west >= carte_.LonOuest && record.east <= carte_.LonEst;
}

void LayerPlot::Trace(const LayerRecord& record, std::span<const LayerPoint> points) {
  if (points.empty()) return;
  lat_.clear();
  lon_.clear();
  for (const LayerPoint& point : points) {
    lat_.push_back(EnRadians(point.latitude));
    lon_.push_back(EnRadians(point.longitude));
  }
  x_.assign(points.size(), unwritten);
  y_.assign(points.size(), unwritten);
  ProjectPoints(carte_, lat_, lon_, x_, y_);
  ChangeAttributs(record);
  for (std::size_t i = 0; i < points.size(); ++i) {
    // What a projection does not write keeps the value of the point before.
    Plot(points[i].pen, std::isnan(x_[i]) ? X_ : x_[i], std::isnan(y_[i]) ? Y_ : y_[i]);
  }
}

void LayerPlot::ChangeAttributs(const LayerRecord& record) {
  if (!first_ && record.kind == kind_ && record.style == style_) return;
  canvas_.Attributs.ForeColor = Couleur(record.kind);
  canvas_.Attributs.drawStyle = Style(record.style);
  canvas_.Attributs.DrawWidth = 1;
  first_ = false;
  kind_ = record.kind;
  style_ = record.style;
}

void LayerPlot::Plot(std::int16_t pen, float X, float Y) {
  const bool failed = EstEchec(carte_, X, Y);
  const bool up = pen == -1 || (X_ == 0 && Y_ == 0);
  if (up) {
    collecteur_.DrawTLP();
  } else if (!failed) {
    collecteur_.Point(X, Y);
  }
  if (failed) return;
  X_ = X;
  Y_ = Y;
}

}  // namespace talpena

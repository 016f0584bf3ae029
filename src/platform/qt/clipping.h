// Lines and outlines cut to what a surface can take, whatever their coordinates.
#pragma once
#include <optional>
#include <vector>

namespace talpena {

struct SurfacePoint {
  double x = 0;
  double y = 0;
  bool operator==(const SurfacePoint&) const = default;
};

struct SurfaceRect {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

/// The part of a line that lies in a rectangle; `skipped` is what was cut off before it.
struct LinePart {
  SurfacePoint from;
  SurfacePoint to;
  double skipped = 0;
};

/// False for a number that is none, or not finite.
bool EstFini(SurfacePoint p);

/// Empty when the line misses the rectangle or an end of it is no number. After Y.-D. Liang and
/// B. A. Barsky, A New Concept and Method for Line Clipping, ACM TOG 3 (1984), pp. 1-22.
std::optional<LinePart> CoupeLigne(SurfacePoint from, SurfacePoint to, const SurfaceRect& rect);

/// A closed outline cut to a rectangle. After I. E. Sutherland and G. W. Hodgman, Reentrant Polygon
/// Clipping, CACM 17 (1974), pp. 32-42: parts that the cut separates stay joined along its border.
std::vector<SurfacePoint> CoupePolygone(std::vector<SurfacePoint> points, const SurfaceRect& rect);

}  // namespace talpena

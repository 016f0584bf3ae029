// Lines and rings in a plane: clipping to a frame, thinning, area. The plane is that of longitude
// (x) and latitude (y) in degrees, or that of projected kilometres.
#pragma once
#include <vector>

namespace talpena {

struct PlanePoint {
  double x = 0;
  double y = 0;
  bool operator==(const PlanePoint&) const = default;
};

using Line = std::vector<PlanePoint>;
using Ring = std::vector<PlanePoint>;  ///< closed; the first point does not stand again at the end
using Surface = std::vector<Ring>;     ///< inside where an odd number of its rings goes round

struct Frame {
  double left = 0;
  double bottom = 0;
  double right = 0;
  double top = 0;
  bool Contient(PlanePoint p) const {
    return p.x >= left && p.x <= right && p.y >= bottom && p.y <= top;
  }
};

/// Smallest frame round the points; of none an empty one, its left beyond its right.
Frame CadreDe(const std::vector<PlanePoint>& points);
bool SeTouchent(const Frame& a, const Frame& b);

/// The parts of a line inside the frame, in its direction.
std::vector<Line> RogneLigne(const Line& line, const Frame& frame);

/// Points between those more than `step` apart, on the straight line.
Line Densifie(const Line& line, double step);

/// Douglas and Peucker: no point left out lies farther than `tolerance` from what stays. The ends
/// stay; of a closed line (first equals last) two points far apart do as well.
Line Simplifie(const Line& line, double tolerance);

/// Positive counterclockwise.
double Aire(const Ring& ring);
double Aire(const Surface& surface);  ///< sum of its rings without regard to direction, holes too

bool EstDedans(const Surface& surface, PlanePoint p);

/// The ring as a line that comes back to its first point.
Line Ferme(const Ring& ring);

}  // namespace talpena

// What an azimuthal map shows of the earth: all within an angle from its centre. Surfaces that
// reach beyond are closed along that edge, lines end on it.
#pragma once
#include <vector>

#include "carto/plane_geometry.h"

namespace talpena {

class Horizon {
 public:
  /// Centre in degrees; `radius`, the angle from the centre to the edge, in degrees: 90 for half
  /// a globe.
  Horizon(double latitude, double longitude, double radius);

  /// Rings of longitude and latitude, between 180 W and 180 E. Points beyond the edge go to the
  /// edge in their own direction from the centre. That turns the surface inside out when the point
  /// opposite the centre lies in it; then the whole edge is one more ring.
  Surface Rogne(const Surface& surface) const;

  std::vector<Line> RogneLigne(const Line& line) const;

  /// The edge itself, in longitude and latitude.
  Ring Bord() const;

  bool Voit(PlanePoint lonLat) const { return Depuis(lonLat).c >= limit_; }

 private:
  /// A place as seen from the centre: on the sphere of radius 1, c towards the eye.
  struct View {
    double c = 0;
    double east = 0;
    double north = 0;
  };
  View Depuis(PlanePoint lonLat) const;
  PlanePoint Vers(const View& view) const;
  PlanePoint AuBord(double azimuth) const;
  PlanePoint Croise(const View& a, const View& b) const;
  void AjouteArc(Ring& ring, double from, double to) const;
  Ring RogneAnneau(const Ring& ring) const;

  double sine_, cosine_;  ///< of the centre's latitude
  double longitude_;      ///< of the centre, radians
  double limit_;          ///< cosine of the radius
  double edge_;           ///< sine of the radius
};

}  // namespace talpena

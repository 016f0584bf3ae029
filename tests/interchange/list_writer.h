// Places written as the fields of a list in each of the sixteen systems, by PROJ and GeographicLib:
// nothing of this program's arithmetic but the letters of the IFBL squares.
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "coords/proj_oracle.h"
#include "coords/systems.h"

namespace talpena::test {

/// A way to write places.
struct ListNotation {
  const char* name;
  CoordSystem system;
  const char* datum;  ///< code of the datum that what is written stands on
  /// The coordinate fields of a record, with commas between them.
  std::string (*ecrit)(Point onDatum);
  /// How far from the place the middle of what is written may lie, metres, with the known
  /// departures of the program from the published projection (docs/coordinates.md).
  double metres;
};

/// "deg", "dms" and so on; "mgr_km", "bng_km", "itm_km" for references cut to the kilometre,
/// "ifb_1" and "ifb_4" for squares of 1 and 4 km.
const ListNotation& NotationDe(std::string_view name);

/// Between WGS84 and a datum of the shipped catalogue, by its three shifts and an exact conversion
/// to the geocentre and back.
class ExactDatum {
 public:
  explicit ExactDatum(std::string_view code);
  /// A longitude beyond 180 stays beyond it.
  Point DepuisWgs84(Point p) const;
  Point VersWgs84(Point p) const;

 private:
  ProjOracle oracle_;
};

/// Metres of Lambert belge 1972 as published, as a point on WGS84 by the shifts of BEL72.
Point DeLambertBelgePublie(Plane metres);
/// Zone of Morocco as published, 1 north, 2 south, and points on MER.
Plane VersLambertMarocPublie(int zone, Point onMer);
Point DeLambertMarocPublie(int zone, Plane metres);

}  // namespace talpena::test

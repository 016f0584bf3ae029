#include "carto/map_sheet.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string>

#include "carto/surface_clip.h"
#include "maps/projection.h"

namespace talpena {
namespace {

constexpr double curveStepDegrees = 1;  ///< longest straight piece of what is curved on the map
constexpr double stereographicRadius = 130;
constexpr double hemisphere = 90;
constexpr double shortOfEquator = 89.9999;  ///< a polar globe hides what lies beyond the equator
constexpr double conicBeyondLimits = 40;    ///< latitudes in the corners of a conic map

MapState EtatDe(const MapRow& row) {
  MapState state;
  InitFacteurs(state);
  state.CodeProjection = static_cast<std::int16_t>(row.code);
  state.ParallelePrincipal = row.parallel;
  state.LatNord = row.north;
  state.LatSud = row.south;
  state.LonEst = row.east;
  state.LonOuest = row.west;
  state.Parallele1 = row.parallel1;
  state.Parallele2 = row.parallel2;
  state.MeridienCentralDeg = row.meridian;
  InitProjection(state);
  InitBoite(state);
  return state;
}

std::optional<Horizon> HorizonDe(const MapRow& row) {
  switch (row.code) {
    case 3:
      return Horizon((row.north - row.south) / 2, row.meridian, stereographicRadius);
    case 10:
      return Horizon(0, row.meridian, hemisphere);
    case 11:
      return Horizon(90, row.meridian, shortOfEquator);
    case 12:
      return Horizon(-90, row.meridian, shortOfEquator);
    case 13:
      return Horizon(row.parallel, row.meridian, hemisphere);
    default:
      return std::nullopt;
  }
}

/// Codes 2 and 5 to 9 fill their box with the limits; on the others the box shows more than them.
Frame FenetreDe(const MapRow& row) {
  const double west = row.meridian - 180, east = row.meridian + 180;
  if (row.code == 1) return {west, std::max(-80.0, row.south - conicBeyondLimits), east, 89.9};
  if (row.code == 4) return {west, row.south, east, row.north};
  return {std::max<double>(west, row.west), row.south, std::min<double>(east, row.east), row.north};
}

Line Decale(const Line& line, double longitudes) {
  Line moved = line;
  for (PlanePoint& p : moved) p.x += longitudes;
  return moved;
}

Ring Coins(const Frame& f) {
  return {{f.left, f.bottom}, {f.right, f.bottom}, {f.right, f.top}, {f.left, f.top}};
}

}  // namespace

MapSheet::MapSheet(const MapRow& row)
    : row_(row), state_(EtatDe(row)), horizon_(HorizonDe(row)), window_(FenetreDe(row)) {
  if (row.code == 1 || row.code == 4) ResserreFenetre();
}

// Most of a conic's window lies far outside of its box; what is not in it need not be projected.
// A corner of the box may lie between the samples: half a degree of latitude is up to some
// degrees of longitude, but near a pole.
void MapSheet::ResserreFenetre() {
  constexpr double step = 0.5, beyond = 1, beyondAcross = 6, nearPole = 85;
  std::vector<PlanePoint> shown;
  for (double lat = window_.bottom; lat <= window_.top; lat += step) {
    for (double lon = window_.left; lon <= window_.right; lon += step) {
      if (Cadre().Contient(Projette({lon, lat}))) shown.push_back({lon, lat});
    }
  }
  const Frame seen = CadreDe(shown);
  if (row_.code == 1 && seen.top > nearPole) return;
  window_ = {std::max(window_.left, seen.left - beyondAcross),
             std::max(window_.bottom, seen.bottom - beyond),
             std::min(window_.right, seen.right + beyondAcross),
             std::min(window_.top, seen.top + beyond)};
}

MapSheet::MapSheet(const MapRow& row, const MapState& cylinder)
    : row_(row), state_(cylinder), window_{row.west, row.south, row.east, row.north} {}

Frame MapSheet::Cadre() const {
  return {state_.XGauche, state_.YBas, state_.XDroite, state_.YHaut};
}

PlanePoint MapSheet::Projette(PlanePoint lonLat) const {
  constexpr double perDegree = std::numbers::pi / 180;
  float X = 0, Y = 0;
  Project(state_, static_cast<float>(lonLat.y * perDegree),
          static_cast<float>(lonLat.x * perDegree), X, Y);
  if (X == HORS_CARTE || Y == HORS_CARTE)
    throw std::runtime_error(std::string(row_.name) + ": a point behind the globe was kept");
  return {X, Y};
}

Line MapSheet::Projete(const Line& lonLat) const {
  Line placed;
  placed.reserve(lonLat.size());
  for (const PlanePoint p : lonLat) placed.push_back(Projette(p));
  return placed;
}

Surface MapSheet::CoupeEnLongitudes(const Surface& lonLat) const {
  Surface turned;
  for (const double turn : {-360.0, 0.0, 360.0}) {
    for (const Ring& ring : lonLat) turned.push_back(Decale(ring, turn));
  }
  Surface kept = RogneSurface(turned, window_);
  for (Ring& ring : kept) {
    ring = Densifie(Ferme(ring), curveStepDegrees);
    ring.pop_back();
  }
  return kept;
}

std::vector<Line> MapSheet::CoupeEnLongitudes(const Line& lonLat) const {
  std::vector<Line> kept;
  const Frame own = CadreDe(lonLat);
  for (const double turn : {-360.0, 0.0, 360.0}) {
    if (!SeTouchent({own.left + turn, own.bottom, own.right + turn, own.top}, window_)) continue;
    for (const Line& part : RogneLigne(Decale(lonLat, turn), window_))
      kept.push_back(Densifie(part, curveStepDegrees));
  }
  return kept;
}

Surface MapSheet::PlaceSurface(const Surface& lonLat) const {
  Surface placed = horizon_ ? horizon_->Rogne(lonLat) : CoupeEnLongitudes(lonLat);
  for (Ring& ring : placed) ring = Projete(ring);
  return RogneSurface(placed, Cadre());
}

std::vector<Line> MapSheet::PlaceLignes(const std::vector<Line>& lonLat) const {
  std::vector<Line> placed;
  for (const Line& line : lonLat) {
    for (const Line& part : horizon_ ? horizon_->RogneLigne(line) : CoupeEnLongitudes(line)) {
      for (Line& piece : RogneLigne(Projete(part), Cadre())) placed.push_back(std::move(piece));
    }
  }
  return placed;
}

Line MapSheet::Bord() const {
  return Projete(horizon_ ? Ferme(horizon_->Bord())
                          : Densifie(Ferme(Coins(window_)), curveStepDegrees));
}

Surface MapSheet::Terre() const {
  Ring outline = Bord();
  outline.pop_back();
  return RogneSurface({outline}, Cadre());
}

std::vector<Line> MapSheet::Limbe() const {
  const bool globe = horizon_ && row_.code != 3;
  if (!globe && row_.code != 4) return {};
  const Frame box = Cadre();
  // The limb may pass the box by the rounding of a float; along the box itself there is none.
  const double edge = (box.right - box.left) * (globe ? -1e-6 : 1e-4);
  return RogneLigne(Bord(), {box.left + edge, box.bottom + edge, box.right - edge, box.top - edge});
}

}  // namespace talpena

// A map of the catalogue laid out by the program's own projections: what of the earth lies on it,
// and where.
#pragma once
#include <optional>
#include <vector>

#include "carto/horizon.h"
#include "carto/map_catalogue.h"
#include "carto/plane_geometry.h"
#include "maps/map_state.h"

namespace talpena {

class MapSheet {
 public:
  explicit MapSheet(const MapRow& row);
  /// A cylinder with constants and a box of its own, which its limits fill.
  MapSheet(const MapRow& row, const MapState& cylinder);

  const MapRow& Description() const { return row_; }
  const MapState& Etat() const { return state_; }
  Frame Cadre() const;  ///< the box of the map, kilometres

  /// Longitudes and latitudes to kilometres: cut where the projection ends, closed along that
  /// edge, and clipped to the box.
  Surface PlaceSurface(const Surface& lonLat) const;
  std::vector<Line> PlaceLignes(const std::vector<Line>& lonLat) const;

  /// All that the map can show of the earth, as a surface of kilometres: the water of the map.
  Surface Terre() const;

  /// Its outline where that is not the box: the limb of a globe, the side meridians of a
  /// sinusoidal world.
  std::vector<Line> Limbe() const;

  /// A place on the map, as the program draws it.
  PlanePoint Projette(PlanePoint lonLat) const;

 private:
  Surface CoupeEnLongitudes(const Surface& lonLat) const;
  std::vector<Line> CoupeEnLongitudes(const Line& lonLat) const;
  Line Projete(const Line& lonLat) const;
  Line Bord() const;
  void ResserreFenetre();

  MapRow row_;
  MapState state_;
  std::optional<Horizon> horizon_;  ///< of azimuthal maps; the others have a window
  Frame window_;                    ///< longitudes from meridian to meridian, latitudes
};

}  // namespace talpena

// The map data that ship as source: data/maps/*.geo, written by scripts/derive_map_data.py.
#pragma once
#include <string>
#include <vector>

#include "carto/plane_geometry.h"

namespace talpena {

struct GeoFeature {
  int rank = 0;             ///< rivers: 0 the greatest; borders: 1 where they are disputed
  std::vector<Line> parts;  ///< of an area rings, the outer one first
};

/// One scale of data in degrees, everything between 180 W and 180 E.
struct GeoData {
  std::vector<GeoFeature> land;
  std::vector<GeoFeature> shelves;  ///< of ice, on the sea
  std::vector<GeoFeature> lakes;
  std::vector<GeoFeature> borders;
  std::vector<GeoFeature> provinces;  ///< borders inside the countries of North America
  std::vector<GeoFeature> rivers;
};

/// Throws std::runtime_error when the file is missing or damaged.
GeoData LitDonnees(const std::string& path);

/// All rings of the areas as one surface; no two of them overlap.
Surface SurfaceDe(const std::vector<GeoFeature>& areas);

/// The lines of all features with a rank from `from` up to, but without, `to`.
std::vector<Line> LignesDeRang(const std::vector<GeoFeature>& features, int from, int to);

/// The outlines of areas as lines, without the edges along 180 degrees and round the pole where
/// the data were cut.
std::vector<Line> Contours(const std::vector<GeoFeature>& areas);

}  // namespace talpena

// The position under the mouse on a raster map, in the notations that its window shows.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "coords/state.h"
#include "maps/raster/raster_map.h"

namespace talpena {

/// What a map of one country shows besides.
enum class GrilleLocale : std::uint8_t { None, British, Lambert, Grades };

/// By the name of the picture's file, in any case.
GrilleLocale GrilleDe(std::string_view fichierCarte);

/// Its name, the same in every language; "" for None.
std::string_view NomGrille(GrilleLocale grille);

/// What the labels say. Empty where a notation has nothing for the position.
struct RasterLabels {
  std::string LblPosition;  ///< "Lat=+50.25 / Lon=+4.5"
  std::string LblUTM;       ///< "E=536000   N=5566000", or why there is none
  std::string LblMGRS;      ///< "31UES3600066000", or why there is none
  std::string LblBNG;       ///< of the map's own grid
  bool operator==(const RasterLabels&) const = default;
};

/// Reads a position in kilometres, which is taken to be on EUR-M. UTM and MGRS are those of the
/// International ellipsoid; the grid of a country is on its own datum. Never throws.
RasterLabels LitPositionRaster(const DatumCatalogue& catalogue, const RasterMap& carte,
                               PointKm point);

/// A longitude as the notations take it: 360 taken off above 180.
PointDegres SansTour(PointDegres place);

/// The International ellipsoid, and its id where references are made.
const UtmSeries& SeriesInternational();
inline constexpr std::int16_t EllipsoideInternational = 15;

}  // namespace talpena

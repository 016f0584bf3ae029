// The maps that ship, one row each.
#pragma once
#include <cstdint>
#include <optional>
#include <span>

namespace talpena {

/// How much of the data a map shows, and the weight of its lines.
enum class Detail : std::uint8_t { World, Continent, Region };

struct MapRow {
  const char* name;   ///< of its files, without an extension
  const char* title;  ///< first line of its description
  Detail detail;
  int code;        ///< of the projection, 1 to 13
  float parallel;  ///< codes 9 and 13: parallel of true scale, latitude of the centre
  float north, south, east, west;  ///< limits, degrees
  float parallel1, parallel2;      ///< code 1
  float meridian;                  ///< central meridian
  float graticule;                 ///< step of its faint graticule, degrees
  /// Where the scale bar is true if that is no place of true scale, and the scale there.
  std::optional<float> barParallel = {};
  double barStretch = 1;
};

/// Longitude up to which the layers of the world say once more, 360 degrees on, what lies west of
/// the antimeridian: for a globe whose limits go across it.
inline constexpr float farthestEast = 250;

std::span<const MapRow> Catalogue();

}  // namespace talpena

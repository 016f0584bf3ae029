// What the gazetteer remembers beside its settings: the members Geo* of SettingsState.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace talpena {

/// How the coordinates of a gazetteer are written, GeoCoordType.
namespace GeoCoord {
inline constexpr std::int16_t Ddmmss = 0;  ///< whole numbers, degrees times 10000
inline constexpr std::int16_t Degres = 1;
}  // namespace GeoCoord

/// The font in which the names of one region are shown.
struct RegionFont {
  std::string Nom = "Courier New";
  std::int16_t Taille = 10;  ///< points

  friend bool operator==(const RegionFont&, const RegionFont&) = default;
};

/// Regions 1 to 6 of the display names are elements 0 to 5.
inline constexpr std::size_t RegionCount = 6;
using RegionFonts = std::array<RegionFont, RegionCount>;

struct GazetteerState {
  RegionFonts Polices;    ///< see ChargePolices
  std::string TexteTape;  ///< put back into txt when the dialog was closed by a failure
};

}  // namespace talpena

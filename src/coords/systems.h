// The sixteen coordinate systems in which ORIGINAL is written.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "coords/state.h"

namespace talpena {

/// In the order of the selectors, from 0.
enum class CoordSystem : std::uint8_t {
  Deg,  ///< decimal degrees
  Dms,  ///< degrees, minutes, seconds packed as DD.MMSSsss
  Utm,  ///< zone, easting, northing
  Mgr,  ///< MGRS: zone, band, square and digits
  Grp,  ///< grades from the meridian of Paris
  Bng,  ///< British National Grid: letters, digits
  Itm,  ///< Irish grid: letters, digits
  Lmb,  ///< Lambert belge 1972
  Ifb,  ///< IFBL square
  Lf1,  ///< Lambert France, zone I
  Lf2,
  Lf3,
  Lf4,
  Lfe,  ///< Lambert II etendu
  Nma,  ///< Lambert Nord Maroc
  Sma   ///< Lambert Sud Maroc
};

inline constexpr int CoordSystemCount = 16;

/// How a system's part of ORIGINAL behind the code is made up.
enum class Notation : std::uint8_t {
  TwoAngles,   ///< signed numbers: latitude, longitude
  ZoneMetres,  ///< zone, easting, northing
  Mgrs,        ///< zone, band, square with digits
  Letters,     ///< two letters, digits
  Metres,      ///< x, y
  Square       ///< one code
};

struct CoordSystemInfo {
  std::string_view code;  ///< CoordSystemCode: three upper-case letters
  Notation notation;
  int datumSlot;  ///< slot of DatumsSpeciaux that the system implies; 0 for none
};

const CoordSystemInfo& InfoDe(CoordSystem system);

/// The system of a code, exactly as it is written: callers turn it to upper case first.
std::optional<CoordSystem> SystemeDe(std::string_view code);

/// The datum that goes with a system: the one that it implies, else the default datum for UTM
/// (UTM, MGR) or for spherical coordinates (DEG, DMS). 0 when the catalogue lacks it.
std::int16_t DatumDuSysteme(const CoordState& state, CoordSystem system);

}  // namespace talpena

// The sixteen coordinate systems in which ORIGINAL is written: what there is to know of each stands
// in one row of the table in systems.cpp.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "coords/special_datums.h"
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

/// Latitude and longitude of an ORIGINAL that cannot be read. Callers test for exactly this.
inline constexpr double EchecCoord = 999;

/// A point in decimal degrees, or a failure.
struct Place {
  double latitude = EchecCoord;
  double longitude = EchecCoord;
};

/// What the tokens behind the code are.
enum class Content : std::uint8_t {
  Angles,    ///< signed numbers: latitude, longitude
  Metres,    ///< numbers: x, y, with a zone before them where there are three
  Reference  ///< letters and digits of a grid
};

/// How a reference in one piece becomes tokens.
struct ReferenceCut {
  std::size_t atLeast = 0;             ///< characters that it must have
  std::array<std::size_t, 2> heads{};  ///< lengths of the tokens before the last; 0 for none
};

/// One direction of a projection onto metres: from latitude and longitude to x and y, or from x and
/// y to latitude and longitude. `zone` is that of the row.
using PlaneStep = void (*)(CoordState& state, int zone, double a, double b, double& outA,
                           double& outB);

/// The projection of a system whose tokens are x and y.
struct Plane {
  PlaneStep versMetres = nullptr;
  PlaneStep versLatLon = nullptr;
  int zone = 0;
};

/// The three datums of a system.
struct SystemDatums {
  SystemDatum system;    ///< conversions and the record form take it
  SystemDatum imported;  ///< a text import writes it into its rows
  SystemDatum file;      ///< a row of a .deg file gets it, whatever the line names
};

/// What stands beside a box of the record form: an id of the string table, or a text as it is.
struct Example {
  int id = 0;
  std::string_view text = {};
};

/// What the record form makes of a system. It has as many boxes as there are tokens, the last ones.
struct FormRules {
  std::array<Example, 3> examples{};  ///< in the order of the tokens
  /// False for tokens that the arithmetic would take for some other place without a word; null
  /// where there are none such.
  bool (*nommeUnePlace)(std::span<const std::string> tokens) = nullptr;
  /// Why an ORIGINAL is refused, or ""; null where nothing tells.
  std::string (*refus)(CoordState&, std::string_view original, std::int16_t datum) = nullptr;
  bool chiffresPairs = false;  ///< an odd number of digits is told at once
};

struct CoordSystemInfo {
  std::string_view code;  ///< CoordSystemCode: three upper-case letters
  int caption = 0;        ///< of cmbSystem, an id of the string table
  std::size_t tokens = 2;
  Content content = Content::Metres;
  SystemDatums datums;
  std::int16_t ellipsoid = 0;  ///< the setting "Ellipsoid" gets it at start; 0 leaves that
  /// The point of an ORIGINAL, trimmed and in upper case, on the current ellipsoid. May raise what
  /// arithmetic raises.
  Place (*lit)(CoordState&, CoordSystem, std::string_view original) = nullptr;
  /// What a point on the system's datum is behind the code; null where that is not asked for.
  std::string (*ecrit)(CoordState&, CoordSystem, double latitude, double longitude) = nullptr;
  FormRules form = {};
  ReferenceCut cut = {};
  Plane plane = {};
};

const CoordSystemInfo& InfoDe(CoordSystem system);

/// The system of a code, exactly as it is written: callers turn it to upper case first.
std::optional<CoordSystem> SystemeDe(std::string_view code);

/// Index of a datum of the table: 0 when the catalogue lacks it, and for that of the row.
std::int16_t IndiceDatum(const CoordState& state, SystemDatum datum);

/// The datum that goes with a system in conversions: the one that it implies, else the default
/// datum for UTM (UTM, MGR) or for spherical coordinates (DEG, DMS).
std::int16_t DatumDuSysteme(const CoordState& state, CoordSystem system);

}  // namespace talpena

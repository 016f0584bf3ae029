// The datums that coordinate systems stand on, and the codes of those that are always the same.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace talpena {

/// The datum that goes with a system. The first six have the numbers of their slots in
/// DatumsSpeciaux.
enum class SystemDatum : std::uint8_t {
  EurM = 1,
  Ntf,
  Ogb,
  Irl,
  Bel72,
  Mer,
  Spherique,  ///< the default datum for spherical coordinates
  Utm,        ///< the default datum for UTM
  DeLaLigne   ///< the one that the row names
};

/// Codes of the six; slot 0 unused.
inline constexpr std::array<std::string_view, 7> CodesSpeciaux{"",    "EUR-M", "NTF", "OGB-M",
                                                               "IRL", "BEL72", "MER"};

/// Whether a datum is one of the six, so that nobody chooses it.
constexpr bool EstSpecial(SystemDatum datum) {
  return static_cast<std::size_t>(datum) < CodesSpeciaux.size();
}

/// Code of one of the six; "" for the others.
constexpr std::string_view CodeSpecial(SystemDatum datum) {
  return EstSpecial(datum) ? CodesSpeciaux[static_cast<std::size_t>(datum)] : std::string_view();
}

}  // namespace talpena

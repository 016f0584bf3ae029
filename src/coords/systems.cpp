#include "coords/systems.h"

#include <algorithm>

namespace talpena {
namespace {

// Slots of DatumsSpeciaux.
constexpr int ntf = 2, ogb = 3, irl = 4, bel72 = 5, mer = 6;

constexpr std::array<CoordSystemInfo, CoordSystemCount> systems{{
    {"DEG", Notation::TwoAngles, 0},
    {"DMS", Notation::TwoAngles, 0},
    {"UTM", Notation::ZoneMetres, 0},
    {"MGR", Notation::Mgrs, 0},
    {"GRP", Notation::TwoAngles, ntf},
    {"BNG", Notation::Letters, ogb},
    {"ITM", Notation::Letters, irl},
    {"LMB", Notation::Metres, bel72},
    {"IFB", Notation::Square, bel72},
    {"LF1", Notation::Metres, ntf},
    {"LF2", Notation::Metres, ntf},
    {"LF3", Notation::Metres, ntf},
    {"LF4", Notation::Metres, ntf},
    {"LFE", Notation::Metres, ntf},
    {"NMA", Notation::Metres, mer},
    {"SMA", Notation::Metres, mer},
}};

/// The three letters of a code as one number.
constexpr std::uint32_t Cle(std::string_view code) {
  std::uint32_t key = 0;
  for (const char letter : code) key = key << 8 | static_cast<unsigned char>(letter);
  return key;
}

}  // namespace

const CoordSystemInfo& InfoDe(CoordSystem system) {
  return systems[static_cast<std::size_t>(system)];
}

std::optional<CoordSystem> SystemeDe(std::string_view code) {
  constexpr auto keys = [] {
    std::array<std::uint32_t, CoordSystemCount> all{};
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = Cle(systems[i].code);
    return all;
  }();
  if (code.size() != 3) return std::nullopt;
  const auto found = std::find(keys.begin(), keys.end(), Cle(code));
  if (found == keys.end()) return std::nullopt;
  return static_cast<CoordSystem>(found - keys.begin());
}

std::int16_t DatumDuSysteme(const CoordState& state, CoordSystem system) {
  const CoordSystemInfo& info = InfoDe(system);
  if (info.datumSlot > 0) {
    return state.Catalogue.DatumsSpeciaux[static_cast<std::size_t>(info.datumSlot)];
  }
  return info.notation == Notation::TwoAngles ? state.DatumSpherique : state.DatumUtm;
}

}  // namespace talpena

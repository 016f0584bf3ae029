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

}  // namespace

const CoordSystemInfo& InfoDe(CoordSystem system) {
  return systems[static_cast<std::size_t>(system)];
}

std::optional<CoordSystem> SystemeDe(std::string_view code) {
  const auto found =
      std::find_if(systems.begin(), systems.end(),
                   [code](const CoordSystemInfo& info) { return info.code == code; });
  if (found == systems.end()) return std::nullopt;
  return static_cast<CoordSystem>(found - systems.begin());
}

std::int16_t DatumDuSysteme(const CoordState& state, CoordSystem system) {
  const CoordSystemInfo& info = InfoDe(system);
  if (info.datumSlot > 0) {
    return state.Catalogue.DatumsSpeciaux[static_cast<std::size_t>(info.datumSlot)];
  }
  return info.notation == Notation::TwoAngles ? state.DatumSpherique : state.DatumUtm;
}

}  // namespace talpena

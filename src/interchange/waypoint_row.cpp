#include "interchange/waypoint_row.h"

#include <algorithm>
#include <cstddef>

namespace talpena {

std::span<const FreeFieldDef> ChampsLibres(const DistributionHeader& entete) {
  if (entete.FreeFieldCount <= 0) return {};
  return entete.FreeFieldDefs;
}

std::string CodeDeCinq(std::string_view code) {
  constexpr std::size_t width = 5;
  if (code.empty()) return {};
  std::string padded(code);
  padded.resize(std::max(width, padded.size()), ' ');
  return padded;
}

}  // namespace talpena

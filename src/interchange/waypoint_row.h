// What the imports of waypoints write into rows beside their positions.
#pragma once
#include <span>
#include <string>
#include <string_view>

#include "store/distribution_header.h"

namespace talpena {

/// The free fields in force: none where FreeFieldCount is 0.
std::span<const FreeFieldDef> ChampsLibres(const DistributionHeader& entete);

/// A datum code in the five characters of the catalogue; "", which the table refuses, stays that.
std::string CodeDeCinq(std::string_view code);

}  // namespace talpena

// The header line that names the periods by their years.
#pragma once
#include <string_view>

#include "store/distribution_header.h"

namespace talpena {

/// Reads NbPivots, Pivot1 and Pivot2 from a period line in the bytes of its file. Only the place
/// of the first "0 - 0" decides: nowhere three periods, column 16 one, column 30 two; at any
/// other place nothing changes. A year beyond 16 bits raises Overflow (6).
void LitPivots(DistributionHeader& entete, std::string_view line);

}  // namespace talpena

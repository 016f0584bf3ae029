// The places as they are published: a comma-separated table.
#pragma once
#include <string>
#include <vector>

#include "places/place_list.h"

namespace talpena {

/// Reads a table with the columns name, sort_name, latitude, longitude (decimal degrees),
/// feature_code, country_code and admin_name, plain or in a gzip file. Throws std::runtime_error
/// naming the file and the fault.
std::vector<Place> LitLieuxPublies(const std::string& path);

}  // namespace talpena

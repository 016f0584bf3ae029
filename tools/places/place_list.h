// The places of the gazetteer that ships, and the text that keeps them small in data/gazetteer.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

struct Place {
  static constexpr int UnitsOfDegree = 100000;

  std::string name;      ///< as it is shown, UTF-8
  std::string key;       ///< as it is searched, CleDeLieu of the name but for some
  int latitude = 0;      ///< WGS84, north positive, in 0.00001 degree
  int longitude = 0;     ///< WGS84, east positive, in 0.00001 degree
  std::string feature;   ///< GeoNames' code: PPL, PPLC, ...
  std::string country;   ///< two letters of ISO 3166
  std::string province;  ///< name of the first-order division; may be empty

  friend bool operator==(const Place&, const Place&) = default;
};

/// The places by country, province and, south first, latitude, a line each. A line "=country TAB
/// province" stands before those of a province, the others are
///
///   name TAB latitude TAB longitude [TAB feature [TAB key]]
///
/// in 0.00001 degree, the latitude counted from the place before in the province; the code PPL and
/// a key that follows from the name are left out. What belongs together stands together, which
/// compresses well.
std::string EcritLieux(std::vector<Place> places);

/// Reads that text, in its order. Throws std::runtime_error naming the line of a fault: too few
/// fields, no number, no point on the earth, no name or key, a place before any province.
std::vector<Place> LitLieux(std::string_view text);

}  // namespace talpena

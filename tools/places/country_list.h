// Names and codes of the countries, data/gazetteer/countries.csv.
#pragma once
#include <map>
#include <string>
#include <utility>

namespace talpena {

class CountryList {
 public:
  /// Throws std::runtime_error naming the file and the fault.
  explicit CountryList(const std::string& path);

  // Both throw std::runtime_error for a country that the list lacks.

  /// English name of a country by its two letters of ISO 3166.
  const std::string& Nom(const std::string& iso) const;
  /// Two letters of FIPS 10-4 for a place in a province: those of the province where it has its
  /// own, else those of the country; empty where that is divided among several.
  const std::string& Fips(const std::string& iso, const std::string& province) const;

 private:
  std::map<std::string, std::string> names_;
  std::map<std::pair<std::string, std::string>, std::string> codes_;
};

}  // namespace talpena

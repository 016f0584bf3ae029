#include "places/country_list.h"

#include <stdexcept>

#include "csv_table.h"

namespace talpena {
namespace {

template <typename Key>
const std::string& Trouve(const std::map<Key, std::string>& map, const Key& key,
                          const std::string& iso) {
  const auto found = map.find(key);
  if (found == map.end()) throw std::runtime_error("no country " + iso);
  return found->second;
}

}  // namespace

CountryList::CountryList(const std::string& path) {
  const CsvTable table(path);
  for (std::size_t row = 0; row < table.Nombre(); ++row) {
    const std::string& iso = table.Texte(row, "iso");
    const std::string& division = table.Texte(row, "division");
    if (division.empty()) names_[iso] = table.Texte(row, "name");
    codes_[{iso, division}] = table.Texte(row, "fips");
  }
}

const std::string& CountryList::Nom(const std::string& iso) const {
  return Trouve(names_, iso, iso);
}

const std::string& CountryList::Fips(const std::string& iso, const std::string& province) const {
  const auto own = codes_.find({iso, province});
  return own != codes_.end() ? own->second : Trouve(codes_, {iso, std::string{}}, iso);
}

}  // namespace talpena

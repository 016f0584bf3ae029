// Places as gazetteers have them, for benchmarks: a table of any number of them, always the same.
#pragma once
#include <array>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <string_view>

#include "common/plain_form.h"
#include "common/text.h"
#include "platform/settings_state.h"
#include "platform/table_engine.h"

namespace talpena::bench {

/// Short enough for every format.
inline constexpr std::array<std::string_view, 8> placeColumns = {
    "SORT_NAME", "FULL_NAME", "LATITUDE", "LONGITUDE", "FIPS", "FEATURE", "COUNTRY", "PROVINCE"};

inline TableDef TableDeLieux() {
  const auto text = [](std::string_view name, int size) {
    return FieldDef{.name = std::string(name), .type = FieldType::Text, .size = size};
  };
  const auto number = [](std::string_view name) {
    return FieldDef{.name = std::string(name), .type = FieldType::Double};
  };
  return {.name = "PLACES",
          .fields = {text(placeColumns[0], 60), text(placeColumns[1], 60), number(placeColumns[2]),
                     number(placeColumns[3]), text(placeColumns[4], 4), text(placeColumns[5], 5),
                     text(placeColumns[6], 40), text(placeColumns[7], 40)},
          .indexes = {}};
}

/// The settings that name those columns.
inline void RegleChamps(SettingsState& settings) {
  settings.GeoTable = "PLACES";
  settings.GeoResearchField = placeColumns[0];
  settings.GeoFullNameField = placeColumns[1];
  settings.GeoLatitudeField = placeColumns[2];
  settings.GeoLongitudeField = placeColumns[3];
  settings.GeoFipsField = placeColumns[4];
  settings.GeoFeatureField = placeColumns[5];
  settings.GeoCountryName = placeColumns[6];
  settings.GeoProvinceName = placeColumns[7];
  settings.GeoProvinceField.clear();
}

/// Names of two to four syllables, one in four of two words; letters with accents in one of ten.
class PlaceGenerator final : public RowSource {
 public:
  explicit PlaceGenerator(std::int64_t rows) : rows_(rows) {}

  bool Suivante(std::span<Cell> cells) override {
    if (done_ == rows_) return false;
    ++done_;
    name = Nom();
    key = Majuscules(FormeSimple(name));
    cells[0] = Cell::Of(std::string_view(key));
    cells[1] = Cell::Of(std::string_view(name));
    cells[2] = Cell::Of(Degres(90));
    cells[3] = Cell::Of(Degres(180));
    cells[4] = Cell::Of(std::string_view("BE03"));
    cells[5] = Cell::Of(std::string_view(done_ % 3 == 0 ? "STM" : "PPL"));
    cells[6] = Cell::Of(std::string_view("Belgium"));
    cells[7] = Cell::Of(std::string_view(done_ % 2 == 0 ? "Hainaut" : "Namur"));
    return true;
  }

  std::string name, key;  ///< of the row that was given last

 private:
  /// Five decimals, as they are published.
  double Degres(std::int64_t most) {
    constexpr std::int64_t units = 100'000;
    const auto span = static_cast<std::uint64_t>(2 * most * units);
    return static_cast<double>(static_cast<std::int64_t>(random_() % span) - most * units) / units;
  }
  std::string Nom() {
    std::string made = random_() % 4 == 0 ? Mot(1) + "-" + Mot(2) : Mot(2);
    if (random_() % 10 == 0) made += "é";
    return made;
  }
  std::string Mot(unsigned least) {
    constexpr std::string_view first = "BCDFGHKLMNPRSTVW", middle = "aeiou", last = "lmnrst";
    std::string word;
    for (std::uint64_t n = least + random_() % 3; n > 0; --n) {
      const std::string letter(1, first[random_() % first.size()]);
      word += word.empty() ? letter : Minuscules(letter);
      word += middle[random_() % middle.size()];
      if (random_() % 2 == 0) word += last[random_() % last.size()];
    }
    return word;
  }

  std::int64_t rows_;
  std::int64_t done_ = 0;
  std::mt19937_64 random_{7};
};

}  // namespace talpena::bench

#include "gazetteer/gazetteer_settings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::string_view Application = "TALPENA";
constexpr std::string_view SectionPolices = "Polices";
constexpr std::string_view SectionFenetre = "GeoQuery";

std::string Cle(std::string_view name, std::size_t index) {
  return std::string(name) + std::to_string(index + 1);
}

/// A stored whole number; empty for what is none, or beyond its range.
std::optional<std::int32_t> Entier(std::string_view text) {
  if (!EstNumerique(text)) return std::nullopt;
  try {
    return Arrondi32(Val(Remplace(text, ",", ".")));
  } catch (const TalpenaError&) {
    return std::nullopt;
  }
}

std::string EnTexte(std::int32_t value) { return Str(std::int64_t{value}); }

/// The numbers of the window by their keys, in the order of reading.
template <typename Place, typename Visit>
void ParcourtPlace(Place& place, Visit&& visit) {
  visit("Left", place.left);
  visit("Top", place.top);
  visit("Width", place.width);
  visit("Height", place.height);
  for (std::size_t i = 0; i < place.columns.size(); ++i) visit(Cle("Col", i), place.columns[i]);
}

}  // namespace

RegionFonts ChargePolices(SettingsStore& settings) {
  RegionFonts fonts;
  for (std::size_t i = 0; i < fonts.size(); ++i) {
    RegionFont& font = fonts[i];
    font.Nom = settings.Lit(Application, SectionPolices, Cle("Name", i), font.Nom);
    const auto size =
        Entier(settings.Lit(Application, SectionPolices, Cle("Size", i), EnTexte(font.Taille)));
    if (size && *size > 0 && *size <= INT16_MAX) font.Taille = static_cast<std::int16_t>(*size);
  }
  return fonts;
}

void SauvePolices(SettingsStore& settings, const RegionFonts& fonts) {
  std::vector<SettingEntry> entries;
  for (std::size_t i = 0; i < fonts.size(); ++i) {
    entries.push_back({std::string(SectionPolices), Cle("Name", i), fonts[i].Nom});
    entries.push_back({std::string(SectionPolices), Cle("Size", i), EnTexte(fonts[i].Taille)});
  }
  settings.EcritTout(Application, entries);
}

GeoQueryPlace ChargePlaceGeoQuery(SettingsStore& settings) {
  GeoQueryPlace place;
  ParcourtPlace(place, [&](std::string_view key, std::int32_t& value) {
    value = Entier(settings.Lit(Application, SectionFenetre, key, EnTexte(value))).value_or(value);
  });
  return place;
}

void SauvePlaceGeoQuery(SettingsStore& settings, const GeoQueryPlace& place) {
  std::vector<SettingEntry> entries;
  ParcourtPlace(place, [&](std::string_view key, const std::int32_t& value) {
    if (&value == &place.columns.back()) return;
    entries.push_back({std::string(SectionFenetre), std::string(key), EnTexte(value)});
  });
  settings.EcritTout(Application, entries);
}

}  // namespace talpena

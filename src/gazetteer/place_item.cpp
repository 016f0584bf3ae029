#include "gazetteer/place_item.h"

#include <algorithm>
#include <cmath>

#include "common/decimal_columns.h"
#include "common/numbers.h"
#include "common/text.h"
#include "coords/dms_text.h"
#include "gazetteer/place_name.h"
#include "gazetteer/place_point.h"

namespace talpena {
namespace {

/// Cut at the right, or filled with blanks.
std::string EnLargeur(std::string_view text, std::size_t width) {
  std::string fixed(PremiersCaracteres(text, width));
  fixed.append(width - CompteCaracteres(fixed), ' ');
  return fixed;
}

std::string Champ(std::span<const Cell> row, int field) {
  return field < 0 ? std::string() : row[static_cast<std::size_t>(field)].Texte();
}

std::string ChampRogne(std::span<const Cell> row, int field) {
  return std::string(Rogne(Champ(row, field)));
}

/// A number that is not negative as "00" makes it: halves go up.
void AjouteDeux(std::string& text, double number) {
  constexpr double mostQuick = 1e9;  // what is longer is cut off by its column
  if (number < mostQuick) {
    AjouteEntier(text, std::llround(number), 2);
  } else {
    text += Format(number, "00");
  }
}

std::string Assemble(double degrees, double minutes, double seconds, char letter) {
  std::string text;
  AjouteDeux(text, degrees);
  text += "°";
  AjouteDeux(text, minutes);
  text += '\'';
  AjouteDeux(text, seconds);
  text += '"';
  text += letter;
  return text;
}

/// What one coordinate puts into the list.
struct CoordinateForm {
  int PlaceFields::*field;
  PlaceColumn raw;
  PlaceColumn dms;
  std::string_view mask;
  std::string_view letters;
  std::size_t dmsWidth;
};

constexpr std::array coordinateForms{
    CoordinateForm{&PlaceFields::latitude, PlaceColumn::Latitude, PlaceColumn::LatitudeDms,
                   "+00.00000;-00.00000", "NS", 10},
    CoordinateForm{&PlaceFields::longitude, PlaceColumn::Longitude, PlaceColumn::LongitudeDms,
                   "+000.00000;-000.00000", "EW", 11},
};

void RemplitCoordonnees(const PlaceFields& fields, std::span<const Cell> row, PlaceItem& item) {
  constexpr std::size_t rawWidth = 8;
  for (const CoordinateForm& form : coordinateForms) {
    const auto value = CoordonneeDuLieu(row[static_cast<std::size_t>(fields.*form.field)]);
    if (!value) continue;
    item.Texte(form.raw) = PremiersCaracteres(Format(*value, form.mask), rawWidth);
    const std::string dms = TexteDmsDuLieu(*value, fields.coordType, form.letters);
    if (!dms.empty()) item.Texte(form.dms) = EnLargeur(dms, form.dmsWidth);
  }
}

/// As it is stored, its tags among it.
std::string NomStocke(const PlaceFields& fields, std::span<const Cell> row) {
  return std::string(PremiersCaracteres(Champ(row, fields.name), LongestPlaceName));
}

std::string NomMontre(std::string stored) {
  GeoFormat(stored);
  return std::string(Rogne(stored));
}

void RemplitNom(const PlaceFields& fields, std::span<const Cell> row, PlaceItem& item) {
  const std::string stored = NomStocke(fields, row);
  item.Texte(PlaceColumn::Font) = std::to_string(NumeroPolice(stored));
  item.Texte(PlaceColumn::Name) = NomMontre(stored);
}

/// Country and division: two characters each.
std::string TexteFips(const PlaceFields& fields, std::span<const Cell> row) {
  constexpr std::size_t half = 2;
  const std::string fips = ChampRogne(row, fields.fips);
  std::string division;
  if (fields.province >= 0) {
    division = ChampRogne(row, fields.province);
  } else if (CompteCaracteres(fips) == 2 * half) {
    division = fips.substr(PremiersCaracteres(fips, half).size());
  }
  return EnLargeur(fips, half) + EnLargeur(division, half);
}

struct FeatureIcon {
  std::string_view code;
  std::string_view icon;
};

// clang-format off
constexpr std::array icons{
    FeatureIcon{"STM", PlaceIcon::Stream},     FeatureIcon{"STMI", PlaceIcon::Stream},
    FeatureIcon{"MT", PlaceIcon::Mountain},    FeatureIcon{"MTS", PlaceIcon::Mountain},
    FeatureIcon{"MTSU", PlaceIcon::Mountain},  FeatureIcon{"MTU", PlaceIcon::Mountain},
    FeatureIcon{"HLL", PlaceIcon::Mountain},
    FeatureIcon{"PPL", PlaceIcon::Populated},  FeatureIcon{"POPL", PlaceIcon::Populated},
    FeatureIcon{"LCTY", PlaceIcon::Populated}, FeatureIcon{"PPLX", PlaceIcon::Populated},
    FeatureIcon{"PPLW", PlaceIcon::Populated}, FeatureIcon{"PPLA", PlaceIcon::Populated},
    FeatureIcon{"PPLC", PlaceIcon::Populated}, FeatureIcon{"PPLL", PlaceIcon::Populated},
    FeatureIcon{"PPLR", PlaceIcon::Populated}, FeatureIcon{"PPLS", PlaceIcon::Populated},
    FeatureIcon{"FRST", PlaceIcon::Forest},    FeatureIcon{"FRM", PlaceIcon::Farm},
};
// clang-format on

}  // namespace

std::string_view IconeDe(std::string_view feature) {
  const std::string code = Majuscules(Rogne(feature));
  const auto found = std::find_if(icons.begin(), icons.end(),
                                  [&](const FeatureIcon& entry) { return entry.code == code; });
  return found == icons.end() ? std::string_view() : found->icon;
}

PlaceFields ChampsDesLieux(const SettingsState& settings, const Recordset& rows) {
  const auto field = [&rows](const std::string& name) {
    return name.empty() ? -1 : rows.FieldIndex(name);
  };
  return {.name = rows.FieldIndex(settings.GeoFullNameField),
          .latitude = rows.FieldIndex(settings.GeoLatitudeField),
          .longitude = rows.FieldIndex(settings.GeoLongitudeField),
          .fips = field(settings.GeoFipsField),
          .province = field(settings.GeoProvinceField),
          .feature = field(settings.GeoFeatureField),
          .country = field(settings.GeoCountryName),
          .provinceName = field(settings.GeoProvinceName),
          .coordType = settings.GeoCoordType};
}

PlaceItem FaitItem(const PlaceFields& fields, std::span<const Cell> row) {
  constexpr std::size_t featureWidth = 5;
  PlaceItem item;
  RemplitNom(fields, row, item);
  RemplitCoordonnees(fields, row, item);
  if (fields.feature >= 0 && !row[static_cast<std::size_t>(fields.feature)].EstNull()) {
    const std::string feature = Champ(row, fields.feature);
    item.Texte(PlaceColumn::Feature) = EnLargeur(feature, featureWidth);
    item.icon = IconeDe(feature);
  }
  item.Texte(PlaceColumn::Fips) = TexteFips(fields, row);
  item.Texte(PlaceColumn::Country) = ChampRogne(row, fields.country);
  item.Texte(PlaceColumn::Province) = ChampRogne(row, fields.provinceName);
  return item;
}

std::string NomDuLieu(const PlaceFields& fields, std::span<const Cell> row) {
  return NomMontre(NomStocke(fields, row));
}

std::string TexteDmsDuLieu(double value, std::int16_t type, std::string_view letters) {
  const char letter = letters[value < 0 ? 1 : 0];
  if (type == 0) {
    const double packed = std::nearbyint(value);  // halves to even
    const double rest = std::fmod(packed, 10000);
    // Minutes with their seconds behind the point: 55 seconds show the minute that follows.
    // Held by PlaceItem.SecondsRoundTheMinutesShown.
    return Assemble(std::abs(std::trunc(packed / 10000)), std::abs(rest / 100),
                    std::abs(std::fmod(packed, 100)), letters[packed < 0 ? 1 : 0]);
  }
  constexpr double mostDegrees = 1e6;  // beyond, no whole number of minutes is left
  if (type != 1 || !(std::abs(value) < mostDegrees)) return {};
  const DmsParts parts = DegresVersDms(static_cast<float>(value * 60), value);
  return Assemble(std::abs(parts.degrees), std::abs(parts.minutes),
                  std::abs(std::trunc(parts.seconds)), letter);
}

}  // namespace talpena

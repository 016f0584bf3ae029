#include "gazetteer/field_guess.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/plain_form.h"
#include "common/text.h"
#include "gazetteer/place_point.h"
#include "gazetteer/state.h"

namespace talpena {
namespace {

enum class Contents : std::uint8_t { Words, Latitude, Longitude };

/// Names of fields for a list, the best first: in small letters and digits alone. The first ones
/// are names as a whole; those behind `parts` stand anywhere in a name.
struct FieldWords {
  GeoList list;
  Contents contents;
  std::string_view whole;
  std::string_view parts;
};

// clang-format off
constexpr std::array fieldWords{
    FieldWords{GeoList::Research, Contents::Words,
               "sortname sortnamero sortkey sort key searchname research ndname asciiname cle tri "
               "nomtri schluessel suchname chiave sleutel", "sortname sortkey"},
    FieldWords{GeoList::FullName, Contents::Words,
               "fullname fullnamero fullnamend name nom toponyme toponym locality localite lieu "
               "place placename ort ortsname nome luogo toponimo naam plaats plaatsnaam city town "
               "commune gemeente gemeinde station site county",
               "fullname toponym localit placename ortsname plaatsnaam name nom naam"},
    FieldWords{GeoList::Latitude, Contents::Latitude,
               "latitude lat latdd latdec latdms declat decimallatitude breite breitengrad latitudine "
               "breedte breedtegraad y", "latit breit breedte lat"},
    FieldWords{GeoList::Longitude, Contents::Longitude,
               "longitude long lon lng londd longdd londec longdms declon declong decimallongitude "
               "laenge lange langengrad laengengrad longitudine lengte lengtegraad x",
               "longit laenge lange lengte lon lng"},
    FieldWords{GeoList::Fips, Contents::Words, "fipsqrn fips fipscode qrn", "fips"},
    FieldWords{GeoList::Province, Contents::Words,
               "adm1 provincecode provcode codeprovince adm1code provinzcode", "provcode adm1"},
    FieldWords{GeoList::Feature, Contents::Words,
               "featuredesigcode featurecode feature dsg desi designation fcode fclass",
               "featuredesig featurecode"},
    FieldWords{GeoList::CountryName, Contents::Words,
               "countryname country pays nompays land landname paese nazione", "country pays"},
    FieldWords{GeoList::ProvinceName, Contents::Words,
               "provincename province nomprovince provinz provincia provincie region regione",
               "provincename provinc provinz"},
};
// clang-format on

/// Small letters without accents and digits, of whatever else the name is made.
std::string Reduit(std::string_view name) {
  std::string kept;
  for (const char c : FormeSimple(name)) {
    const bool plain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    if (plain || static_cast<unsigned char>(c) >= 0x80) kept += c;
  }
  return kept;
}

/// How well a name goes with a list, 0 for not at all.
int Note(const FieldWords& words, std::string_view reduced) {
  constexpr int best = 1000, part = 500;
  int rank = 0;
  for (const std::string& word : Decoupe(words.whole, ' ')) {
    if (reduced == word) return best - rank;
    ++rank;
  }
  rank = 0;
  for (const std::string& word : Decoupe(words.parts, ' ')) {
    if (word.size() > 3 ? reduced.find(word) != std::string_view::npos
                        : reduced.starts_with(word)) {
      return part - rank;
    }
    ++rank;
  }
  return 0;
}

/// What the first rows show of one field.
struct FieldLook {
  std::string reduit;
  int valeurs = 0;     ///< that are there
  int nombres = 0;     ///< of them
  int fractions = 0;   ///< of these, with decimals
  double largest = 0;  ///< without its sign
};

FieldLook Regarde(const FieldDef& field, std::size_t at, const SampleRows& rows) {
  FieldLook look{.reduit = Reduit(field.name)};
  for (const auto& row : rows) {
    const Cell cell = Cell::Vue(row[at]);
    if (cell.EstNull() || Rogne(cell.Texte()).empty()) continue;
    ++look.valeurs;
    const auto number = NombreDuLieu(cell);
    if (!number) continue;
    ++look.nombres;
    look.fractions += *number != std::trunc(*number) ? 1 : 0;
    look.largest = std::max(look.largest, std::fabs(*number));
  }
  return look;
}

/// Degrees, or DDMMSS of as many.
bool Tient(double largest, double degrees) {
  constexpr double packed = 10000;
  const bool whole = largest == std::trunc(largest);
  return largest <= degrees || (whole && largest <= degrees * packed);
}

bool Convient(Contents contents, const FieldLook& look) {
  if (look.valeurs == 0) return true;
  if (contents == Contents::Words) return look.fractions == 0;
  const double degrees = contents == Contents::Latitude ? HighestLatitude : HighestLongitude;
  return look.nombres == look.valeurs && Tient(look.largest, degrees);
}

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

std::size_t Meilleur(const FieldWords& words, const std::vector<FieldLook>& looks) {
  std::size_t found = nowhere;
  int best = 0;
  for (std::size_t i = 0; i < looks.size(); ++i) {
    const int note = Convient(words.contents, looks[i]) ? Note(words, looks[i].reduit) : 0;
    if (note <= best) continue;
    best = note;
    found = i;
  }
  return found;
}

using Places = PerGeoList<std::size_t>;

std::size_t& PlaceDe(Places& places, GeoList list) {
  return places[static_cast<std::size_t>(list)];
}

/// The first two columns of decimals that may be degrees.
void DevineParContenu(const std::vector<FieldLook>& looks, Places& places) {
  std::size_t& latitude = PlaceDe(places, GeoList::Latitude);
  std::size_t& longitude = PlaceDe(places, GeoList::Longitude);
  if (latitude != nowhere || longitude != nowhere) return;
  for (std::size_t i = 0; i < looks.size() && longitude == nowhere; ++i) {
    const FieldLook& look = looks[i];
    if (look.fractions == 0 || look.nombres != look.valeurs) continue;
    std::size_t& wanted = latitude == nowhere ? latitude : longitude;
    if (look.largest <= (latitude == nowhere ? HighestLatitude : HighestLongitude)) wanted = i;
  }
  if (longitude == nowhere) latitude = nowhere;
}

/// The first column of words.
void DevineNom(const std::vector<FieldLook>& looks, Places& places) {
  std::size_t& name = PlaceDe(places, GeoList::FullName);
  for (std::size_t i = 0; i < looks.size() && name == nowhere; ++i) {
    if (looks[i].valeurs > 0 && looks[i].nombres == 0) name = i;
  }
}

}  // namespace

std::optional<int> DevineCoordonnees(const SampleRows& rows, std::size_t latitude,
                                     std::size_t longitude) {
  const FieldLook north = Regarde({}, latitude, rows), east = Regarde({}, longitude, rows);
  if (north.fractions + east.fractions > 0) return GeoCoord::Degres;
  if (north.largest > HighestLatitude || east.largest > HighestLongitude) return GeoCoord::Ddmmss;
  return {};
}

FieldGuess DevineChamps(std::span<const FieldDef> fields, const SampleRows& rows) {
  std::vector<FieldLook> looks;
  looks.reserve(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) looks.push_back(Regarde(fields[i], i, rows));
  Places places;
  places.fill(nowhere);
  for (const FieldWords& words : fieldWords) PlaceDe(places, words.list) = Meilleur(words, looks);
  DevineParContenu(looks, places);
  DevineNom(looks, places);
  if (PlaceDe(places, GeoList::Research) == nowhere) {
    PlaceDe(places, GeoList::Research) = PlaceDe(places, GeoList::FullName);
  }
  FieldGuess guess;
  for (std::size_t i = 0; i < GeoListCount; ++i) {
    if (places[i] != nowhere) guess.Noms[i] = fields[places[i]].name;
  }
  const std::size_t latitude = PlaceDe(places, GeoList::Latitude);
  const std::size_t longitude = PlaceDe(places, GeoList::Longitude);
  if (latitude != nowhere && longitude != nowhere) {
    guess.Option2 = DevineCoordonnees(rows, latitude, longitude);
  }
  return guess;
}

}  // namespace talpena

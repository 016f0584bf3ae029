#include "places/gazetteer_database.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <tuple>
#include <utility>

#include "made_table.h"
#include "platform/foreign_format.h"

namespace talpena {
namespace {

/// Seats of government, the largest area first.
constexpr std::string_view seats[] = {"PPLC", "PPLG", "PPLA", "PPLA2", "PPLA3", "PPLA4", "PPLA5"};

auto RangDeSiege(const Place& place) {
  return std::find(std::begin(seats), std::end(seats), place.feature) - std::begin(seats);
}

void Ordonne(std::vector<Place>& places) {
  std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) {
    return std::tuple(std::string_view(a.key), RangDeSiege(a), std::tie(a.country, a.province),
                      std::tie(a.latitude, a.longitude)) <
           std::tuple(std::string_view(b.key), RangDeSiege(b), std::tie(b.country, b.province),
                      std::tie(b.latitude, b.longitude));
  });
}

FieldDef Texte(std::string name, int size) {
  return {.name = std::move(name), .type = FieldType::Text, .size = size};
}

FieldDef Reel(std::string name) { return {.name = std::move(name), .type = FieldType::Double}; }

TableDef TableDesLieux() {
  return {.name = ShippedGazetteerTable,
          .fields = {Texte("Sort_Name", 80), Texte("Full_Name", 80), Reel("Latitude"),
                     Reel("Longitude"), Texte("FIPS_QRN", 4), Texte("Feature_Desig_Code", 5),
                     Texte("Country_Name", 60), Texte("Province_Name", 60)},
          .indexes = {}};
}

Cell Valeur(const std::string& text) {
  return text.empty() ? Cell::Null() : Cell::Of(std::string_view(text));
}

Cell Degres(int units) { return Cell::Of(static_cast<double>(units) / Place::UnitsOfDegree); }

}  // namespace

void EcritGazetteer(TableEngine& engine, std::vector<Place> places, const CountryList& countries,
                    const std::string& path) {
  Ordonne(places);
  const auto database = engine.CreateForeignDatabase(path, Connect::Access, NewDatabase{});
  MadeRows rows(places, [&](const Place& p) {
    return std::vector<Cell>{Valeur(p.key),
                             Valeur(p.name),
                             Degres(p.latitude),
                             Degres(p.longitude),
                             Valeur(countries.Fips(p.country, p.province)),
                             Valeur(p.feature),
                             Valeur(countries.Nom(p.country)),
                             Valeur(p.province)};
  });
  EcritTable(*database, TableDesLieux(), rows);
}

}  // namespace talpena

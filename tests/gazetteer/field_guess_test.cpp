// The fields that are proposed for a gazetteer.
#include "gazetteer/field_guess.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace talpena {
namespace {

std::vector<FieldDef> Champs(const std::vector<std::string>& names) {
  std::vector<FieldDef> fields;
  for (const std::string& name : names) fields.push_back({.name = name});
  return fields;
}

struct GuessCase {
  const char* name;
  std::vector<std::string> fields;
  SampleRows rows;
  PerGeoList<std::string> expected;
  std::optional<int> option2;
};

using Row = std::vector<Value>;

// clang-format off
const GuessCase guessCases[] = {
    {"the shipped gazetteer",
     {"Sort_Name", "Full_Name", "Latitude", "Longitude", "FIPS_QRN", "Feature_Desig_Code",
      "Country_Name", "Province_Name"},
     {Row{"MONS", "Mons", 50.45, 3.95, "BE03", "PPL", "Belgium", "Hainaut"}},
     {"", "Sort_Name", "Full_Name", "Latitude", "Longitude", "FIPS_QRN", "", "Feature_Desig_Code",
      "Country_Name", "Province_Name"}, 1},
    {"a botanist's table in French",
     {"N°", "Localité", "Commune", "Lat", "Long", "Pays"},
     {Row{std::int64_t{1}, "Bois de Colfontaine", "Colfontaine", 50.4, 3.85, "Belgique"}},
     {"", "Localité", "Localité", "Lat", "Long", "", "", "", "Pays", ""}, 1},
    {"names in German", {"Ort", "Breite", "Länge", "Land"},
     {Row{"Trier", 49.75, 6.64, "Deutschland"}},
     {"", "Ort", "Ort", "Breite", "Länge", "", "", "", "Land", ""}, 1},
    {"whole numbers are DDMMSS", {"NAME", "LAT", "LON"},
     {Row{"Mons", std::int64_t{502700}, std::int64_t{35700}}},
     {"", "NAME", "NAME", "LAT", "LON", "", "", "", "", ""}, 0},
    {"small whole numbers may be either", {"NAME", "LAT", "LON"},
     {Row{"Mons", std::int64_t{50}, std::int64_t{3}}},
     {"", "NAME", "NAME", "LAT", "LON", "", "", "", "", ""}, {}},
    {"numbers as texts", {"NAME", "LAT", "LON"}, {Row{"Mons", "50,45", "3.95"}},
     {"", "NAME", "NAME", "LAT", "LON", "", "", "", "", ""}, 1},
    {"without any name, by what they hold", {"A", "B", "C", "D"},
     {Row{std::int64_t{7}, "Mons", 50.45, 3.95}},
     {"", "B", "B", "C", "D", "", "", "", "", ""}, 1},
    {"a latitude that holds words is none", {"NAME", "LAT", "LON"}, {Row{"Mons", "north", 3.95}},
     {"", "NAME", "NAME", "", "LON", "", "", "", "", ""}, {}},
    {"metres are no degrees", {"NAME", "X", "Y"}, {Row{"Mons", 120345.5, 127890.25}},
     {"", "NAME", "NAME", "", "", "", "", "", "", ""}, {}},
    {"an empty table goes by its names", {"Name", "Latitude", "Longitude"}, {},
     {"", "Name", "Name", "Latitude", "Longitude", "", "", "", "", ""}, {}},
    {"no fields at all", {}, {}, {}, {}},
};
// clang-format on

TEST(FieldGuess, GoesByNamesAndContents) {
  for (const GuessCase& c : guessCases) {
    SCOPED_TRACE(c.name);
    const FieldGuess guess = DevineChamps(Champs(c.fields), c.rows);
    EXPECT_EQ(guess.Noms, c.expected);
    EXPECT_EQ(guess.Option2, c.option2);
  }
}

}  // namespace
}  // namespace talpena

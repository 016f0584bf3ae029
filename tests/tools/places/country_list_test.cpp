#include "places/country_list.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace talpena {
namespace {

TEST(CountryList, NamesCountriesAndTheirCodes) {
  const CountryList countries(TALPENA_SOURCE_DIR "/data/gazetteer/countries.csv");
  struct Case {
    const char *iso, *province, *fips, *name;
  };
  // Codes that differ from those of ISO, as the CIA World Factbook printed them (appendix D).
  constexpr Case cases[] = {
      {"BE", "Wallonia", "BE", "Belgium"},
      {"DE", "Saxony", "GM", "Germany"},
      {"CH", "Bern", "SZ", "Switzerland"},
      {"GB", "Wales", "UK", "United Kingdom"},
      {"AU", "Tasmania", "AS", "Australia"},
      {"AT", "Styria", "AU", "Austria"},
      {"ZA", "Gauteng", "SF", "South Africa"},
      {"RU", "Tver", "RS", "Russian Federation"},
      {"CG", "Pool", "CF", "Congo"},
      {"SS", "", "OD", "South Sudan"},
      {"XK", "Prizren", "KV", "Kosovo"},
      {"PS", "West Bank", "WE", "Palestine, State of"},
      {"PS", "", "", "Palestine, State of"},
      {"PS", "Gaza Strip", "GZ", "Palestine, State of"},
      {"SJ", "Jan Mayen", "JN", "Svalbard and Jan Mayen"},
      {"AX", "Mariehamn", "FI", "Åland Islands"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(countries.Fips(c.iso, c.province), c.fips) << c.iso;
    EXPECT_EQ(countries.Nom(c.iso), c.name) << c.iso;
  }
}

TEST(CountryList, RefusesWhatItLacks) {
  const CountryList countries(TALPENA_SOURCE_DIR "/data/gazetteer/countries.csv");
  EXPECT_THROW(countries.Nom("QQ"), std::runtime_error);
  EXPECT_THROW(countries.Fips("QQ", "x"), std::runtime_error);
  EXPECT_THROW(CountryList("/no/such.csv"), std::runtime_error);
}

}  // namespace
}  // namespace talpena

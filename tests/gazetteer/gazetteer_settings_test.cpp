// What the gazetteer's windows keep between two runs.
#include "gazetteer/gazetteer_settings.h"

#include <gtest/gtest.h>

#include "fakes/fake_platform.h"

namespace talpena {
namespace {

using test::FakeSettings;

TEST(GazetteerSettings, AFirstRunHasTheSameFontForAllRegions) {
  FakeSettings settings;
  for (const RegionFont& font : ChargePolices(settings)) {
    EXPECT_EQ(font.Nom, "Courier New");
    EXPECT_EQ(font.Taille, 10);
  }
}

TEST(GazetteerSettings, FontsComeBackAsTheyWereKept) {
  FakeSettings settings;
  RegionFonts fonts;
  fonts[2] = {"DejaVu Sans", 14};
  fonts[5] = {"Times", 9};
  SauvePolices(settings, fonts);
  EXPECT_EQ(settings.Lit("TALPENA", "Polices", "Name3", ""), "DejaVu Sans");
  EXPECT_EQ(settings.Lit("TALPENA", "Polices", "Size6", ""), "9");
  EXPECT_EQ(ChargePolices(settings), fonts);
}

TEST(GazetteerSettings, ASizeThatIsNoneGivesTheDefault) {
  for (const char* text : {"", "big", "0", "-3", "40000", "1E+300"}) {
    FakeSettings settings;
    settings.Ecrit("TALPENA", "Polices", "Size1", text);
    EXPECT_EQ(ChargePolices(settings)[0].Taille, 10) << text;
  }
}

TEST(GazetteerSettings, TheWindowComesBackWhereItStood) {
  FakeSettings settings;
  EXPECT_EQ(ChargePlaceGeoQuery(settings), GeoQueryPlace{});
  GeoQueryPlace place;
  place.left = -20;
  place.columns[3] = 77;
  SauvePlaceGeoQuery(settings, place);
  EXPECT_EQ(ChargePlaceGeoQuery(settings), place);
}

TEST(GazetteerSettings, TheLastColumnIsReadAndNeverKept) {
  FakeSettings settings;
  GeoQueryPlace place;
  place.columns[9] = 900;
  SauvePlaceGeoQuery(settings, place);
  EXPECT_EQ(settings.Lit("TALPENA", "GeoQuery", "Col9", ""), "1200");
  EXPECT_EQ(settings.Lit("TALPENA", "GeoQuery", "Col10", "none"), "none");
  settings.Ecrit("TALPENA", "GeoQuery", "Col10", "650");
  EXPECT_EQ(ChargePlaceGeoQuery(settings).columns[9], 650);
}

}  // namespace
}  // namespace talpena

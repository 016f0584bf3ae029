#include "interchange/garmin_options.h"

#include <gtest/gtest.h>

#include <array>

#include "fakes/fake_platform.h"

namespace talpena {
namespace {

constexpr float widths[] = {700, 1234.5F};

TEST(GarminOptions, AreTheDefaultsInAnEmptyStore) {
  test::FakeSettings settings;
  objGraminImport options{.Period = 9, .DateField = "Date", .AltitudeLength = 77};
  ChargeOptions(settings, options);
  EXPECT_EQ(options.Period, 1);
  EXPECT_EQ(options.DateImport, 0);
  EXPECT_EQ(options.DateFixed, "");
  EXPECT_EQ(options.DateBegin, 1);
  EXPECT_EQ(options.DateLength, 9);
  EXPECT_EQ(options.DateField, "");
  EXPECT_EQ(options.DateFormat, 0);
  EXPECT_EQ(options.AltitudeImport, 0);
  EXPECT_EQ(options.AltitudeFixed, "");
  EXPECT_EQ(options.AltitudeBegin, 1);
  EXPECT_EQ(options.AltitudeLength, 4);
  EXPECT_EQ(options.AltitudeField, "");
}

TEST(GarminOptions, LastUnderTheirKeys) {
  test::FakeSettings settings;
  const objGraminImport kept{.Period = 3,
                             .DateImport = 1,
                             .DateFixed = "2002/04/17",
                             .DateBegin = 2,
                             .DateLength = 8,
                             .DateField = "Date Modified",
                             .DateFormat = 0,
                             .AltitudeImport = 2,
                             .AltitudeFixed = "120",
                             .AltitudeBegin = 3,
                             .AltitudeLength = 5,
                             .AltitudeField = "Altitude"};
  SauveOptions(settings, kept);
  const auto stored = [&](const char* key) {
    return settings.Lit("Talpena", "ImportGarmin", key, "none");
  };
  EXPECT_EQ(stored("Period"), "3");
  EXPECT_EQ(stored("DateImport"), "1");
  EXPECT_EQ(stored("DateFixed"), "2002/04/17");
  EXPECT_EQ(stored("DateBegin"), "2");
  EXPECT_EQ(stored("DateLength"), "8");
  EXPECT_EQ(stored("DateField"), "Date Modified");
  EXPECT_EQ(stored("DateFormat"), "0");
  EXPECT_EQ(stored("AltitudeImport"), "2");
  EXPECT_EQ(stored("AltitudeFixed"), "120");
  EXPECT_EQ(stored("AltitudeBegin"), "3");
  EXPECT_EQ(stored("AltitudeLength"), "5");
  EXPECT_EQ(stored("AltitudeField"), "Altitude");
  objGraminImport again;
  ChargeOptions(settings, again);
  EXPECT_EQ(again, kept);
}

TEST(GarminOptions, TakeTheDefaultForATextThatIsNoNumber) {
  test::FakeSettings settings;
  settings.Ecrit("Talpena", "ImportGarmin", "Period", "many");
  settings.Ecrit("Talpena", "ImportGarmin", "DateLength", "40000");
  settings.Ecrit("Talpena", "ImportGarmin", "AltitudeBegin", "");
  objGraminImport options;
  ChargeOptions(settings, options);
  EXPECT_EQ(options.Period, 1);
  EXPECT_EQ(options.DateLength, 9);
  EXPECT_EQ(options.AltitudeBegin, 1);
}

TEST(GarminOptions, BeginWithFiveFirstValuesWhenTheDialogLoads) {
  objGraminImport options{.Period = 3,
                          .DateImport = 2,
                          .DateFixed = "2002/04/17",
                          .DateBegin = 5,
                          .DateField = "Date",
                          .AltitudeImport = 1,
                          .AltitudeFixed = "9",
                          .AltitudeLength = 6};
  PoseOptionsDeChargement(options);
  EXPECT_EQ(options, (objGraminImport{.DateBegin = 5, .DateField = "Date", .AltitudeLength = 6}));
}

TEST(GarminOptions, KeepTheWidthsOfTheColumns) {
  test::FakeSettings settings;
  EXPECT_EQ(LargeurColonneGarmin(settings, 1), 1000);
  SauveLargeursGarmin(settings, widths);
  EXPECT_EQ(settings.Lit("Talpena", "ImportGarmin", "Col1", ""), "700");
  EXPECT_EQ(LargeurColonneGarmin(settings, 2), 1234.5F);
  EXPECT_EQ(LargeurColonneGarmin(settings, 3), 1000);
  settings.Ecrit("Talpena", "ImportGarmin", "Col3", "-5");
  settings.Ecrit("Talpena", "ImportGarmin", "Col4", "wide");
  EXPECT_EQ(LargeurColonneGarmin(settings, 3), 1000);
  EXPECT_EQ(LargeurColonneGarmin(settings, 4), 1000);
}

}  // namespace
}  // namespace talpena

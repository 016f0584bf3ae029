#include <gtest/gtest.h>

#include <set>

#include "common/text.h"
#include "coords/test_catalogue.h"

namespace talpena {
namespace {

TEST(GpsDatumVersCode, IgnoresCase) {
  EXPECT_EQ(GpsDatumVersCode("wgs 84"), "WGS84");
  EXPECT_EQ(GpsDatumVersCode("Wgs 84"), "WGS84");
  EXPECT_EQ(GpsDatumVersCode("european 1950"), "EUR-M");
}

TEST(GpsDatumVersCode, GivesNothingForAnUnknownName) {
  EXPECT_EQ(GpsDatumVersCode(""), "");
  EXPECT_EQ(GpsDatumVersCode("WGS84"), "");
  EXPECT_EQ(GpsDatumVersCode(" WGS 84"), "");
  EXPECT_EQ(GpsDatumVersCode("WGS 84 "), "");
  EXPECT_EQ(GpsDatumVersCode("BOGOTA OBSERVATORY"), "");  // receivers misspell it
}

TEST(GpsDatumVersCode, KnowsReceiversSpellings) {
  EXPECT_EQ(GpsDatumVersCode("BOGOTA OBSRVATRY"), "BOO");
  EXPECT_EQ(GpsDatumVersCode("NAHRWN SAUDI ARBIA"), "NAH-C");
  EXPECT_EQ(GpsDatumVersCode("PROV SO AMRICN '56"), "PRP-M");
  EXPECT_EQ(GpsDatumVersCode("ASTRO BEACON \"E\""), "ATF");
  EXPECT_EQ(GpsDatumVersCode("L.C. 5 ASTRO"), "LCF");
  EXPECT_EQ(GpsDatumVersCode("DJAKARTA (BATAVIA)"), "BAT");
  EXPECT_EQ(GpsDatumVersCode("CAPE"), "CAP");
  EXPECT_EQ(GpsDatumVersCode("CAPE CANAVERAL"), "CAC");
  EXPECT_EQ(GpsDatumVersCode("NOU TRIAG FRANCE"), "NTF");
}

TEST(GpsDatumVersCode, FindsEveryNameInTheCatalogue) {
  const DatumCatalogue catalogue = test::CatalogueDesSources();
  std::set<std::string_view> names;
  for (const GpsDatum& d : NomsGps()) {
    EXPECT_EQ(GpsDatumVersCode(d.name), d.code);
    EXPECT_EQ(GpsDatumVersCode(Minuscules(d.name)), d.code);
    EXPECT_EQ(Majuscules(d.name), d.name);
    EXPECT_NE(ChercheDatum(catalogue, d.code), 0) << d.code;
    names.insert(d.name);
  }
  EXPECT_EQ(NomsGps().size() - names.size(), 2U);  // NOU TRIAG FRANCE and WGS 84 stand twice
  EXPECT_EQ(NomsGps().front().name, "EUROPEAN 1950");
  EXPECT_EQ(NomsGps().back().name, "ZANDERIJ");
}

}  // namespace
}  // namespace talpena

// The datum of the gazetteer, as it is chosen in its set-up.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "common/text.h"
#include "coords/datum.h"
#include "gazetteer/geo_setup_fixture.h"

namespace talpena {
namespace {

using test::Texts;

struct SetupDatum : test::SetupFixture {};

TEST_F(SetupDatum, TheDatumThatIsChosenIsThatOfTheGazetteerAtOnce) {
  Access();
  state.GeoDatum = "WGS84";
  setup.Charge();
  datum = "EUR-M";
  setup.cmdChangeDatum_Click();
  EXPECT_EQ(datumVu, "WGS84");
  EXPECT_EQ(Form().lblDatum, "EUR-M");
  EXPECT_EQ(state.GeoDatum, "EUR-M");
  Bouton(GeoCommand::Escape);
  EXPECT_EQ(state.GeoDatum, "EUR-M");
}

TEST_F(SetupDatum, ADatumThatIsRefusedForUtmChangesNothing) {
  Access();
  setup.Charge();
  state.InputMode = 2;
  const auto& datums = state.Catalogue.Datums;
  const auto refused =
      std::ranges::find_if(datums, [](const DatumRecord& d) { return !PermetUtm(d); });
  ASSERT_NE(refused, datums.end());
  datum = Rogne(refused->code);
  setup.cmdChangeDatum_Click();
  EXPECT_EQ(Boites(), Texts{"This datum is not allowed for UTM or MGRS input!\n" + datum});
  EXPECT_EQ(Form().lblDatum, "WGS84");
  EXPECT_EQ(state.GeoDatum, "WGS84");
}

TEST_F(SetupDatum, ADatumThatTheCatalogueLacksKeepsTheLabelWhichBecomesTheDatum) {
  Access();
  state.GeoDatum = "EUR-M";
  setup.Charge();
  state.GeoDatum = "elsewhere";
  datum = "XXXXX";
  setup.cmdChangeDatum_Click();
  EXPECT_EQ(Form().lblDatum, "EUR-M");
  EXPECT_EQ(state.GeoDatum, "EUR-M");
}

TEST_F(SetupDatum, WithoutAChoiceTheDatumStays) {
  Access();
  setup.Charge();
  datum = "";
  setup.cmdChangeDatum_Click();
  EXPECT_EQ(Form().lblDatum, "WGS84");
}

}  // namespace
}  // namespace talpena

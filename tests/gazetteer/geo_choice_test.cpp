// A place that was chosen fills the record form.
#include <gtest/gtest.h>

#include "gazetteer/geo_world.h"

namespace talpena {
namespace {

using test::Entete;
using test::GeoWorld;

struct ChoiceWorld : GeoWorld {
  ChoiceWorld() {
    Fait({{"GHISLAIN", "Saint/Ghislain", 50.44876, 3.81886, "BE03", "PPL", "Belgium"},
          {"DMS", "Packed", 503015.0, -1234.0, "", "PPL", ""},
          {"HALF", "Half", 50.0, 4.0, "BE"},
          {"NULL", "Nowhere", Value(), 3.0}});
  }
  void Definit(const std::vector<std::string>& codes) {
    for (const std::string& code : codes)
      Entete(state.document)->FreeFieldDefs.push_back({.Label = code, .Code = code});
    Entete(state.document)->FreeFieldCount = static_cast<std::int16_t>(codes.size());
  }
};

TEST(GeoChoice, DecimalDegreesComeWithTheDecimalsOfTheList) {
  ChoiceWorld w;
  w.Ligne();
  w.Choisit("ghislain");
  EXPECT_EQ(w.state.InputMode, 0);
  EXPECT_EQ(w.ecran.system, CoordSystem::Deg);
  EXPECT_EQ(w.ecran.EditBox[1], "50.4487");
  EXPECT_EQ(w.ecran.EditBox[2], "3.818");
  EXPECT_EQ(w.ecran.lblDatum, "WGS84");
}

TEST(GeoChoice, FillsTheFormAsTypingDoes) {
  ChoiceWorld w;
  w.Ligne();
  w.Choisit("ghislain");
  EXPECT_TRUE(w.ecran.modifie);
  EXPECT_TRUE(w.ecran.ButOk);
  EXPECT_NEAR(Val(w.ecran.ChampLatitude), 50.449, 0.01);
  EXPECT_NEAR(Val(w.ecran.ChampLongitude), 3.819, 0.01);
  EXPECT_FALSE(w.ecran.ValeurDMS.empty());
  EXPECT_EQ(w.query.suite, GeoAfter::Hides);
  EXPECT_TRUE(w.query.focusTxt);
  ASSERT_TRUE(w.Sauve());
  EXPECT_EQ(w.TexteChamp("DATUM"), "WGS84");
}

TEST(GeoChoice, PackedDegreesReachTheRecordPacked) {
  ChoiceWorld w;
  w.state.GeoCoordType = 0;
  w.Ligne();
  w.Choisit("dms");
  EXPECT_EQ(w.state.InputMode, 1);
  EXPECT_EQ(w.ecran.EditBox[1], "+50.30150");
  EXPECT_EQ(w.ecran.EditBox[2], "-000.12340");
}

TEST(GeoChoice, APlaceWithoutCoordinatesBeepsAndChangesNothing) {
  ChoiceWorld w;
  w.Ligne();
  w.Choisit("null");
  EXPECT_EQ(w.sound.bips, 1);
  EXPECT_FALSE(w.ecran.modifie);
  EXPECT_EQ(w.ecran.ChampLibre, "");
  EXPECT_EQ(w.query.suite, GeoAfter::Stays);
}

TEST(GeoChoice, ADatumThatTheCatalogueLacksIsToldAndNothingIsFilled) {
  ChoiceWorld w;
  w.state.GeoDatum = "NONE";
  const std::int16_t mode = w.state.InputMode;
  w.Ligne();
  w.Choisit("ghislain");
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_NE(w.dialogues.boxes[0].text.find(w.Message(MsgId::DatumAbsent)), std::string::npos);
  EXPECT_FALSE(w.ecran.modifie);
  EXPECT_EQ(w.state.InputMode, mode);
}

TEST(GeoChoice, WithoutADatumItIsWgs84) {
  ChoiceWorld w;
  w.state.GeoDatum.clear();
  w.Ligne();
  w.Choisit("ghislain");
  EXPECT_EQ(w.state.GeoDatum, "WGS84");
  EXPECT_EQ(w.ecran.datum, w.state.Catalogue.DatumWgs84);
}

TEST(GeoChoice, TheDatumIsTheGazetteersAndBecomesTheEllipsoid) {
  ChoiceWorld w;
  w.state.GeoDatum = "EUR-M";
  w.Ligne();
  w.Choisit("ghislain");
  EXPECT_EQ(w.ecran.lblDatum, "EUR-M");
  EXPECT_EQ(w.state.Catalogue.EllipsoideCourant,
            w.state.Catalogue.Datum(w.state.Catalogue.DatumEur).ellipsoid);
}

TEST(GeoChoice, WithoutATopographicFieldTheNameGoesBeforeTheText) {
  ChoiceWorld w;
  w.Definit({"STAT.FIPS"});
  w.Ligne({{"COMMENT", "/under a stone"}});
  w.Choisit("ghislain");
  EXPECT_EQ(w.ecran.ChampLibre, "Saint-Ghislain (BE03)under a stone");
  EXPECT_EQ(w.ecran.Grid, std::vector<std::string>{"BE03"});
}

TEST(GeoChoice, WithoutFipsThereAreNoParentheses) {
  ChoiceWorld w;
  w.state.GeoCoordType = 0;
  w.Ligne();
  w.Choisit("dms");
  EXPECT_EQ(w.ecran.ChampLibre, "Packed");
}

TEST(GeoChoice, ACodeInSmallLettersCounts) {
  ChoiceWorld w;
  w.Definit({"other", "stat.topo"});
  w.Ligne({{"COMMENT", "a/b/rest"}});
  w.Choisit("ghislain");
  EXPECT_EQ(w.ecran.Grid, (std::vector<std::string>{"a", "Saint-Ghislain"}));
  EXPECT_EQ(w.ecran.ChampLibre, "rest");
}

TEST(GeoChoice, TheDesignationGetsTheCountry) {
  ChoiceWorld w;
  w.Definit({"STAT.DESI"});
  w.Ligne();
  w.Choisit("ghislain");
  EXPECT_EQ(w.ecran.Grid, std::vector<std::string>{"Belgium"});
}

TEST(GeoChoice, FipsHasNoBlanksBehindIt) {
  ChoiceWorld w;
  w.state.GeoCoordType = 0;
  w.Definit({"STAT.FIPS"});
  w.Ligne();
  w.Choisit("dms");
  EXPECT_EQ(w.ecran.Grid, std::vector<std::string>{""});
}

TEST(GeoChoice, ACountryAloneHasNoBlanksBehindItEither) {
  ChoiceWorld w;
  w.Definit({"STAT.FIPS"});
  w.Ligne();
  w.Choisit("half");
  EXPECT_EQ(w.ecran.Grid, std::vector<std::string>{"BE"});
  EXPECT_EQ(w.ecran.ChampLibre, "Half (BE)");
}

TEST(GeoChoice, WithoutASelectedPlaceNothingHappens) {
  ChoiceWorld w;
  w.Ligne();
  w.Choisit("nowhere at all");
  EXPECT_FALSE(w.ecran.modifie);
  EXPECT_EQ(w.query.suite, GeoAfter::Stays);
}

}  // namespace
}  // namespace talpena

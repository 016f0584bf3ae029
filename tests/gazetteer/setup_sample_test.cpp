// The first rows of a table as they would be read, and the fields that are proposed for it.
#include "gazetteer/setup_sample.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "gazetteer/setup_world.h"

namespace talpena {
namespace {

struct Sample : testing::Test, test::SetupWorld, GeoSetupDialogs {
  GeoSetup setup{context, *this};
  SetupSample sample{context, setup};
  std::string MontreDatums(const std::string&) override { return {}; }

  void Charge() {
    setup.Charge();
    sample.Lit();
  }
};

TEST_F(Sample, ShowsTheRowsAsTheListOfPlacesWould) {
  Regle(Cree("geo.mdb", "", {"Places"}), "", "Places");
  Charge();
  const auto rows = sample.Lignes();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[1].lieu.Texte(PlaceColumn::Name), "Saint-Ghislain");
  EXPECT_EQ(rows[1].lieu.Texte(PlaceColumn::LatitudeDms), "50°27'00\"N");
  EXPECT_EQ(rows[1].lieu.Texte(PlaceColumn::LongitudeDms), "03°49'11\"E ")
      << "32 bits hold 229.2 minutes a little too small, and seconds are cut";
  EXPECT_TRUE(rows[1].utilisable);
  EXPECT_FALSE(rows[2].utilisable) << "Null";
  EXPECT_FALSE(sample.Propose());
}

TEST_F(Sample, ProposesFieldsWhereNoneIsChosenAndStoresNothing) {
  Regle(Cree("geo.mdb", "", {"Places"}), "", "Places");
  state.GeoLatitudeField = state.GeoFullNameField = "Gone";
  Charge();
  EXPECT_EQ(sample.Propose(GeoList::Latitude), "LAT");
  EXPECT_EQ(sample.Propose(GeoList::FullName), "NAME");
  EXPECT_EQ(sample.Propose(GeoList::Longitude), "") << "chosen";
  EXPECT_EQ(sample.Lignes().size(), 3U) << "read by what is proposed";
  EXPECT_EQ(setup.Form().Liste(GeoList::Latitude).choix, -1);
  EXPECT_EQ(state.GeoLatitudeField, "Gone");
}

TEST_F(Sample, CountsTheRowsWithAUsableNameAndPoint) {
  Regle(Cree("geo.mdb", "", {"Places"}), "", "Places");
  Charge();
  const auto tally = sample.Essaie();
  ASSERT_TRUE(tally);
  EXPECT_EQ(tally->utilisables, 2);
  EXPECT_EQ(tally->lignes, 3);
}

TEST_F(Sample, KeepsTwentyRowsOfALongTable) {
  const std::string path = dossier / "long.mdb";
  const auto base = engine->CreateForeignDatabase(path, "", {});
  base->CreateTable(TableDeLieux("Places"));
  test::ListedRows rows(std::vector(100, Lieux()[0]));
  base->InsertRows("Places", std::array<std::string_view, 5>{"KEY", "NAME", "LAT", "LON", "FIPS"},
                   rows);
  Regle(path, "", "Places");
  Charge();
  EXPECT_EQ(sample.Lignes().size(), SetupSample::most);
  EXPECT_EQ(sample.Essaie()->lignes, 100);
}

TEST_F(Sample, WithoutATableThereIsNothing) {
  Charge();
  static_cast<void>(dialogues.boxes.size());
  EXPECT_TRUE(sample.Lignes().empty());
  EXPECT_FALSE(sample.Propose());
  EXPECT_FALSE(sample.Essaie());
}

}  // namespace
}  // namespace talpena

// The first rows of a table as they would be read, and the fields that are proposed for it.
#include "gazetteer/setup_sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
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
  Regle(CreeTable("long.mdb", TableDeLieux("Places"), std::vector(100, Lieux()[0])), "", "Places");
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

TEST_F(Sample, TheSearchFindsTheTableRead) {
  Regle(Cree("geo.mdb", "", {"Places"}), "", "Places");
  Charge();
  const std::string before = environment.prive + "/gazetteer";
  ASSERT_TRUE(std::filesystem::exists(before));
  const auto copies = [&] {
    return std::distance(std::filesystem::directory_iterator(before), {});
  };
  EXPECT_EQ(copies(), 1);
  EXPECT_TRUE(setup.Command1_Click(GeoCommand::Ok).ferme);
  OpenGazetteer search;
  search.Ouvre(state, io).OpenRecordset("Places");
  EXPECT_EQ(copies(), 1) << "the same copy";
}

TEST_F(Sample, ReadsAQueryToo) {
  const std::string source = TALPENA_SHARED_DATA "/db/mdb/queryTestV2003.mdb";
  if (!std::filesystem::exists(source)) GTEST_SKIP() << source;
  Regle(source, "", "SelectQuery");
  Charge();
  ASSERT_FALSE(setup.Champs().empty());
  EXPECT_TRUE(std::filesystem::exists(environment.prive + "/gazetteer"));
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(Sample, GivingUpShowsNothingAndTellsNothing) {
  Regle(CreeTable("long.mdb", TableDeLieux("Places"), std::vector(20000, Lieux()[0])), "",
        "Places");
  setup.Charge();
  vue.abandonDans = 1;
  sample.Lit();
  EXPECT_TRUE(sample.Lignes().empty());
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_FALSE(vue.sablier);
  EXPECT_EQ(sample.Essaie()->lignes, 20000) << "Test reads what was not read";
  EXPECT_EQ(sample.Lignes().size(), SetupSample::most);
}

TEST_F(Sample, ATestThatIsGivenUpSaysNothing) {
  Regle(Cree("geo.mdb", "", {"Places"}), "", "Places");
  Charge();
  vue.abandonDans = 2;
  EXPECT_FALSE(sample.Essaie());
  EXPECT_EQ(sample.Lignes().size(), 3U) << "stay";
  EXPECT_TRUE(dialogues.boxes.empty());
  EXPECT_EQ(vue.annulable, Annulation::Aucune);
}

TEST_F(Sample, AFileThatChangedMeanwhileIsTestedAsItIsNow) {
  const std::string path = CreeTable("geo.mdb", TableDeLieux("Places"), std::vector(3, Lieux()[0]));
  Regle(path, "", "Places");
  Charge();
  std::filesystem::remove(path);
  CreeTable("geo.mdb", TableDeLieux("Places"), std::vector(5, Lieux()[0]));
  EXPECT_EQ(sample.Essaie()->lignes, 5);
  std::filesystem::remove(path);
  CreeTable(
      "geo.mdb",
      {.name = "Places", .fields = {{.name = "LAT", .type = FieldType::Double}}, .indexes = {}},
      {{50.0}});
  EXPECT_FALSE(sample.Essaie()) << "the fields are gone";
}

}  // namespace
}  // namespace talpena

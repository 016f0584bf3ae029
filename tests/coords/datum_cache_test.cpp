#include "coords/datum_cache.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_files.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_tables.h"

namespace talpena {
namespace {

class KeptCatalogueTest : public testing::Test {
 protected:
  KeptCatalogueTest() {
    files_.Pose(path_, "database");
    full_.Datums.push_back({.da = -251,
                            .df = -1.41927e-05,
                            .dx = -87.125,
                            .dy = 1.0 / 3,
                            .dz = -121,
                            .ellipsoid = 2,
                            .code = "EUR-M",
                            .name = "Européen 1950",
                            .application = "",
                            .use = 2});
    full_.Ellipsoides.push_back(
        {.id = 1, .code = "IN", .name = "International", .a = 6378388, .inverseFlattening = 297});
  }
  bool Lit() { return KeptCatalogue(io_, path_).Lit(read_); }
  void Garde() { KeptCatalogue(io_, path_).Garde(full_); }

  const std::string path_ = "/opt/talpena/DATUM.MDB";
  const std::string kept_ = "/home/ann/.cache/Talpena/datums.txt";
  DatumCatalogue full_, read_;
  test::FakeTables tables_;
  test::FakeFiles files_;
  test::FakeSettings settings_;
  test::FakeDialogues dialogues_;
  test::FakeClock clock_;
  test::FakeEnvironment environment_;
  test::FakeSound sound_;
  Platform io_{tables_, files_, settings_, dialogues_, clock_, environment_, sound_};
};

TEST_F(KeptCatalogueTest, GivesBackWhatWasKeptToTheLastBit) {
  EXPECT_FALSE(Lit());
  Garde();
  ASSERT_TRUE(Lit());
  ASSERT_EQ(read_.Datums.size(), 1U);
  const DatumRecord& d = read_.Datums[0];
  const DatumRecord& e = full_.Datums[0];
  EXPECT_EQ(d.da, e.da);
  EXPECT_EQ(d.df, e.df);
  EXPECT_EQ(d.dx, e.dx);
  EXPECT_EQ(d.dy, e.dy);
  EXPECT_EQ(d.dz, e.dz);
  EXPECT_EQ(d.ellipsoid, e.ellipsoid);
  EXPECT_EQ(d.code, e.code);
  EXPECT_EQ(d.name, e.name);
  EXPECT_EQ(d.application, e.application);
  EXPECT_EQ(d.use, e.use);
  ASSERT_EQ(read_.Ellipsoides.size(), 1U);
  EXPECT_EQ(read_.Ellipsoides[0].id, 1);
  EXPECT_EQ(read_.Ellipsoides[0].code, "IN");
  EXPECT_EQ(read_.Ellipsoides[0].name, "International");
  EXPECT_EQ(read_.Ellipsoides[0].a, 6378388);
  EXPECT_EQ(read_.Ellipsoides[0].inverseFlattening, 297);
}

TEST_F(KeptCatalogueTest, HoldsForOneStateOfTheFile) {
  Garde();
  files_.Pose(path_, "database");  // the same size, another time
  EXPECT_FALSE(Lit());
  Garde();
  EXPECT_TRUE(Lit());
  files_.Pose("/other.mdb", "database");
  EXPECT_FALSE(KeptCatalogue(io_, "/other.mdb").Lit(read_));
  files_.Supprime(path_);
  EXPECT_FALSE(Lit());
}

TEST_F(KeptCatalogueTest, HoldsForTheStateThatWasRead) {
  const KeptCatalogue before(io_, path_);
  files_.Pose(path_, "changed while it was read");
  before.Garde(full_);
  EXPECT_FALSE(Lit());
}

TEST_F(KeptCatalogueTest, IsNotReadWhenItIsCutOrChanged) {
  Garde();
  const std::string whole = files_.Contenu(kept_);
  for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
    files_.Pose(kept_, whole.substr(0, length));
    EXPECT_FALSE(Lit()) << length;
  }
  const std::size_t number = whole.find("-251");
  std::string other = whole;
  other.replace(number, 4, "-25x");
  files_.Pose(kept_, other);
  EXPECT_FALSE(Lit());
  other.replace(number, 4, "-99999");  // beyond its field
  files_.Pose(kept_, other);
  EXPECT_FALSE(Lit());
  EXPECT_TRUE(read_.Datums.empty()) << "nothing is changed";
}

TEST_F(KeptCatalogueTest, DoesWithoutACache) {
  environment_.prive.clear();
  Garde();
  EXPECT_FALSE(Lit());
  environment_.prive = "/full";
  files_.ecritureJusqua = 10;
  Garde();
  EXPECT_FALSE(Lit());
  files_.refus["/full/datums.txt"] = ErrorNumber::PermissionDenied;
  Garde();
  EXPECT_FALSE(Lit());
}

TEST_F(KeptCatalogueTest, KeepsNoTextThatWouldPartItsLines) {
  full_.Datums[0].name = "two\nlines";
  Garde();
  EXPECT_FALSE(files_.Existe(kept_));
}

}  // namespace
}  // namespace talpena

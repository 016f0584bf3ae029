// What a file that was refused leaves behind for the next one.
#include <gtest/gtest.h>

#include "store/deg_files.h"
#include "store/world.h"

namespace talpena::test {
namespace {

using Texts = std::vector<std::string>;

class RefusedFile : public ::testing::Test, protected World {
 protected:
  std::string PlainFile() { return EnTete2("NTF", "", "Plain", "") + Rangee("1", "a"); }
};

TEST_F(RefusedFile, LeavesNoSeparatorThatTheNextOneFailsBy) {
  const std::string wide =
      std::string(100'000, '/') + "\r\nSTAT.TOPO,Toponyme,50\r\nSTAT.LOCA,Place,50\r\n";
  Charge(EnTete2("NTF", wide, "Wide", "") + Rangee("1", "a"));
  EXPECT_EQ(Boites().size(), 1U);
  Charge(PlainFile());
  EXPECT_EQ(Boites(), Texts{});
  EXPECT_EQ(World::Lignes(), Texts{RangeeLue("1", "a")});
}

TEST_F(RefusedFile, LeavesTheFieldsOfTheFileBeforeInForce) {
  Charge(EnTete2("NTF", "/\r\nSTAT.TOPO,Toponyme,50\r\n", "First", "") + Rangee("1", "a/b"));
  Charge(EnTete2("NTF", ";\r\nSTAT.LOCA,Place,50\r\ntoo few,items\r\n", "Refused", ""));
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_EQ(state.document.Entete().FreeFieldSeparator, "/");
  Charge(PlainFile());
  EXPECT_EQ(World::Lignes(), Texts{RangeeLue("1", "/a")});
}

TEST_F(RefusedFile, MergedIntoATableWithoutFieldsLeavesNone) {
  Charge(PlainFile());
  const std::string wide =
      std::string(100'000, '/') + "\r\nSTAT.TOPO,Toponyme,50\r\nSTAT.LOCA,Place,50\r\n";
  Charge(EnTete2("NTF", wide, "Wide", "") + Rangee("1", "a"), MergeMode::Merge);
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 0);
}

}  // namespace
}  // namespace talpena::test

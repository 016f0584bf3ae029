// Tables of levels and with columns that no real table at hand has, made by hand from the published
// descriptions; the fuzz target begins with the same ones.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "platform/foreign/little_endian.h"
#include "platform/foreign/paradox/paradox_files.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::literals;

/// A table out of the corpus: two bytes with its length, the table, the memo file behind its head.
class ParadoxLevels : public testing::Test {
 protected:
  std::vector<Row> Lit(const std::string& name) const {
    const auto corpus = fs::path(TALPENA_SOURCE_DIR) / "fuzz" / "corpus" / "paradox" / name;
    const std::string bytes = LitFichier(corpus.string());
    const auto length = NombreLu<std::uint16_t>(bytes.data());
    EcritFichier(folder_ / "t.db", bytes.substr(2, length));
    EcritFichier(folder_ / "t.mb", std::string(4096, '\0') + bytes.substr(2U + length));
    return LitTableParadox(folder_ / "t.db");
  }

  const TempFolder folder_;
};

TEST_F(ParadoxLevels, Level3InTwoBlocks) {
  EXPECT_EQ(
      Lit("text3"),
      (std::vector<Row>{{"AK", "Alaska"}, {"AL", "Alabüma"}, {"AK", "Alaska"}, {"AL", "Alabüma"}}))
      << "in code page 437";
}

TEST_F(ParadoxLevels, Level4WithAKey) {
  EXPECT_EQ(Lit("keyed"),
            (std::vector<Row>{{std::int64_t{1}, "abcd"}, {std::int64_t{2}, "ÇÉxyz"}}));
}

TEST_F(ParadoxLevels, Level7WithAllTypesThatStandInTheRecord) {
  const Row full = {"ab", 35189.0, std::int64_t{1}, std::int64_t{2}, 1.5,     1.5, std::int64_t{-1},
                    0.25, 35189.5, std::int64_t{1}, -123.45,         "\1\2\3"};
  Row blank(full.size());
  blank[0] = "";
  EXPECT_EQ(Lit("types7"), (std::vector<Row>{full, blank, full}));
}

TEST_F(ParadoxLevels, Level5WithAllLongTypes) {
  const std::string small = "small value of twenty-eight.";
  EXPECT_EQ(Lit("memos5"),
            (std::vector<Row>{{small, std::string(2100, 'B'), "ab", Value(), small}}));
}

TEST_F(ParadoxLevels, NothingStaysOpenAndNothingIsWritten) {
  const auto opened = [] {
    const fs::directory_iterator descriptors("/proc/self/fd");
    return std::distance(begin(descriptors), end(descriptors));
  };
  const auto before = opened();
  EXPECT_FALSE(Lit("memos5").empty());
  EXPECT_FALSE(LitTableParadox(folder_ / "t.db").empty());
  EcritFichier(folder_ / "u.db", "no table");
  EXPECT_NE(NumeroDeParadox(folder_ / "u.db"), 0);
  fs::remove(folder_ / "u.db");
  EXPECT_EQ(opened(), before);
  EXPECT_EQ(folder_.Noms(), (std::vector<std::string>{"t.db", "t.mb"}));
}

}  // namespace
}  // namespace talpena

#include "maps/layer_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "fakes/memory_input.h"
#include "maps/layer_bytes.h"

namespace talpena {
namespace {

using test::EnTeteTlp;
using test::PointTlp;
using test::TeteTlp;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

/// The points of each record.
std::vector<std::vector<LayerPoint>> Read(std::string_view bytes, std::size_t block = 1 << 20) {
  LayerFile file(std::make_unique<test::MemoryInput>(bytes, block));
  std::vector<std::vector<LayerPoint>> all;
  for (LayerRecord record; file.Suivant(record);) {
    all.emplace_back();
    for (auto points = file.Points(); !points.empty(); points = file.Points()) {
      all.back().insert(all.back().end(), points.begin(), points.end());
    }
  }
  return all;
}

std::string TwoRecords() {
  return EnTeteTlp() + TeteTlp({.kind = 'R', .style = '2', .count = 2}) +
         PointTlp(-1, 1.5F, -2.5F) + PointTlp(0, 3, 4) + TeteTlp({.count = 1}) +
         PointTlp(-32768, -90, 180);
}

TEST(LayerFile, ReadsHeadsAndPoints) {
  const std::string bytes = TwoRecords();
  LayerFile file(std::make_unique<test::MemoryInput>(bytes));
  LayerRecord record;
  ASSERT_TRUE(file.Suivant(record));
  EXPECT_EQ(record.name, "name" + std::string(26, ' '));
  EXPECT_EQ(record.kind, 'R');
  EXPECT_EQ(record.style, 2);
  EXPECT_EQ(record.count, 2);
  EXPECT_EQ(record.north, 50);
  EXPECT_EQ(record.south, 40);
  EXPECT_EQ(record.east, 10);
  EXPECT_EQ(record.west, 0);
}

TEST(LayerFile, ReadsTheSameWhateverTheBlocks) {
  for (const std::size_t block : {1U, 7U, 61U, 1U << 20}) {
    const auto all = Read(TwoRecords(), block);
    ASSERT_EQ(all.size(), 2U);
    ASSERT_EQ(all[0].size(), 2U);
    EXPECT_EQ(all[0][0].pen, -1);
    EXPECT_EQ(all[0][0].latitude, 1.5F);
    EXPECT_EQ(all[0][0].longitude, -2.5F);
    EXPECT_EQ(all[0][1].pen, 0);
    ASSERT_EQ(all[1].size(), 1U);
    EXPECT_EQ(all[1][0].pen, -32768);
    EXPECT_EQ(all[1][0].longitude, 180);
  }
}

TEST(LayerFile, SkipsPointsThatNobodyAskedFor) {
  const std::string bytes = TwoRecords();
  LayerFile file(std::make_unique<test::MemoryInput>(bytes));
  LayerRecord record;
  ASSERT_TRUE(file.Suivant(record));
  ASSERT_TRUE(file.Suivant(record));
  EXPECT_EQ(record.kind, 'C');
  ASSERT_EQ(file.Points().size(), 1U);
  EXPECT_FALSE(file.Suivant(record));
  EXPECT_TRUE(file.Points().empty());
}

TEST(LayerFile, AStyleIsTheNumberOfItsCharacter) {
  for (const auto& [digit, style] : {std::pair{'0', 0},
                                     {'1', 1},
                                     {'2', 2},
                                     {'9', 9},
                                     {' ', 0},
                                     {'A', 0},
                                     {'\0', 0},
                                     {'\xFF', 0}}) {
    const std::string bytes = EnTeteTlp() + TeteTlp({.style = digit});
    LayerFile file(std::make_unique<test::MemoryInput>(bytes));
    LayerRecord record;
    ASSERT_TRUE(file.Suivant(record));
    EXPECT_EQ(record.style, style);
  }
}

TEST(LayerFile, CutShortAtAnyByteItGivesWhatIsWhole) {
  const std::string whole = TwoRecords();
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const std::size_t first = 116 + 61;
    const std::size_t second = first + 22 + 61;
    std::vector<std::size_t> expected;
    if (length >= first) {
      // The last byte of a point says nothing: a point without it is whole.
      const std::size_t room = length - first;
      expected.push_back(std::min<std::size_t>(2, (room + 1) / 11));
    }
    if (length >= second) expected.push_back(length - second >= 10 ? 1 : 0);
    std::vector<std::size_t> counts;
    for (const auto& record : Read(whole.substr(0, length))) counts.push_back(record.size());
    EXPECT_EQ(counts, expected) << length;
  }
}

TEST(LayerFile, ACountThatIsNoneReadsNoPoints) {
  for (const float count : {nan, -infinite, -1.0F, -1e30F, 0.0F, 0.9F, -0.0F}) {
    const auto all =
        Read(EnTeteTlp() + TeteTlp({.count = count}) + TeteTlp({.count = 1}) + PointTlp(0, 1, 2));
    ASSERT_EQ(all.size(), 2U) << count;
    EXPECT_EQ(all[0].size(), 0U);
    EXPECT_EQ(all[1].size(), 1U);
  }
}

TEST(LayerFile, ACountBeyondTheFileTakesWhatIsThere) {
  for (const float count : {1e30F, infinite, 4e9F, 100.0F}) {
    std::string bytes = EnTeteTlp() + TeteTlp({.count = count});
    for (int i = 0; i < 9; ++i) bytes += PointTlp(0, 1, 2);
    const auto all = Read(bytes);
    ASSERT_EQ(all.size(), 1U) << count;
    EXPECT_EQ(all[0].size(), 9U);
  }
}

TEST(LayerFile, AFractionOfAPointIsNone) {
  const auto all = Read(EnTeteTlp() + TeteTlp({.count = 1.9F}) + PointTlp(0, 1, 2) + TeteTlp({}));
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].size(), 1U);
}

/// A file of any length whose bytes are made when they are read.
class EndlessInput : public InputFile {
 public:
  explicit EndlessInput(std::int64_t size) : left_(size), size_(size) {
    start_ = EnTeteTlp() + TeteTlp({.count = 1e30F});
  }
  std::size_t Lit(std::span<char> buffer) override {
    largest = std::max(largest, buffer.size());
    const auto count = static_cast<std::size_t>(
        std::min<std::int64_t>(left_, static_cast<std::int64_t>(buffer.size())));
    std::fill_n(buffer.data(), count, '\0');
    if (left_ == size_) std::copy(start_.begin(), start_.end(), buffer.data());
    left_ -= static_cast<std::int64_t>(count);
    return count;
  }
  std::int64_t Taille() const override { return size_; }
  std::size_t largest = 0;

 private:
  std::string start_;
  std::int64_t left_;
  std::int64_t size_;
};

TEST(LayerFile, AFileOfAGigabyteIsReadInBlocks) {
  constexpr std::int64_t size = std::int64_t{1} << 30;
  auto input = std::make_unique<EndlessInput>(size);
  const EndlessInput& bytes = *input;
  LayerFile file(std::move(input));
  LayerRecord record;
  ASSERT_TRUE(file.Suivant(record));
  std::int64_t points = 0;
  for (auto some = file.Points(); !some.empty(); some = file.Points()) {
    points += static_cast<std::int64_t>(some.size());
    ASSERT_LE(some.size(), 4096U);
  }
  EXPECT_EQ(points, (size - 116 - 61 + 1) / 11);
  EXPECT_LE(bytes.largest, std::size_t{256} << 10);
}

}  // namespace
}  // namespace talpena

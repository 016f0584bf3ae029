// Order statistics against definitions computed the plain way over sorted values.
#include "analysis/value_counts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace talpena::test {
namespace {

ValueSummary De(const std::vector<std::int64_t>& values) {
  ValueCounts counts;
  for (const std::int64_t value : values) counts.Ajoute(value);
  return counts.Resume();
}

// Hyndman and Fan's definition 7 over the sorted values themselves.
double Plain(std::vector<std::int64_t> values, double part) {
  std::sort(values.begin(), values.end());
  const double place = part * static_cast<double>(values.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const auto above = std::min(below + 1, values.size() - 1);
  const double fraction = place - static_cast<double>(below);
  return static_cast<double>(values[below]) * (1 - fraction) +
         static_cast<double>(values[above]) * fraction;
}

TEST(ValueCounts, WithoutValuesAllIsEmpty) {
  ValueCounts counts;
  counts.AjouteNull();
  const ValueSummary summary = counts.Resume();
  EXPECT_EQ(summary.count, 0);
  EXPECT_EQ(summary.nulls, 1);
  EXPECT_FALSE(summary.minimum || summary.median || summary.mean || summary.deviation);
}

TEST(ValueCounts, OneValueHasNoDeviation) {
  const ValueSummary summary = De({7});
  EXPECT_EQ(summary.minimum, 7);
  EXPECT_EQ(summary.quartile1, 7);
  EXPECT_EQ(summary.median, 7);
  EXPECT_EQ(summary.maximum, 7);
  EXPECT_EQ(summary.mean, 7);
  EXPECT_FALSE(summary.deviation);
}

// 1, 2, 3, 4: quartiles 1.75, 2.5 and 3.25; the deviation is the root of 5/3.
TEST(ValueCounts, QuartilesLieBetweenTheValues) {
  const ValueSummary summary = De({4, 1, 3, 2});
  EXPECT_DOUBLE_EQ(*summary.quartile1, 1.75);
  EXPECT_DOUBLE_EQ(*summary.median, 2.5);
  EXPECT_DOUBLE_EQ(*summary.quartile3, 3.25);
  EXPECT_DOUBLE_EQ(*summary.mean, 2.5);
  EXPECT_NEAR(*summary.deviation, std::sqrt(5.0 / 3), 1e-12);
}

TEST(ValueCounts, AgreesWithThePlainWayForAnyValues) {
  std::mt19937 random(3);
  for (const std::int64_t width : {1, 10, 3000, 5000, 2147483647}) {
    std::vector<std::int64_t> values;
    for (int i = 0; i < 501; ++i) {
      values.push_back(static_cast<std::int64_t>(random()) % width - width / 3);
    }
    const ValueSummary summary = De(values);
    EXPECT_DOUBLE_EQ(*summary.quartile1, Plain(values, 0.25)) << width;
    EXPECT_DOUBLE_EQ(*summary.median, Plain(values, 0.5)) << width;
    EXPECT_DOUBLE_EQ(*summary.quartile3, Plain(values, 0.75)) << width;
    EXPECT_EQ(*summary.minimum,
              static_cast<double>(*std::min_element(values.begin(), values.end())));
    EXPECT_EQ(*summary.maximum,
              static_cast<double>(*std::max_element(values.begin(), values.end())));
    const double mean = std::accumulate(values.begin(), values.end(), 0.0) / 501;
    EXPECT_NEAR(*summary.mean, mean, std::abs(mean) * 1e-12 + 1e-9);
    double squares = 0;
    for (const std::int64_t value : values)
      squares += std::pow(static_cast<double>(value) - mean, 2);
    EXPECT_NEAR(*summary.deviation, std::sqrt(squares / 500), *summary.deviation * 1e-9 + 1e-9);
  }
}

TEST(ValueCounts, SumsOfCountsAreThoseOfAllTheirValues) {
  ValueCounts a, b, all;
  for (const std::int64_t value : {1, 5000, -3}) a.Ajoute(value), all.Ajoute(value);
  for (const std::int64_t value : {9, 1, 5000, 70000}) b.Ajoute(value), all.Ajoute(value);
  b.AjouteNull(), all.AjouteNull();
  a.Ajoute(b);
  EXPECT_EQ(a.Resume().count, 7);
  EXPECT_EQ(a.Resume().nulls, 1);
  EXPECT_EQ(a.Resume().median, all.Resume().median);
  EXPECT_EQ(a.Resume().deviation, all.Resume().deviation);
}

}  // namespace
}  // namespace talpena::test

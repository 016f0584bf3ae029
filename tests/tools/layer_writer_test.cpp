#include "carto/layer_writer.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

namespace talpena {
namespace {

constexpr std::size_t header = 116;
constexpr std::size_t head = 61;
constexpr std::size_t point = 11;

float Simple(const std::string& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes.at(at + i))) << (8 * i);
  return std::bit_cast<float>(value);
}

struct Point {
  int pen;
  float lat, lon;
};

Point LitPoint(const std::string& bytes, std::size_t at) {
  const int low = static_cast<unsigned char>(bytes.at(at));
  const int high = static_cast<signed char>(bytes.at(at + 1));
  return {high * 256 + low, Simple(bytes, at + 2), Simple(bytes, at + 6)};
}

struct Record {
  std::string name;
  char kind, style;
  float north, south, east, west;
  std::vector<Point> points;
};

std::vector<Record> Articles(const std::string& bytes) {
  std::vector<Record> records;
  std::size_t at = header;
  while (at < bytes.size()) {
    Record r{bytes.substr(at, 30),   bytes.at(at + 30),
             bytes.at(at + 31),      Simple(bytes, at + 37),
             Simple(bytes, at + 41), Simple(bytes, at + 45),
             Simple(bytes, at + 49), {}};
    const auto count = static_cast<std::size_t>(Simple(bytes, at + 33));
    at += head;
    for (std::size_t i = 0; i < count; ++i, at += point) r.points.push_back(LitPoint(bytes, at));
    records.push_back(std::move(r));
  }
  EXPECT_EQ(at, bytes.size());
  return records;
}

TEST(EcritCouche, HasAHeaderOf116Bytes) {
  const std::string bytes = EcritCouche("coasts", {}, 4);
  ASSERT_EQ(bytes.size(), header);
  EXPECT_EQ(bytes.substr(0, 100), "coasts" + std::string(94, ' '));
  EXPECT_EQ(bytes.substr(100), std::string(16, '\0'));
}

TEST(EcritCouche, LaysOutARecordByteForByte) {
  const std::string bytes = EcritCouche("t", {{'R', '1', {{{2, 50}, {2.5, 51}}}}}, 4);
  ASSERT_EQ(bytes.size(), header + head + 4 * point);
  EXPECT_EQ(bytes.substr(header, 33), "river" + std::string(25, ' ') + "R1 ");
  EXPECT_EQ(Simple(bytes, header + 33), 4);
  EXPECT_EQ(Simple(bytes, header + 37), 51);
  EXPECT_EQ(Simple(bytes, header + 41), 50);
  EXPECT_EQ(Simple(bytes, header + 45), 2.5F);
  EXPECT_EQ(Simple(bytes, header + 49), 2);
  EXPECT_EQ(bytes.substr(header + 53, 8), std::string(8, '\0'));
  EXPECT_EQ(bytes.substr(header + head, 2), "\xFF\xFF");
  EXPECT_EQ(bytes.substr(header + head + point, 2), std::string("\x01\x00", 2));
  EXPECT_EQ(Simple(bytes, header + head + point + 2), 50);
  EXPECT_EQ(Simple(bytes, header + head + point + 6), 2);
  EXPECT_EQ(bytes.at(header + head + point + 10), '\0');
}

// The view drops the first point that it meets and does not add one of pen -1.
TEST(EcritCouche, LosesNoVisiblePointBetweenItsPenUpPoints) {
  const auto records = Articles(EcritCouche("t", {{'C', '1', {{{2, 50}, {3, 51}, {4, 50}}}}}, 9));
  ASSERT_EQ(records.size(), 1U);
  const auto& points = records[0].points;
  ASSERT_EQ(points.size(), 5U);
  EXPECT_EQ(points[0].pen, -1);
  EXPECT_EQ(points[0].lon, 2);
  for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(points[i].pen, 1);
  EXPECT_EQ(points[1].lon, 2);
  EXPECT_EQ(points[3].lon, 4);
  EXPECT_EQ(points[4].pen, -1);
}

TEST(EcritCouche, CutsALongLineIntoRecordsThatShareTheirEnds) {
  Line line;
  for (int i = 0; i <= 200; ++i) line.push_back({-10 + i * 0.1, 45 + std::sin(i * 0.2)});
  const auto records = Articles(EcritCouche("t", {{'C', '1', {line}}}, 3));
  ASSERT_GE(records.size(), 7U);
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Record& r = records[i];
    EXPECT_LE(r.east - r.west, 3.0001F);
    EXPECT_LE(r.north - r.south, 3.0001F);
    if (i == 0) continue;
    const Point before = records[i - 1].points[records[i - 1].points.size() - 2];
    EXPECT_EQ(before.lat, r.points[1].lat);
    EXPECT_EQ(before.lon, r.points[1].lon);
  }
  EXPECT_EQ(records.front().points[1].lon, -10);
  EXPECT_EQ(records.back().points.back().lon, 10);
}

TEST(EcritCouche, CutsAStraightEdgeAcrossManyDegrees) {
  const auto records = Articles(EcritCouche("t", {{'U', '1', {{{-141, 60}, {-100, 60}}}}}, 2));
  EXPECT_GE(records.size(), 21U);
  for (const Record& r : records) EXPECT_LE(r.east - r.west, 2.0001F);
}

// A stroke that closes would be filled with the colour of the symbols.
TEST(EcritCouche, OpensWhatCloses) {
  const Line island{{1, 1}, {1.2, 1}, {1.2, 1.2}, {1, 1.2}, {1, 1}};
  const auto records = Articles(EcritCouche("t", {{'C', '1', {island}}}, 3));
  ASSERT_EQ(records.size(), 2U);
  for (const Record& r : records) {
    const Point first = r.points[1], last = r.points[r.points.size() - 2];
    EXPECT_TRUE(first.lat != last.lat || first.lon != last.lon);
  }
}

TEST(EcritCouche, KeepsOffTheEquator) {
  const std::vector<Line> lines{{{20, 0}, {21, 1}}, {{20, 0}, {21, -1}}};
  const auto records = Articles(EcritCouche("t", {{'R', '1', lines}}, 3));
  ASSERT_EQ(records.size(), 2U);
  for (const Point& p : records[0].points) EXPECT_GT(p.lat, 0);
  for (const Point& p : records[1].points) EXPECT_LT(p.lat, 0);
  EXPECT_LT(records[1].north, 0) << "a southern hemisphere keeps it";
}

TEST(EcritCouche, WritesKindAndStyleOfEachGroup) {
  const Line line{{5, 5}, {6, 6}};
  const auto records = Articles(EcritCouche("t", {{'L', '1', {line}}, {'U', '3', {line}}}, 3));
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0].kind, 'L');
  EXPECT_EQ(records[1].kind, 'U');
  EXPECT_EQ(records[1].style, '3');
}

}  // namespace
}  // namespace talpena

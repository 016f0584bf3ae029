// The search while typing.
#include "gazetteer/place_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "common/plain_form.h"

namespace talpena {
namespace {

struct Places {
  PlaceIndex index;
  std::vector<std::string> names;
  void Ajoute(const std::string& name, std::optional<GeoPoint> point = {}) {
    names.push_back(name);
    index.Ajoute(name, point);
  }
  std::vector<std::string> Trouve(const std::string& typed, std::optional<GeoPoint> near = {},
                                  std::size_t most = 50) const {
    std::vector<std::string> found;
    for (const PlaceHit& hit : index.Cherche(typed, near, most)) found.push_back(names[hit.row]);
    return found;
  }
};

using Names = std::vector<std::string>;

TEST(PlaceIndex, WhatBeginsGoesFirstThenWhatContainsThenThePlainForm) {
  Places p;
  for (const char* name : {"Val-Étang", "Étang", "Les etangs", "ETANG-SUR", "Paris"})
    p.Ajoute(name);
  p.index.Termine();
  EXPECT_EQ(p.Trouve("etang"), (Names{"ETANG-SUR", "Les etangs", "Étang", "Val-Étang"}));
  const auto hits = p.index.Cherche("etang", {});
  EXPECT_EQ(hits[0].match, PlaceMatch::Begins);
  EXPECT_EQ(hits[1].match, PlaceMatch::Contains);
  EXPECT_EQ(hits[2].match, PlaceMatch::Plain);
}

TEST(PlaceIndex, AQuoteIsATextAsAnyOther) {
  Places p;
  for (const char* name : {"L'Étang", "Letang"}) p.Ajoute(name);
  p.index.Termine();
  EXPECT_EQ(p.Trouve("L'Étang"), (Names{"L'Étang", "Letang"}));
  EXPECT_EQ(p.Trouve("l'e"), (Names{"L'Étang", "Letang"}));
}

TEST(PlaceIndex, BeginsWithTheSecondLetter) {
  Places p;
  p.Ajoute("Aa");
  p.index.Termine();
  EXPECT_EQ(p.Trouve("a"), Names{});
  EXPECT_EQ(p.Trouve("a-"), Names{});
  EXPECT_EQ(p.Trouve("aa"), Names{"Aa"});
}

// Dinan before Dinant, however near that is; the same among those of another spelling.
TEST(PlaceIndex, OfEachKindTheNameItselfGoesFirstThenWhatBeginsSo) {
  Places p;
  p.Ajoute("Dinant", GeoPoint{50, 5});
  p.Ajoute("Dinan", GeoPoint{48, -2});
  p.Ajoute("Los Málagas", GeoPoint{50, 5});
  p.Ajoute("Málagana", GeoPoint{50, 5});
  p.Ajoute("Málaga", GeoPoint{36, -4});
  p.Ajoute("Malagana", GeoPoint{50, 5});
  p.index.Termine();
  const GeoPoint here{50, 5};
  EXPECT_EQ(p.Trouve("dinan", here), (Names{"Dinan", "Dinant"}));
  EXPECT_EQ(p.Trouve("malaga", here), (Names{"Malagana", "Málaga", "Málagana", "Los Málagas"}));
}

TEST(PlaceIndex, TheNearestOfEachKindGoesFirst) {
  Places p;
  p.Ajoute("Gent far", GeoPoint{-40, 170});
  p.Ajoute("Gent near", GeoPoint{51, 4});
  p.Ajoute("Gent nowhere");
  p.Ajoute("Agent here", GeoPoint{50, 4});
  p.index.Termine();
  const GeoPoint here{50, 4};
  EXPECT_EQ(p.Trouve("gent", here), (Names{"Gent near", "Gent far", "Gent nowhere", "Agent here"}));
  const auto hits = p.index.Cherche("gent", here);
  EXPECT_NEAR(hits[0].km.value_or(0), 111.2, 0.1);
  EXPECT_EQ(hits[2].km, std::nullopt);
}

TEST(PlaceIndex, GivesNoMoreThanAPage) {
  Places p;
  for (int i = 0; i < 500; ++i) p.Ajoute("Same name");
  p.index.Termine();
  EXPECT_EQ(p.index.Cherche("same", {}).size(), 50U);
  EXPECT_EQ(p.index.Cherche("me na", {}).size(), 50U);
  EXPECT_EQ(p.index.Cherche("same", GeoPoint{1, 1}, 7).size(), 7U);
}

TEST(PlaceIndex, TakesAMillionEqualNames) {
  PlaceIndex index;
  for (int i = 0; i < 1'000'000; ++i) index.Ajoute("Same", GeoPoint{0.0001 * (i % 900'000), 0});
  index.Termine();
  for (const char* typed : {"sa", "ame"}) {
    const auto hits = index.Cherche(typed, GeoPoint{0.0500, 0});
    ASSERT_EQ(hits.size(), 50U);
    EXPECT_EQ(hits[0].row, 500U);
  }
}

TEST(PlaceIndex, OddNamesDoNoHarm) {
  PlaceIndex index;
  index.Ajoute("", {});
  index.Ajoute(std::string("a\0b", 3), {});
  index.Ajoute("\xFF\xC3", {});
  index.Ajoute(std::string(1'000'000, 'x'), {});
  index.Termine();
  EXPECT_EQ(index.Cherche("xx", {}).size(), 1U);
  EXPECT_EQ(index.Cherche(std::string(1000, 'x'), {}).size(), 1U);
  PlaceIndex empty;
  empty.Termine();
  EXPECT_TRUE(empty.Cherche("xx", {}).empty());
}

// Expected: every name compared by itself.
TEST(PlaceIndex, AgreesWithLookingAtEveryName) {
  std::mt19937 random(7);
  Places p;
  for (int i = 0; i < 3000; ++i) {
    std::string name;
    for (auto n = 1 + random() % 12; n > 0; --n) name += "abc -e"[random() % 6];
    p.Ajoute(name);
  }
  p.index.Termine();
  for (const char* typed : {"ab", "a b", "cea", "bb-", "eeee", "abcabc"}) {
    std::size_t expected = 0;
    for (const std::string& name : p.names) {
      expected += FormeSimple(name).find(FormeSimple(typed)) != std::string::npos ? 1U : 0U;
    }
    EXPECT_EQ(p.index.Cherche(typed, GeoPoint{0, 0}, 5000).size(), expected) << typed;
  }
}

TEST(NearestRecord, AgreesWithLookingAtEveryPoint) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> latitude(-90, 90), longitude(-180, 180);
  std::vector<GeoPoint> points;
  std::vector<SphereDirection> directions;
  for (int i = 0; i < 500; ++i) {
    points.push_back({latitude(random), longitude(random)});
    directions.push_back(DirectionDe(points.back()));
  }
  const NearestRecord nearest(directions);
  for (int i = 0; i < 200; ++i) {
    const GeoPoint from{latitude(random), longitude(random)};
    double best = 1e9;
    for (const GeoPoint& point : points) best = std::min(best, DistanceKm(from, point));
    EXPECT_NEAR(nearest.DistanceKm(from).value_or(-1), best, 0.01);
  }
}

TEST(NearestRecord, WithoutPointsThereIsNoDistance) {
  EXPECT_EQ(NearestRecord().DistanceKm({1, 2}), std::nullopt);
}

}  // namespace
}  // namespace talpena

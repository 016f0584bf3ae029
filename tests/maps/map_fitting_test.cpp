#include "maps/map_fitting.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

// A toolbar of 30 pixels, a status bar of 20, bars of 16; a picture of 400 by 300.
constexpr MapFrame frame{450, 300, 240, 240};
constexpr TwipsSize picture{6000, 4500};
constexpr TwipsSize screen{15360, 11520};

TEST(AjusteFenetre, GivesThePictureItsRoom) {
  const FittedWindow fitted = AjusteFenetre(frame, picture, screen);
  EXPECT_EQ(fitted.width, 6000 + 120 + 240);
  EXPECT_EQ(fitted.height, 450 + 4500 + 300 + 240 + 475);
}

TEST(AjusteFenetre, LeavesTheWindowAsItIsForAPictureAsLargeAsTheScreen) {
  EXPECT_EQ(AjusteFenetre(frame, {15360, 4500}, screen).width, std::nullopt);
  EXPECT_NE(AjusteFenetre(frame, {15360, 4500}, screen).height, std::nullopt);
  EXPECT_EQ(AjusteFenetre(frame, {15359, 20000}, screen),
            (FittedWindow{15359 + 120 + 240, std::nullopt}));
}

struct ScrollCase {
  const char* name;
  TwipsSize inner;
  ScrollRange horizontal, vertical;
};

// clang-format off
constexpr ScrollCase scrollCases[] = {
    {"just room", {6240, 5490}, {}, {}},
    {"too small", {5240, 4490}, {-1000, 40, 100}, {-1000, 40, 100}},
    {"larger", {6490, 5740}, {250, 10, 25}, {250, 10, 25}},
    {"steps are at least 1", {6239, 5481}, {-1, 1, 1}, {-9, 1, 1}},
    {"steps are cut, not rounded", {6240 - 249, 5490 - 119}, {-249, 9, 24}, {-119, 4, 11}},
};
// clang-format on

TEST(CalculeBarres, LeadFromTheLeftOfThePictureToItsRight) {
  for (const ScrollCase& c : scrollCases) {
    SCOPED_TRACE(c.name);
    const MapScroll scroll = CalculeBarres(frame, c.inner, picture);
    EXPECT_EQ(scroll.horizontal, c.horizontal);
    EXPECT_EQ(scroll.vertical, c.vertical);
  }
}

struct NeedCase {
  const char* name;
  TwipsSize inner;
  bool horizontal, vertical;
};

// clang-format off
constexpr NeedCase needCases[] = {
    {"room without bars", {6000, 450 + 4500 + 300}, false, false},
    {"too narrow, and high enough for the bar", {5999, 450 + 4500 + 300 + 240}, true, false},
    {"too low, and wide enough for the bar", {6240, 450 + 4499 + 300}, false, true},
    {"too narrow, and the bar takes the height", {5999, 450 + 4500 + 300}, true, true},
    {"too low, and the bar takes the width", {6000, 450 + 4499 + 300}, true, true},
    {"too small", {3000, 3000}, true, true},
};
// clang-format on

TEST(SansBarresInutiles, KeepsTheBarsThatThePictureNeeds) {
  for (const NeedCase& c : needCases) {
    SCOPED_TRACE(c.name);
    const MapFrame least = SansBarresInutiles(frame, c.inner, picture);
    EXPECT_EQ(least.horizontalBarHeight, c.horizontal ? 240 : 0);
    EXPECT_EQ(least.verticalBarWidth, c.vertical ? 240 : 0);
    const MapScroll scroll = CalculeBarres(least, c.inner, picture);
    EXPECT_EQ(scroll.horizontal.maximum < 0, c.horizontal);
    EXPECT_EQ(scroll.vertical.maximum < 0, c.vertical);
  }
}

}  // namespace
}  // namespace talpena

// Every text of the palette is legible in every state, on light desktops and on dark ones.
#include "platform/qt/legible_palette.h"

#include <gtest/gtest.h>

#include <QStyle>
#include <QStyleFactory>
#include <memory>
#include <vector>

#include "fakes/dark_palette.h"
#include "platform/qt/contrast.h"

namespace talpena {
namespace {

struct NamedPalette {
  const char* name;
  QPalette palette;
};

/// The toolkit's own, one of a dark desktop, the two that two colours make, and one out of order.
std::vector<NamedPalette> Bureaux() {
  const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Fusion")));
  QPalette faint(QColor(0x30, 0x30, 0x30));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText,
                          QPalette::ToolTipText, QPalette::Link}) {
    faint.setColor(role, QColor(0x60, 0x60, 0x60));
  }
  return {{"light", style->standardPalette()},
          {"dark", test::PaletteSombre()},
          {"made of light grey", QPalette(QColor(0xD4, 0xD0, 0xC8))},
          {"made of dark grey", QPalette(QColor(0x22, 0x22, 0x22))},
          {"faint", faint}};
}

struct Pair {
  const char* name;
  QPalette::ColorRole text;
  QPalette::ColorRole background;
};
// clang-format off
constexpr Pair pairs[] = {
    {"window text",                  QPalette::WindowText,      QPalette::Window},
    {"window text on base",          QPalette::WindowText,      QPalette::Base},
    {"text on window",               QPalette::Text,            QPalette::Window},
    {"text",                         QPalette::Text,            QPalette::Base},
    {"text on alternate base",       QPalette::Text,            QPalette::AlternateBase},
    {"button",                       QPalette::ButtonText,      QPalette::Button},
    {"button text on window",        QPalette::ButtonText,      QPalette::Window},
    {"tool tip",                     QPalette::ToolTipText,     QPalette::ToolTipBase},
    {"chosen text",                  QPalette::HighlightedText, QPalette::Highlight},
    {"link",                         QPalette::Link,            QPalette::Base},
    {"link on alternate base",       QPalette::Link,            QPalette::AlternateBase},
    {"link on window",               QPalette::Link,            QPalette::Window},
    {"visited link",                 QPalette::LinkVisited,     QPalette::Base},
    {"visited link on alternate base", QPalette::LinkVisited,   QPalette::AlternateBase},
    {"visited link on window",       QPalette::LinkVisited,     QPalette::Window},
    {"placeholder",                  QPalette::PlaceholderText, QPalette::Base},
    {"placeholder on window",        QPalette::PlaceholderText, QPalette::Window},
};
constexpr struct State { const char* name; QPalette::ColorGroup group; double least; } states[] = {
    {"active",   QPalette::Active,   4.5},
    {"inactive", QPalette::Inactive, 4.5},
    {"disabled", QPalette::Disabled, 3.0},
};
// clang-format on

double ContrasteDe(const QPalette& palette, QPalette::ColorGroup group, const Pair& pair) {
  const QColor background = palette.color(group, pair.background);
  return Contraste(VuSur(palette.color(group, pair.text), background), background);
}

TEST(LegiblePalette, EveryTextStandsOutInEveryState) {
  for (const NamedPalette& desktop : Bureaux()) {
    const QPalette legible = PaletteLisible(desktop.palette);
    for (const State& state : states) {
      for (const Pair& pair : pairs) {
        EXPECT_GE(ContrasteDe(legible, state.group, pair), state.least)
            << desktop.name << ", " << state.name << ", " << pair.name;
      }
    }
  }
}

TEST(LegiblePalette, TheDesktopsOwnColoursWouldNot) {
  int unreadable = 0;
  for (const State& state : states) {
    for (const Pair& pair : pairs) {
      unreadable += ContrasteDe(Bureaux()[0].palette, state.group, pair) < state.least;
    }
  }
  EXPECT_GT(unreadable, 0) << "the test measures something";
}

TEST(LegiblePalette, ATintOfTheChosenColourKeepsTheTextLegible) {
  for (const NamedPalette& desktop : Bureaux()) {
    const QPalette legible = PaletteLisible(desktop.palette);
    QColor tint = legible.color(QPalette::Highlight);
    tint.setAlphaF(0.3F);
    const QColor seen = VuSur(tint, legible.color(QPalette::Base));
    EXPECT_GE(Contraste(legible.color(QPalette::Text), seen), ContrasteLisible) << desktop.name;
  }
}

TEST(LegiblePalette, WhatIsLegibleStaysTheDesktops) {
  const QPalette dark = test::PaletteSombre();
  const QPalette legible = PaletteLisible(dark);
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Text, QPalette::WindowText,
                          QPalette::Highlight, QPalette::HighlightedText}) {
    EXPECT_EQ(legible.color(QPalette::Active, role), dark.color(QPalette::Active, role)) << role;
  }
  EXPECT_EQ(PaletteLisible(legible), legible) << "a second time changes nothing";
}

TEST(LegiblePalette, WhereLightAndDarkAreMixedEachTextKeepsToItsOwnBackground) {
  QPalette mixed(QColor(0xEF, 0xEF, 0xEF));
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    mixed.setColor(group, QPalette::Button, QColor(0x20, 0x20, 0x20));
    mixed.setColor(group, QPalette::ButtonText, QColor(0x50, 0x50, 0x50));
  }
  const QPalette legible = PaletteLisible(mixed);
  EXPECT_GE(Contraste(legible.color(QPalette::ButtonText), legible.color(QPalette::Button)), 4.5);
  EXPECT_GE(Contraste(legible.color(QPalette::WindowText), legible.color(QPalette::Window)), 4.5);
}

}  // namespace
}  // namespace talpena

#include "platform/qt/colours.h"

#include <gtest/gtest.h>

namespace talpena {
namespace {

TEST(Colours, BlueStandsInTheHighByte) {
  EXPECT_EQ(EnQColor(0xE0FFFF, {}), QColor(0xFF, 0xFF, 0xE0));
  EXPECT_EQ(EnQColor(255, {}), QColor(255, 0, 0));
  EXPECT_EQ(EnQColor(0xFF0000, {}), QColor(0, 0, 255));
}

TEST(Colours, ComeBackTheSame) {
  for (const std::uint32_t couleur : {0U, 255U, 65280U, 65535U, 0xE0FFFFU, 0x123456U, 0xFFFFFFU}) {
    EXPECT_EQ(EnCouleur(EnQColor(couleur, {})), couleur);
  }
}

TEST(Colours, SystemNumbersFollowThePalette) {
  QPalette dark;
  dark.setColor(QPalette::WindowText, QColor(1, 2, 3));
  dark.setColor(QPalette::Base, QColor(4, 5, 6));
  dark.setColor(QPalette::Button, QColor(7, 8, 9));
  EXPECT_EQ(EnQColor(0x80000008, dark), QColor(1, 2, 3));
  EXPECT_EQ(EnQColor(0x80000005, dark), QColor(4, 5, 6));
  EXPECT_EQ(EnQColor(0x8000000F, dark), QColor(7, 8, 9));
  EXPECT_EQ(EnQColor(0xFFFFFFFF, dark), QColor(1, 2, 3)) << "unknown numbers stay legible";
}

}  // namespace
}  // namespace talpena

#include "platform/qt/contrast.h"

#include <gtest/gtest.h>

#include <array>

namespace talpena {
namespace {

// Expected: the worked values of the guideline's own definition.
TEST(Contrast, IsThatOfTheGuideline) {
  EXPECT_NEAR(Contraste(Qt::black, Qt::white), 21.0, 1e-9);
  EXPECT_NEAR(Contraste(Qt::white, Qt::white), 1.0, 1e-9);
  EXPECT_NEAR(Contraste({119, 119, 119}, Qt::white), 4.478, 0.001);
}

TEST(Contrast, EveryBackgroundGetsALegibleText) {
  for (int red = 0; red < 256; red += 15) {
    for (int green = 0; green < 256; green += 15) {
      for (int blue = 0; blue < 256; blue += 15) {
        const QColor background(red, green, blue);
        for (const QColor& desktop : {QColor(230, 230, 230), QColor(30, 30, 30)}) {
          ASSERT_GE(Contraste(background, TexteLisible(background, desktop)), ContrasteLisible);
        }
      }
    }
  }
}

TEST(Contrast, ATransparentColourIsWhatIsSeen) {
  EXPECT_EQ(VuSur(QColor(0, 0, 0, 0), Qt::white), QColor(Qt::white));
  EXPECT_EQ(VuSur(QColor(0, 0, 0, 255), Qt::white), QColor(Qt::black));
  EXPECT_EQ(VuSur(QColor(0, 0, 0, 51), Qt::white), QColor(204, 204, 204));
}

TEST(Contrast, AColourMovesAsLittleAsItTakes) {
  const std::array white = {QColor(Qt::white)};
  EXPECT_EQ(Eloigne({0, 0, 200}, white, 4.5), QColor(0, 0, 200)) << "it stands out";
  const QColor moved = Eloigne({48, 140, 198}, white, 4.5);
  EXPECT_GE(Contraste(moved, Qt::white), 4.5);
  EXPECT_LT(Contraste(moved, Qt::white), 4.6);
  EXPECT_NEAR(moved.hslHue(), QColor(48, 140, 198).hslHue(), 2);
}

TEST(Contrast, ADarkDesktopIsOneWithLightTexts) {
  EXPECT_FALSE(EstSombre(QPalette(QColor(0xEF, 0xEF, 0xEF))));
  EXPECT_TRUE(EstSombre(QPalette(QColor(0x30, 0x30, 0x30))));
}

}  // namespace
}  // namespace talpena

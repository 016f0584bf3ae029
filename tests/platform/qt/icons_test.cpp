// The program's icons are drawn when they are looked at.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <array>

#include "platform/qt/icons.h"

namespace talpena {
namespace {

constexpr const char* iconName = "open";
constexpr QColor enabledColour(10, 90, 40), disabledColour(200, 160, 150);

/// Pictures are drawn in the colour of its texts, icons in that of the buttons.
QPalette CouleursDesIcones(const QColor& text) {
  QPalette palette;
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::ButtonText, enabledColour);
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, disabledColour);
  return palette;
}

/// The icon as one that holds all its pictures from the beginning.
QIcon IconeEntiere() {
  QIcon icon;
  for (const int side : {16, 20, 24, 32, 48, 64}) {
    icon.addPixmap(Image(iconName, CouleursDesIcones(enabledColour), side, 1), QIcon::Normal);
    icon.addPixmap(Image(iconName, CouleursDesIcones(disabledColour), side, 1), QIcon::Disabled);
  }
  return icon;
}

constexpr std::array iconModes = {QIcon::Normal, QIcon::Disabled, QIcon::Active, QIcon::Selected};
const std::array iconSizes = {QSize(8, 8),   QSize(16, 16), QSize(17, 17),
                              QSize(22, 22), QSize(24, 24), QSize(40, 30),
                              QSize(30, 40), QSize(64, 64), QSize(100, 100)};

QImage IconePeinte(const QIcon& icon, QIcon::Mode mode, double ratio) {
  QImage picture(QSize(60, 50) * ratio, QImage::Format_ARGB32_Premultiplied);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  icon.paint(&painter, QRect(3, 5, 30, 24), Qt::AlignCenter, mode);
  return picture;
}

TEST(Icons, LookAsThoughAllSizesWereDrawn) {
  const QIcon ours = Icone(iconName, CouleursDesIcones(Qt::black));
  const QIcon whole = IconeEntiere();
  for (const QIcon::Mode mode : iconModes) {
    for (const QSize size : iconSizes) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << ", " << size.width());
      EXPECT_EQ(ours.actualSize(size, mode), whole.actualSize(size, mode));
      for (const double ratio : {1.0, 2.0}) {
        EXPECT_EQ(ours.pixmap(size, ratio, mode).toImage(),
                  whole.pixmap(size, ratio, mode).toImage());
      }
    }
    for (const double ratio : {1.0, 2.0}) {
      EXPECT_EQ(IconePeinte(ours, mode, ratio), IconePeinte(whole, mode, ratio));
    }
    EXPECT_EQ(ours.availableSizes(mode), whole.availableSizes(mode));
  }
}

TEST(Icons, ACopyLooksTheSame) {
  const QIcon icon = Icone(iconName, CouleursDesIcones(Qt::black));
  QIcon copy = icon;
  copy.addPixmap(QPixmap(), QIcon::Normal);  // which makes it one by itself
  EXPECT_EQ(copy.pixmap(24).toImage(), icon.pixmap(24).toImage());
  EXPECT_FALSE(copy.isNull());
}

}  // namespace
}  // namespace talpena

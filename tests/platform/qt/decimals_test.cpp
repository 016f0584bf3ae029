#include "platform/qt/decimals.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QGuiApplication>

namespace talpena {
namespace {

constexpr QChar digit(0x2007), point(0x2008);

TEST(Decimals, AreFilledUpWithBlanksOfTheirWidths) {
  EXPECT_EQ(AvecPlaceDesDecimales("50.36381", 5), "50.36381");
  EXPECT_EQ(AvecPlaceDesDecimales("44.5403", 5), QString("44.5403") + digit);
  EXPECT_EQ(AvecPlaceDesDecimales("-51", 2), QString("-51") + point + digit + digit);
  EXPECT_EQ(AvecPlaceDesDecimales("1.2345678", 5), "1.2345678");
  EXPECT_EQ(AvecPlaceDesDecimales("", 5), "") << "an empty cell stays empty";
  EXPECT_EQ(AvecPlaceDesDecimales("-106", 0), "-106");
}

TEST(Decimals, StandPointUnderPoint) {
  const QFontMetricsF metrics(QGuiApplication::font());
  const double whole = metrics.horizontalAdvance(QStringLiteral(".36381"));
  EXPECT_NEAR(metrics.horizontalAdvance(AvecPlaceDesDecimales("44.5", 5)) -
                  metrics.horizontalAdvance(QStringLiteral("44")),
              whole, 1);
  EXPECT_NEAR(metrics.horizontalAdvance(AvecPlaceDesDecimales("44", 5)) -
                  metrics.horizontalAdvance(QStringLiteral("44")),
              whole, 1);
}

TEST(Decimals, ACellThatIsTooNarrowKeepsItsNumberWhole) {
  QStyleOptionViewItem cell;
  cell.fontMetrics = QFontMetrics(QGuiApplication::font());
  cell.text = "44.5";
  cell.rect = QRect(0, 0, cell.fontMetrics.horizontalAdvance(cell.text) + 10, 20);
  AligneDecimales(cell, 5);
  EXPECT_EQ(cell.text, "44.5");
  cell.rect.setWidth(300);
  AligneDecimales(cell, 5);
  EXPECT_EQ(cell.text, AvecPlaceDesDecimales("44.5", 5));
}

}  // namespace
}  // namespace talpena

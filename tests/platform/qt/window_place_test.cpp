#include "platform/qt/window_place.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QStyle>

namespace talpena {
namespace {

QRect Ecran() { return QGuiApplication::primaryScreen()->availableGeometry(); }
int Titre() { return QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight); }

TEST(WindowPlace, AWindowWithItsTitleFitsTheScreen) {
  for (const QSize wanted : {QSize(5000, 5000), Ecran().size()}) {
    const QRect place = PlaceVisible(QRect(Ecran().topLeft(), wanted));
    EXPECT_LE(place.height() + Titre(), Ecran().height());
    EXPECT_LE(place.width(), Ecran().width());
    EXPECT_EQ(TailleVisible(wanted), place.size());
  }
}

TEST(WindowPlace, ASmallWindowKeepsItsSize) {
  EXPECT_EQ(TailleVisible({400, 300}), QSize(400, 300));
  const QRect place(Ecran().topLeft() + QPoint(20, 20), QSize(400, 300));
  EXPECT_EQ(PlaceVisible(place), place);
}

TEST(WindowPlace, AWindowBelowTheScreenComesUpWithItsTitle) {
  const QRect place = PlaceVisible(QRect(Ecran().bottomLeft(), QSize(400, 300)));
  EXPECT_LE(place.top() + Titre() + 300, Ecran().bottom() + 1);
}

}  // namespace
}  // namespace talpena

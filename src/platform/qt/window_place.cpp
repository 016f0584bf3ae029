#include "platform/qt/window_place.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace talpena {
namespace {

constexpr float twipsPerPixel = 15;
constexpr float largest = 1e6F;  // beyond any screen, within an int

/// What the desktop puts over a window: its own place is that of the window with it.
int HauteurDuTitre() {
  const QStyle* style = QApplication::style();
  return style->pixelMetric(QStyle::PM_TitleBarHeight) +
         style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
}

}  // namespace

int EnPixels(float twips) {
  return static_cast<int>(std::lround(std::clamp(twips / twipsPerPixel, -largest, largest)));
}

float EnTwips(int pixels) { return static_cast<float>(pixels) * twipsPerPixel; }

QSize TailleVisible(QSize wanted, const QScreen* screen) {
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return wanted;
  const QSize room = screen->availableGeometry().size() - QSize(0, HauteurDuTitre());
  return wanted.boundedTo(room).expandedTo({320, 240});
}

QRect PlaceVisible(QRect wanted, bool maximised) {
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return wanted;
  QRect area = screen->availableGeometry();
  if (maximised)
    area.adjust(area.width() / 12, area.height() / 12, -area.width() / 12, -area.height() / 12);
  area.setHeight(area.height() - HauteurDuTitre());
  wanted.setSize(wanted.size().boundedTo(area.size()).expandedTo({320, 240}));
  wanted.moveLeft(std::clamp(wanted.left(), area.left(),
                             std::max(area.left(), area.right() + 1 - wanted.width())));
  wanted.moveTop(std::clamp(wanted.top(), area.top(),
                            std::max(area.top(), area.bottom() + 1 - wanted.height())));
  return wanted;
}

}  // namespace talpena

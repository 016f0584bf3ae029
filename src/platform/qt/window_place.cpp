#include "platform/qt/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace talpena {
namespace {

constexpr float twipsPerPixel = 15;
constexpr float largest = 1e6F;  // beyond any screen, within an int

}  // namespace

int EnPixels(float twips) {
  return static_cast<int>(std::lround(std::clamp(twips / twipsPerPixel, -largest, largest)));
}

float EnTwips(int pixels) { return static_cast<float>(pixels) * twipsPerPixel; }

QRect PlaceVisible(QRect wanted, bool maximised) {
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return wanted;
  QRect area = screen->availableGeometry();
  if (maximised)
    area.adjust(area.width() / 12, area.height() / 12, -area.width() / 12, -area.height() / 12);
  wanted.setSize(wanted.size().boundedTo(area.size()).expandedTo({320, 240}));
  wanted.moveLeft(std::clamp(wanted.left(), area.left(),
                             std::max(area.left(), area.right() + 1 - wanted.width())));
  wanted.moveTop(std::clamp(wanted.top(), area.top(),
                            std::max(area.top(), area.bottom() + 1 - wanted.height())));
  return wanted;
}

}  // namespace talpena

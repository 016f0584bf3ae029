#include "maps/map_fitting.h"

#include <algorithm>
#include <cstdlib>

namespace talpena {
namespace {

constexpr int borders = 120;          // left and right of the window
constexpr int titleAndBorders = 475;  // above and below

ScrollRange Barre(int room, int picture) {
  const int maximum = room - picture;
  if (maximum == 0) return {};
  const int length = std::abs(maximum);
  return {maximum, std::max(1, length / 25), std::max(1, length / 10)};
}

}  // namespace

FittedWindow AjusteFenetre(const MapFrame& frame, TwipsSize picture, TwipsSize screen) {
  FittedWindow window;
  if (picture.width < screen.width) {
    window.width = picture.width + borders + frame.verticalBarWidth;
  }
  if (picture.height < screen.height) {
    window.height = frame.toolbarHeight + picture.height + frame.statusHeight +
                    frame.horizontalBarHeight + titleAndBorders;
  }
  return window;
}

MapScroll CalculeBarres(const MapFrame& frame, TwipsSize inner, TwipsSize picture) {
  return {Barre(inner.width - frame.verticalBarWidth, picture.width),
          Barre(inner.height - frame.toolbarHeight - frame.statusHeight - frame.horizontalBarHeight,
                picture.height)};
}

MapFrame SansBarresInutiles(MapFrame frame, TwipsSize inner, TwipsSize picture) {
  MapFrame least = frame;
  least.horizontalBarHeight = least.verticalBarWidth = 0;
  // A bar takes room from the other direction, which may then need its own.
  for (int round = 0; round < 2; ++round) {
    const MapScroll scroll = CalculeBarres(least, inner, picture);
    if (scroll.horizontal.maximum < 0) least.horizontalBarHeight = frame.horizontalBarHeight;
    if (scroll.vertical.maximum < 0) least.verticalBarWidth = frame.verticalBarWidth;
  }
  return least;
}

}  // namespace talpena

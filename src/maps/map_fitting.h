// How the window of the map and its scroll bars fit the picture. Lengths are twips.
#pragma once
#include <optional>

namespace talpena {

struct TwipsSize {
  int width = 0;
  int height = 0;
  bool operator==(const TwipsSize&) const = default;
};

/// What stands around the picture. A bar that is not shown takes nothing.
struct MapFrame {
  int toolbarHeight = 0;
  int statusHeight = 0;
  int verticalBarWidth = 0;
  int horizontalBarHeight = 0;
};

/// Size of the window for a picture, its borders and its title included; empty in the direction in
/// which the picture is as large as the screen: there the window stays as it is.
struct FittedWindow {
  std::optional<int> width;
  std::optional<int> height;
  bool operator==(const FittedWindow&) const = default;
};
FittedWindow AjusteFenetre(const MapFrame& frame, TwipsSize picture, TwipsSize screen);

/// A scroll bar that starts at 0. Its value is the left or the top of the picture, so that the
/// maximum is negative when the picture is larger than the room for it; the steps are sizes.
struct ScrollRange {
  int maximum = 0;
  int smallStep = 0;  ///< 0, as the large one, when the maximum is
  int largeStep = 0;
  bool operator==(const ScrollRange&) const = default;
};
struct MapScroll {
  ScrollRange horizontal;
  ScrollRange vertical;
};
/// @param inner  the window without its borders, title and menus
MapScroll CalculeBarres(const MapFrame& frame, TwipsSize inner, TwipsSize picture);

/// The frame without the bars that nothing needs: the picture has room, also beside the other bar.
MapFrame SansBarresInutiles(MapFrame frame, TwipsSize inner, TwipsSize picture);

}  // namespace talpena

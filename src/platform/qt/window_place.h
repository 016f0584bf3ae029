// Where windows stand: twips of the settings, pixels of the screen.
#pragma once
#include <QRect>

class QScreen;

namespace talpena {

/// 15 twips are a pixel at 96 dots per inch.
int EnPixels(float twips);
float EnTwips(int pixels);

/// The size that a window gets of the one that it likes, on a screen that has room for its title
/// too; the first screen when none is given.
QSize TailleVisible(QSize wanted, const QScreen* screen = nullptr);

/// A stored place, moved and cut so that the window can be reached on one of today's screens.
/// @param maximised  the place is that of the window when it is maximised no more
QRect PlaceVisible(QRect wanted, bool maximised = false);

}  // namespace talpena

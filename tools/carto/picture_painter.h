// A drawing as a picture.
#pragma once
#include <QImage>

#include "carto/map_drawing.h"

namespace talpena {

/// Sizes of the letters, pixels of the normal size. A raster map is scaled down to its window;
/// its lines are as much broader as its letters are larger.
inline constexpr int lettresCarte = 11, lettresRaster = 15;

/// A map with its neat line and the furniture of a published one. Its whole box fills the picture.
/// `scale` 1 is the normal size, 2 twice the pixels of the same drawing; sides are whole pixels.
/// The letters need a QGuiApplication.
QImage PeintCarte(const MapSheet& sheet, const MapDrawing& drawing, double scale, int letterPixels);

}  // namespace talpena

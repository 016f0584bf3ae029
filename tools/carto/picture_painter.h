// A drawing as a picture.
#pragma once
#include <QImage>

#include "carto/map_drawing.h"

namespace talpena {

/// The whole box of the map fills the picture. `scale` 1 is the normal size, 2 twice the pixels of
/// the same drawing; sides are whole pixels.
QImage PeintImage(const MapSheet& sheet, const MapDrawing& drawing, double scale);

/// The same with a neat line and the furniture of a published map, on a sheet of the catalogue.
/// Its letters need a QGuiApplication.
QImage PeintCarte(const MapSheet& sheet, const MapDrawing& drawing, double scale);

}  // namespace talpena

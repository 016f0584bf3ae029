// The description of a map (.dsw), as the map view reads it.
#pragma once
#include <string>

#include "carto/map_catalogue.h"

namespace talpena {

/// Three lines and the items behind them, code page 1252; the drawing and the picture bear the
/// map's name.
std::string EcritDescription(const MapRow& row);

}  // namespace talpena

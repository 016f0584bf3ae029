// Map descriptions (.dsw): three lines, then items of free-format input.
#pragma once
#include <string>

#include "maps/map_context.h"

namespace talpena {

/// Reads a map file, shows its picture and sets the scale. A file that cannot be read in full ends
/// it without a message; what was read until then stays. Answers whether all of it was read.
bool ChargeCarte(MapContext c, const std::string& path);

/// Box of the map, scale of the canvas, the button "eps"; a map of code 0 loses its layers.
void InitParam(MapContext c);

/// Open dialog, ChargeCarte, RedrawMap.
void OuvrirCarte(MapContext c);

/// What the view does when it loads: settings, constants, the last map, the distribution.
void ChargeVue(MapContext c);

/// Colour and diameter to the settings. The window stores its own place.
void SauveVue(MapContext c);

}  // namespace talpena

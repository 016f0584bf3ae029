// The whole map drawn anew, its line layers, and the position under the mouse.
#pragma once
#include <string>

#include "maps/canvas_sink.h"

namespace talpena {

/// Picture, layers, grid, distribution, on the screen.
void RedrawMap(MapContext c);

/// What lies between the picture and the rows: layers, and the grid when it is on show.
void TraceLignes(MapContext c, CanvasSink& surface);

/// One line layer (.tlp); nothing happens when the file does not exist.
void AfficheTLP(MapContext c, CanvasSink& surface, const std::string& path);

/// The three panels of the status bar for a position in user units. A position that the projection
/// cannot invert leaves them empty.
void MontrePosition(MapContext c, float x, float y);

/// The canvas as a bitmap file.
void SauveImage(MapContext c);

}  // namespace talpena

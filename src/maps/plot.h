// The rows of the distribution on the map, and clicks that add and take back rows.
#pragma once
#include <cstdint>

#include "maps/map_context.h"
#include "maps/map_sink.h"
#include "platform/busy.h"

namespace talpena {

/// Draws the chosen rows, or all.
void PlotDistri(MapContext c, MapSink& sink);

/// The wait window at once for so many rows that they take longer than the eye waits; fewer may
/// bring it up by the clock.
void AnnonceAttente(Busy& busy, const SharedState& state, std::int64_t rows);

/// Shape 1 is a circle of the diameter in user units; no other shape is drawn.
void PlotSymbol(Canvas& canvas, float x, float y, int shape, float diameter, std::uint32_t colour,
                FillStyle fill);

/// The outline of symbols: black, solid, one pixel wide.
void PrepareSymboles(Canvas& canvas);

/// A white spot hides the middle of a symbol of this diameter, user units.
void CacheSymbole(Canvas& canvas, double x, double y, double diameter);

/// Diameter of the symbols in user units.
float DiametreSymbole(const MapState& carte, const MapOption& options);

/// A press of the left button: a new row at the position (user units), chosen in the grid besides
/// the rows chosen before. On a map of code 0 no row is added. A position that the arithmetic of
/// the projection refuses raises its failure and adds nothing.
void AjouteLigneCarte(MapContext c, float x, float y);

/// A press of the right button at a position: takes back the row that was chosen last, wherever it
/// lies; a beep when none is.
void RetireLigneCarte(MapContext c, float x, float y);

}  // namespace talpena

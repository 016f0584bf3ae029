// A point as the reference that names it in a notation.
#pragma once
#include <cstdint>
#include <string>

#include "coords/national_grids.h"
#include "coords/state.h"
#include "coords/systems.h"

namespace talpena {

/// "SU 34567 00012" of a point on the grid's datum; two blanks outside the lettered squares.
std::string TexteGrille(Grille grid, double latitude, double longitude);

/// Code of the 1 km square of a point on BEL72; "" outside the bounds of LambertVersIfbl.
std::string TexteIfbl(double latitude, double longitude);

/// Metres of a system that has a projection onto them (LMB, LF1 to LFE, NMA, SMA) for a point on
/// its datum; 0, 0 for any other. Failures as in coords/lambert.h.
void MetresDuPoint(CoordState& state, CoordSystem system, double latitude, double longitude,
                   double& x, double& y);

/// What a point on the file's datum is in a system that implies its datum, as it stands in
/// ORIGINAL behind the code; metres are whole, rounded. "" for the other systems, outside a grid,
/// and where the arithmetic has no result.
///
/// @param datumFichier  index in the catalogue
std::string ReferenceDuPoint(CoordState& state, CoordSystem system, std::int16_t datumFichier,
                             double latitude, double longitude);

}  // namespace talpena

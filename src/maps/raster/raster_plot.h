// The rows of the distribution on a raster map, as circles that show their period.
#pragma once
#include "maps/raster/raster_context.h"

namespace talpena {

/// Shows the map, from the program's folder, and sets the globals and the user scale. A picture
/// that is missing (53) or is none (75) leaves the globals as they were.
void ChargeCarteRaster(RasterContext c, CarteRaster choisie);

/// Grid lines and rows anew: rows whose coordinates are not Null and not both 0, in the order of
/// the grid, or those that were chosen in it.
void RedessineRaster(RasterContext c);

/// One row's circle. A period below 1 and Null (NaN) count as 1, one above 4 as 4.
void TraceLigneRaster(RasterContext c, double period, PointDegres place);

/// Colour of a period: those of the settings; black for the fourth and beyond.
std::uint32_t CouleurDePeriode(const SettingsState& state, double period);

/// Diameter of the circles, kilometres of the map.
double DiametreRaster(RasterContext c);

/// One point of the grid lines, from the one before to it.
void TraceLigneDeGrille(Canvas& canvas, const std::vector<GridLinePoint>& lignes, std::size_t at);

}  // namespace talpena

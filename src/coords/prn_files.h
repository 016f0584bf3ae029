// PRN files: the lines of a grid as polylines of latitudes and longitudes, for plotting on a map.
// One point a line, closed by CR LF: a pen flag ("-1" where a polyline starts, " 0" where it goes
// on), the latitude, the longitude, ":", and behind the first point of a polyline the pen code.
// The writers only write: opening the file and putting it in place is the caller's.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "coords/national_grids.h"
#include "coords/state.h"
#include "platform/files.h"

namespace talpena {

/// How points of Lambert belge 1972 reach the datum of the file.
struct IfblDatums {
  const DatumCatalogue& catalogue;
  std::int16_t bel72;
  std::int16_t eurM;
};

/// A number as an item of a print statement: a blank or a minus, at most 15 significant digits
/// with no zero ahead of the point, one blank behind: " 50.5 ", "-.25 ".
std::string ElementImprime(double value);

/// The 32 by 20 km lines without pen codes, numbers as print items: 11 columns with a point every
/// 2 km, then 13 rows with one every 3.2 km; 2644 points.
void EcritPrnGrille(OutputFile& file, const IfblDatums& datums);

/// The 4 km mesh with a point every km (rows, then columns; pen "G2"), then the lines of
/// EcritPrnGrille (pen "G1"), numbers with five decimals; 41746 points.
void EcritPrnMailles(OutputFile& file, const IfblDatums& datums);

/// Told every point of the 100 km lines as they are written; `first` starts a polyline.
using DessinePoint = std::function<void(double latitude, double longitude, bool first)>;

/// A national grid on its own datum, longitudes negative west of Greenwich: the 10 km lines (pen
/// "G3"), the 100 km lines (pen "G2"), each rows first, then the frame (pen "G1") from the
/// south-west corner northward and around, with a point every 10 km.
///
/// @param dessine  may be empty; a canvas passes over points at 0, 0
void EcritPrnNational(OutputFile& file, Grille grid, const DessinePoint& dessine = {});

}  // namespace talpena

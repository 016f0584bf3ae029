// The squares of the IFBL grid as polygons for MapInfo: a MIF file of rectangles in Lambert belge
// metres and a MID file with the code of each, line for line. Lines are closed by CR LF.
#pragma once
#include <span>
#include <string_view>

#include "platform/files.h"

namespace talpena {

/// One pair of files. The squares run from the corner of the grid, rows from the south, inside a
/// row from the west.
struct IfblPolygons {
  std::string_view name;        ///< of both files, without extension
  int level;                    ///< characters of a code
  int width, height;            ///< of a square, metres
  int lastX, lastY;             ///< south-west corner of the last square, metres
  std::string_view pen, brush;  ///< the two lines behind each rectangle
};

/// The pairs in the order in which they are written: 1 km (with one row and one column beyond the
/// grid, whose codes are "@..." and "x10..."), 4 km, 32 by 20 km.
std::span<const IfblPolygons> PairesDeFichiers();

void EcritMif(OutputFile& file, const IfblPolygons& polygons);
void EcritMid(OutputFile& file, const IfblPolygons& polygons);

}  // namespace talpena

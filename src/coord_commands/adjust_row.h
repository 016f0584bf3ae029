// What the adjust commands make of one row. Everything starts from ORIGINAL; the point comes out
// on the datum of the file, `datumFichier`, an index in the catalogue.
#pragma once
#include <cstdint>
#include <string_view>

#include "coords/state.h"

namespace talpena {

/// A row whose ORIGINAL was read.
struct RowPoint {
  std::string_view original;  ///< trimmed, upper case
  std::string_view code;      ///< its CoordSystemCode
  std::int16_t datum = 0;     ///< of ORIGINAL
  double latitude = 0;        ///< on that datum; afterwards on that of the file
  double longitude = 0;
};

/// Grids that a metric mesh is laid on: values of GrilleChoisie.
inline constexpr std::int16_t AjusteUtm = 1, AjusteBritish = 2, AjusteIrish = 3;

// Each answers false when the row is to stay as it is.

/// To the centre of a cell in degrees; SansMaille leaves an axis alone.
bool AjusteEnDegres(const CoordState& state, RowPoint& row, std::int16_t datumFichier,
                    double meshLat, double meshLon);

/// To the centre of a cell of 0.2 by 0.4 Paris grades.
bool AjusteEnGrades(const CoordState& state, RowPoint& row, std::int16_t datumFichier);

/// To the mesh MailleChoisie (1 to 7) of the grid GrilleChoisie; with mesh 0 the point is only
/// computed anew. Rows that are no place of the grid stay: those whose reference cannot be
/// completed, UTM's polar regions, and whatever the national forward gives no letters for.
bool AjusteSurGrille(CoordState& state, RowPoint& row, std::int16_t datumFichier);

/// To the centre of the IFBL square of 2, 4 or 6 characters that holds it.
bool AjusteSurIfbl(const CoordState& state, RowPoint& row, std::int16_t datumFichier, int level);

}  // namespace talpena

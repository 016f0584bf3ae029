// What the user does on a raster map: points added and taken back, grid files.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "maps/raster/raster_context.h"
#include "store/distribution_header.h"

namespace talpena {

/// What the boxes beside the map say of a new point.
struct RasterEntry {
  std::int16_t ChoixPeriode = 1;
  std::string txtAnnee;  ///< goes into DATE as it stands
};

/// The left button: a new row at the position, chosen in the grid besides those chosen before, with
/// its circle. The position is that of its MGRS reference, snapped to the mesh of the settings.
void AjoutePointRaster(RasterContext c, const RasterEntry& entry, PointKm point);

/// The right button: takes back the row that was chosen last, wherever it lies; a beep when none
/// is. A white spot hides the middle of its circle.
void RetirePointRaster(RasterContext c);

/// The window closes: with points of this opening in the table the user is asked whether they stay
/// (message 550). No takes exactly these away.
void FermeRaster(RasterContext c);

/// Command1: the British and the Irish grid as PRN files, a save dialog each; their 100 km lines
/// are drawn on the map. A dialog that is left leaves its grid out.
void EcritGrillesPrn(RasterContext c);

/// Where a click at a place puts its point: the whole metre of UTM, or with a mesh from 1 to 7 the
/// centre of its cell, see AjusteGrille. Where MGRS has no reference the place stays.
PointDegres PlaceSurGrille(PointDegres place, std::int16_t maille);

/// The period that a year falls in: the first four characters of the text by the pivots, an empty
/// one being year 0.
std::int16_t PeriodeDeLAnnee(std::string_view txtAnnee, const DistributionHeader& entete);

/// Periods of the file: ChoixPeriode offers 1 to this.
inline std::int16_t NombrePeriodes(const DistributionHeader& entete) {
  return static_cast<std::int16_t>(entete.NbPivots + 1);
}

}  // namespace talpena

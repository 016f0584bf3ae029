// The British and the Irish grid, both ways. Two Transverse Mercator grids with constants of their
// own: the current ellipsoid has no part in them. Pure: numbers and texts in and out. British
// points are on datum OGB-M, Irish ones on IRL. Letters are in grid_letters.cpp, the projection
// is in national_grids_forward.cpp and national_grids_inverse.cpp.
//
// Metres of "the frame of the inverse": the central meridian has the easting 500000, northings
// count from the equator. What a map prints lies 100000 (British) or 300000 (Irish) below in
// easting, 5527063.816 or 5680030 below in northing.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace talpena {

enum class Grille : std::uint8_t { Irish = 0, British = 1 };

/// A British reference in the frame of the inverse.
///
/// @param letters         two upper-case letters; others, or fewer, give easting = northing = 0
/// @param eastKm, northKm position inside the 100 km square, kilometres
/// @param easting, northing  metres; never fails, the answer for wrong letters being 0, 0
void LettresVersBritish(std::string_view letters, double eastKm, double northKm, double& easting,
                        double& northing);

/// An Irish reference in the frame of the inverse. Of the two letters only the second counts; one
/// that no square bears, or that is absent, stands for the south-westernmost square, "V".
/// Note the order of the axes.
void LettresVersIrish(std::string_view letters, double northKm, double eastKm, double& northing,
                      double& easting);

/// True when two upper-case letters name a 100 km square of a grid. Of Irish letters only the
/// second counts.
bool EstCarreNational(Grille grid, std::string_view letters);

/// Inverse of the projection, in doubles. The series lies within 1 cm of the rigorous projection
/// up to 200 km from the central meridian, 8 cm at 300 km, 0.4 m at 400 km; a second eccentricity
/// that is not that of the axis adds 8, 18 and 32 cm of latitude there. Stored points were made
/// with both. Both grids stand on the British axis: Irish points lie up to 9 m from the mapped
/// grid. Source: the series of the Ordnance Survey's Projection Tables, in units of 1000 km.
///
/// Raises Overflow (6) for metres of no place on earth, when the latitude cannot be found.
///
/// @param northing, easting  metres in the frame of the inverse
/// @param latitude   decimal degrees, on the grid's datum
/// @param longitude  decimal degrees from about 340 to 375, never negative near Greenwich: every
///                   caller applies LongitudeSignee at once
void GrilleVersLatLon(Grille grid, double northing, double easting, double& latitude,
                      double& longitude);

/// A longitude of GrilleVersLatLon as the rest of the program counts it: 360 taken off above 180.
double LongitudeSignee(double longitude);

/// The reference of a point: "SU", "34567", "00012", that is the letters and whole metres inside
/// the 100 km square, cut and not rounded. All three are empty for a point outside the lettered
/// squares (1000 by 1500 km British, 500 by 500 km Irish) and for what is no point.
///
/// Constants and every named quantity are rounded to 32 bits, as in stored references; within 2 m
/// of the inverse and of the rigorous projection. Never throws but for want of memory.
/// Source: J. P. Snyder, Map Projections: A Working Manual, USGS Professional Paper 1395 (1987),
/// p. 61, eq. 8-9 and 8-10.
///
/// @param latitude, longitude  decimal degrees on the grid's datum; -1.5 and 358.5 are the same
void LatLonVersGrille(Grille grid, double latitude, double longitude, std::string& letters,
                      std::string& east, std::string& north);

}  // namespace talpena

// ORIGINAL, the coordinates of a row as they were first written: reading it and assembling it.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "coords/state.h"
#include "coords/systems.h"

namespace talpena {

/// How the reading of an ORIGINAL ended.
enum class Lecture : std::uint8_t {
  Point,  ///< with numbers, whatever they are
  Aucun,  ///< the text is none of a notation, or one that names no place: EchecCoord
  Faute   ///< the arithmetic had no result for its numbers: EchecCoord
};

/// Latitude and longitude that an ORIGINAL names, decimal degrees on the datum given: the caller
/// moves them to another with ConvertitDatum. Sets the current ellipsoid. Any text ends with
/// finite numbers or with EchecCoord in both, never with a failure raised. In DEG, DMS and GRP a
/// text without the two tokens counts as zeros; a refused MGRS reference is 0, 0.
///
/// @param original   trimmed and in upper case, as OriginalLisible gives it or with characters
///                   beyond ASCII; see docs/coordinates.md for the notations
/// @param datum      index in the catalogue; outside it: SubscriptOutOfRange (9)
/// @param code       takes the first three characters
Lecture DecodeOriginal(CoordState& state, std::string_view original, std::int16_t datum,
                       double& latitude, double& longitude, std::string& code);

/// Why an ORIGINAL in MGRS is refused: one of the texts of MgrsFailure, or "" when it has another
/// length than a reference or is accepted. Sets the current ellipsoid. Failures as above.
std::string EchecMgrs(CoordState& state, std::string_view original, std::int16_t datum);

/// MGRS reference, or text of failure, of a point in decimal degrees on the current ellipsoid.
std::string MgrsDuPoint(const DatumCatalogue& catalogue, double latitude, double longitude);

// The other way round: "utm 31 616000 5564000", the code in lower case.

/// From the boxes of a form, joined as they are; empty ones are left out by the caller.
std::string AssembleTextes(CoordSystem system, std::span<const std::string_view> texts);

/// From numbers: two, or zone, easting and northing. Angles get the masks
/// "+00.00000;-00.00000" and "+000.00000;-000.00000", metres the plain number-to-text.
std::string AssembleNombres(CoordSystem system, std::span<const double> numbers);

/// From a reference in one piece ("31UES12345678", "SU1234"), in upper case but for an IFBL code,
/// which stays as it is. "" when an MGRS reference has less than 5 characters or a British or
/// Irish one less than 4.
std::string AssembleReference(CoordSystem system, std::string_view reference);

}  // namespace talpena

// MGRS references, both ways. Pure arithmetic: no state, no table. Angles are radians, lengths
// metres. Failures come back as texts of 15 characters in the place of the reference.
// Source: Defense Mapping Agency, TM 8358.1, Datums, Ellipsoids, Grids, and Grid Reference
// Systems (1990).
//
// A reference reads "ZZLLLEEEEENNNNN": the zone in two characters (blank or "0" before a single
// digit), band, column and row letters, five digits of easting and five of northing. Letters
// count from A = 1 to Z = 26; I and O are never used. Ellipsoids are named by their id in the
// catalogue.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "coords/utm.h"

namespace talpena {

/// The texts of failure, all of the length of a reference.
namespace MgrsFailure {
inline constexpr std::string_view SouthPolar = "S  POLAR REGION";    ///< south of 80 degrees
inline constexpr std::string_view NorthPolar = "N  POLAR REGION";    ///< north of 84 degrees
inline constexpr std::string_view Invalid = " INVALID MGRS  ";       ///< no such reference
inline constexpr std::string_view NoEllipsoid = " ELLIPSOID N/A  ";  ///< of a reference read
inline constexpr std::string_view NotValid = "MGRS  NOT VALID";      ///< of a reference written
inline constexpr std::string_view OutsideRange = " OUTSIDE RANGE ";  ///< not in its band and zone
inline constexpr std::string_view UtmError = "   UTM ERROR";         ///< fault while writing
}  // namespace MgrsFailure

/// True for one of these texts.
bool EstEchecMgrs(std::string_view mgrs);

/// The letters of a zone's squares and where its rows start.
///
/// @param low, high      first and last column letter
/// @param falseNorthing  metres that the row letters are moved by: by the ellipsoid's group of
///                       letter sets and the parity of the zone
/// @param error          1 when the ellipsoid has no MGRS (the rest is set as for group 1)
void JeuLettres(std::int16_t zone, int& low, int& high, double& falseNorthing,
                std::int16_t ellipsoid, int& error);

/// Band of a latitude and the limits of its field, radians, with the exceptions of Norway and
/// Svalbard.
///
/// @param letter    band letter, or 0 to be set from the latitude
/// @param latitude  not looked at when the letter is given
void LimitesBande(int& letter, double latitude, std::int16_t zone, double& south, double& north,
                  double& east, double& west);

/// Zone of a point, with the exceptions of Norway and Svalbard. A limit between two zones of
/// Svalbard belongs to the western one, all others to the eastern one.
std::int16_t ZoneMgrs(double latitude, double longitude);

/// Latitude and longitude to UTM and to an MGRS reference or a text of failure. Northing and
/// easting are exact; the reference is rounded to the metre, halves away from zero (not
/// truncated, as military use has it). Polar regions give zone, northing and easting 0.
void LatLonVersMgrs(double a, double f, double latitude, double longitude, std::int16_t& zone,
                    double& northing, double& easting, std::string& mgrs, std::int16_t ellipsoid);
void LatLonVersMgrs(const UtmSeries& series, double latitude, double longitude, std::int16_t& zone,
                    double& northing, double& easting, std::string& mgrs, std::int16_t ellipsoid);

/// The reference of a UTM position. Never throws: any fault is MgrsFailure::UtmError.
///
/// @param latitude, longitude  of the same point; the latitude gives the band
/// @param northing             counted from 10,000,000 in the south
void UtmVersMgrs(double a, double f, double latitude, double longitude, std::int16_t zone,
                 double northing, double easting, std::string& mgrs, std::int16_t ellipsoid);

/// A reference to its point. The text may be anything. What lacks the form above, a zone beyond
/// 60, a band that does not exist, and 32X, 34X and 36X are MgrsFailure::Invalid; square letters
/// that the zone does not use are read as the arithmetic takes them, but are always
/// MgrsFailure::OutsideRange.
///
/// @param mgrs      15 characters, upper case; takes the text of failure
/// @param northing  positive, counted from 10,000,000 in the south
/// @param error     1 on failure: latitude, longitude, northing and easting are then 0, or with
///                  MgrsFailure::OutsideRange what was computed; else 0
void MgrsVersLatLon(std::string& mgrs, std::int16_t ellipsoid, double a, double f, double& latitude,
                    double& longitude, std::int16_t& zone, double& northing, double& easting,
                    int& error);
void MgrsVersLatLon(std::string& mgrs, std::int16_t ellipsoid, const UtmSeries& series,
                    double& latitude, double& longitude, std::int16_t& zone, double& northing,
                    double& easting, int& error);

}  // namespace talpena

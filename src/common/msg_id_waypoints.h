// Base ids of the windows of the waypoint imports, and of what they remark.
#pragma once

namespace talpena::MsgId {

// Options.
inline constexpr int OptionsGarmin = 630;     // "Options of the waypoint import"
inline constexpr int Altitude = 631;          // "Altitude"
inline constexpr int GarminSans = 632;        // "None", and the two other ways behind it
inline constexpr int PremierCaractere = 635;  // "First character:"
inline constexpr int NombreCaracteres = 636;  // "Number of characters:"
inline constexpr int GarminFormat = 637;      // "Written as:"
inline constexpr int GarminExemple = 638;     // "Sample:"

// Remarks, one line each.
inline constexpr int PositionsUtmNonLues = 639;  // "Positions on grid UTM are not read: ..."
inline constexpr int GarminSansDatum = 641;      // "No datum is known for this file: ..."
inline constexpr int SiecleWpt = 642;            // "The dates of .wpt files are taken as 19xx: ..."

inline constexpr int PointsDuFichier = 643;  // "Waypoints of the file"

}  // namespace talpena::MsgId

// The datum catalogue and the movement of points between datums. Loading and look-up are in
// datum_catalogue.cpp, the arithmetic is in molodensky.cpp, receivers' names are in gps_datum.cpp.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/msg_id.h"
#include "coords/state.h"
#include "platform/platform.h"

namespace talpena {

/// Degrees and radians with the ten-digit pi of all stored coordinates.
inline constexpr double Pi10 = 3.1415926535;
constexpr double EnRadians(double degrees) { return degrees * (Pi10 / 180); }
constexpr double EnDegres(double radians) { return radians * (180 / Pi10); }

/// Thrown by ChargeDatums when the user gave no catalogue, or gave up its reading: the process has
/// to end.
struct CatalogueRefused {};

/// Where DATUM.MDB should be: setting "TLP"/"Datum"/"DB", by default the program's folder.
std::string CheminDatums(const CoordState& state, SettingsStore& settings);

/// Reads DATUM.MDB (see CheminDatums) into the catalogue, which is emptied first. A missing file is
/// asked for (message 800) and its path kept in the setting; Cancel throws CatalogueRefused, while
/// the file is read too. Any other failure is shown and leaves what was read: a number that is Null
/// (94), no number (13) or too large for its field (6), and whatever the table engine raises.
void ChargeDatums(CoordState& state, Platform& io);

/// Index of the first datum with a code, compared trimmed and as it is written; 0 when the
/// catalogue lacks it. 0 is outside the catalogue: callers test it (message 808).
std::int16_t ChercheDatum(const DatumCatalogue& catalogue, std::string_view code);

/// Whether coordinates in UTM and MGRS may stand on a datum (message 807).
inline bool PermetUtm(const DatumRecord& datum) { return datum.use >= 2; }

/// Beeps and tells message 808 with the codes, one or more in one text, that the catalogue lacks.
void DitDatumAbsent(const CoordState& state, Platform& io, std::string_view codes);
/// The same of codes one by one, of which a blank one stands in quotes.
void DitDatumsAbsents(const CoordState& state, Platform& io, const std::vector<std::string>& codes);

/// Sets DemiGrandAxe, Aplatissement, DemiPetitAxe and EllipsoideCourant to the ellipsoid of a
/// datum. An index outside the catalogue, of the datum or of its ellipsoid, raises
/// SubscriptOutOfRange (9), an inverse flattening of 0 DivisionByZero (11), and both leave the
/// four as they were.
void ChoisitEllipsoide(DatumCatalogue& catalogue, std::int16_t datum);

/// Moves a point from one datum to another: a Molodensky step to WGS84 and one away from it.
/// The same datum twice gives the point back bit for bit, whatever its index; "WGS84" as target
/// needs the first step alone. Failures as in MolodenskyDatum.
///
/// @param latitude, longitude  decimal degrees, on the source
/// @param height               metres above its ellipsoid; every caller passes 0
/// @param outLatitude, outLongitude  decimal degrees, on the target; may be the caller's inputs
void ConvertitDatum(const DatumCatalogue& catalogue, double latitude, double longitude,
                    double height, double& outLatitude, double& outLongitude, std::int16_t source,
                    std::int16_t target);

/// One Molodensky step on the ellipsoid of the datum. Within 0.5 % of the length of the exact
/// shift up to 60 degrees of latitude, 0.1 m for most datums; nearer the poles the stored form
/// of the radii (see molodensky.cpp) departs by metres. It never changes, since every stored
/// coordinate was shifted with it.
/// Source: Defense Mapping Agency, TR 8350.2, standard Molodensky formulas, but for the radii.
///
/// Raises SubscriptOutOfRange (9) for an index outside the catalogue, Overflow (6) or
/// DivisionByZero (11) for a catalogue row without sense, InvalidCall (5) for a latitude beyond
/// 690 degrees, where the radii have no value.
///
/// @param direction  +1 from the datum to WGS84, -1 from WGS84 to the datum
void MolodenskyDatum(const DatumCatalogue& catalogue, double latitude, double longitude,
                     double height, double& outLatitude, double& outLongitude, std::int16_t datum,
                     int direction);

/// One step to WGS84 with explicit shifts, as receivers send them for user datums.
///
/// @param da  6378137 less the semi-major axis, metres; 0 stands for that of WGS84
/// @param df  flattening term of the receiver; 0 stands for the flattening of WGS84
/// @param dx, dy, dz  metres
void MolodenskyParametres(double latitude, double longitude, double height, double da, double df,
                          double dx, double dy, double dz, double& outLatitude,
                          double& outLongitude);

/// A receiver's datum name and the code that it stands for.
struct GpsDatum {
  std::string_view name;
  std::string_view code;
};

/// The names in the order in which they are tried.
const std::array<GpsDatum, 98>& NomsGps();

/// DatumCode of a receiver's datum name, in any case; "" when unknown. Not padded.
std::string GpsDatumVersCode(std::string_view name);

/// A column of the datum list: key, heading, width at first.
struct DatumListColumn {
  std::string_view key;
  int heading;              ///< id of the string table; 0 for a symbol
  std::string_view symbol;  ///< the same in every language
  int widthTwips;
};

inline constexpr std::array<DatumListColumn, 7> ColonnesDatums{{
    {"CODE", MsgId::DatumCode, "", 780},
    {"NOM", MsgId::DatumNom, "", 2800},
    {"USAGE", MsgId::DatumUsage, "", 3000},
    {"ELLI", MsgId::Ellipsoide, "", 1840},
    {"DX", 0, "dx", 500},
    {"DY", 0, "dy", 500},
    {"DZ", 0, "dz", 500},
}};

/// A row of the datum list: code (trimmed), name, area of use, ellipsoid name, dx, dy, dz by Str.
using DatumListRow = std::array<std::string, ColonnesDatums.size()>;

/// One row per datum, in the order of the catalogue. A datum whose ellipsoid the catalogue lacks
/// raises SubscriptOutOfRange (9).
std::vector<DatumListRow> RempliListesDatums(const DatumCatalogue& catalogue);

}  // namespace talpena

// The datum catalogue and the movement of points between datums.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "coords/state.h"
#include "platform/platform.h"

namespace talpena {

/// Degrees and radians with the ten-digit pi of all stored coordinates.
inline constexpr double Pi10 = 3.1415926535;
constexpr double EnRadians(double degrees) { return degrees * (Pi10 / 180); }
constexpr double EnDegres(double radians) { return radians * (180 / Pi10); }

/// Thrown by ChargeDatums when the user gave no catalogue: the process has to end.
struct CatalogueRefused {};

/// Reads DATUM.MDB, named by setting "TLP"/"Datum"/"DB" (default: the program's folder), into
/// the catalogue. A missing file is asked for; Cancel throws CatalogueRefused. Any other failure
/// is shown and leaves what was read.
void ChargeDatums(CoordState& state, Platform& io);

/// Index of a code, compared trimmed; 0 when the catalogue lacks it.
std::int16_t ChercheDatum(const DatumCatalogue& catalogue, std::string_view code);

/// Sets the current ellipsoid to that of a datum.
void ChoisitEllipsoide(DatumCatalogue& catalogue, std::int16_t datum);

/// Moves a point from one datum to another. Decimal degrees in and out, height in metres.
void ConvertitDatum(const DatumCatalogue& catalogue, double latitude, double longitude,
                    double height, double& outLatitude, double& outLongitude, std::int16_t source,
                    std::int16_t target);

/// One Molodensky step: direction +1 from the datum to WGS84, -1 back.
void MolodenskyDatum(const DatumCatalogue& catalogue, double latitude, double longitude,
                     double height, double& outLatitude, double& outLongitude, std::int16_t datum,
                     int direction);

/// One step with explicit shifts, as receivers send them for user datums.
void MolodenskyParametres(double latitude, double longitude, double height, double da, double df,
                          double dx, double dy, double dz, double& outLatitude,
                          double& outLongitude);

/// DatumCode of a receiver's datum name, in any case; "" when unknown.
std::string GpsDatumVersCode(std::string_view name);

/// A row of the datum list: code, name, usage, ellipsoid name, dx, dy, dz as shown.
using DatumListRow = std::array<std::string, 7>;
std::vector<DatumListRow> RempliListesDatums(const DatumCatalogue& catalogue);

}  // namespace talpena

// The projections of the vector maps, on the International ellipsoid. Every parameter,
// result and named intermediate is stored in 32 bits; functions are evaluated in double.
#pragma once
#include <cstddef>
#include <span>

#include "maps/map_state.h"

namespace talpena {

/// The factors k6, k7 and k8, which no map file changes.
void InitFacteurs(MapState& carte);

/// Constants of the conformal conic from its standard parallels, degrees. Equal parallels raise
/// Overflow or DivisionByZero, as any fault of the arithmetic does.
void DefConstantes(MapState& carte, float parallel1, float parallel2);
void StereoInit(MapState& carte, float lat0);  ///< radians
void OrthoInit(MapState& carte, float lat0);   ///< radians

/// What the projection of the map needs before its box: the constants of its own code.
void InitProjection(MapState& carte);

/// The box of a georeferenced map, and its central meridian in radians. Of a map of code 0 the
/// width, the height and the larger of them, from its extents.
void InitBoite(MapState& carte);

/// Latitude and longitude in radians to kilometres. With a code that is none of Projections() X and
/// Y stay as they are. A result that is no number, or beyond the range of a float, raises Overflow
/// (6) or DivisionByZero (11).
void Project(const MapState& carte, float lat, float lon, float& X, float& Y);

/// The same for many points, results equal to those of Project: also where it writes one of them
/// (Y behind a polar map) or none. A point that fails gives HORS_CARTE twice.
void ProjectPoints(const MapState& carte, std::span<const float> lat, std::span<const float> lon,
                   std::span<float> X, std::span<float> Y);

/// Kilometres to latitude and longitude in radians. With a code that is none of Projections()
/// nothing is written. Faults of the arithmetic are raised as by Project; it ends for every X and
/// Y.
void ProjectionInverse(const MapState& carte, float X, float Y, float& lat, float& lon);

/// A longitude, degrees, moved by the shift of the map file. No drawing goes through it.
float ChangeLongi(const MapState& carte, float lon);

float radian(float degrees);
float Degre(float radians);
float Log10(float x);
float ArcSinus(float x);       ///< 0 for 1 and -1
float ATN2(float y, float x);  ///< from -pi/2 to 3 pi/2
float ADJLZ0(float lon);       ///< within pi + 0.01

}  // namespace talpena

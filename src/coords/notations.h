// What the rows of the table of systems point at: the reading and the writing of each notation, its
// projection where it has metres, the checks of its boxes. For systems.cpp; others go through
// InfoDe. Texts are in upper case; failures as in CoordSystemInfo.
#pragma once
#include <span>
#include <string>
#include <string_view>

#include "coords/systems.h"

namespace talpena {

// Reading: notation_readers.cpp.
Place LitDegres(CoordState& state, CoordSystem system, std::string_view original);
Place LitDms(CoordState& state, CoordSystem system, std::string_view original);
Place LitUtm(CoordState& state, CoordSystem system, std::string_view original);
Place LitMgrs(CoordState& state, CoordSystem system, std::string_view original);
Place LitGrades(CoordState& state, CoordSystem system, std::string_view original);
Place LitBritish(CoordState& state, CoordSystem system, std::string_view original);
Place LitIrish(CoordState& state, CoordSystem system, std::string_view original);
Place LitMetres(CoordState& state, CoordSystem system, std::string_view original);  ///< by `plane`
Place LitIfbl(CoordState& state, CoordSystem system, std::string_view original);

// Writing: forward_text.cpp.
std::string EcritGrades(CoordState& state, CoordSystem system, double latitude, double longitude);
std::string EcritBritish(CoordState& state, CoordSystem system, double latitude, double longitude);
std::string EcritIrish(CoordState& state, CoordSystem system, double latitude, double longitude);
std::string EcritMetres(CoordState& state, CoordSystem system, double latitude, double longitude);
std::string EcritIfbl(CoordState& state, CoordSystem system, double latitude, double longitude);

// Checks: notation_checks.cpp.
bool NommeCarreBritish(std::span<const std::string> tokens);
bool NommeCarreIrish(std::span<const std::string> tokens);
bool NommeCarreBelge(std::span<const std::string> tokens);

// Projections onto metres, both ways: planes.cpp. The zones are those of coords/lambert.h.
void VersLambertBelge(CoordState& state, int zone, double latitude, double longitude, double& x,
                      double& y);
void DeLambertBelge(CoordState& state, int zone, double x, double y, double& latitude,
                    double& longitude);
void VersLambertFrance(CoordState& state, int zone, double latitude, double longitude, double& x,
                       double& y);
void DeLambertFrance(CoordState& state, int zone, double x, double y, double& latitude,
                     double& longitude);
void VersLambertMaroc(CoordState& state, int zone, double latitude, double longitude, double& x,
                      double& y);
void DeLambertMaroc(CoordState& state, int zone, double x, double y, double& latitude,
                    double& longitude);

}  // namespace talpena

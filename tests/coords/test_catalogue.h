// The catalogue of data/datum without a table engine, for tests of the arithmetic.
#pragma once
#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>

#include "coords/datum.h"
#include "datum_source.h"

namespace talpena::test {

inline CatalogueSource Sources() {
  const std::string folder = TALPENA_SOURCE_DIR "/data/datum/";
  return LitSourceCatalogue(folder + "datums.csv", folder + "ellipsoids.csv");
}

/// In the order that ChargeDatums gives the rows.
inline DatumCatalogue CatalogueDesSources() {
  CatalogueSource source = Sources();
  std::sort(source.datums.begin(), source.datums.end(),
            [](const DatumSource& a, const DatumSource& b) {
              return std::tie(a.name, a.applic, a.code) < std::tie(b.name, b.applic, b.code);
            });
  DatumCatalogue catalogue;
  for (const EllipsoidSource& e : source.ellipsoids) {
    catalogue.Ellipsoides.push_back({static_cast<std::int16_t>(e.id), e.code, e.name, e.a, e.fInv});
  }
  for (const DatumSource& d : source.datums) {
    std::string code = d.code;
    code.resize(5, ' ');
    catalogue.Datums.push_back({static_cast<std::int16_t>(d.da), d.df, d.dx, d.dy, d.dz,
                                static_cast<std::int16_t>(d.ellipsoid), code, d.name, d.applic,
                                static_cast<std::int16_t>(source.Use(d))});
  }
  catalogue.DatumWgs84 = ChercheDatum(catalogue, "WGS84");
  catalogue.DatumEur = ChercheDatum(catalogue, "EUR-M");
  for (std::size_t slot = 1; slot < CodesSpeciaux.size(); ++slot) {
    catalogue.DatumsSpeciaux[slot] = ChercheDatum(catalogue, CodesSpeciaux[slot]);
  }
  return catalogue;
}

/// Distance of two near points on the sphere, metres; good enough for tolerances.
inline double Metres(double latitude1, double longitude1, double latitude2, double longitude2) {
  constexpr double metresPerDegree = 111319.49;
  const double north = (latitude2 - latitude1) * metresPerDegree;
  const double east = std::remainder(longitude2 - longitude1, 360.0) * metresPerDegree *
                      std::cos(EnRadians((latitude1 + latitude2) / 2));
  return std::hypot(north, east);
}

}  // namespace talpena::test

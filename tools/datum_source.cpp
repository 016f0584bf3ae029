#include "datum_source.h"

#include "csv_table.h"

namespace talpena {

int CatalogueSource::Use(const DatumSource& datum) const {
  constexpr int mgrs = 2, degreesOnly = 1;
  return ellipsoids.at(static_cast<std::size_t>(datum.ellipsoid) - 1).mgrs ? mgrs : degreesOnly;
}

CatalogueSource LitSourceCatalogue(const std::string& datumsCsv, const std::string& ellipsoidsCsv) {
  CatalogueSource all;
  const CsvTable ellipsoids(ellipsoidsCsv);
  for (std::size_t i = 0; i < ellipsoids.Nombre(); ++i) {
    const EllipsoidSource e{.id = ellipsoids.Entier(i, "id"),
                            .code = ellipsoids.Texte(i, "code"),
                            .name = ellipsoids.Texte(i, "name"),
                            .a = ellipsoids.Reel(i, "a"),
                            .fInv = ellipsoids.Reel(i, "f_inv"),
                            .mgrs = ellipsoids.Entier(i, "mgrs") != 0};
    // The program takes an id for a position in the table.
    if (e.id != static_cast<int>(i) + 1) ellipsoids.Echec("id out of order: " + e.code);
    all.ellipsoids.push_back(e);
  }
  const CsvTable datums(datumsCsv);
  for (std::size_t i = 0; i < datums.Nombre(); ++i) {
    const DatumSource d{.code = datums.Texte(i, "code"),
                        .name = datums.Texte(i, "name"),
                        .applic = datums.Texte(i, "applic"),
                        .ellipsoid = datums.Entier(i, "ellipsoid_id"),
                        .da = datums.Entier(i, "da"),
                        .df = datums.Reel(i, "df"),
                        .dx = datums.Reel(i, "dx"),
                        .dy = datums.Reel(i, "dy"),
                        .dz = datums.Reel(i, "dz")};
    if (d.ellipsoid < 1 || d.ellipsoid > static_cast<int>(all.ellipsoids.size())) {
      datums.Echec("unknown ellipsoid of " + d.code);
    }
    all.datums.push_back(d);
  }
  return all;
}

}  // namespace talpena

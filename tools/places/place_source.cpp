#include "places/place_source.h"

#include <cmath>

#include "csv_table.h"
#include "places/gzip_file.h"

namespace talpena {
namespace {

int Unites(double degrees) { return static_cast<int>(std::lround(degrees * Place::UnitsOfDegree)); }

}  // namespace

std::vector<Place> LitLieuxPublies(const std::string& path) {
  const CsvTable table(path, LitGzip(path));
  std::vector<Place> places(table.Nombre());
  for (std::size_t row = 0; row < places.size(); ++row) {
    places[row] = {.name = table.Texte(row, "name"),
                   .key = table.Texte(row, "sort_name"),
                   .latitude = Unites(table.Reel(row, "latitude")),
                   .longitude = Unites(table.Reel(row, "longitude")),
                   .feature = table.Texte(row, "feature_code"),
                   .country = table.Texte(row, "country_code"),
                   .province = table.Texte(row, "admin_name")};
  }
  return places;
}

}  // namespace talpena

// X and Y of exported rows.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "coord_commands/row_walk.h"
#include "coords/state.h"

namespace talpena {

/// Metres in Belgian Lambert 1972.
struct LambertPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const LambertPoint&) const = default;
};

class LambertPoints {
 public:
  explicit LambertPoints(CoordState& state)
      : state_(state), datums_(state.Catalogue, DatumCodes::AsWritten) {}

  /// The point of a row, whose latitude and longitude are taken as standing on its DATUM although
  /// they are on the datum of the file: exported files have always been made so. Rounded to whole
  /// metres, halves to even. 0 and 0 where the catalogue lacks the code, or BEL72.
  ///
  /// The default datum of spherical coordinates (DatumSpherique) is that of the row from then on;
  /// a code that the catalogue lacks leaves it alone. Fails as ConvertitDatum and
  /// LatLonVersLambertBelge do, and by Overflow (6) beyond 32 bits.
  LambertPoint Calcule(std::string_view datum, float latitude, float longitude);

  /// The codes that the catalogue lacks, each once.
  const std::vector<std::string>& DatumsInconnus() const { return datums_.Inconnus(); }

 private:
  CoordState& state_;
  DatumsDesLignes datums_;
};

}  // namespace talpena

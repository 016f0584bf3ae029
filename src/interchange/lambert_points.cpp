#include "interchange/lambert_points.h"

#include "common/numbers.h"
#include "coords/datum.h"
#include "coords/lambert.h"
#include "coords/special_datums.h"

namespace talpena {

LambertPoint LambertPoints::Calcule(std::string_view datum, float latitude, float longitude) {
  const std::int16_t source = datums_.Indice(datum);
  if (source == 0) return {};
  state_.DatumSpherique = source;
  const std::int16_t bel72 = datums_.Indice(CodeSpecial(SystemDatum::Bel72));
  if (bel72 == 0) return {};
  double phi = latitude, lambda = longitude;
  ConvertitDatum(state_.Catalogue, phi, lambda, 0, phi, lambda, source, bel72);
  double x = 0, y = 0;
  LatLonVersLambertBelge(phi, lambda, x, y);
  return {Arrondi32(x), Arrondi32(y)};
}

}  // namespace talpena

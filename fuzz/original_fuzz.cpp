// ORIGINAL as any text: it ends at once, with finite numbers or 999, and what is snapped or moved
// to another datum from there is finite too or fails with a known number.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "check.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coord_commands/adjust_row.h"
#include "coords/datum.h"
#include "coords/original.h"
#include "coords/tokens.h"

using namespace talpena;

namespace {

constexpr std::int16_t datumFichier = 2;

/// Five datums on three ellipsoids; one of them has no MGRS.
CoordState Etat() {
  CoordState state;
  DatumCatalogue& c = state.Catalogue;
  c.Ellipsoides = {{1, "AI", "one", 6377563.396, 299.3249646},
                   {2, "IN", "two", 6378388, 297},
                   {24, "XX", "three", 6378137, 298.257223563}};
  c.Datums = {{0, 0, 0, 0, 0, 3, "WGS84", "", "", 1},
              {-251, -0.000014192702, -87, -98, -121, 2, "EUR-M", "", "", 2},
              {574, 0.000119600236, 375, -111, 431, 1, "OGB-M", "", "", 2},
              {574, 0.000119600236, 506, -122, 611, 1, "IRL  ", "", "", 2},
              {-251, -0.000014192702, -99, 60, -183, 2, "BEL72", "", "", 2}};
  c.DatumWgs84 = 1;
  c.DatumEur = 2;
  c.DatumsSpeciaux = {0, 2, 2, 3, 4, 5, 2};
  return state;
}

/// Read as it is made readable, a text names the same point.
void VerifieLisible(CoordState& state, const std::string& original, std::int16_t datum,
                    const RowPoint& read) {
  std::string readable, code;
  OriginalLisible(original, readable);
  fuzz::Verifie(EstAscii(readable) && readable.size() <= CompteCaracteres(original));
  double latitude = 0, longitude = 0;
  DecodeOriginal(state, readable, datum, latitude, longitude, code);
  fuzz::Verifie(latitude == read.latitude && longitude == read.longitude);
}

void VerifieLigne(CoordState& state, const RowPoint& read, int choice) {
  RowPoint row = read;
  state.MailleChoisie = static_cast<std::int16_t>(choice % 8);
  state.GrilleChoisie = static_cast<std::int16_t>(1 + choice / 8 % 3);
  try {
    const bool kept = choice % 2 == 0
                          ? AjusteSurGrille(state, row, datumFichier)
                          : AjusteSurIfbl(state, row, datumFichier, 2 * (1 + choice % 3));
    fuzz::Verifie(!kept || (std::isfinite(row.latitude) && std::isfinite(row.longitude)));
  } catch (const TalpenaError& error) {
    fuzz::Verifie(error.number() == ErrorNumber::InvalidCall ||
                  error.number() == ErrorNumber::Overflow ||
                  error.number() == ErrorNumber::DivisionByZero);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  static CoordState state = Etat();
  const auto datum = static_cast<std::int16_t>(1 + data[0] % 5);
  const int choice = data[1];
  const std::string original = Majuscules(
      Rogne({reinterpret_cast<const char*>(data) + 2, std::min<std::size_t>(size - 2, 24)}));
  RowPoint row;
  std::string code;
  DecodeOriginal(state, original, datum, row.latitude, row.longitude, code);
  fuzz::Verifie(std::isfinite(row.latitude) && std::isfinite(row.longitude));
  VerifieLisible(state, original, datum, row);
  if (row.latitude == EchecCoord) return 0;
  row.original = original;
  row.code = code;
  row.datum = datum;
  VerifieLigne(state, row, choice);
  return 0;
}

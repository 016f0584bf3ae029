#include "coord_commands/row_point_reader.h"

#include "common/talpena_error.h"
#include "coords/globe.h"
#include "coords/original.h"
#include "coords/snap.h"
#include "coords/tokens.h"

namespace talpena {

using Outcome = ReadPoint::Outcome;

ReadPoint RowPointReader::Lit(std::string_view datum, std::optional<std::string_view> original) {
  if (!original) return {Outcome::SansOriginal};
  row_.datum = datums_.Indice(datum);
  if (row_.datum == 0) return {Outcome::DatumInconnu};
  OriginalLisible(*original, original_);
  const Lecture read =
      DecodeOriginal(state_, original_, row_.datum, row_.latitude, row_.longitude, code_);
  if (read == Lecture::Aucun) return {Outcome::Illisible};
  row_.original = original_;
  row_.code = code_;
  if (read == Lecture::Point && RameneSurGlobe(row_.latitude, row_.longitude)) return Place();
  return {.outcome = Outcome::Faute, .faute = FauteDeLecture(row_)};
}

ReadPoint RowPointReader::Place() {
  try {
    if (!adjust_(row_)) return {Outcome::Laisse};
    if (RameneSurGlobe(row_.latitude, row_.longitude)) {
      return {Outcome::Point, CinqDecimales(row_.latitude), CinqDecimales(row_.longitude)};
    }
  } catch (const TalpenaError& error) {
    if (!EstFauteDeCalcul(error)) throw;
  }
  return {.outcome = Outcome::Faute, .faute = {FauteDeLigne::Cause::SansPlace}};
}

}  // namespace talpena

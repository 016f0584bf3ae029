// The channel of an EPS file, and the place of the map on its page.
#include <algorithm>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/faults.h"
#include "maps/eps.h"

namespace talpena {
namespace {

constexpr std::size_t BlockBytes = std::size_t{1} << 16;

constexpr double LongerSide = 500;  // points, of the map on the page
constexpr std::int16_t RoomBelow = 20;

/// As a float; what is beyond its range lies off every page.
float EnPoints(double value) {
  return static_cast<float>(
      std::clamp(value, -static_cast<double>(HORS_CARTE), static_cast<double>(HORS_CARTE)));
}

}  // namespace

void EpsOutput::Ligne(std::string_view utf8) {
  if (EstAscii(utf8)) return LigneBrute(utf8);
  std::string missing;
  const auto bytes = Utf8VersCp1252(utf8, &missing);
  if (!bytes) {
    throw TalpenaError(ErrorNumber::NotInCodePage,
                       "The character " + missing + " is not in code page 1252.",
                       {.text = MsgId::TexteSansCaractere, .about = {missing}});
  }
  LigneBrute(*bytes);
}

void EpsOutput::LigneBrute(std::string_view bytes) {
  waiting_ += bytes;
  waiting_ += "\r\n";
  if (waiting_.size() >= BlockBytes) Vide();
}

void EpsOutput::Vide() {
  if (waiting_.empty()) return;
  const std::string block = std::exchange(waiting_, {});
  file_.Ecrit(block);
}

void CalculeCadreEPS(MapState& carte) {
  const std::int16_t w = Arrondi16(Divise(LongerSide * carte.LargeurKm, carte.CoteKm));
  const std::int16_t h = Arrondi16(Divise(LongerSide * carte.HauteurKm, carte.CoteKm));
  carte.CadreEPS = {w, h, static_cast<std::int16_t>(w + PageGauche),
                    static_cast<std::int16_t>(PageHaut - h - RoomBelow)};
}

float RayonSurPage(const MapState& carte, float diameter) {
  return EnPoints(Divise(diameter, carte.CoteKm) * LongerSide / 2);
}

PagePoint SurPage(const MapState& carte, float X, float Y) {
  const double w = carte.CadreEPS[0], h = carte.CadreEPS[1];
  const double x = Divise(double{X} - carte.XGauche, carte.LargeurKm);
  const double y = Divise(double{Y} - carte.YBas, carte.HauteurKm);
  return {EnPoints(x * w + PageGauche), EnPoints(y * h + PageHaut - h)};
}

}  // namespace talpena

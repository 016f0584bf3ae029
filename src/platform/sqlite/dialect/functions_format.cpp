// Format.
#include <cmath>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/sqlite/columns.h"
#include "platform/sqlite/dialect/function_call.h"
#include "platform/sqlite/dialect/functions.h"
#include "platform/sqlite/dialect/picture.h"

namespace talpena::sqlite {
namespace {

/// A text that is neither number nor date: a picture can only change its letters.
std::string FormateTexte(std::string_view text, std::string_view picture) {
  if (picture.find('>') != std::string_view::npos) return Majuscules(text);
  if (picture.find('<') != std::string_view::npos) return Minuscules(text);
  return std::string(text);
}

std::string FormateSelonTexte(std::string_view text, std::string_view picture) {
  double days = 0;
  const bool date = EstImageDeDate(picture);
  if (date && LitDate(text, days)) return FormateDate(days, picture);
  if (!EstNumerique(text)) return FormateTexte(text, picture);
  const double number = Val(Remplace(text, ",", "."));
  return date ? FormateDate(number, picture) : FormateNombre(number, picture);
}

// (value, picture, 1 when the value is a date)
void Format(FunctionCall& call) {
  const std::string_view picture = call.Texte(1);
  if (CompteCaracteres(picture) > LongestPicture) return call.Echoue(AppelInvalide());
  if (call.EstNull(0)) return call.Rend(std::string_view());
  if (call.EstTexte(0)) {
    try {
      return call.Rend(std::string_view(FormateSelonTexte(call.Texte(0), picture)));
    } catch (const TalpenaError& error) {
      return call.Echoue(error);
    }
  }
  const bool date = call.Entier(2) != 0 || EstImageDeDate(picture);
  const double value = call.Reel(0);
  if (!std::isfinite(value)) return call.Echoue(Debordement());
  call.Rend(std::string_view(date ? FormateDate(value, picture) : FormateNombre(value, picture)));
}

}  // namespace

void EnregistreFormat(Connection& connection) { Enregistre<Format>(connection, "tlp_format", 3); }

}  // namespace talpena::sqlite

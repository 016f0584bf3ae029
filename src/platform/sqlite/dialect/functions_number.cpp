// Functions over numbers and dates that a user's condition may call, and the operators that
// SQLite has otherwise.
#include <cmath>
#include <limits>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/sqlite/columns.h"
#include "platform/sqlite/dialect/function_call.h"
#include "platform/sqlite/dialect/functions.h"

namespace talpena::sqlite {
namespace {

TalpenaError DivisionParZero() { return {ErrorNumber::DivisionByZero, "Division by zero"}; }

// The number that a text is, Null when it is none.
void Numerique(FunctionCall& call) {
  if (!call.EstTexte(0)) {
    sqlite3_result_value(call.Contexte(), call.Valeur(0));
    return;
  }
  const std::string_view text = call.Texte(0);
  if (!EstNumerique(text)) return call.Echoue(ConversionImpossible());
  try {
    call.Rend(Val(Remplace(text, ",", ".")));
  } catch (const TalpenaError& error) {
    call.Echoue(error);
  }
}

void Simple(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  const double value = call.Reel(0);
  if (std::abs(value) > std::numeric_limits<float>::max()) return call.Rend(value);
  call.Rend(static_cast<double>(static_cast<float>(value)));
}

template <double (*f)(double)>
void Reelle(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  call.Rend(f(call.Reel(0)));
}

void Racine(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  if (call.Reel(0) < 0) return call.Echoue(AppelInvalide());
  call.Rend(std::sqrt(call.Reel(0)));
}

void Logarithme(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  if (call.Reel(0) <= 0) return call.Echoue(AppelInvalide());
  call.Rend(std::log(call.Reel(0)));
}

void Arrondit(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  const double places = call.Nombre() == 2 ? std::nearbyint(call.Reel(1)) : 0;
  if (places < 0) return call.Echoue(AppelInvalide());
  const double scale = std::pow(10.0, std::fmin(places, 300));
  const double scaled = call.Reel(0) * scale;
  if (std::abs(scaled) > 4503599627370496.0) return call.Rend(call.Reel(0));  // no fraction left
  call.Rend(std::nearbyint(scaled) / scale);
}

void Signe(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  const double value = call.Reel(0);
  call.Rend(std::int64_t{value > 0 ? 1 : value < 0 ? -1 : 0});
}

bool Entier32(FunctionCall& call, int i, std::int64_t& value) {
  const double rounded = std::nearbyint(call.Reel(i));
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    call.Echoue(Debordement());
    return false;
  }
  value = static_cast<std::int64_t>(rounded);
  return true;
}

void EnLong(FunctionCall& call) {
  std::int64_t value = 0;
  if (call.UnNull()) return call.RendNull();
  if (Entier32(call, 0, value)) call.Rend(value);
}

void EnEntier(FunctionCall& call) {
  std::int64_t value = 0;
  if (call.UnNull()) return call.RendNull();
  if (!Entier32(call, 0, value)) return;
  if (value != static_cast<std::int16_t>(value)) return call.Echoue(Debordement());
  call.Rend(value);
}

void EnMonnaie(FunctionCall& call) {
  constexpr double unit = 10000, largest = 922337203685477.5807;
  if (call.UnNull()) return call.RendNull();
  const double value = call.Reel(0);
  if (!(std::abs(value) <= largest)) return call.Echoue(Debordement());
  call.Rend(std::nearbyint(value * unit) / unit);
}

void Divise(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  if (call.Reel(1) == 0) return call.Echoue(DivisionParZero());
  call.Rend(call.Reel(0) / call.Reel(1));
}

void DiviseEntier(FunctionCall& call) {
  std::int64_t a = 0;
  std::int64_t b = 0;
  if (call.UnNull()) return call.RendNull();
  if (!Entier32(call, 0, a) || !Entier32(call, 1, b)) return;
  if (b == 0) return call.Echoue(DivisionParZero());
  call.Rend(a / b);
}

void Reste(FunctionCall& call) {
  std::int64_t a = 0;
  std::int64_t b = 0;
  if (call.UnNull()) return call.RendNull();
  if (!Entier32(call, 0, a) || !Entier32(call, 1, b)) return;
  if (b == 0) return call.Echoue(DivisionParZero());
  call.Rend(a % b);
}

void Puissance(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  call.Rend(std::pow(call.Reel(0), call.Reel(1)));
}

// A part of a date: of a date column's number, or of a text that begins as distributions write
// their dates ("1987/05/12", where month and day may be left blank).
template <int CalendarDay::*part, std::size_t from, std::size_t count>
void PartieDate(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  if (!call.EstTexte(0)) return call.Rend(std::int64_t{JourDe(call.Reel(0)).*part});
  const std::string_view text = call.Texte(0);
  if (text.size() < from + count) return call.RendNull();
  std::int64_t value = 0;
  for (const char c : text.substr(from, count)) {
    if (c < '0' || c > '9') return call.RendNull();
    value = 10 * value + (c - '0');
  }
  call.Rend(value);
}

double Absolu(double value) { return std::abs(value); }
double Identique(double value) { return value; }
double Exponentielle(double value) { return std::exp(value); }
double Sinus(double value) { return std::sin(value); }
double Cosinus(double value) { return std::cos(value); }
double Tangente(double value) { return std::tan(value); }
double ArcTangente(double value) { return std::atan(value); }

}  // namespace

void EnregistreFonctionsNombre(Connection& connection) {
  Enregistre<Numerique>(connection, "tlp_num", 1);
  Enregistre<Simple>(connection, "tlp_single", 1);
  Enregistre<Reelle<Identique>>(connection, "tlp_cdbl", 1);
  Enregistre<EnMonnaie>(connection, "tlp_ccur", 1);
  Enregistre<EnLong>(connection, "tlp_clng", 1);
  Enregistre<EnEntier>(connection, "tlp_cint", 1);
  Enregistre<Reelle<Int>>(connection, "tlp_int", 1);
  Enregistre<Reelle<Fix>>(connection, "tlp_fix", 1);
  Enregistre<Reelle<Absolu>>(connection, "tlp_abs", 1);
  Enregistre<Signe>(connection, "tlp_sgn", 1);
  Enregistre<Racine>(connection, "tlp_sqr", 1);
  Enregistre<Arrondit>(connection, "tlp_round", 1);
  Enregistre<Arrondit>(connection, "tlp_round", 2);
  Enregistre<Logarithme>(connection, "tlp_log", 1);
  Enregistre<Reelle<Exponentielle>>(connection, "tlp_exp", 1);
  Enregistre<Reelle<Sinus>>(connection, "tlp_sin", 1);
  Enregistre<Reelle<Cosinus>>(connection, "tlp_cos", 1);
  Enregistre<Reelle<Tangente>>(connection, "tlp_tan", 1);
  Enregistre<Reelle<ArcTangente>>(connection, "tlp_atn", 1);
  Enregistre<Divise>(connection, "tlp_div", 2);
  Enregistre<DiviseEntier>(connection, "tlp_idiv", 2);
  Enregistre<Reste>(connection, "tlp_mod", 2);
  Enregistre<Puissance>(connection, "tlp_pow", 2);
  Enregistre<PartieDate<&CalendarDay::year, 0, 4>>(connection, "tlp_year", 1);
  Enregistre<PartieDate<&CalendarDay::month, 5, 2>>(connection, "tlp_month", 1);
  Enregistre<PartieDate<&CalendarDay::day, 8, 2>>(connection, "tlp_day", 1);
}

}  // namespace talpena::sqlite

// Functions over texts that a user's condition may call. Characters are code points.
#include <algorithm>
#include <cmath>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/sqlite/dialect/function_call.h"
#include "platform/sqlite/dialect/functions.h"
#include "platform/sqlite/dialect/like_pattern.h"
#include "platform/sqlite/utf8.h"

namespace talpena::sqlite {
namespace {

constexpr double LongestText = 65535;  // characters that Space and String make at most

/// An argument that counts characters; fails below `low`.
bool LitCompte(FunctionCall& call, int i, double low, std::size_t& count) {
  const double value = std::nearbyint(call.Reel(i));
  if (!(value >= low)) {
    call.Echoue(AppelInvalide());
    return false;
  }
  count = static_cast<std::size_t>(std::min(value, 2147483647.0));
  return true;
}

template <std::string (*convert)(std::string_view)>
void Casse(FunctionCall& call) {
  constexpr std::size_t piece = std::size_t{1} << 16;
  if (call.UnNull()) return call.RendNull();
  std::string converted;
  for (std::string_view left = call.Texte(0); !left.empty();) {
    const std::string_view part = PremiersCaracteres(left, piece);
    converted += convert(part);
    left.remove_prefix(part.size());
    call.Base().Travaille(piece);
  }
  call.Rend(std::string_view(converted));
}

template <std::string_view (*trim)(std::string_view)>
void Rognage(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  call.Rend(trim(call.Texte(0)));
}

void Gauche(FunctionCall& call) {
  std::size_t count = 0;
  if (call.UnNull()) return call.RendNull();
  if (LitCompte(call, 1, 0, count)) call.Rend(Caracteres(call.Texte(0), 0, count));
}

void Droite(FunctionCall& call) {
  std::size_t count = 0;
  if (call.UnNull()) return call.RendNull();
  if (!LitCompte(call, 1, 0, count)) return;
  const std::string_view text = call.Texte(0);
  const std::size_t length = CompteCaracteres(text);
  call.Rend(Caracteres(text, length > count ? length - count : 0, count));
}

void Milieu(FunctionCall& call) {
  std::size_t start = 0;
  std::size_t count = static_cast<std::size_t>(-1);
  if (call.UnNull()) return call.RendNull();
  if (!LitCompte(call, 1, 1, start)) return;
  if (call.Nombre() == 3 && !LitCompte(call, 2, 0, count)) return;
  call.Rend(Caracteres(call.Texte(0), start - 1, count));
}

void Longueur(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  call.Rend(static_cast<std::int64_t>(CompteCaracteres(call.Texte(0))));
}

std::u32string SansCasse(std::string_view text) {
  std::u32string points = PointsDeCode(text);
  std::transform(points.begin(), points.end(), points.begin(),
                 [](char32_t c) { return sqlite::SansCasse(c); });
  return points;
}

/// Place of the first `search` from a place on; npos when there is none. Long texts full of
/// beginnings of each other take their time, which is told of.
std::size_t Place(Connection& connection, const std::u32string& text, const std::u32string& search,
                  std::size_t from) {
  constexpr std::size_t most = std::size_t{1} << 20;
  const std::size_t starts = std::max<std::size_t>(most / (search.size() + 1), 1);
  for (std::size_t at = from; at + search.size() <= text.size(); at += starts) {
    const std::u32string_view part(text.data() + at,
                                   std::min(starts + search.size() - 1, text.size() - at));
    const std::size_t found = part.find(search);
    if (found != std::u32string_view::npos) return at + found;
    connection.Travaille(most);
  }
  return std::u32string::npos;
}

// InStr(text, search) or InStr(start, text, search): from 1, 0 when absent.
void Cherche(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  const int first = call.Nombre() == 3 ? 1 : 0;
  std::size_t start = 1;
  if (first == 1 && !LitCompte(call, 0, 1, start)) return;
  const std::u32string text = SansCasse(call.Texte(first));
  const std::u32string search = SansCasse(call.Texte(first + 1));
  const std::size_t found = start > text.size() + (search.empty() ? 0 : 1)
                                ? std::u32string::npos
                                : Place(call.Base(), text, search, start - 1);
  call.Rend(found == std::u32string::npos ? std::int64_t{0} : static_cast<std::int64_t>(found) + 1);
}

void RemplaceTexte(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  const std::string_view text = call.Texte(0);
  const std::string_view search = call.Texte(1);
  const std::string_view replacement = call.Texte(2);
  if (search.empty()) return call.Rend(text);
  const std::size_t possible = text.size() / search.size();
  if (possible * replacement.size() > 16u << 20) return call.Echoue(Debordement());
  call.Rend(std::string_view(Remplace(text, search, replacement)));
}

void ValeurDe(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  try {
    call.Rend(Val(call.Texte(0)));
  } catch (const TalpenaError& error) {
    call.Echoue(error);
  }
}

// With a blank in the place of the sign, as the language's own.
void EnTexte(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  const std::string_view text = call.Texte(0);
  call.Rend(std::string_view((text.starts_with('-') ? "" : " ") + std::string(text)));
}

void Caractere(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  const double code = std::nearbyint(call.Reel(0));
  if (!(code >= 0 && code <= 255)) return call.Echoue(AppelInvalide());
  const char byte = static_cast<char>(static_cast<unsigned char>(code));
  call.Rend(std::string_view(Cp1252VersUtf8(std::string_view(&byte, 1))));
}

void CodeDe(FunctionCall& call) {
  if (call.UnNull()) return call.RendNull();
  const std::string_view text = call.Texte(0);
  if (text.empty()) return call.Echoue(AppelInvalide());
  const auto byte = Utf8VersCp1252(PremiersCaracteres(text, 1));
  std::size_t at = 0;
  call.Rend(byte && !byte->empty() ? std::int64_t{static_cast<unsigned char>(byte->front())}
                                   : static_cast<std::int64_t>(LitPoint(text, at)));
}

// Repete(count, text): its first character so many times.
void Repete(FunctionCall& call) {
  std::size_t count = 0;
  if (call.UnNull()) return call.RendNull();
  if (!LitCompte(call, 0, 0, count)) return;
  if (static_cast<double>(count) > LongestText) return call.Echoue(Debordement());
  const std::string_view character = PremiersCaracteres(call.Texte(1), 1);
  if (character.empty()) return call.Echoue(AppelInvalide());
  std::string text;
  text.reserve(count * character.size());
  for (; count > 0; --count) text += character;
  call.Rend(std::string_view(text));
}

}  // namespace

void EnregistreFonctionsTexte(Connection& connection) {
  Enregistre<Casse<Majuscules>>(connection, "tlp_ucase", 1);
  Enregistre<Casse<Minuscules>>(connection, "tlp_lcase", 1);
  Enregistre<Rognage<Rogne>>(connection, "tlp_trim", 1);
  Enregistre<Rognage<RogneGauche>>(connection, "tlp_ltrim", 1);
  Enregistre<Rognage<RogneDroite>>(connection, "tlp_rtrim", 1);
  Enregistre<Gauche>(connection, "tlp_left", 2);
  Enregistre<Droite>(connection, "tlp_right", 2);
  Enregistre<Milieu>(connection, "tlp_mid", 2);
  Enregistre<Milieu>(connection, "tlp_mid", 3);
  Enregistre<Longueur>(connection, "tlp_len", 1);
  Enregistre<Cherche>(connection, "tlp_instr", 2);
  Enregistre<Cherche>(connection, "tlp_instr", 3);
  Enregistre<RemplaceTexte>(connection, "tlp_replace", 3);
  Enregistre<ValeurDe>(connection, "tlp_val", 1);
  Enregistre<EnTexte>(connection, "tlp_str", 1);
  Enregistre<Caractere>(connection, "tlp_chr", 1);
  Enregistre<CodeDe>(connection, "tlp_asc", 1);
  Enregistre<Repete>(connection, "tlp_string", 2);
}

}  // namespace talpena::sqlite

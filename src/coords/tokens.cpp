#include "coords/tokens.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "common/field_number.h"
#include "common/numbers.h"
#include "common/text.h"

namespace talpena {
namespace {

/// The pieces between single blanks, at most as many as there is room for; their number. Of a run
/// of blanks every second one counts.
std::size_t Pieces(std::string_view text, std::span<std::string_view> pieces) {
  std::size_t count = 0;
  for (std::size_t start = 0;;) {
    const std::size_t blank = text.find(' ', start);
    if (count < pieces.size()) pieces[count] = text.substr(start, blank - start);
    ++count;
    if (blank == std::string_view::npos) return count;
    const bool pair = blank + 1 < text.size() && text[blank + 1] == ' ';
    start = blank + (pair ? 2 : 1);
  }
}

/// The number of a text that has digits only, as a rule, behind its sign.
double Chiffres(std::string_view text) {
  const std::size_t sign = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  constexpr std::size_t most = 9;
  if (text.size() - sign > most || text.size() == sign) return NombreDe(text);
  int value = 0;
  for (const char c : text.substr(sign)) {
    if (c < '0' || c > '9') return NombreDe(text);
    value = value * 10 + (c - '0');
  }
  return text[0] == '-' ? -value : value;
}

double DixPuissance(std::size_t exponent) {
  constexpr std::array<double, 8> powers{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
  return exponent < powers.size() ? powers[exponent]
                                  : std::pow(10.0, static_cast<double>(exponent));
}

/// Minutes and, if there are any, seconds from the digits behind the point.
void LitMinutes(std::string_view rest, Dms& dms) {
  dms.minutes = EnSimple(Chiffres(rest.substr(0, 2)));
  if (rest.size() <= 2) return;
  const std::string_view seconds = rest.substr(2);
  const std::size_t decimals = seconds.size() < 2 ? 0 : seconds.size() - 2;
  dms.seconds = EnSimple(Chiffres(seconds) / DixPuissance(decimals));
}

constexpr std::array<std::string_view, 3> noBreakBlanks{"\u00A0", "\u2007", "\u202F"};

bool EstBlancInsecable(std::string_view character) {
  return std::find(noBreakBlanks.begin(), noBreakBlanks.end(), character) != noBreakBlanks.end();
}

/// In upper case; false, and the text begun, at the first character beyond ASCII.
bool CopieAscii(std::string_view stored, std::string& text) {
  text.clear();
  for (const char c : stored) {
    if (static_cast<unsigned char>(c) >= 0x80) return false;
    text += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return true;
}

}  // namespace

std::string AvecBlancsSimples(std::string_view text) {
  std::string simple(text);
  if (EstAscii(text)) return simple;
  for (const std::string_view blank : noBreakBlanks) simple = Remplace(simple, blank, " ");
  return simple;
}

void OriginalLisible(std::string_view stored, std::string& text) {
  if (CopieAscii(Rogne(stored), text)) return;
  std::string simple;
  while (!stored.empty()) {
    const std::string_view character = PremiersCaracteres(stored, 1);
    const char beyond = EstBlancInsecable(character) ? ' ' : Illisible;
    simple += character.size() == 1 && EstAscii(character) ? character[0] : beyond;
    stored.remove_prefix(character.size());
  }
  CopieAscii(Rogne(simple), text);
}

void DecoupeDeux(std::string_view text, std::string_view& first, std::string_view& second) {
  std::array<std::string_view, 3> pieces;
  const bool matches = Pieces(text, pieces) == pieces.size();
  first = matches ? pieces[1] : std::string_view();
  second = matches ? pieces[2] : std::string_view();
}

void DecoupeTrois(std::string_view text, std::string_view& first, std::string_view& second,
                  std::string_view& third) {
  std::array<std::string_view, 4> pieces;
  const bool matches = Pieces(text, pieces) == pieces.size();
  first = matches ? pieces[1] : std::string_view();
  second = matches ? pieces[2] : std::string_view();
  third = matches ? pieces[3] : std::string_view();
}

void RemplaceCar(std::string& text, char search, char replacement) {
  std::replace(text.begin(), text.end(), search, replacement);
}

double NombreDe(std::string_view token) {
  return EstAscii(token) ? ValChamp(token, Comma::IsPoint)
                         : ValChamp(AvecBlancsSimples(token), Comma::IsPoint);
}

void DecoupeDms(std::string_view given, Dms& dms) {
  const std::string_view text = Rogne(given);
  if (text.empty()) return;
  dms.sign = text.front() == '-' ? '-' : '+';
  const auto isPoint = [](char c) { return c == '.' || c == ','; };
  const auto point =
      static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isPoint) - text.begin());
  if (point + 1 >= text.size()) {
    dms.degrees = EnSimple(NombreDe(text));
    dms.minutes = 0;
    dms.seconds = 0;
    return;
  }
  dms.degrees = EnSimple(std::fabs(Chiffres(text.substr(0, point))));
  LitMinutes(text.substr(point + 1), dms);
}

// Extended precision where the machine has it, rounded once at the end.
double DmsVersDegres(const Dms& dms) {
  const long double degrees = dms.degrees;
  const long double minutes = dms.minutes;
  const long double seconds = dms.seconds;
  const long double value = dms.sign == '+' ? degrees + minutes / 60 + seconds / 3600
                                            : -degrees - minutes / 60 - seconds / 3600;
  return static_cast<double>(value);
}

void CompleteGrille(std::string& reference) {
  std::erase(reference, ' ');
  const bool zoned = !reference.empty() && reference[0] >= '0' && reference[0] <= '9';
  const std::size_t prefix = zoned ? 5 : 2;
  if (reference.size() <= prefix) return;
  const std::size_t digits = reference.size() - prefix;
  if (digits % 2 != 0 || digits > 8) return;
  const std::string_view filler = std::string_view("4999").substr(0, 5 - digits / 2);
  reference.append(filler);
  reference.insert(prefix + digits / 2, filler);
}

void NombrePourGrille(std::string& text) {
  if (const std::size_t comma = text.find(','); comma != std::string::npos) text[comma] = '.';
  for (std::size_t i = 1; i + 1 < text.size(); ++i) {
    if (text[i] != '0' || text[i + 1] == '.') return;
    text[i] = ' ';
  }
}

}  // namespace talpena

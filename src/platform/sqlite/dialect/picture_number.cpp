#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/sqlite/dialect/picture.h"
#include "platform/value.h"

namespace talpena::sqlite {
namespace {

struct NamedNumber {
  std::string_view name;
  std::string_view picture;
};
constexpr std::string_view general = "general number";
constexpr NamedNumber namedNumbers[] = {
    {"currency", "#,##0.00"},
    {"fixed", "0.00"},
    {"standard", "#,##0.00"},
    {"percent", "0.00%"},
    {"scientific", "0.00E+00"},
    {"yes/no", "\"Yes\";\"Yes\";\"No\""},
    {"true/false", "\"True\";\"True\";\"False\""},
    {"on/off", "\"On\";\"On\";\"Off\""},
};

/// A number above 0 or 0 as decimal digits: 0.d1d2d3... times ten to the power of `point`.
struct Decimal {
  std::string digits;
  int point = 0;

  explicit Decimal(double value) {
    constexpr int behindFirst = 14;  // 15 digits in all
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::scientific, behindFirst)
                         .ptr;
    const std::string_view written(text.data(), static_cast<std::size_t>(end - text.data()));
    const std::size_t e = written.find('e');
    for (const char c : written.substr(0, e)) {
      if (c != '.') digits += c;
    }
    int exponent = 0;
    std::string_view power = written.substr(e + 1);
    if (power.starts_with('+')) power.remove_prefix(1);
    std::from_chars(power.data(), power.data() + power.size(), exponent);
    point = value == 0 ? 0 : exponent + 1;
    if (value == 0) digits.clear();
  }

  /// Halves away from 0.
  void Arrondit(int decimals) {
    const int kept = point + decimals;
    if (kept < 0) digits.clear();
    if (kept < 0 || static_cast<std::size_t>(kept) >= digits.size()) return;
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits.resize(static_cast<std::size_t>(kept));
    if (!up) return;
    std::size_t i = digits.size();
    while (i > 0 && digits[i - 1] == '9') digits[--i] = '0';
    if (i > 0) {
      ++digits[i - 1];
    } else {
      digits.insert(digits.begin(), '1');
      ++point;
    }
  }

  bool Nul() const { return digits.find_first_not_of('0') == std::string::npos; }
  /// The digit at a place: 0 is the last before the point, -1 the first behind it.
  char Chiffre(int place) const {
    const int i = point - 1 - place;
    return i >= 0 && static_cast<std::size_t>(i) < digits.size()
               ? digits[static_cast<std::size_t>(i)]
               : '0';
  }
};

/// One part of a picture.
struct Part {
  enum class Kind : std::uint8_t { Text, Digit, Point, Exponent };
  struct Token {
    Kind kind = Kind::Text;
    bool always = false;  ///< a digit that is there in any case; the sign of an exponent above 0
    std::string_view text = {};
    int width = 0;  ///< digits of an exponent
  };

  std::vector<Token> tokens;
  int before = 0, behind = 0;  ///< digits before and behind the point
  int alwaysBefore = 0;        ///< of these, from the first that is always there
  int scale = 0;               ///< the number is multiplied by ten to the power of this
  bool grouped = false;
  bool exponent = false;

  explicit Part(std::string_view picture) {
    bool point = false;
    int commas = 0;  // behind the last digit
    for (const PicturePiece& piece : DecoupeImage(picture)) {
      if (piece.sign == '\0') tokens.push_back({.text = piece.text});
      if (piece.sign == '\0') continue;
      for (std::size_t i = 0; i < piece.text.size(); ++i) {
        Ajoute(piece.text.substr(i, 1), point, commas);
      }
    }
    if (commas > 0) scale -= 3 * commas;
  }

 private:
  void Ajoute(std::string_view character, bool& point, int& commas) {
    const char c = character.front();
    switch (c) {
      case '0':
      case '#':
        if (exponent && tokens.back().kind == Kind::Exponent) {
          ++tokens.back().width;
          return;
        }
        grouped = grouped || (commas > 0 && !point);
        commas = 0;
        AjouteChiffre(c == '0', point);
        return;
      case '.':
        if (point) break;
        point = true;
        scale -= 3 * commas;
        commas = 0;
        tokens.push_back({.kind = Kind::Point});
        return;
      case ',':
        if (before > 0 && !point) ++commas;
        return;
      case '%':
        scale += 2;
        break;
      case 'e':
      case 'E':
        if (before + behind == 0 || exponent) break;
        exponent = true;
        tokens.push_back({.kind = Kind::Exponent});
        return;
      case '+':
      case '-':
        if (!exponent || tokens.back().kind != Kind::Exponent || tokens.back().width > 0) break;
        tokens.back().always = c == '+';
        return;
      default:
        break;
    }
    tokens.push_back({.text = character});
  }

  void AjouteChiffre(bool always, bool point) {
    tokens.push_back({.kind = Kind::Digit, .always = always});
    if (point) {
      ++behind;
    } else {
      ++before;
      if (always || alwaysBefore > 0) ++alwaysBefore;
    }
  }
};

class NumberWriter {
 public:
  NumberWriter(double value, const Part& part) : part_(part), decimal_(value) {
    decimal_.point += part.scale;
    if (part.exponent) {
      Normalise();
      decimal_.Arrondit(part.behind);
      const int excess = decimal_.point - std::max(part.before, 1);
      if (!decimal_.Nul() && excess > 0) {  // 9.99 became 10.0
        decimal_.point -= excess;
        power_ += excess;
      }
    } else {
      decimal_.Arrondit(part.behind);
    }
  }

  bool Nul() const { return decimal_.Nul(); }

  std::string Ecrit() {
    int place = std::max(part_.before, 1) - 1;  // of the next digit
    bool behind = false;
    const int shown = DernierShown();
    if (part_.before == 0) place = -1;
    std::string out;
    for (const Part::Token& token : part_.tokens) {
      switch (token.kind) {
        case Part::Kind::Text:
          out += token.text;
          break;
        case Part::Kind::Point:
          if (part_.before == 0) EcritEntiers(out, 0, decimal_.point);
          behind = true;
          place = -1;
          out += '.';
          break;
        case Part::Kind::Digit:
          if (behind) {
            if (-place <= shown) out += decimal_.Chiffre(place);
          } else {
            const bool first = place == part_.before - 1;
            EcritEntiers(out, place, first ? std::max(decimal_.point, place + 1) : place + 1);
          }
          --place;
          break;
        case Part::Kind::Exponent:
          out += Puissance(token);
          break;
      }
    }
    return out;
  }

 private:
  void Normalise() {
    if (decimal_.Nul()) return;
    const int wanted = std::max(part_.before, 1);
    power_ = decimal_.point - wanted;
    decimal_.point = wanted;
  }

  /// Digits behind the point that are written: those that must be, and up to the last that counts.
  int DernierShown() const {
    int place = 0;
    int last = 0;
    bool behind = false;
    for (const Part::Token& token : part_.tokens) {
      if (token.kind == Part::Kind::Point) behind = true;
      if (!behind || token.kind != Part::Kind::Digit) continue;
      ++place;
      if (token.always || decimal_.Chiffre(-place) != '0') last = place;
    }
    return last;
  }

  /// The digits from `top` - 1 down to `place`, but for zeros that nothing asks for.
  void EcritEntiers(std::string& out, int place, int top) const {
    for (int at = top - 1; at >= place; --at) {
      if (at >= decimal_.point && at >= part_.alwaysBefore) continue;
      if (decimal_.Nul() && at >= part_.alwaysBefore) continue;
      out += decimal_.Chiffre(at);
      if (part_.grouped && at > 0 && at % 3 == 0) out += ',';
    }
  }

  std::string Puissance(const Part::Token& token) const {
    std::string digits = std::to_string(std::abs(power_));
    const auto width = static_cast<std::size_t>(token.width);
    digits.insert(0, width > digits.size() ? width - digits.size() : 0, '0');
    return std::string("E") + (power_ < 0 ? "-" : token.always ? "+" : "") + digits;
  }

  const Part& part_;
  Decimal decimal_;
  int power_ = 0;
};

/// The parts between semicolons.
std::vector<std::string_view> Parties(std::string_view picture) {
  std::vector<std::string_view> parts;
  std::size_t from = 0;
  bool quoted = false;
  for (std::size_t i = 0; i <= picture.size(); ++i) {
    if (i == picture.size() || (picture[i] == ';' && !quoted)) {
      parts.push_back(picture.substr(from, i - from));
      from = i + 1;
    } else if (picture[i] == '"') {
      quoted = !quoted;
    } else if (picture[i] == '\\') {
      ++i;
      if (i >= picture.size()) i = picture.size() - 1;
    }
  }
  return parts;
}

}  // namespace

bool EstNomDeNombre(std::string_view picture) {
  return EgalSansCasse(picture, general) ||
         std::any_of(std::begin(namedNumbers), std::end(namedNumbers),
                     [&](const NamedNumber& n) { return EgalSansCasse(n.name, picture); });
}

std::string FormateNombre(double value, std::string_view picture) {
  if (picture.empty() || !std::isfinite(value) || EgalSansCasse(picture, general))
    return Cell::Of(value).Texte();
  for (const NamedNumber& n : namedNumbers) {
    if (EgalSansCasse(n.name, picture)) picture = n.picture;
  }
  const auto parts = Parties(picture);
  const auto given = [&](std::size_t i) { return i < parts.size() && !parts[i].empty(); };
  const bool ownNegative = value < 0 && given(1);
  const std::size_t which = ownNegative ? 1 : value == 0 && given(2) ? 2 : 0;
  const Part part(parts[which]);
  NumberWriter writer(std::abs(value), part);
  const bool sign = value < 0 && !ownNegative && !writer.Nul();
  return (sign ? "-" : "") + writer.Ecrit();
}

}  // namespace talpena::sqlite

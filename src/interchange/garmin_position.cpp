#include "interchange/garmin_position.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/tokens.h"
#include "interchange/mapsource_text.h"

namespace talpena {
namespace {

/// Characters that ORIGINAL has room for.
constexpr std::size_t roomOfOriginal = 24;

/// The parts between blanks, in upper case.
class Parts {
 public:
  explicit Parts(std::string_view position) : text_(Majuscules(position)) {
    std::string_view left = RogneGauche(text_);
    while (!left.empty()) {
      const std::string_view part = left.substr(0, left.find(' '));
      parts_.push_back(part);
      left = RogneGauche(left.substr(part.size()));
    }
  }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  std::size_t Nombre() const { return parts_.size(); }
  std::string_view operator[](std::size_t index) const {
    if (index < parts_.size()) return parts_[index];
    throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }

 private:
  std::string text_;
  std::vector<std::string_view> parts_;
};

/// A part without the letter at its head.
std::string SansLettre(std::string_view part) {
  return std::string(part.substr(PremiersCaracteres(part, 1).size()));
}

std::string Signe(std::string_view part, char minus) { return part.starts_with(minus) ? "-" : ""; }

/// Leading zeros to a length.
std::string Complete(std::string_view digits, std::size_t length) {
  return std::string(length - std::min(length, digits.size()), '0').append(digits);
}

/// A number in digits, and how many of those behind its point are no fraction.
struct Number {
  std::string text;
  std::size_t fixed = 0;

  std::size_t Decimales() const {
    const std::size_t point = text.find('.');
    const std::size_t behind = point == std::string::npos ? 0 : text.size() - point - 1;
    return behind - std::min(behind, fixed);
  }
};

/// Rounds a number to fewer decimals. Nines that would carry into what is no fraction are cut.
void Raccourcit(Number& number, std::size_t decimals) {
  const std::size_t kept = number.text.size() - (number.Decimales() - decimals);
  const bool up = kept < number.text.size() && number.text[kept] >= '5';
  number.text.resize(kept);
  if (!up) return;
  std::size_t digit = kept;
  const std::size_t first = kept - decimals;
  while (digit > first && number.text[digit - 1] == '9') --digit;
  if (digit == first || number.text[digit - 1] < '0' || number.text[digit - 1] > '8') return;
  ++number.text[digit - 1];
  std::fill(number.text.begin() + static_cast<std::ptrdiff_t>(digit), number.text.end(), '0');
}

/// Code and two numbers, with no more decimals than there is room for; the longer fraction goes
/// first.
std::string AvecPlace(const std::string& code, Number a, Number b) {
  std::size_t ofA = a.Decimales(), ofB = b.Decimales();
  std::size_t length = code.size() + a.text.size() + 1 + b.text.size();
  for (; length > roomOfOriginal && ofA + ofB > 0; --length) --(ofB > ofA ? ofB : ofA);
  Raccourcit(a, ofA);
  Raccourcit(b, ofB);
  return code + a.text + " " + b.text;
}

std::string EnDegresDecimaux(const Parts& p) {
  return AvecPlace("deg ", {Signe(p[0], 'S') + SansLettre(p[0])},
                   {Signe(p[1], 'W') + SansLettre(p[1])});
}

float DegresEtMinutes(std::string_view degrees, std::string_view minutes, char minus) {
  const float angle = EnSimple(NombreDe(SansLettre(degrees)) + NombreDe(minutes) / 60);
  return degrees.starts_with(minus) ? -angle : angle;
}

std::string EnMinutes(const Parts& p) {
  return "deg " + Format(DegresEtMinutes(p[0], p[1], 'S'), "+##.#####;-##.#####") + " " +
         Format(DegresEtMinutes(p[2], p[3], 'W'), "+###.#####;-###.#####");
}

/// Degrees, point, minutes and seconds, which the column packs into one number: "W2 3 1.164" is
/// -2.0301164.
Number Dms(std::string_view degrees, std::string_view minutes, std::string_view seconds,
           char minus) {
  std::string fraction = Remplace(seconds, ",", ".");
  const std::string whole = fraction.substr(0, fraction.find('.'));
  fraction = Remplace(fraction.substr(whole.size()), ".", "");
  return {Signe(degrees, minus) + SansLettre(degrees) + "." + Complete(minutes, 2) +
              Complete(whole, 2) + fraction,
          4};
}

std::string EnSecondes(const Parts& p) {
  return AvecPlace("dms ", Dms(p[0], p[1], p[2], 'S'), Dms(p[3], p[4], p[5], 'W'));
}

/// "31UES1234512345" with its blanks: the last twelve characters are the square and the digits.
std::string EnMgrs(std::string_view position) {
  constexpr std::size_t tail = 12;
  const std::size_t length = CompteCaracteres(position);
  if (length < tail) {
    throw TalpenaError(ErrorNumber::InvalidCall, "Invalid procedure call or argument");
  }
  const std::string_view head = PremiersCaracteres(position, length - tail);
  const std::string_view zone = PremiersCaracteres(position, length == tail + 2 ? 1 : 2);
  std::string_view band = head;
  if (length > tail) band.remove_prefix(PremiersCaracteres(head, length - tail - 1).size());
  return "mgr " + std::string(zone) + " " + std::string(band) + " " +
         std::string(position.substr(head.size()));
}

std::string SurGrille(const std::string& code, const Parts& p) {
  const std::size_t length = std::max(p[1].size(), p[2].size());
  return code + std::string(p[0]) + " " + Complete(p[1], length) + Complete(p[2], length);
}

bool EstLettre(std::string_view part, std::string_view letters) {
  return !part.empty() && letters.find(part.front()) != std::string_view::npos;
}

/// What is odd about the degrees, minutes and seconds of an angle.
int DouteDAngle(const Parts& p, std::size_t first, std::size_t count, std::string_view letters) {
  if (!EstLettre(p[first], letters)) return MsgId::DouteHemisphere;
  if (!EstNumerique(SansLettre(p[first]))) return MsgId::DoutePosition;
  for (std::size_t i = first + 1; i < first + count; ++i) {
    if (!EstNumerique(p[i])) return MsgId::DoutePosition;
  }
  // 60 itself is 59.9996 to other programs, and gives the right point.
  for (std::size_t i = first + 1; i < first + count; ++i) {
    if (std::abs(NombreDe(p[i])) > 60) return MsgId::DouteMinutes;
  }
  return 0;
}

}  // namespace

int DouteDePosition(int grid, std::string_view position) {
  if (grid < GarminGrid::Degrees || grid > GarminGrid::Seconds) return 0;
  const auto ofAngle = static_cast<std::size_t>(grid - GarminGrid::Degrees) + 1;
  const Parts p(position);
  if (p.Nombre() < 2 * ofAngle) return 0;
  const int ofLatitude = DouteDAngle(p, 0, ofAngle, "NS");
  return ofLatitude != 0 ? ofLatitude : DouteDAngle(p, ofAngle, ofAngle, "EW");
}

std::string OriginalDePosition(int grid, std::string_view position) {
  switch (grid) {
    case GarminGrid::Degrees:
      return EnDegresDecimaux(Parts(position));
    case GarminGrid::Minutes:
      return EnMinutes(Parts(position));
    case GarminGrid::Seconds:
      return EnSecondes(Parts(position));
    case GarminGrid::Mgrs:
      return EnMgrs(position);
    case GarminGrid::British:
      return SurGrille("bng ", Parts(position));
    case GarminGrid::Irish:
      return SurGrille("itm ", Parts(position));
    default:
      return {};  // rows on the grid UTM enter without a position
  }
}

}  // namespace talpena

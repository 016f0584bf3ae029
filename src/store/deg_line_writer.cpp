#include "store/deg_line_writer.h"

#include <array>
#include <charconv>
#include <cmath>

#include "common/line_breaks.h"
#include "common/numbers.h"
#include "common/text.h"

namespace talpena {
namespace {

/// How a coordinate is written.
struct CoordinateColumns {
  std::string_view mask;
  std::size_t integerPlaces;
  char positiveSign;
};

constexpr CoordinateColumns latitudeColumns{"+00.00000;-00.00000", 2, '+'};
constexpr CoordinateColumns longitudeColumns{" 000.00000;-000.00000", 3, ' '};

constexpr std::size_t numberWidth = 5;
constexpr std::size_t dateWidth = 10;
constexpr std::size_t sexWidth = 1;
constexpr std::size_t datumWidth = 5;
constexpr std::size_t originalWidth = 24;

/// What Format and CadreCoord make of a coordinate, digit by digit: both together take most of
/// the time of a save. Held equal by DegLineWriter.CoordinatesAreWhatTheMaskGives.
void AjouteCoordonnee(std::string& bytes, float value, const CoordinateColumns& columns) {
  constexpr int decimals = 5;
  constexpr double largest = 1e15;
  // Exact: 24 bits of a float times the 12 of 3125, the odd part of 100000.
  const double scaled = std::fabs(static_cast<double>(value)) * 100000;
  if (!(scaled < largest)) {
    std::string text = Format(static_cast<double>(value), columns.mask);
    CadreCoord(text);
    bytes += text;
    return;
  }
  auto units = static_cast<std::uint64_t>(scaled);
  if (scaled - static_cast<double>(units) >= 0.5) ++units;
  const bool negative = value < 0 && units != 0;

  std::array<char, 24> text;
  char* const end = text.data() + text.size();
  char* start = end;
  const auto digit = [&] {
    *--start = static_cast<char>('0' + units % 10);
    units /= 10;
  };
  for (int i = 0; i < decimals; ++i) digit();
  *--start = '.';
  const char* const point = start;
  do digit();
  while (units != 0);
  while (static_cast<std::size_t>(point - start) < columns.integerPlaces) *--start = ' ';
  *--start = negative ? '-' : columns.positiveSign;
  bytes.append(start, end);
}

void AjouteEntier(std::string& bytes, std::int64_t value) {
  std::array<char, 24> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  bytes.append(text.data(), end);
}

/// Five digits whose leading zeros are blank; behind a minus they stay.
void AjouteNombre(std::string& bytes, std::int32_t value) {
  std::array<char, 16> digits;
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), std::abs(std::int64_t{value}))
          .ptr;
  const auto length = static_cast<std::size_t>(end - digits.data());
  std::string text(value < 0 ? "-" : "");
  if (length < numberWidth) text.append(numberWidth - length, '0');
  text.append(digits.data(), length);
  BlanchitZeros(text, 1);
  if (text.back() == ' ') text.back() = '0';
  bytes += text;
}

std::string CaracteresAbsents(std::string_view utf8) {
  std::string absent;
  while (!utf8.empty()) {
    const std::string_view character = PremiersCaracteres(utf8, 1);
    utf8.remove_prefix(character.size());
    if (EstAscii(character) || Utf8VersCp1252(character)) continue;
    const std::string quoted = "\"" + std::string(character) + "\"";
    if (absent.find(quoted) == std::string::npos) absent += (absent.empty() ? "" : ", ") + quoted;
  }
  return absent;
}

/// The last guard of the file's lines: CR ends one wherever it stands. What was read from a file
/// has none.
std::string_view SansRetour(std::string_view comment, std::string& kept) {
  if (comment.find('\r') == std::string_view::npos) return comment;
  return kept = AvecSautsLf(comment);
}

}  // namespace

std::string_view LigneSansSaut(std::string_view text, std::string& kept) {
  if (text.find_first_of("\r\n") == std::string_view::npos) return text;
  return kept = SurUneLigne(text);
}

std::string AjouteCp1252(std::string& bytes, std::string_view utf8, std::size_t width) {
  const std::size_t before = bytes.size();
  std::string absent;
  if (EstAscii(utf8)) {
    bytes += utf8;
  } else if (const auto encoded = Utf8VersCp1252(utf8)) {
    bytes += *encoded;
  } else {
    bytes += Utf8VersCp1252AvecManques(utf8);
    absent = CaracteresAbsents(utf8);
  }
  const std::size_t written = bytes.size() - before;
  if (written < width) bytes.append(width - written, ' ');
  return absent;
}

void EcritLigne(std::string& bytes, const DegLine& line, std::vector<LackingCharacters>& lacking) {
  std::string kept;
  const auto texte = [&](std::string_view column, std::string_view text, std::size_t width) {
    text = width > 0 ? LigneSansSaut(text, kept) : SansRetour(text, kept);
    std::string absent = AjouteCp1252(bytes, text, width);
    if (!absent.empty()) lacking.push_back({column, std::move(absent)});
  };
  AjouteEntier(bytes, line.period);
  bytes += 'K';
  AjouteCoordonnee(bytes, line.latitude, latitudeColumns);
  AjouteCoordonnee(bytes, line.longitude, longitudeColumns);
  AjouteNombre(bytes, line.n1);
  AjouteNombre(bytes, line.n2);
  texte("DATE", line.date, dateWidth);
  texte("SEX", line.sex, sexWidth);
  texte("DATUM", line.datum, datumWidth);
  texte("ORIGINAL", line.original, originalWidth);
  texte("COMMENT", line.comment, 0);
  bytes += "\r\n";
}

std::optional<std::string> LignePeriodes(int nbPivots, int pivot1, int pivot2, int anneeCourante) {
  const auto annee = [](int year) { return Format(year, "0000"); };
  const std::string debut = " 0000 - ";
  switch (nbPivots) {
    case 0:
      return debut + annee(anneeCourante) + "   0 - 0   0 - 0";
    case 1:
      return debut + annee(pivot1 - 1) + "   " + annee(pivot1) + " - " + annee(anneeCourante) +
             "   0 - 0";
    case 2:
      return debut + annee(pivot1 - 1) + "   " + annee(pivot1) + " - " + annee(pivot2 - 1) + "   " +
             annee(pivot2) + " - " + annee(anneeCourante);
    default:
      return std::nullopt;
  }
}

void CadreCoord(std::string& texte) {
  if (const std::size_t comma = texte.find(','); comma != std::string::npos) texte[comma] = '.';
  std::size_t stop = 1;
  while (stop < texte.size() && texte[stop] == '0' && texte.compare(stop, 2, "0.") != 0) ++stop;
  if (stop >= texte.size()) return;
  for (std::size_t i = 1; i < stop; ++i) texte[i] = ' ';
}

void BlanchitZeros(std::string& texte, std::size_t position) {
  if (position >= texte.size()) return;
  for (std::size_t i = position - 1; i < texte.size() && texte[i] == '0'; ++i) texte[i] = ' ';
}

}  // namespace talpena

#include "store/deg_line_writer.h"

#include "common/decimal_columns.h"
#include "common/line_breaks.h"
#include "common/numbers.h"
#include "common/text.h"

namespace talpena {
namespace {

// What Format and CadreCoord make of a coordinate: both together take most of the time of a save.
// Held equal by DegLineWriter.CoordinatesAreWhatTheMaskGives.
constexpr DegreeColumns latitudeColumns{"+00.00000;-00.00000", 2, '+', ' '};
constexpr DegreeColumns longitudeColumns{" 000.00000;-000.00000", 3, ' ', ' '};

constexpr std::size_t numberWidth = 5;
constexpr std::size_t dateWidth = 10;
constexpr std::size_t sexWidth = 1;
constexpr std::size_t datumWidth = 5;
constexpr std::size_t originalWidth = 24;

/// Five digits whose leading zeros are blank; behind a minus they stay.
void AjouteNombre(std::string& bytes, std::int32_t value) {
  std::string text;
  AjouteEntier(text, value, numberWidth);
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
  AjouteDegres(bytes, line.latitude, latitudeColumns);
  AjouteDegres(bytes, line.longitude, longitudeColumns);
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

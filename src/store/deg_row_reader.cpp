#include "store/deg_row_reader.h"

#include <algorithm>
#include <array>

#include "common/field_number.h"
#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/systems.h"
#include "store/cp1252_decode.h"

namespace talpena {
namespace {

constexpr std::size_t maxSeparatorBytes = std::size_t{128} << 10;

struct CodePair {
  std::string_view found;
  std::string_view datum;
};

// clang-format off
/// Ellipsoid codes of older files, and the datums that they stood for.
constexpr std::array<CodePair, 11> oldEllipsoids = {{
    {"HAYFO", "EUR-M"}, {"WGS84", "WGS84"}, {"AIRY", "OGB-M"},  {"AIRMO", "IRL"},
    {"AUSTR", "AUG"},   {"BESSE", "TOY-M"}, {"CLA66", "NAS-C"}, {"CLA80", "NTF"},
    {"EVERE", "IND-B"}, {"EVEMO", "KEA"},   {"WGS72", "WGS72"},
}};
// clang-format on

/// `width` bytes from a column counted from 1, fewer when the line ends before.
std::string_view Colonnes(std::string_view line, std::size_t column,
                          std::size_t width = std::string_view::npos) {
  return column > line.size() ? std::string_view{} : line.substr(column - 1, width);
}

/// In upper case, for letters of the ASCII alphabet, which no other letter becomes.
constexpr char Majuscule(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

bool ContientFinDu(std::string_view line) {
  constexpr std::string_view words = "FIN DU";
  return std::search(line.begin(), line.end(), words.begin(), words.end(),
                     [](char a, char b) { return Majuscule(a) == b; }) != line.end();
}

std::string_view DatumDeCode(std::string_view code) {
  for (const CodePair& pair : oldEllipsoids) {
    if (code == pair.found) return pair.datum;
  }
  return code;
}

/// Datum that goes with the system in which ORIGINAL is written, by its first letters; empty when
/// it may be any.
std::string_view DatumDeSysteme(std::string_view original) {
  std::array<char, 3> code{};
  const std::string_view prefix = original.substr(0, code.size());
  std::transform(prefix.begin(), prefix.end(), code.begin(), Majuscule);
  const auto system = SystemeDe({code.data(), prefix.size()});
  return system ? CodeSpecial(InfoDe(*system).datums.file) : std::string_view();
}

/// A coordinate field as one word: points for commas, no blanks of any kind that Val skips.
std::string MotDeCoordonnee(std::string_view field) {
  std::string word;
  for (const char c : field) {
    if (c != ' ' && c != '\t' && c != '\n') word += c == ',' ? '.' : c;
  }
  return word;
}

/// Occurrences of the separator, counted up to `enough`.
std::size_t CompteSeparateurs(std::string_view text, std::string_view separator,
                              std::size_t enough) {
  std::size_t count = 0;
  for (std::size_t at = text.find(separator); at != std::string_view::npos && count < enough;
       at = text.find(separator, at + separator.size())) {
    ++count;
  }
  return count;
}

}  // namespace

DegRowReader::DegRowReader(std::string separator, std::size_t freeFields)
    : separator_(std::move(separator)), freeFields_(separator_.empty() ? 0 : freeFields) {
  if (freeFields_ > 0 && separator_.size() > maxSeparatorBytes / freeFields_) {
    throw TalpenaError(ErrorNumber::Overflow,
                       "The separator of the free fields is too long for so many fields.",
                       {.text = MsgId::SeparateurTropLong});
  }
  for (std::size_t i = 0; i < freeFields_; ++i) padding_ += separator_;
}

RowKind DegRowReader::Lit(std::string_view line) {
  LitNombres(line);
  RowKind kind = RowKind::Row;
  if (line.size() > 31) {
    DecodeCp1252(Colonnes(line, 32, 10), row_.date);
    if (line.size() > 42) LitOrigine(line);
  } else {
    if (ContientFinDu(line)) return RowKind::End;
    LitPoint(line);
    kind = RowKind::BarePoint;
  }
  CompleteCommentaire();
  return kind;
}

void DegRowReader::LitNombres(std::string_view line) {
  row_.period = Arrondi16(ValChamp(Colonnes(line, 1, 1), Comma::EndsNumber));
  row_.latitude = EnSimple(ValChamp(Colonnes(line, 3, 9), Comma::IsPoint));
  row_.longitude = EnSimple(ValChamp(Colonnes(line, 12, 10), Comma::IsPoint));
  row_.n1 = Arrondi32(ValChamp(Colonnes(line, 22, 5), Comma::EndsNumber));
  row_.n2 = Arrondi32(ValChamp(Colonnes(line, 27, 5), Comma::EndsNumber));
}

/// Columns 42 and behind.
void DegRowReader::LitOrigine(std::string_view line) {
  DecodeCp1252(Rogne(Colonnes(line, 42, 1)), row_.sex);
  DecodeCp1252(DatumDeCode(Colonnes(line, 43, 5)), row_.datum);
  const std::string_view original = Colonnes(line, 48, 24);
  DecodeCp1252(original, row_.original);
  if (line.size() > 47) DecodeCp1252(Colonnes(line, 72), row_.comment);
  if (const std::string_view datum = DatumDeSysteme(original); !datum.empty()) row_.datum = datum;
}

void DegRowReader::LitPoint(std::string_view line) {
  row_.datum = CodeSpecial(SystemDatum::EurM);
  const std::string point = "deg " + MotDeCoordonnee(Colonnes(line, 3, 9)) + " " +
                            MotDeCoordonnee(Colonnes(line, 12, 10));
  DecodeCp1252(point, row_.original);
  row_.comment.clear();
}

/// Separators that are missing go in front, so that a text without any becomes the remark.
void DegRowReader::CompleteCommentaire() {
  if (freeFields_ == 0) return;
  const std::size_t count = CompteSeparateurs(row_.comment, separator_, freeFields_);
  if (count == freeFields_) return;
  row_.comment.insert(0, padding_, 0, (freeFields_ - count) * separator_.size());
}

}  // namespace talpena

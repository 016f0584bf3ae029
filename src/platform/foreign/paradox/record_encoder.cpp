#include "platform/foreign/paradox/record_encoder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/text.h"
#include "platform/foreign/code_page.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/little_endian.h"

namespace talpena::paradox {
namespace {

/// The double of the shortest decimal that gives the float: 50.41234, not 50.412338256835938.
double PlusCourtDecimal(double value) {
  std::array<char, 32> digits;
  const char* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(value)).ptr;
  double shortest = 0;
  std::from_chars(digits.data(), end, shortest);
  return shortest;
}

double Jours(const Cell& cell) {
  const double days = cell.Nombre();
  if (days >= premierJour && days < dernierJour) return days;
  throw TalpenaError(ErrorNumber::DataConversion, "Data type conversion error.");
}

/// A zero byte ends a text of this format.
void RefuseOctetNul(std::string_view text) {
  if (text.find('\0') == std::string_view::npos) return;
  throw TalpenaError(ErrorNumber::NotInCodePage, "The character 'U+0000' is not in code page 1252.",
                     {.text = MsgId::TexteSansCaractere, .about = {"U+0000"}});
}

}  // namespace

RecordEncoder::RecordEncoder(const std::vector<WrittenColumn>& columns, MemoWriter* memos,
                             std::size_t mostInMemo)
    : columns_(columns), memos_(memos), mostInMemo_(std::min(mostInMemo, longestMemo)) {}

std::string_view RecordEncoder::Enregistrement(std::span<const Cell> cells) {
  record_.assign(OctetsParLigne(columns_), '\0');
  pending_.clear();
  std::size_t place = 0;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!cells[i].EstNull()) Pose(columns_[i], cells[i], place);
    place += columns_[i].column.bytes;
  }
  constexpr std::uint16_t modification = 1;
  for (const Pending& value : pending_) {
    char* const into = record_.data() + value.place;
    PoseNombre(into, memos_->Range(value.bytes));
    PoseNombre(into + 8, modification);
  }
  return record_;
}

void RecordEncoder::Pose(const WrittenColumn& column, const Cell& cell, std::size_t place) {
  char* const into = record_.data() + place;
  switch (column.source) {
    case FieldType::Boolean:
      return PoseLogique(into, cell.Nombre() != 0);
    case FieldType::Byte:
      return PoseCourt(into, static_cast<std::int16_t>(cell.Nombre()));
    case FieldType::Date:
      return PoseMoment(into, Jours(cell));
    case FieldType::Single:
      return PoseNombreReel(into, PlusCourtDecimal(cell.Nombre()));
    case FieldType::Text:
      return PoseTexte(column, cell.text, place);
    case FieldType::Memo:
      encoded_.clear();
      AjouteEn1252(encoded_, cell.text);
      return PoseLong(column, encoded_, place);
    case FieldType::Binary:
      return PoseLong(column, cell.text, place);
    default:
      return PoseNombreReel(into, cell.Nombre());
  }
}

void RecordEncoder::PoseTexte(const WrittenColumn& column, std::string_view text,
                              std::size_t place) {
  RefuseOctetNul(text);
  encoded_.clear();
  AjouteEn1252(encoded_, text);
  if (encoded_.size() > column.column.bytes) throw foreign::TexteTropLong(column.name);
  encoded_.copy(record_.data() + place, encoded_.size());
}

/// The beginning of a value stands in the record, and all of it in the memo file when that is not
/// the whole.
void RecordEncoder::PoseLong(const WrittenColumn& column, std::string_view value,
                             std::size_t place) {
  if (value.size() > mostInMemo_) throw foreign::TexteTropLong(column.name);
  const std::size_t leader = column.column.bytes - referenceBytes;
  value.copy(record_.data() + place, leader);
  PoseNombre(record_.data() + place + leader + 4, static_cast<std::uint32_t>(value.size()));
  if (value.size() > leader) pending_.push_back({place + leader, std::string(value)});
}

}  // namespace talpena::paradox

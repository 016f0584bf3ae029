#include "platform/foreign/dbase/row_encoder.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/foreign/code_page.h"
#include "platform/foreign/dbase/header.h"
#include "platform/foreign/dbase/values.h"
#include "platform/foreign/errors.h"

namespace talpena::dbase {
namespace {

/// To the right; false for a number that has no room.
bool PoseEntier(std::span<char> field, std::int64_t value) {
  std::array<char, 24> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  const auto length = static_cast<std::size_t>(end - digits.data());
  if (length > field.size()) return false;
  std::copy(digits.data(), end, field.end() - static_cast<std::ptrdiff_t>(length));
  return true;
}

}  // namespace

RowEncoder::RowEncoder(const std::vector<WrittenColumn>& columns, MemoWriter* memos,
                       std::size_t mostOfRow)
    : columns_(columns), memos_(memos), mostOfRow_(mostOfRow), memoTexts_(columns.size()) {}

std::string_view RowEncoder::Ligne(std::span<const Cell> cells) {
  row_.assign(OctetsDeLigne(columns_), ' ');
  row_.front() = liveRow;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!cells[i].EstNull()) Pose(columns_[i], cells[i]);
  }
  if (memos_ != nullptr) {
    EncodeMemos(cells);
    RangeMemos();
  }
  return row_;
}

void RowEncoder::Pose(const WrittenColumn& column, const Cell& cell) {
  switch (column.type) {
    case FieldType::Text:
      return PoseTexte(column, cell);
    case FieldType::Boolean:
      row_[column.offset] = cell.Nombre() != 0 ? 'T' : 'F';
      return;
    case FieldType::Memo:
      return;  // behind all others
    default:
      if (!PoseNombre(column, cell)) throw foreign::TexteTropLong(column.given);
  }
}

void RowEncoder::PoseTexte(const WrittenColumn& column, const Cell& cell) {
  text_.clear();
  AjouteEn1252(text_, cell.text);
  if (text_.size() > column.width) throw foreign::TexteTropLong(column.given);
  row_.replace(column.offset, text_.size(), text_);
}

bool RowEncoder::PoseNombre(const WrittenColumn& column, const Cell& cell) {
  const std::span<char> field(row_.data() + column.offset, column.width);
  switch (column.type) {
    case FieldType::Date:
      return EcritDate(field, cell.Nombre());
    case FieldType::Single:
      return EcritSimple(field, static_cast<float>(cell.Nombre()), column.decimals);
    case FieldType::Double:
    case FieldType::Currency:
      return EcritNombre(field, cell.Nombre(), column.decimals);
    default:
      return cell.kind == Cell::Kind::Integer ? PoseEntier(field, cell.integer)
                                              : EcritNombre(field, cell.Nombre(), 0);
  }
}

void RowEncoder::EncodeMemos(std::span<const Cell> cells) {
  std::size_t all = 0;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    memoTexts_[i].clear();
    if (columns_[i].type != FieldType::Memo || cells[i].EstNull()) continue;
    AjouteEn1252(memoTexts_[i], cells[i].text);
    all += memoTexts_[i].size();
    if (all > mostOfRow_) throw foreign::TexteTropLong(columns_[i].given);
  }
}

void RowEncoder::RangeMemos() {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (memoTexts_[i].empty()) continue;
    const std::span<char> field(row_.data() + columns_[i].offset, columns_[i].width);
    PoseEntier(field, static_cast<std::int64_t>(memos_->Ajoute(memoTexts_[i])));
  }
}

}  // namespace talpena::dbase

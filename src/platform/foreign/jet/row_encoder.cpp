#include "platform/foreign/jet/row_encoder.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "platform/foreign/errors.h"

namespace talpena::jet {
namespace {

constexpr std::size_t headOfRow = 2;
constexpr std::size_t longestRow = 4060;

std::uint64_t Entier(const Cell& cell) {
  const std::int64_t value =
      cell.kind == Cell::Kind::Integer ? cell.integer : std::llround(cell.Nombre());
  return static_cast<std::uint64_t>(value);
}

bool EstVrai(const Cell& cell) { return !cell.EstNull() && cell.Nombre() != 0; }

}  // namespace

RowEncoder::RowEncoder(const std::vector<Column>& columns,
                       std::map<std::size_t, LongValues>& longValues, TextForm form)
    : columns_(columns),
      longValues_(longValues),
      form_(form),
      present_((columns.size() + 7) / 8, '\0') {
  for (const Column& column : columns_) {
    if (!column.Varie() && column.type != JetType::Boolean) {
      fixedBytes_ = std::max(fixedBytes_, column.fixedOffset + column.bytes);
    }
  }
}

std::string_view RowEncoder::Ligne(std::span<const Cell> cells) {
  row_.assign(headOfRow + fixedBytes_, '\0');
  PoseNombre(row_.data(), static_cast<std::uint16_t>(columns_.size()));
  std::fill(present_.begin(), present_.end(), '\0');
  ends_.clear();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Column& column = columns_[i];
    const Cell& cell = cells[i];
    if (column.Varie()) ends_.push_back(row_.size());
    if (column.type == JetType::Boolean ? !EstVrai(cell) : cell.EstNull()) continue;
    present_[i / 8] = static_cast<char>(present_[i / 8] | 1 << i % 8);
    if (column.Varie()) {
      AjouteVariable(i, cell);
    } else if (column.type != JetType::Boolean) {
      PoseFixe(column, cell);
    }
  }
  AjouteFin();
  if (row_.size() > longestRow) throw foreign::LigneTropLongue();
  return row_;
}

void RowEncoder::PoseFixe(const Column& column, const Cell& cell) {
  constexpr double parts = 10000;  // money is kept in ten-thousandths
  char* const into = row_.data() + headOfRow + column.fixedOffset;
  switch (column.type) {
    case JetType::Byte:
      return PoseNombre(into, static_cast<std::uint8_t>(Entier(cell)));
    case JetType::Integer:
      return PoseNombre(into, static_cast<std::uint16_t>(Entier(cell)));
    case JetType::Long:
      return PoseNombre(into, static_cast<std::uint32_t>(Entier(cell)));
    case JetType::Currency:
      return PoseNombre(into, static_cast<std::uint64_t>(std::llround(cell.Nombre() * parts)));
    case JetType::Single:
      return PoseNombre(into, std::bit_cast<std::uint32_t>(static_cast<float>(cell.Nombre())));
    default:  // Double and Date
      return PoseNombre(into, std::bit_cast<std::uint64_t>(cell.Nombre()));
  }
}

void RowEncoder::AjouteVariable(std::size_t number, const Cell& cell) {
  const Column& column = columns_[number];
  switch (column.type) {
    case JetType::Text:
      if (2 * AjouteTexte(row_, cell.text, form_) > column.bytes)
        throw foreign::TexteTropLong(column.name);
      return;
    case JetType::Memo:
      return AjouteMemo(number, cell.text);
    case JetType::Ole:
      if (cell.text.size() > LongValues::longest) throw foreign::TexteTropLong(column.name);
      return longValues_.at(number).Range(cell.text, row_);
    default:
      row_ += cell.text;
  }
}

void RowEncoder::AjouteMemo(std::size_t number, std::string_view text) {
  constexpr std::size_t mostShort = 1024;  // characters; longer memos are never in the short form
  memo_.clear();
  AjouteTexte(memo_, text, text.size() <= mostShort ? form_ : TextForm::Wide);
  if (memo_.size() > LongValues::longest) throw foreign::TexteTropLong(columns_[number].name);
  longValues_.at(number).Range(memo_, row_);
}

/// Where the values begin, the last one first, and which there are.
void RowEncoder::AjouteFin() {
  if (!ends_.empty()) {
    const std::size_t count = ends_.size();
    ends_.push_back(row_.size());
    for (std::size_t i = ends_.size(); i-- > 0;) Ajoute16(row_, ends_[i]);
    Ajoute16(row_, count);
  }
  row_ += present_;
}

}  // namespace talpena::jet

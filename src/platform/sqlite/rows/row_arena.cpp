#include "platform/sqlite/rows/row_arena.h"

#include <cstring>
#include <limits>

namespace talpena::sqlite {
namespace {

enum class Tag : char { Null, Byte, Long, Whole, Single, Double, Text, LongText };

template <typename T>
void AjouteBrut(std::string& bytes, Tag tag, T value) {
  bytes.push_back(static_cast<char>(tag));
  char raw[sizeof value];
  std::memcpy(raw, &value, sizeof value);
  bytes.append(raw, sizeof value);
}

template <typename T>
T LitBrut(const char*& at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  at += sizeof value;
  return value;
}

template <typename T>
bool Tient(std::int64_t value) {
  return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

}  // namespace

void RowArena::AjouteEntier(std::int64_t value) {
  if (Tient<std::int8_t>(value))
    return AjouteBrut(bytes_, Tag::Byte, static_cast<std::int8_t>(value));
  if (Tient<std::int32_t>(value)) {
    return AjouteBrut(bytes_, Tag::Long, static_cast<std::int32_t>(value));
  }
  AjouteBrut(bytes_, Tag::Whole, value);
}

void RowArena::Ajoute(std::span<const Cell> cells) {
  starts_.push_back(bytes_.size());
  for (const Cell& cell : cells) {
    switch (cell.kind) {
      case Cell::Kind::Null:
        bytes_.push_back(static_cast<char>(Tag::Null));
        break;
      case Cell::Kind::Integer:
        AjouteEntier(cell.integer);
        break;
      case Cell::Kind::Real: {
        const bool fits = cell.real >= -1e38 && cell.real <= 1e38;
        const float single = fits ? static_cast<float>(cell.real) : 0;
        if (fits && static_cast<double>(single) == cell.real) {
          AjouteBrut(bytes_, Tag::Single, single);
        } else {
          AjouteBrut(bytes_, Tag::Double, cell.real);
        }
        break;
      }
      case Cell::Kind::Text:
        if (cell.text.size() < 256) {
          AjouteBrut(bytes_, Tag::Text, static_cast<std::uint8_t>(cell.text.size()));
        } else {
          AjouteBrut(bytes_, Tag::LongText, static_cast<std::uint32_t>(cell.text.size()));
        }
        bytes_.append(cell.text);
        break;
    }
  }
}

void RowArena::Lit(std::size_t row, std::span<Cell> cells) const {
  const char* at = bytes_.data() + starts_[row];
  for (Cell& cell : cells) {
    std::size_t length = 0;
    switch (static_cast<Tag>(*at++)) {
      case Tag::Null:
        cell = Cell::Null();
        continue;
      case Tag::Byte:
        cell = Cell::Of(std::int64_t{LitBrut<std::int8_t>(at)});
        continue;
      case Tag::Long:
        cell = Cell::Of(std::int64_t{LitBrut<std::int32_t>(at)});
        continue;
      case Tag::Whole:
        cell = Cell::Of(LitBrut<std::int64_t>(at));
        continue;
      case Tag::Single:
        cell = Cell::Of(static_cast<double>(LitBrut<float>(at)));
        continue;
      case Tag::Double:
        cell = Cell::Of(LitBrut<double>(at));
        continue;
      case Tag::Text:
        length = LitBrut<std::uint8_t>(at);
        break;
      case Tag::LongText:
        length = LitBrut<std::uint32_t>(at);
        break;
    }
    cell = Cell::Of(std::string_view(at, length));
    at += length;
  }
}

}  // namespace talpena::sqlite

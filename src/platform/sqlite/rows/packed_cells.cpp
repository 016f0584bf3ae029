#include "platform/sqlite/rows/packed_cells.h"

#include <cstdint>
#include <cstring>
#include <limits>

namespace talpena::sqlite {
namespace {

enum class Tag : char { Null, Byte, Long, Whole, Single, Double, Text, LongText };

constexpr std::size_t LongestNumber = 9;
constexpr std::size_t LongestTextHead = 5;

template <typename T>
char* EmballeBrut(char* to, Tag tag, T value) {
  *to++ = static_cast<char>(tag);
  std::memcpy(to, &value, sizeof value);
  return to + sizeof value;
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

char* EmballeEntier(char* to, std::int64_t value) {
  if (Tient<std::int8_t>(value)) {
    return EmballeBrut(to, Tag::Byte, static_cast<std::int8_t>(value));
  }
  if (Tient<std::int32_t>(value)) {
    return EmballeBrut(to, Tag::Long, static_cast<std::int32_t>(value));
  }
  return EmballeBrut(to, Tag::Whole, value);
}

char* EmballeReel(char* to, double value) {
  const bool fits = value >= -1e38 && value <= 1e38;
  const float single = fits ? static_cast<float>(value) : 0;
  const bool exact = fits && static_cast<double>(single) == value;
  return exact ? EmballeBrut(to, Tag::Single, single) : EmballeBrut(to, Tag::Double, value);
}

char* EmballeTexte(char* to, std::string_view text) {
  to = text.size() < 256 ? EmballeBrut(to, Tag::Text, static_cast<std::uint8_t>(text.size()))
                         : EmballeBrut(to, Tag::LongText, static_cast<std::uint32_t>(text.size()));
  if (!text.empty()) std::memcpy(to, text.data(), text.size());
  return to + text.size();
}

Cell DeballeTexte(const char*& at, std::size_t length) {
  const std::string_view text(at, length);
  at += length;
  return Cell::Of(text);
}

Cell DeballeUne(const char*& at) {
  switch (static_cast<Tag>(*at++)) {
    case Tag::Null:
      break;
    case Tag::Byte:
      return Cell::Of(std::int64_t{LitBrut<std::int8_t>(at)});
    case Tag::Long:
      return Cell::Of(std::int64_t{LitBrut<std::int32_t>(at)});
    case Tag::Whole:
      return Cell::Of(LitBrut<std::int64_t>(at));
    case Tag::Single:
      return Cell::Of(static_cast<double>(LitBrut<float>(at)));
    case Tag::Double:
      return Cell::Of(LitBrut<double>(at));
    case Tag::Text:
      return DeballeTexte(at, LitBrut<std::uint8_t>(at));
    case Tag::LongText:
      return DeballeTexte(at, LitBrut<std::uint32_t>(at));
  }
  return Cell::Null();
}

}  // namespace

std::size_t PlaceAuPlus(std::span<const Cell> cells) {
  static_assert(LongestNumber > LongestTextHead);
  std::size_t size = cells.size() * LongestNumber;
  for (const Cell& cell : cells) size += cell.text.size();
  return size;
}

char* Emballe(std::span<const Cell> cells, char* to) {
  for (const Cell& cell : cells) {
    switch (cell.kind) {
      case Cell::Kind::Null:
        *to++ = static_cast<char>(Tag::Null);
        break;
      case Cell::Kind::Integer:
        to = EmballeEntier(to, cell.integer);
        break;
      case Cell::Kind::Real:
        to = EmballeReel(to, cell.real);
        break;
      case Cell::Kind::Text:
        to = EmballeTexte(to, cell.text);
        break;
    }
  }
  return to;
}

void Deballe(const char* at, std::span<Cell> cells) {
  for (Cell& cell : cells) cell = DeballeUne(at);
}

}  // namespace talpena::sqlite

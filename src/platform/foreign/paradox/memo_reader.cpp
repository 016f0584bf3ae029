#include "platform/foreign/paradox/memo_reader.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/foreign/little_endian.h"
#include "platform/foreign/paradox/fields.h"
#include "platform/foreign/paradox/memo_format.h"

namespace talpena::paradox {

LongValue ReferenceLue(std::string_view bytes) {
  const std::size_t leader = bytes.size() - referenceBytes;
  const char* const reference = bytes.data() + leader;
  const auto place = NombreLu<std::uint32_t>(reference);
  return {.length = NombreLu<std::uint32_t>(reference + 4),
          .place = place & ~std::uint32_t{0xFF},
          .entry = place & 0xFFU,
          .leader = bytes.substr(0, leader)};
}

void MemoReader::Lit(const LongValue& value, const Piece& piece) {
  if (value.length > most_ || value.length > file_.Taille() - handedOver_) file_.Echec();
  handedOver_ += value.length;
  std::uint64_t place = PlaceDe(value);
  constexpr std::size_t mostAtOnce = 65536;
  std::vector<char> bytes(std::min<std::size_t>(value.length, mostAtOnce));
  for (std::size_t rest = value.length; rest > 0;) {
    const std::size_t count = std::min(rest, bytes.size());
    file_.Exige(place, {bytes.data(), count});
    piece({bytes.data(), count});
    place += count;
    rest -= count;
  }
}

/// Where the bytes of a value begin.
std::uint64_t MemoReader::PlaceDe(const LongValue& value) const {
  return value.entry == LongValue::singleValue ? PlaceSeule(value) : PlaceCommune(value);
}

std::uint64_t MemoReader::PlaceSeule(const LongValue& value) const {
  std::array<char, singleHead> head{};
  file_.Exige(value.place, head);
  const std::size_t size = NombreLu<std::uint16_t>(head.data() + 1) * memoBlockBytes;
  if (head[0] != static_cast<char>(MemoBlock::Single) || value.length + singleHead > size) {
    file_.Echec();
  }
  return value.place + singleHead;
}

std::uint64_t MemoReader::PlaceCommune(const LongValue& value) const {
  char kind = 0;
  file_.Exige(value.place, {&kind, 1});
  if (kind != static_cast<char>(MemoBlock::Shared) || value.entry >= sharedEntries) file_.Echec();
  std::array<char, entryBytes> entry{};
  file_.Exige(value.place + PlaceEntree(value.entry), entry);
  const std::size_t from = NombreLu<std::uint8_t>(entry.data()) * chunkBytes;
  const std::size_t size = NombreLu<std::uint8_t>(entry.data() + 1) * chunkBytes;
  const bool inBlock = from >= PlaceEntree(sharedEntries) && from + size <= memoBlockBytes;
  if (!inBlock || value.length > size) file_.Echec();
  return value.place + from;
}

}  // namespace talpena::paradox

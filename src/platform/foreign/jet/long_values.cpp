#include "platform/foreign/jet/long_values.h"

namespace talpena::jet {
namespace {

constexpr std::size_t mostInRow = 64;
constexpr std::uint32_t inRow = 0x80000000;
constexpr std::uint32_t inOneRow = 0x40000000;
constexpr std::size_t linkBytes = 4;

void AjouteTete(std::string& row, std::uint32_t kindAndLength, std::uint32_t place) {
  Ajoute32(row, kindAndLength);
  Ajoute32(row, place);
  Ajoute32(row, 0);
}

}  // namespace

void LongValues::Range(std::string_view value, std::string& row) {
  const auto length = static_cast<std::uint32_t>(value.size());
  if (value.size() <= mostInRow) {
    AjouteTete(row, inRow | length, 0);
    row += value;
  } else if (value.size() <= RowPages::longest) {
    AjouteTete(row, inOneRow | length, pages_.Ajoute(value).Mot());
  } else {
    AjouteTete(row, length, RangeEnChaine(value).Mot());
  }
}

/// Each piece names the next, so the last one is put down first.
Place LongValues::RangeEnChaine(std::string_view value) {
  constexpr std::size_t pieceBytes = RowPages::longest - linkBytes;
  std::size_t from = (value.size() - 1) / pieceBytes * pieceBytes;
  Place next;
  while (true) {
    piece_.clear();
    Ajoute32(piece_, next.Mot());
    piece_ += value.substr(from, pieceBytes);
    next = pages_.Ajoute(piece_);
    if (from == 0) return next;
    from -= pieceBytes;
  }
}

void LongValues::Ecrit() {
  pages_.Ecrit();
  used_.Ecrit();
  free_.Ecrit();
}

}  // namespace talpena::jet

#include "platform/sqlite/rows/row_arena.h"

#include "platform/sqlite/rows/packed_cells.h"

namespace talpena::sqlite {

void RowArena::Ajoute(std::span<const Cell> cells) {
  const std::size_t start = bytes_.size();
  starts_.push_back(start);
  bytes_.resize(start + PlaceAuPlus(cells));
  const char* const end = Emballe(cells, bytes_.data() + start);
  bytes_.resize(static_cast<std::size_t>(end - bytes_.data()));
}

void RowArena::Lit(std::size_t row, std::span<Cell> cells) const {
  Deballe(bytes_.data() + starts_[row], cells);
}

}  // namespace talpena::sqlite

// Rows kept in memory, packed.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/value.h"

namespace talpena::sqlite {

/// Rows of cells, written once and packed; each row takes 8 bytes more.
class RowArena {
 public:
  explicit RowArena(std::size_t columns) : columns_(columns) {}

  std::size_t Lignes() const { return starts_.size(); }
  std::size_t Colonnes() const { return columns_; }
  void Ajoute(std::span<const Cell> cells);
  /// Texts are valid as long as the arena does not grow.
  void Lit(std::size_t row, std::span<Cell> cells) const;

 private:
  std::size_t columns_;
  std::string bytes_;
  std::vector<std::uint64_t> starts_;
};

}  // namespace talpena::sqlite

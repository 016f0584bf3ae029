// Cells of a row as a string of bytes.
#pragma once
#include <cstddef>
#include <span>

#include "platform/value.h"

namespace talpena::sqlite {

/// Bytes that a row of cells takes at most: a number 2 to 9, a text its length and 2 or 5.
std::size_t PlaceAuPlus(std::span<const Cell> cells);
/// Writes the cells from `to` on, where there is that much room. What stands behind them.
char* Emballe(std::span<const Cell> cells, char* to);
/// Reads as many cells from `at` on, all of a row or its first. Texts are views of the bytes.
void Deballe(const char* at, std::span<Cell> cells);

}  // namespace talpena::sqlite

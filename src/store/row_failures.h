// Rows that cannot be written into a file as they are.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "common/talpena_error.h"

namespace talpena {

/// A column is Null where a value has to stand.
/// @param row  its place in the grid, from 1
TalpenaError RangeeSansValeur(std::int64_t row, std::string_view column);

/// A text holds characters that code page 1252 lacks, listed as by AjouteCp1252.
TalpenaError RangeeHorsPage(std::int64_t row, std::string_view column,
                            const std::string& characters);

/// Another failure, with the row and the column that it came from, in the language of the
/// interface.
TalpenaError EchecDeRangee(std::int16_t langue, const TalpenaError& failure, std::int64_t row,
                           std::string_view column);

}  // namespace talpena

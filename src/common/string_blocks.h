// The blocks of the string table as data; their source is made from data/strings when building.
#pragma once
#include <cstdint>
#include <span>

#include "common/string_table.h"

namespace talpena {

struct StringBlock {
  std::int16_t langue;                   ///< 1000 x language index
  std::span<const StringEntry> entries;  ///< ids ascend
};

/// One block per language that has texts; all hold the same ids.
std::span<const StringBlock> TousLesBlocs();

}  // namespace talpena

// The head of a Paradox table.
#pragma once
#include <cstdint>
#include <vector>

#include "platform/foreign/paradox/fields.h"
#include "platform/foreign/paradox/input.h"

namespace talpena::paradox {

/// A block begins with the number of the next, that of the one before, and where its last record
/// begins, counted from its first.
inline constexpr std::size_t blockHead = 6;
inline constexpr std::size_t blockUnit = 1024;  ///< blocks are some of these

inline constexpr std::size_t oldHead = 0x58;  ///< bytes in front of the columns up to level 3.5
inline constexpr std::size_t newHead = 0x78;  ///< from level 4 on
inline constexpr std::size_t pointerBytes = 4;
inline constexpr std::size_t nameBytes = 79;  ///< of the table's name, up to level 5

struct TableHead {
  std::size_t recordBytes = 0;
  std::size_t headBytes = 0;   ///< the blocks begin behind
  std::size_t blockBytes = 0;  ///< of a block
  std::uint32_t records = 0;
  std::uint32_t blocks = 0;      ///< in the file
  std::uint32_t firstBlock = 0;  ///< counted from 1; the others follow from it
  int codePage = 437;            ///< one that CodePage knows
  std::vector<Column> columns;
  bool protege = false;  ///< by a password: then nothing behind the head can be read
};

/// Levels 3.0 to 7, with and without a key. Raises UnrecognizedFormat (3343) for indexes and all
/// that is no table, and for a head that cannot be. What it says is possible: records go into
/// blocks, blocks into the file.
TableHead LitTete(const Input& file);

}  // namespace talpena::paradox

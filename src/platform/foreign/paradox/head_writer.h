// The head of a Paradox table that is written.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/paradox/head.h"
#include "platform/foreign/paradox/written_columns.h"

namespace talpena::paradox {

inline constexpr std::size_t smallUnits = 4;   ///< the largest blocks of level 4
inline constexpr std::size_t largeUnits = 32;  ///< the largest of level 5

/// Bytes for records in a block of so many units.
constexpr std::size_t OctetsDuBloc(std::size_t units) { return units * blockUnit - blockHead; }

/// What the head says beside the columns.
struct WrittenHead {
  bool level5 = false;
  std::size_t units = smallUnits;  ///< of a block
  std::uint32_t records = 0;
  std::uint32_t blocks = 0;
  std::uint32_t moment = 0;  ///< of the last change, in seconds since 1970
};

/// The whole head, of the same size for the same columns.
///
/// @param name  of the table's file
std::string Tete(const std::vector<WrittenColumn>& columns, std::string_view name,
                 const WrittenHead& head);

}  // namespace talpena::paradox

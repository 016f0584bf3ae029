// A rehearsal in the words of the interface.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "common/talpena_error.h"
#include "interchange/other_systems.h"
#include "interchange/rehearsal.h"
#include "interchange/rehearsed_rows.h"
#include "platform/settings_state.h"

namespace talpena {

/// Columns of the list.
namespace RehearsalColumn {
inline constexpr std::size_t Line = 0, Fate = 1, Period = 2, Original = 3, Latitude = 4,
                             Longitude = 5, Number1 = 6, Number2 = 7, Date = 8, Comment = 9;
inline constexpr std::size_t Count = 10;
}  // namespace RehearsalColumn
using RehearsalCells = std::array<std::string, RehearsalColumn::Count>;

/// Those of the numbers of individuals are the user's own, as in the table.
RehearsalCells TitresRepetition(const SettingsState& state);
RehearsalCells CellulesRepetition(std::int16_t langue, const RehearsedRow& row);
/// The last row of the list, where the import would end before the end of the file.
RehearsalCells CellulesArret(std::int16_t langue, const TalpenaError& failure);

/// How many rows and, until the file is read, how much of it was.
std::string ComptesEnMots(std::int16_t langue, const Rehearsal& rehearsal);
/// @param before  rows that would enter before the end
std::string ArretEnMots(std::int16_t langue, const TalpenaError& failure, std::int64_t before);
std::string ConseilEnMots(std::int16_t langue, const SystemHint& hint);

/// Cells in one line, parted by tabs; line breaks and tabs within them are blanks.
std::string EnLigne(const RehearsalCells& cells);

}  // namespace talpena

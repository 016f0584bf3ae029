// The table TALPENA that holds the rows of the open distribution.
#pragma once
#include <array>
#include <string>

#include "platform/settings_state.h"
#include "platform/table_engine.h"

namespace talpena {

namespace Column {
// Positions of the table's fields.
inline constexpr int Counter = 0, PERIOD = 1, LATITUDE = 2, LONGITUDE = 3, N1 = 4, N2 = 5, SEX = 6,
                     DATUM = 7, ORIGINAL = 8, DATE = 9, COMMENT = 10;
inline constexpr int Count = 11;
/// Grid column g shows field g + FirstInGrid; Counter is not shown.
inline constexpr int FirstInGrid = 1;
inline constexpr int GridCount = 10;
/// Characters of ORIGINAL and DATE.
inline constexpr int LargeurOriginal = 24, LargeurDate = 10;
}  // namespace Column

/// Builds TALPENA and its index in a fresh working database. The caller shows the hourglass.
/// TableExists (3010) when it is there already.
void CreateTable(Database& database);

/// Headings of grid columns 0 to 9, in the current language; those of N1 and N2 are the user's.
std::array<std::string, Column::GridCount> TitresColonnes(const SettingsState& state);

}  // namespace talpena

// The table TALPENA that holds the rows of the open distribution, and its free-field layout.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

/// One row of TALPENA as it passes between table, file and form. Empty optionals are Null.
namespace Column {
// Positions of the table's fields.
inline constexpr int Counter = 0, PERIOD = 1, LATITUDE = 2, LONGITUDE = 3, N1 = 4, N2 = 5, SEX = 6,
                     DATUM = 7, ORIGINAL = 8, DATE = 9, COMMENT = 10;
inline constexpr int Count = 11;
/// Grid column g shows field g + FirstInGrid; Counter is not shown.
inline constexpr int FirstInGrid = 1;
inline constexpr int GridCount = 10;
}  // namespace Column

/// Builds TALPENA and its index in a fresh working database.
void CreateTable(StoreState& state);

/// Headings of grid columns 0 to 9, in the current language.
std::array<std::string, Column::GridCount> TitresColonnes(const StoreState& state);

/// The eleven definition lines of a file made without standard.hdr, as they stand.
const std::array<std::string_view, 11>& ChampsLibresInternes();

/// Adds one definition line (items parted by commas: code, label, width) to FreeFieldDefs.
/// Fewer than three items raise SubscriptOutOfRange (9).
void AjouteChampLibre(StoreState& state, std::string_view line);

/// Path of standard.hdr in the program's folder when it is there.
std::string CheminStandardHdr(const StoreState& state, Platform& io);

/// Reads standard.hdr: its first line into FreeFieldSeparator and FreeFieldText, each further one
/// behind CR LF and through AjouteChampLibre; sets FreeFieldCount.
void LitStandardHdr(StoreState& state, Platform& io, const std::string& path);

}  // namespace talpena

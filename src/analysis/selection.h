// Selection of rows by a condition of the user's own.
#pragma once
#include <array>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

/// What the dialog shows and the user typed.
struct SelectionForm {
  int OptSelect = 0;  ///< 0 all rows, 1 those that meet the condition
  std::string TxtSelect;
};

/// The form as the dialog opens: the filter that is on, else the condition that was taken last.
SelectionForm RempliSelection(const StoreState& state);

/// OK: shows the whole table, in file order, or the rows that meet the condition, which the engine
/// is given as it stands. False, after a beep, when there is no condition. A condition that the
/// engine refuses is thrown on, with the rows as they were.
bool ValideSelection(StoreState& state, Platform& io, const SelectionForm& form);

/// Names that a condition may use, and conditions to start from; the same in every language.
inline constexpr std::string_view ColonnesDeSelection =
    "PERIOD, LATITUDE, LONGITUDE, N1, N2, SEX, DATUM, ORIGINAL, DATE, COMMENT";
inline constexpr std::array<std::string_view, 5> ExemplesDeSelection = {
    "PERIOD = 2 AND N1 > 10", "SEX LIKE 'F'", "DATE LIKE '1998*'",
    "COMMENT LIKE '*garden*' OR ORIGINAL IS NULL", "LATITUDE BETWEEN 50 AND 51.5"};

/// The word at the end of what stands before the cursor, which may be the beginning of a column's
/// name; "" where there is none: behind a blank, in a number, between quotes.
std::string MotACompleter(std::string_view avant);

}  // namespace talpena

// What a column holds: every cell on its way into a table passes here.
#pragma once
#include <string>

#include "platform/sqlite/table_state.h"
#include "platform/value.h"

namespace talpena::sqlite {

/// Strict is what programs and users get. Foreign is for rows that another maker's file already
/// holds: sizes, empty texts and Nulls are taken as they are.
enum class Check : std::uint8_t { Strict, Foreign };

/// The cell as the column stores it; its text may live in `scratch`. Raises Overflow (6),
/// FieldTooSmall (3163), NullNotAllowed (3314), ZeroLength (3315), DataConversion (3421).
/// Null for an auto-increment field means that the table numbers the row.
Cell Convertit(const TableState& table, int field, const Cell& cell, std::string& scratch,
               Check check = Check::Strict);

/// Days since 30 December 1899 of "yyyy-mm-dd" or "yyyy/mm/dd", " hh:mm:ss" behind it if there
/// is a time of day; false when the text is no such date.
bool LitDate(std::string_view text, double& days);

/// Days since 30 December 1899; false when there is no such day.
bool JoursDe(int year, int month, int day, double& days);

struct CalendarDay {
  int year;
  int month;
  int day;
};
CalendarDay JourDe(double days);

}  // namespace talpena::sqlite

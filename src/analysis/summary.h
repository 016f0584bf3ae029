// Summary of the rows: N1, N2, years and months, over all rows, by period and by sex.
#pragma once
#include <array>
#include <string>
#include <vector>

#include "analysis/text_table.h"
#include "analysis/value_counts.h"
#include "store/command_context.h"

namespace talpena {

/// What is summed up, in the order of the lines.
inline constexpr std::size_t SummedValues = 4;  ///< N1, N2, year, month

struct SummaryGroup {
  std::string name;
  std::array<ValueSummary, SummedValues> values;
};

struct Summary {
  std::array<std::string, SummedValues> names;  ///< of the values
  std::vector<SummaryGroup> groups;             ///< all rows, then the periods, then the sexes
  CountedRows lignes;
};

/// Of the rows chosen in the grid, else of all that it shows. A row without a year or a month
/// counts as Null there. One period, or one sex, alone makes no group of its own: it is all rows.
Summary ResumeLignes(CommandContext c);

/// As it is shown, copied and saved: headings, then a line for each group and value. Means and
/// deviations have four decimals at most.
TextTable TableDuResume(const Summary& summary, std::int16_t langue);

}  // namespace talpena

// Charts of the table: points for each number, sums through the year.
#pragma once
#include "platform/chart.h"
#include "store/command_context.h"

namespace talpena {

/// Counts, for each value of N1 (index 0) or N2 (any other), the distinct points of the whole
/// table that carry it. A value above 3799 is refused by a message, and nothing is shown; nor is
/// anything of a column without values.
void mnuAnalyse_Click(CommandContext c, ChartPort& port, int index);

/// Sums of N1 over the twelve months, of the rows chosen in the grid or else of all that it shows.
void mnuPhenolo_Click(CommandContext c, ChartPort& port);

}  // namespace talpena

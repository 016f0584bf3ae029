// Charts through the year and through the years, of the rows chosen in the grid or else of all
// that it shows.
#pragma once
#include "platform/chart.h"
#include "store/command_context.h"

namespace talpena {

/// Sums of N1 over the 36 ten-day steps of the year (the 1st to the 10th, the 11th to the 20th, the
/// rest of each month), stacked by period, with the number of rows behind them as a line. Rows
/// without a whole month and day fall out; when all do, the chart has no series.
void mnuDecades_Click(CommandContext c, ChartPort& port);

/// Rows of each year, and the points that were recorded for the first time in it. Rows without a
/// year fall out; those without a position are no points. A box says when no row has a year.
void mnuAnnees_Click(CommandContext c, ChartPort& port);

}  // namespace talpena

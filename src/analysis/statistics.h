// Means and deviations of N1 and N2, and their transformation.
#pragma once
#include "store/command_context.h"

namespace talpena {

/// Reports means and sample deviations of N1 and N2 over the whole table, also under a filter. A
/// box says instead that there is none when N1 has fewer than two values.
void MnuParametres_Click(CommandContext c);

/// What mnustd makes of the numbers.
enum Standardisation : int { Logarithme = 0, ValeursNormalesReduites = 1 };

/// Rewrites N1 and N2 of the rows on show, all or nothing, without a question:
/// - Logarithme: 1 + log10 of each. Of 0, of a negative number and of Null there is none:
///   InvalidCall (5) is thrown, and all rows are as before.
/// - ValeursNormalesReduites: less the mean and divided by the deviation of the whole table, which
///   a box tells of N1. A column that has no deviation, or 0, stays; so does Null.
/// The columns hold whole numbers: results are rounded, halves to even. Marks the file as modified
/// and binds the rows on show anew; nothing happens without rows.
void mnustd_Click(CommandContext c, int index);

}  // namespace talpena

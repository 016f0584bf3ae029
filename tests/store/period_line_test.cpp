#include "store/period_line.h"

#include <gtest/gtest.h>

#include "common/talpena_error.h"

namespace talpena {
namespace {

struct PivotCase {
  const char* name;
  const char* line;
  int count;
  int pivot1;
  int pivot2;
};

// Before each line the state holds 7 periods with the pivots 11 and 22.
// clang-format off
constexpr PivotCase pivotCases[] = {
    {"one period",    " 0000 - 2026   0 - 0   0 - 0",             0,   11,   22},
    {"two periods",   " 0000 - 1949   1950 - 2026   0 - 0",       1, 1950,   22},
    {"three periods", " 0000 - 1949   1950 - 1989   1990 - 2026", 2, 1950, 1990},
    {"empty line",    "",                                         2,    0,    0},
    {"cut short",     " 0000 - 1949   19",                        2,   19,    0},
    {"no years",      " 0000 - xxxx   yyyy - zzzz   aaaa - bbbb", 2,    0,    0},
    {"elsewhere",     "  0 - 0  1949   1950 - 1989   1990 - 2026", 7,  11,   22},
    {"year 0949",     " 0000 - 0949   1950 - 1989   1990 - 2026", 7,   11,   22},
    {"bytes of the code page", " 0000 - 1949   \xA0" "195 - 1989   1990", 2, 0, 1990},
};
// clang-format on

TEST(LitPivots, LooksOnlyWhereTheFirstAbsentPeriodStands) {
  for (const PivotCase& c : pivotCases) {
    SCOPED_TRACE(c.name);
    DistributionHeader entete;
    entete.NbPivots = 7;
    entete.Pivot1 = 11;
    entete.Pivot2 = 22;
    LitPivots(entete, c.line);
    EXPECT_EQ(entete.NbPivots, c.count);
    EXPECT_EQ(entete.Pivot1, c.pivot1);
    EXPECT_EQ(entete.Pivot2, c.pivot2);
  }
}

TEST(LitPivots, RefusesAYearBeyond16Bits) {
  DistributionHeader entete;
  try {
    LitPivots(entete, " 0000 - 1949   9E9  - 1989   1990 - 2026");
    FAIL();
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::Overflow);
  }
}

}  // namespace
}  // namespace talpena

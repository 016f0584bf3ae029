#include "analysis/condition_history.h"

#include <gtest/gtest.h>

#include "fakes/fake_platform.h"

namespace talpena::test {
namespace {

using Texts = std::vector<std::string>;

TEST(ConditionHistory, IsEmptyAtFirst) {
  FakeSettings settings;
  EXPECT_TRUE(ConditionsRetenues(settings).empty());
}

TEST(ConditionHistory, HasTheNewestFirstAndEachOnce) {
  FakeSettings settings;
  for (const char* typed : {"N1 > 1", "SEX = 'F'", "N1 > 1", " N1 > 2 ", "  "}) {
    RetientCondition(settings, typed);
  }
  EXPECT_EQ(ConditionsRetenues(settings), (Texts{"N1 > 2", "N1 > 1", "SEX = 'F'"}));
  EXPECT_EQ(settings.values["TALPENA/SELECTION/CONDITION1"], "N1 > 2");
}

TEST(ConditionHistory, KeepsTwenty) {
  FakeSettings settings;
  for (int i = 1; i <= 25; ++i) RetientCondition(settings, "N1 = " + std::to_string(i));
  const Texts kept = ConditionsRetenues(settings);
  ASSERT_EQ(kept.size(), 20U);
  EXPECT_EQ(kept.front(), "N1 = 25");
  EXPECT_EQ(kept.back(), "N1 = 6");
}

}  // namespace
}  // namespace talpena::test

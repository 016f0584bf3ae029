// Summary of the rows. Expected values by hand.
#include "analysis/summary.h"

#include <gtest/gtest.h>

#include "analysis/number_rows.h"

namespace talpena::test {
namespace {

std::vector<std::string> NomsDesGroupes(const Summary& summary) {
  std::vector<std::string> names;
  for (const SummaryGroup& group : summary.groups) names.push_back(group.name);
  return names;
}

TEST(SummaryOfRows, CountsNumbersYearsAndMonths) {
  NumberWorld w;
  w.Montre({{1, 10, 50, 4, "1999/05/01"}, {3, {}, 50, 4, "2001/00/00"}, {{}, 30, 50, 4}});
  const Summary summary = ResumeLignes(w.context);
  ASSERT_EQ(summary.groups.size(), 1U);
  const auto& [n1, n2, year, month] = summary.groups[0].values;
  EXPECT_EQ(n1.count, 2);
  EXPECT_EQ(n1.nulls, 1);
  EXPECT_EQ(n1.mean, 2);
  EXPECT_EQ(n2.median, 20);
  EXPECT_EQ(year.minimum, 1999);
  EXPECT_EQ(year.maximum, 2001);
  EXPECT_EQ(year.nulls, 1);
  EXPECT_EQ(month.count, 1);
  EXPECT_EQ(month.nulls, 2);
  EXPECT_EQ(TexteDesLignes(1000, summary.lignes), "Rows counted: 3 (all)");
}

TEST(SummaryOfRows, GroupsByPeriodAndBySex) {
  NumberWorld w;
  w.Montre({{1, 1, 50, 4, nullptr, 2, "F"},
            {3, 1, 50, 4, nullptr, 2, "M"},
            {5, 1, 50, 4, nullptr, 1, "F"},
            {7, 1, 50, 4, nullptr, {}, nullptr}});
  const Summary summary = ResumeLignes(w.context);
  EXPECT_EQ(NomsDesGroupes(summary),
            (std::vector<std::string>{"All rows", "No period", "Period 1", "Period 2", "No sex",
                                      "Sex F", "Sex M"}));
  EXPECT_EQ(summary.groups[0].values[0].mean, 4);
  EXPECT_EQ(summary.groups[3].values[0].mean, 2);
  EXPECT_EQ(summary.groups[5].values[0].mean, 3);
}

TEST(SummaryOfRows, ABlankSexIsNone) {
  NumberWorld w;
  w.Montre({{1, 1, 50, 4, nullptr, 1, " "},
            {3, 1, 50, 4, nullptr, 1, nullptr},
            {5, 1, 50, 4, nullptr, 1, ""},
            {7, 1, 50, 4, nullptr, 1, "M"}});
  const Summary summary = ResumeLignes(w.context);
  EXPECT_EQ(NomsDesGroupes(summary), (std::vector<std::string>{"All rows", "No sex", "Sex M"}));
  EXPECT_EQ(summary.groups[1].values[0].mean, 3);
}

TEST(SummaryOfRows, OnePeriodOrSexAloneMakesNoGroup) {
  NumberWorld w;
  w.Montre({{1, 1, 50, 4, nullptr, 1, "M"}, {3, 1, 50, 4, nullptr, 1, "M"}});
  EXPECT_EQ(NomsDesGroupes(ResumeLignes(w.context)), std::vector<std::string>{"All rows"});
}

TEST(SummaryOfRows, SeesTheRowsOfTheFilterElseTheSelectedOnes) {
  NumberWorld w;
  w.Montre({{1, 1}, {2, 1}, {9, 1}});
  w.Filtre("N1 < 5");
  EXPECT_EQ(ResumeLignes(w.context).groups[0].values[0].maximum, 2);
  EXPECT_EQ(TexteDesLignes(1000, ResumeLignes(w.context).lignes), "Rows counted: 2 of 3 (filter)");
  w.Choisit({0});
  EXPECT_EQ(ResumeLignes(w.context).groups[0].values[0].maximum, 1);
}

TEST(SummaryOfRows, AnEmptyTableHasAllRowsWithoutValues) {
  NumberWorld w;
  w.Montre({});
  const Summary summary = ResumeLignes(w.context);
  ASSERT_EQ(summary.groups.size(), 1U);
  EXPECT_EQ(summary.groups[0].values[0].count, 0);
}

TEST(SummaryOfRows, IsATableOfTexts) {
  NumberWorld w;
  w.state.LabelNumeric1 = "Males";
  w.Montre({{1, 1, 50, 4, "1999/05/01"}, {2, 1, 50, 4, "1999/05/01"}});
  const TextTable table = TableDuResume(ResumeLignes(w.context), 1000);
  ASSERT_EQ(table.size(), 5U);
  EXPECT_EQ(AvecVirgules({table[0]}),
            "Rows,Value,n,Null,Minimum,1st quartile,Median,3rd quartile,Maximum,Mean,"
            "Deviation\r\n");
  EXPECT_EQ(AvecVirgules({table[1]}), "All rows,Males,2,0,1,1.25,1.5,1.75,2,1.5,0.7071\r\n");
  EXPECT_EQ(AvecVirgules({table[4]}), "All rows,Month,2,0,5,5,5,5,5,5,0\r\n");
}

TEST(SummaryOfRows, EveryLanguageHasAHeadingForEachColumn) {
  NumberWorld w;
  w.Montre({});
  for (const auto langue : std::initializer_list<std::int16_t>{0, 1000, 3000, 4000, 5000}) {
    const TextTable table = TableDuResume(ResumeLignes(w.context), langue);
    EXPECT_EQ(table[0].size(), table[1].size()) << langue;
  }
}

}  // namespace
}  // namespace talpena::test

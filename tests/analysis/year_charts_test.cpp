// Ten-day steps and years. Expected values by hand.
#include "analysis/year_charts.h"

#include <gtest/gtest.h>

#include "analysis/number_rows.h"

namespace talpena::test {
namespace {

using Values = std::vector<double>;

struct Charted : NumberWorld {
  void Decades() { mnuDecades_Click(context, charts); }
  void Annees() { mnuAnnees_Click(context, charts); }
  const ChartPicture& Dernier() const { return charts.montres.back(); }
  /// The steps of a series that are not 0, as "step=value".
  std::string Pas(std::size_t series) const {
    std::string text;
    const Values values = charts.Valeurs(series);
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (values[i] != 0)
        text += (text.empty() ? "" : " ") + std::to_string(i + 1) + "=" + Str(values[i]);
    }
    return text;
  }
};

TEST(TenDaySteps, EndWithThe10thThe20thAndTheMonth) {
  Charted w;
  std::vector<NumberRow> rows;
  for (const char* date : {"1999/01/01", "1999/01/10", "1999/01/11", "1999/01/20", "1999/01/21",
                           "1999/01/31", "1999/02/30", "1999/12/31"}) {
    rows.push_back({2, 9, 50, 4, date, 1});
  }
  w.Montre(rows);
  w.Decades();
  EXPECT_EQ(w.Dernier().numPoints, 36);
  EXPECT_EQ(w.Pas(0), "1=4 2=4 3=4 6=2 36=2");
  EXPECT_EQ(NomDuPoint(w.Dernier(), 2), "11 Jan");
  EXPECT_EQ(NomDuPoint(w.Dernier(), 36), "21 Dec");
}

TEST(TenDaySteps, PeriodsAreStackedAndRowsCountedBesideThem) {
  Charted w;
  w.Montre({{2, 1, 50, 4, "1999/01/01", 2},
            {3, 1, 50, 4, "1999/01/02", 1},
            {{}, 1, 50, 4, "1999/01/02", 1},
            {5, 1, 50, 4, "1999/03/01"}});
  w.Decades();
  const ChartPicture& picture = w.Dernier();
  EXPECT_EQ(picture.style, ChartStyle::Stacked);
  ASSERT_EQ(picture.series.size(), 4U);
  EXPECT_EQ(picture.series[0].name, "No period");
  EXPECT_EQ(picture.series[1].name, "Period 1");
  EXPECT_EQ(picture.series[2].name, "Period 2");
  EXPECT_EQ(picture.series[3].name, "Records");
  EXPECT_TRUE(picture.series[3].aDroite);
  EXPECT_EQ(w.Pas(0), "7=5");
  EXPECT_EQ(w.Pas(1), "1=3");
  EXPECT_EQ(w.Pas(2), "1=2");
  EXPECT_EQ(w.Pas(3), "1=3 7=1");
}

TEST(TenDaySteps, RowsWithoutMonthOrDayFallOut) {
  Charted w;
  w.Montre({{2, 1, 50, 4, "1999/01/00", 1},
            {2, 1, 50, 4, "1999/00/05", 1},
            {2, 1, 50, 4, "1999/01/32", 1},
            {2, 1, 50, 4, "1999", 1},
            {2, 1, 50, 4, nullptr, 1}});
  w.Decades();
  EXPECT_EQ(w.Dernier().numPoints, 36);
  EXPECT_TRUE(w.Dernier().series.empty()) << "the window says that no row has a value";
}

TEST(TenDaySteps, APeriodKeepsItsColourWithoutTheOthers) {
  Charted w;
  w.Montre({{2, 1, 50, 4, "1999/01/01", 1}, {2, 1, 50, 4, "1999/01/01", 3}});
  w.Decades();
  ASSERT_EQ(w.Dernier().series.size(), 3U);
  const int third = w.Dernier().series[1].couleur, records = w.Dernier().series[2].couleur;
  EXPECT_NE(w.Dernier().series[0].couleur, third);
  EXPECT_NE(third, records);
  w.Choisit({1});
  w.Decades();
  ASSERT_EQ(w.Dernier().series.size(), 2U);
  EXPECT_EQ(w.Dernier().series[0].couleur, third);
  EXPECT_EQ(w.Dernier().series[1].couleur, records);
}

TEST(TenDaySteps, SayHowManyRowsHaveNoDay) {
  Charted w;
  w.Montre({{2, 1, 50, 4, "1999/01/00", 1}, {2, 1, 50, 4, "1999/01/01", 1}});
  w.Decades();
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes),
            "Rows counted: 2 (all). 1 of them have no date that this chart can use.");
}

TEST(TenDaySteps, SeeTheSelectedRowsAndSaySo) {
  Charted w;
  w.Montre({{2, 1, 50, 4, "1999/01/01", 1}, {3, 1, 50, 4, "1999/01/01", 1}});
  w.Choisit({1});
  w.Decades();
  EXPECT_EQ(w.Pas(0), "1=3");
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes), "Rows counted: 1 (selected)");
}

TEST(RecordsThroughTheYears, CountRowsAndPointsNeverSeenBefore) {
  Charted w;
  w.Montre({{1, 1, 50, 4, "2001/01/01"},
            {1, 1, 50, 4, "1999/05/01"},
            {1, 1, 51, 4, "2001/01/01"},
            {1, 1, 51, 4, "2001/02/01"},
            {1, 1, {}, 4, "2001/02/01"}});
  w.Annees();
  EXPECT_EQ(w.Dernier().numPoints, 3) << "1999 to 2001";
  EXPECT_EQ(NomDuPoint(w.Dernier(), 1), "1999");
  EXPECT_EQ(w.charts.Valeurs(0), (Values{1, 0, 4}));
  EXPECT_EQ(w.charts.Valeurs(1), (Values{1, 0, 1}));
  EXPECT_EQ(w.Dernier().bottomTitle, "Year");
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes), "Rows counted: 5 (all)");
}

TEST(RecordsThroughTheYears, NoughtNoughtIsNoPoint) {
  Charted w;
  w.Montre({{1, 1, 0, 0, "1999/01/01"}, {1, 1, 0, 4, "1999/01/01"}, {1, 1, 50, 0, "1999/01/01"}});
  w.Annees();
  EXPECT_EQ(w.charts.Valeurs(0), Values{3});
  EXPECT_EQ(w.charts.Valeurs(1), Values{2});
}

TEST(RecordsThroughTheYears, RowsWithoutAYearFallOut) {
  Charted w;
  w.Montre({{1, 1, 50, 4, "0000/01/01"}, {1, 1, 50, 4, ""}, {1, 1, 51, 4, "1999/00/00"}});
  w.Annees();
  EXPECT_EQ(w.charts.Valeurs(0), Values{1});
  EXPECT_EQ(w.charts.Valeurs(1), Values{1});
}

TEST(RecordsThroughTheYears, WithoutAnyYearABoxSaysSo) {
  Charted w;
  w.Montre({{1, 1, 50, 4}});
  w.Annees();
  EXPECT_TRUE(w.charts.montres.empty());
  EXPECT_EQ(w.Boites(), std::vector<std::string>{"No row has a value for this chart."});
}

}  // namespace
}  // namespace talpena::test

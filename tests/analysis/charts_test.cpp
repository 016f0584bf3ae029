// Charts of the table. Expected values by hand.
#include "analysis/charts.h"

#include <gtest/gtest.h>

#include "analysis/number_rows.h"
#include "analysis/ogu_counter.h"
#include "common/talpena_error.h"

namespace talpena::test {
namespace {

using Values = std::vector<double>;

struct Charted : NumberWorld {
  void Analyse(int index = 0) { mnuAnalyse_Click(context, charts, index); }
  void Phenologie() { mnuPhenolo_Click(context, charts); }
  const ChartPicture& Dernier() const { return charts.montres.back(); }
};

TEST(MnuAnalyse, CountsTheDistinctPointsOfEachNumber) {
  Charted w;
  w.state.LabelNumeric1 = "Males";
  { Entete(w.state.document)->BoxTitre = "Talpa europaea"; }
  w.Montre({{3, 1, 50, 4}, {1, 1, 50, 4}, {3, 1, 51, 4}, {3, 1, 50, 4}, {3, 1, 50, 5}});
  w.Analyse();
  EXPECT_EQ(w.charts.Valeurs(), (Values{1, -1, 3, -1}));
  EXPECT_EQ(w.Dernier().numPoints, 4);
  EXPECT_EQ(w.Dernier().labelEvery, 2);
  EXPECT_EQ(w.Dernier().bottomTitle, "Males");
  EXPECT_EQ(w.Dernier().leftTitle, "OGUs");
  EXPECT_EQ(w.Dernier().graphTitle, "Talpa europaea");
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes), "Rows counted: 5 (all)");
  EXPECT_FALSE(w.state.document.FichierModifie());
}

TEST(MnuAnalyse, AnyOtherIndexCountsN2) {
  for (const int index : {1, 7}) {
    Charted w;
    w.state.LabelNumeric2 = "Females";
    w.Montre({{9, 2, 50, 4}, {9, 1, 50, 4}});
    w.Analyse(index);
    EXPECT_EQ(w.charts.Valeurs(), (Values{1, 1, -1}));
    EXPECT_EQ(w.Dernier().bottomTitle, "Females");
  }
}

TEST(MnuAnalyse, OneUnitForOneValueAndPositionInAnyOrderOfRowsAndColumns) {
  Charted w;
  w.Montre({{1, 8, 50, 4, "1999/01/01"}, {1, 5, 51, 4}, {1, 7, 50, 4, nullptr, 2, "M"}});
  w.state.document.Relie(RowsShown::Dans({.index = 5, .direction = Direction::Descending}));
  w.Analyse();
  EXPECT_EQ(w.charts.Valeurs(), (Values{2, -1}));
}

TEST(MnuAnalyse, AMaximumOf3799PassesAnd3800DoesNot) {
  Charted w;
  w.Montre({{3799, 3800, 50, 4}});
  w.Analyse(0);
  ASSERT_EQ(w.charts.montres.size(), 1U);
  EXPECT_EQ(w.Dernier().numPoints, 3800);
  EXPECT_EQ(w.Dernier().labelEvery, 1000);
  EXPECT_EQ(w.charts.Valeurs().at(3798), 1);
  w.Analyse(1);
  EXPECT_EQ(w.charts.montres.size(), 1U) << "no other chart";
  EXPECT_FALSE(w.vue.sablier);
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(w.Boites(), std::vector<std::string>{"X axis exeeds 3800 points!"});
}

TEST(MnuAnalyse, LabelsEveryThousandthOfMoreThan2001Points) {
  for (const auto& [maximum, every] : {std::pair{2000, 2}, std::pair{2001, 1000}}) {
    Charted w;
    w.Montre({{maximum, 1, 50, 4}});
    w.Analyse();
    EXPECT_EQ(w.Dernier().labelEvery, every) << maximum;
  }
}

TEST(MnuAnalyse, NothingIsDrawnOfAnEmptyTableOrColumn) {
  Charted empty;
  empty.Montre({});
  empty.Analyse();
  EXPECT_TRUE(empty.charts.montres.empty());
  Charted nulls;
  nulls.Montre({{{}, 1, 50, 4}});
  nulls.Analyse();
  EXPECT_TRUE(nulls.charts.montres.empty());
  EXPECT_TRUE(nulls.dialogues.boxes.empty());
}

TEST(MnuAnalyse, AMaximumBelow1IsAnEmptyChartOfOnePoint) {
  for (const std::int64_t value : {0, -1, -2147483647}) {
    Charted w;
    w.Montre({{value, 1, 50, 4}});
    w.Analyse();
    EXPECT_EQ(w.Dernier().numPoints, 1);
    EXPECT_TRUE(w.Dernier().series.empty());
  }
}

TEST(MnuAnalyse, NullZeroAndNegativeNumbersAreNeverCharted) {
  Charted w;
  w.Montre({{{}, 1, 50, 4}, {0, 1, 50, 4}, {-3, 1, 50, 4}, {1, 1, 50, 4}});
  w.Analyse();
  EXPECT_EQ(w.charts.Valeurs(), (Values{1, -1}));
}

TEST(MnuAnalyse, UnderAFilterTheWholeTableIsCountedAndTheChartSaysSo) {
  Charted w;
  w.Montre({{1, 1, 50, 4}, {2, 1, 50, 4}});
  w.Filtre("N1 = 1");
  w.Analyse();
  EXPECT_EQ(w.charts.Valeurs(), (Values{1, 1, -1}));
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes),
            "All 2 rows of the table are counted, also those that the filter hides.");
}

TEST(MnuAnalyse, TitlesAreSetAlsoWhenEmpty) {
  Charted w;
  w.state.LabelNumeric1 = "";
  w.Montre({{1, 1, 50, 4}});
  w.Analyse();
  EXPECT_EQ(w.Dernier().bottomTitle, "");
  EXPECT_EQ(w.Dernier().graphTitle, "");
}

/// What a walk over rows of one value counts.
struct Walk {
  std::vector<std::pair<double, int>> sent;
  OguCounter counter{[this](double value, int units) { sent.emplace_back(value, units); }};
};

TEST(OguCounter, AMissingPositionAddsNothing) {
  Walk w;
  for (const UnitPosition& position :
       {UnitPosition{{50.F, 4.F}}, UnitPosition{}, UnitPosition{{50.F, 4.F}}}) {
    w.counter.Ajoute(2, position);
  }
  w.counter.Termine();
  EXPECT_EQ(w.sent, (std::vector<std::pair<double, int>>{{2, 1}}));
}

TEST(OguCounter, AValueWithoutPositionsIsOneUnit) {
  Walk w;
  w.counter.Ajoute(2, {});
  w.counter.Ajoute(2, {});
  w.counter.Termine();
  EXPECT_EQ(w.sent, (std::vector<std::pair<double, int>>{{2, 1}}));
}

TEST(OguCounter, APositionBehindAMissingOneIsAUnitMore) {
  Walk w;
  w.counter.Ajoute(1, UnitPosition{{50.F, 4.F}});
  w.counter.Ajoute(2, {});
  w.counter.Ajoute(2, UnitPosition{{51.F, 4.F}});
  w.counter.Ajoute(3, {});
  w.counter.Ajoute(3, UnitPosition{{51.F, 4.F}});
  w.counter.Termine();
  EXPECT_EQ(w.sent, (std::vector<std::pair<double, int>>{{1, 1}, {2, 2}, {3, 1}}));
}

TEST(OguCounter, PositionsAreEqualAs32BitFloats) {
  Charted w;
  w.Montre({{1, 1, 50.123456781, 4}, {1, 1, 50.123456782, 4}});
  w.Analyse();
  EXPECT_EQ(w.charts.Valeurs(), (Values{1, -1}));
}

TEST(ChartPoints, AFractionIsChartedAtTheIndexThatThisPointMakesOfIt) {
  FakeCharts charts;
  Chart graph(charts);
  graph.DataReset();
  graph.NumPoints(4);
  OguCounter counter([&](double value, int units) {
    graph.ThisPoint(value);
    graph.GraphData(units);
  });
  for (const auto& [value, latitude] :
       {std::pair{0.4, 1.F}, {1.5, 2.F}, {2.4, 3.F}, {2.4, 4.F}, {2.5, 5.F}, {3.7, 6.F}}) {
    counter.Ajoute(value, UnitPosition{{latitude, 4.F}});
  }
  counter.Termine();
  graph.DrawMode();
  graph.Show();
  // 1.5, 2.4 and 2.5 are all point 2, which keeps the last; 0.4 is no point.
  EXPECT_EQ(charts.Valeurs(), (Values{-1, 1, -1, 1}));
}

TEST(ChartPoints, AutoIncGoesOnAfterEachValue) {
  FakeCharts charts;
  Chart graph(charts);
  graph.NumPoints(3);
  graph.AutoInc(true);
  graph.ThisPoint(2);
  for (const double value : {5, 6, 7}) graph.GraphData(value);
  graph.DrawMode();
  graph.Show();
  EXPECT_EQ(charts.Valeurs(), (Values{-1, 5, 6}));
}

TEST(ChartPoints, OnlyWhatWasDrawnIsShown) {
  FakeCharts charts;
  Chart graph(charts);
  graph.NumPoints(1);
  graph.GraphData(5);
  graph.GraphTitle("first");
  graph.DrawMode();
  graph.DataReset();
  graph.GraphTitle("second");
  graph.Show();
  EXPECT_EQ(charts.Valeurs(), Values{5});
  EXPECT_EQ(charts.montres.back().graphTitle, "first");
}

TEST(MnuPhenolo, SumsN1OverTheMonths) {
  Charted w;
  { Entete(w.state.document)->BoxTitre = "Talpa europaea"; }
  w.Montre({{3, 90, 50, 4, "1999/01/31"},
            {4, 90, 50, 4, "1850/01/01"},
            {5, 90, 50, 4, "1999/12/00"},
            {-1, 90, 50, 4, "1999/06/15"}});
  w.Phenologie();
  EXPECT_EQ(w.charts.Valeurs(), (Values{7, 0, 0, 0, 0, -1, 0, 0, 0, 0, 0, 5})) << "N2 has no part";
  EXPECT_EQ(w.Dernier().numPoints, 12);
  EXPECT_EQ(w.Dernier().labelEvery, 1);
  EXPECT_EQ(w.Dernier().leftTitle, "N");
  EXPECT_EQ(w.Dernier().bottomTitle, "");
  EXPECT_EQ(w.Dernier().graphTitle, "Talpa europaea");
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes), "Rows counted: 4 (all)");
}

TEST(MnuPhenolo, SaysHowManyRowsHaveNoMonth) {
  Charted w;
  w.Montre({{3, 1, 50, 4, "1999/01/31"},
            {3, 1, 50, 4, "1999/00/00"},
            {3, 1, 50, 4, nullptr},
            {{}, 1, 50, 4, "1999/01/31"}});
  w.Phenologie();
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes),
            "Rows counted: 4 (all). 2 of them have no date that this chart can use.");
}

TEST(MnuPhenolo, DatesWithoutAMonthAndRowsWithoutDateOrNumberFallOut) {
  Charted w;
  w.Montre({{1, 1, 50, 4, "1999/00/00"},
            {1, 1, 50, 4, "1999/13/01"},
            {1, 1, 50, 4, "1999"},
            {1, 1, 50, 4, ""},
            {1, 1, 50, 4, "1999/xx/01"},
            {1, 1, 50, 4},
            {{}, 1, 50, 4, "1999/05/01"}});
  w.Phenologie();
  EXPECT_EQ(w.charts.Valeurs(), Values(12, 0));
}

TEST(MnuPhenolo, TheMonthIsTheNumericParseOfTwoCharacters) {
  Charted w;
  w.Montre({{1, 1, 50, 4, "1999/5/03"}, {2, 1, 50, 4, "1999/ 7/0"}, {4, 1, 50, 4, "é999/08/01"}});
  w.Phenologie();
  EXPECT_EQ(w.charts.Valeurs(), (Values{0, 0, 0, 0, 1, 0, 2, 4, 0, 0, 0, 0}));
}

TEST(MnuPhenolo, TakesTheSelectedRowsElseThoseOnShow) {
  Charted w;
  w.Montre({{1, 1, 50, 4, "1999/01/01"}, {2, 1, 50, 4, "1999/02/01"}, {4, 1, 50, 4, "1999/03/01"}});
  w.Filtre("N1 > 1");
  w.Phenologie();
  EXPECT_EQ(w.charts.Valeurs(), (Values{0, 2, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes), "Rows counted: 2 of 3 (filter)");
  w.Choisit({2});
  w.Phenologie();
  EXPECT_EQ(w.charts.Valeurs(), (Values{0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(TexteDesLignes(1000, w.Dernier().lignes), "Rows counted: 1 (selected)");
}

TEST(MnuPhenolo, AnEmptySetIsAnEmptyChartWithoutABeep) {
  Charted w;
  w.Montre({});
  w.Phenologie();
  EXPECT_EQ(w.charts.Valeurs(), Values(12, 0));
  EXPECT_EQ(w.sound.bips, 0);
}

TEST(MnuPhenolo, SumsAreWiderThanTheColumn) {
  Charted w;
  w.Montre({{2147483647, 1, 50, 4, "1999/01/01"}, {2147483647, 1, 50, 4, "1999/01/01"}});
  w.Phenologie();
  EXPECT_EQ(w.charts.Valeurs().front(), 4294967294.0);
}

TEST(MnuPhenolo, MonthsAreNamedInTheInterfacesLanguage) {
  for (const auto& [langue, may] : {std::pair<std::int16_t, const char*>{0, "mai"},
                                    {1000, "May"},
                                    {3000, "Mai"},
                                    {4000, "mag"},
                                    {5000, "mei"}}) {
    Charted w;
    w.Montre({});
    w.state.Langue = langue;
    w.Phenologie();
    ASSERT_EQ(w.Dernier().labels.size(), 12U);
    EXPECT_EQ(w.Dernier().labels[4], may);
  }
}

}  // namespace
}  // namespace talpena::test

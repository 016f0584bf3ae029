// Means, deviations and the transformation of N1 and N2. Expected values by hand.
#include "analysis/statistics.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "analysis/number_rows.h"
#include "common/talpena_error.h"
#include "platform/commands.h"

namespace talpena::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* SansEcart = "Erreur de calcul dans l'écart-type\rAttention aux lignes vides!";

TEST(MnuParametres, ReportsBothColumnsUnderTheirLabels) {
  NumberWorld w;
  w.state.LabelNumeric1 = "Males";
  w.state.LabelNumeric2 = "Females";
  w.Montre({{10, 1}, {12, 2}, {14, 3}});
  MnuParametres_Click(w.context);
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::Information);
  EXPECT_EQ(w.Boites(),
            Texts{"Moyenne Males=12.\rSTD Males=2.\rMoyenne Females=2.\rSTD Females=1."});
}

TEST(MnuParametres, WritesHalfWithoutAZeroAndRoundsToTwoDecimals) {
  NumberWorld w;
  w.Montre({{0, 1}, {1, 1}, {0, 2}, {1, 2}});
  MnuParametres_Click(w.context);
  EXPECT_EQ(w.Boites(),
            Texts{"Moyenne Number 1=.5\rSTD Number 1=.58\rMoyenne Number 2=1.5\rSTD Number 2=.58"});
}

TEST(MnuParametres, EqualValuesHaveTheDeviationZero) {
  NumberWorld w;
  w.Montre({{3, 3}, {3, 3}});
  MnuParametres_Click(w.context);
  EXPECT_EQ(w.Boites(),
            Texts{"Moyenne Number 1=3.\rSTD Number 1=.\rMoyenne Number 2=3.\rSTD Number 2=."});
}

TEST(MnuParametres, EqualValuesHaveTheDeviationZeroHoweverLarge) {
  NumberWorld w;
  w.Montre({{2147483647, -2147483647}, {2147483647, -2147483647}, {2147483647, -2147483647}});
  MnuParametres_Click(w.context);
  EXPECT_EQ(w.Boites(), Texts{"Moyenne Number 1=2147483647.\rSTD Number 1=.\r"
                              "Moyenne Number 2=-2147483647.\rSTD Number 2=."});
}

TEST(MnuParametres, WritesTheSignOfAFraction) {
  NumberWorld w;
  w.Montre({{-1, 0}, {0, -3}});
  MnuParametres_Click(w.context);
  EXPECT_EQ(
      w.Boites(),
      Texts{"Moyenne Number 1=-.5\rSTD Number 1=.71\rMoyenne Number 2=-1.5\rSTD Number 2=2.12"});
}

TEST(MnuParametres, FewerThanTwoValuesOfN1HaveNoDeviation) {
  for (const std::vector<NumberRow>& rows :
       {std::vector<NumberRow>{}, {{5, 5}}, {{5, 5}, {{}, 6}, {{}, 7}}}) {
    NumberWorld w;
    w.Montre(rows);
    MnuParametres_Click(w.context);
    ASSERT_EQ(w.dialogues.boxes.size(), 1U);
    EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::Stop);
    EXPECT_EQ(w.Boites(), Texts{SansEcart});
  }
}

TEST(MnuParametres, ANullOfN2IsNothingBehindItsSign) {
  NumberWorld w;
  w.Montre({{1, {}}, {3, {}}});
  MnuParametres_Click(w.context);
  EXPECT_EQ(w.Boites(),
            Texts{"Moyenne Number 1=2.\rSTD Number 1=1.41\rMoyenne Number 2=\rSTD Number 2="});
  NumberWorld one;
  one.Montre({{1, 4}, {3, {}}});
  MnuParametres_Click(one.context);
  EXPECT_EQ(one.Boites(),
            Texts{"Moyenne Number 1=2.\rSTD Number 1=1.41\rMoyenne Number 2=4.\rSTD Number 2="});
}

TEST(MnuParametres, SeesTheWholeTableUnderAFilter) {
  NumberWorld w;
  w.Montre({{10, 1}, {12, 2}, {14, 3}});
  w.Filtre("N1 > 12");
  MnuParametres_Click(w.context);
  EXPECT_EQ(w.Boites(),
            Texts{"Moyenne Number 1=12.\rSTD Number 1=2.\rMoyenne Number 2=2.\rSTD Number 2=1."});
  EXPECT_FALSE(w.state.document.FichierModifie());
}

TEST(Mnustd, WithoutRowsNothingHappens) {
  for (const int index : {Logarithme, ValeursNormalesReduites}) {
    NumberWorld w;
    w.Montre({});
    mnustd_Click(w.context, index);
    w.Montre({{5, 5}, {6, 6}});
    w.Filtre("N1 > 6");
    mnustd_Click(w.context, index);
    EXPECT_TRUE(w.dialogues.boxes.empty());
    EXPECT_FALSE(w.state.document.FichierModifie());
  }
}

// 1 + log10: 1, 2, 4; 1 + log10(31) = 2.49, 1 + log10(32) = 2.51.
TEST(Mnustd, TheLogarithmIsOneMoreAndRounded) {
  NumberWorld w;
  w.Montre({{1, 10}, {1000, 31}, {32, 2147483647}});
  mnustd_Click(w.context, Logarithme);
  EXPECT_EQ(w.Nombres(), (Texts{"1/2", "4/2", "3/10"}));
  EXPECT_TRUE(w.state.document.FichierModifie());
  EXPECT_TRUE(w.dialogues.boxes.empty()) << "no question";
}

// The decimal logarithms are 6.49999991 and 7.5000000055, in single 6.5 and 7.5.
TEST(Mnustd, TheLogarithmIsASingle) {
  NumberWorld w;
  w.Montre({{3162277, 31622777}, {316227, 316228}});
  mnustd_Click(w.context, Logarithme);
  EXPECT_EQ(w.Nombres(), (Texts{"8/8", "6/7"}));
}

TEST(Mnustd, ASecondLogarithmWorksOnTheResultOfTheFirst) {
  NumberWorld w;
  w.Montre({{1000000000, 100}});
  mnustd_Click(w.context, Logarithme);
  EXPECT_EQ(w.Nombres(), Texts{"10/3"});
  mnustd_Click(w.context, Logarithme);
  EXPECT_EQ(w.Nombres(), Texts{"2/1"});
}

TEST(Mnustd, NoLogarithmOfZeroNegativeOrNull) {
  for (const NumberRow& bad : {NumberRow{0, 1}, NumberRow{-5, 1}, NumberRow{1, 0}, NumberRow{1, -1},
                               NumberRow{{}, 1}, NumberRow{1, {}}}) {
    NumberWorld w;
    w.Montre({{100, 100}, bad, {100, 100}});
    const Texts before = w.Nombres();
    ExecuteCommande(w.state, w.io, {}, [&] { mnustd_Click(w.context, Logarithme); });
    ASSERT_EQ(w.dialogues.boxes.size(), 1U);
    EXPECT_TRUE(w.dialogues.boxes[0].text.starts_with("Error 5")) << w.dialogues.boxes[0].text;
    EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::Exclamation);
    EXPECT_EQ(w.Nombres(), before) << "rolled back";
    EXPECT_FALSE(w.state.document.FichierModifie());
    EXPECT_FALSE(w.vue.sablier);
    w.dialogues.boxes.clear();
  }
}

TEST(Mnustd, AFailureLeavesAModifiedFileModified) {
  NumberWorld w;
  w.Montre({{0, 1}});
  MarqueModifie(w.state.document);
  EXPECT_THROW(mnustd_Click(w.context, Logarithme), TalpenaError);
  EXPECT_TRUE(w.state.document.FichierModifie());
}

// Mean 30, deviation 20 (N1); mean 2, deviation 1 (N2). 25 is -0.25, stored as 0; 50 is 1.
TEST(Mnustd, NormalValuesAreRoundedHalvesToEven) {
  NumberWorld w;
  w.Montre({{10, 1}, {30, 2}, {50, 3}});
  mnustd_Click(w.context, ValeursNormalesReduites);
  EXPECT_EQ(w.Nombres(), (Texts{"-1/-1", "0/0", "1/1"}));
  EXPECT_EQ(w.Boites(), Texts{"Moyenne N1=30\rSTD N1=20"});
  EXPECT_TRUE(w.state.document.FichierModifie());
  // Mean 0, deviation 2: 3 is 1.5, stored as 2; -1 is -0.5, stored as 0.
  NumberWorld halves;
  halves.Montre({{3, 1}, {-1, 1}, {-1, 1}, {-1, 1}});
  mnustd_Click(halves.context, ValeursNormalesReduites);
  EXPECT_EQ(halves.Nombres(), (Texts{"2/1", "0/1", "0/1", "0/1"}));
  halves.Boites();
}

TEST(Mnustd, TheBoxTellsOfN1AloneUnderThatName) {
  NumberWorld w;
  w.state.LabelNumeric1 = "Males";
  w.Montre({{1, 4}, {2, 8}});
  mnustd_Click(w.context, ValeursNormalesReduites);
  ASSERT_EQ(w.dialogues.boxes.size(), 1U);
  EXPECT_EQ(w.dialogues.boxes[0].icon, Icon::None);
  EXPECT_EQ(w.Boites(), Texts{"Moyenne N1=1.5\rSTD N1=" + Str(std::sqrt(0.5))});
}

TEST(Mnustd, TheBoxHasTheShortestPlainDecimals) {
  NumberWorld w;
  w.Montre({{3, 1}, {5, 1}, {0, 1}});
  mnustd_Click(w.context, ValeursNormalesReduites);
  EXPECT_EQ(w.Boites(), Texts{"Moyenne N1=2.6666666666666665\rSTD N1=2.516611478423583"});
}

/// N1 is 1 and then 0, so often that the mean is 2 to the power of -17.
struct OneAndZeros final : RowSource {
  int rows = 1 << 17;
  std::int64_t value = 1;
  bool Suivante(std::span<Cell> cells) override {
    cells[0] = Cell::Of(std::exchange(value, 0));
    return rows-- > 0;
  }
};

TEST(Mnustd, TheBoxNeverHasAnExponent) {
  NumberWorld w;
  OneAndZeros source;
  const std::array<std::string_view, 1> columns = {"N1"};
  w.state.document.WorkingDb->InsertRows("TALPENA", columns, source);
  w.Montre({});
  w.Filtre("N1 = 1");
  mnustd_Click(w.context, ValeursNormalesReduites);
  const Texts boxes = w.Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_TRUE(boxes[0].starts_with("Moyenne N1=0.00000762939453125\rSTD N1=0.0027621")) << boxes[0];
}

TEST(Mnustd, AColumnWithoutDeviationStays) {
  NumberWorld zero;
  zero.Montre({{7, 1}, {7, 3}});
  mnustd_Click(zero.context, ValeursNormalesReduites);
  EXPECT_EQ(zero.Nombres(), (Texts{"7/-1", "7/1"})) << "0 of N1";
  zero.Boites();
  NumberWorld none;
  none.Montre({{1, 9}, {3, {}}});
  mnustd_Click(none.context, ValeursNormalesReduites);
  EXPECT_EQ(none.Nombres(), (Texts{"-1/9", "1/-"})) << "Null of N2, which is not tested";
  none.Boites();
}

TEST(Mnustd, TheMessageOfNoDeviationEndsTheNormalValues) {
  NumberWorld w;
  w.Montre({{5, 1}, {{}, 3}});
  mnustd_Click(w.context, ValeursNormalesReduites);
  EXPECT_EQ(w.Boites(), Texts{SansEcart});
  EXPECT_EQ(w.Nombres(), (Texts{"5/1", "-/3"}));
  EXPECT_FALSE(w.state.document.FichierModifie());
}

TEST(Mnustd, NullStaysNullUnderNormalValues) {
  NumberWorld w;
  w.Montre({{1, 1}, {{}, 2}, {3, {}}, {{}, {}}});
  mnustd_Click(w.context, ValeursNormalesReduites);
  EXPECT_EQ(w.Nombres(), (Texts{"-1/-1", "-/1", "1/-", "-/-"}));
  w.Boites();
}

TEST(Mnustd, MeansOfTheWholeTableChangeTheRowsShown) {
  NumberWorld w;
  w.Montre({{10, 1}, {30, 2}, {50, 3}});
  w.Filtre("N1 >= 30");
  mnustd_Click(w.context, ValeursNormalesReduites);
  EXPECT_EQ(w.Nombres(), (Texts{"10/1", "0/0", "1/1"}));
  EXPECT_EQ(w.Boites(), Texts{"Moyenne N1=30\rSTD N1=20"});
  EXPECT_EQ(w.state.document.Data1.recordset().RecordCount(), 0)
      << "the filter is asked anew, and no row meets it now";
}

TEST(Mnustd, TheRowsStandInTheirOrderAnew) {
  NumberWorld w;
  w.Montre({{50, 1}, {10, 2}});
  w.state.document.Relie(RowsShown::Dans({.index = 5, .direction = Direction::Descending}));
  mnustd_Click(w.context, ValeursNormalesReduites);
  w.Boites();
  Recordset& rows = w.state.document.Data1.recordset();
  rows.MoveFirst();
  EXPECT_EQ(rows.Get("N1").integer, -1);
}

TEST(Mnustd, IsOneTransactionUnderTheHourglass) {
  NumberWorld w;
  w.Montre({{10, 1}, {30, 2}});
  mnustd_Click(w.context, Logarithme);
  EXPECT_FALSE(w.vue.sabliers.empty());
  EXPECT_FALSE(w.vue.sablier);
  EXPECT_FALSE(w.state.document.WorkingDb->EnTransaction());
}

}  // namespace
}  // namespace talpena::test

// The filter: told by the source of the data control, counted, laid aside.
#include "store/filter.h"

#include <gtest/gtest.h>

#include "store/save_fixture.h"

namespace talpena::test {
namespace {

class Filter : public testing::Test, protected Monde {
 protected:
  Filter() {
    for (int i = 1; i <= 5; ++i) Ajoute({.period = 1, .n1 = i});
    Relit();
  }
  void Filtre(const std::string& condition) {
    state.document.MontreLignes(RowsShown::Filtrees(condition));
  }
};

TEST_F(Filter, IsOffOverTheTable) {
  for (const RowsShown& rows :
       {RowsShown::Table(), RowsShown::Toutes(), RowsShown::Dans({0, Direction::Ascending})}) {
    state.document.MontreLignes(rows);
    EXPECT_FALSE(state.document.FiltreActif()) << rows.Source();
    EXPECT_EQ(state.document.LignesMontrees().Condition(), "");
    EXPECT_EQ(TexteFiltre(state.document, state.Langue), "");
  }
  EXPECT_FALSE(Document().FiltreActif());
}

TEST_F(Filter, IsItsConditionAsItWasTyped) {
  Filtre("N1 > 2  ");
  EXPECT_EQ(state.document.Data1.RecordSource, "SELECT * FROM TALPENA WHERE N1 > 2  ");
  EXPECT_TRUE(state.document.FiltreActif());
  EXPECT_EQ(state.document.LignesMontrees().Condition(), "N1 > 2  ");
}

TEST_F(Filter, IsSaidInPlainWords) {
  Filtre("N1 > 2");
  EXPECT_EQ(TexteFiltre(state.document, state.Langue), "3 of 5 rows shown");
  Filtre("N1 > 99");
  EXPECT_EQ(TexteFiltre(state.document, state.Langue), "0 of 5 rows shown");
  state.Langue = 3000;
  EXPECT_EQ(TexteFiltre(state.document, state.Langue), "0 von 5 Zeilen angezeigt");
}

TEST_F(Filter, CountsWithGroupedDigits) {
  const std::string text = "%1 of %2 rows shown";
  EXPECT_EQ(AvecNombres(1000, text, {12, 3245}), "12 of 3,245 rows shown");
  EXPECT_EQ(AvecNombres(0, text, {1234, 1000000}), "1\u202F234 of 1\u202F000\u202F000 rows shown");
}

TEST_F(Filter, FollowsRowsThatComeAndGo) {
  Filtre("N1 > 2");
  state.document.Data1.Clone()->Delete();
  EXPECT_EQ(TexteFiltre(state.document, state.Langue), "2 of 4 rows shown");
  Ajoute({.n1 = 9});
  EXPECT_EQ(TexteFiltre(state.document, state.Langue), "3 of 5 rows shown");
}

TEST_F(Filter, KeepsTheCurrentRowWhenItIsStillShown) {
  state.document.Data1.recordset().MoveLast();
  Filtre("N1 > 2");
  EXPECT_EQ(state.document.Data1.recordset().Get("N1").integer, 5);
  Filtre("N1 < 3");
  EXPECT_EQ(state.document.Data1.recordset().Get("N1").integer, 1);
}

TEST_F(Filter, ARefusedConditionLeavesSourceAndRows) {
  Filtre("N1 > 2");
  EXPECT_THROW(Filtre("N1 >"), TalpenaError);
  EXPECT_EQ(state.document.LignesMontrees().Condition(), "N1 > 2");
  EXPECT_EQ(NombreLignes(), 3);
}

TEST_F(Filter, IsLaidAsideForTheWholeTableAndComesBack) {
  Filtre("N1 > 2");
  {
    const TableEntiere whole(state.document);
    EXPECT_EQ(NombreLignes(), 5);
    state.document.WorkingDb->Execute("UPDATE TALPENA SET N1 = 0 WHERE N1 = 5");
  }
  EXPECT_EQ(state.document.LignesMontrees().Condition(), "N1 > 2");
  EXPECT_EQ(NombreLignes(), 2) << "over the rows as they are now";
}

TEST_F(Filter, LayingNoneAsideReadsNothingAnew) {
  int changes = 0;
  const Subscription observed = state.document.Observe([&](Changes) { ++changes; });
  { const TableEntiere whole(state.document); }
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace talpena::test

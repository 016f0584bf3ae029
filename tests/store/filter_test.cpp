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
  void Filtre(const std::string& condition) { state.Data1.ChangeSource(SourceFiltree(condition)); }
};

TEST_F(Filter, IsOffOverTheTable) {
  for (const char* source :
       {"TALPENA", "SELECT * FROM TALPENA", "SELECT * FROM TALPENA ORDER BY Counter ASC"}) {
    state.Data1.ChangeSource(source);
    EXPECT_FALSE(FiltreActif(state.Data1)) << source;
    EXPECT_EQ(ConditionDuFiltre(state.Data1), "");
    EXPECT_EQ(TexteFiltre(state), "");
  }
  EXPECT_FALSE(FiltreActif(DataControl{}));
}

TEST_F(Filter, IsItsConditionAsItWasTyped) {
  Filtre("N1 > 2  ");
  EXPECT_EQ(state.Data1.RecordSource, "SELECT * FROM TALPENA WHERE N1 > 2  ");
  EXPECT_TRUE(FiltreActif(state.Data1));
  EXPECT_EQ(ConditionDuFiltre(state.Data1), "N1 > 2  ");
}

TEST_F(Filter, IsSaidInPlainWords) {
  Filtre("N1 > 2");
  EXPECT_EQ(TexteFiltre(state), "3 of 5 rows shown");
  Filtre("N1 > 99");
  EXPECT_EQ(TexteFiltre(state), "0 of 5 rows shown");
  state.Langue = 3000;
  EXPECT_EQ(TexteFiltre(state), "0 von 5 Zeilen angezeigt");
}

TEST_F(Filter, CountsWithGroupedDigits) {
  const std::string text = "%1 of %2 rows shown";
  EXPECT_EQ(AvecNombres(1000, text, {12, 3245}), "12 of 3,245 rows shown");
  EXPECT_EQ(AvecNombres(0, text, {1234, 1000000}), "1\u202F234 of 1\u202F000\u202F000 rows shown");
}

TEST_F(Filter, FollowsRowsThatComeAndGo) {
  Filtre("N1 > 2");
  state.Data1.Clone()->Delete();
  EXPECT_EQ(TexteFiltre(state), "2 of 4 rows shown");
  Ajoute({.n1 = 9});
  EXPECT_EQ(TexteFiltre(state), "3 of 5 rows shown");
}

TEST_F(Filter, KeepsTheCurrentRowWhenItIsStillShown) {
  state.Data1.recordset().MoveLast();
  Filtre("N1 > 2");
  EXPECT_EQ(state.Data1.recordset().Get("N1").integer, 5);
  Filtre("N1 < 3");
  EXPECT_EQ(state.Data1.recordset().Get("N1").integer, 1);
}

TEST_F(Filter, ARefusedConditionLeavesSourceAndRows) {
  Filtre("N1 > 2");
  EXPECT_THROW(Filtre("N1 >"), TalpenaError);
  EXPECT_EQ(ConditionDuFiltre(state.Data1), "N1 > 2");
  EXPECT_EQ(NombreLignes(), 3);
}

TEST_F(Filter, IsLaidAsideForTheWholeTableAndComesBack) {
  Filtre("N1 > 2");
  {
    const TableEntiere whole(state.Data1);
    EXPECT_EQ(NombreLignes(), 5);
    state.WorkingDb->Execute("UPDATE TALPENA SET N1 = 0 WHERE N1 = 5");
  }
  EXPECT_EQ(ConditionDuFiltre(state.Data1), "N1 > 2");
  EXPECT_EQ(NombreLignes(), 2) << "over the rows as they are now";
}

TEST_F(Filter, LayingNoneAsideReadsNothingAnew) {
  int changes = 0;
  state.Data1.Ecoute([&](DataControl::Change) { ++changes; });
  { const TableEntiere whole(state.Data1); }
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace talpena::test

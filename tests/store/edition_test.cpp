// Changes of the open distribution: what they write, mark, tell and take back.
#include "store/edition.h"

#include <gtest/gtest.h>

#include <array>
#include <span>
#include <vector>

#include "store/grid_commands_fixture.h"

namespace talpena::test {
namespace {

class EditionTest : public GridCommands {
 protected:
  void Ouvre(int rows = 5) {
    GridCommands::Ouvre(rows);
    state.document.OublieModifications();
    all = state.document.Observe([this](Changes some) { told.push_back(some); });
  }
  Bookmark Ligne(std::int64_t n1) {
    const auto rows = state.document.Data1.Clone();
    EXPECT_TRUE(rows->FindFirst("N1 = " + Str(n1)));
    return rows->GetBookmark();
  }
  static void MetN1(Recordset& row, std::int64_t value) { row.Set("N1", Cell::Of(value)); }

  Subscription all;
  std::vector<Changes> told;
};

Changes Ensemble(std::initializer_list<Aspect> aspects) {
  Changes together;
  for (const Aspect aspect : aspects) together |= aspect;
  return together;
}

TEST_F(EditionTest, TellsOnceOfAllThatItChanged) {
  Ouvre();
  {
    Edition edition(state.document, "several things");
    const Bookmark added = edition.AjouteLigne([](Recordset& row) { MetN1(row, 9); });
    edition.ModifieLigne(Rows(), [](Recordset& row) { MetN1(row, 7); });
    edition.Entete().BoxTitre = "Moles";
    edition.VaA(added);
    EXPECT_TRUE(told.empty()) << "not before it ends";
    edition.Valide();
  }
  EXPECT_EQ(told, std::vector{Ensemble({Aspect::Rows, Aspect::Values, Aspect::Header,
                                        Aspect::Position, Aspect::Modified})});
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(N1(), (Numbers{7, 2, 3, 4, 5, 9}));
  EXPECT_EQ(Ici(), 9);
}

TEST_F(EditionTest, ThatChangesNothingMarksAndTellsNothing) {
  Ouvre();
  { const Edition edition(state.document, "nothing"); }
  {
    Edition edition(state.document, "nothing");
    edition.Valide();
    edition.Valide();
  }
  EXPECT_TRUE(told.empty());
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(EditionTest, LineByLineKeepsWhatWasChangedBeforeAFailure) {
  Ouvre(3);
  class FailsAtThree final : public RowChange {
   public:
    bool Modifie(Bookmark, std::span<const Cell> given, std::span<Cell> changed) override {
      if (given[0].integer == 3) throw TalpenaError(ErrorNumber::Overflow, "Overflow");
      changed[0] = Cell::Of(given[0].integer + 100);
      return true;
    }
  } change;
  const int n1 = Rows().FieldIndex("N1");
  EXPECT_THROW(
      {
        Edition edition(state.document, "half of it");
        edition.ModifieLignes({{n1}, {n1}}, change);
      },
      TalpenaError);
  EXPECT_EQ(N1(), (Numbers{101, 102, 3}));
  EXPECT_TRUE(state.document.FichierModifie());
  ASSERT_EQ(told.size(), 1U);
  EXPECT_TRUE(told[0].Touche(Aspect::Values));
}

TEST_F(EditionTest, AsAWholeIsTakenBackUnlessValidated) {
  Ouvre(3);
  {
    Edition edition(state.document, "given up", Edition::Etendue::Entiere);
    const std::array rows = {Ligne(1), Ligne(2)};
    edition.SupprimeLignes(rows);
    edition.AjouteLigne();
    edition.Entete().NbPivots = 2;
  }
  EXPECT_EQ(N1(), (Numbers{1, 2, 3}));
  EXPECT_EQ(state.document.Entete().NbPivots, 0);
  EXPECT_FALSE(state.document.FichierModifie());
  ASSERT_EQ(told.size(), 1U) << "whoever looked meanwhile looks again";
  EXPECT_FALSE(told[0].Touche(Aspect::Modified));
}

TEST_F(EditionTest, AsAWholeStandsOnceValidated) {
  Ouvre(3);
  Edition edition(state.document, "kept", Edition::Etendue::Entiere);
  const std::array rows = {Ligne(2)};
  EXPECT_EQ(edition.SupprimeLignes(rows), 1);
  edition.Entete().NbPivots = 2;
  edition.Valide();
  EXPECT_EQ(N1(), (Numbers{1, 3}));
  EXPECT_EQ(state.document.Entete().NbPivots, 2);
  EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
}

TEST_F(EditionTest, ARowWhoseValuesAreRefusedIsNotAdded) {
  Ouvre(2);
  EXPECT_THROW(
      {
        Edition edition(state.document, "refused");
        edition.AjouteLigne([](Recordset& row) { MetN1(row, std::int64_t{1} << 40); });
      },
      TalpenaError);
  EXPECT_EQ(N1(), (Numbers{1, 2}));
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_TRUE(told.empty());
}

TEST_F(EditionTest, AChangeThatIsRefusedLeavesTheRow) {
  Ouvre(2);
  EXPECT_THROW(
      {
        Edition edition(state.document, "refused");
        edition.ModifieLigne(Rows(), [](Recordset& row) {
          MetN1(row, 50);
          MetN1(row, std::int64_t{1} << 40);
        });
      },
      TalpenaError);
  EXPECT_EQ(N1(), (Numbers{1, 2}));
  EXPECT_FALSE(state.document.FichierModifie());
}

TEST_F(EditionTest, EmptyRowsComeAllOrNone) {
  Ouvre(1);
  {
    Edition edition(state.document, "rows");
    const Bookmark last = edition.AjouteLignesVides(3);
    edition.VaA(last);
  }
  EXPECT_EQ(N1(), (Numbers{1, 0, 0, 0}));
  EXPECT_EQ(Rows().AbsolutePosition(), 3);
  state.document.WorkingDb->BeginTrans();  // its own is refused
  EXPECT_THROW(Edition(state.document, "rows").AjouteLignesVides(3), TalpenaError);
  state.document.WorkingDb->Rollback();
  EXPECT_EQ(N1().size(), 4U);
}

TEST_F(EditionTest, ReadingAFileIsNoModification) {
  Ouvre(2);
  {
    Edition edition(state.document, "read");
    edition.LaisseNonModifie();
    edition.Entete().BoxTitre = "Moles";
    edition.VideTable();
  }
  EXPECT_FALSE(state.document.FichierModifie());
  EXPECT_EQ(told, std::vector{Changes(Aspect::Header)});
  EXPECT_EQ(state.document.WorkingDb->OpenRecordset("TALPENA")->RecordCount(), 0);
}

TEST_F(EditionTest, MayMarkTheFileAllTheSame) {
  Ouvre(2);
  {
    Edition edition(state.document, "read");
    edition.LaisseNonModifie();
    edition.MarqueModifie();
  }
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(told, std::vector{Changes(Aspect::Modified)});
}

TEST_F(EditionTest, RowsReadBeforeAFailureStay) {
  Ouvre(0);
  class TwoRows final : public RowSource {
   public:
    bool Suivante(std::span<Cell> cells) override {
      if (++row_ == 3) throw TalpenaError(ErrorNumber::Overflow, "Overflow");
      cells[0] = Cell::Of(std::int64_t{row_});
      return true;
    }

   private:
    int row_ = 0;
  } source;
  constexpr std::array<std::string_view, 1> columns = {"N1"};
  EXPECT_THROW(Edition(state.document, "rows").InsereLignes(columns, source), TalpenaError);
  EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
  EXPECT_EQ(state.document.WorkingDb->OpenRecordset("TALPENA")->RecordCount(), 2);
}

TEST_F(EditionTest, RowsOfASourceStandAtTheEndOfThoseOnShow) {
  Ouvre(2);
  state.document.MontreLignes(RowsShown::Filtrees("N1 = 1"));
  told.clear();
  class OneRow final : public RowSource {
   public:
    explicit OneRow(bool fails) : fails_(fails) {}
    bool Suivante(std::span<Cell> cells) override {
      if (row_++ == 1 && fails_) throw TalpenaError(ErrorNumber::Overflow, "Overflow");
      cells[0] = Cell::Of(std::int64_t{7});
      return row_ == 1;
    }

   private:
    bool fails_;
    int row_ = 0;
  };
  constexpr std::array fields = {Column::N1};
  OneRow whole(false);
  EXPECT_EQ(Edition(state.document, "rows").AjouteLignes(fields, whole), 1);
  EXPECT_EQ(N1(), (Numbers{1, 7}));
  EXPECT_TRUE(state.document.FichierModifie());
  OneRow failing(true);
  EXPECT_THROW(Edition(state.document, "rows").AjouteLignes(fields, failing), TalpenaError);
  EXPECT_EQ(N1(), (Numbers{1, 7, 7}));
  EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
}

TEST_F(EditionTest, ThePositionStaysWithinTheRowsThatAreLeft) {
  Ouvre(3);
  const auto va = [&](std::int64_t position) {
    Edition edition(state.document, "go");
    edition.VaAPosition(position);
    edition.Valide();
    return Rows().AbsolutePosition();
  };
  EXPECT_EQ(va(1), 1);
  EXPECT_EQ(va(7), 2);
  EXPECT_EQ(va(-1), 0);
  Edition(state.document, "all")
      .SupprimeLignes(std::vector<Bookmark>{Ligne(1), Ligne(2), Ligne(3)});
  EXPECT_EQ(va(1), -1);
}

// ---- the document

TEST(Document, WithoutAWorkingDatabaseSaysSo) {
  Document document;
  EXPECT_THROW(document.Base(), TalpenaError);
  EXPECT_FALSE(document.Data1.EstLie());
  EXPECT_EQ(document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY Counter");
  EXPECT_EQ(document.Montre().titreFenetre, "Talpena");
}

TEST_F(EditionTest, RowsThatTheEngineRefusesLeaveThoseOnShow) {
  Ouvre(3);
  state.document.MontreLignes(RowsShown::Filtrees("N1 > 1"));
  EXPECT_THROW(state.document.MontreLignes(RowsShown::Filtrees("N1 >")), TalpenaError);
  EXPECT_EQ(state.document.LignesMontrees(), RowsShown::Filtrees("N1 > 1"));
  EXPECT_EQ(N1(), (Numbers{2, 3}));
}

TEST_F(EditionTest, RowsBoundAnewThatTheEngineRefusesLeaveThoseOnShowToo) {
  Ouvre(3);
  state.document.MontreLignes(RowsShown::Filtrees("N1 > 1"));
  EXPECT_THROW(state.document.Relie(RowsShown::Filtrees("N1 >")), TalpenaError);
  EXPECT_TRUE(state.document.FiltreActif());
  EXPECT_EQ(state.document.Data1.RecordSource, "SELECT * FROM TALPENA WHERE N1 > 1");
}

TEST_F(EditionTest, TheCurrentRowMovesOnlyOnceTheRestStands) {
  Ouvre(3);
  Va(2);
  {
    Edition edition(state.document, "given up", Edition::Etendue::Entiere);
    const std::array rows = {Ligne(1)};
    edition.SupprimeLignes(rows);
    edition.VaAPosition(0);
    EXPECT_EQ(Ici(), 3);
  }
  EXPECT_EQ(Ici(), 3);
  ASSERT_EQ(told.size(), 1U);
  EXPECT_FALSE(told[0].Touche(Aspect::Rows)) << "those chosen in the grid stay chosen";
}

TEST_F(EditionTest, TheModifiedMarkIsToldWhenItChanges) {
  Ouvre(1);
  MarqueModifie(state.document);
  MarqueModifie(state.document);
  state.document.OublieModifications();
  state.document.OublieModifications();
  EXPECT_EQ(told, (std::vector{Changes(Aspect::Modified), Changes(Aspect::Modified)}));
}

}  // namespace
}  // namespace talpena::test

#include "store/duplicate_row.h"

#include <gtest/gtest.h>

#include "store/world.h"

namespace talpena::test {
namespace {

struct DupliqueLigneTest : ::testing::Test, World {
  void Montre() { state.document.RelieSqlCourant(); }
  Bookmark Duplique() {
    Edition edition(state.document, "a test");
    return DupliqueLigne(state.document, edition);
  }
  void Ajoute(std::initializer_list<std::pair<const char*, Cell>> values) {
    auto rows = state.document.WorkingDb->OpenRecordset("TALPENA");
    rows->AddNew();
    for (const auto& [name, value] : values) rows->Set(name, value);
    rows->Update();
  }
};

TEST_F(DupliqueLigneTest, CopiesAllButTheCounter) {
  Ajoute({{"PERIOD", Cell::Of(std::int64_t{2})},
          {"LATITUDE", Cell::Of(50.12345)},
          {"LONGITUDE", Cell::Of(-4.5)},
          {"N1", Cell::Of(std::int64_t{7})},
          {"N2", Cell::Of(std::int64_t{-8})},
          {"SEX", Cell::Of("M")},
          {"DATUM", Cell::Of("EUR-M")},
          {"ORIGINAL", Cell::Of("deg 50 4")},
          {"DATE", Cell::Of("1998/07/14")},
          {"COMMENT", Cell::Of("à l'étang\nsous écorce")}});
  Montre();
  const Bookmark added = Duplique();
  const auto lines = Lignes();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1], lines[0]);
  const auto rows = state.document.Data1.Clone();
  rows->SetBookmark(added);
  EXPECT_EQ(rows->Get("Counter").integer, 2);
}

TEST_F(DupliqueLigneTest, KeepsNullAndEmptyTextApart) {
  Ajoute({{"SEX", Cell::Of("")}});
  Montre();
  Duplique();
  EXPECT_EQ(Lignes()[1], "-|-|-|-|-||-|-|-|-");
}

TEST_F(DupliqueLigneTest, StandsAtTheEndInAnyOrderAndStaysThere) {
  for (const std::int64_t period : {1, 2, 3}) Ajoute({{"PERIOD", Cell::Of(period)}});
  MontreSelect(state.document, "SELECT * FROM TALPENA WHERE PERIOD < 3 ORDER BY [PERIOD] DESC");
  Recordset& shown = state.document.Data1.recordset();
  shown.MoveLast();
  const Bookmark current = shown.GetBookmark();
  const Bookmark added = Duplique();
  EXPECT_EQ(shown.GetBookmark(), current);
  EXPECT_EQ(shown.RecordCount(), 3);
  shown.MoveLast();
  EXPECT_EQ(shown.GetBookmark(), added);
  EXPECT_EQ(shown.Get("PERIOD").integer, 1);
}

TEST_F(DupliqueLigneTest, NeedsACurrentRow) {
  Montre();
  try {
    Duplique();
    ADD_FAILURE() << "a row came back";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::NoCurrentRecord);
  }
  EXPECT_TRUE(Lignes().empty());
}

}  // namespace
}  // namespace talpena::test

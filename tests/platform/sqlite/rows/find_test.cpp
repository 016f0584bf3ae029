// FindFirst and FindNext, in the order of the recordset.
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

using namespace std::literals;

class FindTest : public EngineTest {
 protected:
  FindTest() {
    CreeTalpena();
    ListSource source({{1, 30.0, "alpha"},
                       {2, 10.0, "beta"},
                       {3, 20.0, "ALPHA two"},
                       {4, 40.0, "gamma"},
                       {12, 5.0, "plot 12"},
                       {6, 12.0, "alphabet"}});
    const std::string_view columns[] = {"N1", "LATITUDE", "COMMENT"};
    database->InsertRows("TALPENA", columns, source);
  }

  Strings Tous(Recordset& rows, const std::string& condition) {
    Strings found;
    for (bool hit = rows.FindFirst(condition); hit; hit = rows.FindNext(condition)) {
      found.push_back(rows.Get("N1").Texte());
    }
    return found;
  }
};

TEST_F(FindTest, FollowsTheOrderOfTheRecordset) {
  const std::string condition = "COMMENT LIKE '*alpha*'";
  const auto file = database->OpenRecordset("TALPENA");
  EXPECT_EQ(Tous(*file, condition), (Strings{"1", "3", "6"}));
  const auto sorted = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY LATITUDE");
  EXPECT_EQ(Tous(*sorted, condition), (Strings{"6", "3", "1"}));
  const auto falling = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter DESC");
  EXPECT_EQ(Tous(*falling, condition), (Strings{"6", "3", "1"}));
}

TEST_F(FindTest, StaysWithinAFilter) {
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 > 1");
  EXPECT_EQ(Tous(*rows, "COMMENT LIKE '*alpha*'"), (Strings{"3", "6"}));
  const auto sorted =
      database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 > 1 ORDER BY COMMENT");
  EXPECT_EQ(Tous(*sorted, "COMMENT LIKE '*alpha*'"), (Strings{"3", "6"}));
}

TEST_F(FindTest, LeavesThePositionWhereNothingMatches) {
  for (const char* source : {"TALPENA", "SELECT * FROM TALPENA ORDER BY LATITUDE"}) {
    const auto rows = database->OpenRecordset(source);
    rows->SetAbsolutePosition(2);
    EXPECT_FALSE(rows->FindFirst("N1 = 99"));
    EXPECT_EQ(rows->AbsolutePosition(), 2);
    EXPECT_FALSE(rows->FindNext("N1 = 99"));
    EXPECT_EQ(rows->AbsolutePosition(), 2);
    EXPECT_NE(FailureOf([&] { rows->FindFirst("N1 ="); }).number, 0);
    EXPECT_EQ(rows->AbsolutePosition(), 2);
  }
}

TEST_F(FindTest, FindsANumberAndATextAlike) {
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_EQ(Tous(*rows,
                 "PERIOD = 12 OR Latitude = 12 OR LONGITUDE = 12 OR N1 = 12 OR N2 = 12 OR "
                 "SEX = 12 OR DATUM = '12' OR ORIGINAL = '12' OR DATE like '*12*' OR "
                 "COMMENT like '*12*'"),
            (Strings{"12", "6"}));
  EXPECT_EQ(Tous(*rows,
                 "SEX LIKE '*bet*' OR DATUM = 'bet' OR ORIGINAL LIKE '*bet*' OR DATE like "
                 "'*bet*' OR COMMENT like '*bet*'"),
            (Strings{"2", "6"}));
}

TEST_F(FindTest, GoesOnFromWhereItStands) {
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_TRUE(rows->FindNext("COMMENT LIKE 'a*'"));
  EXPECT_EQ(rows->Get("N1").integer, 3);
  rows->MoveFirst();
  rows->MovePrevious();
  EXPECT_TRUE(rows->FindNext("COMMENT LIKE 'a*'"));
  EXPECT_EQ(rows->Get("N1").integer, 1);
  rows->MoveLast();
  EXPECT_FALSE(rows->FindNext("COMMENT LIKE 'a*'"));
  rows->MoveNext();
  EXPECT_FALSE(rows->FindNext("COMMENT LIKE 'a*'"));
  EXPECT_TRUE(rows->EOF_());
}

TEST_F(FindTest, SeesChangesAndDeletions) {
  for (const char* source : {"TALPENA", "SELECT * FROM TALPENA ORDER BY COMMENT"}) {
    const auto rows = database->OpenRecordset(source);
    const auto clone = rows->Clone();
    ASSERT_TRUE(rows->FindFirst("N1 = 4"));
    const Bookmark gamma = rows->GetBookmark();
    clone->SetBookmark(gamma);
    clone->Edit();
    clone->Set("COMMENT", Cell::Of("delta"sv));
    clone->Update();
    EXPECT_TRUE(rows->FindFirst("COMMENT = 'delta'"));
    EXPECT_FALSE(rows->FindFirst("COMMENT = 'gamma'"));
    clone->Edit();
    clone->Set("COMMENT", Cell::Of("gamma"sv));
    clone->Update();
    EXPECT_TRUE(rows->FindFirst("COMMENT = 'gamma'"));
    rows->AddNew();
    rows->Set("N1", Cell::Of(std::int64_t{77}));
    rows->Update();
    EXPECT_TRUE(rows->FindFirst("N1 = 77"));
    rows->Delete();
    EXPECT_FALSE(rows->FindFirst("N1 = 77"));
  }
}

TEST_F(FindTest, AnEmptyRecordsetFindsNothingButStillReadsTheCondition) {
  database->Execute("DELETE FROM TALPENA");
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_FALSE(rows->FindFirst("N1 = 1"));
  EXPECT_FALSE(rows->FindNext("N1 = 1"));
  EXPECT_EQ(FailureOf([&] { rows->FindFirst("it's"); }).number, 3075);
}

}  // namespace
}  // namespace talpena::enginetest

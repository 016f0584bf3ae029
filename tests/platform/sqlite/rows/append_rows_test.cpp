// Rows added in bulk behind those that a recordset shows.
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

class AppendRowsTest : public EngineTest {
 protected:
  AppendRowsTest() { CreeTalpena(); }

  /// N1 alone.
  static std::int64_t Ajoute(Recordset& rows, RowSource& source) {
    const int fields[] = {rows.FieldIndex("N1")};
    return rows.AjouteLignes(fields, source);
  }
};

TEST_F(AppendRowsTest, StandAtTheEndWhateverOrderAndCondition) {
  AjouteLignes(5);
  for (const char* select :
       {"SELECT * FROM TALPENA ORDER BY Counter", "SELECT * FROM TALPENA ORDER BY N1 DESC",
        "SELECT * FROM TALPENA WHERE N1 = 2", "TALPENA"}) {
    SCOPED_TRACE(select);
    database->BeginTrans();
    const auto rows = database->OpenRecordset(select);
    Strings expected = Colonne(*rows, "N1");
    ListSource source({{90}, {7}, {80}});
    EXPECT_EQ(Ajoute(*rows, source), 3);
    for (const char* added : {"90", "7", "80"}) expected.emplace_back(added);
    EXPECT_EQ(Colonne(*rows, "N1"), expected);
    database->Rollback();
  }
}

TEST_F(AppendRowsTest, AreSeenByClonesAndLeaveTheCursorWhereItStood) {
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
  const auto clone = rows->Clone();
  rows->SetAbsolutePosition(1);
  ListSource source({{8}, {9}});
  Ajoute(*rows, source);
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(Colonne(*clone, "N1"), (Strings{"1", "2", "3", "8", "9"}));
  clone->MoveLast();
  EXPECT_EQ(rows->LastModified(), clone->GetBookmark());
}

TEST_F(AppendRowsTest, FollowRowsThatWereDeletedAtTheEnd) {
  AjouteLignes(5);
  database->Execute("DELETE FROM TALPENA WHERE N1 > 3");
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
  ListSource source({{8}, {9}});
  Ajoute(*rows, source);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "2", "3", "8", "9"}));
  EXPECT_EQ(Colonne(*rows, "Counter"), (Strings{"1", "2", "3", "6", "7"}));
}

TEST_F(AppendRowsTest, ThoseBeforeARefusedRowStayAndAreShown) {
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1");
  ListSource source({{1}, {2}, {"no number"}, {4}});
  EXPECT_EQ(FailureOf([&] { Ajoute(*rows, source); }).number, ErrorNumber::DataConversion);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "2"}));
  ListSource more({{7}, {"again"}});
  EXPECT_EQ(FailureOf([&] { Ajoute(*rows, more); }).number, ErrorNumber::DataConversion);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "2", "7"}));
}

TEST_F(AppendRowsTest, OfAnEmptySourceAreNone) {
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("TALPENA");
  ListSource none({});
  EXPECT_EQ(Ajoute(*rows, none), 0);
  EXPECT_EQ(rows->RecordCount(), 2);
}

TEST_F(AppendRowsTest, GoWithARollback) {
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1");
  database->BeginTrans();
  ListSource source({{8}, {9}});
  Ajoute(*rows, source);
  database->Rollback();
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "2"}));
}

TEST_F(AppendRowsTest, AreChangedAndDeletedAsAnyOthers) {
  AjouteLignes(1);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  ListSource source({{8}, {9}});
  Ajoute(*rows, source);
  rows->MoveLast();
  const Bookmark last = rows->GetBookmark();
  rows->Edit();
  rows->Set("N1", Cell::Of(std::int64_t{10}));
  rows->Update();
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "8", "10"}));
  EXPECT_EQ(rows->SupprimeLignes(std::vector{last}), 1);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "8"}));
}

TEST_F(AppendRowsTest, RefuseFieldsThatCannotBeGiven) {
  const auto rows = database->OpenRecordset("TALPENA");
  ListSource source({{1}, {2}});
  const int counter[] = {rows->FieldIndex("Counter")};
  const int twice[] = {rows->FieldIndex("N1"), rows->FieldIndex("N1")};
  EXPECT_EQ(FailureOf([&] { rows->AjouteLignes(counter, source); }).number,
            ErrorNumber::FieldNotUpdatable);
  EXPECT_EQ(FailureOf([&] { rows->AjouteLignes(twice, source); }).number,
            ErrorNumber::InvalidArgument);
  EXPECT_EQ(FailureOf([&] { rows->AjouteLignes({}, source); }).number,
            ErrorNumber::InvalidArgument);
  const auto counted = database->OpenRecordset("SELECT COUNT(*) FROM TALPENA");
  EXPECT_EQ(FailureOf([&] { counted->AjouteLignes({}, source); }).number, ErrorNumber::ReadOnly);
}

}  // namespace
}  // namespace talpena::enginetest

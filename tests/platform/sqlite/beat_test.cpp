// The beat of statements at work, and how a user gives them up.
#include <array>
#include <string>

#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

class BeatTest : public EngineTest {
 protected:
  BeatTest() {
    CreeTalpena();
    database->BeginTrans();
    AjouteLignes(2000);
    database->CommitTrans();
  }

  /// From the n-th beat on the user gives up, once.
  void Abandonne(int beat) {
    database->SuitTravail([this, beat] { return ++beats != beat; });
  }

  std::int64_t Lignes() { return database->OpenRecordset("TALPENA")->RecordCount(); }

  int beats = 0;
};

TEST_F(BeatTest, StatementsThatLastBeat) {
  database->SuitTravail([this] { return ++beats > 0; });
  database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 > 1000 ORDER BY N1");
  EXPECT_GT(beats, 10);
  beats = 0;
  database->SuitTravail({});
  database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 > 1000 ORDER BY N1");
  EXPECT_EQ(beats, 0);
}

TEST_F(BeatTest, ReadingRowAfterRowBeatsToo) {
  const auto rows = database->OpenRecordset("TALPENA");
  database->SuitTravail([this] { return ++beats > 0; });
  for (; !rows->EOF_(); rows->MoveNext()) rows->Get("N1");
  EXPECT_GT(beats, 10);
}

TEST_F(BeatTest, ASourceThatIsGivenUpEndsAsADialogIsLeft) {
  Abandonne(5);
  const Failure failure =
      FailureOf([&] { database->OpenRecordset("SELECT * FROM TALPENA WHERE COMMENT LIKE '*a*'"); });
  EXPECT_EQ(failure.number, ErrorNumber::Cancelled);
  EXPECT_EQ(beats, 5);
  EXPECT_EQ(Lignes(), 2000);
}

TEST_F(BeatTest, AFindThatIsGivenUpLeavesTheCursorWhereItStood) {
  const auto rows = database->OpenRecordset("TALPENA");
  rows->SetAbsolutePosition(7);
  Abandonne(5);
  const Failure failure = FailureOf([&] { rows->FindFirst("COMMENT LIKE '*a*'"); });
  EXPECT_EQ(failure.number, ErrorNumber::Cancelled);
  EXPECT_EQ(rows->AbsolutePosition(), 7);
  EXPECT_TRUE(rows->FindFirst("N1 = 9")) << "the next statement runs";
}

TEST_F(BeatTest, AChangeThatIsGivenUpHasChangedNothing) {
  Abandonne(5);
  EXPECT_EQ(FailureOf([&] { database->Execute("UPDATE TALPENA SET N2 = 5"); }).number,
            ErrorNumber::Cancelled);
  EXPECT_EQ(database->OpenRecordset("SELECT * FROM TALPENA WHERE N2 = 5")->RecordCount(), 0);
}

TEST_F(BeatTest, WhatIsGivenUpInATransactionTakesItBackWhole) {
  const auto open = database->OpenRecordset("TALPENA");
  database->BeginTrans();
  AjouteLignes(3);
  Abandonne(5);
  EXPECT_EQ(FailureOf([&] { database->Execute("UPDATE TALPENA SET N2 = 5"); }).number,
            ErrorNumber::Cancelled);
  EXPECT_FALSE(database->EnTransaction());
  EXPECT_EQ(Lignes(), 2000);
  EXPECT_EQ(open->RecordCount(), 2000);
}

TEST_F(BeatTest, WhatABeatThrowsStaysOutsideOfTheLibrary) {
  database->SuitTravail([]() -> bool { throw 1; });
  EXPECT_EQ(Lignes(), 2000);
}

}  // namespace
}  // namespace talpena::enginetest

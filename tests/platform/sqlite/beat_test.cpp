// The beat of statements at work, and how a user gives them up.
#include <algorithm>
#include <chrono>
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

// Each runs for minutes, or for hours, over some thousand rows.
constexpr const char* heavy[] = {
    "String(60000 - N1, 'a') & COMMENT LIKE '*a*a*a*a*a*a*b'",
    "String(60000 - N1, 'a') LIKE '*' & String(30000, 'a') & COUNTER & 'b'",
    "String(60000 - N1, 'a') NOT LIKE '*' & String(30000, 'a') & 'c*' AND N1 < 0",
    "String(60000 - N1, 'a') LIKE '*[b-c]*[d-e]*[f-g]*'",
    "String(60000 - N1, 'e') LIKE '*[!e]*#*'",
    "InStr(String(60000 - N1, 'a'), String(30000, 'a') & COUNTER) > 0",
    "InStr(2, String(65000 - N1, 'a'), String(32000, 'a') & 'b') + N1 < 0",
    "Len(Replace(String(60000 - N1, 'a'), 'a', String(200, 'b'))) < N1",
    "Len(Replace(Replace(String(60000 - N1, 'a'), 'a', String(100, 'b')), 'bb', 'c')) = N1",
    "UCase(Replace(String(60000 - N1, 'a'), 'a', String(200, 'b'))) = COMMENT",
    "LCase(Replace(String(60000 - N1, 'A'), 'A', String(200, 'B'))) = COMMENT",
    "Len(Trim(Space(63000 - N1) & Replace(String(60000 - N1, 'a'), 'a', String(99, ' ')))) < 0",
    "Right(Replace(String(60000 - N1, 'a'), 'a', String(250, 'b')), 5) = COMMENT",
    "Mid(Replace(String(60000 - N1, 'a'), 'a', String(250, 'b')), 9000000, N1) = 'a'",
    "Replace(String(60000 - N1, 'a'), 'a', String(99, 'é')) LIKE '*' & COMMENT & 'x*'",
    "Replace(String(60000 - N1, 'a'), 'a', String(99, 'b')) & N1 = String(999, 'b')",
    "Val(Replace(String(60000 - N1, '1'), '1', String(99, '1'))) = N1",
    "Left(Replace(String(60000 - N1, 'a'), 'a', String(120, 'é')), 6000000) < COMMENT",
};

TEST_F(BeatTest, ConditionsThatRunForHoursAreGivenUpAtOnce) {
  using Time = std::chrono::steady_clock;
  using namespace std::chrono_literals;
  database->Execute("UPDATE TALPENA SET COMMENT = 'seen'");
  static_assert(std::size(heavy) == 18);
  for (const char* condition : heavy) {
    SCOPED_TRACE(condition);
    const auto began = Time::now();
    auto last = began;
    auto longest = Time::duration::zero();
    database->SuitTravail([&] {
      const auto now = Time::now();
      longest = std::max(longest, now - last);
      last = now;
      return now - began < 300ms;
    });
    const Failure failure = FailureOf(
        [&] { database->OpenRecordset(std::string("SELECT * FROM TALPENA WHERE ") + condition); });
    EXPECT_EQ(failure.number, ErrorNumber::Cancelled) << failure.description;
    longest = std::max(longest, Time::now() - last);
    EXPECT_LT(longest, 5s) << "from beat to beat, under whatever load";
  }
}

TEST_F(BeatTest, WhatABeatThrowsStaysOutsideOfTheLibrary) {
  database->SuitTravail([]() -> bool { throw 1; });
  EXPECT_EQ(Lignes(), 2000);
}

}  // namespace
}  // namespace talpena::enginetest

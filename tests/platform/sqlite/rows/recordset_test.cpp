// Cursors over a table: moving, changing, clones, bookmarks, positions.
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

class RecordsetTest : public EngineTest {
 protected:
  RecordsetTest() { CreeTalpena(); }
};

TEST_F(RecordsetTest, AnEmptyOneStandsBeforeAndBehindItsRows) {
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_TRUE(rows->BOF());
  EXPECT_TRUE(rows->EOF_());
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  rows->MoveFirst();
  rows->MoveLast();
  EXPECT_EQ(FailureOf([&] { rows->MoveNext(); }).number, ErrorNumber::NoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { rows->MovePrevious(); }).number, ErrorNumber::NoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { rows->Get(0); }).description, "No current record.");
}

TEST_F(RecordsetTest, WalksForwardAndBackward) {
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_EQ(Colonne(*rows, "n1"), (Strings{"1", "2", "3"}));
  EXPECT_TRUE(rows->EOF_());
  EXPECT_FALSE(rows->BOF());
  Strings backward;
  for (rows->MoveLast(); !rows->BOF(); rows->MovePrevious()) {
    backward.push_back(rows->Get("N1").Texte());
  }
  EXPECT_EQ(backward, (Strings{"3", "2", "1"}));
  EXPECT_EQ(FailureOf([&] { rows->MovePrevious(); }).number, ErrorNumber::NoCurrentRecord);
  rows->MoveNext();
  EXPECT_EQ(rows->Get("N1").integer, 1);
}

TEST_F(RecordsetTest, FieldsAreFoundWithoutRegardToCase) {
  const auto rows = database->OpenRecordset("talpena");
  EXPECT_EQ(rows->FieldIndex("Latitude"), 2);
  EXPECT_EQ(rows->FieldIndex("comment"), 10);
  const Failure failure = FailureOf([&] { rows->FieldIndex("ALTITUDE"); });
  EXPECT_EQ(failure.number, 3265);
  EXPECT_EQ(failure.description, "Item not found in this collection.");
  EXPECT_EQ(FailureOf([&] { rows->Get(11); }).number, 3265);
  EXPECT_EQ(FailureOf([&] { rows->Get(-1); }).number, 3265);
}

TEST_F(RecordsetTest, AddNewGoesBackToTheRowItStoodOn) {
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  rows->MoveNext();
  rows->AddNew();
  rows->Set("N1", Cell::Of(std::int64_t{4}));
  EXPECT_TRUE(rows->Get("N2").EstNull());
  EXPECT_EQ(rows->Get("N1").integer, 4);
  rows->Update();
  EXPECT_EQ(rows->Get("N1").integer, 2);
  EXPECT_EQ(rows->RecordCount(), 4);
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Get("N1").integer, 4);
  EXPECT_EQ(rows->AbsolutePosition(), 3);
}

TEST_F(RecordsetTest, ARowMayHoldNothingButItsCounter) {
  const auto rows = database->OpenRecordset("TALPENA");
  rows->AddNew();
  rows->Update();
  rows->MoveFirst();
  EXPECT_EQ(rows->Get("Counter").integer, 1);
  for (int field = 1; field < 11; ++field) EXPECT_TRUE(rows->Get(field).EstNull()) << field;
}

TEST_F(RecordsetTest, EditChangesTheRowAtUpdateOnly) {
  AjouteLignes(1);
  const auto rows = database->OpenRecordset("TALPENA");
  const auto other = rows->Clone();
  EXPECT_EQ(other->Get("N1").integer, 1);
  rows->Edit();
  rows->Set("N1", Cell::Of(std::int64_t{7}));
  EXPECT_EQ(rows->Get("N1").integer, 7);
  EXPECT_EQ(other->Get("N1").integer, 1);
  rows->Update();
  EXPECT_EQ(other->Get("N1").integer, 7);
  rows->Edit();
  rows->Set("N1", Cell::Of(std::int64_t{8}));
  rows->CancelUpdate();
  EXPECT_EQ(rows->Get("N1").integer, 7);
}

TEST_F(RecordsetTest, MovingDropsAnOpenEdit) {
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("TALPENA");
  rows->Edit();
  rows->Set("N1", Cell::Of(std::int64_t{9}));
  rows->MoveNext();
  EXPECT_EQ(FailureOf([&] { rows->Update(); }).number, ErrorNumber::UpdateWithoutEdit);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "2"}));
}

TEST_F(RecordsetTest, WritingWithoutEditIsRefused) {
  AjouteLignes(1);
  const auto rows = database->OpenRecordset("TALPENA");
  const std::string text = "Update or CancelUpdate without AddNew or Edit.";
  EXPECT_EQ(FailureOf([&] { rows->Update(); }).description, text);
  EXPECT_EQ(FailureOf([&] { rows->CancelUpdate(); }).description, text);
  EXPECT_EQ(FailureOf([&] { rows->Set(1, Cell::Null()); }).number, 3020);
  EXPECT_EQ(FailureOf([&] { rows->LastModified(); }).number, 3021);
}

TEST_F(RecordsetTest, ADeletedRowIsPassedOver) {
  AjouteLignes(4);
  const auto rows = database->OpenRecordset("TALPENA");
  rows->MoveNext();
  const Bookmark second = rows->GetBookmark();
  rows->Delete();
  EXPECT_FALSE(rows->EOF_());
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  const Failure failure = FailureOf([&] { rows->Get("N1"); });
  EXPECT_EQ(failure.number, 3167);
  EXPECT_EQ(failure.description, "Record is deleted.");
  EXPECT_EQ(FailureOf([&] { rows->GetBookmark(); }).number, 3021);
  EXPECT_EQ(FailureOf([&] { rows->SetBookmark(second); }).number, 3159);
  rows->MoveNext();
  EXPECT_EQ(rows->Get("N1").integer, 3);
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "3", "4"}));
}

TEST_F(RecordsetTest, DeletingAllRowsInALoopLeavesAnEmptyTable) {
  AjouteLignes(5);
  const auto rows = database->OpenRecordset("TALPENA");
  for (; !rows->EOF_(); rows->MoveNext()) rows->Delete();
  EXPECT_TRUE(rows->BOF());
  EXPECT_TRUE(rows->EOF_());
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), 0);
}

TEST_F(RecordsetTest, AClonesDeletionIsSeenByAll) {
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  const auto sorted = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  const auto clone = rows->Clone();
  clone->Delete();
  EXPECT_EQ(FailureOf([&] { rows->Get("N1"); }).number, 3167);
  EXPECT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(Colonne(*sorted, "N1"), (Strings{"3", "2"}));
}

TEST_F(RecordsetTest, ACloneStandsOnTheFirstRowAndMovesAlone) {
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  rows->MoveLast();
  const auto clone = rows->Clone();
  EXPECT_EQ(clone->Get("N1").integer, 3);
  clone->MoveNext();
  EXPECT_EQ(rows->Get("N1").integer, 1);
  clone->SetBookmark(rows->GetBookmark());
  EXPECT_EQ(clone->AbsolutePosition(), 2);
}

TEST_F(RecordsetTest, RowsAddedByACloneStandAtTheEnd) {
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  const auto clone = rows->Clone();
  clone->AddNew();
  clone->Set("N1", Cell::Of(std::int64_t{5}));
  clone->Update();
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"2", "1", "5"}));
}

TEST_F(RecordsetTest, RowsOfOthersAreNotSeen) {
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("TALPENA");
  database->Execute("INSERT INTO TALPENA (N1) VALUES (9)");
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "2"}));
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "9"}));
}

TEST_F(RecordsetTest, ExecutedDeletionsAreSeen) {
  AjouteLignes(5);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  EXPECT_EQ(database->Execute("DELETE FROM TALPENA WHERE N1 IN (2, 4)"), 2);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"5", "3", "1"}));
  EXPECT_EQ(database->Execute("DELETE FROM TALPENA"), 3);
  EXPECT_EQ(rows->RecordCount(), 0);
  rows->MoveFirst();
  EXPECT_TRUE(rows->EOF_());
}

TEST_F(RecordsetTest, PositionsRunFromZero) {
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  rows->SetAbsolutePosition(2);
  EXPECT_EQ(rows->Get("N1").integer, 3);
  EXPECT_EQ(rows->AbsolutePosition(), 2);
  EXPECT_EQ(FailureOf([&] { rows->SetAbsolutePosition(3); }).number, ErrorNumber::InvalidArgument);
  EXPECT_EQ(FailureOf([&] { rows->SetAbsolutePosition(-1); }).number, ErrorNumber::InvalidArgument);
  EXPECT_EQ(rows->AbsolutePosition(), 2);
}

TEST_F(RecordsetTest, AForeignBookmarkIsRefused) {
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("TALPENA");
  for (const Bookmark bookmark : {Bookmark{0}, Bookmark{3}, Bookmark{-1}, Bookmark{1} << 40}) {
    const Failure failure = FailureOf([&] { rows->SetBookmark(bookmark); });
    EXPECT_EQ(failure.number, 3159) << bookmark;
    EXPECT_EQ(failure.description, "Not a valid bookmark.");
  }
  EXPECT_EQ(rows->Get("N1").integer, 1);
}

TEST_F(RecordsetTest, CountersKeepGrowing) {
  AjouteLignes(3);
  database->Execute("DELETE FROM TALPENA");
  AjouteLignes(1);
  EXPECT_EQ(Colonne("TALPENA", "Counter"), (Strings{"4"}));
  const auto rows = database->OpenRecordset("TALPENA");
  rows->Delete();
  AjouteLignes(1);
  EXPECT_EQ(Colonne("TALPENA", "Counter"), (Strings{"5"}));
}

TEST_F(RecordsetTest, ALoopMayEditEveryRowItPasses) {
  AjouteLignes(200);
  const auto rows = database->OpenRecordset("TALPENA");
  const int n1 = rows->FieldIndex("N1");
  std::int64_t sum = 0;
  for (; !rows->EOF_(); rows->MoveNext()) {
    rows->Edit();
    rows->Set(n1, Cell::Of(rows->Get(n1).integer * 2));
    rows->Update();
    sum += rows->Get(n1).integer;
  }
  EXPECT_EQ(sum, 200 * 201);
}

}  // namespace
}  // namespace talpena::enginetest

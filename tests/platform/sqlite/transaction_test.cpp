// One level of transaction, and what cursors see of it.
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

class TransactionTest : public EngineTest {
 protected:
  TransactionTest() {
    CreeTalpena();
    AjouteLignes(4);
  }
};

TEST_F(TransactionTest, BracketsHaveToMatch) {
  const std::string text =
      "You tried to commit or rollback a transaction without first beginning a transaction.";
  EXPECT_EQ(FailureOf([&] { database->CommitTrans(); }).description, text);
  EXPECT_EQ(FailureOf([&] { database->Rollback(); }).number, 3034);
  EXPECT_FALSE(database->EnTransaction());
  database->BeginTrans();
  EXPECT_TRUE(database->EnTransaction());
  EXPECT_EQ(FailureOf([&] { database->BeginTrans(); }).number, ErrorNumber::InvalidArgument);
  EXPECT_TRUE(database->EnTransaction());
  database->CommitTrans();
  EXPECT_FALSE(database->EnTransaction());
}

TEST_F(TransactionTest, RollbackTakesEverythingBack) {
  const auto rows = database->OpenRecordset("TALPENA");
  const auto sorted = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  database->BeginTrans();
  rows->Edit();
  rows->Set("N1", Cell::Of(std::int64_t{100}));
  rows->Update();
  rows->MoveNext();
  rows->Delete();
  rows->AddNew();
  rows->Set("N1", Cell::Of(std::int64_t{5}));
  rows->Update();
  database->Execute("DELETE FROM TALPENA WHERE N1 = 3");
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"100", "4", "5"}));
  database->Rollback();
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "2", "3", "4"}));
  EXPECT_EQ(Colonne(*sorted, "N1"), (Strings{"4", "3", "2", "1"}));
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "3", "4"}));
}

TEST_F(TransactionTest, DeletedAllComesBack) {
  const auto rows = database->OpenRecordset("TALPENA");
  rows->MoveLast();
  database->BeginTrans();
  database->Execute("DELETE FROM TALPENA");
  EXPECT_EQ(rows->RecordCount(), 0);
  database->Rollback();
  EXPECT_EQ(rows->RecordCount(), 4);
  EXPECT_EQ(rows->Get("N1").integer, 4);
}

TEST_F(TransactionTest, CommitKeepsEverything) {
  const auto rows = database->OpenRecordset("TALPENA");
  database->BeginTrans();
  rows->Delete();
  database->CommitTrans();
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"2", "3", "4"}));
}

TEST_F(TransactionTest, ACounterOfARowTakenBackIsNotGivenAgain) {
  database->BeginTrans();
  AjouteLignes(3);
  database->Rollback();
  AjouteLignes(1);
  EXPECT_EQ(Colonne("TALPENA", "Counter"), (Strings{"1", "2", "3", "4", "8"}));
}

TEST_F(TransactionTest, TheFirstCountersOfATableTakenBackAreNotGivenAgain) {
  TableDef table = TalpenaDef();
  table.name = "SECOND";
  database->CreateTable(table);
  database->BeginTrans();
  database->Execute("INSERT INTO SECOND (N1) VALUES (1)");
  database->Rollback();
  database->Execute("INSERT INTO SECOND (N1) VALUES (1)");
  EXPECT_EQ(Colonne("SECOND", "Counter"), (Strings{"2"}));
}

TEST_F(TransactionTest, ATableMadeInATransactionGoesWithIt) {
  TableDef table = TalpenaDef();
  table.name = "SECOND";
  database->BeginTrans();
  database->CreateTable(table);
  EXPECT_EQ(database->TableNames(), (Strings{"TALPENA", "SECOND"}));
  database->Rollback();
  EXPECT_EQ(database->TableNames(), (Strings{"TALPENA"}));
  database->CreateTable(table);
  EXPECT_EQ(database->OpenRecordset("SECOND")->RecordCount(), 0);
}

TEST_F(TransactionTest, ARowAddedAndTakenBackIsDeleted) {
  database->BeginTrans();
  AjouteLignes(1);
  const auto rows = database->OpenRecordset("TALPENA");
  database->Rollback();
  rows->MoveLast();
  EXPECT_EQ(FailureOf([&] { rows->Get("N1"); }).number, 3167);
}

TEST_F(TransactionTest, TheGuardRollsBackUnlessCommitted) {
  {
    const Transaction transaction(*database);
    database->Execute("DELETE FROM TALPENA");
  }
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), 4);
  {
    Transaction transaction(*database);
    database->Execute("DELETE FROM TALPENA");
    transaction.Valide();
  }
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), 0);
}

// More rows than the page cache holds: the old pages have to come back from the journal.
TEST_F(TransactionTest, AChangeLargerThanTheCacheIsTakenBackWhole) {
  class Many final : public RowSource {
   public:
    bool Suivante(std::span<Cell> cells) override {
      if (done_ == 120000) return false;
      cells[0] = Cell::Of(std::int64_t{++done_});
      cells[1] = Cell::Of(std::string_view(text_));
      return true;
    }

   private:
    std::int64_t done_ = 0;
    const std::string text_ = std::string(250, 'c');
  } many;
  const std::string_view columns[] = {"N1", "COMMENT"};
  EXPECT_EQ(database->InsertRows("TALPENA", columns, many), 120000);
  const auto rows = database->OpenRecordset("TALPENA");
  database->BeginTrans();
  EXPECT_EQ(database->Execute("UPDATE TALPENA SET COMMENT = 'gone'"), 120004);
  rows->MoveLast();
  EXPECT_EQ(rows->Get("COMMENT").text, "gone");
  database->Rollback();
  rows->MoveLast();
  EXPECT_EQ(rows->Get("COMMENT").text.size(), 250u);
  EXPECT_EQ(Colonne("SELECT COUNT(*) AS n FROM TALPENA WHERE COMMENT = 'gone'", "n")[0], "0");
}

// A cursor in the middle of its rows goes on after the transaction has ended.
TEST_F(TransactionTest, ACursorOutlivesTheEndOfATransaction) {
  AjouteLignes(20);
  const auto rows = database->OpenRecordset("TALPENA");
  int seen = 0;
  database->BeginTrans();
  for (; !rows->EOF_(); rows->MoveNext()) {
    EXPECT_FALSE(rows->Get("N1").EstNull());
    ++seen;
    if (seen == 10) database->Rollback();
    if (seen == 15) database->BeginTrans();
  }
  EXPECT_EQ(seen, 24);
  database->CommitTrans();
}

}  // namespace
}  // namespace talpena::enginetest

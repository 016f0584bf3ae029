// Rows handed to a table in bulk.
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

class InsertRowsTest : public EngineTest {
 protected:
  InsertRowsTest() { CreeTalpena(); }

  static constexpr std::string_view columns[] = {"n1", "DATUM"};
};

/// Throws when its rows are through.
class FailingSource final : public RowSource {
 public:
  bool Suivante(std::span<Cell> cells) override {
    if (done_ == 3) throw TalpenaError(ErrorNumber::InputPastEnd, "Input past end of file");
    cells[0] = Cell::Of(++done_);
    return true;
  }

 private:
  std::int64_t done_ = 0;
};

TEST_F(InsertRowsTest, AddsAllRowsInTheirOrder) {
  ListSource source({{1, "WGS84"}, {2, Value()}, {3, "EUR-M"}});
  EXPECT_EQ(database->InsertRows("talpena", columns, source), 3);
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "3"}));
  EXPECT_EQ(Colonne("TALPENA", "Counter"), (Strings{"1", "2", "3"}));
  EXPECT_EQ(Colonne("TALPENA", "DATUM"), (Strings{"WGS84", "", "EUR-M"}));
}

TEST_F(InsertRowsTest, TheRowsBeforeARefusedOneStay) {
  for (const bool inTransaction : {false, true}) {
    database->Execute("DELETE FROM TALPENA");
    if (inTransaction) database->BeginTrans();
    ListSource source({{1, "WGS84"}, {2, "EUR-M"}, {3, ""}, {4, "WGS84"}});
    const Failure failure = FailureOf([&] { database->InsertRows("TALPENA", columns, source); });
    EXPECT_EQ(failure.number, 3315);
    EXPECT_EQ(failure.description, "Field 'TALPENA.DATUM' cannot be a zero-length string.");
    EXPECT_EQ(database->EnTransaction(), inTransaction);
    if (inTransaction) database->CommitTrans();
    EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2"}));
  }
}

TEST_F(InsertRowsTest, AFailureOfTheSourceIsThrownOn) {
  FailingSource source;
  const std::string_view one[] = {"N1"};
  const Failure failure = FailureOf([&] { database->InsertRows("TALPENA", one, source); });
  EXPECT_EQ(failure.number, 62);
  EXPECT_EQ(failure.description, "Input past end of file");
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "3"}));
}

TEST_F(InsertRowsTest, TheRowsBeforeADoubleKeyStay) {
  TableDef table;
  table.name = "CODES";
  table.fields = {{"CODE", FieldType::Text, 5}};
  table.indexes = {{"PrimaryKey", {"CODE"}, false, true}};
  database->CreateTable(table);
  ListSource source({{"A"}, {"B"}, {"a"}, {"C"}});
  const std::string_view code[] = {"CODE"};
  const Failure failure = FailureOf([&] { database->InsertRows("CODES", code, source); });
  EXPECT_EQ(failure.number, 3022);
  EXPECT_EQ(failure.description,
            "The changes you requested to the table were not successful because they would create "
            "duplicate values in the index, primary key, or relationship.");
  EXPECT_EQ(Colonne("CODES", "CODE"), (Strings{"A", "B"}));
  const auto rows = database->OpenRecordset("CODES");
  rows->AddNew();
  rows->Set("CODE", Cell::Of(std::string_view("b")));
  EXPECT_EQ(FailureOf([&] { rows->Update(); }).number, 3022);
}

TEST_F(InsertRowsTest, RefusesWhatIsNotThere) {
  ListSource source({{1, "WGS84"}});
  const std::string_view unknown[] = {"N1", "FOO"};
  const std::string_view twice[] = {"N1", "n1"};
  EXPECT_EQ(FailureOf([&] { database->InsertRows("TALPENA", unknown, source); }).number, 3265);
  EXPECT_EQ(FailureOf([&] { database->InsertRows("TALPENA", twice, source); }).number, 3001);
  EXPECT_EQ(FailureOf([&] { database->InsertRows("TALPENA", {}, source); }).number, 3001);
  EXPECT_EQ(FailureOf([&] { database->InsertRows("FOO", columns, source); }).number, 3078);
}

TEST_F(InsertRowsTest, CanBeTakenBack) {
  ListSource source({{1, "WGS84"}, {2, "WGS84"}});
  database->BeginTrans();
  database->InsertRows("TALPENA", columns, source);
  database->Rollback();
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), 0);
}

TEST_F(InsertRowsTest, CountersThatAreGivenAreTaken) {
  ListSource source({{40, 1}, {7, 2}, {Value(), 3}});
  const std::string_view counters[] = {"Counter", "N1"};
  EXPECT_EQ(database->InsertRows("TALPENA", counters, source), 3);
  EXPECT_EQ(Colonne("TALPENA", "Counter"), (Strings{"7", "40", "41"}));
}

TEST_F(InsertRowsTest, CountersEndAt32Bits) {
  database->Execute("INSERT INTO TALPENA (Counter, N1) VALUES (2147483646, 1)");
  ListSource source({{2, Value()}, {3, Value()}});
  EXPECT_EQ(FailureOf([&] { database->InsertRows("TALPENA", columns, source); }).number, 6);
  EXPECT_EQ(Colonne("TALPENA", "Counter"), (Strings{"2147483646", "2147483647"}));
  const auto rows = database->OpenRecordset("TALPENA");
  rows->AddNew();
  EXPECT_EQ(FailureOf([&] { rows->Update(); }).number, 6);
  EXPECT_EQ(FailureOf([&] { database->Execute("INSERT INTO TALPENA (N1) VALUES (5)"); }).number, 6);
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), 2);
}

}  // namespace
}  // namespace talpena::enginetest

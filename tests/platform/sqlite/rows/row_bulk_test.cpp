// Many rows deleted or filled at once: the engine's way, and the plain one row by row, do the same.
#include <numeric>

#include "common/talpena_error.h"
#include "platform/sqlite/engine_fixture.h"
#include "platform/sqlite/rows/plain_rows.h"

namespace talpena {
namespace {

using enginetest::EngineTest;
using enginetest::Failure;
using enginetest::FailureOf;
using enginetest::Strings;
using Bookmarks = std::vector<Bookmark>;

/// Both ways to do it.
class RowBulkTest : public EngineTest, public ::testing::WithParamInterface<bool> {
 protected:
  static std::int64_t Supprime(Recordset& rows, const Bookmarks& chosen) {
    return GetParam() ? rows.SupprimeLignes(chosen) : plain::SupprimeLignes(rows, chosen);
  }
  std::int64_t Remplit(Recordset& rows, std::vector<int> fields, std::vector<Cell> values) {
    const auto avance = [this](std::int64_t done, std::int64_t total) {
      progress.emplace_back(done, total);
      if (meanwhile) meanwhile();
    };
    return GetParam() ? rows.RemplitLignes(fields, values, avance)
                      : plain::RemplitLignes(rows, fields, values, avance);
  }
  static Bookmarks Signets(Bookmark first, Bookmark last) {
    Bookmarks rows(static_cast<std::size_t>(last - first + 1));
    std::iota(rows.begin(), rows.end(), first);
    return rows;
  }

  std::vector<std::pair<std::int64_t, std::int64_t>> progress;
  std::function<void()> meanwhile;
};

INSTANTIATE_TEST_SUITE_P(BothWays, RowBulkTest, ::testing::Bool(),
                         [](const auto& way) { return way.param ? "Engine" : "RowByRow"; });

TEST_P(RowBulkTest, DeletesTheRowsThatAreNamed) {
  CreeTalpena();
  AjouteLignes(6);
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_EQ(Supprime(*rows, {5, 2, 3}), 3);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "4", "6"}));
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "4", "6"}));
}

TEST_P(RowBulkTest, PassesOverRowsThatAreNone) {
  CreeTalpena();
  AjouteLignes(4);
  const auto rows = database->OpenRecordset("TALPENA");
  rows->SetBookmark(2);
  rows->Delete();
  EXPECT_EQ(Supprime(*rows, {3, 2, 3, 99, -1, Bookmark{1} << 40}), 1);
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "4"}));
  EXPECT_EQ(Supprime(*rows, {}), 0);
}

TEST_P(RowBulkTest, DeletesOnlyWhatTheRecordsetShows) {
  CreeTalpena();
  AjouteLignes(6);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 > 3 ORDER BY N1 DESC");
  EXPECT_EQ(Supprime(*rows, {2, 4, 6}), 2);
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "3", "5"}));
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"5"}));
}

TEST_P(RowBulkTest, DeletesRunsAndSingleRowsAlike) {
  CreeTalpena();
  AjouteLignes(200);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  Bookmarks chosen = Signets(11, 100);
  for (Bookmark row = 120; row <= 180; row += 2) chosen.push_back(row);
  const Bookmarks tail = Signets(199, 200);
  chosen.insert(chosen.end(), tail.begin(), tail.end());
  EXPECT_EQ(Supprime(*rows, chosen), static_cast<std::int64_t>(chosen.size()));
  Strings left;
  for (int n = 198; n >= 1; --n) {
    const bool gone = (n >= 11 && n <= 100) || (n >= 120 && n <= 180 && n % 2 == 0);
    if (!gone) left.push_back(std::to_string(n));
  }
  EXPECT_EQ(Colonne(*rows, "N1"), left);
  EXPECT_EQ(rows->RecordCount(), static_cast<std::int64_t>(left.size()));
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), rows->RecordCount());
}

TEST_P(RowBulkTest, DeletesEveryRow) {
  CreeTalpena();
  AjouteLignes(50);
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_EQ(Supprime(*rows, Signets(1, 50)), 50);
  rows->MoveFirst();
  EXPECT_TRUE(rows->BOF());
  EXPECT_TRUE(rows->EOF_());
  AjouteLignes(1);
  EXPECT_EQ(Colonne("TALPENA", "Counter"), (Strings{"51"})) << "numbers are not given again";
}

TEST_P(RowBulkTest, TheCursorOnADeletedRowStandsNowhere) {
  CreeTalpena();
  AjouteLignes(5);
  const auto rows = database->OpenRecordset("TALPENA");
  const auto clone = rows->Clone();
  rows->SetBookmark(3);
  clone->SetBookmark(5);
  clone->Get("N1");
  Supprime(*rows, {1, 3});
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  EXPECT_EQ(FailureOf([&] { rows->Get("N1"); }).number, 3167);
  rows->MoveNext();
  EXPECT_EQ(rows->Get("N1").integer, 4);
  EXPECT_EQ(clone->AbsolutePosition(), 2);
  EXPECT_EQ(clone->Get("N1").integer, 5);
}

TEST_P(RowBulkTest, ARollbackBringsDeletedRowsBackIntoTheirPlaces) {
  CreeTalpena();
  AjouteLignes(100);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  const Strings before = Colonne(*rows, "N1");
  rows->SetBookmark(50);
  database->BeginTrans();
  Supprime(*rows, Signets(40, 70));
  EXPECT_EQ(rows->RecordCount(), 69);
  database->Rollback();
  EXPECT_EQ(rows->AbsolutePosition(), 50);
  EXPECT_EQ(rows->Get("N1").integer, 50);
  EXPECT_EQ(Colonne(*rows, "N1"), before);
}

TEST_P(RowBulkTest, FillsFieldsOfEveryRowThatIsShown) {
  CreeTalpena();
  AjouteLignes(5);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 > 2 ORDER BY N1 DESC");
  rows->MoveLast();
  EXPECT_EQ(Remplit(*rows, {rows->FieldIndex("LATITUDE"), rows->FieldIndex("COMMENT")},
                    {Cell::Of(50.123456789), Cell::Of(std::string_view("é"))}),
            3);
  EXPECT_EQ(rows->AbsolutePosition(), 2);
  EXPECT_EQ(rows->Get("LATITUDE").real, static_cast<double>(50.123456789F));
  EXPECT_EQ(Colonne("TALPENA", "COMMENT"), (Strings{"", "", "é", "é", "é"}));
  EXPECT_EQ(progress.back(), (std::pair<std::int64_t, std::int64_t>(3, 3)));
}

TEST_P(RowBulkTest, FillsAWholeTableAndLetsItBeReadMeanwhile) {
  CreeTalpena();
  AjouteLignes(9000);
  const auto rows = database->OpenRecordset("TALPENA");
  const auto other = rows->Clone();
  meanwhile = [&] {
    other->SetBookmark(9000);
    EXPECT_EQ(other->Get("N1").integer, 9000);
  };
  EXPECT_EQ(Remplit(*rows, {rows->FieldIndex("PERIOD")}, {Cell::Of(std::int64_t{2})}), 9000);
  EXPECT_GE(progress.size(), 3U);
  EXPECT_EQ(database->OpenRecordset("SELECT * FROM TALPENA WHERE PERIOD = 2")->RecordCount(), 9000);
}

TEST_P(RowBulkTest, ARefusedValueFillsNothing) {
  CreeTalpena();
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  const Failure failure = FailureOf([&] {
    Remplit(*rows, {rows->FieldIndex("N2"), rows->FieldIndex("DATUM")},
            {Cell::Of(std::int64_t{1}), Cell::Of(std::string_view())});
  });
  EXPECT_EQ(failure.number, ErrorNumber::ZeroLength);
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"", "", ""}));
}

TEST_P(RowBulkTest, WithoutRowsNothingIsRefused) {
  CreeTalpena();
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_EQ(Remplit(*rows, {rows->FieldIndex("DATUM")}, {Cell::Of(std::string_view())}), 0);
}

TEST_P(RowBulkTest, ARollbackTakesTheFillingBack) {
  CreeTalpena();
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  database->BeginTrans();
  Remplit(*rows, {rows->FieldIndex("N1")}, {Cell::Of(std::int64_t{0})});
  database->Rollback();
  EXPECT_EQ(Colonne(*rows, "N1"), (Strings{"1", "2", "3"}));
}

TEST_P(RowBulkTest, RefusesTheNumberedField) {
  CreeTalpena();
  AjouteLignes(1);
  const auto rows = database->OpenRecordset("TALPENA");
  EXPECT_NE(FailureOf([&] { Remplit(*rows, {0}, {Cell::Of(std::int64_t{7})}); }).number, 0);
  EXPECT_EQ(FailureOf([&] { Remplit(*rows, {99}, {Cell::Null()}); }).number,
            ErrorNumber::ItemNotFound);
}

TEST_P(RowBulkTest, ReadOnlyRowsStay) {
  CreeTalpena();
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("SELECT N1 FROM TALPENA");
  EXPECT_EQ(FailureOf([&] { Supprime(*rows, {1}); }).number, ErrorNumber::ReadOnly);
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2"}));
}

/// What a table holds behind one value was put for another, in the order of its keys.
class ReplacedValuesTest : public EngineTest {
 protected:
  Strings Apres(const char* source, const char* field, const Cell& before, const Cell& value,
                bool byEngine) {
    database->Execute("UPDATE TALPENA SET PERIOD = Counter Mod 4, SEX = 'F', N1 = Counter Mod 3");
    database->Execute("UPDATE TALPENA SET PERIOD = Null, SEX = '' WHERE Counter Mod 5 = 0");
    const auto rows = database->OpenRecordset(source);
    const int index = rows->FieldIndex(field);
    std::int64_t told = 0;
    const auto avance = [&](std::int64_t done, std::int64_t total) {
      EXPECT_LE(told, done);
      EXPECT_LE(done, total);
      told = done;
    };
    const std::int64_t count = byEngine ? rows->RemplaceValeur(index, before, value, avance)
                                        : plain::RemplaceValeur(*rows, index, before, value);
    Strings table = Colonne("TALPENA", field);
    table.push_back(std::to_string(count) + " changed");
    return table;
  }
};

TEST_F(ReplacedValuesTest, AreThoseOfTheRowsOnShowThatHeldTheOther) {
  CreeTalpena();
  AjouteLignes(9000);
  database->Execute("DELETE FROM TALPENA WHERE Counter Mod 7 = 0");
  const auto number = [](std::int64_t value) { return Cell::Of(value); };
  for (const char* source : {"TALPENA", "SELECT * FROM TALPENA ORDER BY N2 DESC",
                             "SELECT * FROM TALPENA WHERE N1 = 1"}) {
    SCOPED_TRACE(source);
    EXPECT_EQ(Apres(source, "PERIOD", number(3), number(2), true),
              Apres(source, "PERIOD", number(3), number(2), false));
    EXPECT_EQ(Apres(source, "N1", number(1), Cell::Null(), true),
              Apres(source, "N1", number(1), Cell::Null(), false));
    EXPECT_EQ(Apres(source, "SEX", Cell::Of(std::string_view("F")), Cell::Of(std::string_view("M")),
                    true),
              Apres(source, "SEX", Cell::Of(std::string_view("F")), Cell::Of(std::string_view("M")),
                    false));
  }
}

TEST_F(ReplacedValuesTest, AreRefusedAsAnyOther) {
  CreeTalpena();
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  const auto replace = [&](int field, std::int64_t value) {
    return FailureOf([&] {
             rows->RemplaceValeur(field, Cell::Of(std::int64_t{1}), Cell::Of(value),
                                  [](std::int64_t, std::int64_t) {});
           })
        .number;
  };
  EXPECT_EQ(replace(rows->FieldIndex("PERIOD"), 70000), ErrorNumber::Overflow);
  EXPECT_EQ(replace(99, 1), ErrorNumber::ItemNotFound);
  EXPECT_NE(replace(0, 1), 0);
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "3"}));
}

}  // namespace
}  // namespace talpena

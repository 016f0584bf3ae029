// Numbers of many rows at once: the engine's way, and the plain one row by row, give the same.
#include <array>
#include <cmath>
#include <random>

#include "common/talpena_error.h"
#include "platform/sqlite/engine_fixture.h"

namespace talpena {
namespace {

using enginetest::EngineTest;
using enginetest::FailureOf;
using enginetest::ListSource;

/// Both ways to read.
class NumberRowsTest : public EngineTest, public ::testing::WithParamInterface<bool> {
 protected:
  /// Rows whose N1 counts from 1, with a latitude and a longitude that no other row has; every
  /// fifth has no longitude.
  void Remplit(int count) {
    CreeTalpena();
    std::vector<std::vector<Value>> rows;
    std::mt19937 random(3);
    for (int i = 1; i <= count; ++i) {
      const double latitude = static_cast<float>(random() % 18000000) / 100000.0F - 90;
      rows.push_back({latitude, i % 5 == 0 ? Value() : Value(i / 8.0), std::int64_t{i}});
    }
    ListSource source(std::move(rows));
    const std::array<std::string_view, 3> columns{"LATITUDE", "LONGITUDE", "N1"};
    database->InsertRows("TALPENA", columns, source);
  }
  /// The numbers of a reading, joined; Null as "-".
  static std::string Lues(Recordset& rows, const std::vector<int>& fields,
                          const std::vector<Bookmark>* only = nullptr) {
    std::string all;
    const NumberVisitor note = [&](const NumberBlock& block) {
      EXPECT_EQ(block.fields, fields.size());
      EXPECT_EQ(block.values.size(), block.rows * block.fields);
      for (std::size_t row = 0; row < block.rows; ++row) {
        for (std::size_t field = 0; field < block.fields; ++field) {
          const double value = block.Valeur(row, field);
          all += std::isnan(value) ? "-" : Cell::Of(value).Texte();
          all += field + 1 < block.fields ? '|' : '\n';
        }
      }
    };
    GetParam() ? rows.LitNombres(fields, only, note)
               : rows.Recordset::LitNombres(fields, only, note);
    return all;
  }
  /// The same by the plain loop over a clone.
  static std::string EnBoucle(Recordset& rows, const std::vector<int>& fields) {
    const auto clone = rows.Clone();
    std::string all;
    for (; !clone->EOF_(); clone->MoveNext()) all += Ligne(*clone, fields);
    return all;
  }
  static std::string Ligne(Recordset& rows, const std::vector<int>& fields) {
    std::string line;
    for (const int field : fields) {
      const Cell cell = rows.Get(field);
      line += (line.empty() ? "" : "|") + (cell.EstNull() ? std::string("-") : cell.Texte());
    }
    return line + "\n";
  }
  static std::vector<int> Champs(const Recordset& rows) {
    return {rows.FieldIndex("LATITUDE"), rows.FieldIndex("LONGITUDE"), rows.FieldIndex("N1")};
  }
};

INSTANTIATE_TEST_SUITE_P(BothWays, NumberRowsTest, ::testing::Bool(),
                         [](const auto& way) { return way.param ? "Engine" : "RowByRow"; });

TEST_P(NumberRowsTest, GoesInTheOrderOfTheRecordset) {
  Remplit(10000);
  for (const char* source :
       {"TALPENA", "SELECT * FROM TALPENA ORDER BY Counter DESC",
        "SELECT * FROM TALPENA ORDER BY [LATITUDE]",
        "SELECT * FROM TALPENA ORDER BY [LATITUDE] DESC", "SELECT * FROM TALPENA WHERE N1 > 9000",
        "SELECT * FROM TALPENA WHERE N1 = 1 OR N1 = 9000",
        "SELECT * FROM TALPENA WHERE N1 = 1 OR N1 = 9000 ORDER BY Counter DESC",
        "SELECT * FROM TALPENA WHERE LATITUDE > 89.8 ORDER BY [LATITUDE]",
        "SELECT * FROM TALPENA WHERE N1 < 0"}) {
    SCOPED_TRACE(source);
    const auto rows = database->OpenRecordset(source);
    EXPECT_EQ(Lues(*rows, Champs(*rows)), EnBoucle(*rows, Champs(*rows)));
  }
}

TEST_P(NumberRowsTest, LeavesOutDeletedRowsAndHasTheAddedOnesAtTheEnd) {
  Remplit(6000);
  const auto sorted = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY [LATITUDE]");
  for (const int position : {5999, 5000, 4096, 4095, 17, 0}) {
    sorted->SetAbsolutePosition(position);
    sorted->Delete();
  }
  sorted->AddNew();
  sorted->Set("N1", Cell::Of(std::int64_t{-7}));
  sorted->Update();
  const std::string read = Lues(*sorted, Champs(*sorted));
  EXPECT_EQ(read, EnBoucle(*sorted, Champs(*sorted)));
  EXPECT_TRUE(read.ends_with("\n-|-|-7\n"));
  EXPECT_EQ(std::count(read.begin(), read.end(), '\n'), 5995);
}

TEST_P(NumberRowsTest, ReadsNamedRowsInTheOrderOfTheirNames) {
  Remplit(9000);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 <= 8000");
  std::vector<Bookmark> named{7000, 3, 8000, 4, 1};
  const auto numbers = [&](std::vector<Bookmark> names) {
    std::string expected;
    const auto clone = rows->Clone();
    for (const Bookmark name : names) {
      clone->SetBookmark(name);
      expected += Ligne(*clone, Champs(*rows));
    }
    return expected;
  };
  EXPECT_EQ(Lues(*rows, Champs(*rows), &named), numbers(named));
  std::vector<Bookmark> many;
  for (Bookmark i = 8000; i > 0; i -= 2) many.push_back(i);
  EXPECT_EQ(Lues(*rows, Champs(*rows), &many), numbers(many));
}

TEST_P(NumberRowsTest, PassesOverNamesThatTheRecordsetDoesNotShow) {
  Remplit(100);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 <= 50");
  rows->SetBookmark(20);
  rows->Delete();
  const std::vector<Bookmark> named{20, 60, 10, -1, 1LL << 40, 30};
  EXPECT_EQ(Lues(*rows, {rows->FieldIndex("N1")}, &named), "10\n30\n");
  const std::vector<Bookmark> none;
  EXPECT_EQ(Lues(*rows, {rows->FieldIndex("N1")}, &none), "");
}

TEST_P(NumberRowsTest, SeesValuesAsTheyAreNow) {
  Remplit(3);
  const auto rows = database->OpenRecordset("TALPENA");
  database->Execute("UPDATE TALPENA SET N1 = 9 WHERE Counter = 2");
  EXPECT_EQ(Lues(*rows, {rows->FieldIndex("N1"), 0}), "1|1\n9|2\n3|3\n");
}

TEST_P(NumberRowsTest, RefusesFieldsThatHoldTexts) {
  Remplit(1);
  const auto rows = database->OpenRecordset("TALPENA");
  rows->Edit();
  rows->Set("DATUM", Cell::Of(std::string_view("WGS84")));
  rows->Update();
  EXPECT_EQ(FailureOf([&] { Lues(*rows, {rows->FieldIndex("DATUM")}); }).number,
            ErrorNumber::DataConversion);
  EXPECT_EQ(FailureOf([&] { Lues(*rows, {99}); }).number, ErrorNumber::ItemNotFound);
}

TEST_P(NumberRowsTest, ThrowsOnWhatTheVisitorThrowsAndTheCursorStays) {
  Remplit(5000);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY [LATITUDE]");
  rows->SetAbsolutePosition(77);
  const std::vector<int> fields{rows->FieldIndex("N1")};
  const NumberVisitor stop = [](const NumberBlock&) {
    throw TalpenaError(ErrorNumber::DiskFull, "full");
  };
  EXPECT_EQ(FailureOf([&] {
              GetParam() ? rows->LitNombres(fields, nullptr, stop)
                         : rows->Recordset::LitNombres(fields, nullptr, stop);
            }).number,
            ErrorNumber::DiskFull);
  EXPECT_EQ(rows->AbsolutePosition(), 77);
  EXPECT_EQ(Lues(*rows, fields), EnBoucle(*rows, fields));
}

TEST_P(NumberRowsTest, MayReadTheTableMeanwhile) {
  Remplit(20);
  const auto rows = database->OpenRecordset("TALPENA");
  const std::vector<int> fields{rows->FieldIndex("N1")};
  std::size_t seen = 0;
  const NumberVisitor look = [&](const NumberBlock& block) {
    seen += block.rows;
    EXPECT_EQ(EnBoucle(*rows, fields).size(), 9 * 2 + 11 * 3U);
  };
  GetParam() ? rows->LitNombres(fields, nullptr, look)
             : rows->Recordset::LitNombres(fields, nullptr, look);
  EXPECT_EQ(seen, 20U);
}

}  // namespace
}  // namespace talpena

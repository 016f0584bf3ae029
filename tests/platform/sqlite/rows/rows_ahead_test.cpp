// A walk that was announced gives what a walk row by row gives, whatever the rows and whatever
// happens to them on the way.
#include "platform/sqlite/rows/rows_ahead.h"

#include <algorithm>
#include <array>
#include <memory>
#include <numeric>
#include <random>

#include "platform/sqlite/engine_fixture.h"
#include "platform/sqlite/rows/packed_cells.h"

namespace talpena {
namespace {

using enginetest::EngineTest;
using enginetest::ListSource;

constexpr std::array<std::string_view, 10> columns{
    "PERIOD", "LATITUDE", "LONGITUDE", "N1", "N2", "SEX", "DATUM", "ORIGINAL", "DATE", "COMMENT"};
constexpr const char* orders[] = {
    "SELECT * FROM TALPENA ORDER BY [ORIGINAL]",
    "SELECT * FROM TALPENA ORDER BY [COMMENT] DESC",
    "SELECT * FROM TALPENA ORDER BY [PERIOD], [LATITUDE], [LONGITUDE]",
    "SELECT * FROM TALPENA ORDER BY Counter DESC",
    "SELECT * FROM TALPENA WHERE N1 > 500 ORDER BY [N2]",
    "SELECT * FROM TALPENA WHERE N1 = 7 ORDER BY [N2]",
    "TALPENA"};

class RowsAheadTest : public EngineTest {
 protected:
  /// Values of every kind and size; one in eight is Null.
  std::vector<Value> Rangee(std::size_t longest) {
    const auto text = [&](std::size_t size) {
      return std::string(1 + random_() % size, 'a') + "é";
    };
    std::vector<Value> row = {std::int64_t(random_() % 4),
                              double{static_cast<float>(random_() % 180000) / 1000 - 90},
                              double{static_cast<float>(random_() % 360000) / 1000 - 180},
                              std::int64_t(random_() % 1000),
                              std::int64_t(static_cast<std::int32_t>(random_())),
                              std::string(random_() % 2 == 0 ? "" : "F"),
                              std::string("WGS84"),
                              std::to_string(random_() % 5000),
                              text(8),
                              text(longest)};
    for (Value& value : row) {
      if (random_() % 8 == 0) value = Value();
    }
    return row;
  }
  void Remplit(int count, std::size_t longest) {
    CreeTalpena();
    std::vector<std::vector<Value>> rows;
    for (int i = 0; i < count; ++i) rows.push_back(Rangee(longest));
    ListSource source(std::move(rows));
    database->InsertRows("TALPENA", columns, source);
  }
  static std::string Ligne(Recordset& rows) {
    std::array<Cell, columns.size() + 1> cells;
    rows.LitLigne(cells);
    std::string line;
    for (const Cell& cell : cells) line += (cell.EstNull() ? std::string("-") : cell.Texte()) + "|";
    return line;
  }
  /// All rows of a cursor of its own; `during` is called behind each.
  static std::vector<std::string> Parcourt(
      Recordset& source, bool announced,
      const std::function<void(std::int64_t)>& during = [](std::int64_t) {}) {
    const auto rows = source.Clone();
    std::vector<std::string> lines;
    if (announced) rows->AnnonceParcours({});
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
      lines.push_back(Ligne(*rows));
      EXPECT_EQ(rows->Get(columns.size()).Texte().empty(), lines.back().ends_with("|-|"));
      during(rows->AbsolutePosition());
    }
    return lines;
  }
  void CompareTout() {
    for (const char* order : orders) {
      SCOPED_TRACE(order);
      const auto rows = database->OpenRecordset(order);
      EXPECT_TRUE(Parcourt(*rows, false) == Parcourt(*rows, true));
    }
  }

  std::mt19937 random_{11};
};

TEST_F(RowsAheadTest, FewRowsAreTheSameRowByRow) {
  Remplit(3000, 40);
  CompareTout();
}

TEST_F(RowsAheadTest, RowsThatGoToAFileAreTheSameRowByRow) {
  Remplit(20000, 1400);  // some 17 MB
  const auto rows = database->OpenRecordset(orders[2]);
  EXPECT_TRUE(Parcourt(*rows, false) == Parcourt(*rows, true));
}

TEST_F(RowsAheadTest, OneRowLargerThanMemoryAllowsIsLookedUp) {
  Remplit(2000, 40);
  const auto rows = database->OpenRecordset(orders[0]);
  rows->MoveFirst();
  const std::string large(20u << 20, 'x');
  rows->Edit();
  rows->Set("COMMENT", Cell::Of(std::string_view(large)));
  rows->Update();
  EXPECT_TRUE(Parcourt(*rows, false) == Parcourt(*rows, true));
}

TEST_F(RowsAheadTest, AChangeOnTheWayIsSeen) {
  Remplit(2000, 40);
  const auto rows = database->OpenRecordset(orders[0]);
  const auto other = rows->Clone();
  const auto change = [&](std::int64_t position) {
    if (position != 700) return;
    other->SetAbsolutePosition(701);
    other->Edit();
    other->Set("DATE", Cell::Of(std::string_view("new")));
    other->Update();
  };
  const auto lines = Parcourt(*rows, true, change);
  EXPECT_NE(lines[701].find("|new|"), std::string::npos) << lines[701];
  EXPECT_TRUE(lines == Parcourt(*rows, false));
}

TEST_F(RowsAheadTest, RowsThatCameAndWentStandWhereTheyDo) {
  Remplit(2000, 40);
  const auto rows = database->OpenRecordset(orders[0]);
  std::vector<Bookmark> gone;
  for (int i = 0; i < 2000; i += 3) {
    rows->SetAbsolutePosition(i);
    gone.push_back(rows->GetBookmark());
  }
  rows->SupprimeLignes(gone);
  rows->AddNew();
  rows->Set("ORIGINAL", Cell::Of(std::string_view("added")));
  rows->Update();
  const auto lines = Parcourt(*rows, true);
  EXPECT_EQ(static_cast<std::int64_t>(lines.size()), rows->RecordCount());
  EXPECT_TRUE(lines == Parcourt(*rows, false));
}

TEST_F(RowsAheadTest, AWalkOverManyRowsTellsHowFarReadingThemCame) {
  Remplit(9000, 10);
  const auto rows = database->OpenRecordset(orders[0]);
  std::vector<std::int64_t> told;
  rows->AnnonceParcours([&](std::int64_t done, std::int64_t total) {
    EXPECT_EQ(total, 9000);
    told.push_back(done);
  });
  EXPECT_EQ(told, (std::vector<std::int64_t>{4096, 8192}));
}

/// The table by itself: what the recordset falls back from cannot hide here.
class RowsAheadDirectTest : public ::testing::Test {
 protected:
  RowsAheadDirectTest()
      : connection_({}, sqlite::Connection::Mode::Private), table_(0, test::TalpenaDef()) {
    for (const std::string& sql : table_.SqlCreation()) connection_.Execute(sql);
  }
  void Remplit(int count, int size) {
    connection_.Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        std::to_string(count) + ") INSERT INTO TALPENA (N1, COMMENT) SELECT i, hex(zeroblob(" +
        std::to_string(size / 2) + ")) FROM n");
  }
  static sqlite::RowList Melange(int count) {
    std::vector<sqlite::RowKey> keys(static_cast<std::size_t>(count));
    std::iota(keys.begin(), keys.end(), 1);
    std::shuffle(keys.begin(), keys.end(), std::mt19937(5));
    return sqlite::RowList(std::move(keys));
  }
  void ExpectLignes(sqlite::RowsAhead& ahead, const sqlite::RowList& list) {
    std::array<Cell, columns.size() + 1> cells;
    for (std::size_t slot = 0; slot < list.Slots(); ++slot) {
      const char* const packed = ahead.Ligne(slot);
      ASSERT_NE(packed, nullptr) << slot;
      sqlite::Deballe(packed, cells);
      ASSERT_EQ(cells[0].integer, list.Cle(slot));
      ASSERT_EQ(cells[4].integer, list.Cle(slot));
    }
  }

  sqlite::Connection connection_;
  sqlite::TableState table_;
};

TEST_F(RowsAheadDirectTest, HoldsEveryRowInMemoryAndInAFile) {
  constexpr int count = 20000;
  for (const int size : {10, 1000}) {
    SCOPED_TRACE(size);
    connection_.Execute("DELETE FROM TALPENA");
    connection_.Execute("DELETE FROM sqlite_sequence");
    Remplit(count, size);
    const sqlite::RowList list = Melange(count);
    const auto ahead = sqlite::RowsAhead::Lit(connection_, table_, list, {});
    ASSERT_NE(ahead, nullptr);
    ExpectLignes(*ahead, list);
    EXPECT_TRUE(ahead->EstActuel());
    table_.NoteChangement();
    EXPECT_FALSE(ahead->EstActuel());
  }
}

TEST_F(RowsAheadDirectTest, LeavesRowsThatLieInOrderOrFarApartToOthers) {
  Remplit(3000, 10);
  EXPECT_EQ(sqlite::RowsAhead::Lit(connection_, table_, sqlite::RowList::Etendue(1, 3000), {}),
            nullptr);
  EXPECT_EQ(sqlite::RowsAhead::Lit(connection_, table_, Melange(300), {}), nullptr);
}

TEST_F(RowsAheadDirectTest, AFailureOnTheWayLeavesTheRowsToBeLookedUp) {
  Remplit(9000, 10);
  const auto fails = [](std::int64_t, std::int64_t) { throw std::bad_alloc(); };
  EXPECT_EQ(sqlite::RowsAhead::Lit(connection_, table_, Melange(9000), fails), nullptr);
}

}  // namespace
}  // namespace talpena

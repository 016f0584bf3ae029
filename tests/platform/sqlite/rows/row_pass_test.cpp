// A pass over many rows: the engine's way, and the plain one row by row, do the same.
#include <algorithm>
#include <functional>

#include "common/talpena_error.h"
#include "platform/sqlite/engine_fixture.h"
#include "platform/sqlite/rows/plain_rows.h"

namespace talpena {
namespace {

using enginetest::EngineTest;
using enginetest::FailureOf;
using enginetest::Strings;

/// A change written as a function; notes the rows and how far the pass came.
class Changer final : public RowChange {
 public:
  using Body = std::function<bool(std::span<const Cell>, std::span<Cell>)>;
  explicit Changer(Body body) : body_(std::move(body)) {}
  bool Modifie(Bookmark row, std::span<const Cell> given, std::span<Cell> changed) override {
    rows.push_back(row);
    return body_(given, changed);
  }
  void Avance(std::int64_t done, std::int64_t total) override {
    progress.emplace_back(done, total);
    if (meanwhile) meanwhile();
  }
  std::vector<Bookmark> rows;
  std::vector<std::pair<std::int64_t, std::int64_t>> progress;
  std::function<void()> meanwhile;

 private:
  Body body_;
};

/// Both ways to run a pass.
class RowPassTest : public EngineTest, public ::testing::WithParamInterface<bool> {
 protected:
  static std::int64_t Modifie(Recordset& rows, const RowPass& pass, RowChange& change) {
    return GetParam() ? rows.ModifieLignes(pass, change) : plain::ModifieLignes(rows, pass, change);
  }
  /// N2 = 10 * N1 in every row that the recordset shows.
  static Changer FoisDix() {
    return Changer([](std::span<const Cell> given, std::span<Cell> changed) {
      changed[0] = Cell::Of(given[0].integer * 10);
      return true;
    });
  }
  static RowPass N1VersN2(const Recordset& rows) {
    return {{rows.FieldIndex("N1")}, {rows.FieldIndex("N2")}};
  }
};

INSTANTIATE_TEST_SUITE_P(BothWays, RowPassTest, ::testing::Bool(),
                         [](const auto& way) { return way.param ? "Engine" : "RowByRow"; });

TEST_P(RowPassTest, ChangesEveryRow) {
  CreeTalpena();
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  rows->MoveLast();
  Changer change = FoisDix();
  EXPECT_EQ(Modifie(*rows, N1VersN2(*rows), change), 3);
  EXPECT_EQ(rows->AbsolutePosition(), 2);
  EXPECT_EQ(rows->Get("N2").integer, 30);
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"10", "20", "30"}));
  EXPECT_EQ(change.progress.back(), (std::pair<std::int64_t, std::int64_t>(3, 3)));
}

TEST_P(RowPassTest, LeavesTheRowsThatAreNotWanted) {
  CreeTalpena();
  AjouteLignes(4);
  const auto rows = database->OpenRecordset("TALPENA");
  Changer change([](std::span<const Cell> given, std::span<Cell> changed) {
    changed[0] = Cell::Of(std::int64_t{7});
    return given[0].integer % 2 == 0;
  });
  EXPECT_EQ(Modifie(*rows, N1VersN2(*rows), change), 2);
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"", "7", "", "7"}));
}

TEST_P(RowPassTest, KeepsToTheRowsOfTheRecordset) {
  CreeTalpena();
  AjouteLignes(10);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 > 7 ORDER BY N1 DESC");
  Changer change = FoisDix();
  EXPECT_EQ(Modifie(*rows, N1VersN2(*rows), change), 3);
  EXPECT_EQ(change.rows.size(), 3U);
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA WHERE N2 > 0", "N1"), (Strings{"8", "9", "10"}));
}

TEST_P(RowPassTest, KeepsToTheRowsThatWereSelected) {
  CreeTalpena();
  AjouteLignes(6);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  const std::vector<Bookmark> only{5, 2, 5, 99, -1};  // one twice, two that are no rows
  RowPass pass = N1VersN2(*rows);
  pass.only = &only;
  Changer change = FoisDix();
  EXPECT_EQ(Modifie(*rows, pass, change), 2);
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"", "20", "", "", "50", ""}));
}

TEST_P(RowPassTest, LeavesOutTheRowsThatWereDeleted) {
  CreeTalpena();
  AjouteLignes(4);
  const auto rows = database->OpenRecordset("TALPENA");
  const std::vector<Bookmark> only{1, 2, 3};
  rows->SetBookmark(2);
  rows->Delete();
  RowPass pass = N1VersN2(*rows);
  pass.only = &only;
  Changer change = FoisDix();
  EXPECT_EQ(Modifie(*rows, pass, change), 2);
  pass.only = nullptr;
  EXPECT_EQ(Modifie(*rows, pass, change), 3);
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"10", "30", "40"}));
}

TEST_P(RowPassTest, WalksFarApartKeys) {
  CreeTalpena();
  database->Execute("INSERT INTO TALPENA (Counter, N1) VALUES (1, 1)");
  database->Execute("INSERT INTO TALPENA (Counter, N1) VALUES (2000000000, 2)");
  const auto rows = database->OpenRecordset("TALPENA");
  Changer change = FoisDix();
  EXPECT_EQ(Modifie(*rows, N1VersN2(*rows), change), 2);
  EXPECT_LT(change.progress.size(), 10U);
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"10", "20"}));
}

TEST_P(RowPassTest, WritesSeveralFieldsOfEveryKind) {
  CreeTalpena();
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("TALPENA");
  const RowPass pass{{rows->FieldIndex("Counter")},
                     {rows->FieldIndex("COMMENT"), rows->FieldIndex("LATITUDE"),
                      rows->FieldIndex("SEX"), rows->FieldIndex("DATUM")}};
  std::string text;
  Changer change([&](std::span<const Cell> given, std::span<Cell> changed) {
    text = "É" + given[0].Texte();
    changed[0] = Cell::Of(std::string_view(text));
    changed[1] = Cell::Of(50.123456789);
    changed[2] = Cell::Of(std::string_view());
    return true;  // the fourth stays Null
  });
  Modifie(*rows, pass, change);
  EXPECT_EQ(Colonne("TALPENA", "COMMENT"), (Strings{"É1", "É2"}));
  EXPECT_EQ(rows->Get("LATITUDE").real, static_cast<double>(50.123456789F));
  EXPECT_EQ(rows->Get("SEX").kind, Cell::Kind::Text);
  EXPECT_TRUE(rows->Get("DATUM").EstNull());
}

TEST_P(RowPassTest, WritesItsFieldsInAnyOrder) {
  CreeTalpena();
  AjouteLignes(3);
  database->Execute("UPDATE TALPENA SET N2 = 7, LATITUDE = 0.5, DATUM = 'WGS84', SEX = 'F'");
  const auto rows = database->OpenRecordset("TALPENA");
  const auto fields = [&rows](const std::vector<std::string>& names) {
    std::vector<int> indices;
    for (const std::string& name : names) indices.push_back(rows->FieldIndex(name));
    return indices;
  };
  // The second row stays as it is: of what is written some is read too, some is not.
  const RowPass pass{fields({"SEX", "N1", "N2"}), fields({"SEX", "DATUM", "N2", "LATITUDE", "N1"})};
  Changer change([](std::span<const Cell> given, std::span<Cell> changed) {
    changed[0] = Cell::Of(std::string_view("M"));
    changed[1] = Cell::Of(std::string_view("NTF"));
    changed[2] = given[1];
    changed[3] = Cell::Of(1.5);
    changed[4] = given[2];
    return given[1].integer != 2;
  });
  EXPECT_EQ(Modifie(*rows, pass, change), 2);
  EXPECT_EQ(change.rows, (std::vector<Bookmark>{1, 2, 3}));
  EXPECT_EQ(Colonne("TALPENA", "SEX"), (Strings{"M", "F", "M"}));
  EXPECT_EQ(Colonne("TALPENA", "DATUM"), (Strings{"NTF", "WGS84", "NTF"}));
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"1", "7", "3"}));
  EXPECT_EQ(Colonne("TALPENA", "LATITUDE"), (Strings{"1.5", "0.5", "1.5"}));
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"7", "2", "7"}));
}

TEST_P(RowPassTest, MayChangeTheFieldOfAnIndexAndOfTheOrder) {
  CreeTalpena();
  AjouteLignes(50);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY PERIOD, N1");
  const RowPass pass{{rows->FieldIndex("N1")}, {rows->FieldIndex("PERIOD")}};
  Changer change([](std::span<const Cell> given, std::span<Cell> changed) {
    changed[0] = Cell::Of(51 - given[0].integer);
    return true;
  });
  EXPECT_EQ(Modifie(*rows, pass, change), 50);
  EXPECT_EQ(change.rows.size(), 50U);
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA WHERE PERIOD < 3 ORDER BY PERIOD", "N1"),
            (Strings{"50", "49"}));
}

TEST_P(RowPassTest, KeepsWhatWasChangedBeforeAFailure) {
  CreeTalpena();
  AjouteLignes(5);
  const auto rows = database->OpenRecordset("TALPENA");
  Changer change([](std::span<const Cell> given, std::span<Cell> changed) {
    if (given[0].integer == 3) throw TalpenaError(ErrorNumber::Overflow, "Overflow");
    changed[0] = Cell::Of(std::int64_t{1});
    return true;
  });
  EXPECT_EQ(FailureOf([&] { Modifie(*rows, N1VersN2(*rows), change); }).number,
            ErrorNumber::Overflow);
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"1", "1", "", "", ""}));
  EXPECT_EQ(change.rows.size(), 3U);
}

TEST_P(RowPassTest, RefusesWhatTheColumnCannotHold) {
  CreeTalpena();
  AjouteLignes(2);
  const auto rows = database->OpenRecordset("TALPENA");
  const RowPass pass{{}, {rows->FieldIndex("DATUM")}};
  Changer change([](std::span<const Cell>, std::span<Cell> changed) {
    changed[0] = Cell::Of(std::string_view("too long"));
    return true;
  });
  EXPECT_EQ(FailureOf([&] { Modifie(*rows, pass, change); }).number, ErrorNumber::FieldTooSmall);
  EXPECT_EQ(Colonne("TALPENA", "DATUM"), (Strings{"", ""}));
}

TEST_P(RowPassTest, RefusesUnknownAndNumberedFields) {
  CreeTalpena();
  AjouteLignes(1);
  const auto rows = database->OpenRecordset("TALPENA");
  Changer change([](std::span<const Cell>, std::span<Cell>) { return true; });
  EXPECT_EQ(FailureOf([&] {
              Modifie(*rows, {{99}, {1}}, change);
            }).number,
            ErrorNumber::ItemNotFound);
  EXPECT_NE(FailureOf([&] { Modifie(*rows, {{}, {0}}, change); }).number, 0);
}

TEST_P(RowPassTest, DoesNothingOnAnEmptyTable) {
  CreeTalpena();
  const auto rows = database->OpenRecordset("TALPENA");
  Changer change = FoisDix();
  EXPECT_EQ(Modifie(*rows, N1VersN2(*rows), change), 0);
  EXPECT_TRUE(change.rows.empty());
}

TEST_P(RowPassTest, LetsTheTableBeReadMeanwhile) {
  CreeTalpena();
  AjouteLignes(10000);
  const auto rows = database->OpenRecordset("TALPENA");
  const auto other = rows->Clone();
  Changer change = FoisDix();
  change.meanwhile = [&] {
    for (const Bookmark row : {1, 5000, 10000}) {
      other->SetBookmark(row);
      const std::int64_t n2 = other->Get("N2").integer;
      EXPECT_TRUE(n2 == 0 || n2 == row * 10) << row;
    }
  };
  EXPECT_EQ(Modifie(*rows, N1VersN2(*rows), change), 10000);
  EXPECT_GE(change.progress.size(), 3U);
  EXPECT_TRUE(std::is_sorted(change.progress.begin(), change.progress.end()));
}

TEST_P(RowPassTest, TakesPartInATransaction) {
  CreeTalpena();
  AjouteLignes(3);
  const auto rows = database->OpenRecordset("TALPENA");
  Changer change = FoisDix();
  database->BeginTrans();
  Modifie(*rows, N1VersN2(*rows), change);
  database->Rollback();
  EXPECT_EQ(Colonne("TALPENA", "N2"), (Strings{"", "", ""}));
}

}  // namespace
}  // namespace talpena

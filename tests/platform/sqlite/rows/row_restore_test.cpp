// Rows that were deleted come back under their bookmarks and at their places.
#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <set>

#include "common/talpena_error.h"
#include "platform/sqlite/engine_fixture.h"

namespace talpena {
namespace {

using enginetest::EngineTest;
using enginetest::FailureOf;
using enginetest::ListSource;
using enginetest::Strings;
using Bookmarks = std::vector<Bookmark>;

/// What is kept of rows before they go.
struct Kept {
  std::vector<RowPlace> places;
  std::vector<std::vector<Value>> values;
};

Kept Garde(Recordset& rows, const Bookmarks& chosen) {
  std::map<Bookmark, std::vector<Value>> values;
  rows.LitLignes(chosen, [&](Bookmark row, std::span<const Cell> cells) {
    EXPECT_FALSE(values.contains(row));
    for (const Cell& cell : cells) values[row].push_back(cell.Garde());
  });
  Kept kept;
  for (const auto& [row, cells] : values) {
    kept.places.push_back({row, rows.PositionDe(row)});
    kept.values.push_back(cells);
  }
  return kept;
}

void Retablit(Recordset& rows, const Kept& kept) {
  ListSource values(kept.values);
  rows.RetablitLignes(kept.places, values);
}

Kept GardeEtSupprime(Recordset& rows, const Bookmarks& chosen) {
  Kept kept = Garde(rows, chosen);
  EXPECT_EQ(rows.SupprimeLignes(chosen), static_cast<std::int64_t>(kept.places.size()));
  return kept;
}

class RowRestoreTest : public EngineTest {
 protected:
  void Remplit(int count) {
    CreeTalpena();
    AjouteLignes(count);
    database->Execute("UPDATE TALPENA SET LATITUDE = N1 / 7, COMMENT = 'é' & N1, SEX = ''");
  }
  Strings Tout() {
    Strings lines;
    const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY Counter");
    for (; !rows->EOF_(); rows->MoveNext()) {
      std::string line;
      for (int i = 0; i < 11; ++i) {
        const Cell cell = rows->Get(i);
        line += cell.EstNull() ? "-|" : cell.Texte() + "|";
      }
      lines.push_back(line);
    }
    return lines;
  }
};

TEST_F(RowRestoreTest, RowsStandAgainWhereTheyStood) {
  Remplit(100);
  const Strings before = Tout();
  for (const char* source :
       {"TALPENA", "SELECT * FROM TALPENA ORDER BY N1 DESC",
        "SELECT * FROM TALPENA ORDER BY COMMENT", "SELECT * FROM TALPENA WHERE N1 Mod 3 = 1"}) {
    SCOPED_TRACE(source);
    const auto rows = database->OpenRecordset(source);
    const auto clone = rows->Clone();
    const auto other = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
    const Strings shown = Colonne(*rows, "N1");
    const Strings others = Colonne(*other, "N1");
    Bookmarks chosen{1, 4, 7, 10, 97, 100, 40, 41, 42};
    const Kept kept = GardeEtSupprime(*rows, chosen);
    EXPECT_LT(rows->RecordCount(), static_cast<std::int64_t>(shown.size()));
    Retablit(*rows, kept);
    EXPECT_EQ(Colonne(*rows, "N1"), shown);
    EXPECT_EQ(Colonne(*clone, "N1"), shown);
    EXPECT_EQ(Colonne(*other, "N1"), others);
    EXPECT_EQ(Tout(), before);
  }
}

TEST_F(RowRestoreTest, AnOlderDeletionOfEverythingComesBackToo) {
  Remplit(50);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  const Strings before = Tout();
  const Strings shown = Colonne(*rows, "N1");
  Bookmarks all(50);
  std::iota(all.begin(), all.end(), 1);
  const Kept kept = Garde(*rows, all);
  database->Execute("DELETE FROM TALPENA");
  Retablit(*rows, kept);
  EXPECT_EQ(Colonne(*rows, "N1"), shown);
  EXPECT_EQ(Tout(), before);
}

TEST_F(RowRestoreTest, RowsOpenedSinceTakeThemUpAtTheirPositions) {
  Remplit(30);
  for (const char* source : {"TALPENA", "SELECT * FROM TALPENA ORDER BY N1 DESC",
                             "SELECT * FROM TALPENA ORDER BY COMMENT"}) {
    SCOPED_TRACE(source);
    auto rows = database->OpenRecordset(source);
    const Strings shown = Colonne(*rows, "N1");
    const Kept kept = GardeEtSupprime(*rows, {1, 2, 3, 17, 29, 30});
    rows = database->OpenRecordset(source);
    const auto clone = rows->Clone();
    Retablit(*rows, kept);
    EXPECT_EQ(Colonne(*rows, "N1"), shown);
    EXPECT_EQ(Colonne(*clone, "N1"), shown);
    EXPECT_EQ(rows->PositionDe(17), kept.places[3].position);
    EXPECT_TRUE(rows->FindFirst("N1 = 17"));
    EXPECT_EQ(rows->GetBookmark(), 17);
  }
}

TEST_F(RowRestoreTest, RowsThatWereNotShownAreInTheTableOnly) {
  Remplit(10);
  const auto all = database->OpenRecordset("TALPENA");
  Kept kept = GardeEtSupprime(*all, {3, 4});
  const auto filtered = database->OpenRecordset("SELECT * FROM TALPENA WHERE N1 > 5");
  for (RowPlace& place : kept.places) place.position = filtered->PositionDe(place.row);
  EXPECT_EQ(kept.places[0].position, -1);
  Retablit(*filtered, kept);
  EXPECT_EQ(filtered->RecordCount(), 5);
  EXPECT_EQ(all->RecordCount(), 10);
}

TEST_F(RowRestoreTest, CursorsStayOnTheirRows) {
  Remplit(20);
  const auto old = database->OpenRecordset("TALPENA");
  const Kept kept = GardeEtSupprime(*old, {2, 3, 12});
  const auto rows = database->OpenRecordset("TALPENA");
  const auto clone = rows->Clone();
  const auto behind = rows->Clone();
  rows->SetBookmark(10);
  clone->SetBookmark(15);
  clone->Delete();  // its cursor stands where a row was
  behind->MoveLast();
  behind->MoveNext();
  Retablit(*rows, kept);
  EXPECT_EQ(rows->GetBookmark(), 10);
  EXPECT_EQ(rows->AbsolutePosition(), 9);
  EXPECT_EQ(clone->AbsolutePosition(), -1);
  clone->MoveNext();
  EXPECT_EQ(clone->GetBookmark(), 16);
  EXPECT_TRUE(behind->EOF_());
  behind->MovePrevious();
  EXPECT_EQ(behind->GetBookmark(), 20);
}

TEST_F(RowRestoreTest, NumbersAreStillGivenOnce) {
  Remplit(5);
  const auto rows = database->OpenRecordset("TALPENA");
  const Kept kept = GardeEtSupprime(*rows, {4, 5});
  AjouteLignes(1);
  Retablit(*rows, kept);
  AjouteLignes(1);
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY Counter", "Counter"),
            (Strings{"1", "2", "3", "4", "5", "6", "7"}));
}

TEST_F(RowRestoreTest, ARefusalPutsNothingBack) {
  Remplit(9);
  const auto rows = database->OpenRecordset("TALPENA");
  const Kept kept = GardeEtSupprime(*rows, {2, 5, 8});
  const Strings without = Tout();
  const auto refusal = [&](const Kept& wrong) {
    const int number = FailureOf([&] { Retablit(*rows, wrong); }).number;
    EXPECT_EQ(Tout(), without);
    EXPECT_EQ(rows->RecordCount(), 6);
    return number;
  };
  Kept wrong = kept;
  wrong.places[2].row = 1;
  EXPECT_EQ(refusal(wrong), ErrorNumber::DuplicateKey) << "a row that is there";
  wrong = kept;
  wrong.places[2].row = wrong.places[0].row;
  EXPECT_EQ(refusal(wrong), ErrorNumber::DuplicateKey) << "the same twice";
  for (const Bookmark never : {Bookmark{10}, Bookmark{1} << 40}) {
    wrong.places[2].row = never;
    EXPECT_EQ(refusal(wrong), ErrorNumber::InvalidBookmark);
  }
  wrong = kept;
  wrong.values[2][7] = std::string("a datum that is too long");
  EXPECT_EQ(refusal(wrong), ErrorNumber::FieldTooSmall);
  Retablit(*rows, kept);
  EXPECT_EQ(rows->RecordCount(), 9);
}

TEST_F(RowRestoreTest, TooFewValuesPutNothingBack) {
  Remplit(3);
  const auto rows = database->OpenRecordset("TALPENA");
  Kept kept = GardeEtSupprime(*rows, {1, 2});
  ListSource one({kept.values[0]});
  EXPECT_EQ(FailureOf([&] { rows->RetablitLignes(kept.places, one); }).number,
            ErrorNumber::InvalidArgument);
  EXPECT_EQ(rows->RecordCount(), 1);
  rows->RetablitLignes({}, one);
}

TEST_F(RowRestoreTest, ARollbackTakesThemOutAgain) {
  Remplit(12);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  const Strings before = Tout();
  const Kept kept = GardeEtSupprime(*rows, {3, 4, 12});
  const Strings without = Tout();
  const auto fresh = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1 DESC");
  fresh->SetBookmark(5);
  const Strings shown = Colonne(*rows, "N1");
  database->BeginTrans();
  AjouteLignes(1);
  Retablit(*fresh, kept);
  EXPECT_EQ(rows->RecordCount(), 12);
  EXPECT_EQ(fresh->RecordCount(), 12);
  database->Rollback();
  EXPECT_EQ(Tout(), without);
  EXPECT_EQ(Colonne(*rows, "N1"), shown);
  EXPECT_EQ(Colonne(*fresh, "N1"), shown);
  database->BeginTrans();
  Retablit(*fresh, kept);
  database->CommitTrans();
  EXPECT_EQ(Tout(), before);
  EXPECT_EQ(Colonne(*fresh, "N1"), Colonne(*rows, "N1"));
}

TEST_F(RowRestoreTest, ATableWithoutNumbersHasBookmarksToo) {
  database->CreateTable({.name = "T",
                         .fields = {{"A", FieldType::Text, 5, true},
                                    {"B", FieldType::Binary},
                                    {"C", FieldType::Date}},
                         .indexes = {}});
  const std::string bytes("\0\xFF x", 4);
  ListSource source({{std::string("a"), bytes, 1.5}, {std::string(), Value(), Value()}});
  const std::string_view columns[] = {"A", "B", "C"};
  database->InsertRows("T", columns, source);
  const auto rows = database->OpenRecordset("T");
  const Kept kept = GardeEtSupprime(*rows, {1, 2});
  Retablit(*rows, kept);
  rows->MoveFirst();
  EXPECT_EQ(rows->Get("B").text, bytes);
  EXPECT_EQ(rows->Get("C").real, 1.5);
  rows->MoveNext();
  EXPECT_EQ(rows->Get("A").text, "");
  EXPECT_TRUE(rows->Get("B").EstNull());
}

TEST_F(RowRestoreTest, RowsForReadingAreReadOnly) {
  Remplit(4);
  const auto rows = database->OpenRecordset("SELECT N1 FROM TALPENA");
  const Kept kept = Garde(*rows, {4, 2, 2, 99});
  ASSERT_EQ(kept.places.size(), 2U);
  EXPECT_EQ(kept.places[1].position, 3);
  EXPECT_EQ(std::get<std::int64_t>(kept.values[1][0]), 4);
  EXPECT_EQ(FailureOf([&] { Retablit(*rows, kept); }).number, ErrorNumber::ReadOnly);
}

TEST_F(RowRestoreTest, ManyRowsComeBack) {
  Remplit(15000);
  const auto rows = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY COMMENT");
  const Strings shown = Colonne(*rows, "Counter");
  Bookmarks chosen(12000);
  std::iota(chosen.begin(), chosen.end(), 1001);
  const Kept kept = GardeEtSupprime(*rows, chosen);
  const auto fresh = database->OpenRecordset("SELECT * FROM TALPENA ORDER BY COMMENT");
  Retablit(*fresh, kept);
  EXPECT_EQ(Colonne(*rows, "Counter"), shown);
  EXPECT_EQ(Colonne(*fresh, "Counter"), shown);
}

// ---------------------------------------------------------------- against a model, at random

/// One open recordset and what it should show: every row that it has ever had, dead or alive.
struct Watched {
  std::string source;
  std::unique_ptr<Recordset> rows, clone;
  std::vector<std::pair<Bookmark, bool>> slots;

  auto Slot(Bookmark row) {
    return std::find_if(slots.begin(), slots.end(), [&](const auto& s) { return s.first == row; });
  }
  void Marque(Bookmark row, bool alive) {
    if (const auto slot = Slot(row); slot != slots.end()) slot->second = alive;
  }
  Bookmarks Vivantes() const {
    Bookmarks live;
    for (const auto& [row, alive] : slots) {
      if (alive) live.push_back(row);
    }
    return live;
  }
  /// What a transaction brought in is gone: dead where it stood among the rows, forgotten behind.
  void Annule(const std::vector<std::pair<Bookmark, bool>>& before) {
    std::map<Bookmark, bool> known(before.begin(), before.end());
    while (!slots.empty() && !known.contains(slots.back().first)) slots.pop_back();
    for (auto& [row, alive] : slots) alive = known.contains(row) && known[row];
  }
  /// A row that was never here comes to stand behind so many live ones.
  void Prend(const RowPlace& place) {
    if (place.position < 0 || Slot(place.row) != slots.end()) return;
    auto at = slots.begin();
    for (std::int64_t rank = 0; at != slots.end(); ++at) {
      if (at->second && rank++ == place.position) break;
    }
    slots.insert(at, {place.row, true});
  }
};

class RandomRestore : public EngineTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  static constexpr const char* sources[] = {"TALPENA", "SELECT * FROM TALPENA ORDER BY N2",
                                            "SELECT * FROM TALPENA ORDER BY Counter DESC",
                                            "SELECT * FROM TALPENA WHERE N2 > 40",
                                            "SELECT * FROM TALPENA WHERE N2 < 60 ORDER BY N2 DESC"};

  int Hasard(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

  void Ouvre() {
    Watched watched{.source = sources[Hasard(5)], .rows = {}, .clone = {}, .slots = {}};
    watched.rows = database->OpenRecordset(watched.source);
    watched.clone = watched.rows->Clone();
    for (const auto clone = watched.rows->Clone(); !clone->EOF_(); clone->MoveNext()) {
      watched.slots.emplace_back(clone->GetBookmark(), true);
    }
    open.push_back(std::move(watched));
  }
  void Ajoute() {
    Watched& into = open[static_cast<std::size_t>(Hasard(static_cast<int>(open.size())))];
    into.rows->AddNew();
    into.rows->Set("N2", Cell::Of(std::int64_t{Hasard(100)}));
    into.rows->Update();
    EXPECT_GT(into.rows->LastModified(), highest) << "a number was given twice";
    highest = into.rows->LastModified();
    into.slots.emplace_back(highest, true);
    table.insert(highest);
  }
  void Supprime() {
    Watched& from = open[static_cast<std::size_t>(Hasard(static_cast<int>(open.size())))];
    Bookmarks chosen;
    for (const Bookmark row : from.Vivantes()) {
      if (Hasard(4) == 0) chosen.push_back(row);
    }
    std::shuffle(chosen.begin(), chosen.end(), random);
    deleted.push_back(GardeEtSupprime(*from.rows, chosen));
    for (const Bookmark row : chosen) {
      table.erase(row);
      for (Watched& watched : open) watched.Marque(row, false);
    }
  }
  void Reprend() {
    if (deleted.empty()) return;
    const auto which = static_cast<std::ptrdiff_t>(Hasard(static_cast<int>(deleted.size())));
    const Kept kept = deleted[static_cast<std::size_t>(which)];
    deleted.erase(deleted.begin() + which);
    Watched& into = open[static_cast<std::size_t>(Hasard(static_cast<int>(open.size())))];
    Retablit(*into.rows, kept);
    for (const RowPlace& place : kept.places) {
      table.insert(place.row);
      for (Watched& watched : open) watched.Marque(place.row, true);
    }
    std::vector<RowPlace> places = kept.places;
    std::stable_sort(places.begin(), places.end(),
                     [](const RowPlace& a, const RowPlace& b) { return a.position < b.position; });
    for (const RowPlace& place : places) into.Prend(place);
  }
  void Transaction(int which) {
    if (which == 0 && !database->EnTransaction()) {
      database->BeginTrans();
      before = {table, deleted, {}};
      for (const Watched& watched : open) before.slots.push_back(watched.slots);
      openBefore = open.size();
    } else if (which == 1 && database->EnTransaction()) {
      database->CommitTrans();
    } else if (which == 2 && database->EnTransaction()) {
      database->Rollback();
      table = before.table;
      deleted = before.deleted;
      open.resize(openBefore);
      for (std::size_t i = 0; i < open.size(); ++i) open[i].Annule(before.slots[i]);
    }
  }
  void Verifie() {
    const Strings rows = Colonne("SELECT * FROM TALPENA ORDER BY Counter", "Counter");
    ASSERT_EQ(rows.size(), table.size());
    ASSERT_TRUE(
        std::equal(table.begin(), table.end(), rows.begin(),
                   [](Bookmark a, const std::string& b) { return std::to_string(a) == b; }));
    for (Watched& watched : open) {
      SCOPED_TRACE(watched.source);
      const Bookmarks expected = watched.Vivantes();
      ASSERT_EQ(watched.rows->RecordCount(), static_cast<std::int64_t>(expected.size()));
      for (std::size_t i = 0; i < expected.size(); ++i) {
        watched.clone->SetAbsolutePosition(static_cast<std::int64_t>(i));
        ASSERT_EQ(watched.clone->Get("Counter").integer, expected[i]);
        ASSERT_EQ(watched.rows->PositionDe(expected[i]), static_cast<std::int64_t>(i));
      }
    }
  }

  struct Before {
    std::set<Bookmark> table;
    std::vector<Kept> deleted;
    std::vector<std::vector<std::pair<Bookmark, bool>>> slots;
  };
  std::mt19937 random{GetParam()};
  std::vector<Watched> open;
  std::vector<Kept> deleted;
  std::set<Bookmark> table;
  Before before;
  std::size_t openBefore = 0;
  Bookmark highest = 0;
};

TEST_P(RandomRestore, FollowsTheModel) {
  CreeTalpena();
  Ouvre();
  for (int i = 0; i < 80; ++i) Ajoute();
  for (int step = 0; step < 150; ++step) {
    SCOPED_TRACE(step);
    switch (Hasard(8)) {
      case 0:
        if (open.size() < 8) Ouvre();
        break;
      case 1:
        Ajoute();
        break;
      case 2:
      case 3:
        Supprime();
        break;
      case 4:
        Transaction(Hasard(3));
        break;
      default:
        Reprend();
    }
    ASSERT_NO_FATAL_FAILURE(Verifie());
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomRestore, ::testing::Range(1u, 25u));

}  // namespace
}  // namespace talpena

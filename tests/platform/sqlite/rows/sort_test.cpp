// The order of rows against SQLite's own ORDER BY.
#include <sqlite3.h>

#include <algorithm>
#include <random>

#include "platform/sqlite/engine_fixture.h"
#include "platform/sqlite/rows/key_sorter.h"

namespace talpena::enginetest {
namespace {

using namespace std::literals;

class SortTest : public EngineTest {
 protected:
  SortTest() { CreeTalpena(); }

  Value Texte(std::size_t longest) {
    if (random_() % 8 == 0) return {};
    static constexpr const char* letters[] = {"a", "A", "b", "é", "É", "e",
                                              " ", "-", "z", "1", "ß"};
    std::string text;
    for (auto n = 1 + random_() % longest; n > 0; --n)
      text += letters[random_() % std::size(letters)];
    return text;
  }
  Value Nombre(std::int64_t range) {
    if (random_() % 8 == 0) return {};
    return static_cast<std::int64_t>(random_() % static_cast<unsigned>(2 * range)) - range;
  }
  Value Reel() {
    if (random_() % 8 == 0) return {};
    return static_cast<double>(static_cast<int>(random_() % 4001) - 2000) / 7.0;
  }

  void Remplit(int count) {
    std::vector<std::vector<Value>> rows;
    for (int i = 0; i < count; ++i) {
      rows.push_back({Nombre(3), Reel(), Reel(), Nombre(2147483647), Nombre(2), Texte(1), Texte(2),
                      Texte(20), Texte(3), Texte(60)});
    }
    ListSource source(std::move(rows));
    const std::string_view columns[] = {"PERIOD", "LATITUDE", "LONGITUDE", "N1",   "N2",
                                        "SEX",    "DATUM",    "ORIGINAL",  "DATE", "COMMENT"};
    database->InsertRows("TALPENA", columns, source);
  }

  std::mt19937 random_{23};
};

// An order by an expression is left to SQLite, one by columns is the engine's: +x is x.
TEST_F(SortTest, AgreesWithSqlite) {
  Remplit(3000);
  database->Execute("DELETE FROM TALPENA WHERE Counter Mod 7 = 0");
  const std::vector<std::string> columns = {"PERIOD", "LATITUDE", "LONGITUDE", "N1",   "N2",
                                            "SEX",    "DATUM",    "ORIGINAL",  "DATE", "COMMENT"};
  for (int round = 0; round < 60; ++round) {
    std::string order;
    std::string plain;
    for (auto n = 1 + (round < 40 ? 0 : random_() % 3); n > 0; --n) {
      const std::string column =
          columns[round < 20 ? static_cast<std::size_t>(round) % 10 : random_() % columns.size()];
      const std::string direction = round < 10 || random_() % 2 == 0 ? "" : " DESC";
      order += (order.empty() ? "" : ", ") + ("[" + column + "]") + direction;
      plain += (plain.empty() ? "" : ", ") + ("Switch(True, [" + column + "])") + direction;
    }
    const std::string where = round % 3 == 2 ? " WHERE PERIOD >= 0 " : " ";
    SCOPED_TRACE(order + where);
    EXPECT_EQ(Colonne("SELECT * FROM TALPENA" + where + "ORDER BY " + order, "Counter"),
              Colonne("SELECT * FROM TALPENA" + where + "ORDER BY " + plain, "Counter"));
  }
}

TEST_F(SortTest, EqualRowsKeepTheOrderOfTheFileInBothDirections) {
  AjouteLignes(5);
  database->Execute("UPDATE TALPENA SET PERIOD = 1, SEX = 'F'");
  for (const char* order : {"PERIOD", "PERIOD DESC", "SEX", "SEX DESC", "PERIOD DESC, SEX DESC"}) {
    EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY "s + order, "N1"),
              (Strings{"1", "2", "3", "4", "5"}))
        << order;
  }
}

TEST_F(SortTest, NullGoesFirst) {
  AjouteLignes(3);
  database->Execute("UPDATE TALPENA SET LATITUDE = N1 WHERE N1 <> 2");
  database->Execute("UPDATE TALPENA SET DATE = 'x' WHERE N1 <> 2");
  for (const char* column : {"LATITUDE", "DATE"}) {
    EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY "s + column, "N1").front(), "2");
    EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY "s + column + " DESC", "N1").back(), "2");
  }
}

TEST_F(SortTest, TheCounterFallsToo) {
  AjouteLignes(4);
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY Counter DESC", "Counter"),
            (Strings{"4", "3", "2", "1"}));
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY Counter ASC, N1 DESC", "Counter"),
            (Strings{"1", "2", "3", "4"}));
  database->Execute("DELETE FROM TALPENA WHERE Counter = 2");
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY Counter DESC", "Counter"),
            (Strings{"4", "3", "1"}));
}

TEST_F(SortTest, ZeroHasNoSign) {
  AjouteLignes(3);
  database->Execute("UPDATE TALPENA SET LATITUDE = -0.0 WHERE N1 = 2");
  database->Execute("UPDATE TALPENA SET LATITUDE = 0 WHERE N1 <> 2");
  EXPECT_EQ(Colonne("SELECT * FROM TALPENA ORDER BY LATITUDE", "N1"), (Strings{"1", "2", "3"}));
}

// Long texts with a long common beginning, more than their keys are kept of.
TEST_F(SortTest, LongTextsAreToldApart) {
  std::vector<std::vector<Value>> rows;
  for (int i = 0; i < 60; ++i) {
    rows.push_back({std::string(40000, 'x') + std::to_string(1000 + (i * 37) % 60)});
    rows.push_back({std::string(90000, 'x')});
  }
  ListSource source(std::move(rows));
  const std::string_view columns[] = {"COMMENT"};
  database->InsertRows("TALPENA", columns, source);
  const Strings sorted = Colonne("SELECT * FROM TALPENA ORDER BY COMMENT", "COMMENT");
  ASSERT_EQ(sorted.size(), 120u);
  for (std::size_t i = 0; i < 60; ++i) {
    EXPECT_EQ(sorted[i].substr(40000), std::to_string(1000 + i));
    EXPECT_EQ(sorted[60 + i].size(), 90000u);
  }
  const Strings falling = Colonne("SELECT * FROM TALPENA ORDER BY COMMENT DESC", "Counter");
  EXPECT_EQ(falling.front(), "2");
}

TEST(KeySorter, TellsWhichRowsItCouldNotDecide) {
  sqlite::KeySorter sorter(1 << 22);  // room for few bytes of each
  const std::size_t kept = sorter.Gardes();
  ASSERT_LT(kept, 32u);
  const std::string head(kept, 'k');
  sorter.Ajoute("z", 1);
  sorter.Ajoute(head + "b", 2);
  sorter.Ajoute("a", 3);
  sorter.Ajoute(head + "a", 4);
  const auto result = sorter.Trie();
  EXPECT_EQ(result.rows, (std::vector<sqlite::RowKey>{3, 2, 4, 1}));
  ASSERT_EQ(result.undecided.size(), 1u);
  EXPECT_EQ(result.undecided[0].first, 1u);
  EXPECT_EQ(result.undecided[0].last, 3u);
}

/// Keys with a common head, ends that repeat or not, and zeros behind, so that none begins another.
std::vector<std::pair<std::string, sqlite::RowKey>> ClesAuHasard(std::mt19937& random,
                                                                 unsigned distinct, int count) {
  std::vector<std::pair<std::string, sqlite::RowKey>> keys;
  for (sqlite::RowKey row = 0; row < count; ++row) {
    const unsigned number = static_cast<unsigned>(random()) % distinct;
    std::string key = number % 3 == 0 ? "Locality " : "Loc";
    key += std::to_string(number % 997);
    key.append(number % 90, static_cast<char>('a' + number % 2));
    key += std::to_string(number) + '\0';
    keys.emplace_back(std::move(key), row % 2 == 0 ? row : 2 * count - row);
  }
  return keys;
}

// What is undecided is undecided among the right rows; all else stands as the library sorts it.
TEST(KeySorter, SortsAsTheLibraryDoes) {
  std::mt19937 random(17);
  for (const std::size_t announced : {std::size_t{1}, std::size_t{20000}, std::size_t{1} << 20}) {
    for (const unsigned distinct : {1u, 50u, 3000u, 4000000000u}) {
      SCOPED_TRACE(testing::Message() << announced << " announced, " << distinct << " distinct");
      auto keys = ClesAuHasard(random, distinct, 20000);
      sqlite::KeySorter sorter(announced);
      for (const auto& [key, row] : keys) sorter.Ajoute(key, row);
      std::sort(keys.begin(), keys.end());
      auto result = sorter.Trie();
      const auto at = [&](std::size_t i) {
        return result.rows.begin() + static_cast<std::ptrdiff_t>(i);
      };
      for (const auto& [first, last] : result.undecided) {
        EXPECT_TRUE(std::is_sorted(at(first), at(last)));
        std::vector<sqlite::RowKey> expected;
        for (std::size_t i = first; i < last; ++i) {
          EXPECT_EQ(
              keys[i].first.compare(0, sorter.Gardes(), keys[first].first, 0, sorter.Gardes()), 0);
          expected.push_back(keys[i].second);
        }
        std::sort(expected.begin(), expected.end());
        ASSERT_TRUE(std::equal(expected.begin(), expected.end(), at(first), at(last)));
        std::transform(keys.begin() + static_cast<std::ptrdiff_t>(first),
                       keys.begin() + static_cast<std::ptrdiff_t>(last), at(first),
                       [](const auto& key) { return key.second; });
      }
      for (std::size_t i = 0; i < keys.size(); ++i) ASSERT_EQ(result.rows[i], keys[i].second) << i;
    }
  }
}

TEST(NumberSorter, SortsAsTheLibraryDoes) {
  std::mt19937 random(9);
  for (const std::uint32_t range : {1u, 5u, 3000u, 4000000000u}) {
    sqlite::NumberSorter sorter;
    std::vector<std::pair<std::uint32_t, sqlite::RowKey>> expected;
    for (sqlite::RowKey row = -50; row < 3000; ++row) {
      const auto number = static_cast<std::uint32_t>(random()) % range;
      sorter.Ajoute(number, row);
      expected.emplace_back(number, row);
    }
    std::stable_sort(expected.begin(), expected.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    sorter.Trie();
    ASSERT_EQ(sorter.Nombre(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
      EXPECT_EQ(sorter.Ligne(i), expected[i].second);
  }
}

}  // namespace
}  // namespace talpena::enginetest

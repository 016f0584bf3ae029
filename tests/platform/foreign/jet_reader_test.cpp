#include "platform/foreign/jet_format.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/jet_files.h"
#include "platform/foreign/mdb_tools.h"

namespace talpena {
namespace {

using namespace test;

struct Content {
  const char* file;
  const char* table;
  std::size_t rows;
  std::size_t columns;
};

// Counted with the tools of mdbtools and named with the files.
// clang-format off
constexpr Content contents[] = {
    {"DateTestDatabase.mdb", "DateTest", 6, 6},
    {"compIndexTestV2000.mdb", "Table1", 512, 0},
    {"fixedTextTestV2000.mdb", "users", 2, 10},
    {"indexTestV1997.mdb", "Table1", 4, 5},
    {"indexTestV1997.mdb", "Table2", 3, 2},
    {"indexTestV1997.mdb", "Table3", 4, 2},
    {"indexTestV2003.mdb", "Table1", 4, 5},
    {"indexTestV2003.mdb", "Table2", 3, 2},
    {"indexTestV2003.mdb", "Table3", 4, 2},
    {"queryTestV1997.mdb", "Table1", 0, 3},
    {"queryTestV1997.mdb", "Table2", 0, 3},
    {"queryTestV1997.mdb", "Table3", 0, 3},
    {"queryTestV2003.mdb", "Table1", 0, 3},
    {"queryTestV2003.mdb", "Table2", 0, 3},
    {"queryTestV2003.mdb", "Table3", 0, 3},
    {"test2V1997.mdb", "MSP_PROJECTS", 1, 74},
    {"test2V2000.mdb", "MSP_PROJECTS", 1, 74},
    {"testIndexPropertiesV2000.mdb", "TableIgnoreNulls1", 10, 2},
    {"testIndexPropertiesV2000.mdb", "TableIgnoreNulls1_temp", 0, 2},
    {"testIndexPropertiesV2000.mdb", "TableIgnoreNulls2", 11, 3},
    {"testIndexPropertiesV2000.mdb", "TableIgnoreNulls2_temp", 0, 3},
    {"testIndexPropertiesV2000.mdb", "TableUnique1_temp", 10, 2},
    {"testIndexPropertiesV2000.mdb", "TableUnique2_temp", 11, 3},
    {"testV1997.mdb", "Table1", 2, 9},
    {"testV1997.mdb", "Table2", 0, 89},
    {"testV1997.mdb", "Table3", 0, 2},
    {"testV1997.mdb", "Table4", 0, 2},
};
// clang-format on

TEST(JetReader, ReadsEveryTableOfTheRealFiles) {
  NEEDS_SHARED_DATA();
  std::map<std::string, std::set<std::string>> expected;
  for (const Content& c : contents) {
    SCOPED_TRACE(std::string(c.file) + " " + c.table);
    expected[c.file].insert(c.table);
    const auto database = CreeFormatJet()->Ouvre((mdbFolder / c.file).string());
    const std::size_t width = TableDe(*database, c.table).fields.size();
    EXPECT_TRUE(c.columns == 0 || width == c.columns) << width;
    EXPECT_EQ(LitLignes(*database, c.table, width).size(), c.rows);
  }
  for (const auto& entry : fs::directory_iterator(mdbFolder)) {
    std::set<std::string> names;
    for (const TableDef& table : CreeFormatJet()->Ouvre(entry.path().string())->Tables()) {
      names.insert(table.name);
    }
    EXPECT_EQ(names, expected[entry.path().filename().string()]) << entry.path();
  }
}

TEST(JetReader, DefinesTheColumns) {
  NEEDS_SHARED_DATA();
  const auto jet3 = CreeFormatJet()->Ouvre((mdbFolder / "testV1997.mdb").string());
  const TableDef table = TableDe(*jet3, "Table1");
  const std::vector<std::pair<std::string, FieldType>> expected = {
      {"A", FieldType::Text},    {"B", FieldType::Text},     {"C", FieldType::Byte},
      {"D", FieldType::Integer}, {"E", FieldType::Long},     {"F", FieldType::Double},
      {"G", FieldType::Date},    {"H", FieldType::Currency}, {"I", FieldType::Boolean}};
  ASSERT_EQ(table.fields.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(table.fields[i].name, expected[i].first);
    EXPECT_EQ(table.fields[i].type, expected[i].second) << expected[i].first;
    EXPECT_TRUE(table.fields[i].allowZeroLength);
    EXPECT_FALSE(table.fields[i].required);
  }
  EXPECT_EQ(table.fields[0].size, 50);
  EXPECT_EQ(table.fields[1].size, 100);
  EXPECT_EQ(table.fields[2].size, 0);

  const auto jet4 = CreeFormatJet()->Ouvre((mdbFolder / "fixedTextTestV2000.mdb").string());
  const TableDef users = TableDe(*jet4, "users");
  EXPECT_EQ(users.fields[1].size, 32);
  EXPECT_EQ(users.fields[4].size, 200);

  const auto dates = CreeFormatJet()->Ouvre((mdbFolder / "DateTestDatabase.mdb").string());
  EXPECT_FALSE(TableDe(*dates, "DateTest").fields[0].autoIncrement);
  EXPECT_TRUE(TableDe(*jet3, "Table3").fields[0].autoIncrement);
  EXPECT_EQ(TableDe(*dates, "DateTest").fields[4].type, FieldType::Memo);
}

TEST(JetReader, ReadsEveryTypeOfValue) {
  NEEDS_SHARED_DATA();
  const auto rows = LitTable("testV1997.mdb", "Table1");
  ASSERT_EQ(rows.size(), 2U);
  const Row first = {"a",
                     "b",
                     std::int64_t{0},
                     std::int64_t{0},
                     std::int64_t{0},
                     0.0,
                     29932.0 /* 1981-12-12 */,
                     0.0,
                     std::int64_t{0}};
  const Row second = {"abcdefg",
                      "hijklmnop",
                      std::int64_t{2},
                      std::int64_t{222},
                      std::int64_t{333333333},
                      444.555,
                      27293.0 /* 1974-09-21 */,
                      3.5,
                      std::int64_t{-1}};
  EXPECT_EQ(rows[0], first);
  EXPECT_EQ(rows[1], second);
}

TEST(JetReader, ReadsMemosWithTheirLineBreaks) {
  NEEDS_SHARED_DATA();
  const auto rows = LitTable("DateTestDatabase.mdb", "DateTest");
  ASSERT_EQ(rows.size(), 6U);
  EXPECT_EQ(rows[0][4], Value("Hello"));
  EXPECT_EQ(rows[4][4], Value("Escaped new line \\r\\n in field"));
  EXPECT_EQ(std::get<std::string>(rows[5][4]).substr(0, 8), "New line");
  EXPECT_EQ(rows[5][5], Value("No new line"));
}

TEST(JetReader, ReadsDatesOfAllCenturies) {
  NEEDS_SHARED_DATA();
  const auto rows = LitTable("DateTestDatabase.mdb", "DateTest");
  EXPECT_EQ(rows[1][1], Value(2958101.0));  // 9999-01-01
  EXPECT_EQ(rows[2][1], Value(-728.0));     // 1898-01-01
  EXPECT_EQ(rows[3][1], Value(-463126.0));  // 0632-01-01
}

TEST(JetReader, FindsTablesInAnyCase) {
  NEEDS_SHARED_DATA();
  const auto database = CreeFormatJet()->Ouvre((mdbFolder / "indexTestV2003.mdb").string());
  EXPECT_EQ(LitLignes(*database, "TABLE2", 2).size(), 3U);
  try {
    database->Rows("Table9");
    ADD_FAILURE() << "a table that is not there was opened";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::TableNotFound);
    EXPECT_EQ(e.description(), "The database engine cannot find the table 'Table9'.");
  }
}

TEST(JetReader, FillsAsManyCellsAsAreAskedFor) {
  NEEDS_SHARED_DATA();
  const auto database = CreeFormatJet()->Ouvre((mdbFolder / "testV1997.mdb").string());
  const auto rows = LitLignes(*database, "Table1", 11);
  EXPECT_EQ(rows[1].size(), 11U);
  EXPECT_EQ(rows[1][8], Value(std::int64_t{-1}));
  EXPECT_EQ(rows[1][10], Value());
  EXPECT_EQ(LitLignes(*database, "Table1", 1)[1], Row{"abcdefg"});
}

TEST(JetReader, ReadsTwoTablesAtOnceAndLeavesOneUnfinished) {
  NEEDS_SHARED_DATA();
  const auto database = CreeFormatJet()->Ouvre((mdbFolder / "compIndexTestV2000.mdb").string());
  std::vector<Cell> a(1), b(1);
  const auto one = database->Rows("Table1");
  const auto two = database->Rows("Table1");
  ASSERT_TRUE(one->Suivante(a));
  ASSERT_TRUE(two->Suivante(b));
  ASSERT_TRUE(one->Suivante(a));
  EXPECT_EQ(b[0].Garde().index(), a[0].Garde().index());
}

TEST(JetReader, DoesNotFollowTheUsersLocale) {
  NEEDS_SHARED_DATA();
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const auto expected = LitTable("testV1997.mdb", "Table1");
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  const auto rows = LitTable("testV1997.mdb", "Table1");
  std::setlocale(LC_ALL, before.c_str());
  EXPECT_EQ(rows, expected);
}

TEST(JetReader, LeavesTheFileAsItIs) {
  NEEDS_SHARED_DATA();
  const fs::path copy = fs::path(testing::TempDir()) / "jet_reader_copy.mdb";
  fs::remove(copy);
  fs::copy_file(mdbFolder / "testV1997.mdb", copy);
  fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write);
  const auto time = fs::last_write_time(copy);
  EXPECT_EQ(NumeroDe(copy.string()), 0);
  EXPECT_EQ(fs::last_write_time(copy), time);
  EXPECT_EQ(fs::file_size(copy), fs::file_size(mdbFolder / "testV1997.mdb"));
  fs::remove(copy);
}

TEST(JetReader, AgreesWithMdbExport) {
  NEEDS_SHARED_DATA();
  NEEDS_MDBTOOLS();
  std::size_t cells = 0;
  for (const Content& c : contents) {
    SCOPED_TRACE(std::string(c.file) + " " + c.table);
    cells += CompareAvecExport((mdbFolder / c.file).string(), c.table);
  }
  EXPECT_GT(cells, 1000U);
}

TEST(JetReader, NamesSystemTablesAndSavedQueries) {
  NEEDS_SHARED_DATA();
  struct Query {
    std::string name;
    int kind;
    bool operator==(const Query&) const = default;
  };
  // As mdb-tables names them; kinds as Access numbers them.
  const std::vector<Query> expected = {{"AppendQuery", 0x40},
                                       {"CrosstabQuery", 0x10},
                                       {"DataDefinitionQuery", 0x60},
                                       {"DeleteQuery", 0x20},
                                       {"MakeTableQuery", 0x50},
                                       {"PassthroughQuery", 0x70},
                                       {"SelectQuery", QueryDef::Select},
                                       {"UnionQuery", 0x80},
                                       {"UpdateQuery", 0x30}};
  for (const char* file : {"queryTestV1997.mdb", "queryTestV2003.mdb"}) {
    SCOPED_TRACE(file);
    const auto database = CreeFormatJet()->Ouvre((mdbFolder / file).string());
    std::vector<Query> queries;
    for (const QueryDef& query : database->Queries()) queries.push_back({query.name, query.kind});
    std::sort(queries.begin(), queries.end(),
              [](const Query& a, const Query& b) { return a.name < b.name; });
    EXPECT_EQ(queries, expected);
    std::set<std::string> system;
    for (const TableDef& table : database->SystemTables()) {
      EXPECT_NE(table.attributes & TableAttribute::System, 0U) << table.name;
      EXPECT_TRUE(table.fields.empty());
      system.insert(table.name);
    }
    EXPECT_TRUE(system.contains("MSysObjects") && system.contains("MSysQueries"));
    for (const TableDef& table : database->Tables()) EXPECT_EQ(table.attributes, 0U);
  }
}

TEST(JetReader, TellsHowManyRowsThereWillBe) {
  NEEDS_SHARED_DATA();
  for (const Content& c : contents) {
    const auto database = CreeFormatJet()->Ouvre((mdbFolder / c.file).string());
    EXPECT_EQ(database->NombreLignes(c.table), static_cast<std::int64_t>(c.rows)) << c.file;
  }
}

// What is there is never changed.
TEST(JetReader, RefusesToWriteIntoAFile) {
  NEEDS_SHARED_DATA();
  const auto format = CreeFormatJet();
  const auto number = [](const auto& body) {
    try {
      body();
    } catch (const TalpenaError& error) {
      EXPECT_FALSE(error.description().empty());
      return error.number();
    }
    return 0;
  };
  const fs::path path = mdbFolder / "testV1997.mdb";
  const auto database = format->Ouvre(path.string());
  EXPECT_EQ(number([&] { format->OuvrePourEcrire(path.string()); }), ErrorNumber::NotSupported);
  EXPECT_EQ(number([&] { database->CreeTable({}); }), ErrorNumber::NotSupported);
  EXPECT_EQ(number([&] { database->InsereLignes("Table1", *database->Rows("Table1")); }),
            ErrorNumber::NotSupported);
}

TEST(JetReader, TakesAccessConnectStringsOnly) {
  NEEDS_SHARED_DATA();
  const auto format = CreeFormatJet();
  const std::string path = (mdbFolder / "testV1997.mdb").string();
  EXPECT_TRUE(format->Reconnait(path, ""));
  EXPECT_TRUE(format->Reconnait(path, ";PWD="));
  EXPECT_TRUE(format->Reconnait(path, "ms access;"));
  EXPECT_FALSE(format->Reconnait(path, "dBase IV;"));
  EXPECT_FALSE(format->Reconnait(path, "Excel 5.0;"));
}

}  // namespace
}  // namespace talpena

// The real Paradox tables, value by value against an unrelated library, and their memos.
#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/foreign_rows.h"
#include "platform/foreign/paradox/paradox_files.h"
#include "platform/foreign/paradox/px_reader.h"

namespace talpena {
namespace {

using namespace test;

struct RealTable {
  const char* file;
  std::size_t columns;
  std::size_t rows;
};

constexpr RealTable realTables[] = {
    {"AREACODE.DB", 6, 239}, {"CUSTOMER.DB", 10, 20}, {"County.DB", 4, 3218}, {"STATES.DB", 4, 53},
    {"date4.db", 1, 3},      {"long.db", 2, 3},       {"memo.db", 2, 2}};

TEST(ParadoxReader, ReadsEveryRealTableAsPxlibDoes) {
  NEEDS_PARADOX_FILES();
  NEEDS_PXLIB();
  for (const RealTable& table : realTables) {
    SCOPED_TRACE(table.file);
    const std::string path = (paradoxFolder / table.file).string();
    const auto fields = CreeFormatParadox()->Ouvre(path)->Tables()[0].fields;
    EXPECT_EQ(fields.size(), table.columns);
    const std::vector<Row> rows = LitTableParadox(path);
    EXPECT_EQ(rows.size(), table.rows);
    CompareParPxlib(path, fields, rows);
  }
}

TEST(ParadoxReader, KnowsTheTypes) {
  NEEDS_PARADOX_FILES();
  const auto database = CreeFormatParadox()->Ouvre(paradoxFolder.string());
  const auto customer = TableDe(*database, "CUSTOMER");
  EXPECT_EQ(customer.fields[0].type, FieldType::Long);
  EXPECT_TRUE(customer.fields[0].autoIncrement);
  EXPECT_EQ(customer.fields[1].type, FieldType::Text);
  EXPECT_EQ(customer.fields[1].size, 51);
  EXPECT_EQ(customer.fields[8].name, "Comments");
  EXPECT_EQ(customer.fields[8].type, FieldType::Memo);
  EXPECT_EQ(customer.fields[9].type, FieldType::Date);
  EXPECT_EQ(TableDe(*database, "County").fields[0].type, FieldType::Long);
}

TEST(ParadoxReader, AFolderHasItsTablesAndAFileItsOwn) {
  NEEDS_PARADOX_FILES();
  const auto folder = CreeFormatParadox()->Ouvre(paradoxFolder.string());
  std::vector<std::string> names;
  for (const TableDef& table : folder->Tables()) names.push_back(table.name);
  EXPECT_EQ(names, (std::vector<std::string>{"AREACODE", "CUSTOMER", "County", "STATES", "date4",
                                             "long", "memo"}));
  EXPECT_EQ(folder->NombreLignes("county"), 3218);
  EXPECT_EQ(Numero([&] { folder->Rows("bees"); }), ErrorNumber::TableNotFound);
  const auto file = CreeFormatParadox()->Ouvre((paradoxFolder / "County.DB").string());
  ASSERT_EQ(file->Tables().size(), 1U);
  EXPECT_EQ(file->Tables()[0].name, "County");
}

TEST(ParadoxReader, ReadsDatesAndBlanks) {
  NEEDS_PARADOX_FILES();
  // 2018-01-01, 2018-02-01 and 2018-01-02 by any calendar.
  const std::vector<Row> dates = {{43101.0}, {43132.0}, {43102.0}};
  EXPECT_EQ(LitTableParadox((paradoxFolder / "date4.db").string()), dates);
  const std::vector<Row> longs = {{std::int64_t{1}, std::int64_t{1}},
                                  {std::int64_t{2}, std::int64_t{2}},
                                  {std::int64_t{3}, std::monostate{}}};
  EXPECT_EQ(LitTableParadox((paradoxFolder / "long.db").string()), longs);
}

TEST(ParadoxReader, ReadsMemosOfTheRecordAndOfTheMemoFile) {
  NEEDS_PARADOX_FILES();
  const std::vector<Row> rows = LitTableParadox((paradoxFolder / "memo.db").string());
  ASSERT_EQ(rows.size(), 2U);
  std::string expected;
  for (int line = 0; line < 5; ++line) {
    for (int i = 0; i < 10; ++i) expected += "01234567890";
    expected += '\n';
  }
  EXPECT_EQ(rows[0][1], Value(expected));
  EXPECT_EQ(rows[1][1], Value(std::string("01234567890\n")));
}

// Expected: by hand from the bytes of both files. The first memo is in its record, the fourth in
// fourteen blocks of its own, the others share one.
TEST(ParadoxReader, ReadsSmallAndLargeMemosOfOneFile) {
  NEEDS_PARADOX_FILES();
  struct Memo {
    std::size_t bytes;
    std::string_view begin;
    std::string_view end;
  };
  constexpr Memo memos[] = {
      {32, "Small comment (less 100 symbols)", "symbols)"},
      {518, "\tThe length of the leader may be zero", "later in this document."},
      {318, "mvn versions:set -DgenerateBackupPoms", "pages/ossrh-guide.html"},
      {56864, " The PARADOX File Structure", "  Stream.Done;\r\nEnd.\r\n"},
      {426, "private static String readFile(", "    stream.close();\r\n  }\r\n}\r\n"}};
  const std::vector<Row> rows = LitTableParadox((paradoxFolder / "CUSTOMER.DB").string());
  ASSERT_EQ(rows.size(), 20U);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i >= std::size(memos)) {
      EXPECT_EQ(rows[i][8], Value("")) << i;
      continue;
    }
    const auto text = std::get<std::string>(rows[i][8]);
    EXPECT_EQ(text.size(), memos[i].bytes);
    EXPECT_TRUE(text.starts_with(memos[i].begin)) << i;
    EXPECT_TRUE(text.ends_with(memos[i].end)) << i;
  }
}

}  // namespace
}  // namespace talpena

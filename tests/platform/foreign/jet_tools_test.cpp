// Access files that we have written, read by programs that know nothing of us.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/foreign/mdb_tools.h"
#include "platform/foreign/written_files.h"

namespace talpena {
namespace {

using namespace test;

std::string Outil(const std::string& tool, const std::string& path, const std::string& rest = {}) {
  return Sortie("LC_ALL=C.UTF-8 " + tool + " " + EntreQuotes(path) + " " + rest).value_or("failed");
}

/// The table that an export makes.
TableDef TableExportee() {
  return {.name = "my bees",
          .fields = {Champ("X", FieldType::Long), Champ("y", FieldType::Long),
                     Champ("Period", FieldType::Text, 1), Champ("Latitude", FieldType::Single),
                     Champ("Longitude", FieldType::Single), Champ("Number 1", FieldType::Long),
                     Champ("Number 2", FieldType::Long), Champ("Ellipsoid", FieldType::Text, 5),
                     Champ("Orig Coor", FieldType::Text, 24), Champ("Date", FieldType::Text, 10),
                     Champ("Sex", FieldType::Text, 1), Champ("Free text", FieldType::Text, 150),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

Row LigneExportee(std::size_t i) {
  const auto number = static_cast<std::int64_t>(i);
  return {number * 10,
          -number,
          i % 3 == 0 ? "" : std::to_string(i % 9),
          static_cast<double>(static_cast<float>(number % 180) / 2 - 45.41234F),
          static_cast<double>(static_cast<float>(number % 360) - 180),
          number,
          number % 7,
          "WGS84",
          "N 50" + std::to_string(i),
          "2003-05-0" + std::to_string(i % 9 + 1),
          i % 2 == 0 ? "m" : "♀",
          "Pâturage no " + std::to_string(i) + " " + std::string(i % 130, 'x'),
          "Bees / " + std::string(i % 60 * 100, 'c')};
}

/// Values as an array of JSON.
std::string EnJson(const Row& row) {
  std::string line = "[";
  for (const Value& value : row) {
    if (line.size() > 1) line += ',';
    if (const auto* text = std::get_if<std::string>(&value)) {
      line += '"' + *text + '"';  // of the texts here none needs more
    } else if (const auto* real = std::get_if<double>(&value)) {
      char number[40];
      std::snprintf(number, sizeof number, "%.17g", *real);
      line += number;
    } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
      line += std::to_string(*whole);
    } else {
      line += "null";
    }
  }
  return line + "]\n";
}

TEST(MdbTools, ListAndDescribeTheTable) {
  NEEDS_MDBTOOLS();
  const TempFolder folder;
  const WrittenFile file(folder / "bees.mdb");
  file.database->CreeTable(TableExportee());
  EXPECT_EQ(Outil("mdb-ver", file.path), "JET4\n");
  EXPECT_EQ(Outil("mdb-tables -1", file.path), "my bees\n");
  EXPECT_EQ(Outil("mdb-tables -1 -S", file.path),
            "MSysObjects\nMSysACEs\nMSysQueries\nMSysRelationships\nmy bees\n");
  EXPECT_EQ(Outil("mdb-tables -1 -t query", file.path), "");
  const std::string schema = Outil("mdb-schema --no-indexes -T 'my bees'", file.path);
  for (const char* column :
       {"[X]\t\t\tLong Integer", "[y]\t\t\tLong Integer", "[Period]\t\t\tText (1)",
        "[Latitude]\t\t\tSingle", "[Orig Coor]\t\t\tText (24)", "[Free text]\t\t\tText (150)",
        "[Memo]\t\t\tMemo"}) {
    EXPECT_NE(schema.find(column), std::string::npos) << column << " in " << schema;
  }
  EXPECT_EQ(schema.find("NOT NULL"), std::string::npos) << schema;
  EXPECT_EQ(Outil("mdb-schema -T 'my bees'", file.path).find("INDEX"), std::string::npos);
}

TEST(MdbTools, ShowTheProperties) {
  NEEDS_MDBTOOLS();
  const TempFolder folder;
  const WrittenFile file(folder / "bees.mdb");
  TableDef table = TableExportee();
  table.fields[7].required = true;
  table.fields[7].allowZeroLength = false;
  file.database->CreeTable(table);
  std::string expected;
  for (const FieldDef& field : table.fields) {
    if (field.type != FieldType::Text && field.type != FieldType::Memo) continue;
    const bool ellipsoid = field.name == "Ellipsoid";
    expected += "name: " + field.name + "\n\tAllowZeroLength: " + (ellipsoid ? "no" : "yes") +
                "\n\tRequired: " + (ellipsoid ? "yes" : "no") + "\n\n";
  }
  EXPECT_EQ(Outil("mdb-prop", file.path, "'my bees'"), expected);
}

TEST(MdbTools, ReadEveryValue) {
  NEEDS_MDBTOOLS();
  const TempFolder folder;
  const WrittenFile extremes(folder / "extremes.mdb");
  std::vector<Row> rows = LignesExtremes();
  rows[0][6] = 1.5e308;  // mdb-export rounds the largest number up, beyond all numbers
  rows[1][6] = -1.5e308;
  rows[3][9] = rows[3][10] = "Łosoś ♀";  // it knows the characters of the first plane only
  MadeRows ends = Source(rows);
  extremes.Ecrit(TousLesTypes(), ends);
  EXPECT_EQ(CompareAvecExport(extremes.path, "All types"), 5 * 11U);
  const WrittenFile memos(folder / "memos.mdb");
  const TableDef notes{.name = "Notes", .fields = {Champ("Memo", FieldType::Memo)}, .indexes = {}};
  MadeRows texts =
      Source({{std::string(2000, 'a')}, {std::string(5000, 'b')}, {std::string(99000, 'c')}});
  memos.Ecrit(notes, texts);
  EXPECT_EQ(CompareAvecExport(memos.path, "Notes"), 3U);
  for (const std::size_t count : {0U, 1U, 3000U}) {
    const WrittenFile file(folder / (std::to_string(count) + ".mdb"));
    MadeRows source(count, LigneExportee);
    file.Ecrit(TableExportee(), source);
    EXPECT_EQ(Outil("mdb-count", file.path, "'my bees'"), std::to_string(count) + "\n");
    EXPECT_EQ(CompareAvecExport(file.path, "my bees"), count * 13);
  }
}

// --- npm's mdb-reader ------------------------------------------------------------------------

const fs::path modules = fs::path(TALPENA_SOURCE_DIR) / "build" / "npm" / "node_modules";

#define NEEDS_MDB_READER()                                                                        \
  if (!Sortie("command -v node") || !fs::exists(modules / "mdb-reader")) {                        \
    GTEST_SKIP() << "npm's mdb-reader is not under " << modules << "; scripts/npm.sh fetches it"; \
  }

/// What the reader says of a table, after the rows that went into it were held against it.
std::string LuParNode(const WrittenFile& file, const TableDef& table,
                      const std::vector<Row>& rows) {
  const std::string expected = file.path + ".json";
  std::string lines;
  for (const Row& row : rows) lines += EnJson(row);
  EcritFichier(expected, lines);
  const std::string script = TALPENA_SOURCE_DIR "/tests/platform/foreign/read_mdb.mjs";
  return Sortie("node " + EntreQuotes(script) + " " + EntreQuotes(modules.string()) + " " +
                EntreQuotes(file.path) + " " + EntreQuotes(table.name) + " " +
                EntreQuotes(expected) + " 2>&1")
      .value_or("failed");
}

TEST(MdbReader, ReadsEveryTypeToItsEnds) {
  NEEDS_MDB_READER();
  const TempFolder folder;
  const WrittenFile file(folder / "extremes.mdb");
  const TableDef table = TousLesTypes();
  std::vector<Row> rows = LignesExtremes();
  MadeRows source = Source(rows);
  file.Ecrit(table, source);
  for (Row& row : rows) row = Relue(row);
  EXPECT_EQ(LuParNode(file, table, rows),
            "tables All types\n"
            "columns Flag boolean 0|Tiny byte 1|Small integer 2|Number 1 long 4|Money currency 8|"
            "Latitude float 4|Wide double 8|When datetime 8|Sex text 2|Free text text 510|"
            "Memo memo 0\n"
            "rows 5 5\n");
}

TEST(MdbReader, ReadsTablesOfAnyLength) {
  NEEDS_MDB_READER();
  const TempFolder folder;
  for (const std::size_t count : {0U, 1U, 10000U}) {
    const WrittenFile file(folder / (std::to_string(count) + ".mdb"));
    const TableDef table = TableExportee();
    MadeRows source(count, LigneExportee);
    file.Ecrit(table, source);
    std::vector<Row> rows;
    for (std::size_t i = 0; i < count; ++i) rows.push_back(LigneExportee(i));
    const std::string said = LuParNode(file, table, rows);
    EXPECT_TRUE(said.ends_with("Memo memo 0\nrows " + std::to_string(count) + " " +
                               std::to_string(count) + "\n"))
        << said.substr(0, 2000);
  }
}

TEST(MdbReader, ReadsMemosOfAnyLength) {
  NEEDS_MDB_READER();
  const TempFolder folder;
  const WrittenFile file(folder / "memo.mdb");
  const TableDef table{.name = "Notes", .fields = {Champ("Memo", FieldType::Memo)}, .indexes = {}};
  std::vector<Row> rows = {{""}};
  for (const std::size_t length : {64U, 2000U, 5000U, 100000U, 2000000U}) {
    rows.push_back({std::string(length, 'a')});
    if (length > 100000) continue;  // the reader copies all that it has for every page
    std::string wide;
    for (std::size_t i = 0; i < length / 2; ++i) wide += "🦔";
    rows.push_back({wide});
  }
  MadeRows source = Source(rows);
  file.Ecrit(table, source);
  const std::string said = LuParNode(file, table, rows);
  EXPECT_EQ(said.substr(0, 500), "tables Notes\ncolumns Memo memo 0\nrows 10 10\n");
}

}  // namespace
}  // namespace talpena

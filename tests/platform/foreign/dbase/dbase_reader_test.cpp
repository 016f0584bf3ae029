// dBase and FoxPro tables as other programs left them.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/foreign/dbase/dbf_files.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::string_literals;

struct RealFile {
  const char* name;
  const char* encoding;  ///< by the byte of its head, or by its texts
  std::size_t rows;
  std::size_t columns;
  std::size_t memoColumns;
};

// Counted by python3-dbfread.
constexpr RealFile realFiles[] = {
    {"PYACFL.DBF", "cp1252", 15, 20, 0},
    {"dbase_03.dbf", "cp1252", 14, 31, 0},
    {"dbase_83.dbf", "cp850", 67, 15, 1},
    {"dbase_8b.dbf", "cp1252", 10, 6, 1},
    {"dbase_f5_redacted.dbf", "cp850", 975, 59, 1},
    {"provincias_es.dbf", "cp1252", 52, 5, 0},
};

TEST(DbaseReader, ReadsEveryValueOfTheRealFilesAsAnotherReaderDoes) {
  NEEDS_DBF_FILES();
  NEEDS_DBFREAD();
  for (const RealFile& file : realFiles) {
    SCOPED_TRACE(file.name);
    const bool dbase4 = std::string_view(file.name).find("8b") != std::string_view::npos;
    EXPECT_EQ(CompareAvec("dbfread", (dbfFolder / file.name).string(), file.encoding, dbase4),
              file.rows * file.columns);
  }
}

TEST(DbaseReader, ReadsEveryValueOfTheRealFilesAsAThirdReaderDoes) {
  NEEDS_DBF_FILES();
  NEEDS_OGR();
  for (const RealFile& file : realFiles) {
    SCOPED_TRACE(file.name);
    EXPECT_EQ(CompareAvec("ogr", (dbfFolder / file.name).string(), file.encoding),
              file.rows * (file.columns - file.memoColumns));
  }
}

TEST(DbaseReader, ListsTheTablesOfAFolder) {
  NEEDS_DBF_FILES();
  const auto database = CreeFormatDbase()->Ouvre(dbfFolder.string());
  std::set<std::string> names;
  for (const TableDef& table : database->Tables()) names.insert(table.name);
  EXPECT_EQ(names, (std::set<std::string>{"PYACFL", "dbase_03", "dbase_83", "dbase_8b",
                                          "dbase_f5_redacted", "provincias_es"}));
  EXPECT_EQ(LitLignes(*database, "DBASE_83", 15).size(), 67U);
}

TEST(DbaseReader, LeavesVisualFoxProAlone) {
  NEEDS_DBF_FILES();
  const fs::path folder = dbfFolder / "visual_foxpro";
  EXPECT_TRUE(CreeFormatFoxPro()->Ouvre(folder.string())->Tables().empty());
  EXPECT_EQ(Numero([&] { CreeFormatFoxPro()->Ouvre((folder / "calls.dbf").string())->Tables(); }),
            ErrorNumber::UnrecognizedFormat);
}

TEST(DbaseReader, TellsItsColumns) {
  const MadeDbf table{.fields = {{"NAME", 'C', 20},
                                 {"COUNT", 'N', 5},
                                 {"RATIO", 'F', 20, 10},
                                 {"SEEN", 'D', 8},
                                 {"ALIVE", 'L', 1},
                                 {"NOTES", 'M', 10},
                                 {"PICTURE", 'G', 10},
                                 {"name", 'C', 3}}};
  dbase::TableReader reader({.path = "t", .rows = std::make_shared<MemoryBytes>(table.Octets())},
                            {}, nullptr);
  const TableDef definition = reader.Definition("bees");
  const std::vector<std::pair<std::string, FieldType>> expected = {
      {"NAME", FieldType::Text},      {"COUNT", FieldType::Double},  {"RATIO", FieldType::Double},
      {"SEEN", FieldType::Date},      {"ALIVE", FieldType::Boolean}, {"NOTES", FieldType::Memo},
      {"PICTURE", FieldType::Binary}, {"name_2", FieldType::Text}};
  EXPECT_EQ(definition.name, "bees");
  ASSERT_EQ(definition.fields.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(definition.fields[i].name, expected[i].first);
    EXPECT_EQ(definition.fields[i].type, expected[i].second);
  }
  EXPECT_EQ(definition.fields[0].size, 20);
}

TEST(DbaseReader, SkipsDeletedRows) {
  const MadeDbf table{.fields = {{"A", 'C', 2}}, .rows = {" a1", "*a2", " a3", "*a4"}};
  EXPECT_EQ(LitOctets(table.Octets()), (std::vector<Row>{{"a1"}, {"a3"}}));
}

TEST(DbaseReader, ReadsATableWithoutRows) {
  const MadeDbf table{.fields = {{"A", 'C', 2}}};
  EXPECT_TRUE(LitOctets(table.Octets()).empty());
}

struct NumberCase {
  const char* field;
  Value value;
};

TEST(DbaseReader, ReadsNumbersOrNull) {
  const std::vector<NumberCase> cases = {
      {"        12", 12.0},   {"12        ", 12.0}, {"     -12.5", -12.5}, {"    +12,50", 12.5},
      {"   1.5E+03", 1500.0}, {"**********", {}},   {"          ", {}},    {"  12 34   ", {}},
      {"     abc  ", {}},     {"       nan", {}},   {"       inf", {}},    {"         .", {}},
      {"1e400     ", {}},     {"       --1", {}},   {"00000000.5", 0.5},   {"    *12   ", 12.0},
      {"***12.5***", 12.5},   {"       .5 ", 0.5},  {"        5.", 5.0},
  };
  MadeDbf table{.fields = {{"A", 'N', 10, 2}}};
  for (const NumberCase& c : cases) table.rows.push_back(" "s + c.field);
  table.rows.push_back(" 12\0\0\0\0\0\0\0\0"s);
  const std::vector<Row> rows = LitOctets(table.Octets());
  ASSERT_EQ(rows.size(), cases.size() + 1);
  for (std::size_t i = 0; i < cases.size(); ++i) {
    EXPECT_EQ(rows[i][0], cases[i].value) << cases[i].field;
  }
  EXPECT_EQ(rows.back()[0], Value(12.0));
}

TEST(DbaseReader, ReadsDatesOrNull) {
  const MadeDbf table{.fields = {{"A", 'D', 8}},
                      .rows = {" 19000101", " 18991230", " 20240229", " 20230229", "         ",
                               " 00000000", " 20241301", " 2024 101", " 00010101", " 99991231"}};
  EXPECT_EQ(LitOctets(table.Octets()), (std::vector<Row>{{2.0},
                                                         {0.0},
                                                         {45351.0},
                                                         {Value()},
                                                         {Value()},
                                                         {Value()},
                                                         {Value()},
                                                         {Value()},
                                                         {-693593.0},
                                                         {2958465.0}}));
}

TEST(DbaseReader, ReadsTruthOrNull) {
  const MadeDbf table{.fields = {{"A", 'L', 1}},
                      .rows = {" T", " y", " F", " n", " ?", "  ", " x"}};
  const Value yes = std::int64_t{-1}, no = std::int64_t{0};
  EXPECT_EQ(LitOctets(table.Octets()),
            (std::vector<Row>{{yes}, {yes}, {no}, {no}, {Value()}, {Value()}, {Value()}}));
}

TEST(DbaseReader, ReadsTextsWithoutTheBlanksBehind) {
  const MadeDbf table{.fields = {{"A", 'C', 6}},
                      .rows = {"   ab  ", " ab\0\0\0\0"s, "       ", " abcdef"}};
  EXPECT_EQ(LitOctets(table.Octets()), (std::vector<Row>{{"  ab"}, {"ab"}, {""}, {"abcdef"}}));
}

TEST(DbaseReader, ReadsLongTextsWithTheUpperByteOfTheirWidthInTheDecimals) {
  const std::string text(300, 'x');
  const MadeDbf table{.version = 0xF5,
                      .fields = {{"A", 'C', 300 & 0xFF, 300 >> 8}, {"B", 'C', 1}},
                      .rows = {" " + text + "b"}};
  EXPECT_EQ(LitOctets(table.Octets()), (std::vector<Row>{{text, "b"}}));
}

TEST(DbaseReader, PassesOverBytesBehindTheLastColumn) {
  const MadeDbf table{.fields = {{"A", 'C', 1}}, .rows = {" aXYZ", " bXYZ"}};
  EXPECT_EQ(LitOctets(table.Octets()), (std::vector<Row>{{"a"}, {"b"}}));
}

// --- Memos ---------------------------------------------------------------------------------------

MadeDbf AvecMemos(unsigned char version, const std::vector<std::string>& blocks) {
  MadeDbf table{.version = version, .fields = {{"A", 'M', 10}}};
  for (const std::string& block : blocks) {
    table.rows.push_back(" " + std::string(10 - block.size(), ' ') + block);
  }
  return table;
}

TEST(DbaseReader, ReadsMemosOfDbase3ToTheirEndMark) {
  const std::string memos = Rempli("\3", 512) + Rempli("first\x1A\x1A", 512) +
                            Rempli(std::string(600, 'y') + "\x1A", 1024) + "no mark";
  const MadeDbf table = AvecMemos(0x83, {"1", "2", "4", "", "0"});
  EXPECT_EQ(LitOctets(table.Octets(), &memos),
            (std::vector<Row>{{"first"}, {std::string(600, 'y')}, {"no mark"}, {""}, {""}}));
}

TEST(DbaseReader, ReadsMemosOfDbase4ByTheirLength) {
  std::string head(1024, '\0');
  Pose(head, 20, std::uint16_t{1024});
  const std::string memos =
      head + Rempli("\xFF\xFF\x08\0\x0D\0\0\0five\x1A"s, 1024) + Rempli("old\x1A", 1024);
  const MadeDbf table = AvecMemos(0x8B, {"1", "2"});
  EXPECT_EQ(LitOctets(table.Octets(), &memos), (std::vector<Row>{{"five\x1A"}, {"old"}}));
}

TEST(DbaseReader, ReadsMemosOfFoxPro) {
  std::string memos(512, '\0');
  memos[7] = 33;
  memos.resize(33 * 16);
  memos += Rempli("\0\0\0\1\0\0\0\5hello"s, 33) + "\0\0\0\1\0\0\0\0"s;
  const MadeDbf table = AvecMemos(0xF5, {"16", "17"});
  EXPECT_EQ(LitOctets(table.Octets(), &memos), (std::vector<Row>{{"hello"}, {""}}));
}

TEST(DbaseReader, TurnsSoftLineEndsOfDbaseIntoBlanks) {
  const std::string memos = Rempli("", 512) + "one\x8D\ntwo\r\nthree\x1A";
  EXPECT_EQ(LitOctets(AvecMemos(0x83, {"1"}).Octets(), &memos),
            (std::vector<Row>{{"one two\r\nthree"}}));
}

TEST(DbaseReader, GivesNullForMemosWhoseFileIsMissing) {
  EXPECT_EQ(LitOctets(AvecMemos(0x83, {"1", ""}).Octets()), (std::vector<Row>{{Value()}, {""}}));
}

TEST(DbaseReader, FindsTheMemoFileInAnyCaseOfLetters) {
  const TempFolder folder;
  EcritFichier(folder / "Bees.DBF", AvecMemos(0x83, {"1"}).Octets());
  EcritFichier(folder / "BEES.Dbt", Rempli("", 512) + "text\x1A");
  const auto database = CreeFormatDbase()->Ouvre(folder / "Bees.DBF");
  EXPECT_EQ(LitLignes(*database, "bees", 1), (std::vector<Row>{{"text"}}));
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"BEES.Dbt", "Bees.DBF"}));
}

// --- Code pages ----------------------------------------------------------------------------------

MadeDbf Textes(unsigned char language, const std::vector<std::string>& texts) {
  MadeDbf table{.language = language, .fields = {{"A", 'C', 20}}};
  for (const std::string& text : texts)
    table.rows.push_back(" " + text + std::string(20 - text.size(), ' '));
  return table;
}

struct PageCase {
  const char* name;
  unsigned char language;
  const char* codePage;  ///< of the file beside
  const char* bytes;
  const char* text;
};

// clang-format off
constexpr PageCase pageCases[] = {
    {"437", 0x01, "", "caf\x82", "café"},
    {"850", 0x02, "", "\x9D", "Ø"},
    {"1252", 0x03, "", "caf\xE9 \x80", "café €"},
    {"1252 (57)", 0x57, "", "\x9C", "œ"},
    {"1252 (58)", 0x58, "", "\x9C", "œ"},
    {"1252 (59)", 0x59, "", "\x9C", "œ"},
    {"852", 0x64, "", "\x9D\xA2\x64\xAB", "Łódź"},
    {"866", 0x65, "", "\x8C\xAE\xE1", "Мос"},
    {"1250", 0xC8, "", "\xA3\xF3", "Łó"},
    {"1251", 0xC9, "", "\xCC\xEE", "Мо"},
    {"1254", 0xCA, "", "\xDE", "Ş"},
    {"1253", 0xCB, "", "\xE1", "α"},
    {"no meaning", 0x03, "", "a\x81z", "a\uFFFDz"},
    {"the file beside wins", 0x03, "UTF-8", "caf\xC3\xA9", "café"},
    {"a number", 0x03, "1251\r\n", "\xCC", "М"},
    {"a name", 0x01, "ANSI 1250", "\xA3", "Ł"},
    {"ISO", 0x01, "ISO-8859-1", "\xE9", "é"},
    {"a mark", 0x03, "LDID/101", "\x8C", "М"},
    {"one that says nothing", 0x01, "nonsense", "\x82", "é"},
    {"none, UTF-8", 0x00, "", "caf\xC3\xA9", "café"},
    {"none, letters of 850", 0x00, "", "caf\x82", "café"},
    {"none, letters of 1252", 0x00, "", "caf\xE9", "café"},
    {"none, as many of both", 0x00, "", "\x82\xE9", "‚é"},
    {"none, ASCII", 0x00, "", "cafe", "cafe"},
    {"an unknown one", 0x7B, "", "caf\xE9", "café"},
};
// clang-format on

TEST(DbaseReader, ReadsTextsByTheirCodePage) {
  for (const PageCase& c : pageCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(LitOctets(Textes(c.language, {c.bytes}).Octets(), nullptr, c.codePage),
              (std::vector<Row>{{c.text}}));
  }
}

TEST(DbaseReader, GuessesByAllTextsOfATable) {
  EXPECT_EQ(LitOctets(Textes(0, {"caf\xC3\xA9", "caf\xE9"}).Octets())[0][0], Value("cafÃ©"));
  EXPECT_EQ(LitOctets(Textes(0, {"\x82\x83\x84", "\xE9"}).Octets())[1][0], Value("Ú"));
  MadeDbf deleted = Textes(0, {"\x82\x83\x84", "\xE9"});
  deleted.rows[0][0] = '*';
  EXPECT_EQ(LitOctets(deleted.Octets()), (std::vector<Row>{{"é"}}));
}

TEST(DbaseReader, GuessesByMemosWithoutTheirSoftLineEnds) {
  MadeDbf table = AvecMemos(0x83, {"1"});
  table.language = 0;
  const std::string soft = Rempli("", 512) + "a\x8D\nb\x8D\nc \xE9\x1A";
  EXPECT_EQ(LitOctets(table.Octets(), &soft), (std::vector<Row>{{"a b c é"}}));
  const std::string utf8 = Rempli("", 512) + "\xC4\x8D\nb\x1A";
  EXPECT_EQ(LitOctets(table.Octets(), &utf8), (std::vector<Row>{{"č\nb"}}));
}

TEST(DbaseReader, ReadsNamesOfColumnsByTheCodePage) {
  MadeDbf table{.language = 0x02, .fields = {{"L\x8EUFER", 'C', 1}}};
  const TempFolder folder;
  EcritFichier(folder / "t.dbf", table.Octets());
  EXPECT_EQ(CreeFormatDbase()->Ouvre(folder.path())->Tables().at(0).fields.at(0).name, "LÄUFER");
  EcritFichier(folder / "t.cpg", "1252");
  EXPECT_EQ(CreeFormatDbase()->Ouvre(folder.path())->Tables().at(0).fields.at(0).name, "LŽUFER");
}

}  // namespace
}  // namespace talpena

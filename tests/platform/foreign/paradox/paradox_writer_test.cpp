// Paradox tables that are written: what comes back, and what is refused.
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <vector>

#include "common/text.h"
#include "platform/foreign/paradox/paradox_files.h"
#include "platform/foreign/paradox/px_reader.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::literals;

TableDef TousLesTypesParadox() {
  return {.name = "All types",
          .fields = {Champ("Flag", FieldType::Boolean), Champ("Tiny", FieldType::Byte),
                     Champ("Small", FieldType::Integer), Champ("Number 1", FieldType::Long),
                     Champ("Money", FieldType::Currency), Champ("Latitude", FieldType::Single),
                     Champ("Wide", FieldType::Double), Champ("When", FieldType::Date),
                     Champ("Sex", FieldType::Text, 1), Champ("Free text", FieldType::Text, 255),
                     Champ("Memo", FieldType::Memo), Champ("Picture", FieldType::Binary)},
          .indexes = {}};
}

std::vector<Row> LignesParadox() {
  const std::string accents = "Pélodyte ponctué, œ € “ß”";
  const std::string bytes("\0\1\xFF", 3);
  return {{std::int64_t{-1}, std::int64_t{255}, std::int64_t{32767}, std::int64_t{2147483647},
           922337203685477.5, -12.5, std::numeric_limits<double>::max(), 40000.25, "m",
           std::string(255, 'x'), std::string(100, 'y'), bytes},
          {std::int64_t{0}, std::int64_t{0}, std::int64_t{-32768}, std::int64_t{-2147483648LL},
           -0.0001, 0.0, std::numeric_limits<double>::lowest(), -657434.0, "é", accents,
           std::string(101, 'z'), std::string(5000, '\0')},
          Row(12)};
}

/// What a row is read back as: whole numbers above a byte are Numbers, and texts are never Null.
Row CommeRelue(Row row, const TableDef& table) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const FieldType type = table.fields[i].type;
    const bool text = type == FieldType::Text || type == FieldType::Memo;
    if (text && row[i] == Value()) row[i] = std::string();
    const auto* const whole = std::get_if<std::int64_t>(&row[i]);
    if (whole != nullptr && (type == FieldType::Integer || type == FieldType::Long))
      row[i] = static_cast<double>(*whole);
  }
  return row;
}

TEST(ParadoxWriter, ReadsBackEveryValueOfEveryType) {
  const WrittenTable table(TousLesTypesParadox());
  EXPECT_EQ(table.Ecrit(LignesParadox()), 3);
  std::vector<Row> expected;
  for (const Row& row : LignesParadox()) expected.push_back(CommeRelue(row, table.definition));
  EXPECT_EQ(table.Relit(), expected);
  NEEDS_PXLIB();
  CompareParPxlib(table.Table(), table.definition.fields, expected);
}

TEST(ParadoxWriter, APositionIsTheShortestDecimalOfItsFloat) {
  const WrittenTable table(
      {.name = "t", .fields = {Champ("Latitude", FieldType::Single)}, .indexes = {}});
  table.Ecrit({{double{50.41234F}}, {double{-179.99998F}}, {-12.5}, {0.0}});
  EXPECT_EQ(table.Relit(), (std::vector<Row>{{50.41234}, {-179.99998}, {-12.5}, {0.0}}));
}

TEST(ParadoxWriter, WritesTablesOfAnyLength) {
  // 40 records a block.
  for (const std::size_t count : {0U, 1U, 39U, 40U, 41U, 80U, 1000U}) {
    const WrittenTable table(UnTexte(100));
    MadeRows source(count, [](std::size_t i) { return Row{"row " + std::to_string(i)}; });
    EXPECT_EQ(table.Ecrit(source), static_cast<std::int64_t>(count));
    const auto rows = table.Relit();
    ASSERT_EQ(rows.size(), count);
    for (std::size_t i = 0; i < count; ++i)
      EXPECT_EQ(rows[i][0], Value("row " + std::to_string(i)));
    if (!pxDump.empty()) CompareParPxlib(table.Table(), table.definition.fields, rows);
  }
}

TEST(ParadoxWriter, KeepsMemosOfAnyLength) {
  std::vector<Row> rows;
  for (const std::size_t length : {1U, 99U, 100U, 101U, 112U, 113U, 1600U, 2047U, 2048U, 2049U,
                                   4087U, 4088U, 8183U, 8184U, 100000U}) {
    rows.push_back({std::string(length, static_cast<char>('a' + rows.size()))});
  }
  for (int i = 0; i < 300; ++i) rows.push_back({std::string(101, static_cast<char>('A' + i % 26))});
  const WrittenTable table(UnMemo());
  table.Ecrit(rows);
  EXPECT_EQ(table.Relit(), rows);
  EXPECT_EQ(fs::file_size(table.Memos()) % 4096, 0U);
}

TEST(ParadoxWriter, KeepsLineEndsAndZerosOfMemos) {
  const std::vector<Row> rows = {{"a\r\nb\n\tc"s}, {std::string(200, '\0') + "x"}};
  const WrittenTable table(UnMemo());
  table.Ecrit(rows);
  EXPECT_EQ(table.Relit(), rows);
}

TEST(ParadoxWriter, ATableMayHaveAPointInItsName) {
  TableDef memos = UnMemo();
  memos.name = "a b.c";
  const WrittenTable table(memos);
  table.Ecrit({{std::string(300, 'x')}});
  EXPECT_EQ(table.folder->Noms(), (std::vector<std::string>{"a b.c.db", "a b.c.mb"}));
  EXPECT_EQ(table.Relit(), (std::vector<Row>{{std::string(300, 'x')}}));
}

TEST(ParadoxWriter, KeepsBlanksOfTexts) {
  const WrittenTable table(UnTexte());
  table.Ecrit({{"  a "}, {" "}});
  EXPECT_EQ(table.Relit(), (std::vector<Row>{{"  a "}, {" "}}));
}

// Tables of random columns with random rows, ours and the library's.
TEST(ParadoxWriter, RandomTablesComeBack) {
  constexpr FieldType types[] = {FieldType::Text, FieldType::Memo, FieldType::Double,
                                 FieldType::Byte};
  std::mt19937 random(5);
  for (int round = 0; round < 30; ++round) {
    TableDef table{.name = "t", .fields = {}, .indexes = {}};
    const std::size_t columns = 1 + random() % 12;
    for (std::size_t i = 0; i < columns; ++i) {
      const FieldType type = types[random() % 4];
      const int size = type == FieldType::Text ? static_cast<int>(1 + random() % 255) : 0;
      table.fields.push_back(Champ(("column " + std::to_string(i)).c_str(), type, size));
    }
    std::vector<Row> rows(random() % 300);
    for (Row& row : rows) {
      for (const FieldDef& field : table.fields) {
        const auto most =
            static_cast<std::size_t>(field.type == FieldType::Memo ? 5000 : field.size);
        if (random() % 4 == 0) {
          row.emplace_back();
        } else if (most > 0) {
          row.emplace_back(
              std::string(1 + random() % most, static_cast<char>('a' + random() % 26)));
        } else if (field.type == FieldType::Byte) {
          row.emplace_back(static_cast<std::int64_t>(random() % 256));
        } else {
          row.emplace_back(static_cast<double>(random()) / 1000 - 1e6);
        }
      }
    }
    const WrittenTable written(table);
    written.Ecrit(rows);
    for (Row& row : rows) row = CommeRelue(row, table);
    ASSERT_EQ(written.Relit(), rows) << round;
    if (!pxDump.empty()) CompareParPxlib(written.Table(), table.fields, rows);
  }
}

int NumeroEcrit(const WrittenTable& table, std::vector<Row> rows) {
  return Numero([&] { table.Ecrit(std::move(rows)); });
}

TEST(ParadoxWriter, RowsBeforeARefusedOneStay) {
  const std::vector<Row> before = {{"one"}, {"zwölf Käfer"}};
  const auto refused = [&](const std::string& text) {
    std::vector<Row> rows = before;
    rows.push_back({text});
    rows.push_back({"behind"});
    const WrittenTable table(UnTexte(11));
    const int number = NumeroEcrit(table, rows);
    EXPECT_EQ(table.Relit(), before) << text;
    return number;
  };
  EXPECT_EQ(refused("twelve signs"), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(refused("Łódź"), ErrorNumber::NotInCodePage);
  EXPECT_EQ(refused("a\0b"s), ErrorNumber::NotInCodePage) << "a zero byte ends a text";
}

TEST(ParadoxWriter, SizesCountCharacters) {
  const WrittenTable table(UnTexte(3));
  table.Ecrit({{"äöü"}, {"€€€"}});
  EXPECT_EQ(table.Relit(), (std::vector<Row>{{"äöü"}, {"€€€"}}));
}

TEST(ParadoxWriter, RowsBeforeARefusedMemoStay) {
  const std::vector<Row> before = {{std::string(500, 'a')}, {std::string(9000, 'b')}};
  std::vector<Row> rows = before;
  rows.push_back({"Łódź"});
  const WrittenTable table(UnMemo());
  EXPECT_EQ(NumeroEcrit(table, rows), ErrorNumber::NotInCodePage);
  EXPECT_EQ(table.Relit(), before);
  rows.back() = {std::string(10000, 'c')};
  const WrittenTable small(UnMemo(), {.octetsMemo = 9999});
  EXPECT_EQ(NumeroEcrit(small, rows), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(small.Relit(), before);
}

TEST(ParadoxWriter, RowsBeforeAFailureOfTheSourceStay) {
  const WrittenTable table(UnTexte());
  MadeRows source(5, [](std::size_t i) {
    if (i == 3) throw TalpenaError(ErrorNumber::Cancelled, "Cancelled.");
    return Row{"x"};
  });
  EXPECT_EQ(Numero([&] { table.Ecrit(source); }), ErrorNumber::Cancelled);
  EXPECT_EQ(table.Relit().size(), 3U);
}

TEST(ParadoxWriter, RefusesMomentsThatTheFormatHasNot) {
  const TableDef moments{.name = "t", .fields = {Champ("When", FieldType::Date)}, .indexes = {}};
  for (const double days : {-657435.0, 2958466.0, 1e300}) {
    const WrittenTable table(moments);
    EXPECT_EQ(NumeroEcrit(table, {{1.0}, {days}}), ErrorNumber::DataConversion);
    EXPECT_EQ(table.Relit(), (std::vector<Row>{{1.0}}));
  }
}

int NumeroDefini(const TableDef& definition) {
  const WrittenTable table(definition);
  const int number = Numero([&] { table.database->CreeTable(definition); });
  EXPECT_TRUE(number == 0 || table.folder->Noms().empty());
  return number;
}

TEST(ParadoxWriter, RefusesNamesThatTheFormatCannotHave) {
  const auto column = [](const std::string& name) {
    return NumeroDefini(
        {.name = "t", .fields = {Champ(name.c_str(), FieldType::Long)}, .indexes = {}});
  };
  EXPECT_EQ(column("Number 1"), 0);
  EXPECT_EQ(column(std::string(25, 'x')), 0);
  EXPECT_EQ(column("Größe"), 0);
  for (const char* name : {"", " x", "abcdefghijklmnopqrstuvwxyz", "a\tb", "Łódź"}) {
    EXPECT_EQ(column(name), ErrorNumber::InvalidName) << name;
  }
  const auto table = [](const std::string& name) {
    TableDef definition = UnTexte();
    definition.name = name;
    return NumeroDefini(definition);
  };
  EXPECT_EQ(table("a b.c"), 0);
  EXPECT_EQ(table("Łódź"), 0) << "the file's name counts";
  EXPECT_EQ(table(std::string(200, 'x')), 0);
  for (const char* name : {"", "a/b", "..\\a", " a"}) {
    EXPECT_EQ(table(name), ErrorNumber::InvalidName) << name;
  }
}

TEST(ParadoxWriter, RefusesColumnsThatMakeNoSense) {
  EXPECT_EQ(NumeroDefini(UnTexte(0)), ErrorNumber::InvalidArgument);
  EXPECT_EQ(NumeroDefini(UnTexte(256)), ErrorNumber::InvalidArgument);
  EXPECT_EQ(NumeroDefini({.name = "t", .fields = {}, .indexes = {}}), ErrorNumber::InvalidArgument);
  TableDef table = UnTexte();
  table.fields.push_back(Champ("A", FieldType::Long));
  EXPECT_EQ(NumeroDefini(table), ErrorNumber::InvalidArgument) << "two of one name";
  table = UnTexte();
  table.indexes = {{.name = "i", .fields = {"a"}}};
  EXPECT_EQ(NumeroDefini(table), ErrorNumber::NotSupported);
}

TEST(ParadoxWriter, HoldsAsManyColumnsAsTheFormat) {
  TableDef table{.name = "t", .fields = {}, .indexes = {}};
  for (int i = 0; i < 255; ++i) {
    table.fields.push_back(
        Champ(("column number " + std::to_string(i)).c_str(), FieldType::Double));
  }
  const WrittenTable written(table);
  const std::vector<Row> rows = {Row(255, 1.5), Row(255), Row(255, -2.5)};
  written.Ecrit(rows);
  EXPECT_EQ(written.Relit(), rows);
  if (!pxDump.empty()) CompareParPxlib(written.Table(), table.fields, rows);
  table.fields.push_back(Champ("one more", FieldType::Double));
  EXPECT_EQ(NumeroDefini(table), ErrorNumber::TooManyFields);
  table.fields.assign(1, Champ("a", FieldType::Text, 255));
  for (int i = 0; i < 16; ++i) {
    table.fields.push_back(Champ(("t" + std::to_string(i)).c_str(), FieldType::Text, 240));
  }
  EXPECT_EQ(NumeroDefini(table), ErrorNumber::RecordTooLarge);
}

TEST(ParadoxWriter, LeavesFilesThatAreThereAlone) {
  const WrittenTable table(UnMemo());
  EcritFichier(*table.folder / "T.DB", "somebody's");
  EXPECT_EQ(NumeroEcrit(table, {}), ErrorNumber::TableExists);
  fs::remove(*table.folder / "T.DB");
  EcritFichier(table.Memos(), "somebody's");
  EXPECT_EQ(NumeroEcrit(table, {}), ErrorNumber::FileExists);
  EXPECT_EQ(table.folder->Noms(), (std::vector<std::string>{"t.mb"}));
  EXPECT_EQ(LitFichier(table.Memos()), "somebody's");
  fs::remove(table.Memos());
  EXPECT_EQ(NumeroEcrit(table, {}), 0);
  EXPECT_EQ(NumeroEcrit(table, {}), ErrorNumber::TableExists);
}

TEST(ParadoxWriter, HoldsSeveralTablesBesideOthers) {
  const WrittenTable table(UnTexte());
  EcritFichier(*table.folder / "Thumbs.db", "no table");
  table.Ecrit({{"a"}});
  TableDef other = UnMemo();
  other.name = "u";
  table.database->CreeTable(other);
  MadeRows rows = Source({{"b"}});
  table.database->InsereLignes("U", rows);
  EXPECT_EQ(table.database->Tables().size(), 2U);
  EXPECT_EQ(LitLignes(*table.database, "u", 1), (std::vector<Row>{{"b"}}));
  const auto read = CreeFormatParadox()->Ouvre(table.folder->path().string());
  EXPECT_EQ(read->Tables().size(), 2U) << "what is no table is left out";
  EXPECT_EQ(Numero([&] { table.database->InsereLignes("v", rows); }), ErrorNumber::TableNotFound);
}

}  // namespace
}  // namespace talpena

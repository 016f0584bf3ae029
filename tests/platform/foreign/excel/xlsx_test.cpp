// .xlsx files that we have written, read back by us, and what is none.
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "fakes/file_limit.h"
#include "fakes/tiny_disk.h"
#include "platform/foreign/excel/workbooks.h"
#include "platform/foreign/excel/xlsx_texts.h"

namespace talpena {
namespace {

using namespace test;

WrittenSheet Xlsx(std::string path) { return {CreeFormatXlsx(), std::move(path)}; }

TableDef NotesXlsx() {
  return {.name = "Notes",
          .fields = {Champ("Number 1", FieldType::Long), Champ("Free text", FieldType::Text, 255),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

Row LigneXlsx(std::size_t i) {
  return {static_cast<double>(i), "row " + std::to_string(i), std::string(i % 1000 + 1, 'm')};
}

TEST(Xlsx, WritesTablesOfAnyLength) {
  const TempFolder folder;
  for (const std::size_t count : {0U, 1U, 2U, 1000U, 20000U}) {
    SCOPED_TRACE(count);
    const WrittenSheet file = Xlsx(folder / (std::to_string(count) + ".xlsx"));
    MadeRows source(count, LigneXlsx);
    EXPECT_EQ(file.Ecrit(NotesXlsx(), source), static_cast<std::int64_t>(count));
    const std::vector<Row> read = file.Relit(NotesXlsx());
    ASSERT_EQ(read.size(), count);
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(read[i], LigneXlsx(i)) << i;
  }
  EXPECT_EQ(folder.Noms().size(), 5U) << "nothing is left beside the files";
}

TEST(Xlsx, KeepsEveryTextOfUnicode) {
  const TempFolder folder;
  const WrittenSheet file = Xlsx(folder / "texts.xlsx");
  std::string controls;
  for (char c = 1; c < ' '; ++c) controls += c;
  const std::vector<std::string> texts = {"Łosoś ♀ 🦔",
                                          " blanks ",
                                          "a\nb\r\nc\td",
                                          "<&>\"'",
                                          "_x000D_",
                                          "_x005F_",
                                          "_x_x0041__x",
                                          "00012",
                                          "2003-05-01",
                                          "=1+1",
                                          controls,
                                          std::string("a\0b", 3),
                                          "\xEF\xBF\xBF",
                                          std::string(32767, 'x'),
                                          "http://a.b/c",
                                          "\xEF\xBF\xBE",
                                          "1E5"};
  std::vector<Row> rows;
  for (const std::string& text : texts) rows.push_back({1.0, Value(), text});
  MadeRows source = Source(rows);
  file.Ecrit(NotesXlsx(), source);
  const std::vector<Row> read = file.Relit(NotesXlsx());
  ASSERT_EQ(read.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(read[i], rows[i]) << i;
}

TEST(Xlsx, KeepsNumbersAndTruthValues) {
  const TempFolder folder;
  const WrittenSheet file = Xlsx(folder / "numbers.xlsx");
  const TableDef table{.name = "T",
                       .fields = {Champ("Latitude", FieldType::Single),
                                  Champ("Wide", FieldType::Double), Champ("B", FieldType::Boolean),
                                  Champ("When", FieldType::Date), Champ("N", FieldType::Long)},
                       .indexes = {}};
  const auto single = [](float value) { return static_cast<double>(value); };
  const std::int64_t yes = -1, no = 0;
  MadeRows source = Source({{single(50.41234F), 0.1, yes, 40000.25, std::int64_t{2147483647}},
                            {single(-179.99998F), 1e300, no, 1.0, std::int64_t{-2147483648LL}},
                            {Value(), Value(), Value(), Value(), std::int64_t{0}}});
  file.Ecrit(table, source);
  EXPECT_EQ(file.Relit(table), (std::vector<Row>{{50.41234, 0.1, yes, 40000.25, 2147483647.0},
                                                 {-179.99998, 1e300, no, 1.0, -2147483648.0},
                                                 {Value(), Value(), Value(), Value(), 0.0}}));
}

TEST(Xlsx, RowsBeforeARefusedOneStay) {
  const TempFolder folder;
  const WrittenSheet file = Xlsx(folder / "refused.xlsx");
  MadeRows source(100, [](std::size_t i) -> Row {
    return {1.0, std::string(i == 70 ? 256 : 1, 'x'), "m"};
  });
  EXPECT_EQ(Numero([&] { file.Ecrit(NotesXlsx(), source); }), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(file.Relit(NotesXlsx()).size(), 70U);
  const WrittenSheet memo = Xlsx(folder / "memo.xlsx");
  MadeRows memos = Source({LigneXlsx(1), {2.0, "a", std::string(32768, 'm')}});
  EXPECT_EQ(Numero([&] { memo.Ecrit(NotesXlsx(), memos); }), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(memo.Relit(NotesXlsx()).size(), 1U);
  const WrittenSheet infinite = Xlsx(folder / "infinite.xlsx");
  const double endless = std::numeric_limits<double>::infinity();
  MadeRows numbers = Source({{1.0, "a", "b"}, {2.0, "a", "b"}, {endless, "c", "d"}});
  TableDef table = NotesXlsx();
  table.fields[0].type = FieldType::Double;
  EXPECT_EQ(Numero([&] { infinite.Ecrit(table, numbers); }), ErrorNumber::Overflow);
  EXPECT_EQ(infinite.Relit(table).size(), 2U);
}

TEST(Xlsx, TouchesNothingOfAFileThatIsThere) {
  const TempFolder folder;
  EcritFichier(folder / "there.xlsx", "mine");
  const WrittenSheet file = Xlsx(folder / "there.xlsx");
  EXPECT_EQ(Numero([&] { file.database->CreeTable(NotesXlsx()); }), ErrorNumber::TableExists);
  EXPECT_EQ(LitFichier(folder / "there.xlsx"), "mine");
  EcritFichier(folder / "beside.xlsx~1", "mine too");
  const WrittenSheet beside = Xlsx(folder / "beside.xlsx");
  MadeRows source(3, LigneXlsx);
  EXPECT_EQ(beside.Ecrit(NotesXlsx(), source), 3);
  EXPECT_EQ(LitFichier(folder / "beside.xlsx~1"), "mine too");
  const WrittenSheet nowhere = Xlsx(folder / "no/folder.xlsx");
  EXPECT_EQ(Numero([&] { nowhere.database->CreeTable(NotesXlsx()); }), ErrorNumber::PathNotFound);
}

MadeRows Bruit() {
  return {20000, [](std::size_t i) {
            std::string noise;
            for (std::size_t j = 0; j < 200; ++j) {
              noise += static_cast<char>('0' + (i * 7919 + j * j * 104729) % 75);
            }
            return Row{static_cast<double>(i), noise, noise};
          }};
}

TEST(Xlsx, AFullDiskLeavesTheHeadings) {
  const TinyDisk disk("size=200k");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
  const WrittenSheet file = Xlsx(disk / "full.xlsx");
  MadeRows source = Bruit();
  EXPECT_EQ(Numero([&] { file.Ecrit(NotesXlsx(), source); }), ErrorNumber::DiskFull);
  EXPECT_TRUE(file.Relit(NotesXlsx()).empty());
  EXPECT_EQ(disk.Noms(), std::vector<std::string>{"full.xlsx"});
}

TEST(Xlsx, ATemporaryFolderThatFillsIsAFullDisk) {
  const TempFolder folder;
  const WrittenSheet file = Xlsx(folder / "limited.xlsx");
  MadeRows source = Bruit();
  {
    const FileLimit limit(std::size_t{1} << 20);
    EXPECT_EQ(Numero([&] { file.Ecrit(NotesXlsx(), source); }), ErrorNumber::DiskFull);
  }
  EXPECT_TRUE(file.Relit(NotesXlsx()).empty());
  EXPECT_EQ(folder.Noms(), std::vector<std::string>{"limited.xlsx"});
}

TEST(Xlsx, EscapesAreUndone) {
  EXPECT_EQ(excel::SansEchappement("a_x000D_b"), "a\rb");
  EXPECT_EQ(excel::SansEchappement("_xD83E__xDD94_"), "🦔");
  EXPECT_EQ(excel::SansEchappement("_xD83E_"), "\xEF\xBF\xBD");
  EXPECT_EQ(excel::SansEchappement("_x_x0041_"), "_xA");
  EXPECT_EQ(excel::SansEchappement("_x00_x0041_x"), "_x00Ax");
  for (const char* text : {"_x", "_x0041_", "_x005F_x0041_", "__x0041_", "_x0041", "_xx0041_"}) {
    EXPECT_EQ(excel::SansEchappement(excel::AvecEchappement(text)), text);
  }
}

TEST(Xlsx, RefusesOtherFiles) {
  const TempFolder folder;
  const auto number = [&](const std::string& bytes) {
    EcritFichier(folder / "bad.xlsx", bytes);
    return Numero([&] { CreeFormatXlsx()->Ouvre(folder / "bad.xlsx"); });
  };
  const WrittenSheet file = Xlsx(folder / "good.xlsx");
  MadeRows source(3, LigneXlsx);
  file.Ecrit(NotesXlsx(), source);
  const std::string good = LitFichier(file.path);
  EXPECT_EQ(number(good), 0);
  EXPECT_EQ(number("good " + good), ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(number(good.substr(0, good.size() - 1)), ErrorNumber::UnrecognizedFormat);
  for (const std::string& bytes : {std::string(), std::string("PK"), std::string(30, '\0')}) {
    EXPECT_EQ(number(bytes), ErrorNumber::UnrecognizedFormat);
  }
  EXPECT_EQ(Numero([] { CreeFormatXlsx()->Ouvre("/nowhere/bees.xlsx"); }),
            ErrorNumber::DatabaseNotFound);
}

}  // namespace
}  // namespace talpena

// Workbooks of Excel 5.0 that we have written, read back by us.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "common/error_words.h"
#include "common/numbers.h"
#include "fakes/file_limit.h"
#include "fakes/tiny_disk.h"
#include "platform/foreign/excel/sheet_writer.h"
#include "platform/foreign/excel/workbooks.h"

namespace talpena {
namespace {

using namespace test;

constexpr std::size_t sector = 512;

WrittenSheet Feuille(std::string path, const LimitesExcel& limits = {}) {
  return {CreeFormatExcel(limits), std::move(path)};
}

TableDef UnTexte(int size = 255) {
  return {.name = "Notes",
          .fields = {Champ("N", FieldType::Long), Champ("Text", FieldType::Text, size),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

Row Ligne(std::size_t i) {
  return {static_cast<std::int64_t>(i), "row " + std::to_string(i), std::string(i % 256, 'm')};
}

/// As read back: an empty text is no cell, and a whole number a number.
Row Relue(Row row) {
  for (Value& value : row) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) value = static_cast<double>(*whole);
    if (value == Value("")) value = Value();
  }
  return row;
}

TEST(BiffWriter, WritesTablesOfAnyLength) {
  const TempFolder folder;
  for (const std::size_t count : {0U, 1U, 2U, 31U, 1000U, 16383U}) {
    SCOPED_TRACE(count);
    const WrittenSheet file = Feuille(folder / (std::to_string(count) + ".xls"));
    MadeRows source(count, Ligne);
    EXPECT_EQ(file.Ecrit(UnTexte(), source), static_cast<std::int64_t>(count));
    EXPECT_EQ(file.database->NombreLignes("notes"), static_cast<std::int64_t>(count));
    const std::vector<Row> read = file.Relit(UnTexte());
    ASSERT_EQ(read.size(), count);
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(read[i], Relue(Ligne(i))) << i;
    EXPECT_EQ(fs::file_size(file.path) % sector, 0U);
  }
}

// More sectors than the head of the file can name tables for, and then some.
TEST(BiffWriter, WritesAFileOfManySectors) {
  const TempFolder folder;
  const WrittenSheet file = Feuille(folder / "large.xls");
  TableDef table{.name = "Wide", .fields = {}, .indexes = {}};
  for (int i = 0; i < 60; ++i) {
    table.fields.push_back(Champ(("C" + std::to_string(i)).c_str(), FieldType::Text, 255));
  }
  MadeRows source(2000, [](std::size_t i) {
    return Row(60, std::string(255, static_cast<char>('a' + i % 26)));
  });
  file.Ecrit(table, source);
  EXPECT_GT(fs::file_size(file.path), (109 + 127) * 128 * sector);
  const std::vector<Row> read = file.Relit(table);
  ASSERT_EQ(read.size(), 2000U);
  for (std::size_t i = 0; i < read.size(); ++i) {
    ASSERT_EQ(read[i], Row(60, std::string(255, static_cast<char>('a' + i % 26))));
  }
}

TEST(BiffWriter, KeepsEveryValueOfEveryType) {
  using Single = std::numeric_limits<float>;
  using Double = std::numeric_limits<double>;
  const std::int64_t yes = -1, no = 0;
  const TableDef table{
      .name = "All types",
      .fields = {Champ("Flag", FieldType::Boolean), Champ("Tiny", FieldType::Byte),
                 Champ("Small", FieldType::Integer), Champ("Number 1", FieldType::Long),
                 Champ("Money", FieldType::Currency), Champ("Wide", FieldType::Double),
                 Champ("When", FieldType::Date), Champ("Text", FieldType::Text, 30)},
      .indexes = {}};
  const std::vector<Row> rows = {
      {yes, 255.0, 32767.0, 2147483647.0, 922337203685477.5, Double::max(), 2958465.0, "00012"},
      {no, 0.0, -32768.0, -2147483648.0, -0.0001, Double::lowest(), 40000.25, "2003-05-01"},
      {no, 1.0, 0.0, 0.0, 0.0, Double::denorm_min(), 0.5, "Pélodyte, œ € “ß”\n=1+1"},
      {yes, 7.0, -1.0, -1.0, 0.0001, 1.0 / 3, 1.0, " "},
      Row(8)};
  const TempFolder folder;
  const WrittenSheet all = Feuille(folder / "all.xls");
  MadeRows source = Source(rows);
  all.Ecrit(table, source);
  EXPECT_EQ(all.Relit(table), rows);

  const TableDef floats{
      .name = "Floats", .fields = {Champ("Latitude", FieldType::Single)}, .indexes = {}};
  const WrittenSheet file = Feuille(folder / "floats.xls");
  const std::vector<float> values = {50.41234F,        -179.99998F,          Single::max(),
                                     Single::lowest(), Single::denorm_min(), 0.1F};
  MadeRows numbers(values.size(),
                   [&](std::size_t i) { return Row{static_cast<double>(values[i])}; });
  file.Ecrit(floats, numbers);
  const std::vector<Row> read = file.Relit(floats);
  ASSERT_EQ(read.size(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(Str(std::get<double>(read[i][0])), Str(values[i]));
    EXPECT_EQ(static_cast<float>(std::get<double>(read[i][0])), values[i]);
  }
}

TEST(BiffWriter, ARowWithoutValuesIsARow) {
  const TempFolder folder;
  const WrittenSheet file = Feuille(folder / "empty.xls");
  MadeRows source = Source({Row(3), Ligne(1), {Value(), "", ""}, Row(3)});
  file.Ecrit(UnTexte(), source);
  const std::vector<Row> read = file.Relit(UnTexte());
  ASSERT_EQ(read.size(), 4U);
  EXPECT_EQ(read[1], Relue(Ligne(1)));
  EXPECT_EQ(read[0][1], Value());
}

TEST(BiffWriter, StopsAtTheEndOfTheSheetAndCountsTheRest) {
  const TempFolder folder;
  const WrittenSheet file = Feuille(folder / "full.xls");
  MadeRows source(20000, Ligne);
  file.database->CreeTable(UnTexte());
  try {
    file.database->InsereLignes("Notes", source);
    ADD_FAILURE();
  } catch (const TalpenaError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::SpreadsheetFull);
    EXPECT_EQ(error.number(), 3437);
    EXPECT_EQ(error.description(), "Spreadsheet is full.");
    EXPECT_EQ(error.words().about, std::vector<std::string>{"3617"});
    EXPECT_EQ(DescriptionErreur(1000, error),
              "A sheet of this format holds no more rows; 3617 rows did not fit, and those before "
              "them are in the file.");
  }
  const std::vector<Row> read = file.Relit(UnTexte());
  ASSERT_EQ(read.size(), 16383U);
  EXPECT_EQ(read.back(), Relue(Ligne(16382)));
}

TEST(BiffWriter, RowsBeforeARefusedOneStay) {
  const TempFolder folder;
  const auto written = [&](const std::string& name, const Value& column, const Value& memo,
                           int number) {
    const WrittenSheet file = Feuille(folder / name);
    MadeRows source = Source({{Value(), "first", std::string(255, 'm')}, {Value(), column, memo}});
    EXPECT_EQ(Numero([&] { file.Ecrit(UnTexte(5), source); }), number) << name;
    EXPECT_EQ(file.Relit(UnTexte(5)), (std::vector<Row>{{Value(), "first", std::string(255, 'm')}}))
        << name;
  };
  written("long.xls", "longer", Value(), ErrorNumber::FieldTooSmall);
  written("memo.xls", Value(), std::string(256, 'm'), ErrorNumber::FieldTooSmall);
  written("female.xls", "♀", Value(), ErrorNumber::NotInCodePage);
  const WrittenSheet file = Feuille(folder / "source.xls");
  MadeRows source(100, [](std::size_t i) -> Row {
    if (i == 70) throw TalpenaError(ErrorNumber::Cancelled, "Cancel.");
    return Ligne(i);
  });
  EXPECT_EQ(Numero([&] { file.Ecrit(UnTexte(), source); }), ErrorNumber::Cancelled);
  EXPECT_EQ(file.Relit(UnTexte()).size(), 70U);
}

TEST(BiffWriter, CountsCharactersNotBytes) {
  const TempFolder folder;
  const WrittenSheet file = Feuille(folder / "accents.xls");
  std::string accents;
  for (int i = 0; i < 255; ++i) accents += "é";
  MadeRows source = Source({{1.0, accents, accents}});
  file.Ecrit(UnTexte(), source);
  EXPECT_EQ(file.Relit(UnTexte()), (std::vector<Row>{{1.0, accents, accents}}));
}

TEST(BiffWriter, NamesTheSheetByTheTable) {
  struct Case {
    const char* table;
    const char* sheet;
  };
  constexpr Case cases[] = {
      {"bees", "bees"},
      {"my bees 2003", "my bees 2003"},
      {"a:b\\c/d?e*f[g]h", "a_b_c_d_e_f_g_h"},
      {"12345678901234567890123456789012345", "1234567890123456789012345678901"},
      {"éééééééééééééééééééééééééééééééééé", "ééééééééééééééééééééééééééééééé"},
      {"'quoted'", "_quoted_"},
      {"1234567890123456789012345678901'", "1234567890123456789012345678901"},
      {"l'été", "l'été"},
  };
  const TempFolder folder;
  for (const Case& c : cases) {
    EXPECT_EQ(excel::NomDeFeuille(c.table), c.sheet);
    const WrittenSheet file = Feuille(folder / (Hexa(c.table) + ".xls"));
    TableDef table = UnTexte();
    table.name = c.table;
    MadeRows source = Source({Ligne(1)});
    file.Ecrit(table, source);
    EXPECT_EQ(file.Relit(table), std::vector<Row>{Relue(Ligne(1))}) << c.table;
    EXPECT_EQ(CreeFormatExcel()->Ouvre(file.path)->Tables().at(0).name, c.sheet);
  }
}

TEST(BiffWriter, TouchesNothingOfAFileThatIsThere) {
  const TempFolder folder;
  EcritFichier(folder / "there.xls", "mine");
  const WrittenSheet file = Feuille(folder / "there.xls");
  EXPECT_EQ(Numero([&] { file.database->CreeTable(UnTexte()); }), ErrorNumber::TableExists);
  EXPECT_EQ(LitFichier(folder / "there.xls"), "mine");
  const WrittenSheet nowhere = Feuille(folder / "no/folder.xls");
  EXPECT_EQ(Numero([&] { nowhere.database->CreeTable(UnTexte()); }), ErrorNumber::PathNotFound);
}

TEST(BiffWriter, RefusesWhatMakesNoSheet) {
  const TempFolder folder;
  const WrittenSheet file = Feuille(folder / "x.xls");
  const auto number = [&](std::vector<FieldDef> fields, const char* name = "T") {
    return Numero([&] {
      file.database->CreeTable({.name = name, .fields = std::move(fields), .indexes = {}});
    });
  };
  EXPECT_EQ(number({}), ErrorNumber::InvalidArgument);
  EXPECT_EQ(number({Champ("X", FieldType::Long), Champ("x", FieldType::Long)}),
            ErrorNumber::InvalidArgument);
  EXPECT_EQ(number({Champ("A", FieldType::Text, 256)}), ErrorNumber::InvalidArgument);
  EXPECT_EQ(number({Champ("A", FieldType::Binary)}), ErrorNumber::NotSupported);
  EXPECT_EQ(number({Champ("A", FieldType::Long)}, ""), ErrorNumber::InvalidName);
  EXPECT_EQ(number({Champ("A", FieldType::Long)}, "♀"), ErrorNumber::NotInCodePage);
  EXPECT_EQ(number({Champ("♀", FieldType::Long)}), ErrorNumber::NotInCodePage);
  std::vector<FieldDef> many;
  for (int i = 0; i < 257; ++i) many.push_back(Champ(std::to_string(i).c_str(), FieldType::Long));
  EXPECT_EQ(number(many), ErrorNumber::TooManyFields);
  EXPECT_TRUE(folder.Noms().empty());
  many.pop_back();
  EXPECT_EQ(number(many), 0);
  EXPECT_EQ(number({Champ("A", FieldType::Long)}, "t"), ErrorNumber::TableExists);
  EXPECT_EQ(number({Champ("A", FieldType::Long)}, "other"), ErrorNumber::NotSupported);
}

// --- no more room ----------------------------------------------------------------------------

MadeRows SansFin() {
  return {16000, [](std::size_t i) {
            return Row{static_cast<std::int64_t>(i), std::string(255, 'x'), std::string(255, 'y')};
          }};
}

/// That the rows which were taken are all there, and the last of them whole.
void VerifieEntier(const WrittenSheet& file) {
  const std::vector<Row> read = file.Relit(UnTexte());
  EXPECT_EQ(static_cast<std::int64_t>(read.size()), file.database->NombreLignes("Notes"));
  ASSERT_GT(read.size(), 10U);
  EXPECT_EQ(read.back(), (Row{static_cast<double>(read.size() - 1), std::string(255, 'x'),
                              std::string(255, 'y')}));
}

TEST(BiffWriter, StopsAtTheLimitOfTheFile) {
  const TempFolder folder;
  for (const std::size_t most : {100000U, 100352U, 1000000U}) {
    const WrittenSheet file =
        Feuille(folder / (std::to_string(most) + ".xls"), {.octetsEcrits = most});
    MadeRows source = SansFin();
    EXPECT_EQ(Numero([&] { file.Ecrit(UnTexte(), source); }), ErrorNumber::InvalidArgument);
    EXPECT_LE(fs::file_size(file.path), most);
    EXPECT_GT(fs::file_size(file.path), most - 3 * sector);
    VerifieEntier(file);
  }
}

TEST(BiffWriter, AFullDiskLeavesAWholeFile) {
  const TinyDisk disk("size=2m");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
  const WrittenSheet file = Feuille(disk / "full.xls");
  MadeRows source = SansFin();
  EXPECT_EQ(Numero([&] { file.Ecrit(UnTexte(), source); }), ErrorNumber::DiskFull);
  EXPECT_GT(fs::file_size(file.path), std::size_t{1} << 20);
  VerifieEntier(file);
}

TEST(BiffWriter, AFullDiskLeavesNoHalfWorkbook) {
  const TinyDisk disk("size=4k");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk of its own: " << disk.Refus();
  const WrittenSheet file = Feuille(disk / "full.xls");
  EXPECT_EQ(Numero([&] { file.database->CreeTable(UnTexte()); }), ErrorNumber::DiskFull);
  EXPECT_TRUE(disk.Noms().empty());
}

TEST(BiffWriter, ALimitOnFileSizesIsAFullDisk) {
  const TempFolder folder;
  const WrittenSheet file = Feuille(folder / "limited.xls");
  MadeRows source = SansFin();
  {
    const FileLimit limit(std::size_t{1} << 20);
    EXPECT_EQ(Numero([&] { file.Ecrit(UnTexte(), source); }), ErrorNumber::DiskFull);
  }
  VerifieEntier(file);
}

}  // namespace
}  // namespace talpena

// Sheets as tables: records worked out by hand, and what becomes of odd headings.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/foreign/excel/sheet_table.h"
#include "platform/foreign/excel/workbooks.h"

namespace talpena {
namespace {

using namespace test;
using excel::SheetCell;
using excel::SheetRow;
using excel::SheetRows;

const fs::path corpus = fs::path(TALPENA_SOURCE_DIR) / "fuzz" / "corpus" / "excel";

std::vector<Row> LignesDe(const char* file, FieldType second, FieldType third) {
  const auto database = CreeFormatExcel()->Ouvre((corpus / file).string());
  const TableDef table = database->Tables().at(0);
  EXPECT_EQ(table.fields.at(1).type, second);
  if (table.fields.size() > 2) {
    EXPECT_EQ(table.fields[2].type, third);
  }
  return LitLignes(*database, table.name, table.fields.size());
}

// A shared text of each kind, numbers of each kind, formulas of each result, a chart in between.
TEST(SheetTable, ReadsEveryRecordOfBiff8) {
  EXPECT_EQ(LignesDe("biff8", FieldType::Double, FieldType::Text),
            (std::vector<Row>{{"łąka", 1.5, "12"},
                              {"abc", 5.0, "12.5"},
                              {"formula", 7.0, "TRUE"},
                              {"TRUE", Value(), "xy"},
                              {Value(), Value(), Value()},
                              {"rich", Value(), Value()}}));
}

TEST(SheetTable, ReadsATextThatGoesOnInTheNextRecord) {
  const auto database = CreeFormatExcel()->Ouvre((corpus / "continued").string());
  EXPECT_EQ(LitLignes(*database, "Sheet1", 1), (std::vector<Row>{{"abcdef"}}));
}

TEST(SheetTable, PutsRowsInTheirOrder) {
  const auto database = CreeFormatExcel()->Ouvre((corpus / "unordered").string());
  EXPECT_EQ(LitLignes(*database, "sheet1", 2), (std::vector<Row>{{1.0, Value()}, {2.0, 3.0}}));
}

TEST(SheetTable, ReadsTheCodePageOfTheWorkbook) {
  const auto first = [](const char* file) {
    return std::get<std::string>(LignesDe(file, FieldType::Double, FieldType::Text).at(0).at(0));
  };
  EXPECT_EQ(first("western"), "ƒeƒXé");
  EXPECT_EQ(first("japanese"), "テス\xEF\xBF\xBD");
  EXPECT_EQ(first("dos"), "âeâXΘ");
  EXPECT_EQ(first("mac"), "ÉeÉXÈ");
}

TEST(SheetTable, ReadsAStreamInSmallSectors) {
  EXPECT_EQ(LignesDe("small_stream", FieldType::Double, FieldType::Text),
            LignesDe("western", FieldType::Double, FieldType::Text));
}

TEST(SheetTable, SaysThatAPasswordProtectsIt) {
  EXPECT_EQ(Numero([] { CreeFormatExcel()->Ouvre((corpus / "password").string()); }),
            ErrorNumber::NotSupported);
}

// --- headings --------------------------------------------------------------------------------

SheetCell Texte(std::uint32_t column, std::string text) {
  return {.column = column, .kind = SheetCell::Kind::Text, .text = std::move(text)};
}
SheetCell Nombre(std::uint32_t column, double number) {
  return {.column = column, .number = number, .text = {}};
}

class GivenRows final : public SheetRows {
 public:
  explicit GivenRows(std::vector<SheetRow> rows) : rows_(std::move(rows)) {}
  bool Suivante(SheetRow& row) override {
    if (next_ == rows_.size()) return false;
    row = rows_[next_++];
    return true;
  }

 private:
  std::vector<SheetRow> rows_;
  std::size_t next_ = 0;
};

excel::SheetTable Decrit(std::vector<SheetRow> rows) {
  GivenRows given(std::move(rows));
  return excel::DecritFeuille({.name = "Sheet", .hidden = true}, given);
}

std::vector<std::string> NomsDe(const excel::SheetTable& table) {
  std::vector<std::string> names;
  for (const FieldDef& field : table.definition.fields) names.push_back(field.name);
  return names;
}

TEST(SheetTable, NamesColumnsByTheirPlaceWhereTheHeadingDoesNot) {
  const auto table =
      Decrit({{3,
               {Texte(2, "Name"), Texte(3, "name"), Texte(5, " F5 "), Texte(6, "two\nlines"),
                Nombre(7, 1950), Texte(8, "  "), Texte(9, std::string(65, 'x'))}},
              {4, {Nombre(10, 1)}}});
  EXPECT_EQ(NomsDe(table), (std::vector<std::string>{"Name", "F2", "F3", "F5", "two lines", "1950",
                                                     "F7", "F8", "F9"}));
  EXPECT_EQ(table.headings, 3U);
  EXPECT_EQ(table.firstColumn, 2U);
  EXPECT_EQ(table.rows, 1);
  EXPECT_EQ(table.definition.attributes, TableAttribute::Hidden);
  EXPECT_EQ(NomsDe(Decrit({{0, {Texte(0, "F2"), Texte(1, "")}}, {1, {}}})),
            (std::vector<std::string>{"F2", "F2_"}));
}

TEST(SheetTable, TypesColumnsByTheirCells) {
  const auto truth = [](std::uint32_t column) {
    return SheetCell{.column = column, .kind = SheetCell::Kind::Boolean, .number = 1, .text = {}};
  };
  const auto table = Decrit(
      {{0, {Texte(0, "a"), Texte(5, "f")}},
       {1, {Nombre(0, 1), truth(1), Texte(2, "t"), Nombre(3, 1), Texte(4, std::string(256, 'x'))}},
       {2, {Nombre(0, 2), truth(1), Nombre(2, 1), truth(3), Texte(0, "")}}});
  std::vector<FieldType> types;
  for (const FieldDef& field : table.definition.fields) types.push_back(field.type);
  EXPECT_EQ(types, (std::vector<FieldType>{FieldType::Double, FieldType::Boolean, FieldType::Text,
                                           FieldType::Text, FieldType::Memo, FieldType::Text}));
}

TEST(SheetTable, HasNoColumnWithoutCells) {
  EXPECT_TRUE(Decrit({}).definition.fields.empty());
  EXPECT_EQ(Decrit({{0, {Texte(3, "only headings")}}}).rows, 0);
}

TEST(SheetTable, RefusesMoreColumnsThanATableHas) {
  EXPECT_EQ(Numero([] { Decrit({{0, {Texte(1024, "a")}}}); }), ErrorNumber::TooManyFields);
  EXPECT_EQ(Numero([] { Decrit({{0, {Texte(1023, "a")}}}); }), 0);
}

}  // namespace
}  // namespace talpena

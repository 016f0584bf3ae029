// Real workbooks, read by us and by python3-xlrd.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/foreign/excel/workbooks.h"

namespace talpena {
namespace {

using namespace test;

constexpr const char* workbooks[] = {
    "Final_EA_GBIF.xls",   "Formate.xls",         "Test1904_95.xls", "Test97.xls",
    "oocalc_simple95.xls", "oocalc_simple97.xls", "simple2003.xls",  "simple2003_5WB.xls"};

TEST(BiffReader, ReadsEveryValueAsXlrdDoes) {
  NEEDS_WORKBOOKS();
  NEEDS_PYTHON("xlrd");
  for (const char* name : workbooks) {
    const std::string path = (xlsFolder / name).string();
    EXPECT_EQ(CellulesDeBiff(path), CellulesSelon("xlrd", path)) << name;
  }
}

TEST(BiffReader, MakesATableOfEachSheetThatHoldsSomething) {
  NEEDS_WORKBOOKS();
  const auto database = CreeFormatExcel()->Ouvre((xlsFolder / "oocalc_simple97.xls").string());
  ASSERT_EQ(database->Tables().size(), 1U);
  const TableDef table = database->Tables()[0];
  EXPECT_EQ(table.name, "Sheet1");
  std::vector<std::string> names;
  std::vector<FieldType> types;
  for (const FieldDef& field : table.fields) {
    names.push_back(field.name);
    types.push_back(field.type);
  }
  EXPECT_EQ(names,
            (std::vector<std::string>{"Col 1", "Col 2", "F3", "F4", "time", "Datetime", "date"}));
  EXPECT_EQ(types, (std::vector<FieldType>{FieldType::Text, FieldType::Text, FieldType::Double,
                                           FieldType::Double, FieldType::Double, FieldType::Double,
                                           FieldType::Double}));
  EXPECT_EQ(database->NombreLignes("SHEET1"), 1);
  const Row row = LitLignes(*database, "sheet1", 7).at(0);
  EXPECT_EQ(row[0], Value("A"));
  EXPECT_EQ(row[3], Value(4.2));
}

TEST(BiffReader, RefusesExcel4) {
  NEEDS_WORKBOOKS();
  EXPECT_EQ(Numero([] { CreeFormatExcel()->Ouvre((xlsFolder / "simple2003_4.xls").string()); }),
            ErrorNumber::UnrecognizedFormat);
}

TEST(BiffReader, SaysWhatIsMissing) {
  EXPECT_EQ(Numero([] { CreeFormatExcel()->Ouvre("/nowhere/bees.xls"); }),
            ErrorNumber::DatabaseNotFound);
  const TempFolder folder;
  EXPECT_EQ(Numero([&] { CreeFormatExcel()->Ouvre(folder.path().string()); }),
            ErrorNumber::UnrecognizedFormat);
  for (const std::string& bytes : {std::string(), std::string("x"), std::string(10000, '\0')}) {
    EcritFichier(folder / "bad.xls", bytes);
    EXPECT_EQ(Numero([&] { CreeFormatExcel()->Ouvre(folder / "bad.xls"); }),
              ErrorNumber::UnrecognizedFormat);
  }
}

}  // namespace
}  // namespace talpena

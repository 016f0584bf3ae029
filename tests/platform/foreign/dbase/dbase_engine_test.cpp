// dBase and FoxPro tables through the table engine.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/dbase/dbf_files.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/table_engine.h"

namespace talpena {
namespace {

using namespace test;

std::unique_ptr<TableEngine> Moteur() {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatDbase());
  formats.push_back(CreeFormatFoxPro());
  return CreeMoteurSqlite(std::move(formats));
}

constexpr std::string_view connects[] = {Connect::DBase4, Connect::FoxPro25};

TableDef TableCourte() {
  return {.name = "bees",
          .fields = {Champ("Latitude", FieldType::Single), Champ("Free text", FieldType::Text, 5),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

constexpr std::string_view rowNames[] = {"Latitude", "Free text", "Memo"};

TEST(DbaseEngine, MakesATableAndReadsItBack) {
  for (const std::string_view connect : connects) {
    const TempFolder folder;
    const auto engine = Moteur();
    {
      const auto made = engine->OpenDatabase(folder.path(), false, connect);
      made->CreateTable(TableCourte());
      MadeRows rows = Source({{-12.5, "dunes", "Bees / "}, {50.41234, "", ""}});
      EXPECT_EQ(made->InsertRows("BEES", rowNames, rows), 2);
      EXPECT_EQ(made->OpenRecordset("bees")->RecordCount(), 2) << "in the same database";
    }
    const auto opened = engine->OpenDatabase(folder.path(), true, connect);
    EXPECT_EQ(opened->TableNames(), (std::vector<std::string>{"bees"}));
    const auto rows = opened->OpenRecordset("SELECT * FROM bees WHERE Latitude = 50.41234");
    EXPECT_EQ(rows->RecordCount(), 1);
    EXPECT_EQ(rows->Get("FREE_TEXT").Texte(), "");
  }
}

TEST(DbaseEngine, OpensAFileWithoutBeingToldItsFormat) {
  NEEDS_DBF_FILES();
  const auto database = Moteur()->OpenDatabase((dbfFolder / "dbase_03.dbf").string(), true);
  EXPECT_EQ(database->TableNames(), (std::vector<std::string>{"dbase_03"}));
  const auto rows = database->OpenRecordset("SELECT Point_ID, Point_ID_2 FROM dbase_03");
  EXPECT_EQ(rows->RecordCount(), 14);
  EXPECT_EQ(rows->Get(0).Texte(), "0507121");
  EXPECT_EQ(rows->Get(1).Nombre(), 401);
}

TEST(DbaseEngine, RowsBeforeATooLongValueStay) {
  const TempFolder folder;
  const auto engine = Moteur();
  const auto made = engine->OpenDatabase(folder.path(), false, Connect::DBase4);
  made->CreateTable(TableCourte());
  MadeRows rows = Source({{1.0, "dunes", ""}, {2.0, "forest", ""}, {3.0, "f", ""}});
  EXPECT_EQ(Numero([&] { made->InsertRows("bees", rowNames, rows); }), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(made->OpenRecordset("bees")->RecordCount(), 1);
}

TEST(DbaseEngine, RefusesATableThatIsThere) {
  const TempFolder folder;
  EcritFichier(folder / "BEES.DBF", "no table");
  const auto made = Moteur()->OpenDatabase(folder.path(), false, Connect::FoxPro25);
  EXPECT_EQ(Numero([&] { made->CreateTable(TableCourte()); }), ErrorNumber::TableExists);
  EXPECT_EQ(LitFichier(folder / "BEES.DBF"), "no table");
}

/// A table with one row, its values the letters from "a" on.
std::string TableLarge(int width) {
  MadeDbf table;
  std::string row = " ";
  for (int i = 0; i < width; ++i) {
    table.fields.push_back({"F" + std::to_string(i), 'C', 1});
    row += static_cast<char>('a' + i % 26);
  }
  table.rows = {row};
  return table.Octets();
}

TEST(DbaseEngine, ReadsAsManyColumnsAsATableMayHave) {
  const TempFolder folder;
  EcritFichier(folder / "wide.dbf", TableLarge(255));
  EcritFichier(folder / "wider.dbf", TableLarge(256));
  const auto database = Moteur()->OpenDatabase(folder.path(), true, Connect::DBase4);
  EXPECT_EQ(database->OpenRecordset("SELECT F254 FROM wide")->Get(0).Texte(), "u");
  EXPECT_EQ(Numero([&] { database->OpenRecordset("wider"); }), ErrorNumber::TooManyFields);
}

// Whatever a damaged head calls its columns, the engine takes the table over or says what is wrong.
TEST(DbaseEngine, SurvivesChangedBytes) {
  NEEDS_DBF_FILES();
  const std::string whole = LitFichier((dbfFolder / "dbase_03.dbf").string());
  const TempFolder folder;
  const auto engine = Moteur();
  std::mt19937 random(3);
  for (int i = 0; i < 100; ++i) {
    std::string bytes = whole;
    for (int n = 0; n < 20; ++n) {
      bytes[32 + random() % 31 * 32 + random() % 11] = static_cast<char>(random());
    }
    EcritFichier(folder / "t.dbf", bytes);
    const int number = Numero([&] {
      const auto database = engine->OpenDatabase(folder / "t.dbf", true, Connect::DBase4);
      EXPECT_EQ(database->OpenRecordset("t")->RecordCount(), 14);
    });
    EXPECT_TRUE(number == 0 || number == ErrorNumber::UnrecognizedFormat) << number;
  }
}

}  // namespace
}  // namespace talpena

// Access files written through the table engine.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/written_files.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/table_engine.h"

namespace talpena {
namespace {

using namespace test;

std::unique_ptr<TableEngine> Moteur() {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  return CreeMoteurSqlite(std::move(formats));
}

TableDef TableCourte() {
  return {.name = "bees",
          .fields = {Champ("Latitude", FieldType::Single), Champ("Sex", FieldType::Text, 1),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

constexpr std::string_view rowColumns[] = {"Latitude", "Sex", "Memo"};

TEST(JetEngine, MakesADatabaseAndReadsItBack) {
  const TempFolder folder;
  const auto engine = Moteur();
  const std::string path = folder / "bees.mdb";
  {
    const auto made = engine->CreateForeignDatabase(path, Connect::Access, NewDatabase{});
    made->CreateTable(TableCourte());
    MadeRows rows = Source({{-12.5, "m", "Bees / "}, {50.41234, "", ""}});
    EXPECT_EQ(made->InsertRows("BEES", rowColumns, rows), 2);
    EXPECT_EQ(made->OpenRecordset("bees")->RecordCount(), 2) << "in the same database";
  }
  const auto opened = engine->OpenDatabase(path, true);
  EXPECT_EQ(opened->TableNames(), (std::vector<std::string>{"bees"}));
  const auto rows = opened->OpenRecordset("SELECT * FROM bees WHERE Latitude = 50.41234");
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Get("Sex").kind, Cell::Kind::Text) << "the empty text is no Null";
}

TEST(JetEngine, RowsBeforeATooLongValueStay) {
  const TempFolder folder;
  const auto engine = Moteur();
  const auto made =
      engine->CreateForeignDatabase(folder / "bees.mdb", Connect::Access, NewDatabase{});
  made->CreateTable(TableCourte());
  MadeRows rows = Source({{1.0, "m", ""}, {2.0, "mf", ""}, {3.0, "f", ""}});
  EXPECT_EQ(Numero([&] { made->InsertRows("bees", rowColumns, rows); }),
            ErrorNumber::FieldTooSmall);
  EXPECT_EQ(made->OpenRecordset("bees")->RecordCount(), 1);
}

TEST(JetEngine, RefusesWhatIsThereAlready) {
  const TempFolder folder;
  const auto engine = Moteur();
  const std::string path = folder / "bees.mdb";
  const auto made = engine->CreateForeignDatabase(path, Connect::Access, NewDatabase{});
  made->CreateTable(TableCourte());
  EXPECT_EQ(Numero([&] { made->CreateTable(TableCourte()); }), ErrorNumber::TableExists);
  TableDef badly = TableCourte();
  for (const char* system : {"MSysObjects", "msysACES", "MSysQueries", "MSysRelationships"}) {
    badly.name = system;
    EXPECT_EQ(Numero([&] { made->CreateTable(badly); }), ErrorNumber::TableExists) << system;
  }
  badly.name = "bees!";
  EXPECT_EQ(Numero([&] { made->CreateTable(badly); }), ErrorNumber::InvalidName);
  EXPECT_EQ(Numero([&] { engine->CreateForeignDatabase(path, Connect::Access, NewDatabase{}); }),
            ErrorNumber::FileExists);
  EXPECT_EQ(Numero([&] { engine->CreateForeignDatabase(folder / "x.dbf", Connect::DBase4, {}); }),
            ErrorNumber::NotSupported);
}

}  // namespace
}  // namespace talpena

// Workbooks through the table engine.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/text.h"
#include "coords/state.h"
#include "fakes/memory_input.h"
#include "platform/foreign/excel/workbooks.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/deg_file.h"

namespace talpena {
namespace {

using namespace test;

std::unique_ptr<TableEngine> MoteurExcel() {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatExcel());
  formats.push_back(CreeFormatXlsx());
  return CreeMoteurSqlite(std::move(formats));
}

/// The columns of an export, in its order.
TableDef TableDExport() {
  return {.name = "bees",
          .fields = {Champ("Period", FieldType::Text, 1), Champ("Latitude", FieldType::Single),
                     Champ("Longitude", FieldType::Single), Champ("Number 1", FieldType::Long),
                     Champ("Number 2", FieldType::Long), Champ("Ellipsoid", FieldType::Text, 5),
                     Champ("Orig Coor", FieldType::Text, 24), Champ("Date", FieldType::Text, 10),
                     Champ("Sex", FieldType::Text, 1), Champ("Free text", FieldType::Text, 150),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

std::vector<std::string_view> NomsDeChamps(const TableDef& table) {
  std::vector<std::string_view> names;
  for (const FieldDef& field : table.fields) names.emplace_back(field.name);
  return names;
}

struct Kind {
  std::string_view connect;
  const char* file;
};
constexpr Kind kinds[] = {{Connect::Excel5, "bees.xls"}, {Connect::Excel12, "bees.xlsx"}};

TEST(ExcelEngine, ReadsASheetByAStatement) {
  NEEDS_WORKBOOKS();
  const auto engine = MoteurExcel();
  const std::string path = (xlsFolder / "Final_EA_GBIF.xls").string();
  const auto database = engine->OpenDatabase(path, true, "excel 5.0;HDR=YES");
  EXPECT_EQ(database->TableNames(), std::vector<std::string>{"Sheet1"});
  const auto rows =
      database->OpenRecordset("SELECT Kinyongia FROM Sheet1 WHERE matschiei = 'deremensis'");
  EXPECT_GT(rows->RecordCount(), 0);
  EXPECT_EQ(Numero([&] { engine->OpenDatabase(path, true, Connect::Excel12); }),
            ErrorNumber::UnrecognizedFormat);
  EXPECT_EQ(Numero([&] { engine->OpenDatabase(path, true, Connect::Access); }),
            ErrorNumber::UnrecognizedFormat);
}

TEST(ExcelEngine, MakesAWorkbookAndReadsItBack) {
  const auto engine = MoteurExcel();
  const TableDef table = TableDExport();
  for (const Kind& kind : kinds) {
    const TempFolder folder;
    const std::string path = folder / kind.file;
    {
      const auto made = engine->OpenDatabase(path, false, kind.connect);
      made->CreateTable(table);
      MadeRows rows =
          Source({{"1", -12.5, 4.35, 3, 0, "WGS84", "31UFS", "1.5.1998", "m", "", " / "}});
      EXPECT_EQ(made->InsertRows("bees", NomsDeChamps(table), rows), 1);
      EXPECT_EQ(made->OpenRecordset("bees")->RecordCount(), 1) << "in the same database";
      EXPECT_EQ(Numero([&] { made->CreateTable(table); }), ErrorNumber::TableExists);
    }
    EXPECT_EQ(folder.Noms(), std::vector<std::string>{kind.file});
    const auto opened = engine->OpenDatabase(path, true, kind.connect);
    const auto rows = opened->OpenRecordset("SELECT * FROM bees WHERE Latitude = -12.5");
    EXPECT_EQ(rows->RecordCount(), 1);
    EXPECT_EQ(rows->Get("Period").Texte(), "1");
    EXPECT_EQ(rows->Get("Memo").Texte(), " / ");
    EXPECT_EQ(Numero([&] { engine->CreateForeignDatabase(path, kind.connect, {}); }),
              ErrorNumber::FileExists);
  }
}

TEST(ExcelEngine, ReadingCanBeBrokenOff) {
  const TempFolder folder;
  for (const Kind& kind : kinds) {
    const auto engine = MoteurExcel();
    const TableDef table = TableDExport();
    const std::string path = folder / kind.file;
    {
      const auto made = engine->OpenDatabase(path, false, kind.connect);
      made->CreateTable(table);
    }
    engine->SuitAttente([] { return false; });
    EXPECT_EQ(Numero([&] { engine->OpenDatabase(path, true, kind.connect); }),
              ErrorNumber::Cancelled);
  }
}

Row Exportee(const DegRow& row, const std::string& memo) {
  const auto cut = [](const std::string& text, std::size_t size) {
    return std::string(PremiersCaracteres(Rogne(text), size));
  };
  return {cut(std::to_string(row.period), 1),
          static_cast<double>(row.latitude),
          static_cast<double>(row.longitude),
          std::int64_t{row.n1},
          std::int64_t{row.n2},
          cut(row.datum, 5),
          cut(row.original, 24),
          cut(row.date, 10),
          cut(row.sex, 1),
          cut(row.comment, 150),
          std::string(PremiersCaracteres(memo, 255))};
}

/// Holds a row that went in against the same that came out; an empty text is no cell.
void CompareRelue(const Row& given, const Row& read, const TableDef& table) {
  for (std::size_t i = 0; i < given.size(); ++i) {
    const Cell in = Cell::Vue(given[i]), out = Cell::Vue(read[i]);
    if (table.fields[i].type == FieldType::Single) {
      constexpr std::size_t mostSigns = 11;  // nine digits, a sign and a point
      ASSERT_EQ(static_cast<float>(in.real), static_cast<float>(out.real));
      ASSERT_LE(out.Texte().size(), mostSigns) << "the shortest decimal of the float";
    } else {
      ASSERT_EQ(in.Texte(), out.Texte()) << table.fields[i].name;
    }
  }
}

// Rows of real files in their own order, there and back.
TEST(ExcelEngine, RealDistributionsComeBack) {
  for (const char* name :
       {"andrena_flavipes.deg", "odobenus_rosmarus.deg", "diomedea_exulans.deg"}) {
    const fs::path path = fs::path(TALPENA_SHARED_DATA) / name;
    if (!fs::exists(path)) GTEST_SKIP() << "no " << path;
    SCOPED_TRACE(name);
    const DegContents file =
        LitFichierDeg(std::make_unique<MemoryInput>(LitFichier(path.string())), DatumCatalogue{});
    ASSERT_FALSE(file.lignes.empty());
    const std::string memo = file.entete.BoxTitre + " / " + file.entete.Commentaire;
    const TableDef table = TableDExport();
    std::vector<Row> rows;
    for (const DegRow& row : file.lignes) rows.push_back(Exportee(row, memo));
    const TempFolder folder;
    const WrittenSheet sheets[] = {{CreeFormatExcel(), folder / "real.xls"},
                                   {CreeFormatXlsx(), folder / "real.xlsx"}};
    for (const WrittenSheet& sheet : sheets) {
      MadeRows source = Source(rows);
      EXPECT_EQ(sheet.Ecrit(table, source), static_cast<std::int64_t>(rows.size()));
      const std::vector<Row> read = sheet.Relit(table);
      ASSERT_EQ(read.size(), rows.size());
      for (std::size_t r = 0; r < rows.size(); ++r) CompareRelue(rows[r], read[r], table);
    }
  }
}

}  // namespace
}  // namespace talpena

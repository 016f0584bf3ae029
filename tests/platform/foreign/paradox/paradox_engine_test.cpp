// Paradox tables through the table engine.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/text.h"
#include "coords/state.h"
#include "fakes/memory_input.h"
#include "platform/foreign/paradox/paradox_files.h"
#include "platform/foreign/paradox/px_reader.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/deg_file.h"

namespace talpena {
namespace {

using namespace test;

std::unique_ptr<TableEngine> MoteurParadox() {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatParadox());
  return CreeMoteurSqlite(std::move(formats));
}

/// The columns of an export, in its order.
TableDef TableExportee() {
  return {.name = "bees",
          .fields = {Champ("Period", FieldType::Text, 1), Champ("Latitude", FieldType::Single),
                     Champ("Longitude", FieldType::Single), Champ("Number 1", FieldType::Long),
                     Champ("Number 2", FieldType::Long), Champ("Ellipsoid", FieldType::Text, 5),
                     Champ("Orig Coor", FieldType::Text, 24), Champ("Date", FieldType::Text, 10),
                     Champ("Sex", FieldType::Text, 1), Champ("Free text", FieldType::Text, 150),
                     Champ("Memo", FieldType::Memo)},
          .indexes = {}};
}

std::vector<std::string_view> Noms(const TableDef& table) {
  std::vector<std::string_view> names;
  for (const FieldDef& field : table.fields) names.emplace_back(field.name);
  return names;
}

TEST(ParadoxEngine, ReadsATableByAStatement) {
  NEEDS_PARADOX_FILES();
  const auto engine = MoteurParadox();
  for (const std::string_view connect : {Connect::Paradox3, Connect::Paradox4}) {
    const auto database = engine->OpenDatabase(paradoxFolder.string(), true, connect);
    const auto rows = database->OpenRecordset("SELECT County FROM County WHERE StateID = 'DE'");
    EXPECT_EQ(rows->RecordCount(), 3) << "Kent, New Castle, Sussex";
  }
  EXPECT_EQ(Numero([&] { engine->OpenDatabase(paradoxFolder.string(), true, Connect::DBase4); }),
            ErrorNumber::UnrecognizedFormat);
}

TEST(ParadoxEngine, KnowsATableByItsHead) {
  NEEDS_PARADOX_FILES();
  const auto engine = MoteurParadox();
  for (const char* name : {"AREACODE.DB", "CUSTOMER.DB", "County.DB", "memo.db"}) {
    const auto database = engine->OpenDatabase((paradoxFolder / name).string(), true);
    EXPECT_EQ(database->TableNames().size(), 1U) << name;
  }
  for (const char* name : {"long.px", "memo.mb"}) {
    EXPECT_EQ(Numero([&] { engine->OpenDatabase((paradoxFolder / name).string(), true); }),
              ErrorNumber::UnrecognizedFormat)
        << name;
  }
}

TEST(ParadoxEngine, MakesATableInAFolderAndReadsItBack) {
  const TempFolder folder;
  const auto engine = MoteurParadox();
  const TableDef table = TableExportee();
  const auto names = Noms(table);
  {
    const auto made = engine->OpenDatabase(folder.path().string(), false, Connect::Paradox3);
    made->CreateTable(table);
    MadeRows rows =
        Source({{"1", -12.5, 4.35, 3, 0, "WGS84", "31UFS", "1.5.1998", "m", "", " / "}});
    EXPECT_EQ(made->InsertRows("bees", names, rows), 1);
    EXPECT_EQ(made->OpenRecordset("bees")->RecordCount(), 1) << "in the same database";
    EXPECT_EQ(Numero([&] { made->CreateTable(table); }), ErrorNumber::TableExists);
  }
  EXPECT_EQ(folder.Noms(), (std::vector<std::string>{"bees.db", "bees.mb"}));
  const auto opened = engine->OpenDatabase(folder / "bees.db", true, "paradox 3.x;");
  const auto rows = opened->OpenRecordset("SELECT * FROM bees WHERE Latitude = -12.5");
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Get("Number 1").Nombre(), 3);
  EXPECT_EQ(rows->Get("Memo").Texte(), " / ");
}

TEST(ParadoxEngine, RowsBeforeATooLongValueStay) {
  const TempFolder folder;
  const auto engine = MoteurParadox();
  const auto made = engine->OpenDatabase(folder.path().string(), false, Connect::Paradox3);
  made->CreateTable({.name = "t", .fields = {Champ("Period", FieldType::Text, 1)}, .indexes = {}});
  MadeRows rows = Source({{"1"}, {"12"}, {"3"}});
  const std::vector<std::string_view> names = {"Period"};
  EXPECT_EQ(Numero([&] { made->InsertRows("t", names, rows); }), ErrorNumber::FieldTooSmall);
  EXPECT_EQ(made->OpenRecordset("t")->RecordCount(), 1);
}

/// A row of a distribution as an export hands it over.
Row Exportee(const DegRow& row, const std::string& memo) {
  const auto cut = [](const std::string& text, std::size_t most) {
    return std::string(PremiersCaracteres(text, most));
  };
  return {cut(std::to_string(row.period), 1),
          double{row.latitude},
          double{row.longitude},
          std::int64_t{row.n1},
          std::int64_t{row.n2},
          cut(row.datum, 5),
          cut(row.original, 24),
          cut(row.date, 10),
          cut(row.sex, 1),
          cut(row.comment, 150),
          memo};
}

/// Holds a row that went in against the same that came out.
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
TEST(ParadoxEngine, RealDistributionsComeBack) {
  for (const char* name :
       {"andrena_flavipes.deg", "odobenus_rosmarus.deg", "diomedea_exulans.deg"}) {
    const fs::path path = fs::path(TALPENA_SHARED_DATA) / name;
    if (!fs::exists(path)) GTEST_SKIP() << "no " << path;
    SCOPED_TRACE(name);
    const std::string bytes = LitFichier(path.string());
    const DegContents file = LitFichierDeg(std::make_unique<MemoryInput>(bytes), DatumCatalogue{});
    ASSERT_FALSE(file.lignes.empty());
    const std::string memo = file.entete.BoxTitre + " / " + file.entete.Commentaire;
    const TableDef table = TableExportee();
    std::vector<Row> rows;
    for (const DegRow& row : file.lignes) rows.push_back(Exportee(row, memo));
    const WrittenTable written(table);
    written.Ecrit(rows);
    const auto read = written.Relit();
    ASSERT_EQ(read.size(), rows.size());
    for (std::size_t r = 0; r < rows.size(); ++r) CompareRelue(rows[r], read[r], table);
    if (!pxDump.empty()) CompareParPxlib(written.Table(), table.fields, read);
  }
}

}  // namespace
}  // namespace talpena

// GeoPackages, written and read.
#include "platform/sqlite/geopackage/geopackage_format.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "fakes/temp_folder.h"
#include "fakes/tiny_disk.h"
#include "platform/foreign/command_output.h"
#include "platform/foreign/foreign_rows.h"
#include "platform/geopackage_point.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena {
namespace {

using namespace test;

TableDef Couche(const char* name = "moles") {
  return {.name = name,
          .fields = {{.name = "Number \"1\"", .type = FieldType::Long},
                     {.name = "Latitude", .type = FieldType::Single},
                     {.name = "Place", .type = FieldType::Text, .size = 20},
                     {.name = "Memo", .type = FieldType::Memo},
                     {.name = "geom", .type = FieldType::Binary}},
          .indexes = {}};
}

Row Ligne(std::int64_t n, const char* text = "Mons") {
  return {n, double{50.41234F}, text, "€ Łódź\nwood", PointGeoPackage(static_cast<double>(n), 50)};
}

class GeoPackage : public testing::Test {
 protected:
  std::int64_t Ecrit(const TableDef& table, std::vector<Row> rows) {
    const auto database = format->Cree(path, NewDatabase{});
    database->CreeTable(table);
    const std::size_t count = rows.size();
    MadeRows source(count, [&](std::size_t i) { return rows[i]; });
    return database->InsereLignes(table.name, source);
  }
  std::vector<Row> Relit(const char* name = "moles", std::size_t columns = 5) {
    return LitLignes(*format->Ouvre(path), name, columns);
  }
  int RefusDe(const TableDef& table) {
    std::filesystem::remove(path);
    try {
      format->Cree(path, NewDatabase{})->CreeTable(table);
    } catch (const TalpenaError& failure) {
      return failure.number();
    }
    return 0;
  }
  int RefusALaLecture() {
    try {
      CreeMoteurSqlite(Formats())->OpenDatabase(path, true, Connect::GeoPackage);
    } catch (const TalpenaError& failure) {
      return failure.number();
    }
    return 0;
  }
  static std::vector<std::unique_ptr<ForeignFormat>> Formats() {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(CreeFormatGeoPackage());
    return formats;
  }

  TempFolder folder;
  std::string path = folder / "it's 100% #1?.gpkg";
  std::unique_ptr<ForeignFormat> format = CreeFormatGeoPackage();
};

TEST_F(GeoPackage, GivesEveryValueBack) {
  const Row none(5);
  EXPECT_EQ(Ecrit(Couche(), {Ligne(1), Ligne(-2147483648LL, ""), none}), 3);
  const std::vector<Row> rows = Relit();
  ASSERT_EQ(rows.size(), 3U);
  Row first = Ligne(1);
  first[1] = 50.41234;  // the shortest decimal of the float
  EXPECT_EQ(rows[0], first);
  EXPECT_EQ(rows[1][0], Value(std::int64_t{-2147483648LL}));
  EXPECT_EQ(rows[1][2], Value(std::string()));
  EXPECT_EQ(rows[2], none);
  EXPECT_EQ(folder.Noms().size(), 1U) << "nothing stands beside it";
}

TEST_F(GeoPackage, DeclaresItsColumns) {
  Ecrit(Couche(), {});
  const auto database = format->Ouvre(path);
  const TableDef table = TableDe(*database, "moles");
  ASSERT_EQ(table.fields.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(table.fields[i].name, Couche().fields[i].name);
  EXPECT_EQ(table.fields[0].type, FieldType::Long);
  EXPECT_EQ(table.fields[1].type, FieldType::Double);
  EXPECT_EQ(table.fields[2].size, 20);
  EXPECT_EQ(table.fields[3].type, FieldType::Memo);
  EXPECT_EQ(table.fields[4].type, FieldType::Binary);
}

TEST_F(GeoPackage, ATableWithoutPointsIsOneOfAttributes) {
  TableDef table = Couche();
  table.fields.pop_back();
  Ecrit(table, {{std::int64_t{1}, 2.0, "a", "b"}});
  EXPECT_EQ(Relit("moles", 4).size(), 1U);
}

TEST_F(GeoPackage, RefusesWhatItCannotHold) {
  for (const char* name : {"", "gpkg_moles", "RTREE_a", "sqlite_a", "a\nb"}) {
    EXPECT_EQ(RefusDe(Couche(name)), ErrorNumber::InvalidName) << name;
  }
  TableDef dated = Couche();
  dated.fields[0].type = FieldType::Date;
  EXPECT_EQ(RefusDe(dated), ErrorNumber::NotSupported);
  TableDef wide = Couche();
  for (int i = 0; i < 1995; ++i) {
    wide.fields.push_back({.name = "c" + std::to_string(i), .type = FieldType::Memo});
  }
  EXPECT_EQ(RefusDe(wide), ErrorNumber::TooManyFields);
  const char* odd = "a \"quoted\" 'name'; DROP TABLE gpkg_contents";
  EXPECT_EQ(RefusDe(Couche(odd)), 0);
  EXPECT_EQ(TableDe(*format->Ouvre(path), odd).fields.size(), 5U);
}

TEST_F(GeoPackage, ATableIsMadeOnce) {
  const auto database = format->Cree(path, NewDatabase{});
  database->CreeTable(Couche());
  try {
    database->CreeTable(Couche("MOLES"));
    ADD_FAILURE();
  } catch (const TalpenaError& failure) {
    EXPECT_EQ(failure.number(), ErrorNumber::TableExists);
  }
}

TEST_F(GeoPackage, RowsBeforeAFailureOfTheSourceStay) {
  for (const std::size_t count : {0U, 1U, 999U, 1000U, 1001U, 2500U}) {
    SCOPED_TRACE(count);
    std::filesystem::remove(path);
    const auto database = format->Cree(path, NewDatabase{});
    database->CreeTable(Couche());
    MadeRows source(5000, [&](std::size_t i) -> Row {
      if (i == count) throw TalpenaError(ErrorNumber::Cancelled, "Cancel.");
      return Ligne(static_cast<std::int64_t>(i));
    });
    EXPECT_THROW(database->InsereLignes("moles", source), TalpenaError);
    EXPECT_EQ(Relit().size(), count);
  }
}

TEST_F(GeoPackage, ADiskThatFillsLeavesTheRowsBeforeInAWholeFile) {
  const TinyDisk disk("size=1m");
  if (!disk.Refus().empty()) GTEST_SKIP() << "no disk can be mounted: " << disk.Refus();
  path = disk / "moles.gpkg";
  auto database = format->Cree(path, NewDatabase{});
  database->CreeTable(Couche());
  MadeRows source(100000, [](std::size_t i) { return Ligne(static_cast<std::int64_t>(i)); });
  try {
    database->InsereLignes("moles", source);
    ADD_FAILURE();
  } catch (const TalpenaError& failure) {
    EXPECT_EQ(failure.number(), ErrorNumber::DiskFull) << failure.description();
  }
  database.reset();
  const std::size_t rows = Relit().size();
  EXPECT_GT(rows, 1000U);
  if (!Sortie("command -v ogrinfo")) GTEST_SKIP() << "the tools of GDAL are not installed";
  const auto told = Sortie("ogrinfo -ro -so " + EntreQuotes(path) + " moles 2>&1").value_or("");
  EXPECT_NE(told.find("Feature Count: " + std::to_string(rows)), std::string::npos) << told;
}

// --- what others have made -------------------------------------------------------------------

TEST_F(GeoPackage, ReadsWhatOgr2ogrWrites) {
  if (!Sortie("command -v ogr2ogr")) GTEST_SKIP() << "the tools of GDAL are not installed";
  EcritFichier(folder / "a.csv", "name,n,x,y\nMons,7,3.5,50.5\nŁódź,,4,51\n");
  ASSERT_TRUE(Sortie("ogr2ogr -f GPKG " + EntreQuotes(path) + " " + EntreQuotes(folder / "a.csv") +
                     " -oo X_POSSIBLE_NAMES=x -oo Y_POSSIBLE_NAMES=y -oo AUTODETECT_TYPE=YES "
                     "-a_srs EPSG:4326 2>&1"));
  const auto database = format->Ouvre(path);
  const auto tables = database->Tables();
  ASSERT_EQ(tables.size(), 1U);
  ASSERT_EQ(tables[0].fields.size(), 5U);
  const std::vector<Row> rows = LitLignes(*database, tables[0].name, 5);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0][0], Value(PointGeoPackage(3.5, 50.5)));
  EXPECT_EQ(rows[0][1], Value("Mons"));
  EXPECT_EQ(rows[0][2], Value(std::int64_t{7}));
  EXPECT_EQ(rows[1][1], Value("Łódź"));
  EXPECT_EQ(rows[1][2], Value());
}

TEST_F(GeoPackage, WritesNothingBesideAFileThatItReads) {
  Ecrit(Couche(), {Ligne(1)});
  const std::string bytes = LitFichier(path);
  std::filesystem::permissions(folder.path(), std::filesystem::perms{0500});
  EXPECT_EQ(Relit().size(), 1U);
  std::filesystem::permissions(folder.path(), std::filesystem::perms{0700});
  EXPECT_EQ(LitFichier(path), bytes);
}

TEST_F(GeoPackage, OneWithRowsInAJournalIsInUse) {
  Ecrit(Couche(), {Ligne(1)});
  EcritFichier(path + "-wal", "rows");
  EXPECT_EQ(RefusALaLecture(), ErrorNumber::FileInUse);
}

TEST_F(GeoPackage, DamagedFilesEndInAMessageOrInRows) {
  std::vector<Row> rows;
  for (int i = 0; i < 200; ++i) rows.push_back(Ligne(i));
  Ecrit(Couche(), rows);
  const std::string whole = LitFichier(path);
  std::uint32_t random = 1;
  const auto next = [&](std::size_t below) {
    random = random * 1664525 + 1013904223;
    return (random >> 8U) % below;
  };
  for (int variant = 0; variant < 1000; ++variant) {
    std::string bytes = whole;
    const std::size_t changes = 1 + next(64);
    for (std::size_t i = 0; i < changes; ++i)
      bytes[next(bytes.size())] = static_cast<char>(next(256));
    if (variant % 10 == 0) bytes.resize(next(bytes.size()));
    EcritFichier(path, bytes);
    try {
      const auto database = CreeMoteurSqlite(Formats())->OpenDatabase(path, true, "GeoPackage;");
      for (const std::string& name : database->TableNames()) database->OpenRecordset(name);
    } catch (const TalpenaError& failure) {
      EXPECT_FALSE(failure.description().empty());
    }
  }
}

TEST_F(GeoPackage, AnotherFileIsNone) {
  EcritFichier(path, "no database");
  EXPECT_EQ(RefusALaLecture(), ErrorNumber::UnrecognizedFormat);
}

}  // namespace
}  // namespace talpena

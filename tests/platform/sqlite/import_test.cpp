// Other makers' files behind the engine: tables and queries read, tables made.
#include <map>
#include <utility>

#include "common/msg_id_errors.h"
#include "platform/foreign_format.h"
#include "platform/sqlite/drawer.h"
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

using ImportTest = EngineTest;

/// A maker's file with two tables; the rows of the second cannot be read.
class MakersDatabase final : public ForeignDatabase {
 public:
  explicit MakersDatabase(int* reads) : reads_(reads) {}
  std::vector<TableDef> Tables() override {
    TableDef datum;
    datum.name = "Datum";
    datum.fields = {{"ID", FieldType::Long, 0, false, true, true},
                    {"CODE", FieldType::Text, 5, false, false, true},
                    {"USE", FieldType::Integer},
                    {"dx", FieldType::Single},
                    {"Seen", FieldType::Date}};
    datum.indexes = {{"PrimaryKey", {"CODE"}, true, true}};
    TableDef broken;
    broken.name = "Broken";
    broken.fields = {{"A", FieldType::Long}};
    return {datum, broken};
  }
  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    ++*reads_;
    if (table == "Broken") {
      return std::make_unique<ListSource>(std::vector<std::vector<Value>>{{1}, {"no number"}});
    }
    return std::make_unique<ListSource>(
        std::vector<std::vector<Value>>{{3, "WGS84", 2, 0.1, "2024-11-27"},
                                        {3, "TOOLONG", 1, 4.1, 1.5},
                                        {1, "", 0, Value(), Value()}});
  }

 private:
  int* reads_;
};

class MakersFormat final : public ForeignFormat {
 public:
  explicit MakersFormat(int* reads) : reads_(reads) {}
  bool Reconnait(const std::string& path, std::string_view connect) override {
    return connect == "Maker;" || test::LitFichier(path) == "MAKER";
  }
  std::unique_ptr<ForeignDatabase> Ouvre(const std::string&) override {
    return std::make_unique<MakersDatabase>(reads_);
  }

 private:
  int* reads_;
};

TEST_F(ImportTest, AnotherMakersFileIsReadWhenATableIsNamed) {
  int reads = 0;
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(std::make_unique<MakersFormat>(&reads));
  const auto makers = CreeMoteurSqlite(std::move(formats));
  const std::string path = folder / "maker.mdb";
  test::EcritFichier(path, "MAKER");
  const auto opened = makers->OpenDatabase(path, true);
  EXPECT_EQ(opened->TableNames(), (Strings{"Datum", "Broken"}));
  EXPECT_EQ(reads, 0);
  const auto rows = opened->OpenRecordset("SELECT * FROM Datum WHERE USE > 0 ORDER BY CODE");
  EXPECT_EQ(Colonne(*rows, "CODE"), (Strings{"TOOLONG", "WGS84"}));
  EXPECT_EQ(opened->OpenRecordset("SELECT * FROM datum WHERE dx = 4.1")->RecordCount(), 1);
  EXPECT_EQ(opened->OpenRecordset("SELECT * FROM datum WHERE Seen = #2024-11-27#")->RecordCount(),
            1);
  EXPECT_EQ(opened->OpenRecordset("SELECT * FROM datum WHERE Seen > '2024-11-26'")->RecordCount(),
            1);
  EXPECT_EQ(opened->OpenRecordset("Datum")->RecordCount(), 3);
  EXPECT_EQ(reads, 1);
  EXPECT_EQ(FailureOf([&] { rows->Edit(); }).number, 3027);
  EXPECT_EQ(FailureOf([&] { opened->Execute("DELETE FROM Datum"); }).number, 3027);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(FailureOf([&] { opened->OpenRecordset("Broken"); }).number, 3421);
  }
  EXPECT_EQ(opened->OpenRecordset("Datum")->RecordCount(), 3);
  EXPECT_EQ(makers->OpenDatabase(folder.path().string(), true, "Maker;")->TableNames().size(), 2u);
}

// ------------------------------------------------------- a format that is read and written

class MakerTest : public EngineTest {
 protected:
  MakerTest() {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(std::make_unique<DrawerFormat>(drawer));
    makers = CreeMoteurSqlite(std::move(formats));
    drawer.tables = {{.name = "Place",
                      .fields = {{"Name", FieldType::Text, 20},
                                 {"Lat", FieldType::Double},
                                 {"Country", FieldType::Integer}},
                      .indexes = {},
                      .attributes = TableAttribute::Hidden},
                     {.name = "Country",
                      .fields = {{"Id", FieldType::Integer}, {"Name", FieldType::Text, 20}},
                      .indexes = {}}};
    drawer.rows["Place"] = {{"MONS", 50.45, 1}, {"LYON", 45.76, 2}, {"NAMUR", 50.47, 1}};
    drawer.rows["Country"] = {{1, "Belgium"}, {2, "France"}};
  }
  std::unique_ptr<Database> Ouvre(bool readOnly = true) {
    return makers->OpenDatabase(folder.path().string(), readOnly, "DBASE iv;Mode=1;");
  }
  static TableDef Exportee() {
    return {.name = "deg",
            .fields = {{"X", FieldType::Long},
                       {"Period", FieldType::Text, 1, true},
                       {"Memo", FieldType::Memo, 0, true}},
            .indexes = {}};
  }

  Drawer drawer;
  std::unique_ptr<TableEngine> makers;
};

// Names are the maker's affair, and those of damaged files are anybody's.
TEST_F(MakerTest, AnyNameCanBeThatOfATableOrAColumn) {
  const char* names[] = {"select",
                         "a\"b",
                         "it's",
                         "x;--",
                         "sqlite_master",
                         "SQLITE_x",
                         "Größe",
                         "a b",
                         ")",
                         "#",
                         "rowid",
                         "talpena_tables",
                         "\x01\x7F",
                         "%",
                         "sqlite_sequence",
                         "c0",
                         "INTEGER PRIMARY KEY"};
  drawer.tables.clear();
  for (const char* name : names) {
    drawer.tables.push_back(
        {.name = name, .fields = {{name, FieldType::Long}}, .indexes = {}, .attributes = 0});
    drawer.rows[name] = {{1}, {2}};
  }
  const auto opened = Ouvre();
  for (const char* name : names) {
    SCOPED_TRACE(name);
    const std::string bracketed = "[" + std::string(name) + "]";
    const auto rows = opened->OpenRecordset(bracketed);
    EXPECT_EQ(rows->RecordCount(), 2);
    EXPECT_EQ(Colonne(*rows, name), (Strings{"1", "2"}));
    EXPECT_EQ(opened->OpenRecordset("SELECT * FROM " + bracketed)->RecordCount(), 2);
  }
}

TEST_F(MakerTest, ATableWithoutColumnsHasNoRowsToGive) {
  drawer.tables.push_back({.name = "Empty", .fields = {}, .indexes = {}, .attributes = 0});
  drawer.rows["Empty"] = {};
  EXPECT_EQ(FailureOf([&] { Ouvre()->OpenRecordset("Empty"); }).number, ErrorNumber::TableNotFound);
}

TEST_F(MakerTest, ConnectStringsAreComparedUpToTheirSemicolon) {
  EXPECT_TRUE(MemeFormat(Connect::DBase4, "dBASE IV;"));
  EXPECT_TRUE(MemeFormat("Paradox 4.x;", Connect::Paradox4));
  EXPECT_TRUE(MemeFormat("excel 5.0", Connect::Excel5));
  EXPECT_TRUE(MemeFormat(";PWD=x", Connect::Access));
  EXPECT_FALSE(MemeFormat(Connect::Paradox3, Connect::Paradox4));
  EXPECT_FALSE(MemeFormat(Connect::FoxPro25, Connect::Access));
}

TEST_F(MakerTest, TablesAreListedWithTheirAttributes) {
  const auto opened = Ouvre();
  std::vector<std::pair<std::string, std::uint32_t>> listed;
  for (const TableDef& table : opened->Tables()) listed.emplace_back(table.name, table.attributes);
  EXPECT_EQ(listed, (std::vector<std::pair<std::string, std::uint32_t>>{
                        {"Place", 1}, {"Country", 0}, {"MSysObjects", 0x80000002}}));
  EXPECT_EQ(opened->TableNames(), (Strings{"Place", "Country"}));
  EXPECT_EQ(FailureOf([&] { opened->OpenRecordset("MSysObjects"); }).number,
            ErrorNumber::TableNotFound);
  EXPECT_EQ(opened->Table("country").fields.size(), 2U);
  EXPECT_EQ(drawer.journal, Strings{}) << "nothing is read for a list";
}

TEST_F(MakerTest, ASavedQueryIsReadLikeATable) {
  drawer.queries = {
      {.name = "Towns",
       .sql = "SELECT Place.Name, Place.Lat, Country.Name FROM Place INNER JOIN Country ON "
              "Place.Country = Country.Id",
       .fields = {}},
      {.name = "Belgian", .sql = "SELECT * FROM Towns WHERE Lat > 50", .fields = {}},
      {.name = "All", .sql = "SELECT * FROM Place", .fields = {}},
      {.name = "Append", .kind = 0x40, .sql = {}, .fields = {}}};
  const auto opened = Ouvre();
  EXPECT_EQ(opened->Queries().size(), 4U);
  EXPECT_EQ(Colonne(*opened->OpenRecordset(
                        "SELECT * FROM Belgian WHERE [Name] LIKE '*' ORDER BY [Name];"),
                    "Name"),
            (Strings{"MONS", "NAMUR"}));
  const QueryDef towns = opened->Query("TOWNS");
  ASSERT_EQ(towns.fields.size(), 3U);
  EXPECT_EQ(towns.name, "Towns");
  EXPECT_EQ(towns.fields[1].name, "Lat");
  EXPECT_EQ(towns.fields[1].type, FieldType::Double);
  EXPECT_EQ(towns.fields[2].name, "Name_2") << "two columns of one name";
  EXPECT_EQ(Colonne(*opened->OpenRecordset("Towns"), "Name_2"),
            (Strings{"Belgium", "France", "Belgium"}));
  EXPECT_EQ(opened->OpenRecordset("[All]")->RecordCount(), 3);
  EXPECT_EQ(opened->TableNames(), (Strings{"Place", "Country"}));
  EXPECT_EQ(opened->Tables().size(), 3U);
  EXPECT_EQ(FailureOf([&] { opened->Table("Towns"); }).number, ErrorNumber::TableNotFound);
}

TEST_F(MakerTest, AQueryThatCannotBeRunEndsInItsMessage) {
  drawer.queries = {{.name = "Unknown", .sql = {}, .fields = {}},
                    {.name = "Self", .sql = "SELECT * FROM Other", .fields = {}},
                    {.name = "Other", .sql = "SELECT * FROM Self", .fields = {}},
                    {.name = "Wrong", .sql = "SELECT Nothing FROM Place", .fields = {}}};
  const auto opened = Ouvre();
  const Failure unknown = FailureOf([&] { opened->OpenRecordset("SELECT * FROM Unknown"); });
  EXPECT_EQ(unknown.number, ErrorNumber::NotSupported);
  EXPECT_EQ(unknown.description,
            "Operation is not supported: the saved query 'Unknown' cannot be run.");
  EXPECT_EQ(unknown.text, MsgId::RequeteImpossible);
  EXPECT_EQ(FailureOf([&] { opened->Query("Self"); }).text, MsgId::RequeteEnCercle);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(FailureOf([&] { opened->Query("Self"); }).number, 3102);
    EXPECT_EQ(FailureOf([&] { opened->Query("Wrong"); }).number, ErrorNumber::TooFewParameters);
  }
  EXPECT_EQ(FailureOf([&] { opened->Query("None"); }).number, ErrorNumber::TableNotFound);
  EXPECT_EQ(opened->OpenRecordset("Place")->RecordCount(), 3);
}

TEST_F(MakerTest, ALongTableTellsHowFarItCameAndCanBeBrokenOff) {
  Rows& rows = drawer.rows["Country"];
  for (int i = 3; i <= 10000; ++i) rows.push_back({i % 1000, "x"});
  const auto opened = Ouvre();
  std::vector<std::pair<std::int64_t, std::int64_t>> progress;
  opened->SuitImport([&](std::int64_t done, std::int64_t total) {
    progress.emplace_back(done, total);
    if (progress.size() == 2) throw TalpenaError(ErrorNumber::Cancelled, "");
  });
  EXPECT_EQ(FailureOf([&] { opened->OpenRecordset("Country"); }).number, ErrorNumber::Cancelled);
  EXPECT_EQ(progress,
            (std::vector<std::pair<std::int64_t, std::int64_t>>{{4096, 10000}, {8192, 10000}}));
  EXPECT_EQ(opened->OpenRecordset("Country")->RecordCount(), 10000) << "taken over anew";
  EXPECT_EQ(progress.back(), (std::pair<std::int64_t, std::int64_t>(10000, 10000)));
  EXPECT_EQ(drawer.journal, (Strings{"Rows Country", "Rows Country"}));
}

TEST_F(MakerTest, ATableIsMadeAndTakesRows) {
  const auto opened = Ouvre(false);
  opened->CreateTable(Exportee());
  const std::string_view columns[] = {"Memo", "Period"};
  ListSource source({{std::string("title / comment"), std::int64_t{1}}, {Value(), std::string()}});
  EXPECT_EQ(opened->InsertRows("DEG", columns, source), 2);
  EXPECT_EQ(drawer.rows["deg"], (Rows{{Value(), std::string("1"), std::string("title / comment")},
                                      {Value(), std::string(), Value()}}));
  EXPECT_EQ(Colonne(*opened->OpenRecordset("deg"), "Period"), (Strings{"1", ""})) << "read back";
  EXPECT_EQ(drawer.journal,
            (Strings{"OuvrePourEcrire " + folder.path().string(), "CreeTable deg", "Rows deg"}));
}

TEST_F(MakerTest, ARefusedRowKeepsThoseBeforeIt) {
  const auto opened = Ouvre(false);
  opened->CreateTable(Exportee());
  const std::string_view columns[] = {"Period"};
  ListSource source({{std::string("1")}, {std::string("12")}, {std::string("3")}});
  EXPECT_EQ(FailureOf([&] { opened->InsertRows("deg", columns, source); }).number,
            ErrorNumber::FieldTooSmall);
  EXPECT_EQ(drawer.rows["deg"].size(), 1U);
}

TEST_F(MakerTest, WhatAMakersFileCannotTakeIsRefused) {
  const auto opened = Ouvre(false);
  const std::string_view name[] = {"Name"};
  ListSource source({{std::string("x")}});
  EXPECT_EQ(FailureOf([&] { opened->InsertRows("Place", name, source); }).number,
            ErrorNumber::NotSupported)
      << "a table that was there";
  EXPECT_EQ(FailureOf([&] { opened->InsertRows("None", name, source); }).number,
            ErrorNumber::TableNotFound);
  EXPECT_EQ(FailureOf([&] { opened->BeginTrans(); }).number, ErrorNumber::NotSupported);
  TableDef again = Exportee();
  again.name = "place";
  EXPECT_EQ(FailureOf([&] { opened->CreateTable(again); }).number, ErrorNumber::TableExists);
  opened->CreateTable(Exportee());
  EXPECT_EQ(FailureOf([&] { opened->Execute("DELETE FROM deg"); }).number, ErrorNumber::ReadOnly);
  const std::string_view unknown[] = {"Nothing"};
  EXPECT_EQ(FailureOf([&] { opened->InsertRows("deg", unknown, source); }).number,
            ErrorNumber::ItemNotFound);
  const std::string_view period[] = {"Period"};
  ListSource one({{std::string("1")}});
  EXPECT_EQ(opened->InsertRows("deg", period, one), 1);
  EXPECT_EQ(opened->OpenRecordset("deg")->RecordCount(), 1);
  EXPECT_EQ(FailureOf([&] { opened->InsertRows("deg", period, source); }).number,
            ErrorNumber::NotSupported)
      << "a second time";
  const auto reading = Ouvre();
  EXPECT_EQ(FailureOf([&] { reading->CreateTable(Exportee()); }).number, ErrorNumber::ReadOnly);
  EXPECT_EQ(FailureOf([&] { reading->InsertRows("deg", period, source); }).number,
            ErrorNumber::ReadOnly);
}

TEST_F(MakerTest, ANewFileIsMadeOfAFormatThatIsWritten) {
  const std::string path = folder / "new.dbf";
  const auto opened = makers->CreateForeignDatabase(path, Connect::DBase4, NewDatabase{});
  opened->CreateTable(Exportee());
  EXPECT_EQ(drawer.journal, (Strings{"Cree 1252", "CreeTable deg"}));
  test::EcritFichier(path, "");
  EXPECT_EQ(FailureOf([&] { makers->CreateForeignDatabase(path, Connect::DBase4, {}); }).number,
            ErrorNumber::FileExists);
}

TEST_F(MakerTest, AFormatThatIsNotWrittenSaysSo) {
  const std::string path = folder / "new.mdb";
  for (const std::string_view connect : {Connect::Access, Connect::Excel5, Connect::Paradox3}) {
    const Failure failure =
        FailureOf([&] { makers->CreateForeignDatabase(path, connect, NewDatabase{}); });
    EXPECT_EQ(failure.number, ErrorNumber::NotSupported);
    EXPECT_EQ(failure.description.find("Operation is not supported: tables of the format "), 0U);
  }
  EXPECT_EQ(FailureOf([&] { makers->OpenDatabase(path, false, Connect::FoxPro25); }).number,
            ErrorNumber::NotSupported);
}

TEST_F(MakerTest, TheEnginesOwnFilesKnowTheGeneralOrderOnly) {
  NewDatabase other;
  other.langId = 0x040C;
  EXPECT_EQ(FailureOf([&] { engine->CreateDatabase(folder / "other.mdb", other); }).number,
            ErrorNumber::InvalidArgument);
  CreeTalpena();
  EXPECT_EQ(database->Tables().size(), 1U);
  EXPECT_TRUE(database->Queries().empty());
  EXPECT_EQ(FailureOf([&] { database->Query("TALPENA"); }).number, ErrorNumber::TableNotFound);
}

}  // namespace
}  // namespace talpena::enginetest

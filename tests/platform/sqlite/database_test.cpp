// Databases as files: made, opened again, other makers'.
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include <fstream>

#include "fakes/file_limit.h"
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

using namespace std::literals;

class DatabaseTest : public EngineTest {};

TableDef Everything() {
  TableDef table;
  table.name = "Every thing";
  table.fields = {{"Id", FieldType::Long, 0, false, true, false},
                  {"Flag", FieldType::Boolean},
                  {"Code", FieldType::Text, 5, false, false, true},
                  {"Name", FieldType::Memo, 0, true},
                  {"f_Inv", FieldType::Double},
                  {"Élevé", FieldType::Byte}};
  table.indexes = {{"PrimaryKey", {"Code"}, true, true}, {"Two", {"Name", "Flag"}, false, false}};
  return table;
}

void Equal(const TableDef& a, const TableDef& b) {
  EXPECT_EQ(a.name, b.name);
  ASSERT_EQ(a.fields.size(), b.fields.size());
  for (std::size_t i = 0; i < a.fields.size(); ++i) {
    EXPECT_EQ(a.fields[i].name, b.fields[i].name);
    EXPECT_EQ(a.fields[i].type, b.fields[i].type);
    EXPECT_EQ(a.fields[i].size, b.fields[i].size);
    EXPECT_EQ(a.fields[i].allowZeroLength, b.fields[i].allowZeroLength);
    EXPECT_EQ(a.fields[i].autoIncrement, b.fields[i].autoIncrement);
    EXPECT_EQ(a.fields[i].required, b.fields[i].required);
  }
  ASSERT_EQ(a.indexes.size(), b.indexes.size());
  for (std::size_t i = 0; i < a.indexes.size(); ++i) {
    EXPECT_EQ(a.indexes[i].name, b.indexes[i].name);
    EXPECT_EQ(a.indexes[i].fields, b.indexes[i].fields);
    EXPECT_EQ(a.indexes[i].unique, b.indexes[i].unique);
    EXPECT_EQ(a.indexes[i].primary, b.indexes[i].primary);
  }
}

TEST_F(DatabaseTest, AReopenedFileKnowsItsTypesAndCounters) {
  const std::string path = folder / "DATUM.MDB";
  {
    const auto made = engine->CreateDatabase(path, {});
    made->CreateTable(Everything());
    made->CreateTable(TalpenaDef());
    made->Execute("INSERT INTO [Every thing] (Code, Élevé) VALUES ('A', 200)");
    made->Execute("INSERT INTO [Every thing] (Code) VALUES ('B')");
    made->Execute("DELETE FROM [Every thing] WHERE Code = 'B'");
  }
  const auto opened = engine->OpenDatabase(path, false);
  EXPECT_EQ(opened->TableNames(), (Strings{"Every thing", "TALPENA"}));
  Equal(opened->Table("every THING"), Everything());
  Equal(opened->Table("TALPENA"), TalpenaDef());
  const auto rows = opened->OpenRecordset("SELECT * FROM [Every thing] WHERE [élevé] = 200");
  EXPECT_EQ(rows->RecordCount(), 1);
  rows->Edit();
  EXPECT_EQ(FailureOf([&] { rows->Set("Code", Cell::Of("TOOLONG"sv)); }).number, 3163);
  rows->CancelUpdate();
  opened->Execute("INSERT INTO [Every thing] (Code) VALUES ('C')");
  EXPECT_EQ(Colonne(*opened->OpenRecordset("Every thing"), "Id"), (Strings{"1", "3"}));
  EXPECT_EQ(
      FailureOf([&] { opened->Execute("INSERT INTO [Every thing] (Code) VALUES ('c')"); }).number,
      3022);
}

TEST_F(DatabaseTest, AReadOnlyOneIsNotWritten) {
  const std::string path = folder / "DATUM.MDB";
  {
    const auto made = engine->CreateDatabase(path, {});
    made->CreateTable(TalpenaDef());
    made->Execute("INSERT INTO TALPENA (N1) VALUES (1)");
  }
  chmod(path.c_str(), 0444);
  const auto opened = engine->OpenDatabase(path, true);
  const auto second = engine->OpenDatabase(path, true);
  const auto rows = opened->OpenRecordset("SELECT * FROM TALPENA ORDER BY N1");
  EXPECT_EQ(rows->Get("N1").integer, 1);
  EXPECT_EQ(second->OpenRecordset("TALPENA")->RecordCount(), 1);
  ListSource source(std::vector<std::vector<Value>>{{Value(std::int64_t{1})}});
  const std::string_view columns[] = {"N1"};
  for (const Failure& failure :
       {FailureOf([&] { rows->AddNew(); }), FailureOf([&] { rows->Edit(); }),
        FailureOf([&] { rows->Delete(); }),
        FailureOf([&] { opened->Execute("DELETE FROM TALPENA"); }),
        FailureOf([&] { opened->InsertRows("TALPENA", columns, source); }),
        FailureOf([&] { opened->CreateTable(Everything()); })}) {
    EXPECT_EQ(failure.number, 3027);
    EXPECT_EQ(failure.description, "Cannot update. Database or object is read-only.");
  }
  EXPECT_EQ(rows->Get("N1").integer, 1);
}

TEST_F(DatabaseTest, WhatIsNotThereOrNotOursIsNamed) {
  const std::string missing = folder / "missing.mdb";
  Failure failure = FailureOf([&] { engine->OpenDatabase(missing, true); });
  EXPECT_EQ(failure.number, 3024);
  EXPECT_EQ(failure.description, "Could not find file '" + missing + "'.");
  const std::string strange = folder / "strange.mdb";
  for (const std::string& bytes : {""s, "x"s, std::string(100000, '\0'), "SQLite format 3\0"s,
                                   "SQLite format 3\0"s + std::string(5000, 'x')}) {
    test::EcritFichier(strange, bytes);
    failure = FailureOf([&] { engine->OpenDatabase(strange, true); });
    EXPECT_EQ(failure.number, 3343);
    EXPECT_EQ(failure.description, "Unrecognized database format '" + strange + "'.");
  }
  EXPECT_EQ(FailureOf([&] { engine->OpenDatabase(folder.path().string(), true); }).number, 3343);
  EXPECT_EQ(
      FailureOf([&] { engine->OpenDatabase(folder.path().string(), true, "dBase IV;"); }).number,
      3343);
}

void Sqlite(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(db);
  sqlite3_close(db);
}

// A file of the library's that is not the engine's, or that holds what would run by itself.
TEST_F(DatabaseTest, OtherSqliteFilesAreRefused) {
  const std::string plain = folder / "plain.mdb";
  Sqlite(plain, "CREATE TABLE Datum (CODE TEXT)");
  EXPECT_EQ(FailureOf([&] { engine->OpenDatabase(plain, true); }).number, 3343);
  for (const char* sql :
       {"CREATE VIEW v AS SELECT 1", "CREATE TRIGGER t AFTER INSERT ON TALPENA BEGIN SELECT 1; END",
        "DROP TABLE talpena_tables", "UPDATE talpena_tables SET definition = 'T'",
        "UPDATE talpena_tables SET definition = 'T' || char(9) || 'TALPENA'",
        "UPDATE talpena_tables SET definition = replace(definition, 'F' || char(9) || 'N1', 'Q')",
        "UPDATE talpena_tables SET definition = replace(definition, '24', '-24')"}) {
    const std::string path = folder / "changed.mdb";
    std::filesystem::remove(path);
    engine->CreateDatabase(path, {})->CreateTable(TalpenaDef());
    Sqlite(path, sql);
    EXPECT_EQ(FailureOf([&] { engine->OpenDatabase(path, true)->OpenRecordset("TALPENA"); }).number,
              3343)
        << sql;
  }
}

// Bytes turned over in a good file: read with a number, never a crash.
TEST_F(DatabaseTest, ADamagedFileEndsInAFailure) {
  const std::string path = folder / "good.mdb";
  {
    const auto made = engine->CreateDatabase(path, {});
    made->CreateTable(TalpenaDef());
    for (int i = 0; i < 40; ++i) {
      made->Execute("INSERT INTO TALPENA (N1, COMMENT, LATITUDE) VALUES (1, 'abc', 4.1)");
    }
  }
  const std::string good = test::LitFichier(path);
  const std::string bad = folder / "bad.mdb";
  unsigned state = 1;
  for (int i = 0; i < 300; ++i) {
    std::string bytes = good;
    for (int k = 0; k < 4; ++k) {
      state = state * 1103515245 + 12345;
      bytes[(state >> 8) % bytes.size()] = static_cast<char>(state >> 24);
    }
    test::EcritFichier(bad, bytes);
    FailureOf([&] {
      const auto opened = engine->OpenDatabase(bad, true);
      Colonne(*opened->OpenRecordset("SELECT * FROM TALPENA ORDER BY COMMENT"), "LATITUDE");
    });
  }
}

TEST_F(DatabaseTest, APathThatCannotBeMadeIsNamed) {
  struct Case {
    std::string path;
    int number;
    std::string description;
  };
  const std::string existing = folder / "talpena_tmp.mdb";
  const std::string folderless = folder / "none/x.mdb";
  for (const Case& c : {Case{existing, 58, "File already exists: '" + existing + "'."},
                        Case{folderless, 76, "Path not found: '" + folderless + "'."},
                        Case{folder.path().string(), 58,
                             "File already exists: '" + folder.path().string() + "'."}}) {
    const Failure failure = FailureOf([&] { engine->CreateDatabase(c.path, {}); });
    EXPECT_EQ(failure.number, c.number) << c.path;
    EXPECT_EQ(failure.description, c.description);
  }
  // A folder that nobody can write to, not even root.
  const std::string closed = "/proc/talpena_tmp.mdb";
  const Failure failure = FailureOf([&] { engine->CreateDatabase(closed, {}); });
  EXPECT_EQ(failure.number, 75);
  EXPECT_EQ(failure.description, "Path/File access error: '" + closed + "'.");
}

// What is entered into it is nobody else's business, and a link would spread it elsewhere.
TEST_F(DatabaseTest, TheWorkingFileIsTheUsersAloneAndNeverBehindALink) {
  const mode_t before = umask(0);
  const std::string path = folder / "made.mdb";
  const auto made = engine->CreateDatabase(path, {});
  made->CreateTable(TalpenaDef());
  made->BeginTrans();
  made->Execute("INSERT INTO TALPENA (N1) VALUES (1)");
  umask(before);
  for (const char* suffix : {"", "-journal"}) {
    struct stat status {};
    ASSERT_EQ(stat((path + suffix).c_str(), &status), 0) << suffix;
    EXPECT_EQ(status.st_mode & 07777, mode_t{0600}) << suffix;
  }
  const std::string link = folder / "link.mdb";
  ASSERT_EQ(symlink((folder / "elsewhere.mdb").c_str(), link.c_str()), 0);
  EXPECT_EQ(FailureOf([&] { engine->CreateDatabase(link, {}); }).number, 58);
  EXPECT_FALSE(std::filesystem::exists(folder / "elsewhere.mdb"));
  // A link on the way to the file is the user's own affair.
  ASSERT_EQ(symlink(folder.path().c_str(), (folder / "way").c_str()), 0);
  engine->CreateDatabase(folder / "way/through.mdb", {})->CreateTable(TalpenaDef());
  EXPECT_TRUE(std::filesystem::exists(folder / "through.mdb"));
}

TEST_F(DatabaseTest, WhatIsNoFileIsNotWaitedFor) {
  const std::string pipe = folder / "pipe.mdb";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {pipe, std::string("/dev/zero"), std::string("/dev/null")}) {
    SCOPED_TRACE(path);
    const Failure failure = FailureOf([&] { engine->OpenDatabase(path, true); });
    EXPECT_EQ(failure.number, 3343);
    EXPECT_EQ(failure.description, "Unrecognized database format '" + path + "'.");
  }
}

// The file is held for the process: nobody else writes into it.
TEST_F(DatabaseTest, TheWorkingFileIsLocked) {
  CreeTalpena();
  const std::string path = folder / "talpena_tmp.mdb";
  const Failure failure = FailureOf([&] { engine->OpenDatabase(path, false)->TableNames(); });
  EXPECT_EQ(failure.number, 3045);
  EXPECT_EQ(failure.description, "Could not use the database; file already in use.");
}

// A process that was killed leaves its journal; the next working file must not take it over.
TEST_F(DatabaseTest, AStaleJournalIsNotPlayedBack) {
  const std::string path = folder / "left.mdb";
  CreeTalpena();
  AjouteLignes(5);
  database->BeginTrans();
  database->Execute("UPDATE TALPENA SET N1 = 9");
  std::filesystem::copy_file(folder / "talpena_tmp.mdb-journal", path + "-journal");
  const auto made = engine->CreateDatabase(path, {});
  made->CreateTable(TalpenaDef());
  made->Execute("INSERT INTO TALPENA (N1) VALUES (1)");
  EXPECT_EQ(Colonne(*made->OpenRecordset("TALPENA"), "N1"), (Strings{"1"}));
}

TEST_F(DatabaseTest, AClosedOneIsASingleFile) {
  CreeTalpena();
  AjouteLignes(3);
  database.reset();
  EXPECT_EQ(folder.Noms(), (Strings{"talpena_tmp.mdb"}));
}

TEST_F(DatabaseTest, TablesAreMadeOnce) {
  CreeTalpena();
  TableDef again = TalpenaDef();
  again.name = "talpena";
  const Failure failure = FailureOf([&] { database->CreateTable(again); });
  EXPECT_EQ(failure.number, 3010);
  EXPECT_EQ(failure.description, "Table 'talpena' already exists.");
  EXPECT_EQ(FailureOf([&] { database->Table("FOO"); }).number, 3078);
}

TEST_F(DatabaseTest, DefinitionsThatMakeNoSenseAreRefused) {
  const auto number = [&](const std::function<void(TableDef&)>& change) {
    TableDef table = Everything();
    change(table);
    return FailureOf([&] { database->CreateTable(table); }).number;
  };
  EXPECT_EQ(number([](TableDef& t) { t.name = ""; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.name = "a]b"; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.name = "sqlite_x"; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.name = "talpena_tables"; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.fields.clear(); }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.fields[1].name = "ID"; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.fields[1].name = "a\tb"; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.fields[2].size = 0; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.fields[2].size = 256; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.fields[4].autoIncrement = true; }), 3001);
  EXPECT_EQ(number([](TableDef& t) { t.indexes[0].fields = {"None"}; }), 3265);
  EXPECT_EQ(number([](TableDef& t) { t.fields.resize(300, t.fields[1]); }), 3190);
  EXPECT_EQ(database->TableNames(), Strings{});
  EXPECT_EQ(number([](TableDef& t) { t.name = "It's \"odd\""; }), 0);
  EXPECT_EQ(database->OpenRecordset("[It's \"odd\"]")->RecordCount(), 0);
}

TEST_F(DatabaseTest, AFieldMayBearTheNameOfTheHiddenKey) {
  TableDef table;
  table.name = "T";
  table.fields = {{"#", FieldType::Long}, {"rowid", FieldType::Long}, {"Order", FieldType::Long}};
  database->CreateTable(table);
  database->Execute("INSERT INTO T ([#], rowid, [Order]) VALUES (5, 6, 7)");
  const auto rows = database->OpenRecordset("SELECT * FROM T WHERE [#] = 5 ORDER BY [Order]");
  EXPECT_EQ(rows->Get("rowid").integer, 6);
  EXPECT_EQ(rows->Get("#").integer, 5);
  EXPECT_EQ(rows->GetBookmark(), 1);
}

TEST_F(DatabaseTest, AFullDiskIsAFailureWithANumber) {
  signal(SIGXFSZ, SIG_IGN);  // the limit stands for the disk
  CreeTalpena();
  AjouteLignes(3);
  class Endless final : public RowSource {
   public:
    bool Suivante(std::span<Cell> cells) override {
      cells[0] = Cell::Of(std::string_view(text_));
      return true;
    }

   private:
    const std::string text_ = std::string(4000, 'x');
  } endless;
  const std::string_view columns[] = {"COMMENT"};
  database->BeginTrans();
  Failure failure;
  {
    const test::FileLimit limit(8u << 20);
    failure = FailureOf([&] { database->InsertRows("TALPENA", columns, endless); });
  }
  EXPECT_TRUE(failure.number == 61 || failure.number == 57)
      << failure.number << failure.description;
  EXPECT_FALSE(failure.description.empty());
  if (database->EnTransaction()) database->Rollback();
  EXPECT_EQ(Colonne("TALPENA", "N1"), (Strings{"1", "2", "3"}));
  AjouteLignes(1);
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), 4);
}

}  // namespace
}  // namespace talpena::enginetest

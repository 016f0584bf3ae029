// A user's condition reads, and does nothing else.
#include <fstream>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

class SecurityTest : public EngineTest {
 protected:
  SecurityTest() {
    CreeTalpena();
    AjouteLignes(3);
  }
};

TEST_F(SecurityTest, NothingButAConditionIsTaken) {
  const std::string target = folder / "other.db";
  const std::vector<std::string> conditions = {"1; DROP TABLE TALPENA",
                                               "1; DELETE FROM TALPENA",
                                               "1; ATTACH '" + target + "' AS x",
                                               "1 UNION SELECT * FROM sqlite_master",
                                               "1 UNION ALL SELECT 1,2,3,4,5,6,7,8,9,10,11",
                                               "EXISTS (SELECT 1 FROM sqlite_master)",
                                               "N1 IN (SELECT N1 FROM TALPENA)",
                                               "(SELECT 1)",
                                               "load_extension('/tmp/x')",
                                               "readfile('/etc/passwd') > ''",
                                               "writefile('x', 'y')",
                                               "randomblob(1000000000)",
                                               "zeroblob(1000000000)",
                                               "printf('%.*c', 1000000000, 'x')",
                                               "fts3_tokenizer('x')",
                                               "sqlite_version() > ''",
                                               "pragma_user_version() = 0",
                                               "tlp_source(1) = 1",
                                               "1 /* */",
                                               "1 -- nothing",
                                               "N1 = ?",
                                               "N1 = :x",
                                               "N1 = @x",
                                               "N1 = $x",
                                               "N1 COLLATE BINARY = 1",
                                               "N1 GLOB '*'",
                                               "N1 REGEXP '.*'",
                                               "N1 MATCH 'x'",
                                               "CAST(N1 AS TEXT) = 1",
                                               "RAISE(ABORT, 'x')",
                                               "N1 || N1 = 11",
                                               "N1 == 1",
                                               "x'00' = N1",
                                               "`N1` = 1",
                                               "1 LIMIT 1",
                                               "sqlite_master.name = 'x'"};
  for (const std::string& condition : conditions) {
    const Failure opened =
        FailureOf([&] { database->OpenRecordset("SELECT * FROM TALPENA WHERE " + condition); });
    EXPECT_NE(opened.number, 0) << condition;
    EXPECT_NE(opened.number, 3000) << condition << ": " << opened.description;
    const auto rows = database->OpenRecordset("TALPENA");
    EXPECT_NE(FailureOf([&] { rows->FindFirst(condition); }).number, 0) << condition;
  }
  EXPECT_EQ(database->OpenRecordset("TALPENA")->RecordCount(), 3);
  EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(SecurityTest, TheInnerTablesAreNotThere) {
  for (const char* name : {"sqlite_master", "sqlite_schema", "sqlite_sequence", "talpena_tables",
                           "tlp_source", "pragma_database_list"}) {
    EXPECT_EQ(FailureOf([&] { database->OpenRecordset(name); }).number, 3078) << name;
    EXPECT_EQ(
        FailureOf([&] { database->OpenRecordset("SELECT * FROM " + std::string(name)); }).number,
        3078)
        << name;
    EXPECT_EQ(FailureOf([&] { database->Execute("DELETE FROM " + std::string(name)); }).number,
              3078)
        << name;
  }
}

// The second line: should the translation ever let something through, the library refuses it.
TEST(ConnectionAccess, RefusesWhatIsNotReading) {
  using sqlite::Access;
  sqlite::Connection connection("", sqlite::Connection::Mode::Private);
  connection.Execute("CREATE TABLE t (a INTEGER)");
  connection.Execute("CREATE INDEX ti ON t (a)");
  connection.Execute("CREATE TABLE s (a INTEGER PRIMARY KEY AUTOINCREMENT)");
  const auto refused = [&](const char* sql, Access access) {
    return FailureOf([&] { connection.Prepare(sql, access); }).number == ErrorNumber::ReadOnly;
  };
  connection.Prepare("SELECT a FROM t", Access::Read);
  connection.Prepare("DELETE FROM t", Access::Change);
  for (const Access access : {Access::Read, Access::Change}) {
    for (const char* sql :
         {"ATTACH 'x' AS y",
          "DETACH main",
          "PRAGMA user_version = 1",
          "PRAGMA journal_mode",
          "CREATE TABLE u (a)",
          "DROP TABLE t",
          "CREATE INDEX i ON t (a)",
          "ALTER TABLE t RENAME TO u",
          "SELECT * FROM sqlite_master",
          "SELECT * FROM sqlite_sequence",
          "REINDEX",
          "ANALYZE",
          "CREATE TEMP TABLE u (a)",
          "CREATE VIEW v AS SELECT 1",
          "CREATE TRIGGER r AFTER INSERT ON t BEGIN SELECT 1; END",
          "BEGIN",
          "COMMIT",
          "SAVEPOINT x",
          "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x FROM c) SELECT x FROM c",
          "DELETE FROM sqlite_sequence",
          "CREATE VIRTUAL TABLE f USING fts5(x)"}) {
      EXPECT_TRUE(refused(sql, access)) << sql;
    }
  }
  for (const char* sql : {"DELETE FROM t", "INSERT INTO t VALUES (1)", "UPDATE t SET a = 1"}) {
    EXPECT_TRUE(refused(sql, Access::Read)) << sql;
  }
  EXPECT_NE(FailureOf([&] { connection.Prepare("SELECT load_extension('x')").Avance(); }).number,
            0);
}

}  // namespace
}  // namespace talpena::enginetest

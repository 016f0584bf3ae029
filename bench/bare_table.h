// The table of a distribution in bare SQLite: the floor that the engine is measured against.
#pragma once
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace talpena::bench {

class BareTable {
 public:
  explicit BareTable(const std::string& path) {
    sqlite3_open(path.c_str(), &db_);
    for (const char* sql :
         {"PRAGMA synchronous = OFF", "PRAGMA secure_delete = OFF",
          "PRAGMA locking_mode = EXCLUSIVE", "PRAGMA journal_mode = PERSIST",
          "PRAGMA cache_size = -12000",
          "CREATE TABLE TALPENA (Counter INTEGER PRIMARY KEY AUTOINCREMENT, PERIOD INTEGER, "
          "LATITUDE REAL, LONGITUDE REAL, N1 INTEGER, N2 INTEGER, SEX TEXT, DATUM TEXT, "
          "ORIGINAL TEXT, DATE TEXT, COMMENT TEXT)",
          "CREATE INDEX PERIOD ON TALPENA (PERIOD)"}) {
      Execute(sql);
    }
  }
  ~BareTable() { sqlite3_close(db_); }
  BareTable(const BareTable&) = delete;
  BareTable& operator=(const BareTable&) = delete;

  void Execute(const char* sql) {
    if (sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
      std::fprintf(stderr, "%s: %s\n", sql, sqlite3_errmsg(db_));
      std::exit(1);
    }
  }

  sqlite3_stmt* Prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr) != SQLITE_OK) {
      std::fprintf(stderr, "%s: %s\n", sql, sqlite3_errmsg(db_));
      std::exit(1);
    }
    return statement;
  }

 private:
  sqlite3* db_ = nullptr;
};

}  // namespace talpena::bench

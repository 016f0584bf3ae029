// The rows of a distribution in a table of the library alone, and what benchmarks of written files
// share.
#pragma once
#include <sqlite3.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "common/text.h"
#include "platform/table_engine.h"
#include "store/table.h"

namespace talpena::bench {

inline double Secondes(const auto& body) {
  const auto start = std::chrono::steady_clock::now();
  body();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline void Exige(bool ok, const char* what) {
  if (ok) return;
  std::fprintf(stderr, "failed: %s\n", what);
  std::exit(1);
}

/// The floor's own table: the same rows and index, made with the library alone. Its texts are
/// those of the file, in code page 1252: the bare loop copies bytes.
inline sqlite3* CreeTablePlancher(const std::filesystem::path& path, Recordset& rows) {
  sqlite3* db = nullptr;
  Exige(sqlite3_open(path.c_str(), &db) == SQLITE_OK, "open");
  const auto execute = [db](const char* sql) {
    Exige(sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
  };
  execute("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE");
  execute(
      "CREATE TABLE TALPENA(Counter INTEGER PRIMARY KEY, PERIOD INTEGER, LATITUDE REAL, "
      "LONGITUDE REAL, N1 INTEGER, N2 INTEGER, SEX TEXT, DATUM TEXT, ORIGINAL TEXT, DATE TEXT, "
      "COMMENT TEXT); CREATE INDEX PERIOD ON TALPENA(PERIOD); BEGIN");
  sqlite3_stmt* insert = nullptr;
  Exige(sqlite3_prepare_v2(db, "INSERT INTO TALPENA VALUES(NULL,?,?,?,?,?,?,?,?,?,?)", -1, &insert,
                           nullptr) == SQLITE_OK,
        "prepare");
  for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext()) {
    for (int column = Column::PERIOD; column < Column::Count; ++column) {
      const Cell cell = rows.Get(column);
      if (cell.kind == Cell::Kind::Integer) sqlite3_bind_int64(insert, column, cell.integer);
      if (cell.kind == Cell::Kind::Real) sqlite3_bind_double(insert, column, cell.real);
      if (cell.kind == Cell::Kind::Null) sqlite3_bind_null(insert, column);
      if (cell.kind == Cell::Kind::Text) {
        const std::string bytes = Utf8VersCp1252AvecManques(cell.text);
        sqlite3_bind_text(insert, column, bytes.data(), static_cast<int>(bytes.size()),
                          SQLITE_TRANSIENT);
      }
    }
    Exige(sqlite3_step(insert) == SQLITE_DONE, "insert");
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  execute("COMMIT");
  return db;
}

inline std::string Lit(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// std::to_chars rounds exact halves to even: a last digit differs here and there.
inline bool PresqueEgal(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  std::size_t different = 0;
  for (std::size_t i = 0; i < a.size(); ++i) different += a[i] != b[i] ? 1U : 0U;
  return different < a.size() / 10000;
}

inline double PicMemoireMo() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace talpena::bench

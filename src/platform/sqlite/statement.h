// A prepared statement of SQLite that finalizes itself.
#pragma once
#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/value.h"

namespace talpena::sqlite {

class Connection;

/// Bound values are counted from 0 here, as columns are. Failures are thrown as TalpenaErrors.
class Statement {
 public:
  Statement() = default;
  Statement(Connection& connection, sqlite3_stmt* handle);

  explicit operator bool() const { return handle_ != nullptr; }

  void Lie(int parameter, std::int64_t value);
  /// The text of a cell must stay valid until the statement is reset.
  void Lie(int parameter, const Cell& cell, bool binary = false);
  void LiePointeur(int parameter, void* pointer, const char* type);

  bool Avance();  ///< true on a row, false at the end
  /// Runs a statement without rows to its end and resets it.
  void Execute();
  void Rembobine();  ///< resets; never throws

  Cell Cellule(int column) const;  ///< text valid until the statement moves
  std::int64_t Entier(int column) const { return sqlite3_column_int64(handle_.get(), column); }
  double Reel(int column) const { return sqlite3_column_double(handle_.get(), column); }
  std::string_view Texte(int column) const;
  bool EstNull(int column) const {
    return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL;
  }

 private:
  struct Finalise {
    void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
  };

  Connection* connection_ = nullptr;
  std::unique_ptr<sqlite3_stmt, Finalise> handle_;
};

}  // namespace talpena::sqlite

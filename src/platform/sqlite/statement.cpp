#include "platform/sqlite/statement.h"

#include "platform/sqlite/connection.h"

namespace talpena::sqlite {

Statement::Statement(Connection& connection, sqlite3_stmt* handle)
    : connection_(&connection), handle_(handle) {}

void Statement::Lie(int parameter, std::int64_t value) {
  sqlite3_bind_int64(handle_.get(), parameter + 1, value);
}

void Statement::Lie(int parameter, const Cell& cell, bool binary) {
  const int index = parameter + 1;
  switch (cell.kind) {
    case Cell::Kind::Null:
      sqlite3_bind_null(handle_.get(), index);
      return;
    case Cell::Kind::Integer:
      sqlite3_bind_int64(handle_.get(), index, cell.integer);
      return;
    case Cell::Kind::Real:
      sqlite3_bind_double(handle_.get(), index, cell.real);
      return;
    case Cell::Kind::Text:
      break;
  }
  const char* data = cell.text.empty() ? "" : cell.text.data();  // a null pointer would bind Null
  const int rc = binary ? sqlite3_bind_blob64(handle_.get(), index, data, cell.text.size(), nullptr)
                        : sqlite3_bind_text64(handle_.get(), index, data, cell.text.size(), nullptr,
                                              SQLITE_UTF8);
  if (rc != SQLITE_OK) connection_->Echoue(rc);
}

void Statement::LiePointeur(int parameter, void* pointer, const char* type) {
  sqlite3_bind_pointer(handle_.get(), parameter + 1, pointer, type, nullptr);
}

bool Statement::Avance() {
  const int rc = sqlite3_step(handle_.get());
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  const TalpenaError error = connection_->Erreur(rc);
  Rembobine();
  connection_->VerifieTransaction();
  throw error;
}

void Statement::Execute() {
  while (Avance()) {
  }
  Rembobine();
}

void Statement::Rembobine() {
  if (handle_) sqlite3_reset(handle_.get());
}

std::string_view Statement::Texte(int column) const {
  // Bytes are asked for after the text: the order that SQLite prescribes.
  const auto* data = static_cast<const char*>(sqlite3_column_blob(handle_.get(), column));
  const int size = sqlite3_column_bytes(handle_.get(), column);
  return data != nullptr ? std::string_view(data, static_cast<std::size_t>(size))
                         : std::string_view("");
}

// The value is asked for once: each call that names a column looks it up anew.
Cell Statement::Cellule(int column) const {
  sqlite3_value* const value = sqlite3_column_value(handle_.get(), column);
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return Cell::Of(std::int64_t{sqlite3_value_int64(value)});
    case SQLITE_FLOAT:
      return Cell::Of(sqlite3_value_double(value));
    case SQLITE_TEXT:
    case SQLITE_BLOB: {
      const auto* data = static_cast<const char*>(sqlite3_value_blob(value));
      const int size = sqlite3_value_bytes(value);
      return Cell::Of(data != nullptr ? std::string_view(data, static_cast<std::size_t>(size))
                                      : std::string_view(""));
    }
    default:
      return Cell::Null();
  }
}

}  // namespace talpena::sqlite

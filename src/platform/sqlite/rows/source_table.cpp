#include "platform/sqlite/rows/source_table.h"

#include <sqlite3.h>

#include <new>
#include <string>

#include "platform/sqlite/connection.h"

namespace talpena::sqlite {
namespace {

struct SourceCursor {
  sqlite3_vtab_cursor base;  // SQLite's part, first
  SourceRows* rows;
  std::span<const Cell> cells;
  sqlite3_int64 number;
  bool end;
};

SourceCursor* De(sqlite3_vtab_cursor* cursor) { return reinterpret_cast<SourceCursor*>(cursor); }

int Connecte(sqlite3* db, void*, int, const char* const*, sqlite3_vtab** table, char**) {
  std::string declaration = "CREATE TABLE x(";
  for (int i = 0; i < SourceColumns; ++i) declaration += "c" + std::to_string(i) + ",";
  declaration += "source HIDDEN)";
  const int rc = sqlite3_declare_vtab(db, declaration.c_str());
  if (rc != SQLITE_OK) return rc;
  sqlite3_vtab_config(db, SQLITE_VTAB_DIRECTONLY);
  *table = new (std::nothrow) sqlite3_vtab{};
  return *table == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int Deconnecte(sqlite3_vtab* table) {
  delete table;
  return SQLITE_OK;
}

int ChoisitPlan(sqlite3_vtab*, sqlite3_index_info* info) {
  for (int i = 0; i < info->nConstraint; ++i) {
    const auto& constraint = info->aConstraint[i];
    if (constraint.iColumn != SourceColumns || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ)
      continue;
    if (constraint.usable == 0) return SQLITE_CONSTRAINT;
    info->aConstraintUsage[i].argvIndex = 1;
    info->aConstraintUsage[i].omit = 1;
    info->estimatedCost = 1;
    return SQLITE_OK;
  }
  return SQLITE_CONSTRAINT;
}

int Ouvre(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
  auto* source = new (std::nothrow) SourceCursor{};
  if (source == nullptr) return SQLITE_NOMEM;
  *cursor = &source->base;
  return SQLITE_OK;
}

int Ferme(sqlite3_vtab_cursor* cursor) {
  delete De(cursor);
  return SQLITE_OK;
}

// A failure ends the rows rather than the statement: the rows before it stay.
int Avance(sqlite3_vtab_cursor* cursor) {
  SourceCursor* source = De(cursor);
  ++source->number;
  try {
    source->end = source->rows == nullptr || !source->rows->Suivante(source->cells);
  } catch (...) {
    source->rows->failure = std::current_exception();
    source->end = true;
  }
  return SQLITE_OK;
}

int Commence(sqlite3_vtab_cursor* cursor, int, const char*, int count, sqlite3_value** values) {
  SourceCursor* source = De(cursor);
  source->rows = count == 1
                     ? static_cast<SourceRows*>(sqlite3_value_pointer(values[0], SourcePointer))
                     : nullptr;
  source->number = -1;
  return Avance(cursor);
}

int EstFini(sqlite3_vtab_cursor* cursor) { return De(cursor)->end ? 1 : 0; }

int Colonne(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
  const auto index = static_cast<std::size_t>(column);
  const SourceCursor* source = De(cursor);
  if (index >= source->cells.size()) return SQLITE_OK;  // Null
  const Cell& cell = source->cells[index];
  switch (cell.kind) {
    case Cell::Kind::Null:
      break;
    case Cell::Kind::Integer:
      sqlite3_result_int64(context, cell.integer);
      break;
    case Cell::Kind::Real:
      sqlite3_result_double(context, cell.real);
      break;
    case Cell::Kind::Text:
      sqlite3_result_text64(context, cell.text.empty() ? "" : cell.text.data(), cell.text.size(),
                            SQLITE_STATIC, SQLITE_UTF8);
      break;
  }
  return SQLITE_OK;
}

int Numero(sqlite3_vtab_cursor* cursor, sqlite3_int64* number) {
  *number = De(cursor)->number;
  return SQLITE_OK;
}

sqlite3_module Module() {
  sqlite3_module module{};
  module.xConnect = Connecte;  // without xCreate: usable as a function only
  module.xDisconnect = Deconnecte;
  module.xBestIndex = ChoisitPlan;
  module.xOpen = Ouvre;
  module.xClose = Ferme;
  module.xFilter = Commence;
  module.xNext = Avance;
  module.xEof = EstFini;
  module.xColumn = Colonne;
  module.xRowid = Numero;
  return module;
}

const sqlite3_module sourceModule = Module();

}  // namespace

void EnregistreSource(Connection& connection) {
  const int rc =
      sqlite3_create_module_v2(connection.Poignee(), SourceTable, &sourceModule, nullptr, nullptr);
  if (rc != SQLITE_OK) connection.Echoue(rc);
}

}  // namespace talpena::sqlite

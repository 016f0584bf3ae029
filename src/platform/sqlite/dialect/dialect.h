// The engine's SQL dialect in terms of SQLite's. docs/table-engine.md describes it.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/table_state.h"

namespace talpena::sqlite {

/// Finds a table by its name; null when there is none.
using TableFinder = std::function<TableState*(std::string_view)>;

struct OrderTerm {
  int field = -1;  ///< of the table; -1 when it is an expression
  std::string sql;
  bool descending = false;
};

/// A whole condition that is one text column against one literal.
struct TextSearch {
  int field = -1;     ///< of the table
  bool like = false;  ///< LIKE, else `=`
  std::string text;   ///< the pattern, or what the column equals
};

/// What a SELECT asks for.
struct Selection {
  /// The one table whose rows are shown whole, with `condition` (empty for all rows) and
  /// `order`; null for any other SELECT: then `sql` gives its rows and `fields` their columns.
  TableState* table = nullptr;
  std::string condition;
  std::optional<TextSearch> search;  ///< what `condition` says, when it is no more than that
  std::vector<OrderTerm> order;
  std::string sql;
  std::vector<FieldDef> fields;
};

struct Change {
  enum class Kind : unsigned char { Delete, Update, Insert };
  Kind kind = Kind::Delete;
  TableState* table = nullptr;
  std::string sql;
  bool allRows = false;  ///< a DELETE without a condition
};

// All raise SyntaxError (3075), TooFewParameters (3061), TableNotFound (3078), an undefined
// function (3085), a query too complex (3360), text behind the end (3142).

Selection TraduitSelect(std::string_view statement, const TableFinder& tables);
/// A query that a file keeps: also several SELECTs with UNION between them. A statement made of
/// what a user typed is none: behind his condition nothing more can follow.
Selection TraduitRequete(std::string_view statement, const TableFinder& tables);
Change TraduitChangement(std::string_view statement, const TableFinder& tables);

/// A condition over one table, its columns by their names.
std::string TraduitCondition(std::string_view condition, TableState& table);
/// A condition over columns c0, c1, ... with these definitions.
std::string TraduitCondition(std::string_view condition, const std::vector<FieldDef>& fields);

/// True when a text is a SELECT rather than the name of a table.
bool EstSelect(std::string_view source);

}  // namespace talpena::sqlite

// DELETE, UPDATE, INSERT. Every value passes the checks of its column (tlp_store).
#include <algorithm>

#include "platform/sqlite/dialect/dialect_parser.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

// The text of a 32-bit float is that of its few digits, and of a date its day.
std::string Range(const TableState& table, int field, const Expression& value) {
  const bool text = StockageDe(table.Def(field).type) == Storage::Text;
  const bool special = value.kind == ValueKind::Single || value.kind == ValueKind::Date;
  return "tlp_store(" + (text && special ? EnTexte(value) : EnValeur(value).sql) + ", " +
         std::to_string(table.Numero()) + ", " + std::to_string(field) + ")";
}

}  // namespace

Change DialectParser::Changement() {
  if (Mot("DELETE")) return LitDelete();
  if (Mot("UPDATE")) return LitUpdate();
  if (Mot("INSERT")) return LitInsert();
  if (EstMot("SELECT")) {
    throw TalpenaError(ErrorNumber::SelectNotExecutable, "Cannot execute a select query.");
  }
  throw TalpenaError(ErrorNumber::InvalidStatement,
                     "Invalid SQL statement; expected 'DELETE', 'INSERT', 'SELECT', or 'UPDATE'.");
}

// DELETE FROM table [WHERE ...]
Change DialectParser::LitDelete() {
  ExigeMot("FROM");
  const std::string name = Nom();
  AjouteSource(name, name);
  sources_[0].prefix.clear();
  Change change;
  change.kind = Change::Kind::Delete;
  change.table = sources_[0].table;
  const std::string condition = LitCondition();
  ExigeFin();
  change.allRows = condition.empty();
  change.sql = "DELETE FROM " + change.table->NomSql();
  if (!condition.empty()) change.sql += " WHERE " + condition;
  return change;
}

Change DialectParser::LitUpdate() {
  const std::string name = Nom();
  AjouteSource(name, name);
  sources_[0].prefix.clear();
  const TableState& table = *sources_[0].table;
  ExigeMot("SET");
  std::string assignments;
  do {
    std::string column = Nom();
    if (Symbole(".") || Symbole("!")) column = Nom();
    const int field = Colonne({}, column).field;
    if (field == table.ChampCle()) throw ChampFige();
    ExigeSymbole("=");
    const Expression value = Lit();
    assignments += (assignments.empty() ? "" : ", ") + table.ChampSql(field) + " = " +
                   Range(table, field, value);
  } while (Symbole(","));
  Change change;
  change.kind = Change::Kind::Update;
  change.table = sources_[0].table;
  const std::string condition = LitCondition();
  ExigeFin();
  change.sql = "UPDATE " + table.NomSql() + " SET " + assignments;
  if (!condition.empty()) change.sql += " WHERE " + condition;
  return change;
}

// The columns in parentheses, or all of them.
std::vector<int> DialectParser::LitColonnes(const TableState& table) {
  std::vector<int> columns;
  if (!Symbole("(")) {
    for (std::size_t i = 0; i < table.Definition().fields.size(); ++i) {
      columns.push_back(static_cast<int>(i));
    }
    return columns;
  }
  do {
    const int field = Colonne({}, Nom()).field;
    if (std::find(columns.begin(), columns.end(), field) != columns.end()) Syntaxe();
    columns.push_back(field);
  } while (Symbole(","));
  ExigeSymbole(")");
  return columns;
}

// INSERT INTO table [(columns)] VALUES (...)
Change DialectParser::LitInsert() {
  ExigeMot("INTO");
  const std::string name = Nom();
  AjouteSource(name, name);
  Change change;
  change.kind = Change::Kind::Insert;
  change.table = sources_[0].table;
  const TableState& table = *change.table;
  const std::vector<int> columns = LitColonnes(table);
  for (std::size_t i = 0; i < table.Definition().fields.size(); ++i) {
    const FieldDef& def = table.Definition().fields[i];
    const bool given =
        std::find(columns.begin(), columns.end(), static_cast<int>(i)) != columns.end();
    if (def.required && !def.autoIncrement && !given) throw NullRefuse(table.Nom(), def.name);
  }
  sources_.clear();

  ExigeMot("VALUES");
  const std::vector<Expression> values = LitArguments();
  ExigeFin();
  if (values.size() != columns.size()) Syntaxe();
  std::string names;
  std::string stored;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    names += (i == 0 ? "" : ", ") + table.ChampSql(columns[i]);
    stored += (i == 0 ? "" : ", ") + Range(table, columns[i], values[i]);
  }
  change.sql = "INSERT INTO " + table.NomSql() + " (" + names + ") VALUES (" + stored + ")";
  return change;
}

}  // namespace talpena::sqlite

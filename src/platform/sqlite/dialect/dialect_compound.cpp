// A whole query: one SELECT, or several with UNION between them, and their order.
#include <algorithm>

#include "platform/sqlite/dialect/dialect_parser.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

std::string EcritOrdre(const std::vector<OrderTerm>& order) {
  std::string sql;
  for (const OrderTerm& term : order) {
    sql += (sql.empty() ? " ORDER BY " : ", ") + term.sql + (term.descending ? " DESC" : "");
  }
  return sql;
}

/// "k0, k1, ...": the columns of a SELECT that was written.
std::string Colonnes(std::size_t count) {
  std::string sql = "k0";
  for (std::size_t i = 1; i < count; ++i) sql += ", k" + std::to_string(i);
  return sql;
}

/// @param compared  its rows are compared with one another, or with those of another SELECT
std::string EcritPartie(const SelectPart& part, bool compared, const std::string& more = {}) {
  std::string sql = part.distinct ? "SELECT DISTINCT " : "SELECT ";
  for (std::size_t i = 0; i < part.items.size(); ++i) {
    const Expression& item = part.items[i];
    sql += (i == 0 ? "" : ", ") + (compared || part.distinct ? AvecOrdre(item) : item.sql) +
           " AS k" + std::to_string(i);
  }
  sql += more + " FROM " + part.from;
  if (!part.condition.empty()) sql += " WHERE " + part.condition;
  return sql + part.groups;
}

/// The first rows in an order, and those behind them that are equal to the last of them in it. A
/// part of a row counts as a row.
std::string EcritPremieres(const SelectPart& part, bool compared,
                           const std::vector<OrderTerm>& order) {
  std::string keys;
  std::vector<OrderTerm> byKeys;
  for (const OrderTerm& term : order) {
    OrderTerm key = term;
    key.sql = "o" + std::to_string(byKeys.size());
    keys += ", " + term.sql + " AS " + key.sql;
    byKeys.push_back(std::move(key));
  }
  const std::string count = std::to_string(*part.top);
  const std::string over =
      order.empty() ? "row_number() OVER ()" : "rank() OVER (" + EcritOrdre(byKeys).substr(1) + ")";
  return "SELECT " + Colonnes(part.items.size()) + " FROM (SELECT *, " + over +
         " AS place, count(*) OVER () AS total FROM (" + EcritPartie(part, compared, keys) +
         ")) WHERE place <= " + (part.percent ? "(total * " + count + " + 99) / 100" : count) +
         " ORDER BY place";
}

/// The type of a column whose rows come from two SELECTs.
void Accorde(FieldDef& field, const FieldDef& other) {
  if (field.type == other.type) {
    field.size = std::max(field.size, other.size);
    return;
  }
  const bool numbers = EstNombre(GenreDe(field.type)) && EstNombre(GenreDe(other.type));
  field.type = numbers ? FieldType::Double : FieldType::Memo;
  field.size = 0;
}

}  // namespace

Selection DialectParser::Select() {
  Selection selection = Simple(LitPartie());
  ExigeFin();
  return selection;
}

Selection DialectParser::Requete() {
  unionAllowed_ = true;
  SelectPart first = LitPartie();
  Selection selection = EstMot("UNION") ? Union(std::move(first)) : Simple(std::move(first));
  ExigeFin();
  return selection;
}

Selection DialectParser::Simple(SelectPart part) {
  Selection selection;
  selection.order = LitOrdre(part.items, part.fields, !part.groups.empty());
  if (part.whole && !part.distinct && !part.top && part.groups.empty()) {
    selection.table = sources_[0].table;
    selection.fields = selection.table->Definition().fields;
    selection.condition = std::move(part.condition);
    selection.search = std::move(part.search);
    return selection;
  }
  selection.fields = part.fields;
  selection.sql = part.top ? EcritPremieres(part, false, selection.order)
                           : EcritPartie(part, false) + EcritOrdre(selection.order);
  return selection;
}

// The columns bear the names of the first SELECT, and only by these, or by their places, can the
// rows be ordered. A UNION without ALL leaves out what is there already.
Selection DialectParser::Union(SelectPart first) {
  constexpr int mostParts = 50;
  const auto write = [](const SelectPart& part) {
    return part.top ? "SELECT * FROM (" + EcritPremieres(part, true, {}) + ")"
                    : EcritPartie(part, true);
  };
  Selection selection;
  selection.fields = first.fields;
  selection.sql = write(first);
  std::vector<Expression> columns(first.items.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    columns[i].sql = "k" + std::to_string(i);
    columns[i].kind = first.items[i].kind;
  }
  for (int parts = 1; Mot("UNION"); ++parts) {
    if (parts == mostParts) throw TropComplexe();
    selection.sql += Mot("ALL") ? " UNION ALL " : " UNION ";
    const SelectPart part = LitPartie();
    if (part.items.size() != columns.size()) Syntaxe();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      columns[i].kind = Commun(columns[i].kind, part.items[i].kind);
      Accorde(selection.fields[i], part.fields[i]);
    }
    selection.sql += write(part);
  }
  sources_.clear();
  selection.order = LitOrdre(columns, selection.fields, false);
  selection.sql += EcritOrdre(selection.order);
  return selection;
}

}  // namespace talpena::sqlite

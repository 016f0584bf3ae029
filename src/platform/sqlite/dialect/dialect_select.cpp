// SELECT.
#include <algorithm>
#include <cmath>

#include "platform/sqlite/dialect/dialect_parser.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

bool EstMotDeSuite(const Token& token) {
  static constexpr std::string_view words[] = {"WHERE", "GROUP",  "HAVING", "ORDER", "INNER",
                                               "LEFT",  "RIGHT",  "JOIN",   "ON",    "UNION",
                                               "SET",   "VALUES", "SELECT", "FROM",  "AS"};
  if (token.kind != Token::Kind::Word) return false;
  for (const std::string_view word : words) {
    if (token.text == word) return true;
  }
  return false;
}

}  // namespace

TableState* DialectParser::TrouveTable(const std::string& name) const {
  TableState* table = tables_(name);
  if (table == nullptr) throw TableIntrouvable(name);
  return table;
}

// The list of columns stands before the tables that its names belong to: FROM is read first.
SelectPart DialectParser::LitPartie() {
  SelectPart part;
  sources_.clear();
  ExigeMot("SELECT");
  part.distinct = Mot("DISTINCT");
  if (!part.distinct && !Mot("ALL")) Mot("DISTINCTROW");
  LitTop(part);
  const std::size_t list = at_;
  AvanceJusquaFrom();
  const std::size_t fromPlace = at_++;
  LitFrom(part.from);
  const std::size_t rest = at_;

  at_ = list;
  const bool whole = sources_.size() == 1 && EstToutesColonnes();
  LitListe(part);
  if (at_ != fromPlace) Syntaxe();
  at_ = rest;
  part.whole = whole && part.items.size() == sources_[0].fields->size();

  part.condition = LitCondition(&part.search);
  part.groups = LitGroupes();
  return part;
}

// TOP 10, TOP 5 PERCENT. A column may bear the name as well.
void DialectParser::LitTop(SelectPart& part) {
  if (!EstMot("TOP") || Apres().kind != Token::Kind::Number) return;
  Passe();
  const double count = Ici().number;
  if (!(count >= 0 && count <= 2147483647 && count == std::floor(count))) Syntaxe();
  Passe();
  part.top = static_cast<std::int64_t>(count);
  part.percent = Mot("PERCENT");
  if (part.percent && count > 100) Syntaxe();
}

void DialectParser::AvanceJusquaFrom() {
  int depth = 0;
  while (depth > 0 || !EstMot("FROM")) {
    if (Ici().kind == Token::Kind::End || Ici().kind == Token::Kind::Error) Syntaxe();
    if (EstSymbole("(")) ++depth;
    if (EstSymbole(")")) --depth;
    if (depth < 0) Syntaxe();
    ++at_;
  }
}

// "*" or "table.*".
bool DialectParser::EstToutesColonnes() const {
  if (EstSymbole("*")) return true;
  const auto isSymbol = [this](std::size_t place, std::string_view symbol) {
    return place < tokens_.size() && tokens_[place].kind == Token::Kind::Symbol &&
           tokens_[place].text == symbol;
  };
  return isSymbol(at_ + 1, ".") && isSymbol(at_ + 2, "*");
}

void DialectParser::LitFrom(std::string& from) {
  do {
    if (!from.empty()) from += ", ";
    LitJointures(from);
  } while (Symbole(","));
  // One table needs no prefix before its columns.
  if (sources_.size() == 1) sources_[0].prefix.clear();
}

void DialectParser::LitJointures(std::string& from) {
  if (++depth_ > 50) throw TropComplexe();
  LitTable(from);
  for (;;) {
    std::string kind;
    if (Mot("LEFT")) {
      Mot("OUTER");
      kind = " LEFT JOIN ";
    } else if (Mot("RIGHT")) {
      Mot("OUTER");
      kind = " RIGHT JOIN ";
    } else if (EstMot("INNER") || EstMot("JOIN")) {
      Mot("INNER");
      kind = " JOIN ";
    } else {
      break;
    }
    ExigeMot("JOIN");
    from += kind;
    LitTable(from);
    ExigeMot("ON");
    expressionStart_ = Ici().start;
    from += " ON " + EnConditionSql(Lit());
    expressionStart_ = 0;
  }
  --depth_;
}

void DialectParser::LitTable(std::string& from) {
  if (Symbole("(")) {
    from += "(";
    LitJointures(from);
    ExigeSymbole(")");
    from += ")";
    return;
  }
  if (EstMotDeSuite(Ici())) Syntaxe();
  const std::string name = Nom();
  std::string alias = name;
  if (Mot("AS") || Ici().kind == Token::Kind::Name ||
      (Ici().kind == Token::Kind::Word && !EstMotDeSuite(Ici()))) {
    alias = Nom();
  }
  AjouteSource(name, alias);
  from += sources_.back().table->NomSql() + " AS " + EntreGuillemets(alias);
}

void DialectParser::AjouteSource(const std::string& name, const std::string& alias) {
  if (sources_.size() >= 32) throw TropComplexe();
  for (const Source& other : sources_) {
    if (MemeNom(other.alias, alias)) Syntaxe();
  }
  Source source;
  source.alias = alias;
  source.table = TrouveTable(name);
  source.fields = &source.table->Definition().fields;
  source.prefix = EntreGuillemets(alias) + ".";
  sources_.push_back(std::move(source));
}

void DialectParser::LitListe(SelectPart& part) {
  std::vector<Expression>& items = part.items;
  std::vector<FieldDef>& fields = part.fields;
  clause_ = "SELECT";
  aggregatesAllowed_ = true;
  list_ = &part;
  do {
    if (Symbole("*")) {
      AjouteToutes({}, items, fields);
      continue;
    }
    const std::size_t place = at_;
    if (Ici().kind == Token::Kind::Word || Ici().kind == Token::Kind::Name) {
      const std::string qualifier = Nom();
      if (Symbole(".") && Symbole("*")) {
        AjouteToutes(qualifier, items, fields);
        continue;
      }
      at_ = place;
    }
    expressionStart_ = Ici().start;
    Expression e = EnValeur(Lit());
    expressionStart_ = 0;
    std::string name = e.column != nullptr && !e.aggregate
                           ? e.column->name
                           : "Expr" + std::to_string(1000 + items.size());
    if (Mot("AS")) name = Nom();
    fields.push_back(ChampDe(e, name));
    items.push_back(std::move(e));
  } while (Symbole(","));
  list_ = nullptr;
  aggregatesAllowed_ = false;
  if (items.size() > 255) {
    throw TalpenaError(ErrorNumber::TooManyFields, "Too many fields defined.");
  }
}

void DialectParser::AjouteToutes(const std::string& qualifier, std::vector<Expression>& items,
                                 std::vector<FieldDef>& fields) {
  bool found = false;
  for (const Source& source : sources_) {
    if (!qualifier.empty() && !MemeNom(source.alias, qualifier)) continue;
    found = true;
    for (const FieldDef& field : *source.fields) {
      Expression e = Colonne(source.alias, field.name);
      fields.push_back(ChampDe(e, field.name));
      items.push_back(std::move(e));
    }
  }
  if (!found) throw TableIntrouvable(qualifier);
}

std::string DialectParser::LitCondition(std::optional<TextSearch>* search) {
  if (!Mot("WHERE")) return {};
  clause_ = "WHERE";
  expressionStart_ = Ici().start;
  const std::size_t first = at_;
  Expression condition = Lit();
  // A column, an operator and a literal are the whole of it.
  // Held by KeptTableTest.ALaterSearchGivesTheSameRows.
  constexpr std::size_t fewestTokens = 3;
  if (search != nullptr && at_ - first == fewestTokens) *search = condition.search;
  std::string sql = EnConditionSql(std::move(condition));
  // What cannot follow a condition is part of the user's mistake in it.
  const bool goesOn =
      EstMot("GROUP") || EstMot("HAVING") || EstMot("ORDER") || (unionAllowed_ && EstMot("UNION"));
  if (!goesOn && !EstSymbole(";") && Ici().kind != Token::Kind::End) Syntaxe();
  expressionStart_ = 0;
  return sql;
}

std::string DialectParser::LitGroupes() {
  std::string sql;
  aggregatesAllowed_ = false;
  if (Mot("GROUP")) {
    ExigeMot("BY");
    clause_ = "GROUP BY";
    do {
      const Expression e = EnValeur(Lit());
      if (e.number) Syntaxe();  // to SQLite it would be a column's place
      sql += (sql.empty() ? " GROUP BY " : ", ") + AvecOrdre(e);
    } while (Symbole(","));
  }
  if (Mot("HAVING")) {
    if (sql.empty()) Syntaxe();
    aggregatesAllowed_ = true;
    sql += " HAVING " + EnConditionSql(Lit());
    aggregatesAllowed_ = false;
  }
  return sql;
}

// A name means the column of the list that bears it before one of the tables, a whole number the
// column at that place of the list.
OrderTerm DialectParser::LitTerme(const std::vector<Expression>& items,
                                  const std::vector<FieldDef>& fields) {
  const std::size_t place = at_;
  if (Ici().kind == Token::Kind::Word || Ici().kind == Token::Kind::Name) {
    const std::string name = Nom();
    const bool ends = EstSymbole(",") || EstSymbole(";") || EstMot("ASC") || EstMot("DESC") ||
                      Ici().kind == Token::Kind::End;
    for (std::size_t i = 0; ends && i < fields.size(); ++i) {
      if (MemeNom(fields[i].name, name)) return Terme(items[i]);
    }
    at_ = place;
  }
  const Expression e = EnValeur(Lit());
  if (!e.number) return Terme(e);
  const double index = *e.number - 1;
  if (!(index >= 0 && index < static_cast<double>(items.size()))) Syntaxe();
  return Terme(items[static_cast<std::size_t>(index)]);
}

OrderTerm DialectParser::Terme(const Expression& e) {
  OrderTerm term;
  term.field = e.column != nullptr && !e.aggregate ? e.field : -1;
  // A number as it stands would be the place of a column to SQLite; as a value it orders nothing.
  term.sql = e.number ? "NULL" : AvecOrdre(e);
  return term;
}

std::vector<OrderTerm> DialectParser::LitOrdre(const std::vector<Expression>& items,
                                               const std::vector<FieldDef>& fields, bool grouped) {
  std::vector<OrderTerm> order;
  if (!Mot("ORDER")) return order;
  ExigeMot("BY");
  clause_ = "ORDER BY";
  aggregatesAllowed_ = grouped || std::any_of(items.begin(), items.end(),
                                              [](const Expression& e) { return e.aggregate; });
  do {
    OrderTerm term = LitTerme(items, fields);
    term.descending = Mot("DESC");
    if (!term.descending) Mot("ASC");
    order.push_back(std::move(term));
  } while (Symbole(","));
  aggregatesAllowed_ = false;
  return order;
}

}  // namespace talpena::sqlite

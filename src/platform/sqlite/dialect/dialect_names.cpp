// Names in expressions: columns, functions, words that stand for a value.
#include <algorithm>
#include <array>
#include <utility>

#include "platform/sqlite/dialect/dialect_parser.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

// Words that begin something else, so that no column bears them without brackets.
bool EstReserve(std::string_view word) {
  static constexpr std::array<std::string_view, 27> words = {
      "SELECT", "FROM", "WHERE", "GROUP", "HAVING", "ORDER",  "UNION",   "AND", "OR",
      "NOT",    "XOR",  "EQV",   "IMP",   "MOD",    "LIKE",   "BETWEEN", "IN",  "IS",
      "AS",     "ON",   "INNER", "JOIN",  "SET",    "VALUES", "INTO",    "ASC", "DESC"};
  for (const std::string_view reserved : words) {
    if (reserved == word) return true;
  }
  return false;
}

}  // namespace

Expression DialectParser::LitColonneOuFonction() {
  if (Ici().kind == Token::Kind::Word) {
    if (const auto constant = LitConstante()) return LitteralNombre(*constant);
    if (Mot("NULL")) {
      Expression e;
      e.sql = "NULL";
      e.kind = ValueKind::Null;
      return e;
    }
    if (Apres().kind == Token::Kind::Symbol && Apres().text == "(") {
      const std::string name = Nom();
      return LitFonction(name);
    }
    if (EstReserve(Ici().text)) Syntaxe();
  }
  std::string name = Nom();
  if (!EstSymbole(".") && !EstSymbole("!")) return Colonne({}, name);
  Passe();
  const std::string qualifier = std::move(name);
  name = Nom();
  return Colonne(qualifier, name);
}

// True, Yes and On, and what is their opposite. A column that bears such a name goes before it.
std::optional<double> DialectParser::LitConstante() {
  static constexpr std::array<std::pair<std::string_view, double>, 6> constants = {
      {{"TRUE", -1}, {"FALSE", 0}, {"YES", -1}, {"NO", 0}, {"ON", -1}, {"OFF", 0}}};
  for (const auto& [word, value] : constants) {
    if (!EstMot(word)) continue;
    const bool qualifies = Apres().kind == Token::Kind::Symbol &&
                           (Apres().text == "." || Apres().text == "!" || Apres().text == "(");
    const bool fixed = word == "TRUE" || word == "FALSE" || word == "ON";
    if (qualifies || (!fixed && EstColonne(word))) return {};
    Passe();
    return value;
  }
  return {};
}

bool DialectParser::EstColonne(std::string_view name) const {
  return std::any_of(sources_.begin(), sources_.end(), [&](const Source& source) {
    return std::any_of(source.fields->begin(), source.fields->end(),
                       [&](const FieldDef& field) { return MemeNom(field.name, name); });
  });
}

// An expression further to the front of the list that is being read, by the name it was given. It
// stands for itself, so that names made of names must not grow without end.
const Expression* DialectParser::Nommee(std::string_view name) const {
  constexpr std::size_t longest = 1000;  // bytes
  if (list_ == nullptr) return nullptr;
  for (std::size_t i = 0; i < list_->fields.size(); ++i) {
    if (!MemeNom(list_->fields[i].name, name)) continue;
    if (list_->items[i].sql.size() > longest) throw TropComplexe();
    return &list_->items[i];
  }
  return nullptr;
}

Expression DialectParser::Colonne(const std::string& qualifier, const std::string& name) const {
  Expression result;
  for (const Source& source : sources_) {
    if (!qualifier.empty() && !source.numbered && !MemeNom(source.alias, qualifier)) continue;
    for (std::size_t i = 0; i < source.fields->size(); ++i) {
      const FieldDef& field = (*source.fields)[i];
      if (!MemeNom(field.name, name)) continue;
      if (result.column != nullptr && !source.numbered) {
        throw TalpenaError(ErrorNumber::AmbiguousField,
                           "The specified field '" + name +
                               "' could refer to more than one table listed in the FROM "
                               "clause of your SQL statement.",
                           {.about = {name}});
      }
      if (result.column != nullptr) continue;
      result.column = &field;
      result.field = static_cast<int>(i);
      result.sql = source.ColonneSql(result.field);
    }
  }
  if (result.column == nullptr) {
    if (const Expression* named = qualifier.empty() ? Nommee(name) : nullptr) return *named;
    SiIllisible();
    throw TalpenaError(ErrorNumber::TooFewParameters,
                       "Too few parameters. Expected 1: there is no field '" + name + "'.",
                       {.about = {name}});
  }
  result.kind = GenreDe(result.column->type);
  return result;
}

}  // namespace talpena::sqlite

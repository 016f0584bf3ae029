#include "platform/sqlite/dialect/dialect_parser.h"

#include "common/text.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

constexpr std::size_t LongestStatement = 65536;  // bytes
constexpr std::size_t LongestQuotation = 300;    // characters of the user's text in a message

}  // namespace

std::string Source::ColonneSql(int field) const {
  if (numbered) return "c" + std::to_string(field);
  return prefix + EntreGuillemets((*fields)[static_cast<std::size_t>(field)].name);
}

DialectParser::DialectParser(std::string_view statement, TableFinder tables)
    : statement_(statement), tables_(std::move(tables)) {
  if (statement.size() > LongestStatement) throw TropComplexe();
  tokens_ = Decompose(statement);
}

bool DialectParser::EstMot(std::string_view word) const {
  return Ici().kind == Token::Kind::Word && Ici().text == word;
}

bool DialectParser::EstSymbole(std::string_view symbol) const {
  return Ici().kind == Token::Kind::Symbol && Ici().text == symbol;
}

bool DialectParser::Mot(std::string_view word) {
  if (!EstMot(word)) return false;
  Passe();
  return true;
}

bool DialectParser::Symbole(std::string_view symbol) {
  if (!EstSymbole(symbol)) return false;
  Passe();
  return true;
}

void DialectParser::ExigeMot(std::string_view word) {
  if (!Mot(word)) Syntaxe();
}

void DialectParser::ExigeSymbole(std::string_view symbol) {
  if (!Symbole(symbol)) Syntaxe();
}

// The name as it was typed: words are kept in upper case.
std::string DialectParser::Nom() {
  const Token token = Ici();
  if (token.kind == Token::Kind::Name) {
    Passe();
    return token.text;
  }
  if (token.kind != Token::Kind::Word) Syntaxe();
  Passe();
  return std::string(statement_.substr(token.start, token.end - token.start));
}

void DialectParser::ExigeFin() {
  const bool closed = Symbole(";");
  if (Ici().kind == Token::Kind::End) return;
  if (closed) {
    throw TalpenaError(ErrorNumber::TextAfterEnd, "Characters found after end of SQL statement.");
  }
  Syntaxe();
}

void DialectParser::Syntaxe() const {
  std::string_view typed = Rogne(statement_.substr(expressionStart_));
  std::string quoted(PremiersCaracteres(typed, LongestQuotation));
  if (quoted.size() < typed.size()) quoted += "...";
  throw TalpenaError(ErrorNumber::SyntaxError,
                     "Syntax error (missing operator) in query expression '" + quoted + "'.",
                     {.about = {quoted}});
}

void DialectParser::SiIllisible() const {
  if (tokens_.back().kind == Token::Kind::Error) Syntaxe();
}

Selection TraduitSelect(std::string_view statement, const TableFinder& tables) {
  return DialectParser(statement, tables).Select();
}

Selection TraduitRequete(std::string_view statement, const TableFinder& tables) {
  return DialectParser(statement, tables).Requete();
}

Change TraduitChangement(std::string_view statement, const TableFinder& tables) {
  return DialectParser(statement, tables).Changement();
}

std::string TraduitCondition(std::string_view condition, TableState& table) {
  Source source;
  source.alias = table.Nom();
  source.table = &table;
  source.fields = &table.Definition().fields;
  return DialectParser(condition, {}).Condition(std::move(source));
}

std::string TraduitCondition(std::string_view condition, const std::vector<FieldDef>& fields) {
  Source source;
  source.fields = &fields;
  source.numbered = true;
  return DialectParser(condition, {}).Condition(std::move(source));
}

bool EstSelect(std::string_view source) {
  const std::string_view start = source.substr(0, source.size() < 64 ? source.size() : 64);
  std::size_t at = start.find_first_not_of(" \t\r\n");
  if (at == std::string_view::npos || !EgalSansCasse(start.substr(at, 6), "SELECT")) return false;
  at += 6;
  return at >= start.size() ||
         std::string_view(" \t\r\n*[('\"").find(start[at]) != std::string_view::npos;
}

}  // namespace talpena::sqlite

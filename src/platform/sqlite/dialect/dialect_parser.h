// Recursive descent over a statement: reads the dialect, writes SQLite's SQL.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/dialect/dialect.h"
#include "platform/sqlite/dialect/dialect_lexer.h"

namespace talpena::sqlite {

/// What an expression yields, as far as its text tells.
enum class ValueKind : std::uint8_t {
  Null,
  Logical /* 0 or 1 to SQLite, -1 to the user */,
  Number,
  Single,
  Date,
  Text,
  Binary,
  Variant
};

/// The outermost operator of an expression's SQL, where it stands without parentheses.
enum class Outer : std::uint8_t { Atom, Or, And, Sum, Concat };

struct Expression {
  std::string sql;
  ValueKind kind = ValueKind::Variant;
  Outer outer = Outer::Atom;
  std::optional<double> number;      ///< of a literal
  std::optional<std::string> text;   ///< of a literal
  std::optional<TextSearch> search;  ///< what `sql` says, as it came out of Recherche
  const FieldDef* column = nullptr;  ///< when it is a plain column
  int field = -1;                    ///< its place in its table
  bool aggregate = false;            ///< calls an aggregate function
};

/// A table of the FROM clause.
struct Source {
  std::string alias;
  TableState* table = nullptr;
  const std::vector<FieldDef>* fields = nullptr;
  std::string prefix;     ///< before each column: "" or "\"alias\"."
  bool numbered = false;  ///< columns are c0, c1, ...

  std::string ColonneSql(int field) const;
};

/// One SELECT, read as far as its groups.
struct SelectPart {
  std::vector<Expression> items;
  std::vector<FieldDef> fields;
  std::string from;
  std::string condition;
  std::optional<TextSearch> search;  ///< the same as Selection has it
  std::string groups;
  bool distinct = false;
  bool whole = false;               ///< all columns of one table, in their order
  std::optional<std::int64_t> top;  ///< so many of the first rows
  bool percent = false;             ///< or such a part of them
};

class DialectParser {
 public:
  DialectParser(std::string_view statement, TableFinder tables);

  Selection Select();
  Selection Requete();
  Change Changement();
  std::string Condition(Source source);

 private:
  // Tokens.
  const Token& Ici() const { return tokens_[at_]; }
  const Token& Apres() const { return tokens_[at_ + 1 < tokens_.size() ? at_ + 1 : at_]; }
  void Passe() {
    if (at_ + 1 < tokens_.size()) ++at_;
  }
  bool EstMot(std::string_view word) const;
  bool EstSymbole(std::string_view symbol) const;
  bool Mot(std::string_view word);        ///< takes it when it is there
  bool Symbole(std::string_view symbol);  ///< the same
  void ExigeMot(std::string_view word);
  void ExigeSymbole(std::string_view symbol);
  std::string Nom();  ///< a name, in brackets or not
  void ExigeFin();
  [[noreturn]] void Syntaxe() const;
  /// A mistake that is about to be named may come of a quote that was never closed.
  void SiIllisible() const;

  // dialect_expression.cpp
  Expression Lit(int minimum = 0);
  Expression LitPrefixe();
  Expression LitPrimaire();
  bool LitSuite(Expression& left, int minimum);
  bool LitComparaison(Expression& left);
  Expression LitMotif(Expression left, bool negated);
  std::optional<TextSearch> Recherche(const Expression& column, const Expression& text,
                                      bool like) const;
  Expression LitAppartenance(Expression left, bool negated);
  Expression LitEncadrement(Expression left, bool negated);

  // dialect_names.cpp
  Expression LitColonneOuFonction();
  std::optional<double> LitConstante();
  bool EstColonne(std::string_view name) const;
  const Expression* Nommee(std::string_view name) const;
  Expression Colonne(const std::string& qualifier, const std::string& name) const;

  // dialect_functions.cpp
  Expression LitFonction(const std::string& name);
  Expression LitAgregat(std::string_view sqlName);
  std::vector<Expression> LitArguments();
  Expression LitNz(const std::vector<Expression>& args);
  Expression LitFormat(const std::vector<Expression>& args);
  Expression LitSi();
  Expression LitSuiteDeCas();
  Expression LitChoix();

  // dialect_select.cpp
  SelectPart LitPartie();
  void LitTop(SelectPart& part);
  void AvanceJusquaFrom();
  bool EstToutesColonnes() const;
  void LitFrom(std::string& from);
  void LitJointures(std::string& from);
  void LitTable(std::string& from);
  void AjouteSource(const std::string& name, const std::string& alias);
  void LitListe(SelectPart& part);
  void AjouteToutes(const std::string& qualifier, std::vector<Expression>& items,
                    std::vector<FieldDef>& fields);
  std::string LitCondition(std::optional<TextSearch>* search = nullptr);
  std::vector<OrderTerm> LitOrdre(const std::vector<Expression>& items,
                                  const std::vector<FieldDef>& fields, bool grouped);
  OrderTerm LitTerme(const std::vector<Expression>& items, const std::vector<FieldDef>& fields);
  static OrderTerm Terme(const Expression& e);
  std::string LitGroupes();
  TableState* TrouveTable(const std::string& name) const;

  // dialect_compound.cpp
  Selection Simple(SelectPart part);
  Selection Union(SelectPart first);

  // dialect_change.cpp
  Change LitDelete();
  Change LitUpdate();
  Change LitInsert();
  std::vector<int> LitColonnes(const TableState& table);

  class Profondeur;

  std::string_view statement_;
  TableFinder tables_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  std::size_t expressionStart_ = 0;  ///< for messages: where the user's expression begins
  int depth_ = 0;
  bool aggregatesAllowed_ = false;
  bool unionAllowed_ = false;
  const SelectPart* list_ = nullptr;  ///< whose list is being read
  std::string clause_ = "WHERE";      ///< being read, for messages
  std::vector<Source> sources_;
};

// dialect_values.cpp: expressions as what is asked for, and compared.
Expression LitteralNombre(double value);
Expression EnValeur(Expression e);         ///< logical values become -1 and 0
std::string EnConditionSql(Expression e);  ///< 0, 1 or Null
std::string EnNombre(Expression e);
std::string EnTexte(Expression e);
std::string EnTexteSansNull(Expression e);
Expression Compare(Expression a, std::string_view op, Expression b);
/// The other side of a comparison with `a`: a literal rounded to 32 bits, a date as text, and
/// so on. Empty when the two can never be equal.
std::optional<std::string> EnFaceDe(const Expression& a, Expression b);
ValueKind Commun(ValueKind a, ValueKind b);
FieldDef ChampDe(const Expression& e, const std::string& name);
std::string AvecOrdre(const Expression& e);  ///< texts with the engine's comparison
bool EstNombre(ValueKind kind);
ValueKind GenreDe(FieldType type);

}  // namespace talpena::sqlite

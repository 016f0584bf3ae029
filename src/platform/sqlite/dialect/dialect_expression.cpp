// Expressions: operators by their precedence, literals, names.
#include <array>

#include "platform/sqlite/collation.h"
#include "platform/sqlite/dialect/dialect_parser.h"
#include "platform/sqlite/dialect/like_pattern.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

constexpr int DeepestNesting = 200;

// From the loosest to the tightest.
enum Precedence : int {
  Imp = 1,
  Eqv,
  Xor,
  Or,
  And,
  Not,
  Comparison,
  Concat,
  Sum,
  Mod,
  IntDiv,
  Product,
  Sign,
  Power
};

struct Operator {
  std::string_view text;
  int precedence;
};

constexpr Operator wordOperators[] = {{"IMP", Imp}, {"EQV", Eqv}, {"XOR", Xor},
                                      {"OR", Or},   {"AND", And}, {"MOD", Mod}};
constexpr Operator symbolOperators[] = {{"=", Comparison}, {"<>", Comparison}, {"<", Comparison},
                                        {">", Comparison}, {"<=", Comparison}, {">=", Comparison},
                                        {"&", Concat},     {"+", Sum},         {"-", Sum},
                                        {"\\", IntDiv},    {"*", Product},     {"/", Product},
                                        {"^", Power}};

const Operator* OperateurDe(const Token& token) {
  if (token.kind == Token::Kind::Word) {
    for (const Operator& op : wordOperators) {
      if (op.text == token.text) return &op;
    }
  } else if (token.kind == Token::Kind::Symbol) {
    for (const Operator& op : symbolOperators) {
      if (op.text == token.text) return &op;
    }
  }
  return nullptr;
}

/// A chain of one operator, without parentheses round its left part: a long list of conditions
/// must not nest.
Expression Chaine(std::string left, Outer outer, std::string_view op, std::string_view right,
                  ValueKind kind) {
  Expression result;
  result.sql = std::move(left);
  result.sql += op;
  result.sql += right;
  result.kind = kind;
  result.outer = outer;
  return result;
}

std::string EnParentheses(std::string sql, bool needed) {
  return needed ? "(" + std::move(sql) + ")" : sql;
}

Expression Logique(Expression left, int precedence, const Expression& right) {
  const Outer outer = precedence == And ? Outer::And : Outer::Or;
  const bool keepLeft = left.kind == ValueKind::Logical &&
                        (left.outer == outer || (outer == Outer::Or && left.outer == Outer::And));
  const bool wrapLeft = !keepLeft && left.outer != Outer::Atom;
  left.sql = EnParentheses(EnConditionSql(left), wrapLeft && left.kind == ValueKind::Logical);
  const bool wrapRight = right.kind == ValueKind::Logical && right.outer != Outer::Atom;
  const std::string rightSql = EnParentheses(EnConditionSql(right), wrapRight);
  const auto atom = [&](std::string sql) {
    Expression result;
    result.sql = std::move(sql);
    result.kind = ValueKind::Logical;
    return result;
  };
  const auto group = [](const Expression& e) { return "(" + e.sql + ")"; };
  switch (precedence) {
    case And:
    case Or:
      return Chaine(std::move(left.sql), outer, precedence == And ? " AND " : " OR ", rightSql,
                    ValueKind::Logical);
    case Xor:
      return atom("(" + group(left) + " <> (" + rightSql + "))");
    case Eqv:
      return atom("(" + group(left) + " = (" + rightSql + "))");
    default:  // Imp
      return atom("((NOT " + group(left) + ") OR (" + rightSql + "))");
  }
}

Expression Somme(Expression left, std::string_view op, Expression right) {
  const bool texts = left.kind == ValueKind::Text && right.kind == ValueKind::Text;
  if (op == "+" && texts) {  // unlike "&", Null if one of them is
    Expression result;
    result.kind = ValueKind::Text;
    result.sql = "(" + EnTexte(std::move(left)) + " || " + EnTexte(std::move(right)) + ")";
    return result;
  }
  std::string sum = left.outer == Outer::Sum ? std::move(left.sql) : EnNombre(std::move(left));
  return Chaine(std::move(sum), Outer::Sum, op == "+" ? " + " : " - ", EnNombre(std::move(right)),
                ValueKind::Number);
}

Expression Calcul(Expression left, int precedence, std::string_view op, Expression right) {
  if (precedence == Sum) return Somme(std::move(left), op, std::move(right));
  if (precedence == Concat) {
    // A chain of "&" holds no Null any more.
    std::string chain =
        left.outer == Outer::Concat ? std::move(left.sql) : EnTexteSansNull(std::move(left));
    return Chaine(std::move(chain), Outer::Concat, " || ", EnTexteSansNull(std::move(right)),
                  ValueKind::Text);
  }
  Expression result;
  result.kind = ValueKind::Number;
  const std::string a = EnNombre(std::move(left));
  const std::string b = EnNombre(std::move(right));
  if (op == "*") {
    result.sql = "(" + a + " * " + b + ")";
  } else {
    const char* function = precedence == Power    ? "tlp_pow"
                           : precedence == Mod    ? "tlp_mod"
                           : precedence == IntDiv ? "tlp_idiv"
                                                  : "tlp_div";
    result.sql = std::string(function) + "(" + a + ", " + b + ")";
  }
  return result;
}

}  // namespace

/// Bounds the nesting, and with it the stack, whatever the user types.
class DialectParser::Profondeur {
 public:
  explicit Profondeur(DialectParser& parser) : parser_(parser) {
    if (++parser_.depth_ > DeepestNesting) {
      --parser_.depth_;
      throw TropComplexe();
    }
  }
  ~Profondeur() { --parser_.depth_; }
  Profondeur(const Profondeur&) = delete;
  Profondeur& operator=(const Profondeur&) = delete;

 private:
  DialectParser& parser_;
};

std::string DialectParser::Condition(Source source) {
  sources_.push_back(std::move(source));
  std::string sql = EnConditionSql(Lit());
  ExigeFin();
  return sql;
}

Expression DialectParser::Lit(int minimum) {
  const Profondeur depth(*this);
  Expression left = LitPrefixe();
  while (LitSuite(left, minimum)) {
  }
  return left;
}

// Takes the operator behind `left`, with its right side, when it binds at least as `minimum`.
bool DialectParser::LitSuite(Expression& left, int minimum) {
  if (minimum <= Comparison && LitComparaison(left)) return true;
  const Operator* op = OperateurDe(Ici());
  if (op == nullptr || op->precedence < minimum) return false;
  Passe();
  Expression right = Lit(op->precedence + 1);
  const bool aggregate = left.aggregate || right.aggregate;
  if (op->precedence == Comparison) {
    const auto search = op->text == "=" ? Recherche(left, right, false) : std::nullopt;
    left = Compare(std::move(left), op->text, std::move(right));
    left.search = search;
  } else if (op->precedence < Not) {
    left = Logique(std::move(left), op->precedence, right);
  } else {
    left = Calcul(std::move(left), op->precedence, op->text, std::move(right));
  }
  left.aggregate = aggregate;
  return true;
}

// IS, LIKE, BETWEEN, IN.
bool DialectParser::LitComparaison(Expression& left) {
  if (Mot("IS")) {
    const bool negated = Mot("NOT");
    ExigeMot("NULL");
    left = EnValeur(std::move(left));
    left.sql = "(" + left.sql + (negated ? " IS NOT NULL)" : " IS NULL)");
    left.kind = ValueKind::Logical;
    left.column = nullptr;
    left.number.reset();
    left.text.reset();
    return true;
  }
  const auto follows = [this](std::string_view word) {
    return EstMot(word) ||
           (EstMot("NOT") && Apres().kind == Token::Kind::Word && Apres().text == word);
  };
  if (!follows("LIKE") && !follows("BETWEEN") && !follows("IN")) return false;
  const bool negated = Mot("NOT");
  if (Mot("BETWEEN")) {
    left = LitEncadrement(std::move(left), negated);
  } else if (Mot("IN")) {
    left = LitAppartenance(std::move(left), negated);
  } else {
    Passe();
    left = LitMotif(std::move(left), negated);
  }
  return true;
}

Expression DialectParser::LitMotif(Expression left, bool negated) {
  Expression pattern = Lit(Comparison + 1);
  Expression result;
  result.kind = ValueKind::Logical;
  result.aggregate = left.aggregate || pattern.aggregate;
  if (!negated) result.search = Recherche(left, pattern, true);
  result.sql = std::string(negated ? "(NOT " : "(") + "tlp_like(" + EnTexte(std::move(pattern)) +
               ", " + EnTexte(std::move(left)) + "))";
  return result;
}

std::optional<TextSearch> DialectParser::Recherche(const Expression& column, const Expression& text,
                                                   bool like) const {
  const bool plain = sources_.size() == 1 && column.column != nullptr && column.field >= 0 &&
                     StockageDe(column.column->type) == Storage::Text;
  if (!plain || !text.text) return {};
  return TextSearch{column.field, like, *text.text};
}

Expression DialectParser::LitEncadrement(Expression left, bool negated) {
  Expression low = Lit(Comparison + 1);
  ExigeMot("AND");
  Expression high = Lit(Comparison + 1);
  Expression result;
  result.kind = ValueKind::Logical;
  result.aggregate = left.aggregate || low.aggregate || high.aggregate;
  left = EnValeur(std::move(left));
  const auto lowSql = EnFaceDe(left, std::move(low));
  const auto highSql = EnFaceDe(left, std::move(high));
  result.sql = lowSql && highSql ? "(" + AvecOrdre(left) + (negated ? " NOT" : "") + " BETWEEN " +
                                       *lowSql + " AND " + *highSql + ")"
                                 : "NULL";
  return result;
}

Expression DialectParser::LitAppartenance(Expression left, bool negated) {
  left = EnValeur(std::move(left));
  ExigeSymbole("(");
  Expression result;
  result.kind = ValueKind::Logical;
  result.aggregate = left.aggregate;
  std::string list;
  do {
    Expression item = Lit(0);
    result.aggregate = result.aggregate || item.aggregate;
    if (const auto sql = EnFaceDe(left, std::move(item))) list += (list.empty() ? "" : ", ") + *sql;
  } while (Symbole(","));
  ExigeSymbole(")");
  result.sql = "(" + AvecOrdre(left) + (negated ? " NOT" : "") + " IN (" + list + "))";
  return result;
}

Expression DialectParser::LitPrefixe() {
  const Profondeur depth(*this);
  if (Mot("NOT")) {
    Expression e = Lit(Not);
    Expression result;
    result.kind = ValueKind::Logical;
    result.aggregate = e.aggregate;
    result.sql = "(NOT (" + EnConditionSql(std::move(e)) + "))";
    return result;
  }
  if (Symbole("+")) return Lit(Sign);
  if (!Symbole("-")) return LitPrimaire();
  Expression e = Lit(Sign);
  if (e.number) return LitteralNombre(-*e.number);
  Expression result;
  result.kind = e.kind == ValueKind::Single ? ValueKind::Single : ValueKind::Number;
  result.aggregate = e.aggregate;
  result.sql = "(-" + EnNombre(std::move(e)) + ")";
  return result;
}

Expression DialectParser::LitPrimaire() {
  const Token token = Ici();
  switch (token.kind) {
    case Token::Kind::Number:
      Passe();
      return LitteralNombre(token.number);
    case Token::Kind::Date: {
      Passe();
      Expression e = LitteralNombre(token.number);
      e.kind = ValueKind::Date;
      return e;
    }
    case Token::Kind::Text: {
      Passe();
      Expression e;
      e.sql = Litteral(token.text);
      e.kind = ValueKind::Text;
      e.text = token.text;
      return e;
    }
    case Token::Kind::Symbol: {
      ExigeSymbole("(");
      Expression e = Lit(0);
      ExigeSymbole(")");
      if (e.outer != Outer::Atom) e.sql = "(" + e.sql + ")";
      e.outer = Outer::Atom;
      return e;
    }
    case Token::Kind::Word:
    case Token::Kind::Name:
      return LitColonneOuFonction();
    case Token::Kind::End:
    case Token::Kind::Error:
      break;
  }
  Syntaxe();
}

}  // namespace talpena::sqlite

// Calls of functions: the table of those that a user may name, and the few with a form of
// their own.
#include <algorithm>
#include <array>

#include "common/text.h"
#include "platform/sqlite/dialect/dialect_parser.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

struct ScalarFunction {
  std::string_view name;
  const char* sqlName;
  /// One letter per argument: T text, N number, D date or text; in lower case it may be left out.
  std::string_view arguments;
  ValueKind result;
};

// clang-format off
constexpr ScalarFunction scalarFunctions[] = {
    {"UCASE",  "tlp_ucase",   "T",   ValueKind::Text},
    {"LCASE",  "tlp_lcase",   "T",   ValueKind::Text},
    {"LEFT",   "tlp_left",    "TN",  ValueKind::Text},
    {"RIGHT",  "tlp_right",   "TN",  ValueKind::Text},
    {"MID",    "tlp_mid",     "TNn", ValueKind::Text},
    {"LEN",    "tlp_len",     "T",   ValueKind::Number},
    {"TRIM",   "tlp_trim",    "T",   ValueKind::Text},
    {"LTRIM",  "tlp_ltrim",   "T",   ValueKind::Text},
    {"RTRIM",  "tlp_rtrim",   "T",   ValueKind::Text},
    {"REPLACE", "tlp_replace", "TTT", ValueKind::Text},
    {"VAL",    "tlp_val",     "T",   ValueKind::Number},
    {"STR",    "tlp_str",     "T",   ValueKind::Text},
    {"CHR",    "tlp_chr",     "N",   ValueKind::Text},
    {"ASC",    "tlp_asc",     "T",   ValueKind::Number},
    {"STRING", "tlp_string",  "NT",  ValueKind::Text},
    {"CINT",   "tlp_cint",    "N",   ValueKind::Number},
    {"CLNG",   "tlp_clng",    "N",   ValueKind::Number},
    {"CDBL",   "tlp_cdbl",    "N",   ValueKind::Number},
    {"CCUR",   "tlp_ccur",    "N",   ValueKind::Number},
    {"CSNG",   "tlp_single",  "N",   ValueKind::Single},
    {"INT",    "tlp_int",     "N",   ValueKind::Number},
    {"FIX",    "tlp_fix",     "N",   ValueKind::Number},
    {"ABS",    "tlp_abs",     "N",   ValueKind::Number},
    {"SGN",    "tlp_sgn",     "N",   ValueKind::Number},
    {"SQR",    "tlp_sqr",     "N",   ValueKind::Number},
    {"ROUND",  "tlp_round",   "Nn",  ValueKind::Number},
    {"LOG",    "tlp_log",     "N",   ValueKind::Number},
    {"EXP",    "tlp_exp",     "N",   ValueKind::Number},
    {"SIN",    "tlp_sin",     "N",   ValueKind::Number},
    {"COS",    "tlp_cos",     "N",   ValueKind::Number},
    {"TAN",    "tlp_tan",     "N",   ValueKind::Number},
    {"ATN",    "tlp_atn",     "N",   ValueKind::Number},
    {"YEAR",   "tlp_year",    "D",   ValueKind::Number},
    {"MONTH",  "tlp_month",   "D",   ValueKind::Number},
    {"DAY",    "tlp_day",     "D",   ValueKind::Number},
};

struct AggregateFunction {
  std::string_view name;
  const char* sqlName;
};

constexpr AggregateFunction aggregateFunctions[] = {
    {"COUNT", "count"}, {"SUM", "sum"}, {"AVG", "avg"}, {"MIN", "min"}, {"MAX", "max"},
    {"STDEV", "tlp_stdev"}, {"STDEVP", "tlp_stdevp"}, {"VAR", "tlp_var"}, {"VARP", "tlp_varp"},
};
// clang-format on

std::string ArgumentSql(Expression e, char form) {
  switch (form) {
    case 'T':
    case 't':
      return EnTexte(std::move(e));
    case 'D':
      return EnValeur(std::move(e)).sql;
    default:
      return EnNombre(std::move(e));
  }
}

bool CompteAccepte(std::string_view form, std::size_t count) {
  const auto fewest = static_cast<std::size_t>(
      std::count_if(form.begin(), form.end(), [](char c) { return c >= 'A' && c <= 'Z'; }));
  return count >= fewest && count <= form.size();
}

Expression Appel(std::string sql, ValueKind kind, const std::vector<Expression>& arguments) {
  Expression result;
  result.sql = std::move(sql);
  result.kind = kind;
  for (const Expression& e : arguments) result.aggregate = result.aggregate || e.aggregate;
  return result;
}

std::string EnValeurSql(const Expression& e) { return EnValeur(e).sql; }

// An InStr of two arguments, of three with a start, of three or four with a kind of comparison,
// which is always the table's.
std::string InStrSql(std::vector<Expression> args) {
  const bool startGiven = args.size() == 4 || (args.size() == 3 && EstNombre(args[0].kind));
  std::string sql = "tlp_instr(";
  std::size_t first = 0;
  if (startGiven) {
    sql += EnNombre(args[0]) + ", ";
    first = 1;
  }
  return sql + EnTexte(args[first]) + ", " + EnTexte(args[first + 1]) + ")";
}

}  // namespace

std::vector<Expression> DialectParser::LitArguments() {
  std::vector<Expression> arguments;
  ExigeSymbole("(");
  if (Symbole(")")) return arguments;
  do {
    arguments.push_back(Lit());
  } while (Symbole(","));
  ExigeSymbole(")");
  return arguments;
}

Expression DialectParser::LitFonction(const std::string& typed) {
  std::string name = Majuscules(typed);
  if (name.ends_with('$')) name.pop_back();
  for (const AggregateFunction& function : aggregateFunctions) {
    if (function.name == name) return LitAgregat(function.sqlName);
  }
  if (name == "IIF") return LitSi();
  if (name == "SWITCH") return LitSuiteDeCas();
  if (name == "CHOOSE") return LitChoix();
  const auto found = std::find_if(std::begin(scalarFunctions), std::end(scalarFunctions),
                                  [&](const ScalarFunction& f) { return f.name == name; });
  static constexpr std::array<std::string_view, 6> others = {"ISNULL", "NZ",    "CSTR",
                                                             "INSTR",  "SPACE", "FORMAT"};
  if (found == std::end(scalarFunctions) &&
      std::find(others.begin(), others.end(), name) == others.end()) {
    SiIllisible();
    throw TalpenaError(ErrorNumber::UndefinedFunction,
                       "Undefined function '" + typed + "' in expression.", {.about = {typed}});
  }
  std::vector<Expression> args = LitArguments();
  if (found != std::end(scalarFunctions)) {
    if (!CompteAccepte(found->arguments, args.size())) Syntaxe();
    std::string sql = std::string(found->sqlName) + "(";
    for (std::size_t i = 0; i < args.size(); ++i) {
      sql += (i == 0 ? "" : ", ") + ArgumentSql(args[i], found->arguments[i]);
    }
    return Appel(sql + ")", found->result, args);
  }
  if (name == "INSTR") {
    if (args.size() < 2 || args.size() > 4) Syntaxe();
    return Appel(InStrSql(args), ValueKind::Number, args);
  }
  if (name == "NZ") return LitNz(args);
  if (name == "FORMAT") return LitFormat(args);
  if (args.size() != 1) Syntaxe();
  if (name == "ISNULL") {
    return Appel("(" + EnValeurSql(args[0]) + " IS NULL)", ValueKind::Logical, args);
  }
  if (name == "SPACE") {
    return Appel("tlp_string(" + EnNombre(args[0]) + ", ' ')", ValueKind::Text, args);
  }
  return Appel(EnTexte(args[0]), ValueKind::Text, args);  // CStr
}

// Format(x): as CStr. Format(x, picture): a date and a number are told apart by what they were, a
// text by the picture.
Expression DialectParser::LitFormat(const std::vector<Expression>& args) {
  if (args.empty() || args.size() > 2) Syntaxe();
  if (args.size() == 1) return Appel(EnTexteSansNull(args[0]), ValueKind::Text, args);
  const bool date = args[0].kind == ValueKind::Date;
  return Appel("tlp_format(" + EnValeurSql(args[0]) + ", " + EnTexteSansNull(args[1]) +
                   (date ? ", 1)" : ", 0)"),
               ValueKind::Text, args);
}

// Nz(x): the empty text in the place of a Null text, 0 in that of a Null number.
Expression DialectParser::LitNz(const std::vector<Expression>& args) {
  if (args.empty() || args.size() > 2) Syntaxe();
  const Expression value = EnValeur(args[0]);
  const bool number = EstNombre(value.kind);
  const std::string other = args.size() == 2 ? EnValeurSql(args[1]) : number ? "0" : "''";
  const ValueKind kind = args.size() == 2 ? Commun(value.kind, args[1].kind) : value.kind;
  std::string sql = "ifnull(" + value.sql + ", " + other + ")";
  if (kind == ValueKind::Single) sql = "tlp_single(" + sql + ")";
  return Appel(std::move(sql), kind, args);
}

Expression DialectParser::LitAgregat(std::string_view sqlName) {
  if (!aggregatesAllowed_) {
    throw TalpenaError(ErrorNumber::AggregateNotAllowed,
                       "Cannot have aggregate function in " + clause_ + " clause.");
  }
  ExigeSymbole("(");
  Expression result;
  result.aggregate = true;
  result.kind = ValueKind::Number;
  const bool isCount = sqlName == "count";
  if (isCount && Symbole("*")) {
    ExigeSymbole(")");
    result.sql = "count(*)";
    return result;
  }
  aggregatesAllowed_ = false;  // none inside another
  Expression argument = Lit();
  aggregatesAllowed_ = true;
  ExigeSymbole(")");
  if (sqlName == "min" || sqlName == "max") {
    argument = EnValeur(std::move(argument));
    result.kind = argument.kind;
    result.column = argument.column;
    result.sql = std::string(sqlName) + "(" + AvecOrdre(argument) + ")";
  } else if (isCount) {
    result.sql = "count(" + EnValeurSql(argument) + ")";
  } else {
    result.sql = std::string(sqlName) + "(0.0 + " + EnNombre(std::move(argument)) + ")";
  }
  return result;
}

Expression DialectParser::LitSi() {
  std::vector<Expression> args = LitArguments();
  if (args.size() != 3) Syntaxe();
  const ValueKind kind = Commun(args[1].kind, args[2].kind);
  std::string sql = "(CASE WHEN " + EnConditionSql(args[0]) + " THEN " + EnValeurSql(args[1]) +
                    " ELSE " + EnValeurSql(args[2]) + " END)";
  if (kind == ValueKind::Single) sql = "tlp_single" + sql;
  return Appel(std::move(sql), kind, args);
}

// Switch(condition, value, condition, value, ...)
Expression DialectParser::LitSuiteDeCas() {
  std::vector<Expression> args = LitArguments();
  if (args.empty() || args.size() % 2 != 0) Syntaxe();
  ValueKind kind = ValueKind::Null;
  std::string sql = "(CASE";
  for (std::size_t i = 0; i < args.size(); i += 2) {
    kind = Commun(kind, args[i + 1].kind);
    sql += " WHEN " + EnConditionSql(args[i]) + " THEN " + EnValeurSql(args[i + 1]);
  }
  return Appel(sql + " END)", kind == ValueKind::Single ? ValueKind::Variant : kind, args);
}

// Choose(index, value, value, ...)
Expression DialectParser::LitChoix() {
  std::vector<Expression> args = LitArguments();
  if (args.size() < 2) Syntaxe();
  ValueKind kind = ValueKind::Null;
  std::string sql = "(CASE tlp_int(" + EnNombre(args[0]) + ")";
  for (std::size_t i = 1; i < args.size(); ++i) {
    kind = Commun(kind, args[i].kind);
    sql += " WHEN " + std::to_string(i) + " THEN " + EnValeurSql(args[i]);
  }
  return Appel(sql + " END)", kind == ValueKind::Single ? ValueKind::Variant : kind, args);
}

}  // namespace talpena::sqlite

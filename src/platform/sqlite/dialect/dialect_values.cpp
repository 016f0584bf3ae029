// Expressions as numbers, texts and conditions; comparisons between them.
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/sqlite/collation.h"
#include "platform/sqlite/columns.h"
#include "platform/sqlite/dialect/dialect_parser.h"

namespace talpena::sqlite {
namespace {

std::string NombreSql(double value) {
  if (std::abs(value) < 1e15 && value == std::floor(value)) {
    return std::to_string(static_cast<std::int64_t>(value));
  }
  std::array<char, 40> buffer{};
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::scientific);
  return error == std::errc{} ? std::string(buffer.data(), end) : "0";
}

double ArrondiSimple(double value) {
  if (std::abs(value) > std::numeric_limits<float>::max()) return value;
  return static_cast<double>(static_cast<float>(value));
}

/// The number that a text literal is, if it is one.
std::optional<double> NombreDuTexte(const Expression& e) {
  if (!e.text || !EstNumerique(*e.text)) return std::nullopt;
  try {
    return Val(Remplace(*e.text, ",", "."));
  } catch (const TalpenaError&) {
    return std::nullopt;  // beyond the range of numbers: equal to none
  }
}

std::string EnSimpleSql(const Expression& e) {
  if (e.number) return NombreSql(ArrondiSimple(*e.number));
  return "tlp_single(" + e.sql + ")";
}

}  // namespace

ValueKind GenreDe(FieldType type) {
  switch (type) {
    case FieldType::Single:
      return ValueKind::Single;
    case FieldType::Date:
      return ValueKind::Date;
    case FieldType::Text:
    case FieldType::Memo:
      return ValueKind::Text;
    case FieldType::Binary:
      return ValueKind::Binary;
    default:
      return ValueKind::Number;
  }
}

bool EstNombre(ValueKind kind) {
  return kind == ValueKind::Number || kind == ValueKind::Single || kind == ValueKind::Date;
}

Expression LitteralNombre(double value) {
  Expression e;
  e.sql = NombreSql(value);
  if (e.sql.starts_with('-')) e.sql = "(" + e.sql + ")";
  e.kind = ValueKind::Number;
  e.number = value;
  return e;
}

Expression EnValeur(Expression e) {
  if (e.kind == ValueKind::Logical) {
    e.sql = "(-(" + e.sql + "))";
    e.kind = ValueKind::Number;
  } else if (e.outer != Outer::Atom) {
    e.sql = "(" + e.sql + ")";
  }
  e.outer = Outer::Atom;
  return e;
}

std::string EnConditionSql(Expression e) {
  if (e.kind == ValueKind::Logical) return e.sql;
  return "(" + EnNombre(std::move(e)) + " <> 0)";
}

std::string EnNombre(Expression e) {
  const ValueKind kind = e.kind;
  Expression value = EnValeur(std::move(e));
  if (kind == ValueKind::Text || kind == ValueKind::Variant || kind == ValueKind::Binary) {
    return "tlp_num(" + value.sql + ")";
  }
  return std::move(value.sql);
}

std::string EnTexte(Expression e) {
  Expression value = EnValeur(std::move(e));
  switch (value.kind) {
    case ValueKind::Text:
    case ValueKind::Null:
      return std::move(value.sql);
    case ValueKind::Single:
      return "tlp_textsingle(" + value.sql + ")";
    case ValueKind::Date:
      return "tlp_textdate(" + value.sql + ")";
    default:
      return "tlp_text(" + value.sql + ")";
  }
}

std::string EnTexteSansNull(Expression e) {
  if (e.text) return e.sql;
  return "ifnull(" + EnTexte(std::move(e)) + ", '')";
}

std::optional<std::string> EnFaceDe(const Expression& a, Expression b) {
  b = EnValeur(std::move(b));
  if (a.kind == ValueKind::Variant || b.kind == ValueKind::Variant) return "+" + b.sql;
  if (a.kind == ValueKind::Null || b.kind == ValueKind::Null) return b.sql;
  if (EstNombre(a.kind) && b.kind == ValueKind::Text) {
    double days = 0;
    if (a.kind == ValueKind::Date && b.text && LitDate(*b.text, days)) {
      return LitteralNombre(days).sql;
    }
    const auto number = NombreDuTexte(b);
    if (!number) return std::nullopt;
    b = LitteralNombre(*number);
  }
  if (a.kind == ValueKind::Text && b.kind == ValueKind::Date) {
    if (a.text) return std::nullopt;  // a literal goes to the date's side instead
    return "tlp_textdate(" + b.sql + ")";
  }
  if (a.kind == ValueKind::Single && b.kind == ValueKind::Number) return EnSimpleSql(b);
  if (EstNombre(a.kind) != EstNombre(b.kind)) return std::nullopt;
  if (a.kind != b.kind && (a.kind == ValueKind::Binary || b.kind == ValueKind::Binary)) {
    return std::nullopt;
  }
  return b.sql;
}

// A text and a number are never equal and in no order; two values are unequal all the same.
Expression Compare(Expression a, std::string_view op, Expression b) {
  Expression result;
  result.kind = ValueKind::Logical;
  result.aggregate = a.aggregate || b.aggregate;
  a = EnValeur(std::move(a));
  b = EnValeur(std::move(b));
  const auto right = EnFaceDe(a, b);
  const auto left = EnFaceDe(b, a);
  if (!left && !right) {
    const bool equality = op == "=" || op == "<>";
    result.sql = equality ? "(+" + a.sql + " " + std::string(op) + " +" + b.sql + ")" : "NULL";
    return result;
  }
  const bool texts = a.kind != ValueKind::Binary && b.kind != ValueKind::Binary &&
                     !(EstNombre(a.kind) && EstNombre(b.kind));
  // Where only one side can be adapted to the other, that side decides.
  result.sql = "(" + left.value_or(a.sql) + " " + std::string(op) + " " + right.value_or(b.sql) +
               (texts ? std::string(" COLLATE ") + CollationName : "") + ")";
  return result;
}

ValueKind Commun(ValueKind a, ValueKind b) {
  if (a == ValueKind::Logical) a = ValueKind::Number;
  if (b == ValueKind::Logical) b = ValueKind::Number;
  if (a == b || b == ValueKind::Null) return a;
  if (a == ValueKind::Null) return b;
  if ((a == ValueKind::Single && b == ValueKind::Number) ||
      (a == ValueKind::Number && b == ValueKind::Single)) {
    return ValueKind::Single;
  }
  return ValueKind::Variant;
}

FieldDef ChampDe(const Expression& e, const std::string& name) {
  FieldDef field;
  if (e.column != nullptr) field = *e.column;
  field.name = name;
  field.autoIncrement = false;
  field.required = false;
  if (e.column != nullptr) return field;
  switch (e.kind) {
    case ValueKind::Single:
      field.type = FieldType::Single;
      break;
    case ValueKind::Number:
    case ValueKind::Logical:
      field.type = FieldType::Double;
      break;
    case ValueKind::Date:
      field.type = FieldType::Date;
      break;
    case ValueKind::Binary:
      field.type = FieldType::Binary;
      break;
    default:
      field.type = FieldType::Memo;
      field.allowZeroLength = true;
  }
  return field;
}

std::string AvecOrdre(const Expression& e) {
  const bool text = e.kind == ValueKind::Text || e.kind == ValueKind::Variant;
  return text ? e.sql + " COLLATE " + CollationName : e.sql;
}

}  // namespace talpena::sqlite

#include "platform/foreign/dbase/columns.h"

#include <algorithm>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/errors.h"

namespace talpena::dbase {
namespace {

constexpr std::size_t mostColumns = 255;

TalpenaError NomDeColonneRefuse(const std::string& name) {
  return {ErrorNumber::InvalidName,
          "'" + name + "' is not a valid name of a column.",
          {.text = MsgId::EchecNomDeColonne, .about = {name}}};
}

TalpenaError NomsEgaux(const std::string& name, const std::string& other) {
  return {ErrorNumber::InvalidName,
          "'" + name + "' and '" + other + "' are one name for columns of this format.",
          {.text = MsgId::EchecNomsEgaux, .about = {name, other}}};
}

/// Capitals, and "_" for blanks.
std::string NomEcrit(const std::string& given) {
  constexpr std::size_t longest = 10;
  const auto letter = [](char c) { return c >= 'A' && c <= 'Z'; };
  const auto allowed = [&](char c) { return letter(c) || (c >= '0' && c <= '9') || c == '_'; };
  std::string name = Majuscules(given);
  std::replace(name.begin(), name.end(), ' ', '_');
  if (name.empty() || name.size() > longest || !letter(name.front()) ||
      !std::ranges::all_of(name, allowed)) {
    throw NomDeColonneRefuse(given);
  }
  return name;
}

struct Shape {
  char mark;
  std::size_t width;
  int decimals;
};

Shape FormeDe(const FieldDef& field) {
  constexpr int longestText = 254;
  switch (field.type) {
    case FieldType::Boolean:
      return {'L', 1, 0};
    case FieldType::Byte:
      return {'N', 3, 0};
    case FieldType::Integer:
      return {'N', 6, 0};
    case FieldType::Long:
      return {'N', 11, 0};
    case FieldType::Currency:
      return {'N', 20, 4};
    case FieldType::Single:
      return {'N', 19, 14};
    case FieldType::Double:
      return {'N', 20, 10};
    case FieldType::Date:
      return {'D', 8, 0};
    case FieldType::Text:
      if (field.size < 1) throw foreign::DefinitionRefusee();
      if (field.size > longestText) throw foreign::NonEcrit("a column of more than 254 characters");
      return {'C', static_cast<std::size_t>(field.size), 0};
    case FieldType::Memo:
      return {'M', 10, 0};
    case FieldType::Binary:
      break;
  }
  throw foreign::NonEcrit("a column of bytes");
}

WrittenColumn Colonne(const FieldDef& field, std::size_t offset) {
  const Shape shape = FormeDe(field);
  return {.name = NomEcrit(field.name),
          .given = field.name,
          .mark = shape.mark,
          .type = field.type,
          .offset = offset,
          .width = shape.width,
          .decimals = shape.decimals};
}

std::size_t PlusLongueLigne(Product product) { return product == Product::DbaseIV ? 4000 : 65500; }

}  // namespace

std::vector<WrittenColumn> DisposeColonnes(const std::vector<FieldDef>& fields, Product product) {
  if (fields.empty()) throw foreign::DefinitionRefusee();
  if (fields.size() > mostColumns) throw foreign::TropDeColonnes();
  std::vector<WrittenColumn> columns;
  std::size_t offset = 1;
  for (const FieldDef& field : fields) {
    WrittenColumn column = Colonne(field, offset);
    const auto same = std::ranges::find(columns, column.name, &WrittenColumn::name);
    if (same != columns.end()) throw NomsEgaux(same->given, field.name);
    offset += column.width;
    columns.push_back(std::move(column));
  }
  if (offset > PlusLongueLigne(product)) throw foreign::LigneTropLongue();
  return columns;
}

std::size_t OctetsDeLigne(const std::vector<WrittenColumn>& columns) {
  return columns.back().offset + columns.back().width;
}

bool AvecMemo(const std::vector<WrittenColumn>& columns) {
  return std::ranges::find(columns, FieldType::Memo, &WrittenColumn::type) != columns.end();
}

}  // namespace talpena::dbase

#include "platform/foreign/jet/columns.h"

#include <algorithm>

#include "platform/foreign/errors.h"

namespace talpena::jet {
namespace {

struct Width {
  JetType type;
  std::size_t bytes;
};

Width TypeDe(const FieldDef& field) {
  switch (field.type) {
    case FieldType::Boolean:
      return {JetType::Boolean, 1};  // a bit of the row
    case FieldType::Byte:
      return {JetType::Byte, 1};
    case FieldType::Integer:
      return {JetType::Integer, 2};
    case FieldType::Long:
      return {JetType::Long, 4};
    case FieldType::Currency:
      return {JetType::Currency, 8};
    case FieldType::Single:
      return {JetType::Single, 4};
    case FieldType::Double:
      return {JetType::Double, 8};
    case FieldType::Date:
      return {JetType::Date, 8};
    case FieldType::Text:
      return {JetType::Text, 2 * static_cast<std::size_t>(field.size)};
    case FieldType::Memo:
      return {JetType::Memo, 0};
    case FieldType::Binary:
      return {JetType::Ole, 0};
  }
  throw foreign::NonEcrit("a column of this type");
}

}  // namespace

bool Column::Varie() const {
  return type == JetType::Text || type == JetType::Binary || EstLongue();
}

std::vector<Column> DisposeColonnes(const std::vector<FieldDef>& fields) {
  constexpr std::size_t most = 255;
  if (fields.size() > most) throw foreign::TropDeColonnes();
  std::vector<Column> columns;
  for (const FieldDef& field : fields) {
    const auto [type, bytes] = TypeDe(field);
    columns.push_back(
        {.name = field.name, .type = type, .bytes = bytes, .autoNumber = field.autoIncrement});
  }
  DonnePlaces(columns);
  return columns;
}

void DonnePlaces(std::vector<Column>& columns) {
  std::size_t offset = 0;
  std::size_t variable = 0;
  for (Column& column : columns) {
    column.variable = variable;
    if (column.Varie()) {
      ++variable;
    } else {
      column.fixedOffset = offset;
      if (column.type != JetType::Boolean) offset += column.bytes;
    }
  }
}

std::size_t CompteVariables(const std::vector<Column>& columns) {
  return static_cast<std::size_t>(
      std::count_if(columns.begin(), columns.end(), [](const Column& c) { return c.Varie(); }));
}

}  // namespace talpena::jet

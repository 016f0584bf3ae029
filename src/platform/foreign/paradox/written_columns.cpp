#include "platform/foreign/paradox/written_columns.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <string>

#include "common/msg_id_errors.h"
#include "common/text.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/paradox/head_writer.h"

namespace talpena::paradox {
namespace {

ParadoxType TypeEcrit(FieldType type) {
  switch (type) {
    case FieldType::Boolean:
      return ParadoxType::Logical;
    case FieldType::Byte:  // the only whole numbers that a Short has all of: -32768 is its blank
      return ParadoxType::Short;
    case FieldType::Currency:
      return ParadoxType::Currency;
    case FieldType::Date:
      return ParadoxType::Timestamp;
    case FieldType::Text:
      return ParadoxType::Alpha;
    case FieldType::Memo:
      return ParadoxType::Memo;
    case FieldType::Binary:
      return ParadoxType::Binary;
    default:
      return ParadoxType::Number;
  }
}

std::size_t OctetsEcrits(const FieldDef& field) {
  switch (field.type) {
    case FieldType::Boolean:
      return 1;
    case FieldType::Byte:
      return 2;
    case FieldType::Text:
      return static_cast<std::size_t>(field.size);
    case FieldType::Memo:
      return memoLeader + referenceBytes;
    case FieldType::Binary:
      return referenceBytes;
    default:
      return 8;
  }
}

TalpenaError NomDeColonneRefuse(std::string_view name) {
  TalpenaError plain = foreign::NomRefuse(name);
  return {plain.number(),
          plain.description(),
          {.text = MsgId::NomParadoxRefuse, .about = {std::string(name)}}};
}

std::string NomEcrit(std::string_view name) {
  constexpr std::size_t longest = 25;
  const auto bytes = Utf8VersCp1252(name);
  const bool valid =
      bytes && !bytes->empty() && bytes->size() <= longest && bytes->front() != ' ' &&
      std::ranges::none_of(*bytes, [](char c) { return static_cast<unsigned char>(c) < ' '; });
  if (!valid) throw NomDeColonneRefuse(name);
  return *bytes;
}

bool TailleValable(const FieldDef& field) {
  constexpr int longest = 255;
  return field.type != FieldType::Text || (field.size >= 1 && field.size <= longest);
}

}  // namespace

std::vector<WrittenColumn> DisposeColonnes(const TableDef& table) {
  constexpr std::size_t mostColumns = 255;
  if (!table.indexes.empty()) throw foreign::NonEcrit("an index of a Paradox table");
  if (table.fields.empty()) throw foreign::DefinitionRefusee();
  if (table.fields.size() > mostColumns) throw foreign::TropDeColonnes();
  std::vector<WrittenColumn> columns;
  std::set<std::string> names;
  for (const FieldDef& field : table.fields) {
    std::string name = NomEcrit(field.name);
    const bool once = names.insert(Minuscules(field.name)).second;
    if (!once || !TailleValable(field)) throw foreign::DefinitionRefusee();
    columns.push_back({.column = {.name = std::move(name),
                                  .type = TypeEcrit(field.type),
                                  .bytes = OctetsEcrits(field)},
                       .source = field.type,
                       .name = field.name});
  }
  if (OctetsParLigne(columns) > OctetsDuBloc(smallUnits)) throw foreign::LigneTropLongue();
  return columns;
}

std::size_t OctetsParLigne(const std::vector<WrittenColumn>& columns) {
  return std::accumulate(
      columns.begin(), columns.end(), std::size_t{0},
      [](std::size_t sum, const WrittenColumn& c) { return sum + c.column.bytes; });
}

bool ExigeNiveau5(const std::vector<WrittenColumn>& columns) {
  return std::ranges::any_of(columns, [](const WrittenColumn& c) {
    return c.column.type == ParadoxType::Logical || c.column.type == ParadoxType::Timestamp;
  });
}

bool ExigeMemos(const std::vector<WrittenColumn>& columns) {
  return std::ranges::any_of(columns,
                             [](const WrittenColumn& c) { return EstLong(c.column.type); });
}

}  // namespace talpena::paradox

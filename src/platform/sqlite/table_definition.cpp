// Definitions of tables as text: one line for the table, one per field and index, the parts of
// a line between tabs.
#include <charconv>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/sqlite/table_state.h"

namespace talpena::sqlite {
namespace {

constexpr int LastType = static_cast<int>(FieldType::Binary);

enum Flag : int { AllowZeroLength = 1, AutoIncrement = 2, Required = 4, Unique = 1, Primary = 2 };

TalpenaError Abimee() {
  return {ErrorNumber::UnrecognizedFormat,
          "Unrecognized database format: a table's definition is damaged."};
}

int Entier(const std::string& text, int low, int high) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) throw Abimee();
  if (value < low || value > high) throw Abimee();
  return value;
}

FieldDef LitChamp(const std::vector<std::string>& parts) {
  if (parts.size() != 5) throw Abimee();
  FieldDef field;
  field.name = parts[1];
  field.type = static_cast<FieldType>(Entier(parts[2], 0, LastType));
  field.size = Entier(parts[3], 0, 65535);
  const int flags = Entier(parts[4], 0, 7);
  field.allowZeroLength = (flags & AllowZeroLength) != 0;
  field.autoIncrement = (flags & AutoIncrement) != 0;
  field.required = (flags & Required) != 0;
  return field;
}

IndexDef LitIndex(const std::vector<std::string>& parts) {
  if (parts.size() < 4) throw Abimee();
  IndexDef index;
  index.name = parts[1];
  const int flags = Entier(parts[2], 0, 3);
  index.unique = (flags & Unique) != 0;
  index.primary = (flags & Primary) != 0;
  index.fields.assign(parts.begin() + 3, parts.end());
  return index;
}

}  // namespace

std::string EcritDefinition(const TableDef& table) {
  std::string text = "T\t" + table.name + "\n";
  for (const FieldDef& field : table.fields) {
    const int flags = (field.allowZeroLength ? AllowZeroLength : 0) |
                      (field.autoIncrement ? AutoIncrement : 0) | (field.required ? Required : 0);
    text += "F\t" + field.name + "\t" + std::to_string(static_cast<int>(field.type)) + "\t" +
            std::to_string(field.size) + "\t" + std::to_string(flags) + "\n";
  }
  for (const IndexDef& index : table.indexes) {
    const int flags = (index.unique ? Unique : 0) | (index.primary ? Primary : 0);
    text += "I\t" + index.name + "\t" + std::to_string(flags);
    for (const std::string& field : index.fields) text += "\t" + field;
    text += "\n";
  }
  return text;
}

TableDef LitDefinition(std::string_view text) {
  TableDef table;
  for (const std::string& line : Decoupe(text, '\n')) {
    if (line.empty()) continue;
    const std::vector<std::string> parts = Decoupe(line, '\t');
    if (parts[0] == "T" && parts.size() == 2) {
      table.name = parts[1];
    } else if (parts[0] == "F") {
      table.fields.push_back(LitChamp(parts));
    } else if (parts[0] == "I") {
      table.indexes.push_back(LitIndex(parts));
    } else {
      throw Abimee();
    }
  }
  if (table.name.empty() || table.fields.empty()) throw Abimee();
  return table;
}

}  // namespace talpena::sqlite

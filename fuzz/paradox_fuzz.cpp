// Paradox tables with their memo files: whatever the bytes, rows of what the head declares, or the
// failure that a damaged file is.
//
// The input is the length of the table, two bytes, the table, and the memo file behind its head.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "check.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "memory_bytes.h"
#include "platform/foreign/paradox/head.h"
#include "platform/foreign/paradox/memo_format.h"
#include "platform/foreign/paradox/row_reader.h"

namespace {

using namespace talpena;
using namespace talpena::paradox;
using fuzz::MemoryBytes;
using fuzz::Verifie;

Input Entree(std::string_view bytes, std::size_t skipped = 0) {
  return {"a", std::make_unique<MemoryBytes>(bytes, skipped)};
}

void VerifieCellule(const FieldDef& field, const Cell& cell) {
  const bool isText = field.type == FieldType::Text || field.type == FieldType::Memo;
  if (cell.EstNull()) return Verifie(!isText);
  if (isText) return Verifie(cell.kind == Cell::Kind::Text && EstUtf8(cell.text));
  switch (field.type) {
    case FieldType::Binary:
      return Verifie(cell.kind == Cell::Kind::Text);
    case FieldType::Boolean:
      return Verifie(cell.kind == Cell::Kind::Integer && (cell.integer == 0 || cell.integer == -1));
    case FieldType::Integer:
    case FieldType::Long:
      return Verifie(cell.kind == Cell::Kind::Integer);
    default:
      return Verifie(cell.kind == Cell::Kind::Real && cell.real - cell.real == 0);
  }
}

void LitTout(std::string_view table, std::string_view memoBlocks) {
  const TableHead head = LitTete(Entree(table));
  std::vector<FieldDef> fields;
  for (const Column& column : head.columns) {
    fields.push_back(Definition(column));
    Verifie(!column.name.empty() && EstUtf8(column.name));
  }
  constexpr std::size_t mostInMemo = std::size_t{1} << 20;
  RowReader rows(Entree(table), head, MemoReader(Entree(memoBlocks, memoBlockBytes), mostInMemo),
                 "a");
  std::vector<Cell> cells(fields.size());
  std::size_t count = 0, bytes = 0;
  while (rows.Suivante(cells)) {
    ++count;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      VerifieCellule(fields[i], cells[i]);
      bytes += EstLong(head.columns[i].type) ? cells[i].text.size() : 0;
    }
  }
  Verifie(count >= head.records && count * head.recordBytes <= table.size());
  constexpr std::size_t mostOfAByte = 3;  // as UTF-8
  Verifie(bytes <= mostOfAByte * (table.size() + memoBlocks.size() + memoBlockBytes));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  if (input.size() < 2) return 0;
  const std::size_t length = data[0] | static_cast<unsigned>(data[1]) << 8U;
  input.remove_prefix(2);
  const std::string_view table = input.substr(0, length);
  try {
    LitTout(table, input.substr(table.size()));
  } catch (const TalpenaError& error) {
    Verifie(error.number() == ErrorNumber::UnrecognizedFormat);
  }
  return 0;
}

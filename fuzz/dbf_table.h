// A table of dBase or FoxPro and its memo file in one input: whatever the bytes, it is refused, or
// every value is what its column says.
#pragma once
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "check.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "fakes/memory_bytes.h"
#include "platform/foreign/dbase/table_reader.h"

namespace talpena::fuzz {

/// The table's length in two bytes, the code page that stands beside it in one, the table, the
/// memos.
inline dbase::TableBytes Fichiers(std::string_view input) {
  constexpr const char* pages[] = {"", "UTF-8", "437", "1252", "866"};
  constexpr std::size_t head = 3;
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(input[i]); };
  const std::size_t length = at(0) | static_cast<std::size_t>(at(1)) << 8;
  const std::string_view files = input.substr(head);
  const std::string_view table = files.substr(0, length);
  return {.path = "t.dbf",
          .rows = std::make_shared<test::MemoryBytes>(std::string(table)),
          .memos = std::make_shared<test::MemoryBytes>(std::string(files.substr(table.size()))),
          .codePage = pages[at(2) % std::size(pages)]};
}

inline void VerifieCellule(FieldType type, const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::Null:
      return;
    case Cell::Kind::Integer:
      return Verifie(type == FieldType::Boolean && (cell.integer == -1 || cell.integer == 0));
    case Cell::Kind::Real:
      Verifie(type == FieldType::Double || cell.real == std::floor(cell.real));
      return Verifie(std::isfinite(cell.real));
    case Cell::Kind::Text:
      return Verifie(type == FieldType::Binary || EstUtf8(cell.text));
  }
}

inline void LitTout(const dbase::TableBytes& bytes) {
  dbase::TableReader reader(bytes, {.octetsMemo = 1 << 16, .octetsMemos = 1 << 16}, nullptr);
  const TableDef table = reader.Definition("t");
  for (const FieldDef& field : table.fields) Verifie(EstUtf8(field.name) && !field.name.empty());
  std::vector<Cell> cells(table.fields.size());
  std::uint64_t count = 0;
  const auto rows = reader.Lignes();
  while (rows->Suivante(cells)) {
    Verifie(++count <= reader.Tete().rows);
    for (std::size_t i = 0; i < cells.size(); ++i) VerifieCellule(table.fields[i].type, cells[i]);
  }
}

inline void EssaieTable(std::string_view input) {
  constexpr std::size_t least = 64;
  if (input.size() < least) return;
  try {
    LitTout(Fichiers(input));
  } catch (const TalpenaError& error) {
    Verifie(error.number() == ErrorNumber::UnrecognizedFormat ||
            error.number() == ErrorNumber::TooManyFields);
  }
}

}  // namespace talpena::fuzz

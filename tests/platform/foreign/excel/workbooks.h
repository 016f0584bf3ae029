// Workbooks in tests, and what other readers make of them.
#pragma once
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/temp_folder.h"
#include "platform/foreign/command_output.h"
#include "platform/foreign/excel/biff_workbook.h"
#include "platform/foreign/excel/excel_format.h"
#include "platform/foreign/excel/xlsx_workbook.h"
#include "platform/foreign/foreign_rows.h"

namespace talpena::test {

namespace fs = std::filesystem;

inline const fs::path xlsFolder = fs::path(TALPENA_SHARED_DATA) / "db" / "xls";

#define NEEDS_WORKBOOKS() \
  if (!fs::exists(xlsFolder)) GTEST_SKIP() << "no workbooks under " << xlsFolder
#define NEEDS_PYTHON(module)                                   \
  if (!Sortie("/usr/bin/python3 -c 'import " module "' 2>&1")) \
  GTEST_SKIP() << "python3-" module " is not installed"
#define NEEDS_TOOL(name) \
  if (!Sortie("command -v " name)) GTEST_SKIP() << name " is not installed"

inline std::string Hexa(std::string_view bytes) {
  std::string out;
  for (const char c : bytes) {
    for (const int digit : {static_cast<unsigned char>(c) >> 4, c & 15}) {
      out += "0123456789abcdef"[digit];
    }
  }
  return out;
}

inline std::string Hexa(double value) {
  char digits[20];
  std::snprintf(digits, sizeof digits, "%016llx",
                static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
  return digits;
}

/// All cells as read_workbook.py prints them.
inline std::string Cellules(excel::Workbook& workbook) {
  std::string out, names = "sheets";
  for (std::size_t i = 0; i < workbook.Feuilles().size(); ++i) {
    const std::string name = Hexa(workbook.Feuilles()[i].name);
    names += ' ' + name;
    const auto rows = workbook.Lignes(i);
    excel::SheetRow row;
    while (rows->Suivante(row)) {
      for (const excel::SheetCell& cell : row.cells) {
        out += name + ' ' + std::to_string(row.number) + ' ' + std::to_string(cell.column);
        if (cell.kind == excel::SheetCell::Kind::Number) out += " n " + Hexa(cell.number);
        if (cell.kind == excel::SheetCell::Kind::Boolean) out += cell.number != 0 ? " b 1" : " b 0";
        if (cell.kind == excel::SheetCell::Kind::Text) out += " t " + Hexa(cell.text);
        out += '\n';
      }
    }
  }
  return out + names + '\n';
}

inline std::string CellulesDeBiff(const std::string& path) {
  constexpr std::size_t most = std::size_t{1} << 30;
  return Cellules(*excel::OuvreClasseurBiff(std::make_shared<excel::FileBytes>(path, most)));
}

inline std::string CellulesSelon(const std::string& reader, const std::string& path) {
  return Sortie("/usr/bin/python3 " TALPENA_SOURCE_DIR
                "/tests/platform/foreign/excel/read_workbook.py " +
                reader + " " + EntreQuotes(path) + " 2>/dev/null")
      .value_or("failed");
}

/// A workbook that is written, through a format that lasts as long.
struct WrittenSheet {
  WrittenSheet(std::unique_ptr<ForeignFormat> with, std::string where)
      : path(std::move(where)), format(std::move(with)), database(format->OuvrePourEcrire(path)) {}

  std::int64_t Ecrit(const TableDef& table, RowSource& rows) const {
    database->CreeTable(table);
    return database->InsereLignes(table.name, rows);
  }
  std::vector<Row> Relit(const TableDef& table) const {
    std::vector<Row> rows;
    std::vector<Cell> cells(table.fields.size());
    const auto source = database->Rows(table.name);
    while (source->Suivante(cells)) {
      Row& row = rows.emplace_back();
      for (const Cell& cell : cells) row.push_back(cell.Garde());
    }
    return rows;
  }

  std::string path;
  std::unique_ptr<ForeignFormat> format;
  std::unique_ptr<ForeignDatabase> database;
};

}  // namespace talpena::test

// The real Access files, read whole.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "common/talpena_error.h"
#include "platform/foreign/foreign_rows.h"
#include "platform/foreign/jet_format.h"

namespace talpena::test {

namespace fs = std::filesystem;

inline const fs::path mdbFolder = fs::path(TALPENA_SHARED_DATA) / "db" / "mdb";

#define NEEDS_SHARED_DATA() \
  if (!fs::exists(mdbFolder)) GTEST_SKIP() << "no Access files under " << mdbFolder

inline std::vector<Row> LitTable(const std::string& file, const std::string& table) {
  const auto database = CreeFormatJet()->Ouvre((mdbFolder / file).string());
  return LitLignes(*database, table, TableDe(*database, table).fields.size());
}

/// Number of the failure that reading the whole file ends in; 0 for none.
inline int NumeroDe(const std::string& path, const LimitesJet& limits = {}) {
  try {
    const auto database = CreeFormatJet(limits)->Ouvre(path);
    for (const TableDef& table : database->Tables()) {
      LitLignes(*database, table.name, table.fields.size());
    }
  } catch (const TalpenaError& e) {
    return e.number();
  }
  return 0;
}

inline std::string Lis(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::size_t TaillePage(std::string_view name) {
  return name.find("V1997") == std::string_view::npos ? 4096 : 2048;
}

/// All names and values of a file, in one text.
inline std::string Empreinte(const std::string& path) {
  std::string all;
  const auto database = CreeFormatJet()->Ouvre(path);
  for (const TableDef& table : database->Tables()) {
    all += table.name + '\n';
    for (const Row& row : LitLignes(*database, table.name, table.fields.size())) {
      for (const Value& value : row) all += Cell::Vue(value).Texte() + '\x1F';
      all += '\x1E';
    }
  }
  return all;
}

}  // namespace talpena::test

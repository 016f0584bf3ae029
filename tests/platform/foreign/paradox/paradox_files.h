// Paradox tables for tests: the real ones, and those that tests write.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "fakes/temp_folder.h"
#include "platform/foreign/foreign_rows.h"
#include "platform/foreign/paradox/paradox_format.h"

namespace talpena::test {

namespace fs = std::filesystem;

inline const fs::path paradoxFolder = fs::path(TALPENA_SHARED_DATA) / "db" / "paradox";

#define NEEDS_PARADOX_FILES() \
  if (!fs::exists(paradoxFolder)) GTEST_SKIP() << "no Paradox files under " << paradoxFolder

/// All rows of the one table of a file.
inline std::vector<Row> LitTableParadox(const std::string& path, const ParadoxLimits& limits = {}) {
  const auto database = CreeFormatParadox(limits)->Ouvre(path);
  const auto tables = database->Tables();
  EXPECT_EQ(tables.size(), 1U);
  return LitLignes(*database, tables[0].name, tables[0].fields.size());
}

/// Number of the failure that reading a table ends in; 0 for none.
inline int NumeroDeParadox(const std::string& path, const ParadoxLimits& limits = {}) {
  return Numero([&] { LitTableParadox(path, limits); });
}

/// A folder in which a table is made.
struct WrittenTable {
  explicit WrittenTable(TableDef table, const ParadoxLimits& limits = {})
      : WrittenTable(std::make_unique<TempFolder>(), std::move(table), limits) {}
  WrittenTable(std::unique_ptr<TempFolder> where, TableDef table, const ParadoxLimits& limits)
      : folder(std::move(where)),
        definition(std::move(table)),
        format(CreeFormatParadox(limits)),
        database(format->OuvrePourEcrire(folder->path().string())) {}

  std::int64_t Ecrit(RowSource& rows) const {
    database->CreeTable(definition);
    return database->InsereLignes(definition.name, rows);
  }
  std::int64_t Ecrit(std::vector<Row> rows) const {
    MadeRows source = Source(std::move(rows));
    return Ecrit(source);
  }
  std::string Table() const { return *folder / (definition.name + ".db"); }
  std::string Memos() const { return *folder / (definition.name + ".mb"); }
  std::vector<Row> Relit() const { return LitTableParadox(Table()); }

  std::unique_ptr<TempFolder> folder;
  TableDef definition;
  std::unique_ptr<ForeignFormat> format;
  std::unique_ptr<ForeignDatabase> database;
};

inline TableDef UnTexte(int size = 10) {
  return {.name = "t", .fields = {Champ("a", FieldType::Text, size)}, .indexes = {}};
}

inline TableDef UnMemo() {
  return {.name = "t", .fields = {Champ("Memo", FieldType::Memo)}, .indexes = {}};
}

}  // namespace talpena::test

// A fresh working database for each test, in a folder of its own.
#pragma once
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "fakes/talpena_table.h"
#include "fakes/temp_folder.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena::enginetest {

using test::TalpenaDef;

/// Number, description and the text of its own of the failure that a body ends with; 0 and ""
/// without one.
struct Failure {
  int number = 0;
  std::string description = {};
  int text = 0;
};

inline Failure FailureOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const TalpenaError& error) {
    return {error.number(), error.description(), error.words().text};
  }
  return {};
}

/// Rows handed to InsertRows.
class ListSource final : public RowSource {
 public:
  explicit ListSource(std::vector<std::vector<Value>> rows) : rows_(std::move(rows)) {}
  bool Suivante(std::span<Cell> cells) override {
    if (next_ == rows_.size()) return false;
    const auto& row = rows_[next_++];
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = Cell::Vue(row[i]);
    return true;
  }

 private:
  std::vector<std::vector<Value>> rows_;
  std::size_t next_ = 0;
};

class EngineTest : public ::testing::Test {
 protected:
  EngineTest() : engine(CreeMoteurSqlite()) {
    database = engine->CreateDatabase(folder / "talpena_tmp.mdb", NewDatabase{});
  }

  void CreeTalpena() { database->CreateTable(TalpenaDef()); }

  /// Adds rows with ascending N1 (1, 2, ...) to TALPENA.
  void AjouteLignes(int count) {
    auto rows = database->OpenRecordset("TALPENA");
    for (int i = 1; i <= count; ++i) {
      rows->AddNew();
      rows->Set("N1", Cell::Of(std::int64_t{i}));
      rows->Update();
    }
  }

  static std::vector<std::string> Colonne(Recordset& rows, std::string_view field) {
    std::vector<std::string> values;
    const int index = rows.FieldIndex(field);
    for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext()) values.push_back(rows.Get(index).Texte());
    return values;
  }

  std::vector<std::string> Colonne(std::string_view source, std::string_view field) {
    const auto rows = database->OpenRecordset(source);
    return Colonne(*rows, field);
  }

  test::TempFolder folder;
  std::unique_ptr<TableEngine> engine;
  std::unique_ptr<Database> database;
};

using Strings = std::vector<std::string>;

}  // namespace talpena::enginetest

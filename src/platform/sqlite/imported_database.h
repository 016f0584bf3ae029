// Tables of another maker in a database of the engine's own.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/foreign_format.h"
#include "platform/sqlite/sqlite_database.h"

namespace talpena::sqlite {

/// A table, or the rows of a saved query, is copied into a private database when a statement first
/// names it. Tables that are made here go to the maker's file at once.
class ImportedDatabase : public SqliteDatabase {
 public:
  ImportedDatabase(std::unique_ptr<ForeignDatabase> foreign, bool writable);
  /// The same with the rows in a database of the caller's.
  ImportedDatabase(std::unique_ptr<ForeignDatabase> foreign, bool writable,
                   std::shared_ptr<Connection> connection);

  void CreateTable(const TableDef& table) override;
  std::vector<std::string> TableNames() override;
  TableDef Table(std::string_view name) override;
  std::vector<TableDef> Tables() override;
  std::vector<QueryDef> Queries() override { return queries_; }
  QueryDef Query(std::string_view name) override;
  void SuitImport(ImportProgress progress) override { progress_ = std::move(progress); }
  /// Into a table that was made here, once.
  std::int64_t InsertRows(std::string_view table, std::span<const std::string_view> columns,
                          RowSource& source) override;
  void BeginTrans() override;  ///< NotSupported (3251): the maker's file knows no way back

 protected:
  TableState* Trouve(std::string_view name) override;

 private:
  /// What a table of the private database stands for.
  struct Content {
    bool query = false;
    bool here = false;   ///< its rows are in the private database
    bool empty = false;  ///< made by CreateTable, and without rows as yet
  };

  void DeclareTable(TableDef table, bool made);
  Content& ContenuDe(const TableState& table);
  void Importe(TableState& table);
  void Remplit(TableState& table, RowSource& rows, std::int64_t total);
  TableState* ExecuteRequete(const QueryDef& query);

  std::unique_ptr<ForeignDatabase> foreign_;
  bool writable_;
  std::vector<QueryDef> queries_;
  std::vector<Content> contents_;     ///< by the table's number
  std::vector<std::string> running_;  ///< queries that are run for one another
  ImportProgress progress_;
};

}  // namespace talpena::sqlite

// A database of the engine's own, or rows of another maker's in one.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/foreign_format.h"
#include "platform/sqlite/columns.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/dialect/dialect.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

class SqliteDatabase final : public Database {
 public:
  /// A new, empty file.
  static std::unique_ptr<SqliteDatabase> Cree(const std::string& path);
  /// An existing file of the engine's own.
  static std::unique_ptr<SqliteDatabase> Ouvre(const std::string& path, bool readOnly);
  /// Another maker's file, for reading: a table is taken over when it is first named.
  static std::unique_ptr<SqliteDatabase> Importe(std::unique_ptr<ForeignDatabase> foreign);

  void CreateTable(const TableDef& table) override;
  std::vector<std::string> TableNames() override;
  TableDef Table(std::string_view name) override;
  std::unique_ptr<Recordset> OpenRecordset(std::string_view source) override;
  std::int64_t Execute(std::string_view statement) override;
  std::int64_t InsertRows(std::string_view table, std::span<const std::string_view> columns,
                          RowSource& source) override;
  void BeginTrans() override;
  void CommitTrans() override { connection_->Valide(); }
  void Rollback() override { connection_->Annule(); }
  bool EnTransaction() const override { return connection_->EnTransaction(); }

 private:
  SqliteDatabase(std::shared_ptr<Connection> connection, bool readOnly)
      : connection_(std::move(connection)), readOnly_(readOnly) {}

  void ExigeEcriture() const;
  bool EstLeNotre();
  void ChargeDefinitions();
  std::shared_ptr<TableState> Declare(TableDef definition);
  TableFinder Tables();
  std::shared_ptr<TableState> TrouveTable(std::string_view name);
  void ImporteTable(TableState& table);
  std::unique_ptr<Recordset> OuvreTable(std::shared_ptr<TableState> table,
                                        const std::string& condition,
                                        const std::vector<OrderTerm>& order);
  std::int64_t ExecuteChangement(const Change& change);
  std::unique_ptr<Recordset> LitEnMemoire(const Selection& selection);
  std::int64_t Insere(TableState& table, const std::vector<int>& fields, RowSource& source,
                      Check check);

  std::shared_ptr<Connection> connection_;
  bool readOnly_;
  std::unique_ptr<ForeignDatabase> foreign_;
  std::vector<bool> imported_;  ///< by the table's number
};

}  // namespace talpena::sqlite

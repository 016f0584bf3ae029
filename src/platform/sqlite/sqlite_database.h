// A database of the engine's own.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/sqlite/columns.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/dialect/dialect.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

class SqliteDatabase : public Database {
 public:
  /// Makes the database in an empty file.
  static std::unique_ptr<SqliteDatabase> Cree(const std::string& path);
  /// An existing file of the engine's own.
  static std::unique_ptr<SqliteDatabase> Ouvre(const std::string& path, bool readOnly);

  void CreateTable(const TableDef& table) override;
  std::vector<std::string> TableNames() override;
  TableDef Table(std::string_view name) override;
  std::vector<TableDef> Tables() override;
  std::vector<QueryDef> Queries() override { return {}; }
  QueryDef Query(std::string_view name) override;
  void SuitImport(ImportProgress) override {}  // the rows are here
  void SuitTravail(WorkBeat beat) override { connection_->SuitTravail(std::move(beat)); }
  std::unique_ptr<Recordset> OpenRecordset(std::string_view source) override;
  std::int64_t Execute(std::string_view statement) override;
  std::int64_t InsertRows(std::string_view table, std::span<const std::string_view> columns,
                          RowSource& source) override;
  void BeginTrans() override;
  void CommitTrans() override { connection_->Valide(); }
  void Rollback() override { connection_->Annule(); }
  bool EnTransaction() const override { return connection_->EnTransaction(); }

 protected:
  SqliteDatabase(std::shared_ptr<Connection> connection, bool readOnly)
      : connection_(std::move(connection)), readOnly_(readOnly) {}

  void ExigeEcriture() const;
  std::shared_ptr<TableState> Declare(TableDef definition);
  /// The table that a statement names, ready to be read; null when there is none.
  virtual TableState* Trouve(std::string_view name);
  /// The rows of a query that a file keeps.
  std::unique_ptr<Recordset> OuvreRequete(std::string_view text);
  /// The fields of a table that columns name; InvalidArgument, ItemNotFound for wrong ones.
  static std::vector<int> ChampsDe(const TableState& table,
                                   std::span<const std::string_view> columns);

  /// The rows of a selection of one table where they are known without looking at all of them.
  virtual std::optional<std::vector<RowKey>> LignesConnues(const Selection& selection) {
    static_cast<void>(selection);
    return std::nullopt;
  }

  bool EstLeNotre();  ///< the file is of the engine's own
  void ChargeDefinitions();

  /// Marks a file as the engine's own, and notes a table's definition in it.
  static void MarqueLeNotre(Connection& connection);
  static void NoteDefinition(Connection& connection, const TableDef& table);

  std::shared_ptr<Connection> connection_;

 private:
  TableFinder Chercheur();
  std::shared_ptr<TableState> TrouveTable(std::string_view name);
  std::unique_ptr<Recordset> Ouvre(const Selection& selection);
  std::unique_ptr<Recordset> OuvreLignes(std::shared_ptr<TableState> table, RowList list);
  std::int64_t ExecuteChangement(const Change& change);
  std::unique_ptr<Recordset> LitEnMemoire(const Selection& selection);

  bool readOnly_;
};

}  // namespace talpena::sqlite

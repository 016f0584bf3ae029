#include "platform/sqlite/imported_database.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/field_names.h"
#include "platform/sqlite/columns.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/insert_source.h"
#include "platform/sqlite/savepoint.h"

namespace talpena::sqlite {
namespace {

/// Rows on their way, counted for whoever waits.
class CountedRows final : public RowSource {
 public:
  CountedRows(RowSource& rows, std::int64_t total, const ImportProgress& progress)
      : rows_(rows), total_(total), progress_(progress) {}
  bool Suivante(std::span<Cell> cells) override {
    constexpr std::int64_t between = 4096;
    const bool more = rows_.Suivante(cells);
    if (progress_ && (more ? ++done_ % between == 0 : done_ > 0)) progress_(done_, total_);
    return more;
  }

 private:
  RowSource& rows_;
  std::int64_t total_;
  const ImportProgress& progress_;
  std::int64_t done_ = 0;
};

/// The rows of a recordset.
class RecordsetRows final : public RowSource {
 public:
  explicit RecordsetRows(Recordset& rows) : rows_(rows) { rows_.MoveFirst(); }
  bool Suivante(std::span<Cell> cells) override {
    if (started_ && !rows_.EOF_()) rows_.MoveNext();
    started_ = true;
    if (rows_.EOF_()) return false;
    rows_.LitLigne(cells);
    return true;
  }

 private:
  Recordset& rows_;
  bool started_ = false;
};

/// Rows for a maker's table: all its fields, each checked; Null for those that are not given.
class CheckedRows final : public RowSource {
 public:
  CheckedRows(const TableState& table, const std::vector<int>& fields, RowSource& source)
      : table_(table),
        fields_(fields),
        source_(source),
        given_(fields.size()),
        scratch_(fields.size()) {}
  bool Suivante(std::span<Cell> cells) override {
    std::fill(given_.begin(), given_.end(), Cell::Null());
    if (!source_.Suivante(given_)) return false;
    std::fill(cells.begin(), cells.end(), Cell::Null());
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      cells[static_cast<std::size_t>(fields_[i])] =
          Convertit(table_, fields_[i], given_[i], scratch_[i]);
    }
    return true;
  }

 private:
  const TableState& table_;
  const std::vector<int>& fields_;
  RowSource& source_;
  std::vector<Cell> given_;
  std::vector<std::string> scratch_;
};

/// Only columns are taken over: nothing is written here that a rule would have to guard.
void OteRegles(std::vector<FieldDef>& fields) {
  for (FieldDef& field : fields) {
    field.required = false;
    field.autoIncrement = false;
  }
}

}  // namespace

ImportedDatabase::ImportedDatabase(std::unique_ptr<ForeignDatabase> foreign, bool writable)
    : ImportedDatabase(std::move(foreign), writable,
                       std::make_shared<Connection>(std::string(), Connection::Mode::Private)) {}

ImportedDatabase::ImportedDatabase(std::unique_ptr<ForeignDatabase> foreign, bool writable,
                                   std::shared_ptr<Connection> connection)
    : SqliteDatabase(std::move(connection), true),
      foreign_(std::move(foreign)),
      writable_(writable),
      queries_(foreign_->Queries()) {
  for (TableDef& table : foreign_->Tables()) {
    OteRegles(table.fields);
    DeclareTable(std::move(table), false);
  }
}

void ImportedDatabase::DeclareTable(TableDef table, bool made) {
  table.indexes.clear();
  Declare(std::move(table));
  contents_.push_back({.empty = made});
}

ImportedDatabase::Content& ImportedDatabase::ContenuDe(const TableState& table) {
  return contents_[static_cast<std::size_t>(table.Numero())];
}

std::vector<std::string> ImportedDatabase::TableNames() {
  std::vector<std::string> names;
  for (const auto& table : connection_->Tables()) {
    if (!ContenuDe(*table).query) names.push_back(table->Nom());
  }
  return names;
}

TableDef ImportedDatabase::Table(std::string_view name) {
  const TableState* table = connection_->Table(name);
  if (table == nullptr || ContenuDe(*table).query) throw TableIntrouvable(name);
  return table->Definition();
}

std::vector<TableDef> ImportedDatabase::Tables() {
  std::vector<TableDef> definitions;
  for (const auto& table : connection_->Tables()) {
    if (!ContenuDe(*table).query) definitions.push_back(table->Definition());
  }
  for (TableDef& system : foreign_->SystemTables()) definitions.push_back(std::move(system));
  return definitions;
}

QueryDef ImportedDatabase::Query(std::string_view name) {
  for (const QueryDef& query : queries_) {
    if (!MemeNom(query.name, name)) continue;
    QueryDef found = query;
    found.fields = Trouve(name)->Definition().fields;
    return found;
  }
  throw TableIntrouvable(name);
}

TableState* ImportedDatabase::Trouve(std::string_view name) {
  if (TableState* table = connection_->Table(name)) {
    Importe(*table);
    return table;
  }
  for (const QueryDef& query : queries_) {
    if (MemeNom(query.name, name)) return ExecuteRequete(query);
  }
  return nullptr;
}

void ImportedDatabase::Importe(TableState& table) {
  if (ContenuDe(table).here) return;
  if (table.Definition().fields.empty()) throw TableIntrouvable(table.Nom());
  const auto rows = foreign_->Rows(table.Nom());
  Remplit(table, *rows, foreign_->NombreLignes(table.Nom()));
  ContenuDe(table).here = true;
}

void ImportedDatabase::Remplit(TableState& table, RowSource& rows, std::int64_t total) {
  PointDeReprise point(*connection_);
  for (const std::string& sql : table.SqlCreation()) connection_->Execute(sql);
  std::vector<int> fields(table.Definition().fields.size());
  std::iota(fields.begin(), fields.end(), 0);
  CountedRows counted(rows, total, progress_);
  InsereTout(*connection_, table, fields, counted, Check::Foreign);
  point.Valide();
}

// The rows of the query become a table: nothing changes in what they were taken from.
TableState* ImportedDatabase::ExecuteRequete(const QueryDef& query) {
  if (query.sql.empty()) throw RequeteSansTexte(query.name);
  if (std::find(running_.begin(), running_.end(), query.name) != running_.end()) {
    throw RequeteCirculaire(query.name);
  }
  running_.push_back(query.name);
  std::unique_ptr<Recordset> rows;
  try {
    rows = OuvreRequete(query.sql);
  } catch (...) {
    running_.pop_back();
    throw;
  }
  running_.pop_back();
  TableDef definition{.name = query.name, .fields = rows->Fields(), .indexes = {}};
  OteRegles(definition.fields);
  RendNomsDistincts(definition.fields);  // two columns of a query may bear one name
  const auto table =
      std::make_shared<TableState>(static_cast<int>(contents_.size()), std::move(definition));
  RecordsetRows source(*rows);
  Remplit(*table, source, rows->RecordCount());
  connection_->AjouteTable(table);
  contents_.push_back({.query = true, .here = true});
  return table.get();
}

void ImportedDatabase::CreateTable(const TableDef& table) {
  if (!writable_) ExigeEcriture();
  if (connection_->Table(table.name) != nullptr) throw TableExiste(table.name);
  foreign_->CreeTable(table);
  DeclareTable(table, true);
}

std::int64_t ImportedDatabase::InsertRows(std::string_view table,
                                          std::span<const std::string_view> columns,
                                          RowSource& source) {
  if (!writable_) ExigeEcriture();
  const TableState* state = connection_->Table(table);
  if (state == nullptr) throw TableIntrouvable(table);
  Content& content = ContenuDe(*state);
  if (!content.empty) throw NonPrevu("rows go into a new table only");
  const std::vector<int> fields = ChampsDe(*state, columns);
  if (content.here) {  // looked at while it was empty
    connection_->ArreteLecteurs();
    connection_->Execute("DROP TABLE " + state->NomSql());
  }
  content = {};
  CheckedRows rows(*state, fields, source);
  return foreign_->InsereLignes(state->Nom(), rows);
}

void ImportedDatabase::BeginTrans() {
  throw NonPrevu("another maker's file cannot be changed in a transaction");
}

}  // namespace talpena::sqlite

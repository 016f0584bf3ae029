#include "platform/sqlite/sqlite_database.h"

#include <algorithm>
#include <limits>

#include "common/text.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/rows/insert_source.h"
#include "platform/sqlite/rows/memory_recordset.h"
#include "platform/sqlite/rows/record_sorter.h"
#include "platform/sqlite/rows/row_list.h"
#include "platform/sqlite/rows/table_recordset.h"
#include "platform/sqlite/savepoint.h"

namespace talpena::sqlite {
namespace {

constexpr const char* DefinitionTable = "talpena_tables";
constexpr int ApplicationId = 0x544C5041;  // "TLPA": tells our files from SQLite's others
constexpr std::size_t MostFields = 255;

/// A setting of the connection that goes back to off.
class EnEcriture {
 public:
  explicit EnEcriture(Connection& connection, std::vector<RowKey>* deleted)
      : connection_(connection) {
    connection_.ChangeStrict(true);
    connection_.SurveilleSuppressions(deleted);
  }
  ~EnEcriture() {
    connection_.ChangeStrict(false);
    connection_.SurveilleSuppressions(nullptr);
  }
  EnEcriture(const EnEcriture&) = delete;
  EnEcriture& operator=(const EnEcriture&) = delete;

 private:
  Connection& connection_;
};

bool NomAcceptable(std::string_view name) {
  return !name.empty() && name.size() <= 256 && Rogne(name) == name &&
         name.find_first_of(std::string_view("\0\t\r\n[].!`", 8)) == std::string_view::npos &&
         !MemeNom(name, DefinitionTable) &&
         !MemeNom(std::string_view(name).substr(0, 7), "sqlite_");
}

void VerifieDefinition(const TableDef& table) {
  if (!NomAcceptable(table.name) || table.fields.empty()) throw ArgumentInvalide();
  if (table.fields.size() > MostFields) {
    throw TalpenaError(ErrorNumber::TooManyFields, "Too many fields defined.");
  }
  int counters = 0;
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const FieldDef& field = table.fields[i];
    if (!NomAcceptable(field.name)) throw ArgumentInvalide();
    if (field.type == FieldType::Text && (field.size < 1 || field.size > 255)) {
      throw ArgumentInvalide();
    }
    if (field.autoIncrement && (++counters > 1 || field.type != FieldType::Long)) {
      throw ArgumentInvalide();
    }
    for (std::size_t j = 0; j < i; ++j) {
      if (MemeNom(table.fields[j].name, field.name)) throw ArgumentInvalide();
    }
  }
}

}  // namespace

std::unique_ptr<SqliteDatabase> SqliteDatabase::Cree(const std::string& path) {
  auto connection = std::make_shared<Connection>(path, Connection::Mode::Fresh);
  MarqueLeNotre(*connection);
  return std::unique_ptr<SqliteDatabase>(new SqliteDatabase(std::move(connection), false));
}

std::unique_ptr<SqliteDatabase> SqliteDatabase::Ouvre(const std::string& path, bool readOnly) {
  auto connection = std::make_shared<Connection>(
      path, readOnly ? Connection::Mode::ReadOnly : Connection::Mode::ReadWrite);
  std::unique_ptr<SqliteDatabase> database(new SqliteDatabase(std::move(connection), readOnly));
  if (!database->EstLeNotre()) throw FormatInconnu(path);
  database->ChargeDefinitions();
  return database;
}

void SqliteDatabase::MarqueLeNotre(Connection& connection) {
  connection.Execute("PRAGMA application_id = " + std::to_string(ApplicationId));
  connection.Execute(std::string("CREATE TABLE ") + DefinitionTable +
                     " (name TEXT PRIMARY KEY, definition TEXT NOT NULL) STRICT");
}

void SqliteDatabase::NoteDefinition(Connection& connection, const TableDef& table) {
  Statement note = connection.Prepare(std::string("INSERT INTO ") + DefinitionTable +
                                      " (name, definition) VALUES (?1, ?2)");
  const std::string definition = EcritDefinition(table);
  note.Lie(0, Cell::Of(std::string_view(table.name)));
  note.Lie(1, Cell::Of(std::string_view(definition)));
  note.Execute();
}

// Only tables and their indexes belong in such a file: whatever would run by itself is refused.
bool SqliteDatabase::EstLeNotre() {
  const auto number = [this](const std::string& sql) {
    Statement statement = connection_->Prepare(sql);
    return statement.Avance() ? statement.Entier(0) : 0;
  };
  return number("PRAGMA application_id") == ApplicationId &&
         number(
             "SELECT count(*) FROM sqlite_schema WHERE type NOT IN ('table', 'index') OR "
             "sql LIKE 'CREATE VIRTUAL%'") == 0 &&
         number("SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name = " +
                Litteral(DefinitionTable)) == 1;
}

void SqliteDatabase::ChargeDefinitions() {
  Statement rows = connection_->Prepare(std::string("SELECT definition FROM ") + DefinitionTable +
                                        " ORDER BY rowid");
  while (rows.Avance()) {
    const auto table = Declare(LitDefinition(rows.Texte(0)));
    try {
      connection_->Prepare("SELECT " + table->CleSql() + ", " + table->TousLesChamps() + " FROM " +
                           table->NomSql());
    } catch (const TalpenaError&) {
      throw FormatInconnu(table->Nom());
    }
  }
}

std::shared_ptr<TableState> SqliteDatabase::Declare(TableDef definition) {
  auto table = std::make_shared<TableState>(static_cast<int>(connection_->Tables().size()),
                                            std::move(definition));
  connection_->AjouteTable(table);
  return table;
}

void SqliteDatabase::ExigeEcriture() const {
  if (readOnly_) throw LectureSeule();
}

void SqliteDatabase::CreateTable(const TableDef& table) {
  ExigeEcriture();
  VerifieDefinition(table);
  if (connection_->Table(table.name) != nullptr) throw TableExiste(table.name);
  const TableState state(0, table);
  const std::vector<std::string> statements = state.SqlCreation();
  connection_->ArreteLecteurs();
  PointDeReprise point(*connection_);
  for (const std::string& sql : statements) connection_->Execute(sql);
  NoteDefinition(*connection_, table);
  point.Valide();
  Declare(table);
}

std::vector<std::string> SqliteDatabase::TableNames() {
  std::vector<std::string> names;
  for (const auto& table : connection_->Tables()) names.push_back(table->Nom());
  return names;
}

TableDef SqliteDatabase::Table(std::string_view name) {
  const TableState* table = connection_->Table(name);
  if (table == nullptr) throw TableIntrouvable(name);
  return table->Definition();
}

std::vector<TableDef> SqliteDatabase::Tables() {
  std::vector<TableDef> definitions;
  for (const auto& table : connection_->Tables()) definitions.push_back(table->Definition());
  return definitions;
}

QueryDef SqliteDatabase::Query(std::string_view name) { throw TableIntrouvable(name); }

TableState* SqliteDatabase::Trouve(std::string_view name) { return connection_->Table(name); }

TableFinder SqliteDatabase::Chercheur() {
  return [this](std::string_view name) { return Trouve(name); };
}

std::shared_ptr<TableState> SqliteDatabase::TrouveTable(std::string_view name) {
  const TableState* table = Trouve(name);
  if (table == nullptr) throw TableIntrouvable(name);
  return connection_->Tables()[static_cast<std::size_t>(table->Numero())];
}

std::unique_ptr<Recordset> SqliteDatabase::OpenRecordset(std::string_view source) {
  if (!EstSelect(source)) {
    std::string_view name = Rogne(source);
    if (name.size() > 2 && name.front() == '[' && name.back() == ']') {
      name = name.substr(1, name.size() - 2);
    }
    const auto table = TrouveTable(name);
    return OuvreLignes(table, Trie(*connection_, *table, {}, {}));
  }
  return Ouvre(TraduitSelect(source, Chercheur()));
}

std::unique_ptr<Recordset> SqliteDatabase::OuvreRequete(std::string_view text) {
  return Ouvre(TraduitRequete(text, Chercheur()));
}

std::unique_ptr<Recordset> SqliteDatabase::Ouvre(const Selection& selection) {
  if (selection.table == nullptr) return LitEnMemoire(selection);
  const auto& table = connection_->Tables()[static_cast<std::size_t>(selection.table->Numero())];
  if (auto keys = LignesConnues(selection)) return OuvreLignes(table, RowList(std::move(*keys)));
  return OuvreLignes(table, Trie(*connection_, *table, selection.condition, selection.order));
}

std::unique_ptr<Recordset> SqliteDatabase::OuvreLignes(std::shared_ptr<TableState> table,
                                                       RowList list) {
  auto rows = std::make_shared<RowList>(std::move(list));
  table->Inscrit(rows, connection_->EnTransaction());
  return std::make_unique<TableRecordset>(connection_, std::move(table), std::move(rows),
                                          readOnly_);
}

std::unique_ptr<Recordset> SqliteDatabase::LitEnMemoire(const Selection& selection) {
  auto data =
      std::make_shared<MemoryRows>(MemoryRows{selection.fields, RowArena(selection.fields.size())});
  Statement rows = connection_->Prepare(selection.sql, Access::Read);
  std::vector<Cell> cells(selection.fields.size());
  while (rows.Avance()) {
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = rows.Cellule(static_cast<int>(i));
    data->rows.Ajoute(cells);
  }
  return std::make_unique<MemoryRecordset>(connection_, std::move(data));
}

std::int64_t SqliteDatabase::Execute(std::string_view statement) {
  const Change change = TraduitChangement(statement, Chercheur());
  ExigeEcriture();
  std::vector<RowKey> deleted;
  const EnEcriture guard(*connection_, change.allRows ? nullptr : &deleted);
  connection_->ArreteLecteurs();
  const std::int64_t count = ExecuteChangement(change);
  if (change.allRows) {
    change.table->NoteVidage();
  } else if (!deleted.empty()) {
    change.table->NoteSuppressions(deleted);
  } else {
    change.table->NoteChangement();
  }
  if (change.kind == Change::Kind::Insert && count > 0) {
    change.table->NoteCle(connection_->DerniereCle());
  }
  return count;
}

// Keys have 32 bits: a statement that would number rows beyond is taken back.
std::int64_t SqliteDatabase::ExecuteChangement(const Change& change) {
  Statement statement = connection_->Prepare(change.sql, Access::Change);
  if (change.kind != Change::Kind::Insert) {
    statement.Execute();
    return connection_->LignesChangees();
  }
  PointDeReprise point(*connection_);
  statement.Execute();
  const std::int64_t count = connection_->LignesChangees();
  if (count > 0 && connection_->DerniereCle() > std::numeric_limits<RowKey>::max()) {
    throw Debordement();
  }
  point.Valide();
  return count;
}

std::vector<int> SqliteDatabase::ChampsDe(const TableState& table,
                                          std::span<const std::string_view> columns) {
  std::vector<int> fields;
  for (const std::string_view column : columns) {
    const int field = table.Champ(column);
    if (field < 0) throw ChampIntrouvable();
    if (std::find(fields.begin(), fields.end(), field) != fields.end()) throw ArgumentInvalide();
    fields.push_back(field);
  }
  if (fields.empty()) throw ArgumentInvalide();
  const auto& all = table.Definition().fields;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const bool given = std::find(fields.begin(), fields.end(), static_cast<int>(i)) != fields.end();
    if (all[i].required && !all[i].autoIncrement && !given) {
      throw NullRefuse(table.Nom(), all[i].name);
    }
  }
  return fields;
}

std::int64_t SqliteDatabase::InsertRows(std::string_view table,
                                        std::span<const std::string_view> columns,
                                        RowSource& source) {
  ExigeEcriture();
  const auto state = TrouveTable(table);
  return InsereTout(*connection_, *state, ChampsDe(*state, columns), source, Check::Strict);
}

void SqliteDatabase::BeginTrans() { connection_->Debut(); }

}  // namespace talpena::sqlite

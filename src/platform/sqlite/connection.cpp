#include "platform/sqlite/connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "platform/sqlite/dialect/functions.h"
#include "platform/sqlite/private_file.h"
#include "platform/sqlite/rows/row_update.h"
#include "platform/sqlite/rows/source_table.h"
#include "platform/sqlite/table_state.h"

namespace talpena::sqlite {
namespace {

std::string_view Vue(const void* data, int size) {
  return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
}

/// Instructions of a statement from beat to beat: few, since one of them may be a whole match of a
/// pattern, and many enough for the beats to cost nothing.
constexpr int InstructionsParBattement = 200;

/// A path as a name that says that nobody changes the file meanwhile, so that it is not locked.
std::string NomImmuable(const std::string& path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string name = path.starts_with('/') ? "file://" : "file:";
  for (const char c : path) {
    if (std::string_view("%?#").find(c) == std::string_view::npos) {
      name += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      name += {'%', digits[byte >> 4U], digits[byte & 15U]};
    }
  }
  return name + "?immutable=1";
}

bool EstInterne(const char* table) {
  return table != nullptr && std::string_view(table).starts_with("sqlite_");
}

}  // namespace

Connection::Connection(const std::string& path, Mode mode) {
  Ouvre(path, mode);
  Regle(mode);
}

// The journal, empty by now, goes with the connection.
Connection::~Connection() {
  if (writes_) sqlite3_exec(db_.get(), "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
}

void Connection::Ouvre(const std::string& path, Mode mode) {
  const int flags = mode == Mode::ReadOnly    ? SQLITE_OPEN_READONLY
                    : mode == Mode::Foreign   ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI
                    : mode == Mode::ReadWrite ? SQLITE_OPEN_READWRITE
                    : mode == Mode::Fresh     ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW
                                              : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  sqlite3* handle = nullptr;
  // An empty name is a private database of SQLite's own: in memory, on disk when it grows.
  const std::string name = mode == Mode::Private   ? std::string()
                           : mode == Mode::Fresh   ? DossierSansLiens(path)
                           : mode == Mode::Foreign ? NomImmuable(path)
                                                   : path;
  const int rc = sqlite3_open_v2(name.c_str(), &handle,
                                 flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  db_.reset(handle);
  if (rc != SQLITE_OK) throw ErreurSqlite(handle, rc);
}

void Connection::Regle(Mode mode) {
  sqlite3* db = db_.get();
  sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_limit(db, SQLITE_LIMIT_ATTACHED, 0);
  int rc = sqlite3_create_collation_v2(db, CollationName, SQLITE_UTF8, this, Compare, nullptr);
  if (rc != SQLITE_OK) Echoue(rc);
  EnregistreFonctions(*this);
  EnregistreSource(*this);
  EnregistreModification(*this);
  rc = sqlite3_set_authorizer(db, Autorise, this);
  if (rc != SQLITE_OK) Echoue(rc);
  sqlite3_update_hook(db, Note, this);
  // The file is thrown away: nothing is synced. The journal stands on disk all the same, so that
  // taking back a change of a million rows costs no memory.
  writes_ = mode != Mode::ReadOnly && mode != Mode::Foreign;
  if (writes_) {
    Execute("PRAGMA page_size = 4096");
    Execute("PRAGMA synchronous = OFF");
    Execute("PRAGMA secure_delete = OFF");
    Execute("PRAGMA locking_mode = EXCLUSIVE");
    Execute("PRAGMA journal_mode = PERSIST");
    Execute("PRAGMA journal_size_limit = 1048576");
  }
  Execute("PRAGMA cache_size = -12000");
}

Statement Connection::Prepare(std::string_view sql, Access access) {
  sqlite3_stmt* handle = nullptr;
  const Access before = access_;
  access_ = access;
  const int rc =
      sqlite3_prepare_v2(db_.get(), sql.data(), static_cast<int>(sql.size()), &handle, nullptr);
  access_ = before;
  Statement statement(*this, handle);
  if (rc != SQLITE_OK) {
    // A translated statement is well formed: what is left to refuse is its size.
    if ((rc & 0xff) == SQLITE_ERROR && access != Access::Engine && !pending_) throw TropComplexe();
    Echoue(rc);
  }
  return statement;
}

std::int64_t Connection::LignesChangees() const { return sqlite3_changes64(db_.get()); }

std::int64_t Connection::DerniereCle() const { return sqlite3_last_insert_rowid(db_.get()); }

std::int64_t Connection::DerniereCleDonnee(const TableState& table) {
  Statement last = Prepare("SELECT seq FROM sqlite_sequence WHERE name = ?1");
  last.Lie(0, Cell::Of(std::string_view(table.NomInterne())));
  return last.Avance() ? last.Entier(0) : 0;
}

TalpenaError Connection::Erreur(int resultCode) {
  if (pending_) {
    TalpenaError error = *pending_;
    pending_.reset();
    return error;
  }
  if ((resultCode & 0xff) == SQLITE_FULL && !file_.empty()) return DisquePlein(file_);
  return ErreurSqlite(db_.get(), resultCode);
}

void Connection::SuitTravail(std::function<bool()> beat) {
  beat_ = std::move(beat);
  sqlite3_progress_handler(db_.get(), InstructionsParBattement, beat_ ? Bat : nullptr, this);
}

void Connection::Travaille(std::size_t steps) {
  constexpr std::size_t stepsPerBeat = std::size_t{1} << 16;
  steps_ += steps;
  if (steps_ < stepsPerBeat || !beat_) return;
  steps_ = 0;
  if (Bat(this) != 0) throw ErreurSqlite(nullptr, SQLITE_INTERRUPT);
}

int Connection::Bat(void* self) {
  try {
    return static_cast<Connection*>(self)->beat_() ? 0 : 1;
  } catch (...) {  // nothing may be thrown through the library
    return 0;
  }
}

void Connection::Debut() {
  if (inTransaction_) throw ArgumentInvalide();
  ArreteLecteurs();
  Execute("BEGIN");
  inTransaction_ = true;
  tablesBefore_ = tables_.size();
  for (const auto& table : tables_) table->Debut();
}

void Connection::Valide() {
  if (!inTransaction_) throw PasDeTransaction();
  ArreteLecteurs();
  Execute("COMMIT");
  inTransaction_ = false;
  for (const auto& table : tables_) table->Valide();
}

void Connection::Annule() {
  if (!inTransaction_) throw PasDeTransaction();
  ArreteLecteurs();
  Execute("ROLLBACK");
  VerifieTransaction();
}

void Connection::VerifieTransaction() {
  if (!inTransaction_ || sqlite3_get_autocommit(db_.get()) == 0) return;
  inTransaction_ = false;
  for (const auto& table : tables_) table->Annule();
  tables_.resize(tablesBefore_);
  for (const auto& table : tables_) RetientCle(*table);
}

// Keys once given are not given again, though the rows that had them are gone.
void Connection::RetientCle(const TableState& table) {
  if (table.CleMax() == 0) return;
  const Cell name = Cell::Of(std::string_view(table.NomInterne()));
  auto update = Prepare("UPDATE sqlite_sequence SET seq = max(seq, ?1) WHERE name = ?2");
  update.Lie(0, table.CleMax());
  update.Lie(1, name);
  update.Execute();
  if (LignesChangees() != 0) return;
  auto insert = Prepare("INSERT INTO sqlite_sequence (seq, name) VALUES (?1, ?2)");
  insert.Lie(0, table.CleMax());
  insert.Lie(1, name);
  insert.Execute();
}

int Connection::AjouteTable(std::shared_ptr<TableState> table) {
  tables_.push_back(std::move(table));
  return static_cast<int>(tables_.size()) - 1;
}

TableState* Connection::Table(std::string_view name) const {
  const auto found = std::find_if(tables_.begin(), tables_.end(), [name](const auto& table) {
    return MemeNom(table->Nom(), name);
  });
  return found == tables_.end() ? nullptr : found->get();
}

void Connection::Raye(RunningReader* reader) { std::erase(readers_, reader); }

void Connection::ArreteLecteurs() {
  for (RunningReader* reader : readers_) reader->ArreteLecture();
}

int Connection::Autorise(void* self, int action, const char* a, const char*, const char*,
                         const char*) {
  switch (static_cast<Connection*>(self)->access_) {
    case Access::Engine:
      return SQLITE_OK;
    case Access::Change:
      if ((action == SQLITE_INSERT || action == SQLITE_UPDATE || action == SQLITE_DELETE) &&
          !EstInterne(a)) {
        return SQLITE_OK;
      }
      break;
    case Access::Read:
      break;
  }
  if (action == SQLITE_SELECT || action == SQLITE_FUNCTION) return SQLITE_OK;
  return action == SQLITE_READ && !EstInterne(a) ? SQLITE_OK : SQLITE_DENY;
}

int Connection::Compare(void* self, int sizeA, const void* a, int sizeB, const void* b) {
  return static_cast<Connection*>(self)->collation_.Compare(Vue(a, sizeA), Vue(b, sizeB));
}

void Connection::Note(void* self, int operation, const char*, const char*, sqlite3_int64 key) {
  auto* deleted = static_cast<Connection*>(self)->deleted_;
  if (operation == SQLITE_DELETE && deleted != nullptr) {
    deleted->push_back(static_cast<std::int32_t>(key));
  }
}

}  // namespace talpena::sqlite

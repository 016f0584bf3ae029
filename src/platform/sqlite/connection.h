// One SQLite connection with the engine's comparison, functions and guards.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/collation.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/statement.h"

namespace talpena::sqlite {

class TableState;

/// What a statement may do. What a user typed is prepared with Read or Change and is refused by
/// the library itself, whatever the translation let through, when it does anything else.
enum class Access : std::uint8_t {
  Engine,  ///< the engine's own statements: everything
  Change,  ///< read and change rows of the tables
  Read,    ///< read rows of the tables
};

/// Something that keeps a statement running between calls.
class RunningReader {
 public:
  virtual ~RunningReader() = default;
  virtual void ArreteLecture() = 0;  ///< ends it; never throws
};

class Connection {
 public:
  enum class Mode : std::uint8_t {
    Fresh,  ///< an empty file, made just now; a link in its place is not followed
    ReadWrite,
    ReadOnly,
    Foreign,  ///< another program's, read as it stands; nothing is made beside it
    Private,  ///< of SQLite's own, path unused
  };

  Connection(const std::string& path, Mode mode);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  Statement Prepare(std::string_view sql, Access access = Access::Engine);
  void Execute(std::string_view sql) { Prepare(sql).Execute(); }
  std::int64_t LignesChangees() const;
  std::int64_t DerniereCle() const;
  /// The highest key that a table has ever given; 0 for none.
  std::int64_t DerniereCleDonnee(const TableState& table);

  /// The failure of a call: the one that a function or a row source of ours left, else
  /// SQLite's own.
  TalpenaError Erreur(int resultCode);
  [[noreturn]] void Echoue(int resultCode) { throw Erreur(resultCode); }
  /// The database is a file of the user's own, known by this path: it is what a full disk is told
  /// of, in place of the working folder.
  void NommeFichier(std::string path) { file_ = std::move(path); }
  void LaisseErreur(const TalpenaError& error) { pending_.emplace(error); }

  /// Who is told while statements are at work, of any kind; what it throws is not passed on.
  void SuitTravail(std::function<bool()> beat);
  /// A function of ours had so many steps to do within one instruction: beats where they become
  /// many. Throws Cancelled when the user gave up.
  void Travaille(std::size_t steps);

  // One level of transaction.
  void Debut();
  void Valide();
  void Annule();
  bool EnTransaction() const { return inTransaction_; }
  /// SQLite ends a transaction by itself when the disk is full and the like: takes note of it.
  void VerifieTransaction();

  // The tables known to this connection, by a number that statements name them with.
  int AjouteTable(std::shared_ptr<TableState> table);
  const std::vector<std::shared_ptr<TableState>>& Tables() const { return tables_; }
  TableState* Table(std::string_view name) const;  ///< null when unknown

  void Inscrit(RunningReader* reader) { readers_.push_back(reader); }
  void Raye(RunningReader* reader);
  /// Ends all statements that run: what changes the whole of a table or database goes first.
  void ArreteLecteurs();

  const Collation& Ordre() const { return collation_; }
  /// True while a statement runs that changes rows: functions then fail where a condition just
  /// does not match.
  bool Strict() const { return strict_; }
  void ChangeStrict(bool strict) { strict_ = strict; }
  void SurveilleSuppressions(std::vector<std::int32_t>* deleted) { deleted_ = deleted; }
  sqlite3* Poignee() const { return db_.get(); }

 private:
  struct Ferme {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
  };
  void Ouvre(const std::string& path, Mode mode);
  void Regle(Mode mode);

  void RetientCle(const TableState& table);
  static int Autorise(void* self, int action, const char* a, const char* b, const char* database,
                      const char* trigger);
  static int Bat(void* self);
  static int Compare(void* self, int sizeA, const void* a, int sizeB, const void* b);
  static void Note(void* self, int operation, const char* database, const char* table,
                   sqlite3_int64 key);

  Collation collation_;
  std::unique_ptr<sqlite3, Ferme> db_;
  std::string file_;  ///< of the user's own; empty for the working database
  std::optional<TalpenaError> pending_;
  std::vector<std::shared_ptr<TableState>> tables_;
  std::vector<RunningReader*> readers_;
  std::vector<std::int32_t>* deleted_ = nullptr;
  std::function<bool()> beat_;
  std::size_t steps_ = 0;  ///< since the last beat
  Access access_ = Access::Engine;
  bool writes_ = false;
  bool strict_ = false;
  bool inTransaction_ = false;
  std::size_t tablesBefore_ = 0;  ///< the transaction
};

}  // namespace talpena::sqlite

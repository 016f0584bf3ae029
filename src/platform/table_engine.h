// Tables, cursors and transactions, in the vocabulary of the commands. Every failure is a
// TalpenaError with the engine's number and a description that can be shown to the user.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/value.h"

namespace talpena {

enum class FieldType : std::uint8_t {
  Boolean /* -1, 0 */,
  Byte,
  Integer /* 16 bits */,
  Long /* 32 bits */,
  Currency,
  Single,
  Double,
  Date /* days since 30 December 1899 */,
  Text,
  Memo,
  Binary
};

struct FieldDef {
  std::string name;
  FieldType type = FieldType::Text;
  int size = 0;                  ///< characters of a Text field; 0 for the other types
  bool allowZeroLength = false;  ///< Text and Memo: "" may be stored
  bool autoIncrement = false;    ///< Long: numbered by the table, never given twice in its life
  bool required = false;         ///< Null is refused
};

struct IndexDef {
  std::string name;
  std::vector<std::string> fields;
  bool unique = false;
  bool primary = false;
};

/// Bits of a table's attributes. A table with any bit of System is the maker's own.
namespace TableAttribute {
inline constexpr std::uint32_t Hidden = 0x00000001;
inline constexpr std::uint32_t System = 0x80000002;
}  // namespace TableAttribute

struct TableDef {
  std::string name;
  std::vector<FieldDef> fields;
  std::vector<IndexDef> indexes;
  std::uint32_t attributes = 0;  ///< as the maker's file has them; 0 for the engine's own tables
};

/// A query that a maker's file keeps under a name.
struct QueryDef {
  static constexpr int Select = 0;

  std::string name;
  int kind = Select;             ///< as the maker numbers it: Select, or one that changes something
  std::string sql;               ///< a SELECT of the dialect; empty when its text is not known
  std::vector<FieldDef> fields;  ///< given by Database::Query only
};

/// Names a row of a recordset's table for as long as the row lives.
using Bookmark = std::int64_t;

/// What a pass over the rows of a recordset does with each of them.
class RowChange {
 public:
  virtual ~RowChange() = default;
  /// One row: `given` holds the fields that the pass reads, `changed` takes one cell per field
  /// that it writes. False leaves the row as it is. Texts put into `changed` must stay valid
  /// until the next call.
  virtual bool Modifie(Bookmark row, std::span<const Cell> given, std::span<Cell> changed) = 0;
  /// Called between rows now and then, and behind the last: how many rows were walked, of how
  /// many. The table may be read meanwhile.
  virtual void Avance(std::int64_t done, std::int64_t total) {
    static_cast<void>(done);
    static_cast<void>(total);
  }
};

/// Numbers of some fields of neighbouring rows, handed over in blocks.
struct NumberBlock {
  std::size_t rows = 0;
  std::size_t fields = 0;
  std::span<const double> values;  ///< all fields of a row, then those of the next; NaN for Null

  double Valeur(std::size_t row, std::size_t field) const { return values[row * fields + field]; }
};
using NumberVisitor = std::function<void(const NumberBlock&)>;

/// One row that LitLignes hands over: `cells` holds one cell per field, texts valid until the next.
using RowVisitor = std::function<void(Bookmark row, std::span<const Cell> cells)>;

/// A row that was deleted and where it stood: its position among the rows of a recordset, from 0.
struct RowPlace {
  Bookmark row = 0;
  std::int64_t position = -1;  ///< -1 when it was not shown
};

class RowSource;

/// Which fields and rows a pass goes over.
struct RowPass {
  std::vector<int> read;
  std::vector<int> written;
  const std::vector<Bookmark>* only = nullptr;  ///< these rows, each once; null for all
};

/// A cursor over a table or a SELECT. It stands on a row, before the first (BOF) or behind the
/// last (EOF). Fields are addressed by index, resolved once with FieldIndex; names are matched
/// without regard to case.
///
/// A recordset over one table (any SELECT * FROM one table with WHERE and ORDER BY, and a table
/// opened by name) can be written; the rows that it shows, and their order, are those of the
/// moment it was opened, less the rows deleted since, plus its own (and its clones') added
/// rows at the end. Values are always current.
class Recordset {
 public:
  virtual ~Recordset() = default;

  virtual const std::vector<FieldDef>& Fields() const = 0;
  virtual int FieldIndex(std::string_view name) const = 0;  ///< ItemNotFound (3265) if absent

  virtual bool BOF() const = 0;
  virtual bool EOF_() const = 0;
  virtual void MoveFirst() = 0;  ///< on an empty recordset: BOF and EOF, no failure
  virtual void MoveLast() = 0;
  virtual void MoveNext() = 0;      ///< NoCurrentRecord (3021) when already at EOF
  virtual void MovePrevious() = 0;  ///< NoCurrentRecord (3021) when already at BOF
  virtual std::int64_t RecordCount() = 0;

  virtual Bookmark GetBookmark() const = 0;           ///< NoCurrentRecord (3021) off a row
  virtual void SetBookmark(Bookmark) = 0;             ///< InvalidBookmark (3159) if the row is gone
  virtual std::int64_t AbsolutePosition() const = 0;  ///< from 0; -1 off a row
  virtual void SetAbsolutePosition(std::int64_t) = 0;  ///< InvalidArgument (3001) beyond the rows
  /// Called before a walk over all rows, from the first to the last, that changes none: those of a
  /// sorted recordset may then be read together beforehand. `avance` is told how far that came.
  /// Nothing else differs, and a failure is left to the row that it concerns.
  using Progress = std::function<void(std::int64_t done, std::int64_t total)>;
  virtual void AnnonceParcours(const Progress& avance) { static_cast<void>(avance); }
  /// Where a row stands, from 0; -1 when it is not shown. The cursor does not move.
  virtual std::int64_t PositionDe(Bookmark row) const = 0;

  /// Value of a field of the current row, or of the row being edited or added. Off a row:
  /// NoCurrentRecord (3021); on a row that was deleted meanwhile: 3167. A text is valid until the
  /// recordset moves, changes or closes, or a transaction begins or ends.
  virtual Cell Get(int field) = 0;
  Cell Get(std::string_view name) { return Get(FieldIndex(name)); }
  /// The first cells.size() fields at once: what loops over many rows use.
  virtual void LitLigne(std::span<Cell> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = Get(static_cast<int>(i));
  }

  /// A row is changed between Edit or AddNew and Update. Set refuses at once what the column
  /// cannot hold: DataConversion (3421), Overflow (6), FieldTooSmall (3163), ZeroLength (3315),
  /// NullNotAllowed (3314). A text into a numeric field goes through the numeric parse when the
  /// whole of it is a number; a Single is rounded to 32 bits. Moving drops an open edit.
  virtual void AddNew() = 0;
  virtual void Edit() = 0;
  virtual void Set(int field, Cell value) = 0;
  void Set(std::string_view name, Cell value) { Set(FieldIndex(name), value); }
  virtual void Update() = 0;  ///< after AddNew the cursor goes back to the row it stood on
  virtual void CancelUpdate() = 0;
  /// The row added last by this recordset.
  virtual Bookmark LastModified() const = 0;
  /// Adds every row of the source, with one cell per field, checked as by Set, behind the rows that
  /// the recordset shows: what imports use. A refused row, or a failure of the source, is thrown
  /// on: the rows before it stay. The cursor does not move. Returns the number of rows added.
  virtual std::int64_t AjouteLignes(std::span<const int> fields, RowSource& source) = 0;
  /// Hands every row of the pass to `change` and stores what it answers, checked as by Set: what
  /// commands over many rows use. The rows come in no promised order; those deleted meanwhile are
  /// left out. A refused value, or a failure of `change`, is thrown on: the rows changed before
  /// it stay. The cursor does not move. Returns the number of rows changed.
  virtual std::int64_t ModifieLignes(const RowPass& pass, RowChange& change) = 0;
  /// Puts the same values into fields of every row that the recordset shows, checked as by Set, and
  /// tells `avance` how far it came, as a pass does. Without rows nothing is checked. A refused
  /// value changes no row. The cursor does not move. Returns the number of rows changed.
  virtual std::int64_t RemplitLignes(std::span<const int> fields, std::span<const Cell> values,
                                     const Progress& avance) = 0;
  /// The same for one field of the rows in which it holds `before`, as `=` compares it.
  virtual std::int64_t RemplaceValeur(int field, const Cell& before, const Cell& value,
                                      const Progress& avance) = 0;
  /// Deletes the current row; the cursor then stands on no row until it is moved (MoveNext goes
  /// to the row behind the deleted one).
  virtual void Delete() = 0;
  /// Deletes the rows that are named and that the recordset shows; the others are passed over. What
  /// a failure leaves of them is for the caller's transaction to put back. The cursor stands where
  /// it stood, on no row if its own is gone. Returns the number of rows deleted.
  virtual std::int64_t SupprimeLignes(std::span<const Bookmark> rows) = 0;

  /// Hands over the rows that are named and that the recordset shows, each once, in no promised
  /// order: what is kept of rows before they change or go. `visit` may not change the table; what
  /// it throws is thrown on. The cursor does not move.
  virtual void LitLignes(std::span<const Bookmark> rows, const RowVisitor& visit) = 0;
  /// Puts rows back that were deleted, each under its own bookmark (and so its own number), with
  /// the values that the source gives for it: one cell per field, row after row as in `places`;
  /// the cell of the numbered field is not looked at. Where a row was when a recordset that is
  /// still open lost it, it stands again. In this recordset and its clones a row that they have
  /// never shown stands at its position, counted among all rows when all are back; not at all
  /// with -1. A cursor stays on its row. A row that is not gone raises DuplicateKey (3022), a
  /// bookmark that the table never gave InvalidBookmark (3159); then nothing is put back.
  virtual void RetablitLignes(std::span<const RowPlace> places, RowSource& values) = 0;

  /// First or next row that meets a condition as a user may write it; false, with the position
  /// unchanged, when there is none.
  virtual bool FindFirst(std::string_view condition) = 0;
  virtual bool FindNext(std::string_view condition) = 0;

  /// Reads numeric fields of every row, or of the rows named in `only`, each once; in the order of
  /// the recordset or of `only`: what draws many rows uses. Rows deleted meanwhile are left out. A
  /// field that holds no numbers raises DataConversion (3421). `visit` may read the table, but
  /// not change it; what it throws is thrown on. The cursor does not move.
  virtual void LitNombres(std::span<const int> fields, const std::vector<Bookmark>* only,
                          const NumberVisitor& visit) = 0;

  /// An independent cursor over the same rows, sharing their list, standing on the first.
  virtual std::unique_ptr<Recordset> Clone() = 0;
};

/// Rows handed to a table one by one, without a cursor.
class RowSource {
 public:
  virtual ~RowSource() = default;
  /// Fills one cell per column asked for; false when there is no further row. Texts must stay
  /// valid until the next call.
  virtual bool Suivante(std::span<Cell> cells) = 0;
};

/// The beat of long work, called many times a second from inside a statement. It must not come back
/// to the database. False ends the statement with the failure Cancelled, and with it the
/// transaction that it changed rows in.
using WorkBeat = std::function<bool()>;

/// Told how many rows of a maker's table were taken over, of how many (-1 when that is not known).
/// What it throws ends the taking over.
using ImportProgress = std::function<void(std::int64_t done, std::int64_t total)>;

class Database {
 public:
  virtual ~Database() = default;

  virtual void CreateTable(const TableDef& table) = 0;  ///< TableExists (3010)
  virtual std::vector<std::string> TableNames() = 0;    ///< of those that can be opened
  virtual TableDef Table(std::string_view name) = 0;    ///< TableNotFound (3078)
  /// All tables of the file. Those of the maker's own, and the damaged ones of a folder, come last,
  /// with their names and attributes but without fields: they cannot be opened.
  virtual std::vector<TableDef> Tables() = 0;
  /// The saved queries of the file, without their fields.
  virtual std::vector<QueryDef> Queries() = 0;
  /// One saved query with its fields, for which it is run; its name may then stand wherever a
  /// table's may be read. TableNotFound (3078); NotSupported (3251) for one that cannot be run.
  virtual QueryDef Query(std::string_view name) = 0;

  /// Who is told how far it came when a long table of another maker is taken over (a table is, when
  /// a statement first names it). A table that was broken off is taken over anew the next time.
  virtual void SuitImport(ImportProgress progress) = 0;

  /// Who is told while statements of this database are at work; nobody by an empty function.
  virtual void SuitTravail(WorkBeat beat) = 0;

  /// `source` is a table's name or a SELECT of the dialect that docs/table-engine.md describes.
  virtual std::unique_ptr<Recordset> OpenRecordset(std::string_view source) = 0;

  /// One statement that changes rows (DELETE, UPDATE, INSERT); the number of rows it changed. It
  /// changes none when it fails.
  virtual std::int64_t Execute(std::string_view statement) = 0;

  /// Adds every row of the source to a table, values checked as by Recordset::Set. On a refused
  /// row, or when the source throws, the failure is thrown on and the rows before it stay. An
  /// auto-increment column may be given; Null in it means the next number.
  virtual std::int64_t InsertRows(std::string_view table, std::span<const std::string_view> columns,
                                  RowSource& source) = 0;

  /// One level of transaction. A second BeginTrans raises InvalidArgument; the other two outside
  /// a transaction raise NoTransaction (3034). Rollback also takes back what was done to the
  /// lists of open recordsets.
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void Rollback() = 0;
  virtual bool EnTransaction() const = 0;
};

/// Commits on Valide(), rolls back when left without it.
class Transaction {
 public:
  explicit Transaction(Database& database) : database_(&database) { database.BeginTrans(); }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction() {
    if (database_ != nullptr && database_->EnTransaction()) {
      try {
        database_->Rollback();
      } catch (...) {  // nothing more can be undone while unwinding
      }
    }
  }
  void Valide() {
    database_->CommitTrans();
    database_ = nullptr;
  }

 private:
  Database* database_;
};

/// What a new database declares of itself: the language that orders its texts, the code page, the
/// country of its maker. As it stands: the general order, the western code page, any country.
struct NewDatabase {
  int langId = 0x0409;
  int codePage = 1252;
  int country = 0;

  friend bool operator==(const NewDatabase&, const NewDatabase&) = default;
};

/// A table, or the rows of a saved query, of another maker's file that is kept between openings.
struct KeptTable {
  std::string folder;  ///< holds the copies and nothing else; made, for the user alone, when absent
  std::string stamp;   ///< tells the state of the file and what is kept of it from all others
  std::string table;
  std::string field;  ///< what is searched: by `=` and by LIKE 'text*' it is found by an index
  std::int64_t most = std::int64_t{512} << 20;  ///< bytes of all copies; the oldest go
};

class TableEngine {
 public:
  virtual ~TableEngine() = default;

  /// Who is called, at least every 50 ms, while other makers' files are read, from opening them to
  /// their last row.
  virtual void SuitAttente(const WorkBeat&) {}

  /// A new, empty, throw-away database in the engine's own format, which knows the general order
  /// only: InvalidArgument (3001) for another. Nobody but the user can read the file, and no link
  /// leads it elsewhere. Raises PathFileAccess, FileExists, also for a link that leads nowhere, ...
  virtual std::unique_ptr<Database> CreateDatabase(const std::string& path,
                                                   const NewDatabase& settings) = 0;

  /// An existing database: the engine's own files and, through the readers of foreign formats,
  /// other makers' files. `connect` names another maker's format (foreign_format.h), empty for
  /// Access; for some formats `path` is a folder of tables. Other makers' rows can be read only,
  /// but where `readOnly` is false and `connect` names a format that is written, tables can be made
  /// and take rows by InsertRows, once each; then nothing needs to be at `path` yet.
  /// Raises DatabaseNotFound (3024), UnrecognizedFormat (3343), also for a pipe or a device, which
  /// are not waited for, NotSupported (3251).
  virtual std::unique_ptr<Database> OpenDatabase(const std::string& path, bool readOnly,
                                                 std::string_view connect = {}) = 0;

  /// OpenDatabase for reading, where one table is read from a copy that was kept when it was named
  /// in a statement before, under the same stamp. Such a database has that table alone. A copy that
  /// is damaged, or in use, is passed over, and one that cannot be kept is done without.
  virtual std::unique_ptr<Database> OpenKept(const std::string& path, std::string_view connect,
                                             [[maybe_unused]] const KeptTable& kept) {
    return OpenDatabase(path, true, connect);
  }

  /// A new, empty file of another maker's for tables to be made in, as OpenDatabase opens them for
  /// writing. Raises FileExists (58), NotSupported (3251) for a format that is not written.
  virtual std::unique_ptr<Database> CreateForeignDatabase(const std::string& path,
                                                          std::string_view connect,
                                                          const NewDatabase& settings) = 0;
};

}  // namespace talpena

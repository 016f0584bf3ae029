// The data control: the SELECT that the grid and all row commands look through.
#pragma once
#include <functional>
#include <memory>
#include <string>

#include "platform/table_engine.h"

namespace talpena {

/// Holds a source and the recordset opened on it. Refresh re-reads the source; whoever shows its
/// rows is told of that by the document. Its recordset's position is the program's current row.
class DataControl {
 public:
  enum class Change { Rows, Values, Position };
  using Teller = std::function<void(Change)>;

  DataControl() = default;
  explicit DataControl(Teller tell) : tell_(std::move(tell)) {}

  /// The source is a table's name or a SELECT; it is read at the next Refresh.
  std::string RecordSource;

  void Lie(Database& database) { database_ = &database; }
  bool EstLie() const { return recordset_ != nullptr; }

  /// Opens RecordSource anew and goes to its first row. When the engine refuses the source, the
  /// old recordset stays and the failure is thrown.
  void Refresh();

  /// The same over another source; the row that was current stays it when it is among the rows.
  /// When the engine refuses the source, nothing has changed and the failure is thrown.
  void ChangeSource(const std::string& source);

  /// The current row is another one: all who show it are told.
  void SignalePosition() { Signale(Change::Position); }

  /// The bound recordset; NoCurrentRecord (3021) before the first Refresh. Its rows are read and
  /// gone through here; they are changed by an Edition alone.
  Recordset& recordset();
  std::unique_ptr<Recordset> Clone() { return recordset().Clone(); }

 private:
  void Signale(Change change);
  void RetourneALigne(Bookmark row);

  Teller tell_;
  Database* database_ = nullptr;
  std::unique_ptr<Recordset> recordset_;
};

}  // namespace talpena

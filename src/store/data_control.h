// The data control: the SELECT that the grid and all row commands look through.
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/table_engine.h"

namespace talpena {

/// Holds a source and the recordset opened on it. Refresh re-reads the source; whoever shows its
/// rows listens for that. Its recordset's position is the program's current row.
class DataControl {
 public:
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

  /// Tells the listeners that rows were added to or deleted from the recordset by its clones. Added
  /// rows stand at its end, whatever its order and its condition, until the next Refresh.
  void SignaleLignes();
  /// Tells the listeners that values changed while the list of rows did not.
  void SignaleValeurs();
  /// Tells the listeners that the current row is another one.
  void SignalePosition();

  /// The bound recordset; NoCurrentRecord (3021) before the first Refresh.
  Recordset& recordset();
  std::unique_ptr<Recordset> Clone() { return recordset().Clone(); }

  enum class Change { Rows, Values, Position };
  using Listener = std::function<void(Change)>;
  void Ecoute(Listener listener) { listeners_.push_back(std::move(listener)); }

 private:
  void Signale(Change change);
  void RetourneALigne(Bookmark row);

  Database* database_ = nullptr;
  std::unique_ptr<Recordset> recordset_;
  std::vector<Listener> listeners_;
};

}  // namespace talpena

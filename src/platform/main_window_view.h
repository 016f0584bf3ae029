// What the commands may ask of the grid of the main window: which rows and columns are chosen.
#pragma once
#include <optional>
#include <vector>

#include "platform/table_engine.h"

namespace talpena {

/// Grid columns from one to another, both included.
struct ColumnRange {
  int first = 0;
  int last = 0;
  bool operator==(const ColumnRange&) const = default;
};

class MainWindowView {
 public:
  virtual ~MainWindowView() = default;

  /// Bookmarks of the rows chosen in the grid, in the order in which they were chosen; none when no
  /// row is chosen.
  virtual std::vector<Bookmark> LignesSelectionnees() = 0;
  /// From now on these rows are chosen in the grid, in this order, and no others; names of rows
  /// that it does not show are passed over.
  virtual void ChoisitLignes(const std::vector<Bookmark>& rows) = 0;
  /// The columns chosen in the grid by their headings; empty when none is.
  virtual std::optional<ColumnRange> ColonnesSelectionnees() = 0;
  virtual void SelectionneColonnes(ColumnRange columns) = 0;
  virtual int ColonneCourante() = 0;  ///< of the grid's cursor; 0 when it stands nowhere
  virtual void PlaceFocusGrille() = 0;
  /// The same, with the grid's cursor in this column of the current row.
  virtual void PlaceFocusColonne(int column) = 0;
};

}  // namespace talpena

// The row lines of a .deg file, handed to the table one by one.
#pragma once
#include <array>
#include <span>
#include <string_view>

#include "platform/main_window_view.h"
#include "platform/table_engine.h"
#include "store/deg_lines.h"
#include "store/deg_row_reader.h"
#include "store/state.h"

namespace talpena {

/// Reads rows from where the lines stand up to the end of the file or of its data. A bare point
/// sets FichierModifie and runs the message loop; ProgressBar1 moves at each tenth of the file.
class DegFileRows : public RowSource {
 public:
  /// The columns that Suivante fills, in this order.
  static constexpr std::array<std::string_view, 10> Columns = {
      "Period", "Latitude", "Longitude", "N1", "N2", "Sex", "Datum", "Original", "Date", "comment"};

  /// Separator and number of free fields are those of the state.
  DegFileRows(StoreState& state, MainWindowView& vue, DegLines& lines);

  /// Raises Overflow (6) for a number that its column cannot hold and for a line above
  /// MaxRowLine, and what reading the file raises.
  bool Suivante(std::span<Cell> cells) override;

  /// Number of the line that was read last, from 1; 0 while no line could be read.
  std::int64_t LigneEnMain() const { return line_; }

  int DernierPourcent() const { return shown_; }  ///< shown last

 private:
  void SignalePoint();
  void MontreAvance();

  StoreState& state_;
  MainWindowView& vue_;
  DegLines& lines_;
  DegRowReader reader_;
  std::int64_t line_ = 0;
  int shown_ = 0;
};

}  // namespace talpena

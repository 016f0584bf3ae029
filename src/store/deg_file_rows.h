// The rows of a .deg file on their way into the table.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "platform/deg_lines.h"
#include "platform/table_engine.h"
#include "store/deg_row_reader.h"
#include "store/distribution_header.h"

namespace talpena {

/// Reads row after row. Who reads may be told how far it came and of lines that are bare points.
class DegFileRows : public RowSource {
 public:
  /// The columns that Suivante fills, in this order.
  static constexpr std::array<std::string_view, 10> Columns = {
      "Period", "Latitude", "Longitude", "N1", "N2", "Sex", "Datum", "Original", "Date", "comment"};

  /// Separator and number of free fields are those of the header.
  DegFileRows(const DistributionHeader& entete, DegLines& lines);

  std::function<void()> SurPointNu;            ///< a short line: the row is not what the file says
  std::function<void(int percent)> SurAvance;  ///< at each tenth of the file
  std::function<void()> SurLigne;              ///< at each; what it throws leaves it out

  /// Raises Overflow (6) for a number that its column cannot hold and for a line above
  /// MaxRowLine, and what reading the file raises.
  bool Suivante(std::span<Cell> cells) override;

  /// Number of the line that was read last, from 1; 0 while no line could be read.
  std::int64_t LigneEnMain() const { return line_; }

  const DegRow& Ligne() const { return reader_.Ligne(); }  ///< the row of that line

  int DernierPourcent() const { return shown_; }  ///< told last

 private:
  void DitAvance();

  DegLines& lines_;
  DegRowReader reader_;
  std::int64_t line_ = 0;
  int shown_ = 0;
};

}  // namespace talpena

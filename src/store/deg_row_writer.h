// The rows of the table as the lines of a .deg file.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/settings_state.h"
#include "platform/table_engine.h"
#include "store/deg_line_writer.h"
#include "store/deg_sink.h"
#include "store/table.h"

namespace talpena {

/// Writes the rows of a recordset from its first to its last. Rows that are Null in all ten
/// columns are left out. A Null latitude or longitude is a doubt, behind which the value of the row
/// before it is written.
class DegRowWriter {
 public:
  /// @param settings  the language of the doubts, and SeparateurChamps
  DegRowWriter(const SettingsState& settings, Recordset& rows, DegSink& sink)
      : settings_(settings), rows_(rows), sink_(sink) {}

  /// One line for each row.
  void EcritUneParUne();

  /// One line for rows of the same period and point that stand together: N1 and N2 summed, the
  /// comments joined by SeparateurChamps and cut to 255 characters, date, original and sex of the
  /// first of them. The datum is that of the first row behind the group; only the last group has
  /// datum and sex of its own last row.
  void EcritGroupees();

 private:
  using Cells = std::array<Cell, Column::Count>;

  /// The accumulators of a group.
  struct Group {
    std::int32_t period = 0;
    float latitude = 0;
    float longitude = 0;
    std::int32_t n1 = 0;
    std::int32_t n2 = 0;
    std::string sex;
    std::string date;
    std::string original;
    std::string comment;
    std::int64_t row = 0;  ///< its first row, from 1
  };

  template <typename Row>
  void ParcourtLignes(Row&& row);
  bool LitRangee(Cells& cells);
  void LitPoint(const Cells& cells, std::int64_t row, float& latitude, float& longitude);
  void LitGroupe(const Cells& cells, std::int64_t row);
  bool EstDuGroupe(const Cells& cells) const;
  void AjouteAuGroupe(const Cells& cells);
  void RogneCommentaire();
  void EcritGroupe(std::string_view sex, std::string_view datum);
  void Ecrit(const DegLine& line, std::int64_t row);
  void DitAvance(std::int64_t row);

  const SettingsState& settings_;
  Recordset& rows_;
  DegSink& sink_;
  std::int64_t total_ = 0;
  std::int64_t shown_ = -1;  ///< the percentage told last
  Group group_;
  std::string bytes_;  ///< the line at hand
  std::vector<LackingCharacters> lacking_;
};

}  // namespace talpena

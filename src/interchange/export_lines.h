// The rows of the table as the lines of a text export, in code page 1252 with CR LF.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "interchange/lambert_points.h"
#include "platform/settings_state.h"
#include "platform/table_engine.h"

namespace talpena {

/// What stands around the values of a line.
struct ExportTexts {
  std::string_view premier;     ///< before the first field
  std::string_view avant;       ///< before each field
  std::string_view apres;       ///< behind each field
  std::string_view separateur;  ///< before every field but the first
};

/// Fixed format (0), commas (1), tabulations (2), blanks (3); any other: SubscriptOutOfRange (9).
const ExportTexts& TextesDuMode(int mode);

class ExportLines {
 public:
  /// @param settings  whose Export* say which columns are written; read at each line
  ExportLines(const SettingsState& settings, int mode)
      : settings_(settings), texts_(TextesDuMode(mode)) {}

  /// Adds the header: the words of the columns. Every word but X has its separator ahead of it, so
  /// that a header without X and Y begins with one.
  void AjouteEnTete(std::string& bytes) const;

  /// Raises what keeps a row from being written: a Null in any column but Sex, written or not.
  /// @param cells  of the table, Column::Count of them
  /// @param row    its place in the grid, from 1, which the failure names
  static void Verifie(std::span<const Cell> cells, std::int64_t row);

  /// Adds the line of a row that Verifie lets pass. A latitude has always the sign "+", south of
  /// the equator too, and texts stand as they are, without quotes: programs read these files so. A
  /// character that the code page lacks is a failure (481) that names row, column and character.
  /// @param point  X and Y, where they are written
  void AjouteLigne(std::string& bytes, std::span<const Cell> cells, std::int64_t row,
                   const std::optional<LambertPoint>& point) const;

 private:
  const SettingsState& settings_;
  const ExportTexts& texts_;
};

}  // namespace talpena

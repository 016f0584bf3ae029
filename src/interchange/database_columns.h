// The columns of a database export.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "interchange/database_targets.h"
#include "platform/settings_state.h"
#include "platform/table_engine.h"
#include "store/distribution_header.h"

namespace talpena {

/// Where the value of a column comes from.
enum class ColumnSource : std::uint8_t {
  X,
  Y,
  Single,       ///< a field of the table as it is
  Whole,        ///< a field, as a 32-bit integer
  Text,         ///< a field, as a text
  TrimmedText,  ///< the same without blanks at its ends
  FreeField,    ///< one of the free fields of COMMENT
  Memo,         ///< title and comment of the file
  Point         ///< the row on WGS84
};

struct ExportColumn {
  FieldDef field;
  ColumnSource source = ColumnSource::Memo;
  std::size_t place = 0;  ///< the field of the table, the number of the free field
};

/// The columns that the settings Export* say, X and Y first, and behind them the one of title and
/// comment, which is always there. No two bear one name.
std::vector<ExportColumn> ColonnesExportees(const SettingsState& settings,
                                            const DistributionHeader& header, ColumnStyle style);

}  // namespace talpena

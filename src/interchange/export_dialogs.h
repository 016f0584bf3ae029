// The dialog that the exports share.
#pragma once
#include <cstdint>

namespace talpena {

/// What the columns are chosen for. A text export loses the sign of southern latitudes.
enum class ExportKind : std::uint8_t { Text, Database };

class ExportDialogs {
 public:
  virtual ~ExportDialogs() = default;
  /// OptionsExport, modal; false when it was left by Cancel. What was chosen is in the settings
  /// Export*.
  virtual bool MontreOptionsExport(ExportKind kind) = 0;
};

}  // namespace talpena

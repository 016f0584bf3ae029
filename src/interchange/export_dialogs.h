// The dialog that the exports share.
#pragma once

namespace talpena {

class ExportDialogs {
 public:
  virtual ~ExportDialogs() = default;
  /// OptionsExport, modal; false when it was left by Cancel. What was chosen is in the settings
  /// Export*.
  virtual bool MontreOptionsExport() = 0;
};

}  // namespace talpena

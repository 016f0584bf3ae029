// What the import commands work with.
#pragma once
#include <string>

#include "interchange/state.h"
#include "store/command_context.h"

namespace talpena {

/// The dialogs of the imports. Both are modal.
class ImportDialogs {
 public:
  virtual ~ImportDialogs() = default;
  /// frmImportation: file and system go to the state, the answer to Variable.
  virtual void MontreImportation() = 0;
  /// frmImportGarmin over the waypoints of a file.
  /// @param type  0 for a file of MapSource
  virtual void MontreImportGarmin(const std::string& fileName, int type) = 0;
};

struct ImportContext : CommandContext {
  InterchangeState& interchange;
  ImportDialogs& dialogs;
};

}  // namespace talpena

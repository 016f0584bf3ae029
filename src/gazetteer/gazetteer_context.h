// What the commands of the gazetteer work with.
#pragma once
#include "gazetteer/state.h"
#include "store/command_context.h"

namespace talpena {

/// The dialogs that the query opens.
class GazetteerDialogs {
 public:
  virtual ~GazetteerDialogs() = default;
  virtual void MontreGeoSetup() = 0;  ///< frmGeoSetup, modal
};

struct GazetteerContext : CommandContext {
  GazetteerState& gazetteer;
  GazetteerDialogs& dialogs;
};

}  // namespace talpena

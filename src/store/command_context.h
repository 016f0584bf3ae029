// What the commands of the main window work with.
#pragma once
#include "platform/main_window_view.h"
#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

struct CommandContext {
  StoreState& state;
  Platform& io;
  MainWindowView& vue;
};

}  // namespace talpena

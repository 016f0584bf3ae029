// What the commands of the main window work with.
#pragma once
#include "platform/main_window_view.h"
#include "platform/platform.h"
#include "platform/wait_view.h"
#include "store/state.h"
#include "store/store_port.h"

namespace talpena {

struct CommandContext {
  StoreState& state;
  Platform& io;
  MainWindowView& vue;
  WaitView& attente;
  StorePort& port;

  Document& document() const { return state.document; }
};

}  // namespace talpena

// Every window of the program beside the main window, made for a look at it.
#pragma once
#include <QWidget>
#include <memory>
#include <span>

#include "shell/start_stop.h"

namespace talpena {

/// What the windows are made with; a file is open.
using GalleryContext = ShellContext;

struct GalleryWindow {
  const char* name;  ///< short, for files and messages
  std::unique_ptr<QWidget> (*cree)(const GalleryContext& context);
};

/// One entry per window. A new window gets a line here: pictures and the tests that go over all
/// windows then have it too.
std::span<const GalleryWindow> ToutesLesFenetres();

}  // namespace talpena

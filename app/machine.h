// The machine that the program runs on: tables, files, settings, boxes, clock, environment, sound.
#pragma once
#include <memory>

#include "formats.h"
#include "platform/os/file_system.h"
#include "platform/platform.h"
#include "platform/qt/qt_dialogues.h"
#include "platform/qt/qt_system.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena {

struct Machine {
  std::unique_ptr<TableEngine> engine = CreeMoteurSqlite(TousLesFormats());
  std::unique_ptr<FileSystem> files = CreeSystemeDeFichiers();
  QtSettingsStore settings;
  QtDialogues dialogues;
  QtClock clock;
  QtEnvironment environment;
  QtSound sound;
  Platform io{*engine, *files, settings, dialogues, clock, environment, sound};
};

}  // namespace talpena

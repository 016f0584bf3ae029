// The machine that the program runs on: tables, files, settings, boxes, clock, environment, sound.
#pragma once
#include <memory>
#include <utility>
#include <vector>

#include "platform/foreign/dbase/dbase_format.h"
#include "platform/foreign/jet_format.h"
#include "platform/foreign/paradox/paradox_format.h"
#include "platform/foreign_format.h"
#include "platform/os/file_system.h"
#include "platform/platform.h"
#include "platform/qt/qt_dialogues.h"
#include "platform/qt/qt_system.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena {

/// Other makers' table files that the engine knows.
inline std::vector<std::unique_ptr<ForeignFormat>> TousLesFormats() {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  formats.push_back(CreeFormatDbase());
  formats.push_back(CreeFormatFoxPro());
  formats.push_back(CreeFormatParadox());
  return formats;
}

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

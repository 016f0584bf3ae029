// The machine and the toolkit as the logic sees them.
#pragma once
#include "platform/dialogues.h"
#include "platform/files.h"
#include "platform/settings_store.h"
#include "platform/system.h"
#include "platform/table_engine.h"

namespace talpena {

struct Platform {
  TableEngine& engine;
  FileSystem& files;
  SettingsStore& settings;
  Dialogues& dialogues;
  Clock& clock;
  Environment& environment;
  Sound& sound;
};

}  // namespace talpena

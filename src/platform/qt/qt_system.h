// Settings, clock, environment and sound by Qt.
#pragma once
#include "platform/settings_store.h"
#include "platform/system.h"

namespace talpena {

/// One ini file per application under the user's configuration folder; the registry on Windows.
class QtSettingsStore : public SettingsStore {
 public:
  std::string Lit(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view defaultText) override;
  void Ecrit(std::string_view application, std::string_view section, std::string_view key,
             std::string_view text) override;
};

class QtClock : public Clock {
 public:
  int AnneeCourante() override;
};

class QtEnvironment : public Environment {
 public:
  std::string Variable(std::string_view name) override;
  std::string DossierTemporaire() override;
  std::string LecteurCD() override;
  bool ChangeDossier(const std::string& folder) override;
};

class QtSound : public Sound {
 public:
  void Bip() override;
};

}  // namespace talpena

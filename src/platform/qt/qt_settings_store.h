// The settings store on QSettings.
#pragma once
#include <QSettings>
#include <map>
#include <memory>

#include "platform/settings_store.h"

namespace talpena {

/// One ini file per application, "<configuration folder>/Talpena/<application>.ini"; a key of
/// the registry under HKEY_CURRENT_USER\Software\Talpena on Windows. Applications whose names
/// differ only in case are one and share a file. A store that cannot be read gives the defaults;
/// one that is no file is neither read nor written, and not waited for.
class QtSettingsStore : public SettingsStore {
 public:
  std::string Lit(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view defaultText) override;
  void Ecrit(std::string_view application, std::string_view section, std::string_view key,
             std::string_view text) override;
  void EcritTout(std::string_view application, std::span<const SettingEntry> entries) override;

 private:
  QSettings* Application(std::string_view name);  ///< null when there is no file to read
  QSettings& PourEcrire(std::string_view name);

  std::map<QString, std::unique_ptr<QSettings>> applications_;  ///< by name in lower case
};

}  // namespace talpena

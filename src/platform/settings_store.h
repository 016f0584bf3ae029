// The per-user store of settings.
#pragma once
#include <span>
#include <string>
#include <string_view>

namespace talpena {

/// One text on its way into the store.
struct SettingEntry {
  std::string section;
  std::string key;
  std::string text;
};

/// Texts addressed by application, section and key; case of the three does not matter.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string Lit(std::string_view application, std::string_view section,
                          std::string_view key, std::string_view defaultText) = 0;
  /// PathFileAccess (75), naming the store, when it cannot be written.
  virtual void Ecrit(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view text) = 0;
  /// Several texts of one application at once; a backing may do it in one step. Fails as Ecrit.
  virtual void EcritTout(std::string_view application, std::span<const SettingEntry> entries) {
    for (const SettingEntry& e : entries) Ecrit(application, e.section, e.key, e.text);
  }
};

}  // namespace talpena

// The per-user store of settings.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// Texts addressed by application, section and key; case of the three does not matter.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string Lit(std::string_view application, std::string_view section,
                          std::string_view key, std::string_view defaultText) = 0;
  virtual void Ecrit(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view text) = 0;
};

}  // namespace talpena

// The conditions that were typed last, kept in the settings.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings_store.h"

namespace talpena {

/// The newest first, at most twenty, each once. Application "TALPENA", section "Selection", keys
/// "Condition1" to "Condition20".
std::vector<std::string> ConditionsRetenues(SettingsStore& settings);

/// Puts a condition first; blanks around it are left out, and one that is empty is none.
void RetientCondition(SettingsStore& settings, std::string_view condition);

}  // namespace talpena

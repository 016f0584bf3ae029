// What OptionsExport shows and takes: which columns an export writes.
#pragma once
#include <array>
#include <cstdint>
#include <string_view>

#include "platform/platform.h"
#include "platform/settings_state.h"

namespace talpena {

/// Setting and caption of a check box; without an id the caption is the same in every language.
struct ExportBox {
  std::int16_t SettingsState::*flag;  ///< 0 is off
  int caption = 0;
  std::string_view literal = {};
};

/// IncludeField 0 to 9.
const std::array<ExportBox, 10>& CasesExport();

/// An entry of the list of coordinate systems, the same in every language.
struct ExportSystem {
  std::string_view caption;
  std::int16_t value;  ///< for ExportCoordSystem
};

inline constexpr std::array<ExportSystem, 2> SystemesExport{
    {{"none", -1}, {"Belge Lambert 72", 7}}};

/// X and Y are written for any value above 0.
inline bool ExporteXY(const SettingsState& settings) { return settings.ExportCoordSystem > 0; }

/// What the dialog holds.
struct ExportForm {
  std::array<bool, 10> IncludeField{};
  std::size_t cmbSystem = 0;  ///< entry of SystemesExport
};

/// As the settings are; the first system unless the setting names the second.
ExportForm RempliOptionsExport(const SettingsState& settings);

/// Takes the choices into the settings. Where no column is chosen but Sex or X and Y, message 560
/// is told first; that does not keep the export from writing what is chosen.
void ValideOptionsExport(SharedState& state, Platform& io, const ExportForm& form);

}  // namespace talpena

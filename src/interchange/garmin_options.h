// The options of the waypoint import as they last from one import to the next: application
// "Talpena", section "ImportGarmin" of the settings.
#pragma once
#include <cstdint>
#include <span>
#include <string>

#include "platform/settings_store.h"

namespace talpena {

/// What DateImport and AltitudeImport hold.
enum class GarminSource : std::int16_t { None = 0, Fixed = 1, Column = 2 };

/// The name is that of old installations. What stands here is what an empty store gives.
struct objGraminImport {
  std::int16_t Period = 1;  ///< PERIOD of all imported rows
  std::int16_t DateImport = 0;
  std::string DateFixed;
  std::int16_t DateBegin = 1;   ///< first character of the date in its column, from 1
  std::int16_t DateLength = 9;  ///< characters
  std::string DateField;        ///< caption of the column that holds the date
  std::int16_t DateFormat = 0;  ///< only 0 exists
  std::int16_t AltitudeImport = 0;
  std::string AltitudeFixed;
  std::int16_t AltitudeBegin = 1;
  std::int16_t AltitudeLength = 4;
  std::string AltitudeField;
  bool operator==(const objGraminImport&) const = default;
};

/// When frmImportGarmin loads: period, kind of date, fixed date, kind of altitude and fixed
/// altitude as on a first run, whatever is stored. The settings come back at each of its buttons.
void PoseOptionsDeChargement(objGraminImport& options);

/// All properties from the settings. A text that is no number of 16 bits counts as the default.
void ChargeOptions(SettingsStore& settings, objGraminImport& options);

/// All properties into the settings.
void SauveOptions(SettingsStore& settings, const objGraminImport& options);

/// Width of a column of the list, counted from 1; 1000 when none, or no width, is stored.
float LargeurColonneGarmin(SettingsStore& settings, int column);

/// The widths of all columns, the first one as `Col1`.
void SauveLargeursGarmin(SettingsStore& settings, std::span<const float> widths);

}  // namespace talpena

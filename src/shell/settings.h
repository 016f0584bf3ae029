// Reads and writes the user's settings as a whole.
#pragma once
#include <cstdint>

#include "platform/platform.h"
#include "shell/process_state.h"

namespace talpena {

/// Screen in twips: what a first run gives the main window.
struct ScreenSize {
  float largeurTwips;
  float hauteurTwips;
};

/// Every key into the process globals, in the order of the store's tables, the datum codes
/// looked up in the catalogue. A key that is absent gives its default, whatever the state held.
/// A text that its key cannot take is shown as an error that names the key, its default is
/// taken, and reading goes on: 13 no number, 6 beyond the range of the type, 326 a language
/// without texts. At the end the process changes to the folder of the menu program, when that
/// names one (76 is shown when it cannot). The window then shows what it finds in the state.
void ChargeReglages(ProcessState& state, Platform& io, ScreenSize screen);

/// The language that the settings name, alone; English when they name none that has texts.
std::int16_t LangueReglee(SettingsStore& settings);

/// Writes every key of application "TALPENA" but "LastDeg". The window has put its geometry,
/// column widths and colours into the state before. PathFileAccess (75) when the store refuses.
void SauveReglages(const ProcessState& state, Platform& io);

}  // namespace talpena

// Reads and writes the user's settings as a whole.
#pragma once
#include "platform/platform.h"
#include "shell/process_state.h"

namespace talpena {

/// Screen in twips: what a first run gives the main window.
struct ScreenSize {
  float largeurTwips;
  float hauteurTwips;
};

/// Every key into the process globals, in the order of the store's tables, the datum codes
/// looked up in the catalogue. A value that is no number is shown as an error and its default
/// stays; reading goes on. The window then shows what it finds in the state.
void ChargeReglages(ProcessState& state, Platform& io, ScreenSize screen);

/// Writes every key of application "TALPENA" but "LastDeg". The window has put its geometry,
/// column widths and colours into the state before.
void SauveReglages(const ProcessState& state, Platform& io);

}  // namespace talpena

// The desktop's colours, put right where a text is hard to read.
#pragma once
#include <QPalette>

namespace talpena {

/// The palette with those texts moved away from their backgrounds, and the background of the
/// chosen ones from its text, that have less contrast than ContrasteLisible, or ContrasteInactif
/// while they are disabled. All that is legible stays the desktop's, and stays unset.
QPalette PaletteLisible(const QPalette& desktop);

}  // namespace talpena

// The colours in which the grid is painted.
#pragma once
#include <QColor>
#include <QPalette>
#include <cstdint>

#include "platform/settings_state.h"

namespace talpena {

struct GridColours {
  QColor background;
  QColor text;
};

/// The colours of the settings on a desktop. While they hold their defaults, a dark desktop gets
/// their dark counterpart. The desktop's text colour stays legible on any background; one that the
/// user chose is taken as it is.
/// @param fond  number of the background: CouleurFondGrille, or the one of a grid without a file
GridColours CouleursDeGrille(const SettingsState& settings, std::uint32_t fond,
                             const QPalette& desktop);

}  // namespace talpena

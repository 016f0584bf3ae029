#include "store/windows/grid_colours.h"

#include "platform/qt/colours.h"
#include "platform/qt/contrast.h"

namespace talpena {
namespace {

/// The light yellow of the default, in the dark.
constexpr QRgb jauneSombre = 0xFF333124;

bool SontParDefaut(const SettingsState& settings, std::uint32_t fond) {
  static const SettingsState defaults;
  return fond == defaults.CouleurFondGrille &&
         settings.CouleurTexteGrille == defaults.CouleurTexteGrille;
}

}  // namespace

GridColours CouleursDeGrille(const SettingsState& settings, std::uint32_t fond,
                             const QPalette& desktop) {
  GridColours colours{EnQColor(fond, desktop), EnQColor(settings.CouleurTexteGrille, desktop)};
  if (EstSombre(desktop) && SontParDefaut(settings, fond)) colours.background = jauneSombre;
  if (EstCouleurSysteme(settings.CouleurTexteGrille)) {
    colours.text = TexteLisible(colours.background, colours.text);
  }
  return colours;
}

}  // namespace talpena

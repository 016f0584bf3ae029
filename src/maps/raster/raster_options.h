// OptionsMap: how the circles of the raster maps look, over the contents of its controls.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/settings_state.h"

namespace talpena {

struct OptionsRaster {
  /// LabelCoulFill: the colours of periods 1 to 3 and of the outline, 0xBBGGRR.
  std::array<std::uint32_t, 4> LabelCoulFill{};
  std::string Combo1;  ///< diameter in kilometres, or RasterAuto
};

/// What Combo1 offers.
inline constexpr std::string_view RasterAuto = "auto";

/// The controls when the dialog opens.
OptionsRaster LitOptionsRaster(const SettingsState& state);

/// A click on one of LabelCoulFill. Cancel raises Cancelled (32755).
void ChoisitCouleurRaster(OptionsRaster& options, int index, Platform& io);

/// OK: the settings take what the dialog shows. False when the diameter is none, which the user is
/// told (message 555); then nothing has changed.
bool ValideOptionsRaster(const OptionsRaster& options, SharedState& state, Platform& io);

/// What a typed diameter means: -1 for "auto" in any case, else a number above 0 with a decimal
/// point or comma. Empty for anything else, "auto" between blanks included.
std::optional<float> DiametreRasterDe(std::string_view text);

}  // namespace talpena

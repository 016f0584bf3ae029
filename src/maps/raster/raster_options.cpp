#include "maps/raster/raster_options.h"

#include <algorithm>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/commands.h"

namespace talpena {
namespace {

constexpr float automatic = -1;

/// A number as a setting keeps it; empty when 32 bits do not hold it.
std::optional<float> EnReglage(std::string_view text) {
  try {
    return EnSimple(Val(Remplace(text, ",", ".")));
  } catch (const TalpenaError&) {
    return std::nullopt;
  }
}

}  // namespace

OptionsRaster LitOptionsRaster(const SettingsState& state) {
  const auto& colours = state.SymbolColor;
  return {{colours[0], colours[1], colours[2], state.StrokeColor},
          state.DiamPoints < 0 ? std::string(RasterAuto) : Str(state.DiamPoints)};
}

void ChoisitCouleurRaster(OptionsRaster& options, int index, Platform& io) {
  std::uint32_t& colour = options.LabelCoulFill.at(static_cast<std::size_t>(index));
  colour = io.dialogues.ChoisitCouleur(colour);
}

std::optional<float> DiametreRasterDe(std::string_view text) {
  if (Majuscules(text) == "AUTO") return automatic;
  if (!EstNumerique(text)) return std::nullopt;
  const std::optional<float> diameter = EnReglage(text);
  return diameter && *diameter > 0 ? diameter : std::nullopt;
}

bool ValideOptionsRaster(const OptionsRaster& options, SharedState& state, Platform& io) {
  const std::optional<float> diameter = DiametreRasterDe(options.Combo1);
  if (!diameter) {
    Bip(state, io);
    io.dialogues.Demande(
        {.text = Texte(state.Langue, MsgId::DiametreInvalide), .icon = Icon::Exclamation});
    return false;
  }
  const auto& colours = options.LabelCoulFill;
  std::copy_n(colours.begin(), state.SymbolColor.size(), state.SymbolColor.begin());
  state.StrokeColor = colours.back();
  state.DiamPoints = *diameter;
  return true;
}

}  // namespace talpena

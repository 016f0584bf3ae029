#include "interchange/garmin_options.h"

#include <array>
#include <cstddef>
#include <variant>
#include <vector>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr std::string_view application = "Talpena";
constexpr std::string_view section = "ImportGarmin";
constexpr float defaultWidth = 1000;

using Field = std::variant<std::int16_t objGraminImport::*, std::string objGraminImport::*>;

struct Property {
  std::string_view key;
  Field field;
};

using G = objGraminImport;

// clang-format off
const std::array<Property, 12> properties{{
    {"Period",         &G::Period},
    {"DateImport",     &G::DateImport},
    {"DateFixed",      &G::DateFixed},
    {"DateBegin",      &G::DateBegin},
    {"DateLength",     &G::DateLength},
    {"DateField",      &G::DateField},
    {"DateFormat",     &G::DateFormat},
    {"AltitudeImport", &G::AltitudeImport},
    {"AltitudeFixed",  &G::AltitudeFixed},
    {"AltitudeBegin",  &G::AltitudeBegin},
    {"AltitudeLength", &G::AltitudeLength},
    {"AltitudeField",  &G::AltitudeField},
}};
// clang-format on

std::string EnTexte(std::int16_t value) { return Str(std::int64_t{value}); }
std::string EnTexte(const std::string& value) { return value; }

/// Number of a stored text; that of the defaults where the text is none that `range` takes.
template <typename Number, typename Range>
Number NombreStocke(std::string_view text, Number fallback, Range range) {
  try {
    return EstNumerique(text) ? range(Val(Remplace(text, ",", "."))) : fallback;
  } catch (const TalpenaError&) {  // beyond its range
    return fallback;
  }
}

void Prend(std::int16_t& value, const std::string& text) {
  value = NombreStocke(text, value, Arrondi16);
}
void Prend(std::string& value, const std::string& text) { value = text; }

std::string CleDeColonne(std::size_t column) { return "Col" + std::to_string(column); }

}  // namespace

void PoseOptionsDeChargement(objGraminImport& options) {
  const objGraminImport first;
  options.Period = first.Period;
  options.DateImport = first.DateImport;
  options.DateFixed = first.DateFixed;
  options.AltitudeImport = first.AltitudeImport;
  options.AltitudeFixed = first.AltitudeFixed;
}

void ChargeOptions(SettingsStore& settings, objGraminImport& options) {
  options = {};
  for (const Property& p : properties) {
    std::visit(
        [&](auto field) {
          auto& value = options.*field;
          Prend(value, settings.Lit(application, section, p.key, EnTexte(value)));
        },
        p.field);
  }
}

void SauveOptions(SettingsStore& settings, const objGraminImport& options) {
  std::vector<SettingEntry> entries;
  entries.reserve(properties.size());
  for (const Property& p : properties) {
    const std::string text =
        std::visit([&](auto field) { return EnTexte(options.*field); }, p.field);
    entries.push_back({std::string(section), std::string(p.key), text});
  }
  settings.EcritTout(application, entries);
}

float LargeurColonneGarmin(SettingsStore& settings, int column) {
  const std::string text = settings.Lit(
      application, section, CleDeColonne(static_cast<std::size_t>(column)), Str(defaultWidth));
  const float width = NombreStocke(text, defaultWidth, EnSimple);
  return width >= 0 ? width : defaultWidth;
}

void SauveLargeursGarmin(SettingsStore& settings, std::span<const float> widths) {
  std::vector<SettingEntry> entries;
  entries.reserve(widths.size());
  for (const float width : widths) {
    entries.push_back({std::string(section), CleDeColonne(entries.size() + 1), Str(width)});
  }
  settings.EcritTout(application, entries);
}

}  // namespace talpena

// What the gazetteer's windows keep between two runs. Where the gazetteer is and what its fields
// are called are settings of the process (the members Geo* of SettingsState).
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

#include "gazetteer/state.h"
#include "platform/settings_store.h"

namespace talpena {

/// The fonts of section "Polices"; a size that is no number of 16 bits above 0 gives the default.
RegionFonts ChargePolices(SettingsStore& settings);
/// Keeps all six at once.
void SauvePolices(SettingsStore& settings, const RegionFonts& fonts);

/// Columns of the list of places: the item's text and sub-items 1 to 9.
inline constexpr std::size_t PlaceColumnCount = 10;

/// Place and columns of frmGeoQuery, section "GeoQuery", all in twips.
struct GeoQueryPlace {
  std::int32_t left = 300;
  std::int32_t top = 300;
  std::int32_t width = 6720;
  std::int32_t height = 4830;
  std::array<std::int32_t, PlaceColumnCount> columns{2000, 800,  1800, 1800, 800,
                                                     1200, 1200, 1200, 1200, 500};

  friend bool operator==(const GeoQueryPlace&, const GeoQueryPlace&) = default;
};

GeoQueryPlace ChargePlaceGeoQuery(SettingsStore& settings);
/// All but the width of the last column, which is read and never kept.
void SauvePlaceGeoQuery(SettingsStore& settings, const GeoQueryPlace& place);

}  // namespace talpena

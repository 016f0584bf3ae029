// Rows that a click adds to the table, or takes back, whatever map was clicked on.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/main_window_view.h"
#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

/// What a row of a click holds besides 1 in N1 and N2 and the datum EUR-M. Its coordinates are the
/// values of their texts, which stand in ORIGINAL.
struct ClickedRow {
  std::string latitude;   ///< by TexteLatitude
  std::string longitude;  ///< by TexteLongitude
  std::int16_t period = 1;
  std::string date = {};  ///< "" leaves DATE Null
};

/// Decimal degrees as such a row stores them, with a sign and up to five decimals.
std::string TexteLatitude(double latitude);
std::string TexteLongitude(double longitude);

/// Adds the row behind the others; it is the current one, and chosen in the grid besides the rows
/// chosen before.
Bookmark AjouteLigneCliquee(StoreState& state, MainWindowView& vue, const ClickedRow& values);

/// Where a row lies that goes, decimal degrees.
using EffaceSymboleEn = std::function<void(double latitude, double longitude)>;

/// Takes back the row that was chosen last, wherever it lies; a beep, and nothing, when none is.
/// `efface` is told of its place while it still stands, unless a coordinate is Null or both are 0.
std::optional<Bookmark> RetireLigneChoisie(StoreState& state, Platform& io, MainWindowView& vue,
                                           const EffaceSymboleEn& efface);

}  // namespace talpena

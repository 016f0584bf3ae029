// The grid's order.
#pragma once
#include <optional>
#include <string_view>

#include "store/state.h"

namespace talpena {

/// Takes the order of a list index (0 file order, 1 period, 2 latitude, 3 longitude, 4 N1, 5 N2,
/// 6 datum, 7 original, 8 date, 9 sex) into SqlCourant and, once a file is open, into the data
/// control. Keeps the current row when it is still there. When the engine fails, order and rows
/// stay as they were and the failure is thrown. Another index: SubscriptOutOfRange (9).
void ChangeTri(StoreState& state, int index, bool descending);

/// An order of the sort list.
struct OrdreDeTri {
  int index = 0;
  bool descending = false;
};

/// The order in which a source of the data control gives the rows: file order for the table and
/// for a filter over it. Empty for orders that the list lacks.
std::optional<OrdreDeTri> OrdreDe(std::string_view source);

}  // namespace talpena

// The grid's order.
#pragma once
#include "store/document.h"

namespace talpena {

/// Takes an order of the sort list (0 file order, 1 period, 2 latitude, 3 longitude, 4 N1, 5 N2,
/// 6 datum, 7 original, 8 date, 9 sex) into SqlCourant and, once a file is open, into the data
/// control. Keeps the current row when it is still there. When the engine fails, order and rows
/// stay as they were and the failure is thrown. Another index: SubscriptOutOfRange (9).
void ChangeTri(Document& document, int index, bool descending);

}  // namespace talpena

// Values of the table as texts: what the grid and the record editor show.
#pragma once
#include <string>

#include "platform/table_engine.h"
#include "store/data_control.h"

namespace talpena {

/// Null is empty; a 32-bit float is the shortest decimal that gives the same float.
std::string TexteDeCellule(const FieldDef& field, const Cell& cell);

/// "12/3245": position of the current row from 1 and number of rows; "0/0" when there are none,
/// "" before a file is open.
std::string TextePosition(DataControl& data);

}  // namespace talpena

// A cell of a table as a number in a sheet.
#pragma once
#include "platform/table_engine.h"

namespace talpena::excel {

/// A 32-bit float as the double of its shortest decimal, which is what a sheet shows; any other
/// number as it is. What is no finite number raises Overflow (6).
double NombreDeCellule(const Cell& cell, FieldType type);

}  // namespace talpena::excel

// Names of the fields of one table.
#pragma once
#include <vector>

#include "platform/table_engine.h"

namespace talpena {

/// Fields of one name become "Name", "Name_2", "Name_3", without regard to case: a table has no two
/// of one name.
void RendNomsDistincts(std::vector<FieldDef>& fields);

}  // namespace talpena

// What a table says of its columns beside their types.
#pragma once
#include <string>
#include <vector>

#include "platform/table_engine.h"

namespace talpena::jet {

/// `Required` and `AllowZeroLength` of the columns with texts, `Required` of others where it is
/// yes, as the catalogue keeps them; empty when there is nothing to say.
std::string Proprietes(const std::vector<FieldDef>& fields);

}  // namespace talpena::jet

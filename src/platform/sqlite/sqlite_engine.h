// The table engine on SQLite.
#pragma once
#include <memory>
#include <vector>

#include "platform/foreign_format.h"
#include "platform/table_engine.h"

namespace talpena {

/// The program's table engine. Files of the formats given are opened for reading through them.
std::unique_ptr<TableEngine> CreeMoteurSqlite(
    std::vector<std::unique_ptr<ForeignFormat>> formats = {});

}  // namespace talpena

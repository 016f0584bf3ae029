// How the maker's own tables are made.
#pragma once
#include <vector>

#include "platform/foreign/jet/columns.h"
#include "platform/foreign/jet/table_definition.h"

namespace talpena::jet {

struct SystemTable {
  std::vector<Column> columns;
  std::vector<IndexShape> indexes;
};

SystemTable TableDesObjets();    ///< MSysObjects
SystemTable TableDesDroits();    ///< MSysACEs
SystemTable TableDesRequetes();  ///< MSysQueries
SystemTable TableDesLiens();     ///< MSysRelationships

}  // namespace talpena::jet

// Rows of a table in an order, by sorting keys in memory.
#pragma once
#include <string>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/dialect/dialect.h"
#include "platform/sqlite/rows/row_list.h"

namespace talpena::sqlite {

/// The keys of the rows that meet a condition (empty: all), in the order asked for; Null goes
/// first, texts compare as the table does, equal rows stand in the order of their keys, also
/// when an order falls. Numbers take 16 bytes a row while they are sorted, texts about 56 bytes
/// whatever their length.
RowList Trie(Connection& connection, const TableState& table, const std::string& condition,
             const std::vector<OrderTerm>& order);

}  // namespace talpena::sqlite

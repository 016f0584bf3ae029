// The columns of a Paradox table that is written.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "platform/foreign/paradox/fields.h"
#include "platform/table_engine.h"

namespace talpena::paradox {

/// Bytes of a memo that its record holds: a title and a short comment need no memo file.
inline constexpr std::size_t memoLeader = 100;

struct WrittenColumn {
  Column column;  ///< its name in code page 1252
  FieldType source = FieldType::Text;
  std::string name;  ///< for messages
};

/// How the columns of a table are kept. Raises what keeps it out of the format: InvalidName (3125),
/// RecordTooLarge (3047), TooManyFields (3190), NotSupported (3251), InvalidArgument (3001).
std::vector<WrittenColumn> DisposeColonnes(const TableDef& table);

std::size_t OctetsParLigne(const std::vector<WrittenColumn>& columns);

/// True when a table has a type that came with level 5.
bool ExigeNiveau5(const std::vector<WrittenColumn>& columns);
/// True when it has a column of long values.
bool ExigeMemos(const std::vector<WrittenColumn>& columns);

}  // namespace talpena::paradox

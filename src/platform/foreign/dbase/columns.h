// Columns of a table of dBase IV or FoxPro 2.5 that is written.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/table_engine.h"

namespace talpena::dbase {

enum class Product : std::uint8_t { DbaseIV, FoxPro25 };

struct WrittenColumn {
  std::string name;   ///< as the table bears it
  std::string given;  ///< as it was asked for
  char mark = 'C';
  FieldType type = FieldType::Text;
  std::size_t offset = 0;  ///< in the row
  std::size_t width = 0;
  int decimals = 0;
};

/// The columns of a table in their order. Raises what CreeTable of the format does (dbase_format.h)
/// for those that it has no room or no name for.
std::vector<WrittenColumn> DisposeColonnes(const std::vector<FieldDef>& fields, Product product);

/// Bytes of a row with its mark.
std::size_t OctetsDeLigne(const std::vector<WrittenColumn>& columns);

bool AvecMemo(const std::vector<WrittenColumn>& columns);

}  // namespace talpena::dbase

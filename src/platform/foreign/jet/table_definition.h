// The pages that define a table: its columns, indexes and maps.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/foreign/jet/bytes.h"
#include "platform/foreign/jet/columns.h"
#include "platform/foreign/jet/page_file.h"

namespace talpena::jet {

enum class TableKind : std::uint8_t { User = 0x4E, System = 0x53 };

/// An index of a table of the catalogue.
struct IndexShape {
  std::string name;
  std::vector<std::size_t> columns;
  bool primary = false;
  std::uint8_t flags = 0;
  Place pages{};           ///< its map
  std::uint32_t root = 0;  ///< page
};

namespace IndexFlag {
inline constexpr std::uint8_t Unique = 0x01, IgnoreNulls = 0x02, Required = 0x08, Always = 0x80;
}  // namespace IndexFlag

/// Maps of the pages with a column's long values.
struct LongColumnMaps {
  std::size_t column = 0;
  Place used{};
  Place free{};
};

struct TableShape {
  TableKind kind = TableKind::User;
  std::vector<Column> columns;
  std::vector<IndexShape> indexes;
  std::vector<LongColumnMaps> longColumns;
  Place used{};  ///< maps of its pages
  Place free{};  ///< and of those with room
};

/// What changes in a definition as rows come.
struct TableCounts {
  std::uint32_t rows = 0;
  std::uint32_t lastNumber = 0;                ///< that an auto-number column has given
  std::vector<std::uint32_t> differentKeys{};  ///< of each index
};

class TableDefinition {
 public:
  /// @param first  its page, which is given out already; further ones are taken as needed
  TableDefinition(PageFile& file, std::uint32_t first, const TableShape& shape);

  void Ecrit(const TableCounts& counts);

 private:
  PageFile& file_;
  std::vector<std::uint32_t> pages_;
  std::string bytes_;
};

}  // namespace talpena::jet

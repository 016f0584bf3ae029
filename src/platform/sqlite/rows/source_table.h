// A virtual table over rows that C++ hands out, so that one INSERT ... SELECT or one condition
// runs over them.
#pragma once
#include <exception>
#include <span>

#include "platform/value.h"

namespace talpena::sqlite {

class Connection;

/// Rows for the virtual table. It is read once, from the first row to the last.
class SourceRows {
 public:
  virtual ~SourceRows() = default;
  /// The next row, or false behind the last; its cells are valid until the next call. A failure
  /// that is thrown ends the rows and is kept in `failure`.
  virtual bool Suivante(std::span<const Cell>& cells) = 0;

  std::exception_ptr failure;
};

/// Columns c0 to c255 of "tlp_source(?1)", ?1 bound by LiePointeur with this type.
inline constexpr const char* SourceTable = "tlp_source";
inline constexpr const char* SourcePointer = "talpena-source";
inline constexpr int SourceColumns = 256;

void EnregistreSource(Connection& connection);

}  // namespace talpena::sqlite

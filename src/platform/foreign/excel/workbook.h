// A workbook as sheets of cells, whatever the file that holds it.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace talpena::excel {

struct SheetCell {
  enum class Kind : std::uint8_t { Number, Text, Boolean };

  std::uint32_t column = 0;  ///< from 0
  Kind kind = Kind::Number;
  double number = 0;  ///< of a Boolean 1 or 0
  std::string text;   ///< UTF-8
};

/// A row of a sheet; cells that hold nothing, or an error, are left out.
struct SheetRow {
  std::uint32_t number = 0;  ///< from 0
  std::vector<SheetCell> cells;
};

/// The rows of a sheet that have cells, from the first on. Damage raises UnrecognizedFormat (3343).
class SheetRows {
 public:
  virtual ~SheetRows() = default;
  /// False when there is no further row.
  virtual bool Suivante(SheetRow& row) = 0;
};

struct SheetInfo {
  std::string name;
  bool hidden = false;
};

class Workbook {
 public:
  virtual ~Workbook() = default;
  virtual const std::vector<SheetInfo>& Feuilles() const = 0;
  /// Reads a sheet from its beginning.
  virtual std::unique_ptr<SheetRows> Lignes(std::size_t sheet) = 0;
  /// Raises UnrecognizedFormat (3343).
  [[noreturn]] virtual void Refuse() const = 0;
};

}  // namespace talpena::excel

// The filter: a condition that the table is shown through. It stands in what the document shows and
// nowhere else, so that whoever shows other rows has lifted it.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "store/document.h"

namespace talpena {

struct NombresDeLignes {
  std::int64_t montrees = 0;
  std::int64_t toutes = 0;
};

/// Rows shown and rows of the table, which are counted only while a filter is on.
NombresDeLignes CompteLignes(Document& document);

/// "12 of 3,245 rows shown"; "" without a filter.
std::string TexteFiltre(Document& document, std::int16_t langue);

/// Puts the numbers into a text, digits grouped: %1 the rows shown, %2 those of the table.
std::string AvecNombres(std::int16_t langue, std::string_view text, NombresDeLignes lignes);

/// The whole table on show for as long as this lives; afterwards the filter that was
/// on is on again, over the rows as they are then. Does nothing without a filter.
class TableEntiere {
 public:
  explicit TableEntiere(Document& document);
  TableEntiere(const TableEntiere&) = delete;
  TableEntiere& operator=(const TableEntiere&) = delete;
  ~TableEntiere();

 private:
  Document& document_;
  std::optional<RowsShown> filtered_;  ///< to go back to; empty when there was no filter
};

}  // namespace talpena

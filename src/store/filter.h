// The filter: a condition that the data control shows the table through. It stands in the source of
// the data control and nowhere else, so that whoever binds another source has lifted it.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "store/state.h"

namespace talpena {

/// The source that shows all rows, in file order.
inline constexpr std::string_view TouteLaTable = "SELECT * FROM TALPENA";

/// The source that shows the rows that meet a condition.
std::string SourceFiltree(std::string_view condition);

/// The condition that is on; "" when the whole table is shown, or nothing yet.
std::string ConditionDuFiltre(const DataControl& data);
bool FiltreActif(const DataControl& data);

struct NombresDeLignes {
  std::int64_t montrees = 0;
  std::int64_t toutes = 0;
};

/// Rows shown and rows of the table, which are counted only while a filter is on.
NombresDeLignes CompteLignes(StoreState& state);

/// "12 of 3,245 rows shown"; "" without a filter.
std::string TexteFiltre(StoreState& state);

/// Puts the numbers into a text, digits grouped: %1 the rows shown, %2 those of the table.
std::string AvecNombres(std::int16_t langue, std::string_view text, NombresDeLignes lignes);

/// The data control over the whole table for as long as this lives; afterwards the filter that was
/// on is on again, over the rows as they are then. Does nothing without a filter.
class TableEntiere {
 public:
  explicit TableEntiere(DataControl& data);
  TableEntiere(const TableEntiere&) = delete;
  TableEntiere& operator=(const TableEntiere&) = delete;
  ~TableEntiere();

 private:
  DataControl& data_;
  std::string filtered_;  ///< the source to go back to; "" when there was no filter
};

}  // namespace talpena

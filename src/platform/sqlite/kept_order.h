// The rows of a kept table in the order of the field that is searched.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/dialect/dialect.h"
#include "platform/sqlite/dialect/like_pattern.h"
#include "platform/sqlite/rows/row_list.h"

namespace talpena::sqlite {

/// Four bytes and a bit a row, in the file of the copy and in memory: far less, and made far
/// sooner, than an index. A row is found by its key in the engine's comparison; those that LIKE
/// takes for one another are found by it too, since it tells all characters apart but for case.
class KeptOrder {
 public:
  /// Makes the order of a text field and keeps it in the file.
  static void Garde(Connection& connection, const TableState& table, int field);
  /// What was kept there; UnrecognizedFormat (3343) when that makes no sense.
  KeptOrder(Connection& connection, const TableState& table, int field);

  /// The rows of a selection that is no more than a search of that field, in its order. Empty for
  /// any other.
  std::optional<std::vector<RowKey>> Cherche(const Selection& selection);

 private:
  using Slots = std::pair<std::size_t, std::size_t>;

  std::string_view Texte(RowKey row);
  std::size_t Premier(std::string_view key);
  Slots Commencent(const std::string& key);
  bool EstSimple(std::size_t slot) const;
  std::vector<RowKey> Egales(const std::string& text);
  std::vector<RowKey> Semblables(const std::string& pattern);
  bool Ordonne(std::vector<RowKey>& rows, const std::vector<OrderTerm>& order);
  void OrdonnePar(int field, std::vector<RowKey>& rows);

  Connection& connection_;
  const TableState& table_;
  int field_;
  std::vector<RowKey> rows_;  ///< those that are not Null
  std::string odd_;           ///< a bit a slot: its text is not Collation::EstSimple
  Statement one_;
};

}  // namespace talpena::sqlite

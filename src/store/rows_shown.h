// Which rows of the table are on show, and in which order: what the SELECT of the data control is
// made of.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

namespace talpena {

enum class Direction : std::uint8_t { Unsaid, Ascending, Descending };

/// An order of the sort list: 0 file order, 1 period, 2 latitude, 3 longitude, 4 N1, 5 N2, 6 datum,
/// 7 original, 8 date, 9 sex. The order of a fresh start says no direction.
struct RowOrder {
  int index = 0;
  Direction direction = Direction::Unsaid;
  bool operator==(const RowOrder&) const = default;
};

/// "SELECT * FROM TALPENA ORDER BY ...", word for word as the list has it. An index that the list
/// lacks raises SubscriptOutOfRange (9).
std::string SelectDe(const RowOrder& order);

/// The rows of the table as the data control gives them.
class RowsShown {
 public:
  /// All rows, in an order of the sort list.
  static RowsShown Dans(const RowOrder& order);
  /// Those that meet a condition of the user's, which the engine is given as it stands; file order.
  static RowsShown Filtrees(std::string condition);
  static RowsShown Toutes();      ///< all rows in file order: a filter was lifted
  static RowsShown Table();       ///< the same by the table's name: a new file
  static RowsShown Groupables();  ///< by period, latitude, longitude: rows of one point together

  /// "" without a filter.
  const std::string& Condition() const { return condition_; }
  bool EstFiltre() const { return kind_ == Kind::Filtered; }
  /// The order as the sort list shows it: file order without one of the list's; empty for an order
  /// that the list lacks.
  std::optional<RowOrder> Ordre() const;
  /// What the data control is bound to.
  std::string Source() const;

  bool operator==(const RowsShown&) const = default;

 private:
  enum class Kind : std::uint8_t { Listed, Filtered, All, Table, Groupable };
  explicit RowsShown(Kind kind) : kind_(kind) {}

  Kind kind_;
  RowOrder order_;
  std::string condition_;
};

}  // namespace talpena

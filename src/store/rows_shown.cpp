#include "store/rows_shown.h"

#include <array>
#include <string_view>
#include <utility>

#include "common/talpena_error.h"

namespace talpena {
namespace {

// clang-format off
/// By the index of the sort list. Two blanks stand before most columns: saved and compared texts
/// carry them. Held by ChangeTriTest.TakesTheExactTexts.
constexpr std::array<std::string_view, 10> orders = {
    "SELECT * FROM TALPENA ORDER BY Counter",
    "SELECT * FROM TALPENA ORDER BY [PERIOD]",
    "SELECT * FROM TALPENA ORDER BY [LATITUDE]",
    "SELECT * FROM TALPENA ORDER BY  [LONGITUDE]",
    "SELECT * FROM TALPENA ORDER BY  [N1]",
    "SELECT * FROM TALPENA ORDER BY  [N2]",
    "SELECT * FROM TALPENA ORDER BY  [DATUM]",
    "SELECT * FROM TALPENA ORDER BY  [ORIGINAL]",
    "SELECT * FROM TALPENA ORDER BY  [DATE]",
    "SELECT * FROM TALPENA ORDER BY  [SEX]",
};
// clang-format on

constexpr std::array<std::string_view, 3> directions = {"", " ASC", " DESC"};

}  // namespace

std::string SelectDe(const RowOrder& order) {
  if (order.index < 0 || order.index >= static_cast<int>(orders.size())) {
    throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }
  return std::string(orders[static_cast<std::size_t>(order.index)]) +
         std::string(directions[static_cast<std::size_t>(order.direction)]);
}

RowsShown RowsShown::Dans(const RowOrder& order) {
  RowsShown rows(Kind::Listed);
  rows.order_ = order;
  return rows;
}

RowsShown RowsShown::Filtrees(std::string condition) {
  RowsShown rows(Kind::Filtered);
  rows.condition_ = std::move(condition);
  return rows;
}

RowsShown RowsShown::Toutes() { return RowsShown(Kind::All); }

RowsShown RowsShown::Table() { return RowsShown(Kind::Table); }

RowsShown RowsShown::Groupables() { return RowsShown(Kind::Groupable); }

std::optional<RowOrder> RowsShown::Ordre() const {
  if (kind_ == Kind::Groupable) return std::nullopt;
  // A condition may bring an order of its own.
  if (condition_.find(" ORDER BY ") != std::string::npos) return std::nullopt;
  return order_;
}

std::string RowsShown::Source() const {
  switch (kind_) {
    case Kind::Listed:
      return SelectDe(order_);
    case Kind::Filtered:
      return "SELECT * FROM TALPENA WHERE " + condition_;
    case Kind::All:
      return "SELECT * FROM TALPENA";
    case Kind::Table:
      return "TALPENA";
    case Kind::Groupable:
      return "SELECT * FROM TALPENA ORDER BY [PERIOD], [LATITUDE], [LONGITUDE]";
  }
  return {};
}

}  // namespace talpena

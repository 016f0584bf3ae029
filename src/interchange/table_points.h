// The points of the rows that are there already, in portions.
#pragma once
#include <cstdint>
#include <functional>

#include "platform/table_engine.h"

namespace talpena {

class TablePoints {
 public:
  using Visit = std::function<void(double latitude, double longitude)>;  ///< decimal degrees

  /// Of all rows of TALPENA, those that a filter hides included.
  explicit TablePoints(Database& database) : database_(database) {}

  /// Hands over some thousand points; false when there are no more.
  bool Suivants(const Visit& visit);

 private:
  void Commence();

  Database& database_;
  bool begun_ = false;
  std::int64_t next_ = 0;  ///< Counter that the next portion begins at
  std::int64_t last_ = -1;
};

}  // namespace talpena

// What is odd about waypoints that enter, told when they have come in.
#pragma once
#include <cstdint>
#include <string>

#include "interchange/import_reader.h"

namespace talpena {

class WaypointDoubts {
 public:
  void Compte(const ImportRecord& record);
  /// How many, with line and reason of the first; "" when there were none.
  std::string EnMots(std::int16_t langue) const;

 private:
  std::int64_t count_ = 0;
  std::int64_t line_ = 0;  ///< of the first
  int text_ = 0;
};

}  // namespace talpena

// What is odd about waypoints that enter, told when they have come in.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "interchange/import_reader.h"

namespace talpena {

class WaypointDoubts {
 public:
  void Compte(const ImportRecord& record);
  /// How many, with line and reason of the first; lines that are no waypoints in a sentence of
  /// their own. Empty when there were none.
  std::vector<std::string> EnMots(std::int16_t langue) const;

 private:
  struct Kind {
    std::int64_t count = 0;
    std::int64_t line = 0;  ///< of the first
    int text = 0;
  };
  Kind odd_;
  Kind noWaypoints_;
};

}  // namespace talpena

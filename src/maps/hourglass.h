// The hourglass over the map view while something takes its time.
#pragma once
#include "maps/map_context.h"

namespace talpena {

class Hourglass {
 public:
  explicit Hourglass(MapWindow& window) : window_(window) { window_.ChangeSablier(true); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
  ~Hourglass() { window_.ChangeSablier(false); }

 private:
  MapWindow& window_;
};

}  // namespace talpena

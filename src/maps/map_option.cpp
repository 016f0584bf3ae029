#include "maps/map_option.h"

#include <utility>

namespace talpena {

void MapOption::Add(std::string name) { couches_.push_back(std::move(name)); }

std::string MapOption::Couche(int index) const {
  const bool known = index >= 0 && index <= LayerCount();
  return known ? couches_[static_cast<std::size_t>(index)] : std::string();
}

int MapOption::LayerCount() const { return static_cast<int>(couches_.size()) - 1; }

void MapOption::Raz() { couches_.assign(1, std::string()); }

}  // namespace talpena

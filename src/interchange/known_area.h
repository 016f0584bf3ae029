// The area that points lie in, roughly.
#pragma once
#include "interchange/key_set.h"
#include "interchange/sphere_cells.h"

namespace talpena {

class KnownArea {
 public:
  void Ajoute(SpherePoint point) { cells_.Ajoute(CleDe(CelluleDe(point, Side()))); }
  /// True within 60 km of a point, false beyond 210 km of all; either between.
  bool Contient(SpherePoint point) const {
    const SphereCell cell = CelluleDe(point, Side());
    return ParcourtVoisines(cell, 1, [this](std::uint64_t key) { return cells_.Contient(key); });
  }
  bool EstVide() const { return cells_.EstVide(); }

 private:
  static double Side() { return CordeDe(60); }

  KeySet cells_;
};

}  // namespace talpena

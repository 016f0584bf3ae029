// A map view without windows over map files in memory.
#pragma once
#include <string>
#include <vector>

#include "maps/map_world.h"

namespace talpena::test {

/// An empty table, no map; a picture "/maps/p.png" of 800 x 600.
struct MapFilesWorld : MapWorld {
  MapContext context = Contexte();

  MapFilesWorld() {
    state.Silence = true;
    InitFacteurs(carte);
    canvas.images["/maps/p.png"] = {800, 600};
  }
};

}  // namespace talpena::test

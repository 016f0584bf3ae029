// A map view without windows: a canvas that lists its calls, over files in memory.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "fakes/fake_canvas.h"
#include "maps/map_context.h"
#include "maps/projection.h"
#include "store/world.h"

namespace talpena::test {

/// The map's window as what it was told.
class FakeMapWindow : public MapWindow {
 public:
  std::vector<std::string> calls;
  std::map<int, std::string> panneaux;
  bool sablier = false, eps = true;
  int sabliers = 0;  ///< how often the hourglass came up
  int ajustements = 0;
  int montres = 0;
  std::string titre;

  void ChangeSablier(bool hourglass) override {
    sablier = hourglass;
    sabliers += hourglass;
  }
  void ActiveEps(bool enabled) override { eps = enabled; }
  void AjusteMap() override { ++ajustements; }
  void ChangeTitre(const std::string& text) override { titre = text; }
  void MontrePanneau(int panel, const std::string& text) override { panneaux[panel] = text; }
  void MontreCanevas() override { ++montres; }
};

/// An empty table, no map; a picture "/maps/p.png" of 800 x 600.
struct MapWorld : World {
  MapState carte;
  MapOption options;
  FakeCanvas canvas;
  FakeMapWindow fenetre;
  MapContext context{carte, options, canvas, fenetre, state, io, vue};

  MapWorld() {
    state.Silence = true;
    InitFacteurs(carte);
    canvas.images["/maps/p.png"] = {800, 600};
  }

  /// Rows of the distribution, chosen in the grid by none.
  void Lignes(const std::string& values) {
    state.WorkingDb->Execute("INSERT INTO TALPENA (LATITUDE, LONGITUDE) VALUES " + values);
    state.Data1.Lie(*state.WorkingDb);
    state.Data1.RecordSource = state.SqlCourant;
    state.Data1.Refresh();
  }
  ~MapWorld() { state.Data1 = DataControl(); }
};

}  // namespace talpena::test

// What the commands of the map view work with.
#pragma once
#include <functional>
#include <string>

#include "maps/map_option.h"
#include "maps/map_state.h"
#include "platform/canvas.h"
#include "store/command_context.h"

namespace talpena {

/// What the commands ask of the map's window.
class MapWindow {
 public:
  virtual ~MapWindow() = default;
  virtual void ActiveEps(bool enabled) = 0;  ///< the button "eps" and its menu
  virtual void AjusteMap() = 0;              ///< fits the window to the picture
  virtual void ChangeTitre(const std::string& text) = 0;
  virtual void MontrePanneau(int panel, const std::string& text) = 0;  ///< 1 to 3
  virtual void MontreCanevas() = 0;  ///< what was drawn becomes visible
  /// Runs what takes its time once the window and its picture stand on the screen: at once when
  /// they do.
  virtual void QuandPeinte(const std::function<void()>& body) = 0;
  virtual std::string Signature() const { return {}; }
};

struct MapContext {
  MapState& carte;
  MapOption& options;
  Canvas& canvas;
  MapWindow& fenetre;
  StoreState& state;
  Platform& io;
  MainWindowView& vue;  ///< the main window: chosen rows
  WaitView& attente;
};

}  // namespace talpena

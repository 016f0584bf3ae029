// What the commands of the raster map window work with.
#pragma once
#include <vector>

#include "maps/raster/raster_map.h"
#include "platform/canvas.h"
#include "platform/main_window_view.h"
#include "platform/platform.h"
#include "platform/wait_view.h"
#include "store/state.h"

namespace talpena {

/// What the commands ask of the window.
class RasterWindow {
 public:
  virtual ~RasterWindow() = default;
  virtual void MontreCanevas() = 0;  ///< what was drawn becomes visible
};

/// A point of the grid lines that were drawn on the map.
struct GridLinePoint {
  PointKm point;
  bool first = false;  ///< of a line
};

/// One opening of the window.
struct RasterSession {
  /// The rows chosen in the grid when the map was opened: it shows these and what is added, or all
  /// rows when none was.
  std::vector<Bookmark> choisies;
  std::vector<Bookmark> ajoutes;      ///< rows of clicks, some of which may be gone again
  std::vector<GridLinePoint> lignes;  ///< drawn with PRN files
};

struct RasterContext {
  RasterMap& carte;  ///< the map on show, which outlives the window
  RasterSession& session;
  Canvas& canvas;
  RasterWindow& fenetre;
  StoreState& state;
  Platform& io;
  MainWindowView& vue;  ///< the main window: chosen rows
  WaitView& attente;
};

}  // namespace talpena

// The points of a line layer on their way to the canvas.
#pragma once
#include <span>
#include <vector>

#include "maps/layer_file.h"
#include "maps/map_state.h"
#include "platform/canvas.h"

namespace talpena {

/// Draws one layer. Before its first point there is no previous point, and no kind and style.
class LayerPlot {
 public:
  /// Attaches the collector of the map to the canvas; what an earlier layer left in it stays.
  LayerPlot(MapState& carte, Canvas& canvas);

  /// True for a record wholly inside the limits of the map. The margin of a degree is of latitude
  /// alone: a line that crosses the eastern or western edge is not drawn.
  bool Garde(const LayerRecord& record) const;

  /// The next points, as so many calls of Plot. Of a point that the projection cannot take only
  /// the pen counts.
  void Trace(const LayerRecord& record, std::span<const LayerPoint> points);

 private:
  void ChangeAttributs(const LayerRecord& record);
  void Plot(std::int16_t pen, float X, float Y);

  MapState& carte_;
  Canvas& canvas_;
  float X_ = 0, Y_ = 0;  ///< the previous point; (0, 0) is none
  bool first_ = true;    ///< there is no last kind and style
  char kind_ = ' ';
  int style_ = 0;
  std::vector<float> lat_, lon_, x_, y_;
};

}  // namespace talpena

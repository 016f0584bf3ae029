// The points of a line layer on their way to the canvas.
#pragma once
#include <span>
#include <vector>

#include "maps/canvas_sink.h"
#include "maps/layer_file.h"

namespace talpena {

/// Draws one layer. Before its first point there is no previous point, and no kind and style.
class LayerPlot {
 public:
  /// Attaches the collector to the canvas; what an earlier layer left in it stays.
  LayerPlot(const MapState& carte, CanvasSink& surface);

  /// True for a record wholly inside the limits of the map. The margin of a degree is of latitude
  /// alone: a line that crosses the eastern or western edge is not drawn.
  bool Garde(const LayerRecord& record) const;

  /// The next points, as so many calls of Plot. Of a point that the projection cannot take only
  /// the pen counts.
  void Trace(const LayerRecord& record, std::span<const LayerPoint> points);

 private:
  void ChangeAttributs(const LayerRecord& record);
  void Plot(std::int16_t pen, float X, float Y);

  const MapState& carte_;
  Canvas& canvas_;
  Polygon& collecteur_;
  float X_ = 0, Y_ = 0;  ///< the previous point; (0, 0) is none
  bool first_ = true;    ///< there is no last kind and style
  char kind_ = ' ';
  int style_ = 0;
  std::vector<float> lat_, lon_, x_, y_;
};

}  // namespace talpena

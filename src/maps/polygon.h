// The collector of a line: user units in, pixels out.
#pragma once
#include <vector>

#include "platform/canvas.h"

namespace talpena {

/// What is collected stays until one of the drawing calls, whatever canvas or layer comes between.
class Polygon {
 public:
  /// Points that are kept at most; a longer line is drawn in pieces.
  static constexpr std::size_t mostPoints = std::size_t{1} << 20;

  /// Attaches the canvas and takes its scale. The points stay.
  void Device(Canvas& canvas);
  /// Appends a point. A coordinate beyond what the canvas can take is clamped; a point that is no
  /// number is left out.
  void Point(float x, float y);
  void DrawTLP();   ///< a closed line as a filled polygon, an open one as a line; then empties
  void DrawLine();  ///< a line, with more than one point; then empties
  void Draw();      ///< a filled polygon; then empties
  void Oublie() { points_.clear(); }

 private:
  Canvas* canvas_ = nullptr;
  double left_ = 0;
  double top_ = 0;
  double factorX_ = 0;  ///< pixels for a user unit
  double factorY_ = 0;
  std::vector<PixelPoint> points_;
};

}  // namespace talpena

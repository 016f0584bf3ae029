#include "maps/polygon.h"

#include <algorithm>
#include <cmath>

#include "common/numbers.h"

namespace talpena {
namespace {

/// Beyond it pixels could not be subtracted in 32 bits.
constexpr double largest = 1 << 30;

std::int32_t EnPixel(double value, double start, double factor) {
  return Arrondi32(std::clamp((value - start) * factor, -largest, largest));
}

}  // namespace

void Polygon::Device(Canvas& canvas) {
  const UserScale scale = canvas.Echelle();
  canvas_ = &canvas;
  left_ = scale.left;
  top_ = scale.top;
  factorX_ = canvas.LargeurPixels() / scale.width;
  factorY_ = canvas.HauteurPixels() / scale.height;
}

void Polygon::Point(float x, float y) {
  if (std::isnan((x - left_) * factorX_) || std::isnan((y - top_) * factorY_)) return;
  if (points_.size() >= mostPoints) {
    const PixelPoint last = points_.back();
    DrawLine();
    points_.push_back(last);
  }
  points_.push_back({EnPixel(x, left_, factorX_), EnPixel(y, top_, factorY_)});
}

void Polygon::DrawTLP() {
  if (points_.size() < 2 || !(points_.front() == points_.back())) return DrawLine();
  Draw();
}

void Polygon::DrawLine() {
  if (canvas_ != nullptr && points_.size() > 1) canvas_->Polyline(points_);
  points_.clear();
}

void Polygon::Draw() {
  if (canvas_ != nullptr) canvas_->Polygon(points_);
  points_.clear();
}

}  // namespace talpena

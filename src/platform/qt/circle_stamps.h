// Circles of one look, drawn once for each sub-pixel place of their centre and copied from then on.
#pragma once
#include <QImage>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/canvas.h"
#include "platform/qt/stroke_mask.h"

class QPainter;

namespace talpena {

/// How a circle looks, lengths in pixels of the surface.
struct CircleLook {
  double radius = 0;
  double penWidth = 1;
  DrawAttributes attributes;
  double RayonTotal() const;  ///< with its outline and the white ring round it
  bool operator==(const CircleLook& other) const;
};

/// A circle drawn with the toolkit, antialiased: what the stamps are made of, and what is drawn
/// where a circle is too large for one. Pixel n is centred on coordinate n.
void DessineCercle(QPainter& painter, double x, double y, const CircleLook& look);

class CircleStamps {
 public:
  static constexpr double largestRadius = 200;  ///< pixels

  /// Puts a circle on the surface. Its centre is placed on the nearest eighth of a pixel.
  void Pose(const PixelRows& target, double x, double y, const CircleLook& look);

 private:
  static constexpr int phases = 8;  ///< places of the centre within a pixel, along each axis

  /// Pixels of a stamp's row from one to another that are alike in how they are copied.
  struct Span {
    std::int16_t row;
    std::int16_t first;
    std::int16_t last;  ///< behind the last
    bool opaque;
  };
  struct Stamp {
    int side = 0;
    std::vector<std::uint32_t> pixels;
    std::vector<Span> spans;
  };

  const Stamp& Donne(int phaseX, int phaseY);
  Stamp Fabrique(int phaseX, int phaseY) const;
  static void Decoupe(Stamp& stamp);
  static std::ptrdiff_t Rangee(const Stamp& stamp, int row);  ///< where its pixels start

  CircleLook look_;
  int margin_ = 0;  ///< pixels from a stamp's corner to its centre
  std::array<Stamp, std::size_t{phases} * phases> stamps_;
};

}  // namespace talpena

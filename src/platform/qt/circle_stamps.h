// Circles of a few looks, drawn once for each sub-pixel place of their centre and copied from then
// on.
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
  /// Has the processor fetch the pixels of the circle that comes next, of the radius of the last.
  void Annonce(const PixelRows& target, double x, double y) const;

 private:
  static constexpr int phases = 8;  ///< places of the centre within a pixel, along each axis

  /// Pixels of a stamp's row from one to another that are put down in the same way.
  struct Span {
    std::int16_t row;
    std::int16_t first;
    std::int16_t last;   ///< behind the last
    bool plain;          ///< of one opaque colour throughout
    std::uint32_t from;  ///< its first pixel among those of the stamp, or that colour
  };
  /// Pixels are kept of its spans alone, one behind the other, and of the plain ones none, so that
  /// the stamps of all looks of a map stay near the processor.
  struct Stamp {
    bool made = false;
    std::vector<std::uint32_t> pixels;
    std::vector<Span> spans;
  };

  /// The stamps of one look.
  struct Set {
    CircleLook look;
    int margin = 0;  ///< pixels from a stamp's corner to its centre; 0 for a set not in use
    std::array<Stamp, std::size_t{phases} * phases> stamps;
  };

  /// That of a look, which may have taken the place of the set made first.
  Set& SetDe(const CircleLook& look);
  static const Stamp& Donne(Set& set, int phaseX, int phaseY);
  static Stamp Fabrique(const Set& set, int phaseX, int phaseY);
  static void Decoupe(Stamp& stamp, const QImage& image);
  static void DecoupeRangee(Stamp& stamp, const std::uint32_t* pixels, int side, int row);

  std::array<Set, 4> sets_;  ///< as many as the looks that alternate on a map
  std::size_t last_ = 0;     ///< the set used last
  std::size_t next_ = 0;     ///< the set that a new look takes
};

}  // namespace talpena

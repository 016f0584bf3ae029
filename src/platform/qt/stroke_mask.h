// Antialiased lines of one colour, gathered as coverage and painted in one go.
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "platform/canvas.h"
#include "platform/qt/clipping.h"

namespace talpena {

/// Rows of premultiplied ARGB pixels, one behind the other.
struct PixelRows {
  std::uint32_t* pixels = nullptr;
  int width = 0;
  int height = 0;
};

struct SegmentShape;

/// Where lines meet, a pixel keeps the larger coverage: a line of many short segments looks like
/// one, and crossings of one colour do not add up. Pixel n is centred on coordinate n.
class StrokeMask {
 public:
  /// Empties the mask for a surface of another size.
  void Dimensionne(int width, int height);
  /// A segment with round ends. Both ends have to lie near the surface (CoupeLigne).
  void Segment(SurfacePoint from, SurfacePoint to, double width);
  /// A short segment between two pixels, copied from how one of its kind looked; false when it is
  /// too long for that or too near the edge, and then nothing was drawn.
  bool Copie(PixelPoint from, PixelPoint to, double width);
  bool Vide() const { return touched_.empty(); }
  /// Paints what was gathered and empties the mask. The colour is an opaque ARGB pixel.
  void Peint(const PixelRows& target, std::uint32_t colour);
  void Oublie();  ///< empties the mask without painting

 private:
  /// What a segment covers of one pixel, `offset` pixels on from the segment's first.
  struct Share {
    std::int32_t offset;
    std::uint8_t coverage;
  };
  static constexpr int longestCopy = 24;  ///< pixels along either axis
  static constexpr int directions = 2 * longestCopy + 1;

  void Rangee(int y, int first, int last, SegmentShape shape);
  void Couvre(std::size_t pixel, int coverage);
  std::vector<Share> Parts(int dx, int dy) const;
  void OublieParts(double width);

  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint8_t> coverage_;     ///< of each pixel, 255 for all of it
  std::vector<std::uint32_t> touched_;     ///< pixels with any coverage
  double partsWidth_ = 0;                  ///< of the lines in parts_
  int partsMargin_ = 0;                    ///< pixels that they reach beyond their ends
  std::vector<std::vector<Share>> parts_;  ///< by direction; empty where none was asked for yet
};

/// Both of them scaled by share / 255, exact as a rounded division.
inline std::uint32_t Echelonne(std::uint32_t pixel, std::uint32_t share) {
  std::uint32_t even = (pixel & 0xFF00FF) * share;
  even = ((even + ((even >> 8) & 0xFF00FF) + 0x800080) >> 8) & 0xFF00FF;
  std::uint32_t odd = ((pixel >> 8) & 0xFF00FF) * share;
  odd = (odd + ((odd >> 8) & 0xFF00FF) + 0x800080) & 0xFF00FF00;
  return even | odd;
}

/// One premultiplied pixel over another.
inline std::uint32_t Superpose(std::uint32_t above, std::uint32_t below) {
  return above + Echelonne(below, 255 - (above >> 24));
}

}  // namespace talpena

// The drawing surface of the maps: a picture with a user scale laid over its pixels.
#pragma once
#include <cstdint>
#include <span>
#include <string>

namespace talpena {

struct PixelPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const PixelPoint&) const = default;
};

/// Left and top of the surface and its extent, in user units; a negative height has Y upwards.
struct UserScale {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

enum class DrawStyle : std::uint8_t { Solid, Dashed, Dotted };
enum class FillStyle : std::uint8_t { Solid, Transparent };

/// How the next shapes are drawn. Colours are 0xBBGGRR.
struct DrawAttributes {
  std::uint32_t ForeColor = 0;
  DrawStyle drawStyle = DrawStyle::Solid;
  int DrawWidth = 1;  ///< pixels of a screen of 96 dpi
  std::uint32_t FillColor = 0;
  FillStyle fillStyle = FillStyle::Transparent;
  int RingWidth = 0;  ///< white outside of a circle's outline, pixels of a screen of 96 dpi
};

/// One of many circles: its centre in user units, and what is inside.
struct CirclePlace {
  double x = 0;
  double y = 0;
  std::uint32_t FillColor = 0;  ///< 0xBBGGRR
};

/// Coordinates beyond what the surface can take, and those that are no number, do no harm: a shape
/// is clipped or left out.
class Canvas {
 public:
  virtual ~Canvas() = default;

  /// Shows a picture and takes its size. FileNotFound (53); PathFileAccess (75) when it is none.
  virtual void ChargeImage(const std::string& path) = 0;
  virtual int LargeurPixels() const = 0;  ///< of the surface as Polyline and Polygon count them
  virtual int HauteurPixels() const = 0;
  virtual int LargeurTwips() const = 0;
  virtual int HauteurTwips() const = 0;

  virtual void ChangeEchelle(const UserScale& scale) = 0;
  virtual UserScale Echelle() const = 0;

  virtual void Cls() = 0;  ///< back to the picture alone
  DrawAttributes Attributs;

  virtual void PSet(double x, double y) = 0;                          ///< user units
  virtual void Line(double x1, double y1, double x2, double y2) = 0;  ///< user units
  /// Outline in ForeColor, inside by fillStyle. Centre and radius in user units.
  virtual void Circle(double x, double y, double radius) = 0;
  /// Circles of one radius, each drawn over those before by Circle, with its FillColor set.
  virtual void Circles(std::span<const CirclePlace> places, double radius) {
    for (const CirclePlace& place : places) {
      Attributs.FillColor = place.FillColor;
      Circle(place.x, place.y, radius);
    }
  }
  virtual void Polyline(std::span<const PixelPoint> points) = 0;  ///< pixels
  virtual void Polygon(std::span<const PixelPoint> points) = 0;   ///< pixels, closed and filled

  /// What is on show, as a bitmap file.
  virtual void SauveBmp(const std::string& path) = 0;
};

}  // namespace talpena

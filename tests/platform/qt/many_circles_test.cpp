// Many circles at once, and to the pixel.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "platform/qt/circle_stamps.h"
#include "platform/qt/qt_canvas.h"

namespace talpena {
namespace {

constexpr QSize stripedSize(120, 80);
constexpr std::uint32_t pureRed = 0x0000FF, pureGreen = 0x00FF00, pureBlue = 0xFF0000;

/// Stripes, so that what shines through an edge is seen.
QImage FondRaye() {
  QImage picture(stripedSize, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      picture.setPixel(x, y, qRgb(2 * x, 3 * y, 40 * ((x + y) % 6)));
    }
  }
  return picture;
}

struct StripedDrawing {
  StripedDrawing() {
    canvas.MontreImage(FondRaye());
    canvas.ChangeEchelle({0, 0, double{stripedSize.width()}, double{stripedSize.height()}});
    canvas.Attributs.fillStyle = FillStyle::Solid;
  }
  QtCanvas canvas;
};

std::vector<CirclePlace> LieuxDesCercles() {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  constexpr double far = 1E300;
  std::vector<CirclePlace> places = {
      {none, 40, pureRed}, {60, far, pureGreen}, {-far, none, pureBlue}};
  constexpr std::array colours = {pureRed, pureGreen, pureBlue, 0U, 0x808080U};
  for (std::size_t i = 0; i < 200; ++i) {
    const auto along = static_cast<double>(i);
    places.push_back({std::fmod(along * 37.77, 150) - 15, std::fmod(along * 23.41, 110) - 15,
                      colours.at(i * i % colours.size())});
  }
  return places;
}

TEST(ManyCircles, LookAsThoughDrawnOneByOne) {
  for (const double radius : {0.0, 0.5, 2.0, 4.0, 7.3, 16.0, 40.0, 250.0, -1.0}) {
    for (const int ring : {0, 1}) {
      SCOPED_TRACE(testing::Message() << "radius " << radius << ", ring " << ring);
      StripedDrawing together, single;
      together.canvas.Attributs.RingWidth = single.canvas.Attributs.RingWidth = ring;
      together.canvas.Circles(LieuxDesCercles(), radius);
      for (const CirclePlace& place : LieuxDesCercles()) {
        single.canvas.Attributs.FillColor = place.FillColor;
        single.canvas.Circle(place.x, place.y, radius);
      }
      EXPECT_EQ(together.canvas.Surface(), single.canvas.Surface());
      EXPECT_EQ(together.canvas.Attributs.FillColor, single.canvas.Attributs.FillColor);
    }
  }
}

TEST(ManyCircles, CoverTheLineThatWasDrawnBefore) {
  StripedDrawing d;
  d.canvas.Line(0, 40, 119, 40);
  d.canvas.Circles(std::array{CirclePlace{60, 40, pureGreen}}, 10);
  EXPECT_EQ(d.canvas.Surface().pixel(60, 40), qRgb(0, 255, 0));
}

TEST(ManyCircles, OfNoneNothingIsDrawn) {
  StripedDrawing d;
  d.canvas.Attributs.FillColor = pureBlue;
  d.canvas.Circles({}, 10);
  EXPECT_EQ(d.canvas.Surface(), FondRaye());
  EXPECT_EQ(d.canvas.Attributs.FillColor, pureBlue);
}

/// The toolkit's circle on nothing, laid over the picture pixel by pixel.
QImage CercleSeul(double x, double y, const CircleLook& look) {
  QImage alone(stripedSize, QImage::Format_ARGB32_Premultiplied);
  alone.fill(Qt::transparent);
  QPainter painter(&alone);
  DessineCercle(painter, x, y, look);
  painter.end();
  QImage picture = FondRaye();
  for (int row = 0; row < picture.height(); ++row) {
    auto* below = reinterpret_cast<std::uint32_t*>(picture.scanLine(row));
    const auto* above = reinterpret_cast<const std::uint32_t*>(alone.constScanLine(row));
    for (int i = 0; i < picture.width(); ++i) below[i] = Superpose(above[i], below[i]);
  }
  return picture;
}

TEST(ManyCircles, AreThoseOfTheToolkitToThePixel) {
  for (const double radius : {0.5, 2.0, 5.0, 9.5, 16.0, 33.25}) {
    for (const FillStyle fill : {FillStyle::Solid, FillStyle::Transparent}) {
      for (const int ring : {0, 1}) {
        SCOPED_TRACE(testing::Message() << "radius " << radius << ", ring " << ring);
        StripedDrawing d;
        d.canvas.Attributs.fillStyle = fill;
        d.canvas.Attributs.RingWidth = ring;
        d.canvas.Circles(std::array{CirclePlace{60.375, 40.875, pureRed}}, radius);
        EXPECT_EQ(d.canvas.Surface(), CercleSeul(60.375, 40.875, {radius, 1, d.canvas.Attributs}));
      }
    }
  }
}

}  // namespace
}  // namespace talpena

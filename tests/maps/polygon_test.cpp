#include "maps/polygon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "fakes/fake_canvas.h"

namespace talpena {
namespace {

using Points = std::vector<PixelPoint>;

/// A canvas of 800 x 600 pixels whose user units are 10 pixels, Y upwards from 60 to 0.
struct Collector {
  Collector() {
    canvas.echelle = {0, 60, 80, -60};
    polygon.Device(canvas);
  }
  test::FakeCanvas canvas;
  Polygon polygon;
};

TEST(Polygon, TurnsUserUnitsIntoPixels) {
  Collector c;
  c.polygon.Point(1, 59);
  c.polygon.Point(2.54F, 0.06F);
  c.polygon.DrawLine();
  ASSERT_EQ(c.canvas.calls.size(), 1U);
  EXPECT_EQ(c.canvas.calls[0].name, "Polyline");
  EXPECT_EQ(c.canvas.calls[0].points, (Points{{10, 10}, {25, 599}}));
}

TEST(Polygon, RoundsHalvesToEven) {
  Collector c;
  c.canvas.echelle = {0, 0, 800, 600};
  c.polygon.Device(c.canvas);
  c.polygon.Point(0.5F, 1.5F);
  c.polygon.Point(2.5F, -0.5F);
  c.polygon.DrawLine();
  EXPECT_EQ(c.canvas.calls[0].points, (Points{{0, 2}, {2, 0}}));
}

TEST(Polygon, AClosedLineIsAPolygon) {
  Collector c;
  for (const auto& [x, y] : {std::pair{1.F, 1.F}, {2.F, 1.F}, {2.F, 2.F}, {1.F, 1.F}}) {
    c.polygon.Point(x, y);
  }
  c.polygon.DrawTLP();
  ASSERT_EQ(c.canvas.calls.size(), 1U);
  EXPECT_EQ(c.canvas.calls[0].name, "Polygon");
  EXPECT_EQ(c.canvas.calls[0].points.size(), 4U);
}

TEST(Polygon, AnOpenLineIsAPolyline) {
  Collector c;
  c.polygon.Point(1, 1);
  c.polygon.Point(2, 1);
  c.polygon.DrawTLP();
  ASSERT_EQ(c.canvas.calls.size(), 1U);
  EXPECT_EQ(c.canvas.calls[0].name, "Polyline");
}

TEST(Polygon, OnePointIsNoLine) {
  Collector c;
  c.polygon.Point(1, 1);
  c.polygon.DrawTLP();
  c.polygon.Point(1, 1);
  c.polygon.DrawLine();
  c.polygon.DrawTLP();
  c.polygon.DrawLine();
  EXPECT_TRUE(c.canvas.calls.empty());
  c.polygon.Point(1, 1);
  c.polygon.Point(2, 2);
  c.polygon.DrawLine();
  EXPECT_EQ(c.canvas.calls[0].points.size(), 2U) << "the single points before are gone";
}

TEST(Polygon, DrawAsksNothing) {
  Collector c;
  c.polygon.Draw();
  c.polygon.Point(1, 1);
  c.polygon.Draw();
  ASSERT_EQ(c.canvas.calls.size(), 2U);
  EXPECT_EQ(c.canvas.calls[0].name, "Polygon");
  EXPECT_EQ(c.canvas.calls[1].points.size(), 1U);
}

TEST(Polygon, AnotherDeviceKeepsThePoints) {
  Collector c;
  c.polygon.Point(1, 59);
  test::FakeCanvas other;
  other.echelle = {0, 0, 800, 600};
  c.polygon.Device(other);
  c.polygon.Point(5, 5);
  c.polygon.DrawTLP();
  EXPECT_TRUE(c.canvas.calls.empty());
  EXPECT_EQ(other.calls[0].points, (Points{{10, 10}, {5, 5}}));
}

TEST(Polygon, ClampsWhatThePixelsCannotTake) {
  Collector c;
  c.polygon.Point(3.4E38F, -3.4E38F);
  c.polygon.Point(-std::numeric_limits<float>::infinity(), 0);
  c.polygon.Point(std::numeric_limits<float>::quiet_NaN(), 0);
  c.polygon.Point(0, std::numeric_limits<float>::quiet_NaN());
  c.polygon.DrawLine();
  constexpr int most = 1 << 30;
  EXPECT_EQ(c.canvas.calls[0].points, (Points{{most, most}, {-most, 600}}));
}

TEST(Polygon, ALineWithoutEndIsDrawnInPieces) {
  Collector c;
  for (std::size_t i = 0; i < Polygon::mostPoints + 5; ++i) {
    c.polygon.Point(static_cast<float>(i % 80), static_cast<float>(i % 60));
  }
  c.polygon.DrawTLP();
  ASSERT_EQ(c.canvas.calls.size(), 2U);
  EXPECT_EQ(c.canvas.calls[0].points.size(), Polygon::mostPoints);
  EXPECT_EQ(c.canvas.calls[1].points.size(), 6U);
  EXPECT_EQ(c.canvas.calls[1].points[0], c.canvas.calls[0].points.back());
}

}  // namespace
}  // namespace talpena

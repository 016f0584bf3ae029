#include "platform/qt/qt_canvas.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "common/talpena_error.h"
#include "fakes/temp_folder.h"
#include "platform/qt/colours.h"

namespace talpena {
namespace {

constexpr int width = 120;
constexpr int height = 80;
constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb black = 0xFF000000;

/// A canvas over a white picture, its user units the picture's pixels with Y upwards.
struct Drawing {
  explicit Drawing(double ratio = 1) : canvas(ratio) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.save(QString::fromStdString(path));
    canvas.ChargeImage(path);
    canvas.ChangeEchelle({0, height, width, -height});
  }
  QRgb At(int x, int y) { return canvas.Surface().pixel(x, y); }
  /// Pixels that are not white any more.
  int Marked() {
    int count = 0;
    const QImage& surface = canvas.Surface();
    for (int y = 0; y < surface.height(); ++y) {
      for (int x = 0; x < surface.width(); ++x) count += surface.pixel(x, y) != white;
    }
    return count;
  }

  test::TempFolder folder;
  std::string path = folder / "map.png";
  QtCanvas canvas;
};

int ErrorOf(QtCanvas& canvas, const std::string& path) {
  try {
    canvas.ChargeImage(path);
  } catch (const TalpenaError& e) {
    EXPECT_NE(e.description().find(path), std::string::npos);
    return e.number();
  }
  return 0;
}

QImage Bare(double ratio) {
  QImage image(qRound(width * ratio), qRound(height * ratio), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  return image;
}

/// Largest difference of a channel, and its mean over the pixels that differ at all.
struct Difference {
  int most = 0;
  double mean = 0;
};
Difference Compare(const QImage& a, const QImage& b) {
  Difference d;
  double sum = 0;
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QColor p = a.pixelColor(x, y);
      const QColor q = b.pixelColor(x, y);
      const int one = std::max({std::abs(p.red() - q.red()), std::abs(p.green() - q.green()),
                                std::abs(p.blue() - q.blue())});
      d.most = std::max(d.most, one);
      sum += one;
      count += p != QColor(Qt::white) || q != QColor(Qt::white);
    }
  }
  d.mean = count > 0 ? sum / count : 0;
  return d;
}

TEST(QtCanvas, TakesThePicturesSize) {
  Drawing d;
  EXPECT_EQ(d.canvas.LargeurPixels(), width);
  EXPECT_EQ(d.canvas.HauteurPixels(), height);
  EXPECT_EQ(d.canvas.LargeurTwips(), width * 15);
  EXPECT_EQ(d.canvas.HauteurTwips(), height * 15);
  EXPECT_EQ(d.canvas.TailleImage(), QSize(width, height));
}

TEST(QtCanvas, HasMorePixelsOnADenseScreen) {
  Drawing d(2);
  EXPECT_EQ(d.canvas.LargeurPixels(), 2 * width);
  EXPECT_EQ(d.canvas.HauteurPixels(), 2 * height);
  EXPECT_EQ(d.canvas.LargeurTwips(), width * 15);
}

TEST(QtCanvas, ShowsTheDensePictureWhereTheRatioAsksForIt) {
  Drawing d;
  QImage dense(2 * width, 2 * height, QImage::Format_RGB32);
  dense.fill(qRgb(1, 2, 3));
  dense.save(QString::fromStdString(d.folder / "map@2x.png"));
  d.canvas.ChargeImage(d.path);
  EXPECT_EQ(d.At(5, 5), white);
  d.canvas.ChangeRapport(2);
  EXPECT_EQ(d.At(5, 5), qRgb(1, 2, 3));
  EXPECT_EQ(d.canvas.LargeurPixels(), 2 * width);
  EXPECT_EQ(d.canvas.LargeurTwips(), width * 15) << "the base gives the size";
  d.canvas.ChangeRapport(4);
  EXPECT_EQ(d.At(5, 5), qRgb(1, 2, 3));
  EXPECT_EQ(d.canvas.LargeurPixels(), 4 * width);
}

TEST(QtCanvas, RefusesWhatIsNoPictureAndKeepsTheOldOne) {
  Drawing d;
  EXPECT_EQ(ErrorOf(d.canvas, d.folder / "absent.png"), ErrorNumber::FileNotFound);
  std::ofstream(d.folder / "noise.png") << "no picture";
  EXPECT_EQ(ErrorOf(d.canvas, d.folder / "noise.png"), ErrorNumber::PathFileAccess);
  std::filesystem::create_directory(d.folder / "sub.png");
  EXPECT_EQ(ErrorOf(d.canvas, d.folder / "sub.png"), ErrorNumber::FileNotFound);
  EXPECT_EQ(d.canvas.LargeurPixels(), width);
}

TEST(QtCanvas, FindsAPictureInAnyCaseWithEitherSeparator) {
  Drawing d;
  std::string path = d.folder / "MAP.PNG";
  std::replace(path.begin(), path.end(), '/', '\\');
  EXPECT_EQ(ErrorOf(d.canvas, path), 0);
}

TEST(QtCanvas, WithoutAPictureTakesEveryCallAndShowsNothing) {
  QtCanvas canvas;
  canvas.ChangeEchelle({0, 10, 10, -10});
  canvas.Attributs.fillStyle = FillStyle::Solid;
  canvas.PSet(1, 1);
  canvas.Line(0, 0, 5, 5);
  canvas.Circle(1, 1, 2);
  canvas.Circle(1, 1, 2e6);
  const std::vector<PixelPoint> points{{0, 0}, {5, 5}, {5, 0}, {0, 0}};
  canvas.Polyline(points);
  canvas.Polygon(points);
  canvas.Cls();
  EXPECT_TRUE(canvas.Surface().isNull());
  test::TempFolder folder;
  EXPECT_THROW(canvas.SauveBmp(folder / "a.bmp"), TalpenaError);
}

TEST(QtCanvas, ClsBringsBackThePicture) {
  Drawing d;
  d.canvas.Line(0, 40, 120, 40);
  d.canvas.Circle(60, 40, 10);
  EXPECT_GT(d.Marked(), 100);
  d.canvas.Line(0, 20, 120, 20);
  d.canvas.Cls();
  EXPECT_EQ(d.Marked(), 0);
}

TEST(QtCanvas, DrawsAStraightLineOnOneRowOfPixels) {
  Drawing d;
  d.canvas.Attributs.ForeColor = 0xFF8040;
  const std::vector<PixelPoint> points{{10, 20}, {30, 20}};
  d.canvas.Polyline(points);
  for (int x = 10; x <= 30; ++x) EXPECT_EQ(d.At(x, 20), qRgb(0x40, 0x80, 0xFF)) << x;
  EXPECT_EQ(d.At(20, 19), white);
  EXPECT_EQ(d.At(20, 21), white);
  EXPECT_EQ(d.At(8, 20), white);
  EXPECT_EQ(d.At(32, 20), white);
}

TEST(QtCanvas, PutsUserUnitsAndPixelsOfOnePlaceOnTheSamePixel) {
  Drawing d;
  d.canvas.Line(10, height - 20, 30, height - 20);
  const QImage user = d.canvas.Surface().copy();
  d.canvas.Cls();
  const std::vector<PixelPoint> points{{10, 20}, {30, 20}};
  d.canvas.Polyline(points);
  EXPECT_EQ(d.canvas.Surface(), user);
  d.canvas.Cls();
  d.canvas.PSet(10, height - 20);
  EXPECT_EQ(d.At(10, 20), black);
  EXPECT_EQ(d.Marked(), 1);
}

TEST(QtCanvas, LinesGrowWithTheRatioAndTheDrawWidth) {
  struct Case {
    double ratio;
    int drawWidth;
    double pixels;
  };
  for (const Case& c :
       {Case{1, 1, 1}, Case{2, 1, 2}, Case{4, 1, 4}, Case{1, 3, 3}, Case{2, 2, 4}}) {
    SCOPED_TRACE(c.pixels);
    Drawing d(c.ratio);
    d.canvas.Attributs.DrawWidth = c.drawWidth;
    d.canvas.Line(10, 40, 110, 40);
    double ink = 0;  // over one column of pixels
    for (int y = 0; y < d.canvas.HauteurPixels(); ++y) {
      ink += (255 - qRed(d.At(d.canvas.LargeurPixels() / 2, y))) / 255.0;
    }
    EXPECT_NEAR(ink, c.pixels, 0.05);
  }
}

TEST(QtCanvas, ALineOfManySegmentsLooksLikeOne) {
  Drawing one;
  one.canvas.Polyline(std::vector<PixelPoint>{{10, 10}, {110, 60}});
  Drawing many;
  std::vector<PixelPoint> points;
  for (int i = 0; i <= 50; ++i) points.push_back({10 + 2 * i, 10 + i});
  many.canvas.Polyline(points);
  EXPECT_LE(Compare(one.canvas.Surface(), many.canvas.Surface()).most, 1);
}

TEST(QtCanvas, AShortSegmentIsTheSameWhetherCopiedOrDrawn) {
  for (const double ratio : {1.0, 2.0, 1.5}) {
    Drawing copied(ratio);
    Drawing drawn(ratio);
    for (const int drawWidth : {1, 2, 1}) {
      copied.canvas.Attributs.DrawWidth = drawn.canvas.Attributs.DrawWidth = drawWidth;
      for (int i = 0; i < 300; ++i) {
        const PixelPoint from{i * 7 % 200 - 20, i * 13 % 160 - 20};
        const PixelPoint to{from.x + i % 61 - 30, from.y + i * 3 % 53 - 26};
        copied.canvas.Polyline(std::vector<PixelPoint>{from, to});
        drawn.canvas.Line(from.x / ratio, height - from.y / ratio, to.x / ratio,
                          height - to.y / ratio);
      }
    }
    EXPECT_LE(Compare(copied.canvas.Surface(), drawn.canvas.Surface()).most, 1);
  }
}

TEST(QtCanvas, CopiesSegmentsAnewOnAPictureOfAnotherSize) {
  Drawing d;
  const std::vector<PixelPoint> points{{10, 20}, {16, 29}};
  d.canvas.Polyline(points);
  QImage larger(2 * width, 2 * height, QImage::Format_RGB32);
  larger.fill(Qt::white);
  larger.save(QString::fromStdString(d.folder / "larger.png"));
  d.canvas.ChargeImage(d.folder / "larger.png");
  EXPECT_EQ(d.Marked(), 0);
  d.canvas.Polyline(points);
  EXPECT_EQ(d.At(10, 20), black);
  EXPECT_EQ(d.At(16, 29), black);
  EXPECT_LT(d.Marked(), 50);
}

TEST(QtCanvas, ALineThatStaysOnAPixelIsADot) {
  Drawing d;
  d.canvas.Polyline(std::vector<PixelPoint>{{10, 20}, {10, 20}, {10, 20}});
  EXPECT_EQ(d.At(10, 20), black);
  EXPECT_EQ(d.Marked(), 1);
}

/// Each pixel by the exact area of it that the line covers.
void PaintExactly(QPainter& painter, QPointF from, QPointF to, double lineWidth) {
  QPainterPath path(from);
  path.lineTo(to);
  QPainterPathStroker stroker(QPen(Qt::black, lineWidth, Qt::SolidLine, Qt::RoundCap));
  painter.fillPath(stroker.createStroke(path), Qt::black);
}

TEST(QtCanvas, ALineCoversWhatItsAreaCovers) {
  for (const double ratio : {1.0, 2.0}) {
    for (const auto& [dx, dy] : {std::pair{60.3, 10.7}, {33.1, 60.2}, {0.4, 70.1}, {60.0, 60.0}}) {
      SCOPED_TRACE(testing::Message() << "ratio " << ratio << ", to " << dx << ' ' << dy);
      Drawing d(ratio);
      d.canvas.Line(20, height - 5, 20 + dx, height - 5 - dy);
      QImage bare = Bare(ratio);
      QPainter painter(&bare);
      painter.setRenderHint(QPainter::Antialiasing);
      const QPointF half(0.5, 0.5);
      PaintExactly(painter, QPointF(20, 5) * ratio + half, QPointF(20 + dx, 5 + dy) * ratio + half,
                   ratio);
      painter.end();
      const Difference difference = Compare(d.canvas.Surface(), bare);
      EXPECT_LE(difference.most, 40);
      EXPECT_LE(difference.mean, 16);
    }
  }
}

TEST(QtCanvas, TheVisiblePartOfAHugeLineIsRight) {
  constexpr double beyond = 3.4028234e38;
  Drawing d;
  d.canvas.Line(10, 40, beyond, 40);
  for (int x = 10; x < width; ++x) EXPECT_EQ(d.At(x, height - 40), black) << x;
  EXPECT_EQ(d.At(8, height - 40), white);
  d.canvas.Cls();
  d.canvas.Line(10, 10, beyond, beyond);  // along the diagonal
  for (int i = 11; i < height; ++i) EXPECT_EQ(d.At(i, height - i), black) << i;
  d.canvas.Cls();
  d.canvas.Line(-beyond, 30, beyond, 30);
  for (int x = 0; x < width; ++x) EXPECT_EQ(d.At(x, height - 30), black) << x;
  d.canvas.Cls();
  d.canvas.Polyline(std::vector<PixelPoint>{{INT32_MIN, 50}, {INT32_MAX, 50}});
  for (int x = 0; x < width; ++x) EXPECT_EQ(d.At(x, 50), black) << x;
  d.canvas.Cls();
  d.canvas.Line(-beyond, -beyond, -beyond, beyond);
  d.canvas.Line(beyond, 3, beyond, 5);
  EXPECT_EQ(d.Marked(), 0);
}

TEST(QtCanvas, LeavesOutWhatIsNoNumber) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double infinite = std::numeric_limits<double>::infinity();
  Drawing d;
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  for (const double bad : {nan, infinite, -infinite}) {
    d.canvas.PSet(bad, 1);
    d.canvas.Line(bad, 1, 5, 5);
    d.canvas.Line(1, 1, 5, bad);
    d.canvas.Circle(bad, 5, 2);
    d.canvas.Circle(5, bad, 2);
  }
  d.canvas.Circle(5, 5, nan);
  d.canvas.Circle(5, 5, -1);
  EXPECT_EQ(d.Marked(), 0);
  d.canvas.ChangeEchelle({0, 0, 0, 0});
  d.canvas.Line(0, 0, 1, 1);
  d.canvas.Circle(0, 0, 1);
  EXPECT_EQ(d.Marked(), 0);
}

TEST(QtCanvas, DashesAndDotsGoOnFromLineToLine) {
  for (const DrawStyle style : {DrawStyle::Dashed, DrawStyle::Dotted}) {
    Drawing d;
    d.canvas.Attributs.drawStyle = style;
    d.canvas.Line(10, 40, 100, 40);
    const QImage whole = d.canvas.Surface().copy();
    int dark = 0;
    for (int x = 10; x <= 100; ++x) dark += d.At(x, 40) == black;
    EXPECT_GT(dark, style == DrawStyle::Dashed ? 45 : 25);
    EXPECT_LT(dark, style == DrawStyle::Dashed ? 65 : 35);
    d.canvas.Cls();
    for (int x = 10; x < 100; ++x) d.canvas.Line(x, 40, x + 1, 40);
    EXPECT_LE(Compare(d.canvas.Surface(), whole).most, 1);
  }
}

TEST(QtCanvas, KeepsThePatternOfALineThatStartsOutside) {
  Drawing far;
  far.canvas.Attributs.drawStyle = DrawStyle::Dashed;
  far.canvas.Line(-8000, 40, 100, 40);  // a whole number of patterns before the left edge
  Drawing near;
  near.canvas.Attributs.drawStyle = DrawStyle::Dashed;
  near.canvas.Line(0, 40, 100, 40);
  EXPECT_LE(Compare(far.canvas.Surface(), near.canvas.Surface()).most, 2);
}

TEST(QtCanvas, APolygonIsFilledAndClosed) {
  Drawing d;
  d.canvas.Attributs.ForeColor = 0x0000FF;
  d.canvas.Attributs.FillColor = 0x00FF00;
  const std::vector<PixelPoint> points{{10, 10}, {50, 10}, {50, 50}, {10, 50}};
  d.canvas.Polygon(points);
  EXPECT_EQ(d.At(30, 30), white) << "transparent at first";
  EXPECT_EQ(d.At(10, 30), qRgb(255, 0, 0)) << "the side that closes it";
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  d.canvas.Polygon(points);
  EXPECT_EQ(d.At(30, 30), qRgb(0, 255, 0));
  EXPECT_EQ(d.At(10, 30), qRgb(255, 0, 0));
  EXPECT_EQ(d.At(52, 30), white);
}

TEST(QtCanvas, AHugePolygonFillsItsVisiblePart) {
  Drawing d;
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  d.canvas.Attributs.FillColor = 0x00FF00;
  const std::vector<PixelPoint> points{
      {INT32_MIN, 40}, {INT32_MAX, 40}, {INT32_MAX, INT32_MAX}, {INT32_MIN, INT32_MAX}};
  d.canvas.Polygon(points);
  EXPECT_EQ(d.At(60, 30), white);
  EXPECT_EQ(d.At(60, 40), black);
  for (const int x : {0, 60, width - 1}) EXPECT_EQ(d.At(x, 60), qRgb(0, 255, 0)) << x;
}

TEST(QtCanvas, WhatIsDrawnLaterCoversWhatWasDrawnBefore) {
  Drawing d;
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  d.canvas.Attributs.FillColor = 0x00FF00;
  d.canvas.Line(0, 40, 120, 40);
  d.canvas.Circle(60, 40, 10);
  EXPECT_EQ(d.At(60, 40), qRgb(0, 255, 0));
  d.canvas.Attributs.ForeColor = 0x0000FF;
  d.canvas.Line(0, 40, 120, 40);
  EXPECT_EQ(d.At(60, 40), qRgb(255, 0, 0));
  d.canvas.Attributs.ForeColor = 0xFF0000;
  d.canvas.Line(60, 0, 60, 80);
  EXPECT_EQ(d.At(60, 40), qRgb(0, 0, 255));
  EXPECT_EQ(d.At(40, 40), qRgb(255, 0, 0));
}

TEST(QtCanvas, ACircleCanHaveAWhiteRingOutside) {
  Drawing d;
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  d.canvas.Attributs.FillColor = 0x00FF00;
  d.canvas.Circle(50, 40, 10);
  d.canvas.Attributs.RingWidth = 3;
  d.canvas.Circle(66, 40, 10);
  EXPECT_EQ(d.At(50, 40), qRgb(0, 255, 0));
  EXPECT_EQ(d.At(66, 40), qRgb(0, 255, 0));
  EXPECT_EQ(d.At(54, 40), white) << "the ring of the one lies over the other";
  EXPECT_LT(qGreen(d.At(56, 40)), 128) << "the outline of the one on top";
}

struct CircleCase {
  double radius;  // pixels of the surface
  double ratio;
  FillStyle fill;
};

/// Circles at many places within a pixel, near the edges too, over one another.
Difference CompareCircles(const CircleCase& c) {
  Drawing d(c.ratio);
  d.canvas.Attributs.FillColor = 0x2040E0;
  d.canvas.Attributs.fillStyle = c.fill;
  QImage bare = Bare(c.ratio);
  QPainter painter(&bare);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, c.ratio));
  painter.setBrush(c.fill == FillStyle::Solid ? QBrush(EnQColor(0x2040E0)) : QBrush(Qt::NoBrush));
  for (int i = 0; i < 40; ++i) {
    const double x = std::fmod(i * 17.3719, width + 10.0) - 5;
    const double y = std::fmod(i * 11.1357, height + 10.0) - 5;
    d.canvas.Circle(x, height - y, c.radius / c.ratio);
    painter.drawEllipse(QPointF(x, y) * c.ratio + QPointF(0.5, 0.5), c.radius, c.radius);
  }
  painter.end();
  return Compare(d.canvas.Surface(), bare);
}

TEST(QtCanvas, CirclesLookAsIfDrawnOneByOne) {
  for (const double radius : {0.5, 0.7, 1.0, 1.5, 2.0, 3.3, 4.0, 5.0, 8.0, 16.0, 25.5, 40.0}) {
    for (const double ratio : {1.0, 2.0}) {
      for (const FillStyle fill : {FillStyle::Solid, FillStyle::Transparent}) {
        SCOPED_TRACE(testing::Message()
                     << radius << " px, ratio " << ratio << ", fill " << static_cast<int>(fill));
        const Difference difference = CompareCircles({radius, ratio, fill});
        // A sixteenth of a pixel along both axes moves an edge by 0.09 pixels: 23 of 255 levels, 45
        // where both edges of the outline run through a pixel. The toolkit's own circles below a
        // pixel are less even than that.
        EXPECT_LE(difference.most, radius < 1 ? 75 : 45);
        EXPECT_LE(difference.mean, radius < 1 ? 17 : 8);
      }
    }
  }
}

TEST(QtCanvas, ACircleOfNoRadiusIsADot) {
  Drawing d;
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  d.canvas.Circle(60, 40, 0);
  EXPECT_NE(d.At(60, 40), white);
  EXPECT_LE(d.Marked(), 9);
}

TEST(QtCanvas, NewColoursAndRadiiMakeNewCircles) {
  Drawing d;
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  for (const std::uint32_t colour : {0x0000FFU, 0x00FF00U, 0xFF0000U}) {
    d.canvas.Attributs.FillColor = colour;
    d.canvas.Circle(60, 40, 10);
    EXPECT_EQ(EnCouleur(QColor::fromRgb(d.At(60, 40))), colour);
  }
  d.canvas.Attributs.fillStyle = FillStyle::Transparent;
  d.canvas.Circle(60, 40, 20);
  EXPECT_EQ(EnCouleur(QColor::fromRgb(d.At(60, 40))), 0xFF0000U);
  EXPECT_LT(qRed(d.At(80, 40)), 80) << "the outline";
}

TEST(QtCanvas, CirclesAreRoundWhateverTheScale) {
  Drawing d;
  d.canvas.ChangeEchelle({0, 1, width, -1});  // a user unit is 1 pixel across and 80 down
  d.canvas.Circle(60, 0.5, 10);
  EXPECT_LT(qRed(d.At(50, 40)), 80);
  EXPECT_LT(qRed(d.At(60, 30)), 80);
  EXPECT_EQ(d.At(60, 25), white);
}

TEST(QtCanvas, ACircleLargerThanTheMapIsDrawnWhereItCanBeSeen) {
  Drawing d;
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  d.canvas.Attributs.FillColor = 0x00FF00;
  for (const double radius : {500.0, 1e5, 1e7}) {
    SCOPED_TRACE(radius);
    d.canvas.Cls();
    d.canvas.Circle(60 - radius, 40, radius);  // its right edge runs down the middle
    EXPECT_EQ(d.At(30, 40), qRgb(0, 255, 0));
    EXPECT_LT(qRed(d.At(60, 40)), 60);
    EXPECT_EQ(d.At(90, 40), white);
  }
  d.canvas.Cls();
  d.canvas.Circle(-1e6, -1e6, 1e5);
  EXPECT_EQ(d.Marked(), 0);
  d.canvas.Circle(60, 40, 1e6);
  EXPECT_EQ(d.At(0, 0), qRgb(0, 255, 0));
  EXPECT_EQ(d.At(119, 79), qRgb(0, 255, 0));
}

TEST(QtCanvas, SavesWhatIsOnShow) {
  Drawing d;
  d.canvas.Line(0, 40, 120, 40);
  d.canvas.SauveBmp(d.folder / "out.bmp");
  const QImage saved(QString::fromStdString(d.folder / "out.bmp"), "BMP");
  ASSERT_EQ(saved.size(), QSize(width, height));
  EXPECT_EQ(saved.pixel(60, 40), black);
  EXPECT_EQ(saved.pixel(60, 20), white);
  EXPECT_THROW(d.canvas.SauveBmp(d.folder / "no/such/folder/out.bmp"), TalpenaError);
}

}  // namespace
}  // namespace talpena

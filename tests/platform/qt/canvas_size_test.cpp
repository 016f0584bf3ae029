// A canvas whose picture is shown at another size than its own, and circles of several looks.
#include <gtest/gtest.h>

#include <QImage>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fakes/temp_folder.h"
#include "platform/qt/qt_canvas.h"

namespace talpena {
namespace {

constexpr QRgb pale = 0xFFDEEAF1, cream = 0xFFF9F6EC;

/// A bitmap with a colour table, 120 by 80 pixels, its left half pale.
struct Indexed {
  Indexed() {
    QImage picture(120, 80, QImage::Format_Indexed8);
    picture.setColorTable({pale, cream});
    picture.fill(0);
    for (int y = 0; y < 80; ++y) {
      for (int x = 60; x < 120; ++x) picture.setPixel(x, y, 1);
    }
    EXPECT_TRUE(picture.save(QString::fromStdString(path), "BMP"));
    canvas.ChargeImage(path);
    canvas.ChangeEchelle({0, 80, 120, -80});
  }
  test::TempFolder folder;
  std::string path = folder / "map.bmp";
  QtCanvas canvas;
};

TEST(CanvasSize, TheScaleGoesOnSpanningThePicture) {
  Indexed d;
  d.canvas.ChangeTaille({300, 200});
  EXPECT_EQ(d.canvas.TailleImage(), QSize(300, 200));
  EXPECT_EQ(d.canvas.TailleFichier(), QSize(120, 80));
  EXPECT_EQ(d.canvas.Surface().size(), QSize(300, 200));
  EXPECT_EQ(d.canvas.Echelle().width, 120);
  EXPECT_EQ(d.canvas.EnUnites({150, 50}), QPointF(60, 60));
  d.canvas.PSet(60, 60);
  EXPECT_EQ(d.canvas.Surface().pixel(150, 50), 0xFF000000U);
}

TEST(CanvasSize, AnEmptySizeIsThatOfTheFileAgain) {
  Indexed d;
  d.canvas.ChangeTaille({60, 40});
  d.canvas.ChangeTaille({});
  EXPECT_EQ(d.canvas.TailleImage(), QSize(120, 80));
}

TEST(CanvasSize, ColoursOfATableStayPlainWhenScaled) {
  Indexed d;
  for (const QSize size : {QSize(300, 200), QSize(90, 60)}) {
    d.canvas.ChangeTaille(size);
    const QImage& surface = d.canvas.Surface();
    for (int x = 2; x < size.width() - 2; ++x) {
      if (std::abs(x - size.width() / 2) < 4) continue;
      EXPECT_EQ(surface.pixel(x, size.height() / 3), x < size.width() / 2 ? pale : cream) << x;
    }
  }
}

// More looks than a canvas remembers.
TEST(CanvasSize, AlternatingCirclesKeepTheirColours) {
  Indexed d;
  const QRgb colours[] = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF123456, 0xFF654321, 0xFFABCDEF};
  d.canvas.Attributs.fillStyle = FillStyle::Solid;
  for (int turn = 0; turn < 3; ++turn) {
    int x = 10;
    for (const QRgb colour : colours) {
      d.canvas.Attributs.FillColor =
          static_cast<std::uint32_t>(qBlue(colour) << 16 | qGreen(colour) << 8 | qRed(colour));
      d.canvas.Circle(x, 40, 5);
      EXPECT_EQ(d.canvas.Surface().pixel(x, 40), colour);
      x += 18;
    }
  }
}

}  // namespace
}  // namespace talpena

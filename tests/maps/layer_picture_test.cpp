// Line layers and symbols as pixels of a picture.
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <fstream>

#include "maps/layer_bytes.h"
#include "maps/map_files.h"
#include "maps/map_world.h"
#include "maps/redraw.h"
#include "platform/os/file_system.h"
#include "platform/qt/qt_canvas.h"

namespace talpena {
namespace {

using test::EnTeteTlp;
using test::PointTlp;
using test::TeteTlp;

constexpr QRgb white = 0xFFFFFFFF, black = 0xFF000000, blue = 0xFF0000FF, cyan = 0xFF00FFFF;

/// A plate carree from 0 to 20 east and 0 to 10 north on a white picture, 20 pixels for a degree.
struct PictureWorld : test::MapWorld {
  explicit PictureWorld(double ratio = 1) : image(ratio) {
    QImage picture(400, 200, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.save(QString::fromStdString(folder / "Plain.png"));
    std::ofstream(folder / "plain.dsw")
        << "t\r\nplain.ps\r\nPLAIN.PNG\r\n5\r\n0,\"\",10,0,20,0,0,0,0,0,0,0,0,0,0,0\r\n";
    state.Silence = true;
    InitFacteurs(carte);
    EXPECT_TRUE(ChargeCarte(context, folder / "plain.dsw"));
  }
  /// A level line along a parallel, from 5 to 15 east, or a ring around (5, 10).
  static std::string Ligne(char kind, char style, float latitude) {
    return TeteTlp({.kind = kind,
                    .style = style,
                    .count = 4,
                    .north = 9,
                    .south = 1,
                    .east = 15,
                    .west = 5}) +
           PointTlp(-1, latitude, 4) + PointTlp(0, latitude, 5) + PointTlp(0, latitude, 15) +
           PointTlp(-1, latitude, 5);
  }
  void Couche(const std::string& records) {
    std::ofstream(folder / "a.tlp", std::ios::binary) << EnTeteTlp() << records;
    options.Raz();
    options.Add(folder / "A.TLP");
  }
  void Trace() {
    ScreenSink ecran(context);
    AfficheTLP(context, ecran, options.Couche(1));
  }
  QRgb At(double latitude, double longitude) {
    const double ratio = image.Rapport();
    return image.Surface().pixel(static_cast<int>(longitude * 20 * ratio),
                                 static_cast<int>((10 - latitude) * 20 * ratio));
  }

  test::TempFolder folder;
  std::unique_ptr<FileSystem> disk = CreeSystemeDeFichiers();
  Platform machine{*engine, *disk, settings, dialogues, clock, environment, sound};
  QtCanvas image;
  MapContext context{carte, options, image, fenetre, state, machine, vue};
};

TEST(LayerPicture, KindsHaveTheirColours) {
  PictureWorld w;
  w.Couche(PictureWorld::Ligne('R', '1', 2) + PictureWorld::Ligne('L', '2', 4) +
           PictureWorld::Ligne('C', '1', 6) + PictureWorld::Ligne('?', '1', 8));
  RedrawMap(w.context);
  for (const double longitude : {5.0, 7.5, 10.0, 15.0}) {
    EXPECT_EQ(w.At(2, longitude), blue);
    EXPECT_EQ(w.At(4, longitude), cyan);
    EXPECT_EQ(w.At(6, longitude), black);
    EXPECT_EQ(w.At(8, longitude), black);
    EXPECT_EQ(w.At(3, longitude), white);
  }
}

TEST(LayerPicture, StylesAboveTwoAreDashed) {
  PictureWorld w;
  w.Couche(PictureWorld::Ligne('R', '2', 2) + PictureWorld::Ligne('R', '3', 4));
  RedrawMap(w.context);
  int solid = 0, dashed = 0;
  for (int pixel = 100; pixel <= 300; ++pixel) {
    solid += w.At(2, pixel / 20.0) == blue;
    dashed += w.At(4, pixel / 20.0) == blue;
  }
  EXPECT_EQ(solid, 201);
  EXPECT_GT(dashed, 100);
  EXPECT_LT(dashed, 150);
}

TEST(LayerPicture, AClosedStrokeHasTheFillOfTheCanvas) {
  PictureWorld w;
  w.Couche(TeteTlp({.count = 7, .north = 9, .south = 1, .east = 15, .west = 5}) +
           PointTlp(-1, 2, 5) + PointTlp(0, 2, 5) + PointTlp(0, 8, 5) + PointTlp(0, 8, 15) +
           PointTlp(0, 2, 15) + PointTlp(0, 2, 5) + PointTlp(-1, 2, 5));
  w.Trace();
  EXPECT_EQ(w.At(5, 10), white);
  EXPECT_EQ(w.At(5, 5), black);
  w.image.Attributs.fillStyle = FillStyle::Solid;
  w.image.Attributs.FillColor = 0x00FF00;
  w.Trace();
  EXPECT_EQ(w.At(5, 10), 0xFF00FF00);
}

TEST(LayerPicture, SymbolsLieOnTheirPlacesOverTheLines) {
  for (const double ratio : {1.0, 2.0}) {
    PictureWorld w(ratio);
    w.Couche(PictureWorld::Ligne('R', '1', 4));
    w.options.SymbolColor = 0x0000FF;
    w.Remplit({{4, 10}, {8, 6}});
    RedrawMap(w.context);
    EXPECT_EQ(w.At(4, 10), 0xFFFF0000);
    EXPECT_EQ(w.At(8, 6), 0xFFFF0000);
    EXPECT_EQ(w.At(4, 8), blue);
    EXPECT_EQ(w.At(8, 10), white);
    const QImage first = w.image.Surface().copy();
    RedrawMap(w.context);
    EXPECT_EQ(w.image.Surface(), first);
  }
}

}  // namespace
}  // namespace talpena

// The raster map window over a real table, with pictures of its own on disk.
#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <memory>
#include <string>

#include "maps/windows/map.h"
#include "maps/windows/map_view.h"
#include "platform/os/file_system.h"
#include "store/coords_world.h"

namespace talpena::test {

struct RasterMachine : CoordsWorld {
  RasterMachine() {
    state.AppDir = folder.path().string();
    Montre({{"WGS84", "", "50", "5"}, {"WGS84", "", "45", "-5"}});
    for (const RasterRow& row : CartesRaster()) {
      QImage picture(400, 300, QImage::Format_RGB32);
      picture.fill(Qt::white);
      EXPECT_TRUE(picture.save(QString::fromStdString(folder / std::string(row.file)), "BMP"));
    }
  }
  ~RasterMachine() { form.reset(); }
  RasterMachine(const RasterMachine&) = delete;
  RasterMachine& operator=(const RasterMachine&) = delete;

  void Charge(CarteRaster which) {
    choisie = which;
    form = std::make_unique<Map>(CommandContext{state, reel, vue, vue, vue}, carte);
    form->Charge(which);
  }
  Map& Ouvre(CarteRaster which) {
    Charge(which);
    form->show();
    form->activateWindow();
    Traite();
    return *form;
  }
  /// What an event sets off is done in steps, each posted by the one before.
  static void Traite() {
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
  }

  template <typename Control>
  Control* Controle(const char* name) const {
    auto* control = form->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  MapView* Vue() const { return Controle<MapView>("Picture1"); }
  std::string Texte(const char* label) const {
    return Controle<QLabel>(label)->text().toStdString();
  }

  /// The pixel of the picture at a place.
  QPoint Pixel(PointDegres place) const {
    const UserScale scale = EchelleRaster(carte, LigneRaster(choisie));
    const PointKm point = ProjetteRaster(carte, place);
    const QSize size = Vue()->TailleImage();
    return QPoint(qRound((point.X - scale.left) / scale.width * size.width()),
                  qRound((point.Y - scale.top) / scale.height * size.height()));
  }
  QPoint Point(PointDegres place) const { return Vue()->DansLaVue(Pixel(place)).toPoint(); }
  void Survole(PointDegres place) const {
    QTest::mouseMove(Vue(), Point(place) + QPoint(1, 1));  // none is told that it did not move
    QTest::mouseMove(Vue(), Point(place));
    Traite();
  }
  void Clique(Qt::MouseButton button, PointDegres place) const {
    QTest::mouseClick(Vue(), button, {}, Point(place));
    Traite();
  }
  /// What the picture shows at a place.
  QRgb Couleur(PointDegres place) const {
    const QImage shown = Vue()->grab().toImage();  // which may have moved the picture
    return shown.pixel(Point(place)) | 0xFF000000U;
  }

  TempFolder folder;
  std::unique_ptr<FileSystem> disk = CreeSystemeDeFichiers();
  Platform reel{*engine, *disk, settings, dialogues, clock, environment, sound};
  RasterMap carte;
  CarteRaster choisie = CarteRaster::Europe;
  std::unique_ptr<Map> form;
};

}  // namespace talpena::test

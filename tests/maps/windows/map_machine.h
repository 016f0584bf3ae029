// The map window over a real table, with a map of its own on disk.
#pragma once
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <memory>
#include <string>
#include <vector>

#include "maps/windows/frm_carte.h"
#include "maps/windows/map_view.h"
#include "platform/os/file_system.h"
#include "store/coords_world.h"

namespace talpena::test {

constexpr QRgb sea = 0xFFDCE9F2, land = 0xFFF2EFE4;

/// A picture, land in its right half.
inline void EcritImage(const std::string& path, QSize size) {
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(sea);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = size.width() / 2; x < size.width(); ++x) picture.setPixel(x, y, land);
  }
  ASSERT_TRUE(picture.save(QString::fromStdString(path)));
}

struct MapMachine : CoordsWorld {
  MapMachine() {
    state.AppDir = folder.path().string();
    Montre({{"WGS84", "", "50", "5"}, {"WGS84", "", "45", "-5"}});
    state.document.OublieModifications();
  }
  ~MapMachine() { form.reset(); }
  MapMachine(const MapMachine&) = delete;
  MapMachine& operator=(const MapMachine&) = delete;

  /// Plate carree from 10 W to 20 E and from 40 to 60 N: a tenth of a degree for each pixel when
  /// the picture has 300 by 200.
  std::string Carte(QSize size = {300, 200}, const std::string& name = "europe.dsw") const {
    EcritImage(folder / "europe.png", size);
    EcritFichier(folder / name,
                 "Europe\r\neurope.ps\r\neurope.png\r\n5\r\n"
                 "0 \"Plate carree\" 60 40 20 -10 0 0 0 5 0 0 0 0 0 0\r\n");
    return folder / name;
  }
  /// A plan in the units of its picture, which is not georeferenced.
  std::string Plan() const {
    EcritImage(folder / "plan.png", {300, 200});
    EcritFichier(folder / "plan.dsw", "Plan\r\nplan.ps\r\nplan.png\r\n0\r\n0 300 200 0\r\n");
    return folder / "plan.dsw";
  }

  void Charge(const std::string& path) {
    settings.values["TALPENA/CARTO/LASTMAP"] = path;
    form = std::make_unique<frmCarte>(CommandContext{state, reel, vue, vue, vue});
    form->Charge();
  }
  frmCarte& Ouvre(const std::string& path) {
    Charge(path);
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
  MapView* Vue() const { return Controle<MapView>("picCarte"); }
  QAction* Entree(const char* name) const { return Controle<QAction>(name); }
  QScrollBar* Barre(const char* name) const { return Controle<QScrollBar>(name); }
  std::string Panneau(int panel) const {
    const std::string name = "StatusBar1_Panel_" + std::to_string(panel);
    return Controle<QLabel>(name.c_str())->text().toStdString();
  }
  std::string Titre() const { return form->windowTitle().toStdString(); }

  /// A pixel of the picture as a point of the widget.
  QPoint Point(int x, int y) const { return Vue()->DansLaVue(QPointF(x, y)).toPoint(); }
  void Survole(int x, int y) const {
    QTest::mouseMove(Vue(), Point(x, y) + QPoint(1, 1));  // none is told that it did not move
    QTest::mouseMove(Vue(), Point(x, y));
    Traite();
  }
  void Clique(Qt::MouseButton button, int x, int y) const {
    QTest::mouseClick(Vue(), button, {}, Point(x, y));
    Traite();
  }
  void Touche(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::keyClick(Vue(), key, modifiers);
    Traite();
  }

  TempFolder folder;
  std::unique_ptr<FileSystem> disk = CreeSystemeDeFichiers();
  Platform reel{*engine, *disk, settings, dialogues, clock, environment, sound};
  std::unique_ptr<frmCarte> form;
};

}  // namespace talpena::test

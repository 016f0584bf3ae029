// What the tests of the windows of the waypoint import look at.
#pragma once
#include <gtest/gtest.h>

#include <QDialog>
#include <QTest>
#include <memory>
#include <stdexcept>
#include <string>

#include "coords/test_catalogue.h"
#include "store/world.h"

namespace talpena::test {

/// A program with the shipped datums and no rows yet, and a window in it.
class GarminWindow : public testing::Test, protected World {
 protected:
  GarminWindow() {
    state.Langue = 1000;
    state.Catalogue = CatalogueDesSources();
    Entete(state.document)->DatumFichier = ChercheDatum(state.Catalogue, "EUR-M");
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
  }

  /// A text of MapSource with three waypoints and a track in it.
  static std::string Texte(const std::string& grid = "Lat/Lon hddd.ddddd\xB0",
                           const std::string& datum = "WGS 84") {
    return "Grid\t" + grid + "\r\nDatum\t" + datum +
           "\r\n\r\n"
           "Header\tName\tDescription\tType\tPosition\tAltitude\tSeen\t\r\n\r\n"
           "Waypoint\tTHREE\tthird\tUser\tN50.3 E4.3\t\t\t\r\n"
           "Waypoint\tONE\tfirst\tUser\tN50.1 E4.1\t123 M\tx17-APR-02\t\r\n"
           "Waypoint\tTWO\tsecond\tUser\tN50.2 W4.2\t7 m\t18-APR-02\t\r\n"
           "Track\tACTIVE LOG\t\r\n";
  }

  template <typename Widget>
  Widget& Enfant(const char* name) const {
    auto* widget = fenetre->findChild<Widget*>(QLatin1String(name));
    if (widget == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *widget;
  }
  void Montre() const {
    fenetre->show();
    fenetre->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(fenetre.get()));
  }

  std::unique_ptr<QDialog> fenetre;
};

}  // namespace talpena::test

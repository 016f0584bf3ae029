// The map view from the main window, on the grid's own rows.
#include <gtest/gtest.h>

#include <QImage>
#include <QToolButton>

#include "fakes/dialog_driver.h"
#include "form1_machine.h"
#include "maps/windows/frm_carte.h"
#include "maps/windows/map_view.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

using test::DialogDriver;

/// A file of three rows is open, and there is a map of 300 by 200 pixels, 30 by 20 degrees.
struct MapForm : test::Form1Machine {
  MapForm() {
    QImage picture(300, 200, QImage::Format_RGB32);
    picture.fill(Qt::white);
    EXPECT_TRUE(picture.save(QString::fromStdString(folder / "m.png")));
    test::EcritFichier(map,
                       "M\r\nm.ps\r\nm.png\r\n5\r\n0 \"\" 60 40 20 -10 0 0 0 5 0 0 0 0 0 0\r\n");
    settings.values["TALPENA/CARTO/LASTMAP"] = map;
    EXPECT_TRUE(form->Charge(Fichier(Lignes(3))));
    state.document.OublieModifications();
  }
  /// Opens the view, hands it over, and closes it.
  template <typename Body>
  void DansLaCarte(Body body) const {
    const DialogDriver driver(
        "frmCarte",
        [&](QDialog& dialog) {
          body(dynamic_cast<frmCarte&>(dialog), *dialog.findChild<MapView*>());
          dialog.reject();
        },
        DialogDriver::Quand::Libre);
    Controle<QToolButton>("cmdMap")->click();
  }
  int Rangees() const { return Controle<TDBGrid>("TDBGrid1")->model()->rowCount(); }

  std::string map = folder / "m.dsw";
};

TEST(Form1Map, NeedsAFile) {
  test::Form1Machine m;
  m.form->Charge({});
  EXPECT_FALSE(m.Controle<QToolButton>("cmdMap")->isEnabled());
  EXPECT_FALSE(m.Entree("MnuVisAutre")->isEnabled());
  MapForm open;
  EXPECT_TRUE(open.Controle<QToolButton>("cmdMap")->isEnabled());
  EXPECT_TRUE(open.Entree("MnuVisAutre")->isEnabled());
}

TEST(Form1Map, OpensByItsButtonAndItsKey) {
  MapForm m;
  bool seen = false;
  m.DansLaCarte([&](frmCarte& view, MapView& picture) {
    seen = view.isVisible() && picture.TailleImage() == QSize(300, 200);
  });
  EXPECT_TRUE(seen);
  const DialogDriver driver(
      "frmCarte", [](QDialog& dialog) { dialog.reject(); }, DialogDriver::Quand::Libre);
  m.form->activateWindow();
  QTest::qWait(20);
  QTest::keyClick(m.Controle<TDBGrid>("TDBGrid1"), Qt::Key_M, Qt::ControlModifier);
}

TEST(Form1Map, AClickAddsARowToTheGridAndChoosesIt) {
  MapForm m;
  m.DansLaCarte([&](frmCarte&, MapView& picture) {
    QTest::mouseClick(&picture, Qt::LeftButton, {}, picture.DansLaVue({100, 50}).toPoint());
    EXPECT_EQ(m.Rangees(), 4);
    EXPECT_EQ(m.form->LignesSelectionnees().size(), 1U);
  });
  EXPECT_EQ(m.Rangees(), 4);
  auto* grid = m.Controle<TDBGrid>("TDBGrid1");
  EXPECT_EQ(grid->model()->index(3, 1).data(Qt::EditRole).toString(), QLatin1String("55"));
  EXPECT_TRUE(m.state.document.FichierModifie());
}

TEST(Form1Map, ARightClickTakesBackTheRowChosenLast) {
  MapForm m;
  auto* grid = m.Controle<TDBGrid>("TDBGrid1");
  grid->ChoisitLigne(0, {});
  m.DansLaCarte([&](frmCarte&, MapView& picture) {
    const QPoint at = picture.DansLaVue({100, 50}).toPoint();
    QTest::mouseClick(&picture, Qt::LeftButton, {}, at);
    EXPECT_EQ(m.form->LignesSelectionnees().size(), 2U);
    QTest::mouseClick(&picture, Qt::RightButton, {}, at);
    EXPECT_EQ(m.Rangees(), 3);
    QTest::mouseClick(&picture, Qt::RightButton, {}, at);
    EXPECT_EQ(m.Rangees(), 2);
  });
  EXPECT_EQ(grid->model()->index(0, 3).data(Qt::EditRole).toString(), QLatin1String("2"));
}

TEST(Form1Map, TheEntryOtherAsksForAMapAtOnce) {
  MapForm m;
  QImage picture(120, 90, QImage::Format_RGB32);
  picture.fill(Qt::yellow);
  ASSERT_TRUE(picture.save(QString::fromStdString(m.folder / "o.png")));
  const std::string other = m.folder / "o.dsw";
  test::EcritFichier(other,
                     "O\r\no.ps\r\no.png\r\n5\r\n0 \"\" 60 40 20 -10 0 0 0 5 0 0 0 0 0 0\r\n");
  m.dialogues.paths = {other};
  const DialogDriver driver("frmCarte", [&](QDialog& dialog) {
    QTest::qWait(20);
    EXPECT_EQ(dialog.findChild<MapView*>()->TailleImage(), QSize(120, 90));
    dialog.reject();
  });
  m.Entree("MnuVisAutre")->trigger();
  EXPECT_EQ(m.dialogues.fileDialogs.size(), 1U);
}

TEST(Form1Map, TheCloseBoxOfTheMainWindowClosesTheMapFirst) {
  MapForm m;
  const DialogDriver driver("frmCarte", [&](QDialog& dialog) {
    m.form->close();
    EXPECT_FALSE(dialog.isVisible());
  });
  m.Controle<QToolButton>("cmdMap")->click();
  QTest::qWait(20);
  EXPECT_FALSE(m.form->isVisible());
}

}  // namespace
}  // namespace talpena

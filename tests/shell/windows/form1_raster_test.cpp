// The raster maps from the main window, on the grid's own rows.
#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "fakes/dialog_driver.h"
#include "form1_machine.h"
#include "maps/raster/raster_map.h"
#include "maps/windows/map.h"
#include "maps/windows/map_view.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

using test::DialogDriver;

/// A file of three rows is open, and the pictures lie in a folder of the test's own.
struct RasterForm : test::Form1Machine {
  RasterForm() {
    EXPECT_TRUE(form->Charge(Fichier(Lignes(3))));
    state.document.OublieModifications();
    state.AppDir = folder.path().string();
    QImage picture(320, 240, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (const RasterRow& row : CartesRaster()) {
      EXPECT_TRUE(picture.save(QString::fromStdString(folder / std::string(row.file)), "BMP"));
    }
  }
  /// Chooses an entry, hands the window over, and closes it; false when none came.
  template <typename Body>
  bool Ouvre(const char* entry, Body body) const {
    bool seen = false;
    {
      const DialogDriver driver(
          "Map",
          [&](QDialog& dialog) {
            seen = true;
            body(dialog);
            dialog.reject();
          },
          DialogDriver::Quand::Libre);
      Entree(entry)->trigger();
    }
    return seen;
  }
  int Rangees() const { return Controle<TDBGrid>("TDBGrid1")->model()->rowCount(); }
};

TEST(Form1Raster, EveryEntryOpensItsMap) {
  const std::vector<std::pair<const char*, const char*>> entries = {
      {"mnuEurope_0", "europe.bmp"},    {"mnuEurope_1", "centeuro.bmp"},
      {"mnuEurope_2", "gaule.bmp"},     {"mnuEurope_3", "belgium.bmp"},
      {"mnuEurope_4", "nederla.bmp"},   {"mnuEurope_5", "britisle.bmp"},
      {"mnuEurope_6", "spain.bmp"},     {"mnuEurope_7", "turkey.bmp"},
      {"MnuVisAfrica", "africa.bmp"},   {"MnuVisAsiEur", "asieur.bmp"},
      {"MnuVisAsiocea", "asiocea.bmp"}, {"MnuVisMonde", "world.bmp"},
      {"MnuVisNamer", "namer.bmp"},     {"MnuVisSamer", "samer.bmp"}};
  RasterForm m;
  for (const auto& [entry, file] : entries) {
    EXPECT_TRUE(m.Ouvre(entry, [](QDialog& dialog) { EXPECT_TRUE(dialog.isVisible()); })) << entry;
    EXPECT_EQ(m.state.raster.FichierCarte, m.folder / file);
  }
}

TEST(Form1Raster, AMissingPictureIsToldAndNoWindowComes) {
  RasterForm m;
  EXPECT_TRUE(m.Ouvre("MnuVisMonde", [](QDialog&) {}));
  std::filesystem::remove(m.folder / "africa.bmp");
  m.Entree("MnuVisAfrica")->trigger();
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_NE(m.dialogues.boxes[0].text.find("53"), std::string::npos);
  EXPECT_NE((m.dialogues.boxes[0].text + m.dialogues.boxes[0].detail).find("africa.bmp"),
            std::string::npos);
  EXPECT_EQ(m.state.raster.FichierCarte, m.folder / "world.bmp");
}

TEST(Form1Raster, AClickAddsARowToTheGrid) {
  RasterForm m;
  m.dialogues.answers = {Answer::Yes};
  m.Ouvre("mnuEurope_0", [](QDialog& dialog) {
    auto* picture = dialog.findChild<MapView*>();
    QTest::mouseClick(picture, Qt::LeftButton, {}, picture->rect().center());
  });
  EXPECT_EQ(m.Rangees(), 4);
  EXPECT_EQ(m.dialogues.boxes[0].text, "Save new points?");
  EXPECT_TRUE(m.state.document.FichierModifie());
}

TEST(Form1Raster, TheOptionsOpenFromTheMenuToo) {
  RasterForm m;
  bool seen = false;
  const DialogDriver driver("OptionsMap", [&](QDialog& dialog) {
    seen = true;
    dialog.reject();
  });
  m.Entree("MnuOptionsCartes")->trigger();
  EXPECT_TRUE(seen);
}

}  // namespace
}  // namespace talpena

// The raster map window and its options: the wiring of their controls.
#include "maps/windows/map.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <filesystem>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "fakes/dialog_driver.h"
#include "maps/windows/options_map.h"
#include "raster_machine.h"

namespace talpena {
namespace {

using test::RasterMachine;

constexpr QRgb red = 0xFFFF0000, white = 0xFFFFFFFF;

TEST(Map, ShowsThePictureAndTheRows) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  EXPECT_EQ(m.form->windowTitle(), "Europe");
  const QSize shown = m.Vue()->TailleImage(), room = m.Vue()->size();
  EXPECT_TRUE(shown.width() == room.width() || shown.height() == room.height());
  EXPECT_EQ(m.Couleur({50, 5}), red);
  EXPECT_EQ(m.Couleur({60, 20}), white);
}

TEST(Map, IsOnTheScreenWithItsPictureBeforeTheRows) {
  RasterMachine m;
  m.Charge(CarteRaster::Europe);
  m.form->show();
  EXPECT_EQ(m.Couleur({50, 5}), white);
  RasterMachine::Traite();
  EXPECT_EQ(m.Couleur({50, 5}), red);
}

TEST(Map, AMissingPictureIsThrown) {
  RasterMachine m;
  std::filesystem::remove(m.folder / "europe.bmp");
  EXPECT_THROW(m.Ouvre(CarteRaster::Europe), TalpenaError);
}

TEST(Map, ThePictureKeepsItsProportionsInAWindowOfAnySize) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  for (const QSize size : {QSize(900, 500), QSize(520, 700)}) {
    m.form->resize(size);
    QTest::qWait(150);
    const QSize shown = m.Vue()->TailleImage();
    EXPECT_NEAR(shown.width() * 3.0, shown.height() * 4.0, 4);
    EXPECT_TRUE(shown.width() == m.Vue()->width() || shown.height() == m.Vue()->height());
    EXPECT_EQ(m.Couleur({50, 5}), red) << "the rows are drawn anew at their places";
  }
}

TEST(Map, TheReadOutFollowsTheMouseAndEndsWithThePicture) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  m.Survole({52.5, 10});
  EXPECT_EQ(m.Texte("LblPosition").substr(0, 6), "Lat=+5");
  EXPECT_EQ(m.Texte("LblUTM").substr(0, 2), "E=");
  EXPECT_EQ(m.Texte("LblMGRS").substr(0, 3), "32U");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(m.Vue(), &leave);
  EXPECT_EQ(m.Texte("LblPosition") + m.Texte("LblUTM") + m.Texte("LblMGRS"), "");
}

struct GridCase {
  CarteRaster map;
  const char* caption;
  bool prn;
};

TEST(Map, OnThreeMapsALabelNamesTheirGrid) {
  for (const GridCase& c : {GridCase{CarteRaster::IlesBritanniques, "British National Grid", true},
                            GridCase{CarteRaster::Belgique, "Lambert belge", false},
                            GridCase{CarteRaster::Gaule, "Grades Paris", false},
                            GridCase{CarteRaster::Monde, "", false}}) {
    SCOPED_TRACE(c.caption);
    RasterMachine m;
    m.Ouvre(c.map);
    EXPECT_EQ(m.Texte("LblGrille"), c.caption);
    const bool shown = c.caption[0] != '\0';
    EXPECT_EQ(m.Controle<QLabel>("LblGrille")->isVisible(), shown);
    EXPECT_EQ(m.Controle<QLabel>("LblBNG")->isVisible(), shown);
    EXPECT_EQ(m.Controle<QToolButton>("Command1")->isVisible(), c.prn);
  }
}

TEST(Map, ClicksAddAndTakeBackRows) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  m.Clique(Qt::LeftButton, {60, 20});
  ASSERT_EQ(m.Lignes().size(), 3U);
  EXPECT_EQ(m.Lignes()[2].substr(0, 2), "1|");
  EXPECT_EQ(m.Couleur({60, 20}), red);
  m.Clique(Qt::RightButton, {40, 30});
  EXPECT_EQ(m.Lignes().size(), 2U);
  EXPECT_EQ(m.Couleur({60, 20}), white) << "the spot";
}

TEST(Map, ADoubleClickAddsOneRow) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  m.Clique(Qt::LeftButton, {60, 20});
  QTest::mouseDClick(m.Vue(), Qt::LeftButton, {}, m.Point({60, 20}));  // the second press alone
  RasterMachine::Traite();
  EXPECT_EQ(m.Lignes().size(), 3U);
}

TEST(Map, ASecondRightPressTakesAnotherRowBack) {
  RasterMachine m;
  m.vue.selection = {1, 2};
  m.Ouvre(CarteRaster::Europe);
  m.Clique(Qt::RightButton, {60, 20});
  QTest::mouseDClick(m.Vue(), Qt::RightButton, {}, m.Point({60, 20}));
  RasterMachine::Traite();
  EXPECT_TRUE(m.Lignes().empty());
}

TEST(Map, TheYearChoosesThePeriodAndGoesIntoTheDate) {
  RasterMachine m;
  auto entete = test::Entete(m.state.document);
  entete->NbPivots = 2;
  entete->Pivot1 = 1950;
  entete->Pivot2 = 1980;
  m.Ouvre(CarteRaster::Europe);
  auto* periods = m.Controle<QComboBox>("ChoixPeriode");
  EXPECT_EQ(periods->count(), 3);
  EXPECT_EQ(periods->currentText(), "1");
  QTest::keyClicks(m.Controle<QLineEdit>("txtAnnee"), "1985-07-01x");
  EXPECT_EQ(m.Controle<QLineEdit>("txtAnnee")->text(), "1985-07-01") << "ten characters at most";
  EXPECT_EQ(periods->currentText(), "3");
  m.Clique(Qt::LeftButton, {60, 20});
  EXPECT_EQ(m.Lignes()[2].substr(0, 2), "3|");
  EXPECT_NE(m.Lignes()[2].find("|1985-07-01|"), std::string::npos);
  m.Controle<QLineEdit>("txtAnnee")->clear();
  EXPECT_EQ(periods->currentText(), "1");
}

TEST(Map, EscapeOnThePictureClosesIt) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  QTest::keyClick(m.Vue(), Qt::Key_Escape);
  EXPECT_FALSE(m.form->isVisible());
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(Map, ClosingAsksForNewPointsAndKeepsItsPlace) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  m.Clique(Qt::LeftButton, {60, 20});
  m.form->move(30, 40);
  m.dialogues.answers = {Answer::No};
  m.form->reject();
  EXPECT_EQ(m.Boites(), (std::vector<std::string>{"Save new points?"}));
  EXPECT_EQ(m.Lignes().size(), 2U);
  EXPECT_EQ(m.settings.values["TLP/MAP/LEFT"], "450");
  EXPECT_EQ(m.settings.values["TLP/MAP/TOP"], "600");
}

TEST(Map, ByKeysACrossAddsAPoint) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  QTest::keyClick(m.Vue(), Qt::Key_Right);
  RasterMachine::Traite();
  EXPECT_NE(m.Texte("LblPosition"), "");
  QTest::keyClick(m.Vue(), Qt::Key_Return);
  EXPECT_EQ(m.Lignes().size(), 3U);
}

TEST(Map, ItsOptionsRedrawIt) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Europe);
  m.dialogues.colours = {0x00FF00};
  const test::DialogDriver driver("OptionsMap", [](QDialog& dialog) {
    QTest::keyClick(dialog.findChild<QWidget*>("LabelCoulFill_0"), Qt::Key_Space);
    dialog.findChild<QPushButton*>("cmdOk")->click();
  });
  m.Controle<QToolButton>("cmdOptions")->click();
  RasterMachine::Traite();
  EXPECT_EQ(m.Couleur({50, 5}), 0xFF00FF00U);
}

TEST(Map, CaptionsFollowTheLanguage) {
  RasterMachine m;
  m.Ouvre(CarteRaster::Belgique);
  m.state.Langue = 0;
  m.form->AppliqueLangue();
  EXPECT_EQ(m.form->windowTitle(), "Belgique");
}

struct OptionsMapMachine : test::World {
  OptionsMapMachine() { state.Silence = true; }
  OptionsMap dialog{state, io};
  template <typename Control>
  Control* Controle(const char* name) {
    return dialog.findChild<Control*>(QLatin1String(name));
  }
};

TEST(OptionsMap, AWrongDiameterLeavesItOpen) {
  OptionsMapMachine m;
  m.dialog.show();
  m.Controle<QComboBox>("Combo1")->setEditText("-3");
  m.Controle<QPushButton>("cmdOk")->click();
  EXPECT_TRUE(m.dialog.isVisible());
  EXPECT_EQ(m.Boites(), (std::vector<std::string>{"Invalid points diameter"}));
  m.Controle<QComboBox>("Combo1")->setEditText("7,5");
  m.Controle<QPushButton>("cmdOk")->click();
  EXPECT_FALSE(m.dialog.isVisible());
  EXPECT_EQ(m.state.DiamPoints, 7.5F);
}

TEST(OptionsMap, CancelChangesNothing) {
  OptionsMapMachine m;
  m.dialogues.colours = {0x00FF00};
  m.dialog.show();
  QTest::keyClick(m.Controle<QWidget>("LabelCoulFill_3"), Qt::Key_Space);
  m.Controle<QPushButton>("cmdAnnuler")->click();
  EXPECT_EQ(m.state.StrokeColor, 0U);
}

TEST(OptionsMap, ShowsAutoAndTheColours) {
  OptionsMapMachine m;
  EXPECT_EQ(m.Controle<QComboBox>("Combo1")->currentText(), "auto");
  EXPECT_EQ(m.Controle<QWidget>("LabelCoulFill_0")->accessibleDescription(), "#ff0000");
  EXPECT_EQ(m.Controle<QLabel>("lblDiametre")->text().remove('&'), "Points diametre (in km):");
}

}  // namespace
}  // namespace talpena

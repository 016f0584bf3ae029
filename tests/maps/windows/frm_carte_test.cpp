// frmCarte: its controls, what the mouse and the keys do on the map, and its place.
#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <algorithm>

#include "map_machine.h"

namespace talpena {
namespace {

using test::MapMachine;
using Lignes = std::vector<std::string>;

TEST(FrmCarte, HasEveryControlUnderItsName) {
  MapMachine m;
  m.Ouvre(m.Carte());
  for (const char* name : {"Toolbar1",
                           "open",
                           "save",
                           "properties",
                           "eps",
                           "print",
                           "distri",
                           "grid",
                           "stop",
                           "picCarte",
                           "HScroll1",
                           "VScroll1",
                           "PetitCarre",
                           "StatusBar1",
                           "StatusBar1_Panel_1",
                           "StatusBar1_Panel_2",
                           "StatusBar1_Panel_3",
                           "mnuFichier",
                           "mnuAffichage",
                           "mnuOptions",
                           "mnuEPS",
                           "mnuCache"}) {
    m.Controle<QWidget>(name);
  }
  for (const char* name : {"mnuFichier_0", "mnuFichier_1", "mnuFichier_3", "mnuFichier_4",
                           "mnuFichier_6", "mnuAffichage_0", "mnuAffichage_1", "mnuOptions_0",
                           "mnuOptions_1", "mnuEPS_0", "mnuEPS_1", "mnuCache_0", "mnuCache_1"}) {
    m.Controle<QAction>(name);
  }
}

TEST(FrmCarte, GivesNoKeyTwice) {
  MapMachine m;
  m.Ouvre(m.Carte());
  std::vector<QKeySequence> keys;
  for (const QAction* action : m.form->findChildren<QAction*>()) {
    if (!action->shortcut().isEmpty()) keys.push_back(action->shortcut());
  }
  EXPECT_GE(keys.size(), 11U);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    EXPECT_EQ(std::count(keys.begin(), keys.end(), keys[i]), 1) << keys[i].toString().toStdString();
  }
}

TEST(FrmCarte, KeepsTheFrenchOfTheEpsTypesInEveryLanguage) {
  MapMachine m;
  m.Ouvre(m.Carte());
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    m.state.Langue = static_cast<std::int16_t>(langue);
    m.form->AppliqueLangue();
    EXPECT_EQ(m.Entree("mnuEPS_0")->text().toStdString(), "&Couleur");
    EXPECT_EQ(m.Entree("mnuEPS_1")->text().toStdString(), "&Noir et blanc");
  }
}

TEST(FrmCarte, FollowsAChangeOfLanguage) {
  MapMachine m;
  m.Ouvre(m.Carte());
  EXPECT_EQ(m.Titre(), "Map - europe.dsw");
  m.state.Langue = 0;
  QEvent change(QEvent::LanguageChange);
  QCoreApplication::sendEvent(m.form.get(), &change);
  EXPECT_EQ(m.Entree("mnuAffichage_0")->text().toStdString(), "&Redessiner");
  EXPECT_EQ(m.Titre(), "Carte - europe.dsw");
}

TEST(FrmCarte, BeginsWithTheLastMap) {
  MapMachine m;
  m.Ouvre(m.Carte());
  EXPECT_EQ(m.Vue()->TailleImage(), QSize(300, 200));
  EXPECT_TRUE(m.Vue()->isVisible());
  EXPECT_TRUE(m.Controle<QToolButton>("eps")->isEnabled());
  EXPECT_TRUE(m.dialogues.fileDialogs.empty());
}

TEST(FrmCarte, DrawsTheDistributionOnIt) {
  MapMachine m;
  m.Ouvre(m.Carte());
  const QImage shown = m.Vue()->grab().toImage();
  const qreal ratio = shown.devicePixelRatio();
  // 50 N 5 E is pixel (150, 100); the symbols are red at first.
  EXPECT_EQ(shown.pixelColor((QPointF(m.Point(150, 100)) * ratio).toPoint()), QColor(255, 0, 0));
  EXPECT_EQ(shown.pixel((QPointF(m.Point(20, 20)) * ratio).toPoint()), test::sea);
}

TEST(FrmCarte, AsksForAMapWhenTheLastOneIsGone) {
  MapMachine m;
  m.dialogues.paths = {m.Carte()};
  m.Ouvre(m.folder / "gone.dsw");
  ASSERT_EQ(m.dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(m.dialogues.fileDialogs[0].filter,
            "Fichiers cartes (*.dsw)|*.dsw|Tous les fichiers (*.*)|*.*");
  EXPECT_EQ(m.Vue()->TailleImage(), QSize(300, 200));
}

TEST(FrmCarte, WithoutAMapOnlyOpeningAndLeavingCanBeChosen) {
  MapMachine m;
  m.dialogues.paths = {""};
  m.Ouvre(m.folder / "gone.dsw");
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "This map is not georeferenced.\rMapping aborted");
  EXPECT_TRUE(m.Controle<QLabel>("lblVide")->isVisible());
  for (const char* key : {"save", "eps", "print", "grid"}) {
    EXPECT_FALSE(m.Controle<QToolButton>(key)->isEnabled()) << key;
  }
  for (const char* key : {"open", "properties", "distri", "stop"}) {
    EXPECT_TRUE(m.Controle<QToolButton>(key)->isEnabled()) << key;
  }
  m.dialogues.paths = {m.Carte()};
  Q_EMIT m.Controle<QLabel>("lblVide")->linkActivated(QStringLiteral("open"));
  m.Traite();
  EXPECT_TRUE(m.Vue()->isVisible());
  EXPECT_TRUE(m.Controle<QToolButton>("save")->isEnabled());
}

TEST(FrmCarte, APlanShowsItsUnitsAndHasNoEps) {
  MapMachine m;
  m.Ouvre(m.Plan());
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "This map is not georeferenced.\rMapping aborted");
  EXPECT_FALSE(m.Controle<QToolButton>("eps")->isEnabled());
  EXPECT_FALSE(m.Entree("mnuEPS_0")->isEnabled());
  m.Survole(100, 50);
  EXPECT_EQ(m.Panneau(1), "X: 100");
  EXPECT_EQ(m.Panneau(2), "Y: 50");
  EXPECT_EQ(m.Panneau(3), "");
}

TEST(FrmCarte, TellsThePositionOfTheMouse) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.Survole(120, 50);
  EXPECT_EQ(m.Panneau(1), "lat=55.000");
  EXPECT_EQ(m.Panneau(2), "lon=02.000");
  EXPECT_EQ(m.Panneau(3).substr(0, 4), " 31U");
  m.Survole(0, 199);
  EXPECT_EQ(m.Panneau(1), "lat=40.100");
  EXPECT_EQ(m.Panneau(2), "lon=-10.000");
}

/// Counts what is painted.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return QObject::eventFilter(watched, event);
  }
};

TEST(FrmCarte, DrawsNothingAnewUnderAMovingMouse) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.Survole(10, 10);
  const PaintCount paints(*m.Vue());
  for (int x = 20; x < 280; x += 20) m.Survole(x, 100);
  EXPECT_EQ(paints.count, 0);
  EXPECT_EQ(m.Panneau(1), "lat=50.000");
}

TEST(FrmCarte, ALeftClickAddsARowAndARightClickTakesItBack) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.Clique(Qt::LeftButton, 100, 50);
  const Lignes rows = m.Lignes();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[2], "1|55|0|1|1|-|EUR-M|deg +55. +.|-|-");
  EXPECT_TRUE(m.state.document.FichierModifie());
  EXPECT_NE(m.Titre(), "Map - europe.dsw");
  EXPECT_NE(m.Titre().find("-556"), std::string::npos) << m.Titre();  // km west of 5 E
  ASSERT_EQ(m.vue.selection.size(), 1U);
  m.Clique(Qt::RightButton, 20, 20);
  EXPECT_EQ(m.Lignes().size(), 2U);
  EXPECT_TRUE(m.vue.selection.empty());
}

TEST(FrmCarte, ARightClickWithoutAChoiceBeeps) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.state.Silence = false;
  const int before = m.sound.bips;
  m.Clique(Qt::RightButton, 20, 20);
  EXPECT_EQ(m.sound.bips, before + 1);
  EXPECT_EQ(m.Lignes().size(), 2U);
}

TEST(FrmCarte, AClickBesideThePictureDoesNothing) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.form->resize(900, 700);
  m.Traite();
  QTest::mouseClick(m.Vue(), Qt::LeftButton, {}, QPoint(2, 2));
  EXPECT_EQ(m.Lignes().size(), 2U);
}

TEST(FrmCarte, TheKeysMoveACrossAndAddARowThere) {
  MapMachine m;
  m.Ouvre(m.Carte());
  ASSERT_FALSE(m.Vue()->Croix().has_value());
  m.Touche(Qt::Key_Right);
  ASSERT_TRUE(m.Vue()->Croix().has_value());
  const QPoint start = *m.Vue()->Croix();
  m.Touche(Qt::Key_Right);
  EXPECT_EQ(*m.Vue()->Croix(), start + QPoint(1, 0));
  m.Touche(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(*m.Vue()->Croix(), start + QPoint(1, -10));
  m.Touche(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(*m.Vue()->Croix(), start + QPoint(-49, -10));
  const QPoint at = *m.Vue()->Croix();
  EXPECT_EQ(m.Panneau(1), "lat=" + QString::number(60 - at.y() / 10.0, 'f', 3).toStdString());
  m.Touche(Qt::Key_Return);
  ASSERT_EQ(m.Lignes().size(), 3U);
  m.Touche(Qt::Key_Insert);
  EXPECT_EQ(m.Lignes().size(), 4U);
  m.Touche(Qt::Key_Delete);
  EXPECT_EQ(m.Lignes().size(), 3U);
}

TEST(FrmCarte, TheFirstEnterShowsTheCrossOnly) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.Touche(Qt::Key_Return);
  EXPECT_TRUE(m.Vue()->Croix().has_value());
  EXPECT_EQ(m.Lignes().size(), 2U);
}

TEST(FrmCarte, TheMouseTakesTheCrossAway) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.Touche(Qt::Key_Right);
  m.Survole(10, 10);
  EXPECT_FALSE(m.Vue()->Croix().has_value());
}

TEST(FrmCarte, TheCrossStaysOnThePicture) {
  MapMachine m;
  m.Ouvre(m.Carte());
  for (int i = 0; i < 10; ++i) m.Touche(Qt::Key_Left, Qt::ControlModifier);
  for (int i = 0; i < 10; ++i) m.Touche(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(*m.Vue()->Croix(), QPoint(0, 199));
}

TEST(FrmCarte, TheMenuKeyPopsUpItsMenuAndTheRightButtonDoesNot) {
  MapMachine m;
  m.Ouvre(m.Carte());
  auto* menu = m.Controle<QMenu>("mnuCache");
  QContextMenuEvent mouse(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
  QCoreApplication::sendEvent(m.Vue(), &mouse);
  EXPECT_FALSE(menu->isVisible());
  QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
  QCoreApplication::sendEvent(m.Vue(), &key);
  m.Traite();
  EXPECT_TRUE(menu->isVisible());
  EXPECT_EQ(menu->actions().size(), 2);
  menu->close();
  m.Touche(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

TEST(FrmCarte, TheGridAsksForItsStepAndStaysOnARedraw) {
  MapMachine m;
  m.Ouvre(m.Carte());
  const QImage bare = m.Vue()->grab().toImage();
  m.dialogues.inputs = {"5"};
  m.Controle<QToolButton>("grid")->click();
  ASSERT_EQ(m.dialogues.asked.size(), 1U);
  EXPECT_EQ(m.dialogues.asked[0].title, "Maille");
  EXPECT_EQ(m.dialogues.asked[0].text, "1");
  const QImage grid = m.Vue()->grab().toImage();
  EXPECT_NE(grid, bare);
  m.Entree("mnuAffichage_0")->trigger();
  EXPECT_NE(m.Vue()->grab().toImage(), bare);
  EXPECT_EQ(m.dialogues.asked.size(), 1U);
}

TEST(FrmCarte, AGridOfNoNumberIsOnShowAllTheSame) {
  MapMachine m;
  m.Ouvre(m.Carte());
  const QImage bare = m.Vue()->grab().toImage();
  m.dialogues.inputs = {"abc"};
  m.Entree("mnuAffichage_1")->trigger();
  EXPECT_EQ(m.Vue()->grab().toImage(), bare);
  // The EPS drawing of a map with the grid on show begins its section.
  test::EcritFichier(m.folder / "europe.ps", "% map\r\n");
  test::EcritFichier(m.folder / "proltlp.ps", "%!PS-Adobe-3.0 EPSF-3.0\r\n");
  m.dialogues.paths = {m.folder / "a.eps"};
  m.Entree("mnuEPS_0")->trigger();
  EXPECT_NE(test::LitFichier(m.folder / "a.eps").find("showpage"), std::string::npos);
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "Fichier " + (m.folder / "a.eps") + " créé avec succès.");
}

TEST(FrmCarte, SavesThePictureAsABitmap) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.dialogues.paths = {m.folder / "shown.bmp"};
  m.Controle<QToolButton>("save")->click();
  ASSERT_EQ(m.dialogues.fileDialogs.size(), 1U);
  EXPECT_EQ(m.dialogues.fileDialogs[0].filter,
            "Fichiers bitmap (*.bmp)|*.bmp|Tous les fichiers (*.*)|*.*");
  EXPECT_EQ(test::LitFichier(m.folder / "shown.bmp").substr(0, 2), "BM");
}

TEST(FrmCarte, OpensAnotherMapAndFitsItsPicture) {
  MapMachine m;
  m.Ouvre(m.Carte());
  const QSize small = m.Vue()->size();
  m.Clique(Qt::LeftButton, 10, 10);
  test::EcritImage(m.folder / "large.png", {560, 380});
  test::EcritFichier(m.folder / "large.dsw",
                     "Large\r\nlarge.ps\r\nlarge.png\r\n5\r\n"
                     "0 \"Plate carree\" 60 40 20 -10 0 0 0 5 0 0 0 0 0 0\r\n");
  m.dialogues.paths = {m.folder / "large.dsw"};
  m.Entree("mnuFichier_0")->trigger();
  m.Traite();
  EXPECT_EQ(m.Titre(), "Map - large.dsw");
  EXPECT_EQ(m.Vue()->TailleImage(), QSize(560, 380));
  EXPECT_GE(m.Vue()->width(), 560);
  EXPECT_GE(m.Vue()->height(), 380);
  EXPECT_GT(m.Vue()->width(), small.width());
  EXPECT_FALSE(m.Barre("HScroll1")->isVisible());
  EXPECT_FALSE(m.Barre("VScroll1")->isVisible());
}

TEST(FrmCarte, ALargePictureScrolls) {
  MapMachine m;
  m.Ouvre(m.Carte({3000, 2000}));
  QScrollBar &across = *m.Barre("HScroll1"), &down = *m.Barre("VScroll1");
  EXPECT_TRUE(across.isVisible() && down.isVisible());
  EXPECT_TRUE(m.Controle<QWidget>("PetitCarre")->isVisible());
  EXPECT_EQ(across.value(), 0);
  EXPECT_NEAR(across.maximum(), 3000 - m.Vue()->width(), 1);
  EXPECT_NEAR(down.maximum(), 2000 - m.Vue()->height(), 1);
  EXPECT_NEAR(across.singleStep(), across.maximum() / 25, 1);
  EXPECT_NEAR(across.pageStep(), across.maximum() / 10, 1);
  EXPECT_EQ(m.Vue()->DansLaVue({0, 0}), QPointF(0, 0));
  across.setValue(120);
  down.setValue(70);
  EXPECT_EQ(m.Vue()->DansLaVue({0, 0}), QPointF(-120, -70));
  m.Touche(Qt::Key_PageDown);
  EXPECT_EQ(down.value(), 70 + down.pageStep());
  m.Touche(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(across.value(), 120 + across.pageStep());
  across.setValue(across.maximum());
  down.setValue(down.maximum());
  m.Survole(2999, 1999);
  EXPECT_EQ(m.Panneau(2), "lon=19.990");
  m.form->resize(m.form->size() - QSize(50, 50));
  m.Traite();
  EXPECT_EQ(across.value(), 0) << "a window of another size begins at the left";
}

TEST(FrmCarte, ThePictureOfAWholeScreenLeavesTheStatusBarInView) {
  MapMachine m;
  m.Ouvre(m.Carte({3000, 2000}));
  const QSize room = m.form->screen()->availableGeometry().size();
  EXPECT_LT(m.form->height(), room.height()) << "the desktop has a title over it";
  EXPECT_LT(m.form->width(), room.width());
}

TEST(FrmCarte, TheCrossBringsItsPartOfThePictureIntoView) {
  MapMachine m;
  m.Ouvre(m.Carte({3000, 2000}));
  for (int i = 0; i < 60; ++i) m.Touche(Qt::Key_Right, Qt::ControlModifier);
  for (int i = 0; i < 40; ++i) m.Touche(Qt::Key_Down, Qt::ControlModifier);
  const QPointF at = m.Vue()->DansLaVue(*m.Vue()->Croix());
  EXPECT_TRUE(QRectF(m.Vue()->rect()).contains(at));
  EXPECT_EQ(*m.Vue()->Croix(), QPoint(2999, 1999));
}

TEST(FrmCarte, TheWheelScrolls) {
  MapMachine m;
  m.Ouvre(m.Carte({3000, 2000}));
  const auto roule = [&](QPoint angle, Qt::KeyboardModifiers modifiers) {
    const QPointF at(20, 20);
    QWheelEvent event(at, m.Vue()->mapToGlobal(at), {}, angle, {}, modifiers, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(m.Vue(), &event);
  };
  roule({0, -120}, {});
  EXPECT_GT(m.Barre("VScroll1")->value(), 0);
  EXPECT_EQ(m.Barre("HScroll1")->value(), 0);
  roule({0, -120}, Qt::ShiftModifier);
  EXPECT_GT(m.Barre("HScroll1")->value(), 0);
}

TEST(FrmCarte, StandsInTheMiddleOfALargerWindow) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.form->resize(700, 600);
  m.Traite();
  const QPointF topLeft = m.Vue()->DansLaVue({0, 0});
  EXPECT_NEAR(topLeft.x(), (m.Vue()->width() - 300) / 2.0, 1);
  EXPECT_NEAR(topLeft.y(), (m.Vue()->height() - 200) / 2.0, 1);
}

TEST(FrmCarte, KeepsItsPlaceAndTheLookOfTheSymbols) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.form->move(40, 30);
  m.Traite();
  m.form->reject();
  EXPECT_EQ(m.settings.values["TALPENA/CARTO/LEFT"], "600");
  EXPECT_EQ(m.settings.values["TALPENA/CARTO/TOP"], "450");
  EXPECT_EQ(m.settings.values["TALPENA/CARTO/SYMBOLCOLOR"], "255");
  EXPECT_EQ(m.settings.values["TALPENA/CARTO/SYMBOLDIAMETER"], "-1");
}

TEST(FrmCarte, OpensWhereItStoodAndNeverOffTheScreen) {
  MapMachine m;
  m.settings.values["TALPENA/CARTO/LEFT"] = "600";
  m.settings.values["TALPENA/CARTO/TOP"] = "450";
  m.Ouvre(m.Carte());
  EXPECT_EQ(m.form->pos(), QPoint(40, 30));
  m.settings.values["TALPENA/CARTO/LEFT"] = "999999";
  m.settings.values["TALPENA/CARTO/TOP"] = "-999999";
  m.Ouvre(m.Carte());
  EXPECT_TRUE(m.form->screen()->availableGeometry().contains(QRect(m.form->pos(), m.form->size())));
}

TEST(FrmCarte, AtFirstItStandsAt100Twips) {
  MapMachine m;
  m.Ouvre(m.Carte());
  EXPECT_EQ(m.form->pos(), QPoint(7, 7));
}

TEST(FrmCarte, EscapeStopAndBackCloseIt) {
  MapMachine m;
  m.Ouvre(m.Carte());
  QTest::keyClick(m.Vue(), Qt::Key_Escape);
  EXPECT_FALSE(m.form->isVisible());
  for (const char* key : {"stop", "distri"}) {
    m.Ouvre(m.Carte());
    m.Controle<QToolButton>(key)->click();
    EXPECT_FALSE(m.form->isVisible()) << key;
  }
  m.Ouvre(m.Carte());
  m.Entree("mnuFichier_6")->trigger();
  EXPECT_FALSE(m.form->isVisible());
}

TEST(FrmCarte, ADamagedMapEndsWithoutAMessage) {
  MapMachine m;
  m.Ouvre(m.Carte());
  test::EcritFichier(m.folder / "bad.dsw", "Bad\r\nbad.ps\r\nno-such.png\r\n5\r\n");
  m.dialogues.paths = {m.folder / "bad.dsw"};
  m.Controle<QToolButton>("open")->click();
  EXPECT_TRUE(m.dialogues.boxes.empty());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(m.Vue()->TailleImage(), QSize(300, 200));
}

}  // namespace
}  // namespace talpena

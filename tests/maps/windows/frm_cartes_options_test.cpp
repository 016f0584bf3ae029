// frmCartesOptions: layers and symbols by mouse and keys.
#include "maps/windows/frm_cartes_options.h"

#include <gtest/gtest.h>
#include <optional>

#include <QColor>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

#include "fakes/dialog_driver.h"
#include "fakes/temp_folder.h"
#include "map_machine.h"
#include "maps/windows/land_share.h"

namespace talpena {
namespace {

using test::MapMachine;
using Paths = std::vector<std::string>;

struct OptionsMachine : MapMachine {
  OptionsMachine() { carte.CodeProjection = 5; }
  ~OptionsMachine() { dialog.reset(); }

  void Ouvre(OngletCartes onglet) {
    dialog = std::make_unique<frmCartesOptions>(state, reel, carte, options, onglet);
    dialog->show();
    dialog->activateWindow();
    Traite();
  }
  template <typename Control>
  Control* Enfant(const char* name) const {
    auto* control = dialog->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  QListWidget* Liste() const { return Enfant<QListWidget>("lstTLP"); }
  QPushButton* Bouton(const char* name) const { return Enfant<QPushButton>(name); }
  Paths Couches() const {
    Paths paths;
    for (int i = 1; i <= options.LayerCount(); ++i) paths.push_back(options.Couche(i));
    return paths;
  }
  Paths Rangees() const {
    Paths paths;
    for (int i = 0; i < Liste()->count(); ++i)
      paths.push_back(Liste()->item(i)->text().toStdString());
    return paths;
  }
  void Tape(const char* diameter) const {
    Enfant<QComboBox>("cmbDiametre")->setEditText(QString::fromUtf8(diameter));
  }

  MapState carte;
  MapOption options;
  std::unique_ptr<frmCartesOptions> dialog;
};

TEST(FrmCartesOptions, OpensOnTheTabAskedFor) {
  OptionsMachine m;
  m.Ouvre(OngletCartes::Tlp);
  EXPECT_EQ(m.Enfant<QTabWidget>("TabStrip1")->currentWidget()->objectName(), QLatin1String("tlp"));
  m.Ouvre(OngletCartes::Symboles);
  EXPECT_EQ(m.Enfant<QTabWidget>("TabStrip1")->currentWidget()->objectName(),
            QLatin1String("symboles"));
  EXPECT_EQ(m.Enfant<QComboBox>("cmbDiametre")->currentText(), QLatin1String("Auto"));
}

TEST(FrmCartesOptions, LabelsTheDiameterTheSameInEveryLanguage) {
  OptionsMachine m;
  m.Ouvre(OngletCartes::Symboles);
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    m.state.Langue = static_cast<std::int16_t>(langue);
    m.dialog->AppliqueLangue();
    EXPECT_EQ(m.Enfant<QLabel>("lblDiametre")->text().remove(QLatin1Char('&')).toStdString(),
              "Diamètre (en m):");
  }
}

TEST(FrmCartesOptions, OffersDiametersBesideTheAutomaticOne) {
  OptionsMachine m;
  m.Ouvre(OngletCartes::Symboles);
  auto* box = m.Enfant<QComboBox>("cmbDiametre");
  QStringList offered;
  for (int i = 0; i < box->count(); ++i) offered << box->itemText(i);
  EXPECT_EQ(offered.join(QLatin1Char(' ')).toStdString(),
            "Auto 3000 6000 10000 20000 30000 50000 100000");
  box->setCurrentIndex(3);
  m.Bouton("cmdOptCarte_0")->click();
  EXPECT_EQ(m.options.SymbolDiameter, 10000);
}

TEST(FrmCartesOptions, AdvisesADiameterAsLongAsTheAutomaticOneIsChosen) {
  OptionsMachine m;
  m.Ouvre(OngletCartes::Symboles);
  auto* advice = m.Enfant<QLabel>("lblConseil");
  EXPECT_FALSE(advice->isVisible());
  m.dialog->Conseille(20);
  EXPECT_TRUE(advice->isVisible());
  EXPECT_NE(advice->text().indexOf(QLatin1String("20000 m")), -1);
  m.Tape("99999999999");
  EXPECT_FALSE(advice->isVisible());
  m.Tape("AUTO");
  EXPECT_TRUE(advice->isVisible());
  m.dialog->Conseille(std::nullopt);
  EXPECT_FALSE(advice->isVisible());
}

TEST(PartDeTerre, IsTheShareOfPixelsInTheColourOfLand) {
  const test::TempFolder folder;
  const QString path = QString::fromStdString(folder / "map.png");
  QImage image(100, 40, QImage::Format_RGB32);
  image.fill(QColor(222, 234, 241));
  ASSERT_TRUE(image.save(path));
  EXPECT_EQ(PartDeTerre(path), std::nullopt) << "no land of that colour";
  image.setPixelColor(0, 0, QColor(249, 246, 236));
  ASSERT_TRUE(image.save(path));
  EXPECT_EQ(PartDeTerre(path), std::nullopt) << "that colour by chance";
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 50; ++x) image.setPixelColor(x, y, QColor(249, 246, 236));
  }
  ASSERT_TRUE(image.save(path));
  EXPECT_DOUBLE_EQ(PartDeTerre(path).value_or(0), 0.5);
  EXPECT_EQ(PartDeTerre(QStringLiteral("none.png")), std::nullopt);
}

TEST(FrmCartesOptions, AddsLayersInTheOrderOfDrawing) {
  OptionsMachine m;
  m.Ouvre(OngletCartes::Tlp);
  m.dialogues.paths = {"/maps/coasts.tlp", "/maps/rivers.tlp"};
  m.Bouton("cmdTLP_0")->click();
  m.Liste()->setFocus();
  QTest::keyClick(m.Liste(), Qt::Key_Insert);
  ASSERT_EQ(m.dialogues.fileDialogs.size(), 2U);
  EXPECT_EQ(m.dialogues.fileDialogs[0].filter,
            "Fichiers TLP (*.tlp)|*.tlp|Tous les fichiers (*.*)|*.*");
  EXPECT_EQ(m.options.LayerCount(), 0) << "not before OK";
  m.Bouton("cmdOptCarte_0")->click();
  EXPECT_EQ(m.Couches(), (Paths{"/maps/coasts.tlp", "/maps/rivers.tlp"}));
  EXPECT_EQ(m.options.Cancel, 0);
  EXPECT_FALSE(m.dialog->isVisible());
}

TEST(FrmCartesOptions, RemovesAndMovesByButtonsAndKeys) {
  OptionsMachine m;
  for (const char* path : {"/a.tlp", "/b.tlp", "/c.tlp"}) m.options.Add(path);
  m.Ouvre(OngletCartes::Tlp);
  EXPECT_EQ(m.Rangees(), (Paths{"/a.tlp", "/b.tlp", "/c.tlp"}));
  m.Liste()->setCurrentRow(2);
  EXPECT_TRUE(m.Bouton("cmdUpDown_0")->isEnabled());
  EXPECT_FALSE(m.Bouton("cmdUpDown_1")->isEnabled());
  m.Bouton("cmdUpDown_0")->click();
  EXPECT_EQ(m.Rangees(), (Paths{"/a.tlp", "/c.tlp", "/b.tlp"}));
  EXPECT_EQ(m.Liste()->currentRow(), 1);
  QTest::keyClick(m.Liste(), Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(m.Rangees(), (Paths{"/c.tlp", "/a.tlp", "/b.tlp"}));
  QTest::keyClick(m.Liste(), Qt::Key_Down, Qt::AltModifier);
  QTest::keyClick(m.Liste(), Qt::Key_Delete);
  EXPECT_EQ(m.Rangees(), (Paths{"/a.tlp", "/b.tlp"}));
  m.Bouton("cmdOptCarte_0")->click();
  EXPECT_EQ(m.Couches(), (Paths{"/a.tlp", "/b.tlp"}));
}

TEST(FrmCartesOptions, TakesTheOrderOfEntriesThatWereDragged) {
  OptionsMachine m;
  for (const char* path : {"/a.tlp", "/b.tlp"}) m.options.Add(path);
  m.Ouvre(OngletCartes::Tlp);
  EXPECT_EQ(m.Liste()->dragDropMode(), QAbstractItemView::InternalMove);
  m.Liste()->insertItem(0, m.Liste()->takeItem(1));
  m.Bouton("cmdOptCarte_0")->click();
  EXPECT_EQ(m.Couches(), (Paths{"/b.tlp", "/a.tlp"}));
}

TEST(FrmCartesOptions, AMapThatIsNotGeoreferencedTakesNoLayers) {
  OptionsMachine m;
  m.carte.CodeProjection = 0;
  m.Ouvre(OngletCartes::Tlp);
  EXPECT_FALSE(m.Bouton("cmdTLP_0")->isEnabled());
  EXPECT_FALSE(m.Bouton("cmdTLP_1")->isEnabled());
  EXPECT_TRUE(m.Enfant<QLabel>("lblSansCouches")->isVisible());
}

TEST(FrmCartesOptions, ChoosesTheColourByClickAndSpace) {
  OptionsMachine m;
  m.Ouvre(OngletCartes::Symboles);
  auto* swatch = m.Enfant<QLabel>("lblColor");
  m.dialogues.colours = {0xFF0000, 0x00FF00, std::nullopt};
  QTest::mouseClick(swatch, Qt::LeftButton);
  EXPECT_EQ(swatch->accessibleDescription(), QLatin1String("#0000ff"));
  swatch->setFocus();
  QTest::keyClick(swatch, Qt::Key_Space);
  EXPECT_EQ(swatch->accessibleDescription(), QLatin1String("#00ff00"));
  QTest::keyClick(swatch, Qt::Key_Space);  // Cancel in the colour dialog
  EXPECT_EQ(m.options.SymbolColor, 255) << "not before OK";
  m.Bouton("cmdOptCarte_0")->click();
  EXPECT_EQ(m.options.SymbolColor, 0x00FF00);
}

TEST(FrmCartesOptions, TakesATypedDiameterByEnter) {
  OptionsMachine m;
  m.Ouvre(OngletCartes::Symboles);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("25000"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(m.options.SymbolDiameter, 25000);
  EXPECT_FALSE(m.dialog->isVisible());
  m.Ouvre(OngletCartes::Symboles);
  EXPECT_EQ(m.Enfant<QComboBox>("cmbDiametre")->currentText().toStdString(), "25000");
  m.Tape("AUTO");
  m.Bouton("cmdOptCarte_0")->click();
  EXPECT_EQ(m.options.SymbolDiameter, -1);
}

TEST(FrmCartesOptions, ADiameterBeyondTheRangeStaysForAnotherTry) {
  OptionsMachine m;
  m.Ouvre(OngletCartes::Symboles);
  m.Tape("99999999999");
  m.Bouton("cmdOptCarte_0")->click();
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_TRUE(m.dialog->isVisible());
  EXPECT_EQ(m.options.SymbolDiameter, -1);
  auto* edit = m.Enfant<QComboBox>("cmbDiametre")->lineEdit();
  EXPECT_TRUE(edit->hasFocus());
  EXPECT_EQ(edit->selectedText(), QLatin1String("99999999999"));
}

TEST(FrmCartesOptions, EscapeLeavesEverythingAsItWas) {
  OptionsMachine m;
  m.options.Add("/a.tlp");
  m.Ouvre(OngletCartes::Tlp);
  m.Liste()->setCurrentRow(0);
  m.Bouton("cmdTLP_1")->click();
  QTest::keyClick(m.dialog.get(), Qt::Key_Escape);
  EXPECT_EQ(m.options.Cancel, -1);
  EXPECT_EQ(m.Couches(), Paths{"/a.tlp"});
}

TEST(FrmCarte, RedrawsAfterItsOptionsUnlessTheyWereCancelled) {
  MapMachine m;
  m.Ouvre(m.Carte());
  const QImage red = m.Vue()->grab().toImage();
  const auto colours = [&](const char* button) {
    m.dialogues.colours = {0xFF0000};
    const test::DialogDriver driver("frmCartesOptions", [&](QDialog& dialog) {
      QTest::mouseClick(dialog.findChild<QLabel*>("lblColor"), Qt::LeftButton);
      dialog.findChild<QPushButton*>(QLatin1String(button))->click();
    });
    m.Entree("mnuOptions_1")->trigger();
    m.Traite();
  };
  colours("cmdOptCarte_1");
  EXPECT_EQ(m.Vue()->grab().toImage(), red);
  colours("cmdOptCarte_0");
  EXPECT_NE(m.Vue()->grab().toImage(), red);
  const QImage blue = m.Vue()->grab().toImage();
  const qreal ratio = blue.devicePixelRatio();
  EXPECT_EQ(blue.pixelColor((QPointF(m.Point(150, 100)) * ratio).toPoint()), QColor(0, 0, 255));
}

}  // namespace
}  // namespace talpena

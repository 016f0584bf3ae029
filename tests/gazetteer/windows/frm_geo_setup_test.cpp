// The wiring of frmGeoSetup.
#include "gazetteer/windows/frm_geo_setup.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>
#include <memory>

#include "fakes/dialog_driver.h"
#include "gazetteer/setup_world.h"

namespace talpena {
namespace {

struct FrmGeoSetup : testing::Test, test::SetupWorld {
  GazetteerState gazetteer;
  int aides = 0;
  std::unique_ptr<frmGeoSetup> form;

  void Ouvre() {
    form = std::make_unique<frmGeoSetup>(context, gazetteer, [this](const QWidget*) { ++aides; });
    form->Charge();
    form->show();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }
  void OuvreAccess() {
    Regle(Cree("geo.mdb", "", {"Places", "Other"}), "", "Places");
    Ouvre();
  }
  template <typename Widget>
  Widget& Enfant(const char* name) const {
    return *form->findChild<Widget*>(QLatin1String(name));
  }
  QComboBox& Liste(int i) const { return Enfant<QComboBox>(QString("cmb_%1").arg(i).toLatin1()); }
  QPushButton& Bouton(const char* name) const { return Enfant<QPushButton>(name); }
};

TEST_F(FrmGeoSetup, HasItsCaptions) {
  OuvreAccess();
  EXPECT_EQ(form->windowTitle(), "Database setup");
  EXPECT_EQ(Bouton("Command1_0").text(), "C&hange...");
  EXPECT_EQ(Bouton("Command1_1").text(), "&Ok");
  EXPECT_EQ(Bouton("Command1_2").text(), "&Escape");
  EXPECT_EQ(Bouton("Command1_3").text(), "&Save");
  EXPECT_EQ(Bouton("Command1_4").text(), "&Open");
  EXPECT_EQ(Bouton("cmdChangeDatum").text(), "&Change");
  EXPECT_EQ(Bouton("cmdHelp").text(), "&Help");
  EXPECT_EQ(Enfant<QLabel>("lblCmb_8").text().remove('&'), "Country Name");
  EXPECT_EQ(Enfant<QLabel>("lblCmb_9").text().remove('&'), "Province Name");
}

TEST_F(FrmGeoSetup, ShowsWhatIsSetUpAndItsFirstRows) {
  OuvreAccess();
  EXPECT_EQ(Liste(0).currentText(), "Places");
  EXPECT_EQ(Liste(1).currentText(), "KEY");
  EXPECT_EQ(Liste(4).currentText(), "LON");
  EXPECT_TRUE(Enfant<QRadioButton>("Option2_1").isChecked());
  const auto& rows = Enfant<QTreeWidget>("lstApercu");
  ASSERT_EQ(rows.topLevelItemCount(), 3);
  EXPECT_EQ(rows.topLevelItem(1)->text(0), "Saint-Ghislain");
  EXPECT_EQ(rows.topLevelItem(2)->text(1), "no point");
}

TEST_F(FrmGeoSetup, ShowsProposalsInGreyUntilTheyAreTaken) {
  Regle(Cree("geo.mdb", "", {"Places"}), "", "Places");
  state.GeoLatitudeField = "Gone";
  Ouvre();
  EXPECT_EQ(Liste(3).currentIndex(), -1);
  EXPECT_EQ(Liste(3).placeholderText(), "proposed: LAT");
  Bouton("cmdPropositions").click();
  EXPECT_EQ(Liste(3).currentText(), "LAT");
  EXPECT_FALSE(Bouton("cmdPropositions").isEnabled());
  EXPECT_EQ(state.GeoLatitudeField, "Gone") << "Ok has not been pressed";
  Bouton("Command1_1").click();
  EXPECT_EQ(state.GeoLatitudeField, "LAT");
  EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST_F(FrmGeoSetup, TestTellsHowManyRowsCanBeUsed) {
  OuvreAccess();
  Bouton("cmdTest").click();
  EXPECT_EQ(Enfant<QLabel>("lblTest").text(), "Rows with a usable name and point: 2 of 3.");
}

TEST_F(FrmGeoSetup, OkPutsTheKeysIntoAnEmptyList) {
  Regle(Cree("geo.mdb", "", {"Places"}), "", "Places");
  state.GeoLongitudeField = "Gone";
  Ouvre();
  Bouton("Command1_1").click();
  EXPECT_TRUE(form->isVisible());
  EXPECT_TRUE(Liste(4).hasFocus());
  EXPECT_EQ(Enfant<QLabel>("lblTest").text(), "Still to be chosen: Longitude");
  EXPECT_EQ(sound.bips, 1);
}

TEST_F(FrmGeoSetup, IsSetUpByTheKeysAlone) {
  OuvreAccess();
  Liste(2).setFocus();
  QTest::keyClick(&Liste(2), Qt::Key_Up);
  EXPECT_EQ(Liste(2).currentText(), "KEY");
  QTest::keyClick(form.get(), Qt::Key_Return);
  EXPECT_EQ(state.GeoFullNameField, "KEY");
}

TEST_F(FrmGeoSetup, HelpOpensTheGuide) {
  OuvreAccess();
  Bouton("cmdHelp").click();
  EXPECT_EQ(aides, 1);
}

TEST_F(FrmGeoSetup, ChangeTakesAnotherFile) {
  OuvreAccess();
  const std::string folder = Cree("geo", Connect::DBase4, {"names"});
  dialogues.paths = {folder + "/names.dbf"};
  Bouton("Command1_0").click();
  EXPECT_EQ(Enfant<QLabel>("lblFile").text().toStdString(), folder);
  EXPECT_EQ(Enfant<QLabel>("lblDbType").text(), "dBase IV;");
  EXPECT_EQ(Liste(0).count(), 1);
  EXPECT_EQ(Enfant<QTreeWidget>("lstApercu").topLevelItemCount(), 3);
  EXPECT_EQ(state.GeoDbType, "") << "until Ok";
}

TEST_F(FrmGeoSetup, TheDatumIsChosenInItsDialog) {
  OuvreAccess();
  {
    test::DialogDriver driver("frmDatum", [](QDialog& dialog) {
      QTest::keyClicks(dialog.findChild<QWidget*>("ListView1"), "bel72");
      dialog.findChild<QPushButton*>("cmdDatum_0")->click();
    });
    Bouton("cmdChangeDatum").click();
  }
  EXPECT_EQ(Enfant<QLabel>("lblDatum").text(), "BEL72");
  EXPECT_EQ(state.GeoDatum, "BEL72");
}

TEST_F(FrmGeoSetup, ASetUpIsSavedAndOpenedAgain) {
  OuvreAccess();
  dialogues.paths = {dossier / "my.cfg", dossier / "my.cfg"};
  Bouton("Command1_3").click();
  state.GeoTable = "Other";
  Bouton("Command1_4").click();
  EXPECT_EQ(Liste(0).currentText(), "Places");
  EXPECT_EQ(state.GeoTable, "Places");
}

TEST_F(FrmGeoSetup, WithoutAFileTheKeysAreAtChange) {
  state.GeoFile.clear();
  Ouvre();
  EXPECT_TRUE(Bouton("Command1_0").hasFocus());
}

TEST_F(FrmGeoSetup, TabGoesFromTopToBottom) {
  OuvreAccess();
  EXPECT_TRUE(Liste(0).hasFocus());
  for (int i = 1; i < 10; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Liste(i).hasFocus()) << i;
  }
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Enfant<QRadioButton>("Option1_0").hasFocus());
}

TEST_F(FrmGeoSetup, EscapeLeaves) {
  OuvreAccess();
  QTest::keyClick(form.get(), Qt::Key_Escape);
  EXPECT_FALSE(form->isVisible());
}

}  // namespace
}  // namespace talpena

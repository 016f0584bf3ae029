#include "interchange/windows/frm_garmin_options.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "interchange/windows/garmin_window.h"

namespace talpena::test {
namespace {

class FrmGarminOptions : public GarminWindow {
 protected:
  FrmGarminOptions() {
    files.Pose("/data/w.txt", Texte());
    RempliLV(files, "/data/w.txt", text_);
    items_ = TousLesPoints(text_);
  }
  void Ouvre() {
    ChargeOptions(settings, options);
    fenetre = std::make_unique<frmGarminOptions>(state, io, options, text_, items_);
    Montre();
  }
  QRadioButton& Option(const char* name) { return Enfant<QRadioButton>(name); }
  QLineEdit& Boite(const char* name) { return Enfant<QLineEdit>(name); }
  QComboBox& Liste(const char* name) { return Enfant<QComboBox>(name); }
  QString Montre(const char* label) { return Enfant<QLabel>(label).text(); }
  bool EnVue(const char* name) { return Enfant<QWidget>(name).isVisible(); }
  void Ok() { Enfant<QPushButton>("cmdOptionGarmin_0").click(); }
  std::string Reglage(const char* key) {
    return settings.Lit("Talpena", "ImportGarmin", key, "(none)");
  }
  using GarminWindow::Montre;

  MapSourceText text_;
  std::vector<WaypointChoice> items_;
  objGraminImport options;
};

TEST_F(FrmGarminOptions, OpensOnTheDefaultsOfAnEmptyStore) {
  Ouvre();
  EXPECT_EQ(Boite("txtPeriod").text(), "1");
  EXPECT_TRUE(Option("optDate_0").isChecked());
  EXPECT_TRUE(Option("optAltitude_0").isChecked());
  EXPECT_EQ(Boite("txtDate").displayText(), "____/__/__");
  EXPECT_EQ(Boite("txtAltitude").text(), "");
  EXPECT_EQ(Boite("txtDateChar_0").text(), "1");
  EXPECT_EQ(Boite("txtDateChar_1").text(), "9");
  EXPECT_EQ(Boite("txtAltitudeChar_0").text(), "1");
  EXPECT_EQ(Boite("txtAltitudeChar_1").text(), "4");
  EXPECT_EQ(Liste("cmbFieldDate").currentIndex(), -1);
  EXPECT_EQ(Liste("cmbDateFormat").count(), 1);
  EXPECT_EQ(Liste("cmbDateFormat").currentText(), "17-APR-02");
}

TEST_F(FrmGarminOptions, OffersTheColumnsOfTheFile) {
  Ouvre();
  for (const char* name : {"cmbFieldDate", "cmbFieldAltitude"}) {
    QComboBox& list = Liste(name);
    ASSERT_EQ(list.count(), static_cast<int>(text_.captions.size()));
    for (int i = 0; i < list.count(); ++i) {
      EXPECT_EQ(list.itemText(i).toStdString(), text_.captions[static_cast<std::size_t>(i)]);
    }
  }
}

TEST_F(FrmGarminOptions, ShowsWhatEachWayNeedsAndNoMore) {
  Ouvre();
  for (const std::string field : {"Date", "Altitude"}) {
    const std::string fixed = "txt" + field, column = "cmbField" + field;
    const std::string begin = fixed + "Char_0", length = fixed + "Char_1",
                      sample = "lblSample" + field;
    for (const int way : {0, 1, 2}) {
      SCOPED_TRACE(field + std::to_string(way));
      Option(("opt" + field + "_" + std::to_string(way)).c_str()).click();
      EXPECT_EQ(EnVue(fixed.c_str()), way == 1);
      for (const std::string& name : {column, begin, length, sample}) {
        EXPECT_EQ(EnVue(name.c_str()), way == 2) << name;
      }
    }
  }
}

TEST_F(FrmGarminOptions, ShowsTheFirstTextOfTheColumnThatIsNotEmptyAndItsCut) {
  Ouvre();
  Option("optDate_2").click();
  Liste("cmbFieldDate").setCurrentText("Seen");
  EXPECT_EQ(Montre("lblSampleDate"), "x17-APR-0") << "the first waypoint has none";
  Boite("txtDateChar_0").setText("2");
  EXPECT_EQ(Montre("lblSampleDate"), "17-APR-02");
  Boite("txtDateChar_1").setText("6");
  EXPECT_EQ(Montre("lblSampleDate"), "17-APR");
  Boite("txtDateChar_1").setText("900");
  EXPECT_EQ(Montre("lblSampleDate"), "17-APR-02");
  Boite("txtDateChar_1").setText("some");
  EXPECT_EQ(Montre("lblSampleDate"), "17-APR-02") << "no number: it stays";
  Option("optAltitude_2").click();
  Liste("cmbFieldAltitude").setCurrentText("Altitude");
  EXPECT_EQ(Montre("lblSampleAltitude"), "123 ");
  Liste("cmbFieldAltitude").setCurrentIndex(0);
  EXPECT_EQ(Montre("lblSampleAltitude"), "Wayp") << "the item's own text";
}

TEST_F(FrmGarminOptions, OkWritesEveryOptionUnderItsKey) {
  Ouvre();
  Boite("txtPeriod").setText("2");
  Option("optDate_1").click();
  Boite("txtDate").setFocus();
  QTest::keyClicks(&Boite("txtDate"), "19980714");
  Option("optAltitude_2").click();
  Liste("cmbFieldDate").setCurrentText("Seen");
  Liste("cmbFieldAltitude").setCurrentText("Altitude");
  Boite("txtAltitudeChar_1").setText("5");
  Ok();
  EXPECT_EQ(fenetre->result(), QDialog::Accepted);
  const std::pair<const char*, const char*> expected[] = {
      {"Period", "2"},        {"DateImport", "1"},     {"DateFixed", "1998/07/14"},
      {"DateBegin", "1"},     {"DateLength", "9"},     {"DateField", "Seen"},
      {"DateFormat", "0"},    {"AltitudeImport", "2"}, {"AltitudeFixed", ""},
      {"AltitudeBegin", "1"}, {"AltitudeLength", "5"}, {"AltitudeField", "Altitude"}};
  for (const auto& [key, text] : expected) EXPECT_EQ(Reglage(key), text) << key;
  EXPECT_EQ(options.Period, 2);
  EXPECT_EQ(options.DateFixed, "1998/07/14");
  Ouvre();
  EXPECT_EQ(Boite("txtDate").displayText(), "1998/07/14");
  EXPECT_EQ(Liste("cmbFieldAltitude").currentText(), "Altitude");
}

TEST_F(FrmGarminOptions, ADateWithEmptyPlacesIsKeptWithBlanks) {
  Ouvre();
  Option("optDate_1").click();
  Boite("txtDate").setFocus();
  QTest::keyClicks(&Boite("txtDate"), "1998");
  Ok();
  EXPECT_EQ(Reglage("DateFixed"), "1998/  /  ");
  Ouvre();
  EXPECT_EQ(Boite("txtDate").displayText(), "1998/__/__");
}

TEST_F(FrmGarminOptions, CancelAndEscapeSaveNothing) {
  for (const bool escape : {false, true}) {
    Ouvre();
    Boite("txtPeriod").setText("3");
    if (escape) {
      QTest::keyClick(&Boite("txtPeriod"), Qt::Key_Escape);
    } else {
      Enfant<QPushButton>("cmdOptionGarmin_1").click();
    }
    EXPECT_FALSE(fenetre->isVisible());
    EXPECT_EQ(options.Period, 1);
    EXPECT_EQ(Reglage("Period"), "(none)");
  }
}

TEST_F(FrmGarminOptions, ABoxWithoutANumberIsToldAndStays) {
  Ouvre();
  Option("optDate_2").click();
  Boite("txtDateChar_1").setText("nine");
  Ok();
  EXPECT_TRUE(fenetre->isVisible());
  const std::vector<std::string> boxes = Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].rfind("Error 13", 0), 0U) << boxes[0];
  EXPECT_NE(boxes[0].find("nine"), std::string::npos) << boxes[0];
  EXPECT_TRUE(Boite("txtDateChar_1").hasFocus());
  EXPECT_EQ(Reglage("Period"), "(none)") << "all or nothing";
}

TEST_F(FrmGarminOptions, IsFilledByTheKeyboardAlone) {
  Ouvre();
  EXPECT_TRUE(Boite("txtPeriod").hasFocus());
  QTest::keyClicks(&Boite("txtPeriod"), "2");
  QTest::keyClick(&Boite("txtPeriod"), Qt::Key_Tab);
  EXPECT_TRUE(Option("optDate_0").hasFocus());
  QTest::keyClick(&Option("optDate_0"), Qt::Key_Down);
  EXPECT_TRUE(Option("optDate_1").isChecked());
  QTest::keyClick(&Option("optDate_1"), Qt::Key_Tab);
  EXPECT_TRUE(Boite("txtDate").hasFocus());
  QTest::keyClicks(&Boite("txtDate"), "20020417");
  QTest::keyClick(&Boite("txtDate"), Qt::Key_Return);
  EXPECT_FALSE(fenetre->isVisible());
  EXPECT_EQ(options.Period, 2);
  EXPECT_EQ(options.DateFixed, "2002/04/17");
}

TEST_F(FrmGarminOptions, TakesAnyNumberInTheSettingsForTheWays) {
  settings.Ecrit("Talpena", "ImportGarmin", "DateImport", "7");
  Ouvre();
  EXPECT_TRUE(Option("optDate_0").isChecked());
}

TEST_F(FrmGarminOptions, CaptionsFollowTheLanguage) {
  Ouvre();
  EXPECT_EQ(fenetre->windowTitle(), "Options of the waypoint import");
  state.Langue = 0;
  QEvent change(QEvent::LanguageChange);
  QCoreApplication::sendEvent(fenetre.get(), &change);
  EXPECT_EQ(fenetre->windowTitle().toStdString(), "Options de l’importation de points GPS");
  EXPECT_EQ(Option("optDate_0").text().remove('&'), "Aucune");
}

}  // namespace
}  // namespace talpena::test

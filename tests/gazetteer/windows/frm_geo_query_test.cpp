#include "gazetteer/windows/frm_geo_query.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QIcon>
#include <string>
#include <vector>

#include "gazetteer/windows/geo_query_machine.h"

namespace talpena {
namespace {

using Names = std::vector<std::string>;

test::GazetteerRow Lieu(const char* name, const char* feature, double latitude, double longitude) {
  return {
      .key = name, .name = name, .latitude = latitude, .longitude = longitude, .feature = feature};
}

class GeoQueryWindow : public ::testing::Test {
 protected:
  GeoQueryWindow() {
    m.Ligne();
    m.Fait({Lieu("SAINT-GHISLAIN", "PPL", 50.44816, 3.81886),
            Lieu("SAINT-HUBERT", "FRST", 50.02668, 5.37434), Lieu("SAINT", "XXX", 49.5, 2.5),
            Lieu("BASTOGNE", "PPL", 50.00347, 5.71844)});
  }
  test::GeoQueryMachine m;
};

TEST_F(GeoQueryWindow, ButtonsAndColumnsAreTheSameInEveryLanguage) {
  m.Avec([&] {
    EXPECT_EQ(m.Controle<QPushButton>("cmd_0")->text(), "Recherche exacte");
    EXPECT_EQ(m.Controle<QPushButton>("cmd_1")->text(), "Recherche approx.");
    EXPECT_EQ(m.Controle<QPushButton>("cmdSetup")->text(), "Setup");
    const QAbstractItemModel& model = *m.Liste()->model();
    EXPECT_EQ(model.columnCount(), 10);
    EXPECT_EQ(model.headerData(4, Qt::Horizontal).toString(), "Feature");
    EXPECT_EQ(model.headerData(9, Qt::Horizontal).toString(), "L_Code");
  });
}

TEST_F(GeoQueryWindow, FillsTheListWithItsPictures) {
  m.Avec([&] {
    m.Cherche("saint", "cmd_1");
    EXPECT_EQ(m.Noms(), (Names{"SAINT", "SAINT-GHISLAIN", "SAINT-HUBERT"}));
    EXPECT_EQ(m.Libelle("lblNbre"), "3");
    EXPECT_EQ(m.Libelle("PicName"), "SAINT");
    const auto picture = [&](int row) {
      const auto icon = m.Liste()->model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
      return icon.pixmap(16).toImage().convertToFormat(QImage::Format_ARGB32);
    };
    QImage nothing(16, 16, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    EXPECT_EQ(picture(0), nothing) << "for other codes nothing, as wide as the pictures";
    EXPECT_NE(picture(1), nothing);
    EXPECT_NE(picture(2), nothing);
  });
}

TEST_F(GeoQueryWindow, EnterInTheTextSearchesForTheExactName) {
  m.Avec([&] {
    m.Controle<QLineEdit>("txt")->setText("bastogne");
    QTest::keyClick(m.Controle<QLineEdit>("txt"), Qt::Key_Return);
    EXPECT_EQ(m.Noms(), (Names{"BASTOGNE"}));
  });
}

TEST_F(GeoQueryWindow, ArrowsShowTheNameOfEachPlace) {
  m.Avec([&] {
    m.Cherche("saint", "cmd_1");
    QTest::keyClick(m.Liste(), Qt::Key_Down);
    EXPECT_EQ(m.Libelle("PicName"), "SAINT-GHISLAIN");
  });
}

TEST_F(GeoQueryWindow, EnterInTheListChoosesAndTheListStays) {
  EXPECT_TRUE(m.Avec([&] {
    m.Cherche("saint-g", "cmd_1");
    QTest::keyClick(m.Liste(), Qt::Key_Return);
    EXPECT_FALSE(m.form->isVisible());
  }));
  EXPECT_EQ(m.ecran.lblDatum, "WGS84");
  EXPECT_NE(m.ecran.ChampLibre.find("SAINT-GHISLAIN"), std::string::npos);
  EXPECT_FALSE(m.Avec([&] { EXPECT_EQ(m.Noms(), (Names{"SAINT-GHISLAIN"})); }));
}

TEST_F(GeoQueryWindow, EscapeHidesItFromTheTextAndFromTheList) {
  for (const char* control : {"txt", "ListView1"}) {
    EXPECT_FALSE(m.Avec([&] {
      QTest::keyClick(m.Controle<QWidget>(control), Qt::Key_Escape);
      EXPECT_FALSE(m.form->isVisible()) << control;
    }));
  }
}

TEST_F(GeoQueryWindow, TheSecondClickOnACaptionReversesTheOrder) {
  m.Avec([&] {
    m.Cherche("saint", "cmd_1");
    Q_EMIT m.Liste()->header()->sectionClicked(7);
    EXPECT_EQ(m.Noms(), (Names{"SAINT", "SAINT-HUBERT", "SAINT-GHISLAIN"}));
    QTest::keyClick(m.form.get(), Qt::Key_8, Qt::ControlModifier);
    EXPECT_EQ(m.Noms(), (Names{"SAINT-GHISLAIN", "SAINT-HUBERT", "SAINT"}));
    EXPECT_EQ(m.Libelle("PicName"), "SAINT") << "the chosen one stays chosen";
    EXPECT_EQ(m.Liste()->currentIndex().row(), 2);
  });
}

TEST_F(GeoQueryWindow, KeepsPlaceAndWidthsButThatOfTheLastColumn) {
  m.settings.values["TALPENA/GEOQUERY/COL2"] = "1500";
  m.Avec([&] {
    EXPECT_EQ(m.Liste()->columnWidth(1), 100);
    m.Liste()->setColumnWidth(0, 200);
    m.Liste()->setColumnWidth(9, 80);
    m.form->resize(500, 400);
  });
  EXPECT_EQ(m.settings.values["TALPENA/GEOQUERY/COL1"], "3000");
  EXPECT_EQ(m.settings.values["TALPENA/GEOQUERY/COL2"], "1500");
  EXPECT_EQ(m.settings.values["TALPENA/GEOQUERY/WIDTH"], "7500");
  EXPECT_EQ(m.settings.values["TALPENA/GEOQUERY/HEIGHT"], "6000");
  EXPECT_EQ(m.settings.values.count("TALPENA/GEOQUERY/COL10"), 0U);
}

TEST_F(GeoQueryWindow, ANarrowWindowCutsTheListInsteadOfShrinkingIt) {
  m.Avec([&] {
    m.Cherche("saint", "cmd_1");
    m.form->resize(600, 400);
    QApplication::processEvents();
    EXPECT_GT(m.Liste()->width(), 500);
    m.form->resize(320, 400);
    QApplication::processEvents();
    EXPECT_GE(m.Liste()->width(), 5000 / 15);
  });
}

TEST_F(GeoQueryWindow, TheTextIsSelectedWheneverTheFocusComes) {
  m.Avec([&] {
    auto* txt = m.Controle<QLineEdit>("txt");
    m.Cherche("saint", "cmd_1");
    m.Liste()->setFocus();
    txt->deselect();
    txt->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(txt->selectedText(), "saint");
  });
}

TEST_F(GeoQueryWindow, AFailureClosesItAndTheNextOpeningHasTheText) {
  m.Avec([&] {
    m.Cherche("L'Étang", "cmd_0");
    EXPECT_FALSE(m.form->isVisible());
  });
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text.rfind("Error during database Query\n", 0), 0U);
  m.Avec([&] { EXPECT_EQ(m.Controle<QLineEdit>("txt")->text(), QString::fromUtf8("L'Étang")); });
}

TEST_F(GeoQueryWindow, SetupOpensTheSetUp) {
  m.Avec([&] { QTest::mouseClick(m.Controle<QPushButton>("cmdSetup"), Qt::LeftButton); });
  EXPECT_EQ(m.dialogs.setups, 1);
}

}  // namespace
}  // namespace talpena

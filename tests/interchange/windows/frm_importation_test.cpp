#include "interchange/windows/frm_importation.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <array>

#include "common/msg_id_import.h"
#include "common/string_table.h"
#include "fakes/dark_palette.h"
#include "interchange/windows/rehearsal_pane.h"
#include "store/coords_world.h"

namespace talpena::test {
namespace {

constexpr const char* path = "/data/list.txt";

class FrmImportation : public ::testing::Test, protected CoordsWorld {
 protected:
  FrmImportation() {
    state.Langue = 1000;
    state.DatumSpherique = state.Catalogue.DatumEur;
    state.DatumUtm = state.Catalogue.DatumEur;
    files.Pose(path, "1,50.5,4.5,1,2,1998/07/14,Spa\n1,95,4.5,1,2,,\n*x\n1,50.6,4.6,1,2,,\n");
  }
  void Ouvre() {
    window = std::make_unique<frmImportation>(state, interchange, io);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  template <typename Widget>
  Widget* Enfant(const QString& name) {
    auto* widget = window->findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name.toStdString();
    return widget;
  }
  QComboBox* Liste() { return Enfant<QComboBox>("cboImportation"); }
  std::string Etiquette(int i) {
    return Enfant<QLabel>(QString("lblImportation_%1").arg(i))->text().toStdString();
  }
  QPushButton* Bouton(int i) { return Enfant<QPushButton>(QString("cmdImportation_%1").arg(i)); }
  int LignesMontrees() {
    auto* pane = window->findChild<RehearsalPane*>();
    EXPECT_TRUE(QTest::qWaitFor([pane] { return pane->EstFinie(); }, 20000));
    return Enfant<QTableView>("lstRepetition")->model()->rowCount();
  }

  InterchangeState interchange;
  std::unique_ptr<frmImportation> window;
};

TEST_F(FrmImportation, HasItsCaptions) {
  Ouvre();
  EXPECT_EQ(Etiquette(6), "File to import");
  EXPECT_EQ(QString::fromStdString(Etiquette(1)).remove('&'), "Types of coordinates");
  EXPECT_EQ(Etiquette(2), "Expected structure");
  EXPECT_EQ(Etiquette(4), "3 first lines of file to be imported");
  EXPECT_EQ(Bouton(1)->accessibleName(), "Ok");
  EXPECT_EQ(Bouton(2)->accessibleName(), "Cancel");
  EXPECT_EQ(Liste()->count(), 16);
  EXPECT_EQ(Liste()->itemText(13), "Lambert France II étendu");
}

TEST_F(FrmImportation, ShowsTheStructureOfTheChosenSystem) {
  interchange.TypeImportation = 7;
  Ouvre();
  EXPECT_EQ(Liste()->currentIndex(), 7);
  EXPECT_EQ(Etiquette(3), "Period,X,Y,Number_1,Number_2,Date,Comment");
  Liste()->setCurrentIndex(8);
  EXPECT_EQ(Etiquette(3), "Period,IFBL,Number_1,Number_2,Date,Comment");
}

TEST_F(FrmImportation, BrowsingShowsTheFileItsFirstLinesAndWhatBecomesOfIt) {
  Ouvre();
  dialogues.paths = {path};
  Bouton(0)->click();
  EXPECT_EQ(Etiquette(0), path);
  EXPECT_EQ(Etiquette(5), "1,50.5,4.5,1,2,1998/07/14,Spa\r1,95,4.5,1,2,,\r*x");
  EXPECT_EQ(LignesMontrees(), 3);
}

TEST_F(FrmImportation, ACancelledFileDialogChangesNothing) {
  interchange.FichierImportation = path;
  Ouvre();
  dialogues.paths = {""};
  Bouton(0)->click();
  EXPECT_EQ(Etiquette(0), path);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmImportation, OkHandsOverFileAndSystem) {
  Ouvre();
  dialogues.paths = {path};
  Bouton(0)->click();
  Liste()->setCurrentIndex(2);
  Bouton(1)->click();
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(interchange.Variable, "2");
  EXPECT_EQ(interchange.TypeImportation, 2);
  EXPECT_EQ(interchange.FichierImportation, path);
}

TEST_F(FrmImportation, EscapeAndTheCloseBoxAreCancel) {
  for (const bool escape : {true, false}) {
    interchange = {};
    Ouvre();
    Liste()->setCurrentIndex(4);
    escape ? QTest::keyClick(window.get(), Qt::Key_Escape) : static_cast<void>(window->close());
    EXPECT_EQ(interchange.Variable, "-1");
    EXPECT_EQ(interchange.TypeImportation, 4);
    EXPECT_FALSE(window->isVisible());
  }
}

TEST_F(FrmImportation, AnotherSystemIsRehearsedAnew) {
  interchange.FichierImportation = path;
  Ouvre();
  EXPECT_EQ(LignesMontrees(), 3);
  Liste()->setCurrentIndex(2);
  EXPECT_EQ(LignesMontrees(), 1) << "where the import ends: no zone 1 with 4.5";
  EXPECT_TRUE(Enfant<QLabel>("lblArret")->isVisible());
}

TEST_F(FrmImportation, AFileThatChangesOrGoesIsLookedAtAnew) {
  interchange.FichierImportation = path;
  Ouvre();
  EXPECT_EQ(LignesMontrees(), 3);
  files.Pose(path, "1,50.5,4.5,1,2,,\n");
  EXPECT_TRUE(QTest::qWaitFor(
      [this] { return Enfant<QTableView>("lstRepetition")->model()->rowCount() == 1; }, 5000));
  EXPECT_EQ(Etiquette(5), "1,50.5,4.5,1,2,,\r\r");
  files.Supprime(path);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Enfant<QLabel>("lblArret")->isVisible(); }, 5000));
}

TEST_F(FrmImportation, OneQuietLineTellsOfTheBelgianDatum) {
  Ouvre();
  const auto notes = [this] { return Enfant<QLabel>("lblNotes")->text(); };
  EXPECT_TRUE(notes().endsWith("(EUR-M)."));
  EXPECT_FALSE(notes().contains("BEL72"));
  Liste()->setCurrentIndex(13);
  EXPECT_TRUE(notes().contains("French and Moroccan"));
}

TEST_F(FrmImportation, FollowsTheLanguage) {
  interchange.TypeImportation = 13;
  Ouvre();
  for (const std::int16_t langue : std::array<std::int16_t, 5>{0, 3000, 4000, 5000, 1000}) {
    state.Langue = langue;
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(window.get(), &change);
    EXPECT_EQ(window->windowTitle().toStdString(),
              talpena::Texte(langue, MsgId::ImportationFenetre));
    EXPECT_EQ(Etiquette(6), talpena::Texte(langue, MsgId::FichierAImporter));
    EXPECT_EQ(Liste()->currentIndex(), 13) << "the choice stays";
    EXPECT_EQ(Liste()->itemText(1).toStdString(),
              talpena::Texte(langue, MsgId::PremierTypeImport + 1));
  }
}

TEST_F(FrmImportation, IsUsedByTheKeyboardAlone) {
  Ouvre();
  EXPECT_TRUE(Bouton(0)->hasFocus());
  dialogues.paths = {path};
  QTest::keyClick(Bouton(0), Qt::Key_Return);
  EXPECT_EQ(LignesMontrees(), 3);
  EXPECT_TRUE(Bouton(1)->hasFocus());
  for (int i = 0; i < 3; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Liste()->hasFocus());
  QTest::keyClick(Liste(), Qt::Key_Down);
  EXPECT_EQ(Liste()->currentIndex(), 1);
  QTest::keyClick(Liste(), Qt::Key_Up);
  LignesMontrees();
  QTest::keyClick(window.get(), Qt::Key_F8);
  auto* list = Enfant<QTableView>("lstRepetition");
  EXPECT_TRUE(list->hasFocus());
  EXPECT_EQ(list->currentIndex().row(), 1);
  QStringList order;
  for (int i = 0; i < 5; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    order << QApplication::focusWidget()->objectName();
  }
  EXPECT_EQ(order.join(' ').toStdString(),
            "cmdProbleme cmdCopier cmdImportation_1 cmdImportation_2 cmdImportation_0");
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(window->result(), QDialog::Accepted) << "Enter is Ok from the list too";
}

TEST_F(FrmImportation, AListThatWasChosenIsAnEnterAwayUnlessNoRowOfItEnters) {
  files.Pose("/data/headings.txt", "Period,Lat\n");
  Ouvre();
  dialogues.paths = {"/data/headings.txt", path};
  QTest::keyClick(Bouton(0), Qt::Key_Return);
  LignesMontrees();
  EXPECT_TRUE(Bouton(0)->hasFocus());
  QTest::keyClick(Bouton(0), Qt::Key_Return);
  LignesMontrees();
  EXPECT_TRUE(Bouton(1)->hasFocus());
  QTest::keyClick(Bouton(1), Qt::Key_Return);
  EXPECT_EQ(interchange.FichierImportation, path);
}

TEST_F(FrmImportation, SaysThatMoreStandsBehindAnEndMark) {
  files.Pose(path,
             "1,50.5,4.5,1,2,,\n\x1A"
             "1,50.6,4.6,1,2,,\n");
  interchange.FichierImportation = path;
  Ouvre();
  EXPECT_EQ(LignesMontrees(), 1);
  EXPECT_TRUE(Enfant<QLabel>("lblArret")->text().startsWith("An end-of-file character (1A)"));
}

TEST_F(FrmImportation, WithTheFileOfBeforeEnterIsOk) {
  interchange.FichierImportation = path;
  Ouvre();
  EXPECT_TRUE(Liste()->hasFocus());
  QTest::keyClick(Liste(), Qt::Key_Return);
  EXPECT_EQ(interchange.Variable, "0");
}

// Enter would give its rows a second time.
TEST_F(FrmImportation, WithAListThatHasComeInEnterIsNotOk) {
  interchange.FichierImportation = path;
  Montre({{"WGS84", "", "1", "2"}});
  const Bookmark key = state.document.Data1.recordset().GetBookmark();
  interchange.ListesImportees = {
      {*files.Empreinte(path), state.document.NumeroContenu(), key, key}};
  Ouvre();
  EXPECT_TRUE(Bouton(0)->hasFocus());
  EXPECT_TRUE(Bouton(0)->isDefault());
  EXPECT_TRUE(Enfant<QLabel>("lblNotes")->text().startsWith("This list has been imported"));
  files.Pose("/data/other.txt", "1,50.5,4.5,1,2,,\n");
  dialogues.paths = {"/data/other.txt"};
  Bouton(0)->click();
  EXPECT_FALSE(Enfant<QLabel>("lblNotes")->text().startsWith("This list has been imported"));
}

TEST_F(FrmImportation, SaysThatAListHoldsNoRecord) {
  files.Pose(path, "* nothing yet\n\n");
  interchange.FichierImportation = path;
  Ouvre();
  EXPECT_EQ(LignesMontrees(), 0);
  EXPECT_TRUE(Enfant<QLabel>("lblArret")->isVisible());
  EXPECT_TRUE(Enfant<QLabel>("lblArret")->text().startsWith("The list holds no record"));
}

TEST_F(FrmImportation, FitsASmallScreenWithLongPathsAndLines) {
  const std::string longPath = "/data/" + std::string(400, 'x') + ".txt";
  files.Pose(longPath, std::string(2000, 'y') + "\n");
  interchange.FichierImportation = longPath;
  Ouvre();
  EXPECT_LE(window->minimumSizeHint().width(), 1280);
  EXPECT_LE(window->minimumSizeHint().height(), 690);
  EXPECT_EQ(Etiquette(0), longPath);
}

TEST_F(FrmImportation, ItsListNeedsNoScrollBarOnASmallScreen) {
  interchange.FichierImportation = path;
  state.LabelNumeric1 = "Anzahl Männchen";
  state.LabelNumeric2 = "Anzahl Weibchen";
  Ouvre();
  window->resize(1280, 690);
  LignesMontrees();
  auto* list = Enfant<QTableView>("lstRepetition");
  for (const std::int16_t langue : std::array<std::int16_t, 5>{0, 1000, 3000, 4000, 5000}) {
    state.Langue = langue;
    for (QWidget* widget : {static_cast<QWidget*>(window.get()),
                            static_cast<QWidget*>(window->findChild<RehearsalPane*>())}) {
      QEvent change(QEvent::LanguageChange);
      QCoreApplication::sendEvent(widget, &change);
    }
    LignesMontrees();
    EXPECT_TRUE(
        QTest::qWaitFor([list] { return list->horizontalScrollBar()->maximum() == 0; }, 500))
        << langue << ": " << list->horizontalHeader()->length() << " of "
        << list->viewport()->width();
  }
}

TEST_F(FrmImportation, IsDrawnInADarkDesktop) {
  interchange.FichierImportation = path;
  const QPalette before = QApplication::palette();
  QApplication::setPalette(PaletteSombre());
  Ouvre();
  LignesMontrees();
  const QImage picture = window->grab().toImage();
  EXPECT_LT(qGray(picture.pixel(3, 3)), 100);
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace talpena::test

// Form1: its controls, and that each does what its procedure does.
#include <gtest/gtest.h>
#include <optional>

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <array>
#include <fstream>

#include "fakes/dialog_driver.h"
#include "form1_machine.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

using test::DialogDriver;
using test::Form1Machine;

TEST(Form1, HasEveryControlUnderItsName) {
  Form1Machine m;
  m.form->Charge({});
  for (const char* name : {"Picture1",
                           "cmd_0",
                           "cmd_1",
                           "cmd_2",
                           "cmd_3",
                           "cmd_4",
                           "cmd_5",
                           "cmdMap",
                           "LblTri",
                           "CmbTri",
                           "OptTri_0",
                           "OptTri_1",
                           "cmdFirstLast_0",
                           "cmdFirstLast_1",
                           "LabelTitre",
                           "BoxTitre",
                           "LabelCommentaire",
                           "Commentaire",
                           "lbl1",
                           "TDBGrid1",
                           "StatusBar1",
                           "StatusBar1_Panel_1",
                           "StatusBar1_Panel_2",
                           "StatusBar1_Panel_3",
                           "ProgressBar1",
                           "frmMessage"}) {
    m.Controle<QWidget>(name);
  }
  EXPECT_EQ(m.Controle<QTimer>("Timer1")->interval(), 65535);
}

TEST(Form1, ControlsHaveAccessibleNames) {
  Form1Machine m;
  m.form->Charge({});
  for (const char* name : {"cmd_0", "cmd_5", "cmdMap", "CmbTri", "cmdFirstLast_0", "cmdFirstLast_1",
                           "BoxTitre", "Commentaire", "TDBGrid1"}) {
    EXPECT_FALSE(m.Controle<QWidget>(name)->accessibleName().isEmpty()) << name;
  }
}

TEST(Form1, StartsWithoutAFile) {
  Form1Machine m;
  ASSERT_TRUE(m.form->Charge({}));
  EXPECT_TRUE(m.form->isVisible());
  EXPECT_EQ(m.form->windowTitle(), "Talpena");
  for (const char* name :
       {"MnuEnregistrer", "MnuEnrSous", "MnuFusionner", "MnuGrouper", "MnuExporter", "MnuImporter",
        "MnuEdition", "MnuVisualiser", "MnuOptionsPeriodes"}) {
    const QMenu* menu = m.form->findChild<QMenu*>(QLatin1String(name));
    EXPECT_FALSE(menu != nullptr ? menu->menuAction()->isEnabled() : m.Entree(name)->isEnabled())
        << name;
  }
  for (const char* name :
       {"BoxTitre", "LabelTitre", "LabelCommentaire", "Commentaire", "TDBGrid1", "ProgressBar1"}) {
    EXPECT_FALSE(m.Controle<QWidget>(name)->isVisible()) << name;
  }
  EXPECT_TRUE(m.Controle<QLabel>("lbl1")->isVisible());
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(Form1, OpensTheFileOfTheCommandLine) {
  Form1Machine m;
  const std::string path = m.Fichier(Form1Machine::Lignes(3));
  m.form->Charge(path);
  EXPECT_TRUE(m.dialogues.boxes.empty());
  EXPECT_EQ(m.form->windowTitle().toStdString(), "Talpena - " + path);
  EXPECT_TRUE(m.Controle<QWidget>("TDBGrid1")->isVisible());
  EXPECT_EQ(m.Controle<TDBGrid>("TDBGrid1")->model()->rowCount(), 3);
  EXPECT_EQ(m.Controle<QLineEdit>("BoxTitre")->text(), "Moles");
  EXPECT_EQ(m.Controle<QLineEdit>("Commentaire")->text(), "A comment");
  EXPECT_EQ(m.Controle<QLabel>("StatusBar1_Panel_1")->text(), "1/3");
  EXPECT_EQ(m.Controle<QLabel>("StatusBar1_Panel_3")->text(), "WGS84");
  EXPECT_TRUE(m.Entree("MnuEnregistrer")->isEnabled());
  EXPECT_FALSE(m.state.document.FichierModifie());
}

TEST(Form1, AMissingFileEnablesTheMenusOverAnEmptyTable) {
  Form1Machine m;
  m.form->Charge(m.folder / "missing.deg");
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "File not found");
  EXPECT_TRUE(m.Entree("MnuEnregistrer")->isEnabled());
  QTest::mouseClick(m.Controle<QToolButton>("cmdFirstLast_1"), Qt::LeftButton);
  EXPECT_EQ(m.dialogues.boxes.size(), 1U) << "nothing to move on, nothing to say";
}

TEST(Form1, TheEntryWithoutACommandStaysDisabledWithAFile) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  EXPECT_FALSE(m.Entree("mnuImportGarmin_1")->isEnabled());
}

/// Texts of a grid column, from the first row to the last.
std::vector<std::string> Colonne(const Form1Machine& m, int column) {
  const auto* model = m.Controle<TDBGrid>("TDBGrid1")->model();
  std::vector<std::string> texts;
  for (int row = 0; row < model->rowCount(); ++row) {
    texts.push_back(model->index(row, column).data().toString().toStdString());
  }
  return texts;
}

TEST(Form1, FillsTheChosenRowsAndAdjustsAllOfThem) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(3)));
  auto* grid = m.Controle<TDBGrid>("TDBGrid1");
  grid->ChoisitLigne(0, Qt::NoModifier);
  grid->ChoisitLigne(2, Qt::ControlModifier);
  m.dialogues.inputs = {"seen"};
  m.Entree("MnuRemplirTexte")->trigger();
  EXPECT_EQ(Colonne(m, 9), (std::vector<std::string>{"x/seen", "x", "x/seen"}));
  m.dialogues.inputs = {"1", "1"};
  m.Entree("mnuAjustGrid_1")->trigger();
  EXPECT_EQ(Colonne(m, 1), (std::vector<std::string>{"50.5", "50.5", "50.5"}));
  m.Entree("mnuAjustIFBL_2")->trigger();
  EXPECT_NE(Colonne(m, 1)[0], "50.5");
  EXPECT_TRUE(m.state.document.FichierModifie());
  EXPECT_TRUE(grid->updatesEnabled());
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(Form1, AsksForTheMeshInAWindow) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  QTimer::singleShot(0, [&] {
    auto* dialog = m.form->findChild<QDialog*>("Ajustement");
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QRadioButton*>("OptionAjust_7")->click();
    dialog->findChild<QPushButton*>("ButOk")->click();
  });
  m.Entree("mnuAjustGrid_0")->trigger();
  EXPECT_EQ(m.state.UtmAjust, 7);
  EXPECT_NE(Colonne(m, 1)[0], "50.1");
}

TEST(Form1, RecomputesAFileOfTheOldForm) {
  Form1Machine m;
  const std::string path = m.folder / "old.deg";
  std::ofstream(path, std::ios::binary)
      << "Moles\r\nA comment\r\n 0000 - 1949   1950 - 1989   1990 - 2011\r\nstatistics\r\n"
         "A comment\r\n"
         "1K+50.10000   4.50000    1    01990/01/01 EUR-Mdeg +51.20000 +003.00000x\r\n";
  m.dialogues.answers = {Answer::No};  // the free fields of standard.hdr
  m.form->Charge(path);
  EXPECT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(Colonne(m, 1), std::vector<std::string>{"51.2"});
  EXPECT_EQ(Colonne(m, 2), std::vector<std::string>{"3"});
}

TEST(Form1, ChangesTheDatumOfTheFile) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  QTimer::singleShot(0, [&] {
    auto* dialog = m.form->findChild<QDialog*>("frmDatum");
    ASSERT_NE(dialog, nullptr);
    QTest::keyClicks(dialog->findChild<QWidget*>("ListView1"), "EUR-M");
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  m.Entree("MnuDatumFichier")->trigger();
  EXPECT_EQ(m.Controle<QLabel>("StatusBar1_Panel_3")->text(), "EUR-M");
  EXPECT_EQ(Colonne(m, 1), std::vector<std::string>{"50.10085"});
  EXPECT_TRUE(m.state.document.FichierModifie());
}

TEST(Form1, WritesGridFilesIntoAChosenFolder) {
  Form1Machine m;
  m.form->Charge({});
  for (const char* entry : {"mnuGrid", "MnuIFBLGrid"}) {
    m.dialogues.paths = {m.folder.path().string()};
    m.Entree(entry)->trigger();
  }
  ASSERT_EQ(m.dialogues.boxes.size(), 2U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "Terminé");
  EXPECT_EQ(m.dialogues.boxes[1].text, "traitement terminé");
}

TEST(Form1, OpensTheConverter) {
  Form1Machine m;
  m.form->Charge({});
  bool seen = false;
  QTimer::singleShot(0, [&] {
    auto* dialog = m.form->findChild<QDialog*>("frmLmbIfbl");
    ASSERT_NE(dialog, nullptr);
    seen = dialog->isVisible();
    dialog->reject();
  });
  m.Entree("MnuLmbIfbl")->trigger();
  EXPECT_TRUE(seen);
}

TEST(Form1, OpenByButtonAndByMenu) {
  Form1Machine m;
  m.form->Charge({});
  m.dialogues.paths = {m.Fichier(Form1Machine::Lignes(2)),
                       m.Fichier(Form1Machine::Lignes(4), "b.deg")};
  QTest::mouseClick(m.Controle<QToolButton>("cmd_0"), Qt::LeftButton);
  EXPECT_EQ(m.Controle<TDBGrid>("TDBGrid1")->model()->rowCount(), 2);
  EXPECT_FALSE(m.Controle<QLabel>("lbl1")->isVisible());
  m.Entree("MnuOuvrir")->trigger();
  EXPECT_EQ(m.Controle<TDBGrid>("TDBGrid1")->model()->rowCount(), 4);
  EXPECT_TRUE(m.Entree("MnuLastFile_2")->isVisible());
  EXPECT_FALSE(m.Entree("MnuLastFile_3")->isVisible());
  EXPECT_TRUE(m.Entree("MnuLastFile_0")->isVisible());
}

TEST(Form1, ARecentFileOpensAgain) {
  Form1Machine m;
  m.settings.values["TALPENA/FILES/LASTFILE1"] = m.Fichier(Form1Machine::Lignes(2), "a&b.deg");
  m.form->Charge({});
  EXPECT_EQ(m.Entree("MnuLastFile_1")->text().toStdString(), "&1 " + (m.folder / "a&&b.deg"));
  m.Entree("MnuLastFile_1")->trigger();
  EXPECT_EQ(m.Controle<TDBGrid>("TDBGrid1")->model()->rowCount(), 2);
}

TEST(Form1, SortsByListAndOption) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(3)));
  m.Controle<QComboBox>("CmbTri")->setCurrentIndex(4);
  EXPECT_EQ(m.state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY  [N1] ASC");
  m.Controle<QRadioButton>("OptTri_1")->click();
  EXPECT_EQ(m.state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY  [N1] DESC");
  const auto* grid = m.Controle<TDBGrid>("TDBGrid1");
  EXPECT_EQ(grid->model()->index(0, 3).data().toString(), "3");
  m.Controle<QComboBox>("CmbTri")->setCurrentIndex(0);
  EXPECT_EQ(m.state.document.SqlCourant(), "SELECT * FROM TALPENA ORDER BY Counter DESC");
}

TEST(Form1, FirstAndLastMoveTheDataControl) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(5)));
  QTest::mouseClick(m.Controle<QToolButton>("cmdFirstLast_1"), Qt::LeftButton);
  EXPECT_EQ(m.Controle<QLabel>("StatusBar1_Panel_1")->text(), "5/5");
  EXPECT_EQ(m.Controle<TDBGrid>("TDBGrid1")->currentIndex().row(), 4);
  QTest::mouseClick(m.Controle<QToolButton>("cmdFirstLast_0"), Qt::LeftButton);
  EXPECT_EQ(m.Controle<QLabel>("StatusBar1_Panel_1")->text(), "1/5");
}

TEST(Form1, TypingIntoTitleOrCommentModifiesTheFile) {
  for (const char* name : {"BoxTitre", "Commentaire"}) {
    Form1Machine m;
    m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
    EXPECT_FALSE(m.state.document.FichierModifie());
    QTest::keyClicks(m.Controle<QLineEdit>(name), "x");
    EXPECT_TRUE(m.state.document.FichierModifie()) << name;
  }
}

struct CaptionCase {
  int index;
  const char* open;
  const char* menu;
};

constexpr std::array captions = {
    CaptionCase{0, "Ouvrir", "&Fichier"}, CaptionCase{3, "Öffnen", "&Datei"},
    CaptionCase{4, "Apri", "&File"}, CaptionCase{5, "Openen", "&Bestand"},
    CaptionCase{1, "Open", "&File"}};

TEST(Form1, SwitchesItsLanguage) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(2)));
  m.Controle<QComboBox>("CmbTri")->setCurrentIndex(3);
  for (const CaptionCase& c : captions) {
    m.Entree(("MnuLang_" + std::to_string(c.index)).c_str())->trigger();
    EXPECT_EQ(m.Controle<QToolButton>("cmd_0")->text(), c.open);
    EXPECT_EQ(m.Controle<QMenu>("mnuFichier")->title(), c.menu);
    EXPECT_TRUE(m.Entree(("MnuLang_" + std::to_string(c.index)).c_str())->isChecked());
    const auto* list = m.Controle<QComboBox>("CmbTri");
    EXPECT_EQ(list->count(), 10);
    EXPECT_EQ(list->itemText(0), "None");
    EXPECT_EQ(list->itemText(9), "Sex");
    EXPECT_EQ(list->currentIndex(), 3) << "the order stays";
  }
}

TEST(Form1, EveryLetterOfTheWindowIsItsOwn) {
  Form1Machine m;
  m.form->Charge({});
  for (const int language : {0, 1, 3, 4, 5}) {
    m.Entree(("MnuLang_" + std::to_string(language)).c_str())->trigger();
    QStringList shown;
    for (const QAction* menu : m.form->menuBar()->actions()) {
      if (menu->text() != "Grille") shown << menu->text();  // given without: the arrows reach it
    }
    for (const char* name : {"LblTri", "LabelTitre", "LabelCommentaire"}) {
      shown << m.Controle<QLabel>(name)->text();
    }
    for (const char* name : {"OptTri_0", "OptTri_1"}) {
      shown << m.Controle<QRadioButton>(name)->text();
    }
    QString letters;
    for (const QString& caption : shown) {
      const QKeySequence keys = QKeySequence::mnemonic(caption);
      EXPECT_FALSE(keys.isEmpty()) << caption.toStdString();
      EXPECT_FALSE(letters.contains(keys.toString() + ';'))
          << language << ' ' << caption.toStdString();
      letters += keys.toString() + ';';
    }
  }
}

TEST(Form1, AMenuThatIsLeftGivesTheKeysBack) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(3)));
  m.form->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(m.form.get()));
  auto* grid = m.Controle<TDBGrid>("TDBGrid1");
  grid->setFocus();
  for (const Qt::Key letter : {Qt::Key_F, Qt::Key_O, Qt::Key_F}) {
    SCOPED_TRACE(letter);
    QTest::keyClick(m.form->windowHandle(), letter, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(m.form->focusWidget(), grid);
  }
}

TEST(Form1, TheArrowsReachTheEntryThatOpensNoMenu) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  m.form->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(m.form.get()));
  m.Controle<TDBGrid>("TDBGrid1")->setFocus();
  QTest::keyClick(m.form->windowHandle(), Qt::Key_H, Qt::AltModifier);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Left);
  QApplication::processEvents();
  m.dialogues.paths = {m.folder.path().string()};
  QTest::keyClick(m.form->focusWidget(), Qt::Key_Return);
  QApplication::processEvents();
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "Terminé");
}

TEST(Form1, SpanishStaysUncheckedAndIsRefused) {
  Form1Machine m;
  m.form->Charge({});
  m.Entree("MnuLang_2")->trigger();
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "Feature unavailable in this version");
  EXPECT_TRUE(m.Entree("MnuLang_1")->isChecked());
  EXPECT_FALSE(m.Entree("MnuLang_2")->isChecked());
}

TEST(Form1, ShowsTheAboutBox) {
  Form1Machine m;
  m.form->Charge({});
  QString version;
  const DialogDriver driver("frmEastern", [&](QDialog& box) {
    version = box.findChild<QLabel*>("lblVersion")->text();
    box.accept();
  });
  m.Entree("MnuInfo")->trigger();
  EXPECT_EQ(version, "Version 3.0.0");
}

TEST(Form1, ShowsThePeriods) {
  Form1Machine m;
  m.form->Charge(m.Fichier(Form1Machine::Lignes(1)));
  const DialogDriver driver("frmOptionsPeriodes", [](QDialog& dialog) { dialog.reject(); });
  m.Entree("MnuOptionsPeriodes")->trigger();
}

TEST(Form1, ToolsShowTheirIconsAloneInANarrowWindow) {
  Form1Machine m;
  m.form->Charge({});
  const auto* open = m.Controle<QToolButton>("cmd_0");
  m.form->resize(1600, 500);
  EXPECT_EQ(open->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
  m.form->resize(720, 500);
  QApplication::processEvents();
  EXPECT_EQ(open->toolButtonStyle(), Qt::ToolButtonIconOnly);
  EXPECT_LE(m.Controle<QWidget>("cmdFirstLast_1")->geometry().right(), m.form->width());
}

}  // namespace
}  // namespace talpena

// Prefer: the wiring of its controls.
#include "shell/windows/prefer.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "fakes/dialog_driver.h"
#include "fakes/document_states.h"
#include "shell/windows/form1_machine.h"
#include "store/windows/tdb_grid.h"

namespace talpena::test {
namespace {

class PreferWindow : public testing::Test, protected Form1Machine {
 protected:
  void SetUp() override { ASSERT_TRUE(form->Charge(Fichier(Lignes(2)))); }
  Prefer& Ouvre() {
    window = std::make_unique<Prefer>(form->Contexte().Commandes());
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    return *window;
  }
  template <typename Control>
  Control& C(const char* name) {
    auto* control = window->findChild<Control*>(QLatin1String(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  void Tape(const char* list, const QString& text) {
    C<QComboBox>(list).setFocus();
    C<QComboBox>(list).lineEdit()->selectAll();
    QTest::keyClicks(C<QComboBox>(list).lineEdit(), text);
  }

  std::unique_ptr<Prefer> window;
};

TEST_F(PreferWindow, KeepsItsButtonsInSightOnALowScreen) {
  Prefer& prefer = Ouvre();
  prefer.resize(prefer.width(), 450);
  QApplication::processEvents();
  EXPECT_LE(prefer.height(), 450);
  for (const char* button : {"Command1", "Command2"}) {
    EXPECT_TRUE(prefer.rect().contains(C<QPushButton>(button).geometry())) << button;
  }
}

TEST_F(PreferWindow, OpensFromTheMenuAndByItsKey) {
  EXPECT_EQ(Entree("MnuPreferences")->shortcut(), QKeySequence("Ctrl+,"));
  QString title;
  const DialogDriver driver("Prefer", [&](QDialog& dialog) {
    title = dialog.windowTitle();
    dialog.reject();
  });
  Entree("MnuPreferences")->trigger();
  EXPECT_EQ(title, "Preferences");
}

TEST_F(PreferWindow, TakesTheControlsAndCloses) {
  Ouvre();
  C<QComboBox>("Combo2").setCurrentIndex(6);
  C<QLineEdit>("ChampNumerique_0").setText("Nests");
  C<QLineEdit>("ChampNumerique_1").setText("Eggs");
  C<QLineEdit>("TxtSepar").setText(";");
  C<QCheckBox>("OptSilence").click();
  C<QCheckBox>("ChkAutoSave").click();
  C<QLineEdit>("txtSaveInterval").setText("9");
  C<QPushButton>("Command1").click();
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(state.InputMode, 6);
  EXPECT_EQ(state.LabelNumeric1, "Nests");
  EXPECT_EQ(state.LabelNumeric2, "Eggs");
  EXPECT_EQ(state.SeparateurChamps, ";");
  EXPECT_TRUE(state.Silence);
  EXPECT_TRUE(state.AutoSave);
  EXPECT_EQ(state.SaveInterval, 9);
}

TEST_F(PreferWindow, CancelAndEscapeChangeNothing) {
  for (const bool escape : {false, true}) {
    Ouvre();
    C<QLineEdit>("ChampNumerique_0").setText("Nests");
    C<QCheckBox>("OptSilence").click();
    if (escape) {
      QTest::keyClick(window.get(), Qt::Key_Escape);
    } else {
      C<QPushButton>("Command2").click();
    }
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(state.LabelNumeric1, "Number 1");
    EXPECT_FALSE(state.Silence);
    EXPECT_TRUE(settings.written.empty());
  }
}

TEST_F(PreferWindow, TheIntervalGoesWithTheAutomaticSave) {
  for (const bool on : {false, true}) {
    state.AutoSave = on;
    Ouvre();
    const auto expect = [&](bool enabled) {
      for (const char* name : {"txtSaveInterval", "lblAutoSave", "lblMin"}) {
        EXPECT_EQ(C<QWidget>(name).isEnabled(), enabled) << name;
      }
    };
    expect(on);
    C<QCheckBox>("ChkAutoSave").click();
    expect(!on);
  }
}

TEST_F(PreferWindow, NewLabelsReachTheHeadingsAtTheNextLanguage) {
  const auto heading = [this] {
    return Controle<TDBGrid>("TDBGrid1")->model()->headerData(3, Qt::Horizontal).toString();
  };
  Ouvre();
  C<QLineEdit>("ChampNumerique_0").setText("Nests");
  C<QPushButton>("Command1").click();
  EXPECT_EQ(heading(), "Number 1");
  Entree("MnuLang_0")->trigger();
  EXPECT_EQ(heading(), "Nests");
}

TEST_F(PreferWindow, ADatumIsFoundByTypingItsCode) {
  Ouvre();
  Tape("cmbDatum", "ntf");
  // The keys go to the list of what was found as long as that is up.
  QTest::keyClick(C<QComboBox>("cmbDatum").completer()->popup(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &C<QPushButton>("cmdChangeDatum"));
  EXPECT_EQ(C<QComboBox>("cmbDatum").currentText().left(8), "NTF   - ");
  dialogues.answers = {Answer::Ok};
  C<QPushButton>("Command1").click();
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_EQ(Controle<QLabel>("StatusBar1_Panel_3")->text(), "NTF");
}

TEST_F(PreferWindow, ADatumIsFoundByAPartOfItsName) {
  Ouvre();
  Tape("cmbDatumUTM", "merchich");
  auto* found = C<QComboBox>("cmbDatumUTM").completer()->popup();
  ASSERT_TRUE(found->isVisible());
  QTest::keyClick(found, Qt::Key_Down);
  QTest::keyClick(found, Qt::Key_Return);
  EXPECT_TRUE(window->isVisible()) << "Enter took the entry, not the form";
  EXPECT_EQ(C<QComboBox>("cmbDatumUTM").currentText().left(5), "MER  ");
  C<QPushButton>("Command1").click();
  EXPECT_EQ(state.DatumUtmCode, "MER");
}

TEST_F(PreferWindow, ATextThatIsNoDatumKeepsTheFormOpenOnIt) {
  Ouvre();
  Tape("cmbDatum", "nowhere");
  QTest::keyClick(C<QComboBox>("cmbDatum").lineEdit(), Qt::Key_Return);
  EXPECT_TRUE(window->isVisible());
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(QApplication::focusWidget(), &C<QComboBox>("cmbDatum"));
  EXPECT_EQ(C<QComboBox>("cmbDatum").lineEdit()->selectedText(), "nowhere");
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "WGS84");
}

TEST_F(PreferWindow, TheSphericalDatumIsChosenInItsList) {
  Ouvre();
  EXPECT_EQ(C<QLabel>("lblDatumOrig").text(), "EUR-M - EUROPEAN 1950");
  const DialogDriver driver("frmDatum", [](QDialog& dialog) {
    QTest::keyClicks(dialog.findChild<QTreeWidget*>("ListView1"), "NTF");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  C<QPushButton>("cmdChangeDatum").click();
  EXPECT_EQ(C<QLabel>("lblDatumOrig").text().left(6), "NTF - ");
  EXPECT_EQ(state.DatumSpheriqueCode, "EUR-M") << "not before OK";
  C<QPushButton>("Command1").click();
  EXPECT_EQ(state.DatumSpheriqueCode, "NTF");
}

TEST_F(PreferWindow, TheWorkingFolderIsChosenInItsDialog) {
  Ouvre();
  dialogues.paths = {"/var/work"};
  C<QPushButton>("cmdOpen").click();
  EXPECT_EQ(C<QLineEdit>("txtWorkingDir").text(), "/var/work");
  C<QPushButton>("Command2").click();
  EXPECT_EQ(settings.values["TALPENA/CONFIG/WORKINGDIR"], "/var/work");
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text,
            "You have to restart Talpena in order to change the temporary working folder");
}

TEST_F(PreferWindow, TheKeyboardIsEnough) {
  Ouvre();
  const char* order[] = {"Combo2",           "cmbDatum",         "cmdChangeDatum", "cmbDatumUTM",
                         "ChampNumerique_0", "ChampNumerique_1", "TxtSepar",       "ChkAutoSave",
                         "txtWorkingDir",    "cmdOpen",          "OptSilence",     "Command1",
                         "Command2"};
  for (const char* name : order) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  C<QLineEdit>("TxtSepar").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(window->result(), QDialog::Accepted);
}

TEST_F(PreferWindow, EveryCaptionHasALetterOfItsOwnInEveryLanguage) {
  Ouvre();
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    QStringList captions;
    for (const auto* label : window->findChildren<QLabel*>()) {
      if (label->buddy() != nullptr) captions << label->text();
    }
    for (const auto* button : window->findChildren<QAbstractButton*>()) captions << button->text();
    EXPECT_EQ(captions.size(), 14);
    QString letters;
    for (const QString& caption : captions) {
      const QString letter = QKeySequence::mnemonic(caption).toString() + ';';
      EXPECT_GT(letter.size(), 1) << caption.toStdString();
      EXPECT_FALSE(letters.contains(letter)) << langue << ' ' << caption.toStdString();
      letters += letter;
    }
  }
}

}  // namespace
}  // namespace talpena::test

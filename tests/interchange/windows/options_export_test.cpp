#include "interchange/windows/options_export.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <memory>

#include "common/msg_id.h"
#include "common/msg_id_export.h"
#include "common/string_table.h"
#include "fakes/fake_machine.h"

namespace talpena {
namespace {

constexpr int latitude = 1;
constexpr int allLanguages[] = {0, 1000, 3000, 4000, 5000};

class OptionsExportTest : public testing::Test, protected test::FakeMachine {
 protected:
  /// The window, shown, over the settings as they stand.
  void Ouvre() {
    window = std::make_unique<OptionsExport>(state, io, kind);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  ExportKind kind = ExportKind::Text;
  QCheckBox& Case(int i) { return *Enfant<QCheckBox>(QString("IncludeField_%1").arg(i)); }
  QComboBox& Systeme() { return *Enfant<QComboBox>("cmbSystem"); }
  QPushButton& Commande(const char* name) { return *Enfant<QPushButton>(name); }
  QLabel& Avis(const char* name) { return *Enfant<QLabel>(name); }
  QString Mot(int id) { return QString::fromStdString(Texte(state.Langue, id)); }

  template <typename Widget>
  Widget* Enfant(const QString& name) {
    auto* widget = window->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error("no control " + name.toStdString());
    return widget;
  }

  SharedState state;
  std::unique_ptr<OptionsExport> window;
};

// Only the text export loses the sign.
TEST_F(OptionsExportTest, OfADatabaseSaysNothingOfSouthernLatitudes) {
  kind = ExportKind::Database;
  state.ExportLatitude = 1;
  Ouvre();
  EXPECT_FALSE(Avis("lblSansSud").isVisible());
  EXPECT_EQ(Case(latitude).accessibleDescription(), "");
}

TEST_F(OptionsExportTest, OpensOnTheSettings) {
  state.ExportLatitude = state.ExportSex = 0;
  state.ExportCoordSystem = 7;
  Ouvre();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Case(i).isChecked(), i != latitude && i != 9) << i;
  EXPECT_EQ(Systeme().currentText(), "Belge Lambert 72");
  EXPECT_TRUE(window->isModal());
  EXPECT_EQ(QApplication::focusWidget(), &Case(0));
}

TEST_F(OptionsExportTest, TheSystemsCarryTheirValues) {
  Ouvre();
  ASSERT_EQ(Systeme().count(), 2);
  EXPECT_EQ(Systeme().itemText(0), "none");
  EXPECT_EQ(Systeme().itemData(0).toInt(), -1);
  EXPECT_EQ(Systeme().itemText(1), "Belge Lambert 72");
  EXPECT_EQ(Systeme().itemData(1).toInt(), 7);
  EXPECT_EQ(Systeme().currentIndex(), 0);
}

TEST_F(OptionsExportTest, OkTakesTheChoice) {
  Ouvre();
  Case(3).click();
  Systeme().setCurrentIndex(1);
  Commande("ButOk").click();
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(state.ExportNumber1, 0);
  EXPECT_EQ(state.ExportPeriod, 1);
  EXPECT_EQ(state.ExportCoordSystem, 7);
}

TEST_F(OptionsExportTest, OkWithoutAColumnTellsAndIsTakenAllTheSame) {
  Ouvre();
  for (int i = 0; i < 9; ++i) Case(i).click();
  Commande("ButOk").click();
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Impossible to export!");
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(state.ExportSex, 1);
}

TEST_F(OptionsExportTest, CancelEscapeAndClosingChangeNothing) {
  for (const char* way : {"button", "escape", "close"}) {
    SCOPED_TRACE(way);
    Ouvre();
    Case(0).click();
    Systeme().setCurrentIndex(1);
    if (way[0] == 'b') Commande("ButEsc").click();
    if (way[0] == 'e') QTest::keyClick(window.get(), Qt::Key_Escape);
    if (way[0] == 'c') window->close();
    EXPECT_EQ(window->result(), QDialog::Rejected);
    EXPECT_EQ(state.ExportPeriod, 1);
    EXPECT_EQ(state.ExportCoordSystem, -1);
  }
}

TEST_F(OptionsExportTest, SaysWhatBecomesOfSouthernLatitudesWhileTheyAreWritten) {
  Ouvre();
  QLabel& notice = Avis("lblSansSud");
  EXPECT_TRUE(notice.isVisible());
  EXPECT_EQ(notice.text(), "Southern latitudes lose their sign in this export.");
  EXPECT_EQ(Case(latitude).accessibleDescription(), notice.text());
  Case(latitude).click();
  EXPECT_FALSE(notice.isVisible());
  EXPECT_EQ(Case(latitude).accessibleDescription(), "");
}

TEST_F(OptionsExportTest, SaysWhereXAndYComeFromWhileTheyAreWritten) {
  Ouvre();
  const QSize before = window->size();
  QLabel& notice = Avis("lblDatumXY");
  EXPECT_FALSE(notice.isVisible());
  Systeme().setCurrentIndex(1);
  EXPECT_TRUE(notice.isVisible());
  EXPECT_EQ(
      notice.text(),
      "X and Y are computed as if the latitude and longitude of a row stood on the datum of that "
      "row.");
  EXPECT_EQ(Systeme().accessibleDescription(), notice.text());
  QTest::qWait(0);
  EXPECT_EQ(window->size(), before) << "the notice has its room already";
}

TEST_F(OptionsExportTest, TheKeyboardIsEnough) {
  Ouvre();
  for (int i = 0; i < 10; ++i) {
    ASSERT_EQ(QApplication::focusWidget(), &Case(i));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_FALSE(Case(i).isChecked());
    if (i == 0) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  ASSERT_EQ(QApplication::focusWidget(), &Systeme());
  QTest::keyClick(&Systeme(), Qt::Key_Down);
  EXPECT_EQ(Systeme().currentIndex(), 1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &Commande("ButOk"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &Commande("ButEsc"));
  Case(0).setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(state.ExportPeriod, 1);
  EXPECT_EQ(state.ExportFreeField, 0);
  EXPECT_EQ(state.ExportCoordSystem, 7);
}

TEST_F(OptionsExportTest, CaptionsFollowTheLanguage) {
  Ouvre();
  for (const int langue : allLanguages) {
    state.Langue = static_cast<std::int16_t>(langue);
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(window.get(), &change);
    EXPECT_EQ(window->windowTitle(), Mot(180));
    EXPECT_EQ(Enfant<QGroupBox>("Frame3D1")->title(), Mot(181));
    constexpr int captions[] = {182, 183, 184, 185, 186, 187, 188, 137, 189};
    for (int i = 0; i < 9; ++i) {
      EXPECT_EQ(Case(i).text().remove('&'), Mot(captions[i]));
      EXPECT_EQ(Case(i).accessibleName(), Mot(captions[i]));
    }
    EXPECT_EQ(Case(9).text().remove('&'), "Sex");
    EXPECT_EQ(Commande("ButOk").text().remove('&'), Mot(190));
    EXPECT_EQ(Commande("ButEsc").text().remove('&'), Mot(191));
    EXPECT_EQ(Avis("lblCoordSystem").text().remove('&'), Mot(MsgId::ExportXY));
    EXPECT_EQ(Avis("lblSansSud").text(), Mot(MsgId::ExportSansSud));
    EXPECT_EQ(Avis("lblDatumXY").text(), Mot(MsgId::ExportDatumXY));
    EXPECT_EQ(Case(latitude).accessibleDescription(), Mot(MsgId::ExportSansSud));
  }
}

TEST_F(OptionsExportTest, EveryControlHasALetterOfItsOwnInEveryLanguage) {
  Ouvre();
  for (const int langue : allLanguages) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    QStringList captions{Avis("lblCoordSystem").text()};
    for (const auto* button : window->findChildren<QAbstractButton*>()) captions << button->text();
    ASSERT_EQ(captions.size(), 13);
    QSet<QChar> letters;
    for (const QString& caption : captions) {
      ASSERT_EQ(caption.count('&'), 1) << caption.toStdString();
      letters << caption[caption.indexOf('&') + 1].toLower();
    }
    EXPECT_EQ(letters.size(), captions.size()) << langue;
  }
}

}  // namespace
}  // namespace talpena

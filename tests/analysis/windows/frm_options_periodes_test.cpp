#include "analysis/windows/frm_options_periodes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTest>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "fakes/document_states.h"
#include "fakes/fake_machine.h"
#include "fakes/silent_view.h"

namespace talpena {
namespace {

class FrmOptionsPeriodes : public testing::Test {
 protected:
  /// The window, shown, over the state as it stands.
  frmOptionsPeriodes& Ouvre() {
    window = std::make_unique<frmOptionsPeriodes>(state, machine.io, view);
    window->show();
    window->activateWindow();
    return *window;
  }
  QRadioButton& Option(int i) { return *Enfant<QRadioButton>(QString("OptionPivot_%1").arg(i)); }
  QLineEdit& Boite(const char* name) { return *Enfant<QLineEdit>(name); }
  QPushButton& Commande(int i) { return *Enfant<QPushButton>(QString("Command1_%1").arg(i)); }
  QFrame& Cadre() { return *Enfant<QFrame>("FramePivot"); }

  template <typename Widget>
  Widget* Enfant(const QString& name) {
    auto* widget = window->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error("no control " + name.toStdString());
    return widget;
  }
  std::vector<std::string> Visibles() {
    std::vector<std::string> names;
    for (const char* name : {"TxtPivot1", "TxtPivot21", "TxtPivot22"}) {
      if (Boite(name).isVisible()) names.emplace_back(name);
    }
    return names;
  }

  test::FakeMachine machine;
  test::SilentView view;
  StoreState state;
  std::unique_ptr<frmOptionsPeriodes> window;
};

using Names = std::vector<std::string>;

TEST_F(FrmOptionsPeriodes, OpensOnTheCurrentMode) {
  test::Entete(state.document)->Pivot1 = 1950;
  test::Entete(state.document)->Pivot2 = 1980;
  for (int mode = 0; mode < 3; ++mode) {
    test::Entete(state.document)->NbPivots = static_cast<std::int16_t>(mode);
    Ouvre();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Option(i).isChecked(), i == mode);
    EXPECT_EQ(window->focusWidget(), &Option(mode));
  }
  EXPECT_EQ(Boite("TxtPivot21").text(), u"1950");
  EXPECT_EQ(Boite("TxtPivot22").text(), u"1980");
}

TEST_F(FrmOptionsPeriodes, TheFrameShowsTheBoxesOfTheOption) {
  Ouvre();
  EXPECT_FALSE(Cadre().isVisible());
  const QSize size = window->size();
  Option(1).click();
  EXPECT_EQ(Visibles(), Names{"TxtPivot1"});
  Option(2).click();
  EXPECT_EQ(Visibles(), (Names{"TxtPivot21", "TxtPivot22"}));
  EXPECT_EQ(window->size(), size) << "the window does not jump";
  Option(0).click();
  EXPECT_EQ(Visibles(), Names{});
}

TEST_F(FrmOptionsPeriodes, OkTakesTheFormAndCloses) {
  Ouvre();
  Option(2).click();
  Boite("TxtPivot21").setText("1950.6");
  Boite("TxtPivot22").setText("1900");
  Commande(0).click();
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(state.document.Entete().NbPivots, 2);
  EXPECT_EQ(state.document.Entete().Pivot1, 1951);
  EXPECT_EQ(state.document.Entete().Pivot2, 1900);
}

TEST_F(FrmOptionsPeriodes, ThePointerIsTheOrdinaryOneAgainAfterOk) {
  Ouvre();
  Commande(0).click();
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(FrmOptionsPeriodes, CancelChangesNothing) {
  Ouvre();
  Option(1).click();
  Boite("TxtPivot1").setText("1950");
  Commande(1).click();
  EXPECT_EQ(window->result(), QDialog::Rejected);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(state.document.Entete().NbPivots, 0);
  EXPECT_EQ(state.document.Entete().Pivot1, 0);
}

TEST_F(FrmOptionsPeriodes, ARefusalKeepsItOpenWithTheFocusOnTheBox) {
  Ouvre();
  Option(2).click();
  Boite("TxtPivot21").setText("1950");
  Commande(0).click();
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->focusWidget(), &Boite("TxtPivot22"));
  EXPECT_EQ(Boite("TxtPivot21").text(), u"1950") << "what was typed stays";
  ASSERT_EQ(machine.dialogues.boxes.size(), 1U);
  EXPECT_EQ(machine.dialogues.boxes[0].text, "Specify a second year!");
}

TEST_F(FrmOptionsPeriodes, ACancelledWarningPutsTheOldOptionBack) {
  test::Entete(state.document)->NbPivots = 2;
  Ouvre();
  Option(1).click();
  Boite("TxtPivot1").setText("1950");
  machine.dialogues.answers = {Answer::Cancel};
  Commande(0).click();
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(Option(2).isChecked());
  EXPECT_EQ(Visibles(), (Names{"TxtPivot21", "TxtPivot22"}));
  EXPECT_EQ(state.document.Entete().NbPivots, 2);
}

TEST_F(FrmOptionsPeriodes, TheKeyboardIsEnough) {
  Ouvre();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  Option(0).setFocus();
  QTest::keyClick(&Option(0), Qt::Key_Down);
  EXPECT_TRUE(Option(1).isChecked());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), &Boite("TxtPivot1"));
  QTest::keyClicks(QApplication::focusWidget(), "1950");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(state.document.Entete().Pivot1, 1950);

  Ouvre();
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmOptionsPeriodes, CaptionsFollowTheLanguage) {
  Ouvre();
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    const auto texte = [&](int id) { return QString::fromStdString(Texte(state.Langue, id)); };
    EXPECT_EQ(window->windowTitle(), texte(123));
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(Option(i).text().remove('&'), texte(124 + i));
      EXPECT_EQ(Option(i).accessibleName(), texte(124 + i));
    }
    EXPECT_EQ(Boite("TxtPivot1").accessibleName(), texte(127));
    EXPECT_EQ(Boite("TxtPivot21").accessibleName(), texte(128));
    EXPECT_EQ(Boite("TxtPivot22").accessibleName(), texte(129));
    EXPECT_EQ(Commande(0).text().remove('&'), texte(100));
    EXPECT_EQ(Commande(1).text().remove('&'), texte(101));
  }
}

TEST_F(FrmOptionsPeriodes, EveryCaptionHasALetterOfItsOwnInEveryLanguage) {
  Ouvre();
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    QStringList captions;
    for (const auto* label : window->findChildren<QLabel*>()) captions << label->text();
    for (const auto* button : window->findChildren<QAbstractButton*>()) captions << button->text();
    ASSERT_EQ(captions.size(), 8);
    QSet<QChar> letters;
    for (const QString& caption : captions) {
      ASSERT_EQ(caption.count('&'), 1) << caption.toStdString();
      letters << caption[caption.indexOf('&') + 1].toLower();
    }
    EXPECT_EQ(letters.size(), captions.size()) << captions.join(' ').toStdString();
  }
}

TEST_F(FrmOptionsPeriodes, LabelsLeadToTheirBoxes) {
  Ouvre();
  for (const auto& [label, box] : {std::pair{"lblPivot1", "TxtPivot1"},
                                   {"lblPivot21", "TxtPivot21"},
                                   {"lblPivot22", "TxtPivot22"}}) {
    EXPECT_EQ(Enfant<QLabel>(label)->buddy(), &Boite(box));
  }
}

}  // namespace
}  // namespace talpena

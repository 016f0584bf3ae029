// The record form's list of coordinate systems: by its keys, and the boxes of each.
#include <QAbstractItemView>
#include <QWheelEvent>

#include "store/windows/edit_form.h"
#include "store/windows/edit_form_machine.h"

namespace talpena::test {
namespace {

TEST(EditForm, ChangesTheSystemByTheKeyboard) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("cmbSystem");
  FormMachine::Tape("IFBL");
  EXPECT_EQ(m.Controle<QComboBox>("cmbSystem")->currentIndex(), 8);
  EXPECT_EQ(m.Libelle("lblSysteme"), "ifb");
  EXPECT_EQ(m.Libelle("lblDatum"), "BEL72");
  EXPECT_FALSE(m.Bouton("cmdChangeDatum")->isEnabled());
  EXPECT_FALSE(m.Champ("EditBox_0")->isVisible());
  EXPECT_FALSE(m.Champ("EditBox_1")->isVisible());
  EXPECT_TRUE(m.Champ("EditBox_2")->isVisible());
  EXPECT_TRUE(m.Controle<QLabel>("ValeurLibre")->isVisible());
  EXPECT_EQ(m.state.InputMode, 8);
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(FormMachine::Focus(), "EditBox_2");
}

struct TypedSystem {
  const char* typed;
  const char* code;
};

TEST(EditForm, ASystemIsFoundByItsCodeAndByItsNameWithBlanks) {
  constexpr TypedSystem cases[] = {{"lf2", "lf2"},
                                   {"LFE", "lfe"},
                                   {"bng", "bng"},
                                   {"utm", "utm"},
                                   {"lambert france i", "lf1"},
                                   {"lambert france ii", "lf2"},
                                   {"lambert france ii etendu", "lfe"},
                                   {"british national", "bng"},
                                   {"lambert xfrance iv", "lf4"}};  // a slip is passed over
  for (const auto& [typed, code] : cases) {
    SCOPED_TRACE(typed);
    FormMachine m;
    m.Ouvre();
    m.PlaceFocus("cmbSystem");
    FormMachine::Tape(typed);
    EXPECT_FALSE(m.Controle<QComboBox>("cmbSystem")->view()->isVisible());
    FormMachine::Touche(Qt::Key_Tab);
    EXPECT_EQ(m.Libelle("lblSysteme"), code);
    EXPECT_TRUE(m.Champ(FormMachine::Focus().c_str())->isVisible());
    EXPECT_TRUE(FormMachine::Focus().starts_with("EditBox")) << FormMachine::Focus();
  }
}

TEST(EditForm, ASystemOnTheWayToTheOneThatIsTypedLeavesTheBoxes) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("EditBox_2");
  FormMachine::Tape("FS1234");
  m.PlaceFocus("cmbSystem");
  FormMachine::Tape("lam");
  EXPECT_EQ(m.Texte("EditBox_2"), "FS1234") << "seven systems begin so";
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_EQ(m.Controle<QComboBox>("cmbSystem")->currentIndex(), 3);
  EXPECT_EQ(m.Libelle("lblSysteme"), "mgr");
  EXPECT_TRUE(m.form->isVisible());
}

TEST(EditForm, AccentsOfASystemMayBeTypedOrLeftOut) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("cmbSystem");
  for (const QChar letter : QStringLiteral("Lambert France II \u00C9t")) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
    QApplication::sendEvent(m.Controle<QComboBox>("cmbSystem"), &press);
  }
  FormMachine::Traite();
  EXPECT_EQ(m.Libelle("lblSysteme"), "lfe");
}

TEST(EditForm, ASystemThatIsTypedIsChosenAfterAPause) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("cmbSystem");
  FormMachine::Tape("lambert france i");
  EXPECT_EQ(m.Libelle("lblSysteme"), "mgr");
  EXPECT_TRUE(QTest::qWaitFor([&m] { return m.Libelle("lblSysteme") == "lf1"; }));
}

TEST(EditForm, TheListOnShowTakesCodesToo) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("cmbSystem");
  FormMachine::Touche(Qt::Key_Space);
  auto* list = m.Controle<QComboBox>("cmbSystem");
  ASSERT_TRUE(list->view()->isVisible());
  QTest::keyClicks(list->view(), "lf3");
  QTest::keyClick(list->view(), Qt::Key_Return);
  FormMachine::Traite();
  EXPECT_EQ(m.Libelle("lblSysteme"), "lf3");
}

TEST(EditForm, EverySystemShowsItsBoxes) {
  FormMachine m;
  m.Ouvre();
  for (int system = 0; system < 16; ++system) {
    SCOPED_TRACE(system);
    auto* list = m.Controle<QComboBox>("cmbSystem");
    list->setCurrentIndex(system);
    Q_EMIT list->activated(system);
    FormMachine::Traite();
    EXPECT_EQ(m.Champ("EditBox_0")->isVisible(), system == 2 || system == 3);
    EXPECT_EQ(m.Champ("EditBox_1")->isVisible(), system != 8);
    EXPECT_TRUE(m.Champ("EditBox_2")->isVisible());
    EXPECT_FALSE(m.Libelle("LabelBox_2").empty());
    EXPECT_EQ(m.Bouton("cmdChangeDatum")->isEnabled(), system < 4);
    const auto* heading = m.Controle<QLabel>("LabelOriginales");
    EXPECT_TRUE(heading->buddy()->isVisible());
  }
}

TEST(EditForm, AWheelOverTheSystemsChangesNothing) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("cmbSystem");
  auto* list = m.Controle<QComboBox>("cmbSystem");
  QWheelEvent wheel(QPointF(5, 5), list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(list, &wheel);
  EXPECT_EQ(list->currentIndex(), 3);
}

}  // namespace
}  // namespace talpena::test

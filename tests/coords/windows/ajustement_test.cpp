#include "coords/windows/ajustement.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QTimer>

#include "common/msg_id.h"
#include "common/string_table.h"

namespace talpena {
namespace {

class AjustementTest : public testing::Test {
 protected:
  /// The window, shown, over the state as it stands.
  void Ouvre() {
    window = std::make_unique<Ajustement>(state);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  QRadioButton& Maille(int i) { return *Enfant<QRadioButton>(QString("OptionAjust_%1").arg(i)); }
  QRadioButton& Grille(int i) {
    return *Enfant<QRadioButton>(QString("OptionAjustGrid_%1").arg(i));
  }
  QPushButton& Commande(const char* name) { return *Enfant<QPushButton>(name); }

  template <typename Widget>
  Widget* Enfant(const QString& name) {
    auto* widget = window->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error("no control " + name.toStdString());
    return widget;
  }
  std::vector<int> Cochees() {
    std::vector<int> checked;
    for (int i = 0; i < 8; ++i) {
      if (Maille(i).isChecked()) checked.push_back(i);
    }
    for (int i = 1; i < 4; ++i) {
      if (Grille(i).isChecked()) checked.push_back(i);
    }
    return checked;
  }

  CoordState state;
  std::unique_ptr<Ajustement> window;
};

TEST_F(AjustementTest, OpensWithoutMeshOnTheUtmGridAtFirst) {
  Ouvre();
  EXPECT_EQ(Cochees(), (std::vector{0, 1}));
  EXPECT_EQ(QApplication::focusWidget(), &Maille(0));
  EXPECT_TRUE(window->isModal());
}

TEST_F(AjustementTest, KeepsEveryChoiceAndOpensOnIt) {
  for (int mesh = 0; mesh < 8; ++mesh) {
    for (int grid = 1; grid < 4; ++grid) {
      Ouvre();
      Maille(mesh).click();
      Grille(grid).click();
      Commande("ButOk").click();
      EXPECT_EQ(window->result(), QDialog::Accepted);
      EXPECT_FALSE(window->isVisible());
      EXPECT_EQ(state.MailleChoisie, mesh);
      EXPECT_EQ(state.GrilleChoisie, grid);
      Ouvre();
      EXPECT_EQ(Cochees(), (std::vector{mesh, grid}));
      EXPECT_EQ(QApplication::focusWidget(), &Maille(mesh));
    }
  }
}

TEST_F(AjustementTest, CancelEscapeAndClosingChangeNothing) {
  state.MailleChoisie = 4;
  state.GrilleChoisie = 2;
  for (const char* way : {"button", "escape", "close"}) {
    SCOPED_TRACE(way);
    Ouvre();
    Maille(7).click();
    Grille(3).click();
    if (way[0] == 'b') Commande("ButEsc").click();
    if (way[0] == 'e') QTest::keyClick(window.get(), Qt::Key_Escape);
    if (way[0] == 'c') window->close();
    EXPECT_EQ(window->result(), QDialog::Rejected);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(state.MailleChoisie, 4);
    EXPECT_EQ(state.GrilleChoisie, 2);
  }
}

TEST_F(AjustementTest, TellsWhetherItWasAccepted) {
  for (const bool accepted : {true, false}) {
    Ajustement dialog(state);
    QTimer::singleShot(0, &dialog, [&] {
      dialog.findChild<QPushButton*>(accepted ? "ButOk" : "ButEsc")->click();
    });
    EXPECT_EQ(dialog.Demande(), accepted);
  }
}

TEST_F(AjustementTest, TheGridCanBeChosenWithoutAMesh) {
  Ouvre();
  for (int i = 1; i < 4; ++i) EXPECT_TRUE(Grille(i).isEnabled() && Grille(i).isVisible());
  Grille(3).click();
  Commande("ButOk").click();
  EXPECT_EQ(state.MailleChoisie, 0);
  EXPECT_EQ(state.GrilleChoisie, 3);
}

TEST_F(AjustementTest, FallsBackFromAChoiceThatIsNone) {
  for (const int value : {-1, 8, 32767, -32768}) {
    state.MailleChoisie = static_cast<std::int16_t>(value);
    state.GrilleChoisie = static_cast<std::int16_t>(value);
    Ouvre();
    EXPECT_EQ(Cochees(), (std::vector{0, 1})) << value;
  }
}

TEST_F(AjustementTest, TheKeyboardIsEnough) {
  Ouvre();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(Maille(1).isChecked());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), &Grille(1));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(Grille(2).isChecked());
  EXPECT_TRUE(Maille(1).isChecked()) << "the two groups are apart";
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &Commande("ButOk"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &Commande("ButEsc"));
  Maille(1).setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(state.MailleChoisie, 1);
  EXPECT_EQ(state.GrilleChoisie, 2);
}

TEST_F(AjustementTest, CaptionsFollowTheLanguage) {
  Ouvre();
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    const auto texte = [&](int id) { return QString::fromStdString(Texte(state.Langue, id)); };
    EXPECT_EQ(window->windowTitle(), texte(150));
    for (int i = 0; i < 8; ++i) {
      EXPECT_EQ(Maille(i).text().remove('&'), texte(151 + i));
      EXPECT_EQ(Maille(i).accessibleName(), texte(151 + i));
    }
    EXPECT_EQ(Enfant<QGroupBox>("FrameAjustGrid")->title(), texte(159));
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(Grille(i + 1).text().remove('&'), texte(160 + i));
      EXPECT_EQ(Grille(i + 1).accessibleName(), texte(160 + i));
    }
    EXPECT_EQ(Commande("ButOk").text().remove('&'), texte(163));
    EXPECT_EQ(Commande("ButEsc").text().remove('&'), texte(164));
    EXPECT_EQ(Enfant<QGroupBox>("FrameAjust")->title(), texte(165));
  }
}

TEST_F(AjustementTest, EveryButtonHasALetterOfItsOwnInEveryLanguage) {
  Ouvre();
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    const auto buttons = window->findChildren<QAbstractButton*>();
    ASSERT_EQ(buttons.size(), 13);
    QSet<QChar> letters;
    for (const QAbstractButton* button : buttons) {
      ASSERT_EQ(button->text().count('&'), 1) << button->text().toStdString();
      letters << button->text()[button->text().indexOf('&') + 1].toLower();
    }
    EXPECT_EQ(letters.size(), buttons.size()) << langue;
  }
}

}  // namespace
}  // namespace talpena

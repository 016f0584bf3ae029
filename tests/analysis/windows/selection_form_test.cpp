#include "analysis/windows/selection_form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "store/filter.h"
#include "store/world.h"

namespace talpena::test {
namespace {

class SelectionWindow : public testing::Test, protected World {
 protected:
  SelectionWindow() {
    const auto rows = state.document.WorkingDb->OpenRecordset("TALPENA");
    for (std::int64_t i = 1; i <= 3; ++i) {
      rows->AddNew();
      rows->Set("N1", Cell::Of(i));
      rows->Update();
    }
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
  }
  void Ouvre() {
    window = std::make_unique<Selection>(state, io, vue);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  QRadioButton& Option(int i) { return *Enfant<QRadioButton>(QString("OptSelect_%1").arg(i)); }
  QPushButton& Commande(int i) { return *Enfant<QPushButton>(QString("CmdSelect_%1").arg(i)); }
  QLineEdit& Condition() { return *Enfant<QLineEdit>("TxtSelect"); }
  template <typename Widget>
  Widget* Enfant(const QString& name) {
    auto* widget = window->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error("no control " + name.toStdString());
    return widget;
  }
  std::int64_t Montrees() { return state.document.Data1.recordset().RecordCount(); }

  std::unique_ptr<Selection> window;
};

TEST_F(SelectionWindow, TypingChoosesTheConditionAndEnterTakesIt) {
  Ouvre();
  EXPECT_TRUE(Option(0).isChecked());
  EXPECT_TRUE(Condition().hasFocus());
  QTest::keyClicks(&Condition(), "N1 > 1");
  EXPECT_TRUE(Option(1).isChecked());
  QTest::keyClick(&Condition(), Qt::Key_Return);
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(Montrees(), 2);
}

TEST_F(SelectionWindow, ShowsTheFilterThatIsOnAndTakesItOff) {
  state.document.MontreLignes(RowsShown::Filtrees("N1 = 2"));
  Ouvre();
  EXPECT_TRUE(Option(1).isChecked());
  EXPECT_EQ(Condition().text(), "N1 = 2");
  EXPECT_EQ(Condition().selectedText(), "N1 = 2");
  Option(0).click();
  Commande(0).click();
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(Montrees(), 3);
}

TEST_F(SelectionWindow, ARefusedConditionStaysWithTheOldRows) {
  state.document.MontreLignes(RowsShown::Filtrees("N1 = 2"));
  Ouvre();
  Condition().clear();
  QTest::keyClicks(&Condition(), "N1 = = 2");
  QTest::keyClick(&Condition(), Qt::Key_Return);
  EXPECT_TRUE(window->isVisible());
  const std::vector<std::string> boxes = Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].rfind("Error 3", 0), 0U) << boxes[0];
  EXPECT_EQ(Condition().text(), "N1 = = 2");
  EXPECT_TRUE(Condition().hasFocus());
  EXPECT_EQ(Montrees(), 1);
  EXPECT_EQ(state.document.LignesMontrees().Condition(), "N1 = 2");
}

TEST_F(SelectionWindow, AnEmptyConditionBeepsAndStays) {
  Ouvre();
  Option(1).click();
  Commande(0).click();
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(sound.bips, 1);
  EXPECT_TRUE(dialogues.boxes.empty());
}

TEST_F(SelectionWindow, CloseAndEscapeChangeNothing) {
  for (const bool escape : {false, true}) {
    Ouvre();
    QTest::keyClicks(&Condition(), "N1 > 1");
    if (escape) {
      QTest::keyClick(&Condition(), Qt::Key_Escape);
    } else {
      Commande(1).click();
    }
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Montrees(), 3);
  }
}

TEST_F(SelectionWindow, AnExampleIsTakenOver) {
  Ouvre();
  Q_EMIT Enfant<QLabel>("lblConditions")->linkActivated("1");
  EXPECT_EQ(Condition().text(), "SEX LIKE 'F'");
  EXPECT_TRUE(Option(1).isChecked());
  EXPECT_TRUE(Condition().hasFocus());
}

TEST_F(SelectionWindow, RemembersTheConditionsThatWereTaken) {
  for (const char* typed : {"N1 > 1", "N1 = 2"}) {
    Ouvre();
    Condition().clear();
    QTest::keyClicks(&Condition(), typed);
    QTest::keyClick(&Condition(), Qt::Key_Return);
  }
  Ouvre();
  auto& list = *Enfant<QComboBox>("cmbConditions");
  ASSERT_EQ(list.count(), 2);
  EXPECT_EQ(list.itemText(0), "N1 = 2");
  EXPECT_EQ(list.itemText(1), "N1 > 1");
  Option(0).click();
  QTest::keyClick(&Condition(), Qt::Key_Down);
  QTest::keyClick(&Condition(), Qt::Key_Down);
  EXPECT_EQ(Condition().text(), "N1 > 1");
  EXPECT_TRUE(Option(1).isChecked());
  QTest::keyClick(&Condition(), Qt::Key_Return);
  EXPECT_EQ(Montrees(), 2);
}

TEST_F(SelectionWindow, ARefusedConditionIsNotRemembered) {
  Ouvre();
  QTest::keyClicks(&Condition(), "N1 = = 2");
  QTest::keyClick(&Condition(), Qt::Key_Return);
  Boites();
  window->reject();
  Ouvre();
  EXPECT_EQ(Enfant<QComboBox>("cmbConditions")->count(), 0);
}

TEST_F(SelectionWindow, CompletesTheNamesOfTheColumns) {
  Ouvre();
  QTest::keyClicks(&Condition(), "N1 > 1 AND la");
  QWidget* offered = QApplication::activePopupWidget();
  ASSERT_NE(offered, nullptr);
  QTest::keyClick(offered, Qt::Key_Tab);
  EXPECT_EQ(Condition().text(), "N1 > 1 AND LATITUDE");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_TRUE(Condition().hasFocus()) << "Tab went no further";
  QTest::keyClicks(&Condition(), " > 5 AND d");
  offered = QApplication::activePopupWidget();
  ASSERT_NE(offered, nullptr);
  for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(offered, key);
  EXPECT_EQ(Condition().text(), "N1 > 1 AND LATITUDE > 5 AND DATE");
  EXPECT_TRUE(window->isVisible()) << "Enter took the name and no more";
}

TEST_F(SelectionWindow, OffersNoNameInATextAndForAWholeOne) {
  Ouvre();
  for (const char* typed : {"SEX LIKE 'D", "SEX", "PERIOD = 2"}) {
    Condition().clear();
    QTest::keyClicks(&Condition(), typed);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << typed;
  }
}

TEST_F(SelectionWindow, EveryButtonHasALetterOfItsOwnInEveryLanguage) {
  Ouvre();
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    QString letters;
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
      const QString letter = QKeySequence::mnemonic(button->text()).toString() + ';';
      EXPECT_GT(letter.size(), 1) << button->text().toStdString();
      EXPECT_FALSE(letters.contains(letter)) << langue << ' ' << button->text().toStdString();
      letters += letter;
    }
  }
}

}  // namespace
}  // namespace talpena::test

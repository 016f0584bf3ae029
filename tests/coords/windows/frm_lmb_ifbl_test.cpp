#include "coords/windows/frm_lmb_ifbl.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <functional>

#include "common/msg_id.h"
#include "common/string_table.h"

namespace talpena {
namespace {

class FrmLmbIfbl : public testing::Test {
 protected:
  FrmLmbIfbl() : window(std::make_unique<frmLmbIfbl>(state)) {
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  template <typename Widget>
  Widget* Enfant(const QString& name) {
    auto* widget = window->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error("no control " + name.toStdString());
    return widget;
  }
  QLineEdit& Boite(const char* name) { return *Enfant<QLineEdit>(name); }
  QPushButton& Commande(int i) { return *Enfant<QPushButton>(QString("Command1_%1").arg(i)); }
  std::string Message() { return Enfant<QLabel>("lblMessage")->text().toStdString(); }
  std::string Texte(int id) { return talpena::Texte(state.Langue, id); }

  void EnLambert(const char* code) {
    Boite("txtIFBL").setText(code);
    Commande(0).click();
  }
  void EnIfbl(const char* x, const char* y) {
    Boite("txtLambert_0").setText(x);
    Boite("txtLambert_1").setText(y);
    Commande(1).click();
  }

  CoordState state;
  std::unique_ptr<frmLmbIfbl> window;
};

struct SquareCase {
  const char* code;
  const char* x;
  const char* y;
};

// Centres counted from the origin of the grid at x = 2012, y = 18180; "G" is the sixth row.
constexpr SquareCase squares[] = {
    {"M0", "18012", "28180"},       {"A9", "306012", "248180"},     {"G3", "114012", "128180"},
    {"G336", "120012", "128180"},   {"G33643", "120512", "126680"}, {"M05133", "2512", "18680"},
    {" g3 36", "120012", "128180"}, {"A91822", "321512", "257680"},
};

TEST_F(FrmLmbIfbl, GivesTheCentreOfASquare) {
  for (const SquareCase& c : squares) {
    SCOPED_TRACE(c.code);
    EnLambert(c.code);
    EXPECT_EQ(Boite("txtLambert_0").text(), c.x);
    EXPECT_EQ(Boite("txtLambert_1").text(), c.y);
    EXPECT_EQ(Message(), "");
    EXPECT_EQ(Boite("txtIFBL").text(), c.code) << "what was typed stays";
  }
}

TEST_F(FrmLmbIfbl, GivesTheSquareOfOneKilometre) {
  EnIfbl("120512", "126680");
  EXPECT_EQ(Boite("txtIFBL").text(), u"G33643");
  EnIfbl(" 2012,0 ", "18180.5");
  EXPECT_EQ(Boite("txtIFBL").text(), u"M05133");
  EXPECT_EQ(Message(), "");
}

TEST_F(FrmLmbIfbl, TellsThatACodeIsRefused) {
  EnLambert("G3");
  for (const char* code : {"", "G", "G33", "G336431", "I3", "N3"}) {
    SCOPED_TRACE(code);
    EnLambert(code);
    EXPECT_EQ(Message(), Texte(MsgId::IfblRefuse));
    EXPECT_EQ(Boite("txtLambert_0").text(), u"") << "no numbers of another code";
    EXPECT_EQ(Boite("txtLambert_1").text(), u"");
    EXPECT_EQ(QApplication::focusWidget(), &Boite("txtIFBL"));
    EXPECT_EQ(Boite("txtIFBL").selectedText(), code);
  }
  EnLambert("G3");
  EXPECT_EQ(Message(), "") << "gone with the next success";
}

TEST_F(FrmLmbIfbl, TellsThatAPointIsOutsideTheBounds) {
  EnIfbl("120512", "126680");
  const SquareCase outside[] = {
      {"", "350000", "100000"}, {"", "-1", "100000"}, {"", "100000", "270000"}, {"", "1", "-0.5"}};
  for (const SquareCase& c : outside) {
    SCOPED_TRACE(c.x);
    EnIfbl(c.x, c.y);
    EXPECT_EQ(Message(), Texte(MsgId::IfblHorsLimites));
    EXPECT_EQ(Boite("txtIFBL").text(), u"") << "no code of another point";
    EXPECT_EQ(QApplication::focusWidget(), &Boite("txtLambert_0"));
  }
}

TEST_F(FrmLmbIfbl, TellsThatATextIsNoNumber) {
  for (const char* text : {"", "abc", "12a", "1e999", "1,234,567", "nan", "inf"}) {
    SCOPED_TRACE(text);
    EnIfbl("120512", text);
    EXPECT_EQ(Message(), Texte(MsgId::MetresAttendus));
    EXPECT_EQ(QApplication::focusWidget(), &Boite("txtLambert_1"));
    EnIfbl(text, "126680");
    EXPECT_EQ(Message(), Texte(MsgId::MetresAttendus));
    EXPECT_EQ(QApplication::focusWidget(), &Boite("txtLambert_0"));
    EXPECT_EQ(Boite("txtIFBL").text(), u"");
  }
}

// Codes that the conversions take and that no square has: their result is shown with a warning.
TEST_F(FrmLmbIfbl, TellsThatNoSquareHasACode) {
  for (const char* code : {"GX", "G39943", "G33615", "G3364é", "G393"}) {
    SCOPED_TRACE(code);
    EnLambert(code);
    EXPECT_EQ(Message(), Texte(MsgId::IfblSansCarre));
    EXPECT_NE(Boite("txtLambert_0").text(), u"");
  }
  EnIfbl("349999", "100000");
  EXPECT_EQ(Message(), Texte(MsgId::IfblSansCarre));
  EXPECT_NE(Boite("txtIFBL").text(), u"");
  EnIfbl("1000", "100000");
  EXPECT_EQ(Message(), Texte(MsgId::IfblSansCarre));
}

TEST_F(FrmLmbIfbl, EnterConvertsFromTheFrameOfTheCursor) {
  ASSERT_EQ(QApplication::focusWidget(), &Boite("txtLambert_0"));
  EXPECT_TRUE(Commande(1).isDefault());
  QTest::keyClicks(QApplication::focusWidget(), "120512");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), &Boite("txtLambert_1"));
  QTest::keyClicks(QApplication::focusWidget(), "126680");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Boite("txtIFBL").text(), u"G33643");

  Boite("txtIFBL").setFocus();
  EXPECT_TRUE(Commande(0).isDefault());
  Boite("txtIFBL").setText("M0");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Boite("txtLambert_0").text(), u"18012");
  Boite("txtLambert_1").setFocus();
  EXPECT_TRUE(Commande(1).isDefault());
  EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmLmbIfbl, TabGoesDownTheWindow) {
  for (const char* name :
       {"txtLambert_0", "txtLambert_1", "Command1_1", "txtIFBL", "Command1_0", "cmdFermer"}) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
}

TEST_F(FrmLmbIfbl, ClosesOnEscapeAndOnItsButton) {
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  window->show();
  Enfant<QPushButton>("cmdFermer")->click();
  EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmLmbIfbl, HasRoomForEveryMessageInEveryLanguage) {
  const QLabel* label = Enfant<QLabel>("lblMessage");
  const auto hauteurs = [&] {
    QCoreApplication::processEvents();
    return std::pair{window->height(), Enfant<QGroupBox>("frameLambert")->height()};
  };
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    SCOPED_TRACE(langue);
    state.Langue = static_cast<std::int16_t>(langue);
    EnLambert("G3");
    window->AppliqueLangue();
    const auto empty = hauteurs();
    for (const auto& provoke : std::initializer_list<std::function<void()>>{
             [&] { EnLambert("I3"); }, [&] { EnIfbl("-1", "0"); }, [&] { EnIfbl("", ""); },
             [&] { EnLambert("GX"); }}) {
      provoke();
      EXPECT_EQ(hauteurs(), empty) << Message();
      EXPECT_GE(label->height(), label->heightForWidth(label->width())) << Message();
    }
  }
}

TEST_F(FrmLmbIfbl, CaptionsFollowTheLanguage) {
  EnLambert("I3");
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    EXPECT_EQ(window->windowTitle().toStdString(), Texte(950));
    EXPECT_EQ(Boite("txtLambert_0").accessibleName().toStdString(), Texte(951));
    EXPECT_EQ(Boite("txtLambert_1").accessibleName().toStdString(), Texte(952));
    EXPECT_EQ(Boite("txtIFBL").accessibleName().toStdString(), Texte(953));
    EXPECT_EQ(Commande(1).accessibleName().toStdString(), Texte(954));
    EXPECT_EQ(Commande(0).accessibleName().toStdString(), Texte(955));
    EXPECT_EQ(Commande(0).text().remove('&').toStdString(), Texte(955));
    EXPECT_EQ(Enfant<QGroupBox>("frameLambert")->title().toStdString(), SansMnemonique(Texte(40)));
    EXPECT_EQ(Enfant<QGroupBox>("frameIFBL")->title().toStdString(), Texte(308));
    EXPECT_EQ(Message(), Texte(956)) << "the message too";
  }
}

TEST_F(FrmLmbIfbl, EveryCaptionHasALetterOfItsOwnInEveryLanguage) {
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state.Langue = static_cast<std::int16_t>(langue);
    window->AppliqueLangue();
    QStringList captions;
    for (const char* name : {"lblLambert_0", "lblLambert_1", "lblIFBL"}) {
      captions << Enfant<QLabel>(name)->text();
    }
    for (const auto* button : window->findChildren<QPushButton*>()) captions << button->text();
    ASSERT_EQ(captions.size(), 6);
    QSet<QChar> letters;
    for (const QString& caption : captions) {
      ASSERT_EQ(caption.count('&'), 1) << caption.toStdString();
      letters << caption[caption.indexOf('&') + 1].toLower();
    }
    EXPECT_EQ(letters.size(), captions.size()) << captions.join(' ').toStdString();
  }
}

TEST_F(FrmLmbIfbl, LabelsLeadToTheirBoxes) {
  for (const auto& [label, box] : {std::pair{"lblLambert_0", "txtLambert_0"},
                                   {"lblLambert_1", "txtLambert_1"},
                                   {"lblIFBL", "txtIFBL"}}) {
    EXPECT_EQ(Enfant<QLabel>(label)->buddy(), &Boite(box));
  }
}

}  // namespace
}  // namespace talpena

// Which page F1 shows, and the guide beside the main window.
#include "shell/windows/help_desk.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <memory>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "form1_machine.h"
#include "shell/windows/frm_aide.h"
#include "shell/windows/help_page_view.h"

namespace talpena {
namespace {

using namespace Qt::StringLiterals;
using test::Form1Machine;

TEST(CibleAide, IsThatOfTheWindow) {
  struct Case {
    const char* window;
    const char* target;
  };
  constexpr Case cases[] = {{"EditForm", "record.html"},
                            {"Prefer", "preferences.html"},
                            {"Selection", "periods.html#selection"},
                            {"frmDatum", "coordinates.html#datums"},
                            {"Ajustement", "coordinates.html#adjust"},
                            {"frmLmbIfbl", "coordinates.html#ifbl"},
                            {"frmOptionsPeriodes", "periods.html"},
                            {"frmGraphique", "statistics.html#chart"},
                            {"frmResume", "statistics.html#summary"},
                            {"frmEastern", "licence.html"},
                            {"MessageBox", "trouble.html"},
                            {"SaveDialog", "files.html#save"},
                            {"somebody", "index.html"}};
  for (const Case& c : cases) {
    QWidget window;
    window.setObjectName(c.window);
    QWidget frame(&window);
    QLineEdit box(&frame);
    EXPECT_EQ(CibleAide(&box), c.target);
  }
  EXPECT_EQ(CibleAide(nullptr), "index.html");
}

/// The help window that is on show, if there is one.
frmAide* Visible() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* help = qobject_cast<frmAide*>(window);
    if (help != nullptr && help->isVisible()) return help;
  }
  return nullptr;
}

QString Cible(const frmAide* help) {
  return help == nullptr ? QString() : help->findChild<HelpPageView*>("page")->Cible();
}

TEST(Form1Aide, OpensFromTheMenu) {
  Form1Machine m;
  m.form->Charge({});
  EXPECT_TRUE(m.Entree("MnuAideTexte")->isEnabled());
  EXPECT_EQ(m.Entree("MnuAideTexte")->shortcut(), QKeySequence(Qt::Key_F1));
  m.Entree("MnuAideTexte")->trigger();
  EXPECT_EQ(Cible(Visible()), "index.html");
  m.Entree("MnuAideTexte")->trigger();
  EXPECT_NE(Visible(), nullptr);
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(Form1Aide, OpensByF1) {
  Form1Machine m;
  m.form->Charge({});
  ASSERT_TRUE(QTest::qWaitForWindowActive(m.form.get()));
  QTest::keyClick(m.form.get(), Qt::Key_F1);
  EXPECT_EQ(Cible(Visible()), "index.html");
}

TEST(Form1Aide, FollowsTheLanguageMenuWhileOpen) {
  Form1Machine m;
  m.form->Charge({});
  m.Entree("MnuAideTexte")->trigger();
  m.Entree("MnuLang_0")->trigger();
  ASSERT_NE(Visible(), nullptr);
  EXPECT_EQ(Visible()->windowTitle(), "Guide d’utilisation de Talpena");
  EXPECT_TRUE(Visible()->findChild<HelpPageView*>("page")->toPlainText().contains("Premiers pas"));
  m.Entree("MnuLang_1")->trigger();
  EXPECT_EQ(Visible()->windowTitle(), "Talpena user guide");
}

TEST(Form1Aide, GoesWithTheMainWindow) {
  {
    Form1Machine m;
    m.form->Charge({});
    m.Entree("MnuAideTexte")->trigger();
  }
  EXPECT_EQ(Visible(), nullptr);
}

TEST(Form1Aide, SaysWhenThereIsNoGuide) {
  Form1Machine m;
  m.form->Charge({});
  m.state.FichierAide = "/nowhere/TALPENAE.HLP";
  m.Entree("MnuAideTexte")->trigger();
  EXPECT_EQ(Visible(), nullptr);
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "The user guide cannot be found: /nowhere/TALPENAE.HLP");
}

TEST(Form1Aide, StandsBesideAModalDialogAndGoesWithIt) {
  Form1Machine m;
  m.form->Charge({});
  QDialog dialog(m.form.get());
  dialog.setObjectName("frmDatum");
  auto* box = new QLineEdit(&dialog);
  frmAide* help = nullptr;
  QTimer::singleShot(0, &dialog, [&] {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(box, Qt::Key_F1);
    help = Visible();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->parent(), &dialog);
    EXPECT_TRUE(help->isWindow());
    EXPECT_EQ(Cible(help), "coordinates.html#datums");
    EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    // It takes keys although the dialog is modal.
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == help; }));
    QTest::keyClick(help->findChild<HelpPageView*>("page"), Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Cible(help), "index.html");
    // The same window once more.
    QTest::keyClick(box, Qt::Key_F1);
    EXPECT_EQ(Visible(), help);
    dialog.reject();
  });
  dialog.exec();
  EXPECT_EQ(Visible(), nullptr);
}

TEST(Form1Aide, F1OfTheGuideShowsItsOwnKeys) {
  Form1Machine m;
  m.form->Charge({});
  m.Entree("MnuAideTexte")->trigger();
  ASSERT_NE(Visible(), nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowActive(Visible()));
  QTest::keyClick(Visible()->findChild<HelpPageView*>("page"), Qt::Key_F1);
  EXPECT_EQ(Cible(Visible()), "keys.html#help");
}

}  // namespace
}  // namespace talpena

// The splash.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTest>

#include "fakes/dialog_driver.h"
#include "shell/windows/start.h"

namespace talpena {
namespace {

TEST(Start, ShowsVersionAndDateInTheMiddleOfTheScreen) {
  const SharedState state;
  Start splash(state);
  splash.Montre();
  EXPECT_EQ(splash.findChild<QLabel*>("Label2")->text(), "version 3.0.0\n03.III.2011");
  EXPECT_EQ(splash.findChild<QLabel*>("Label1")->toolTip(), "Click here for more information...");
  const QPoint middle = QGuiApplication::primaryScreen()->geometry().center();
  EXPECT_LE((splash.geometry().center() - middle).manhattanLength(), 2);
}

TEST(Start, SaysItsCreditsInTheLanguageThatTheLoadFindsOut) {
  SharedState state;
  Start splash(state);
  const auto* credits = splash.findChild<QLabel*>("Label1");
  EXPECT_TRUE(credits->text().contains("A desktop editor for biological distribution files"));
  state.Langue = 0;
  QEvent change(QEvent::LanguageChange);
  QCoreApplication::sendEvent(&splash, &change);
  EXPECT_TRUE(credits->text().contains(QString::fromUtf8("Un éditeur")));
}

TEST(Start, AClickClosesIt) {
  QApplication::setQuitOnLastWindowClosed(false);  // the test program goes on
  for (const char* where : {"", "Image1", "Label2"}) {
    const SharedState state;
    Start splash(state);
    splash.Montre();
    QWidget* target = *where == 0 ? &splash : splash.findChild<QWidget*>(QLatin1String(where));
    ASSERT_NE(target, nullptr) << where;
    QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_FALSE(splash.isVisible()) << where;
  }
}

TEST(Start, AClickOnTheCreditsShowsTheAboutBox) {
  QApplication::setQuitOnLastWindowClosed(false);
  const SharedState state;
  Start splash(state);
  splash.Montre();
  const test::DialogDriver driver("frmEastern", [](QDialog& box) { box.accept(); });
  QTest::mouseClick(splash.findChild<QWidget*>("Label1"), Qt::LeftButton);
  EXPECT_TRUE(splash.isVisible());
}

}  // namespace
}  // namespace talpena

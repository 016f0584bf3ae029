// What is seen of work that lasts, in the main window and over it.
#include "shell/windows/attente.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QThread>
#include <QToolButton>
#include <utility>

#include "form1_machine.h"
#include "platform/busy.h"
#include "store/deg_reader.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

using test::Form1Machine;

struct Waiting : Form1Machine {
  Waiting() { form->Charge(Fichier(Lignes(3))); }
  WaitView& Vue() { return form->Contexte().attente; }
  QWidget& Message() { return *Controle<QWidget>("frmMessage"); }
  /// The window with Cancel, where it is up.
  QWidget* Annulation() {
    auto* window = form->findChild<QWidget*>("frmAnnulation");
    return window != nullptr && window->isVisible() ? window : nullptr;
  }
  QProgressBar& Barre() { return *Controle<QProgressBar>("ProgressBar1"); }

  /// Work of that length, which beats.
  void Travaille(qint64 ms) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < ms && Vue().Bat()) QThread::msleep(1);
  }
};

TEST(Attente, WorkThatLastsShowsItsWindowAndBarWithinATenthOfASecond) {
  Waiting m;
  const Busy busy(m.Vue());
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  EXPECT_FALSE(m.Message().isVisible()) << "most commands end before one could read it";
  m.Travaille(100);
  EXPECT_TRUE(m.Message().isVisible());
  EXPECT_TRUE(m.Barre().isVisible());
  const int before = m.Barre().value();
  m.Travaille(150);
  EXPECT_NE(m.Barre().value(), before) << "it moves though nobody knows how far the work is";
  EXPECT_FALSE(m.Barre().isTextVisible());
  m.Vue().MontreProgression(50);
  EXPECT_TRUE(m.Barre().isTextVisible());
}

TEST(Attente, NothingOfItIsLeftBehindTheWork) {
  Waiting m;
  {
    const Busy busy(m.Vue());
    m.Travaille(100);
  }
  EXPECT_FALSE(m.Message().isVisible());
  EXPECT_FALSE(m.Barre().isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  m.Travaille(100);
  EXPECT_FALSE(m.Message().isVisible()) << "nobody is at work";
}

TEST(Attente, TheControlsOfTheMainWindowStayItsOwnPicture) {
  Waiting m;
  {
    const Busy busy(m.Vue());
    m.Travaille(100);
  }
  for (const QWidget* child : m.form->findChildren<QWidget*>()) {
    if (child->isWindow()) continue;
    EXPECT_EQ(child->internalWinId(), 0U) << child->objectName().toStdString();
  }
}

TEST(Attente, WorkWithinWorkEndsNothingOfTheWorkAround) {
  Waiting m;
  const Busy outer(m.Vue());
  m.Travaille(100);
  { const Busy inner(m.Vue()); }
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(m.Message().isVisible());
}

TEST(Attente, BehindTwoSecondsTheUserMayGiveUpWhereTheCommandLetsHim) {
  Waiting m;
  Busy busy(m.Vue());
  busy.Annulable();
  m.Travaille(1500);
  EXPECT_EQ(m.Annulation(), nullptr);
  m.Travaille(700);
  ASSERT_NE(m.Annulation(), nullptr);
  EXPECT_TRUE(m.Annulation()->isModal());
  EXPECT_FALSE(m.Message().isVisible()) << "one of the two";
  auto* cancel = m.Controle<QPushButton>("cmdAnnuler");
  EXPECT_EQ(cancel->text().toStdString(), "Cancel");
  QTest::keyClick(m.Annulation(), Qt::Key_Escape);
  EXPECT_FALSE(cancel->isEnabled());
  QThread::msleep(60);
  try {
    busy.Bat();
    FAIL() << "the work goes on";
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::Cancelled);
  }
  EXPECT_EQ(m.Annulation(), nullptr);
  QThread::msleep(60);
  EXPECT_TRUE(m.Vue().Bat()) << "what is put back is not cancelled too";
}

TEST(Attente, NobodyGivesUpWorkThatHasToGoThrough) {
  Waiting m;
  const Busy busy(m.Vue());
  m.Travaille(2300);
  EXPECT_TRUE(m.Message().isVisible());
  EXPECT_EQ(m.Annulation(), nullptr);
}

TEST(Attente, RowsAreNotReadWhileAStatementIsUnderWay) {
  Waiting m;
  m.form->Commande([&] {
    m.state.document.Fichier.NomFichier = m.Fichier(Form1Machine::Lignes(300), "b.deg");
    LitDeg(m.form->Commandes(), m.state.document.Fichier.NomFichier, MergeMode::Replace);
  });
  auto* grid = m.Controle<TDBGrid>("TDBGrid1");
  const QModelIndex seen = grid->model()->index(0, 3), unseen = grid->model()->index(299, 3);
  EXPECT_EQ(seen.data().toString(), "1");
  grid->Fige(true);
  EXPECT_EQ(seen.data().toString(), "1") << "its picture stays";
  EXPECT_EQ(unseen.data().toString(), "");
  grid->Fige(false);
  EXPECT_EQ(unseen.data().toString(), "300");
}

TEST(Attente, CellsThatAPaintingLackedAreReadBehindIt) {
  Waiting m;
  m.form->Commande([&] {
    m.state.document.Fichier.NomFichier = m.Fichier(Form1Machine::Lignes(300), "b.deg");
    LitDeg(m.form->Commandes(), m.state.document.Fichier.NomFichier, MergeMode::Replace);
  });
  auto* grid = m.Controle<TDBGrid>("TDBGrid1");
  QSignalSpy changed(grid->model(), &QAbstractItemModel::dataChanged);
  grid->Fige(true);
  EXPECT_EQ(grid->model()->index(299, 3).data().toString(), "");
  grid->Fige(false);
  QCoreApplication::processEvents();
  EXPECT_EQ(changed.count(), 1);
}

TEST(Attente, NothingWaitsUnderABoxOfTheCommand) {
  Waiting m;
  Busy busy(m.Vue());
  busy.Annulable();
  m.Travaille(2300);
  ASSERT_NE(m.Annulation(), nullptr);
  {
    QDialog box(m.form.get());
    box.setModal(true);
    box.show();
    EXPECT_EQ(m.Annulation(), nullptr);
    EXPECT_FALSE(m.Message().isVisible());
  }
  m.Travaille(200);
  EXPECT_NE(m.Annulation(), nullptr) << "the work goes on";
}

TEST(Attente, AWindowThatTheCommandAskedForStaysUnderItsBox) {
  Waiting m;
  Busy busy(m.Vue());
  busy.Message("Saving...");
  QDialog box(m.form.get());
  box.setModal(true);
  box.show();
  EXPECT_TRUE(m.Message().isVisible());
}

TEST(Attente, WorkHasItsNameWithoutAskingForTheWindow) {
  Waiting m;
  const Busy busy(m.Vue());
  m.Vue().NommeTravail("Opening...\nDATUM.MDB");
  EXPECT_FALSE(m.Message().isVisible());
  m.Travaille(100);
  EXPECT_TRUE(m.Message().isVisible());
  EXPECT_EQ(m.Controle<QLabel>("lblMsg")->text(), "Opening...\nDATUM.MDB");
}

TEST(Attente, StaysBehindABoxOfTheCommand) {
  Waiting m;
  const Busy busy(m.Vue());
  QDialog box(m.form.get());
  box.setModal(true);
  box.show();
  m.Travaille(200);
  EXPECT_FALSE(m.Message().isVisible());
  box.hide();
  m.Travaille(200);
  EXPECT_TRUE(m.Message().isVisible());
}

TEST(Attente, BetweenTwoTenthsTheBarGoesOnShortOfTheNext) {
  Waiting m;
  Busy busy(m.Vue());
  busy.Barre();
  m.Travaille(200);
  busy.Montre(10);
  m.Travaille(120);
  EXPECT_GT(m.Barre().value(), 10);
  m.Travaille(400);
  EXPECT_EQ(m.Barre().value(), 19);
}

TEST(Attente, ProgressIsClampedToWholePercents) {
  Form1Machine m;
  const auto* bar = m.Controle<QProgressBar>("ProgressBar1");
  for (const auto& [percent, shown] :
       {std::pair{-5.0, 0}, {49.9, 49}, {100.0, 100}, {250.0, 100}}) {
    m.form->Contexte().attente.MontreProgression(percent);
    EXPECT_EQ(bar->value(), shown) << percent;
  }
}

TEST(Attente, TheWaitWindowGrowsWithItsText) {
  Form1Machine m;
  m.form->Charge({});
  WaitView& attente = m.form->Contexte().attente;
  attente.AfficheMessage("Opening...");
  auto* window = m.Controle<QWidget>("frmMessage");
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(window->isModal());
  const int small = window->height();
  attente.AfficheMessage("Opening...\r\n" + std::string(400, 'x') + "\r\n\r\n\r\n\r\nend");
  QApplication::processEvents();
  EXPECT_GT(window->height(), small);
  attente.FermeMessage();
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace talpena

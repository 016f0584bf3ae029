#include "interchange/windows/rehearsal_pane.h"

#include <gtest/gtest.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <ctime>

#include "common/msg_id_import.h"
#include "common/string_table.h"
#include "interchange/listed_records.h"
#include "interchange/rehearsal_words.h"
#include "platform/qt/controls.h"
#include "store/coords_world.h"

namespace talpena::test {
namespace {

class RehearsalPaneTest : public ::testing::Test, protected CoordsWorld {
 protected:
  RehearsalPaneTest() {
    state.Langue = 1000;
    auto* layout = new QVBoxLayout(&dialog);
    pane = new RehearsalPane(state, &dialog);
    layout->addWidget(pane);
    dialog.resize(900, 500);
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    view = Enfant<QTableView>("lstRepetition");
  }
  template <typename Widget>
  Widget* Enfant(const char* name) {
    auto* widget = pane->findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Repete(RehearsalPlan plan) {
    pane->Repete(std::move(plan));
    ASSERT_TRUE(QTest::qWaitFor([this] { return pane->EstFinie(); }, 20000));
  }
  std::string Texte(const char* label) { return Enfant<QLabel>(label)->text().toStdString(); }
  QString Cellule(int row, std::size_t column) const {
    return view->model()->index(row, static_cast<int>(column)).data().toString();
  }
  static Records Trois() {
    return {Fiche("deg +50.00000 +004.00000"), Fiche("deg +95.00000 +004.00000"),
            Fiche("deg +50.10000 +004.10000")};
  }

  QWidget dialog;
  RehearsalPane* pane;
  QTableView* view;
};

TEST_F(RehearsalPaneTest, SaysWhatItIsForWhileThereIsNoFile) {
  EXPECT_TRUE(Texte("lblComptes").starts_with("Choose a file"));
  EXPECT_EQ(view->model()->rowCount(), 0);
  EXPECT_FALSE(Enfant<QPushButton>("cmdProbleme")->isEnabled());
  EXPECT_FALSE(Enfant<QPushButton>("cmdCopier")->isEnabled());
}

TEST_F(RehearsalPaneTest, ShowsCountsAndRows) {
  Repete(PlanDe(Trois()));
  EXPECT_EQ(
      Texte("lblComptes"),
      "Rows that enter: 3; left out: 0; without a point: 1; further than 500\u00a0km from all "
      "others: 0.");
  ASSERT_EQ(view->model()->rowCount(), 3);
  EXPECT_EQ(Cellule(0, RehearsalColumn::Original), "deg +50.00000 +004.00000");
  EXPECT_EQ(Cellule(0, RehearsalColumn::Latitude), "50.00000");
  EXPECT_EQ(Cellule(1, RehearsalColumn::Fate),
            "enters without a point: the latitude 95° lies beyond 90°");
  EXPECT_FALSE(Enfant<QLabel>("lblArret")->isVisible());
}

TEST_F(RehearsalPaneTest, ShowsTheNumbersThatMayHaveNoRoom) {
  Records records = Trois();
  records[0].row.n1 = 100000;
  RehearsalPlan plan = PlanDe(records);
  plan.system = CoordSystem::Deg;
  Repete(std::move(plan));
  EXPECT_TRUE(Cellule(0, RehearsalColumn::Fate).startsWith("no room for its numbers"));
  EXPECT_FALSE(view->isColumnHidden(RehearsalColumn::Number1));
  EXPECT_EQ(Cellule(0, RehearsalColumn::Number1), "100000");
  EXPECT_EQ(Cellule(0, RehearsalColumn::Number2), "");
}

TEST_F(RehearsalPaneTest, WaypointsHaveNoColumnsForNumbers) {
  Repete(PlanDe(Trois()));
  EXPECT_TRUE(view->isColumnHidden(RehearsalColumn::Number1));
  EXPECT_TRUE(view->isColumnHidden(RehearsalColumn::Number2));
}

TEST_F(RehearsalPaneTest, TheColumnsFillTheList) {
  Repete(PlanDe(Trois()));
  for (const int width : {1200, 1000, 1100}) {
    dialog.resize(width, 500);
    EXPECT_TRUE(QTest::qWaitFor([this] {
      const int gap = view->viewport()->width() - view->horizontalHeader()->length();
      return gap == 0;
    })) << width;
  }
}

// What stands there is the longest text of the row, and nothing else does.
TEST_F(RehearsalPaneTest, WhatBecomesOfALineTakesTheEmptyCellsBesideIt) {
  constexpr auto fate = static_cast<int>(RehearsalColumn::Fate);
  Records records(300, Fiche("deg +50.00000 +004.00000"));
  records[1] = records[299] = FicheOmise(500);
  Repete(PlanDe(records, TalpenaError(ErrorNumber::Overflow, "Overflow").SurLigne(301)));
  const int all = view->model()->columnCount() - fate;
  EXPECT_EQ(view->columnSpan(0, fate), 1);
  EXPECT_EQ(view->columnSpan(1, fate), all);
  view->scrollToBottom();
  EXPECT_EQ(view->columnSpan(299, fate), all);
  EXPECT_EQ(view->columnSpan(300, fate), all) << "where the import ends";
  EXPECT_FALSE(view->model()->index(299, fate).data(Qt::ToolTipRole).toString().isEmpty());
}

TEST_F(RehearsalPaneTest, AllWordsOfAProblemStandBelowTheList) {
  Records records = Trois();
  records[0].row.n1 = 100000;
  Repete(PlanDe(records));
  EXPECT_FALSE(Enfant<QLabel>("lblSort")->isVisible());
  QTest::keyClick(pane->window(), Qt::Key_F8);
  EXPECT_EQ(Texte("lblSort"), talpena::Texte(1000, MsgId::SortSansPlace));
  EXPECT_TRUE(Enfant<QLabel>("lblSort")->isVisible());
  view->selectRow(2);
  EXPECT_FALSE(Enfant<QLabel>("lblSort")->isVisible()) << "it enters";
  view->selectRow(1);
  Repete(PlanDe(Trois()));
  EXPECT_FALSE(Enfant<QLabel>("lblSort")->isVisible()) << "another list";
}

TEST_F(RehearsalPaneTest, TheNextProblemIsOneKeyAway) {
  Records records(40, Fiche("deg +50.00000 +004.00000"));
  records[30] = Fiche("deg +95.00000 +004.00000");
  records[35] = FicheOmise(500);
  Repete(PlanDe(records));
  for (const int row : {30, 35, 30}) {
    QTest::keyClick(pane->window(), Qt::Key_F8);
    EXPECT_EQ(view->currentIndex().row(), row);
    EXPECT_TRUE(view->hasFocus());
  }
}

TEST_F(RehearsalPaneTest, TheEndOfTheImportStandsAboveAndInTheList) {
  Repete(PlanDe(Trois(), TalpenaError(ErrorNumber::Overflow, "Overflow").SurLigne(4)));
  EXPECT_TRUE(Texte("lblArret")
                  .starts_with("The import would end on the way, and the rows before "
                               "(3) would stay"))
      << Texte("lblArret");
  ASSERT_EQ(view->model()->rowCount(), 4);
  EXPECT_EQ(Cellule(3, RehearsalColumn::Line), "4");
  for (const int row : {1, 3, 1}) {
    QTest::keyClick(pane->window(), Qt::Key_F8);
    EXPECT_EQ(view->currentIndex().row(), row);
  }
}

TEST_F(RehearsalPaneTest, ChosenRowsAreCopiedByTheKey) {
  Repete(PlanDe(Trois()));
  view->setFocus();
  view->selectRow(2);
  QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            "3\tenters\t3\tdeg +50.10000 +004.10000\t50.10000\t4.10000\t\t\t1998/07/14\tseen\n");
}

TEST_F(RehearsalPaneTest, AllIsCopiedByTheButton) {
  Repete(PlanDe(Trois()));
  Enfant<QPushButton>("cmdCopier")->click();
  const QStringList lines = QApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 6);
  EXPECT_TRUE(lines[0].startsWith("Rows that enter: 3"));
  EXPECT_TRUE(lines[1].startsWith("Line\tWhat becomes of it\tPeriod"));
  EXPECT_TRUE(lines[4].startsWith("3\tenters"));
}

TEST_F(RehearsalPaneTest, AnotherFileStartsItAnew) {
  pane->Repete(PlanDe(Records(200000, Fiche("deg +50.00000 +004.00000"))));
  QCoreApplication::processEvents();
  EXPECT_FALSE(pane->EstFinie());
  Repete(PlanDe(Trois()));
  EXPECT_EQ(view->model()->rowCount(), 3);
  pane->Arrete();
  EXPECT_EQ(view->model()->rowCount(), 0);
  EXPECT_TRUE(Texte("lblComptes").starts_with("Choose a file"));
}

TEST_F(RehearsalPaneTest, GoesAwayInTheMidstOfItsWork) {
  pane->Repete(PlanDe(Records(200000, Fiche("deg +50.00000 +004.00000"))));
  QCoreApplication::processEvents();
  delete pane;
  QCoreApplication::processEvents();
}

TEST_F(RehearsalPaneTest, FollowsTheLanguage) {
  Repete(PlanDe(Trois()));
  for (const std::int16_t langue : std::array<std::int16_t, 5>{0, 1000, 3000, 4000, 5000}) {
    state.Langue = langue;
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&dialog, &change);
    EXPECT_EQ(Texte("lblTitreRepetition"), talpena::Texte(langue, MsgId::Repetition));
    EXPECT_EQ(view->model()->headerData(0, Qt::Horizontal).toString().toStdString(),
              talpena::Texte(langue, MsgId::RepetitionLigne));
    EXPECT_EQ(Cellule(0, RehearsalColumn::Fate), EnQt(talpena::Texte(langue, MsgId::SortEntre)));
  }
  QTest::keyClick(pane->window(), Qt::Key_F8);
  EXPECT_EQ(view->currentIndex().row(), 1);
}

TEST_F(RehearsalPaneTest, ShowsTheNotesOfTheDialog) {
  EXPECT_FALSE(Enfant<QLabel>("lblNotes")->isVisible());
  pane->MontreNotes({"one", "two"});
  EXPECT_EQ(Texte("lblNotes"), "one\ntwo");
  EXPECT_TRUE(Enfant<QLabel>("lblNotes")->isVisible());
}

TEST_F(RehearsalPaneTest, SaysWhenTheFileHasNoDatum) {
  Entete(state.document)->DatumFichier = 0;
  Repete(PlanDe(Trois()));
  EXPECT_EQ(Texte("lblNotes"), talpena::Texte(1000, MsgId::RepetitionSansDatum));
}

// A heartbeat of the dialog: its longest pause is the longest that a key would wait. Time of the
// processor, since the machine may be busy; sanitized builds are slower than what the bench
// measures.
TEST_F(RehearsalPaneTest, TheDialogStaysAlive) {
  std::clock_t last = std::clock(), longest = 0;
  QTimer beat;
  QObject::connect(&beat, &QTimer::timeout, [&] {
    longest = std::max(longest, std::clock() - last);
    last = std::clock();
  });
  beat.start(0);
  Repete(PlanDe(Records(20000, Fiche("deg +50.00000 +004.00000"))));
  EXPECT_LT(longest, CLOCKS_PER_SEC / 4);
  EXPECT_EQ(view->model()->rowCount(), 20000);
}

}  // namespace
}  // namespace talpena::test

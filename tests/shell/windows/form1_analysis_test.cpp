// Statistics and charts from the menu of the main window, on the grid's own rows.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTableWidget>

#include "analysis/windows/frm_graphique.h"
#include "fakes/dialog_driver.h"
#include "form1_machine.h"
#include "platform/qt/chart/chart_plot.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

using test::DialogDriver;

/// A file of three rows is open.
struct AnalysisForm : test::Form1Machine {
  AnalysisForm() {
    EXPECT_TRUE(form->Charge(Fichier(Lignes(3))));
    state.document.OublieModifications();
  }
};

constexpr std::array entries = {"MnuParametres", "mnustd_0",     "mnustd_1",
                                "mnuAnalyse_0",  "mnuAnalyse_1", "mnuPhenolo",
                                "mnuResume",     "mnuDecades",   "mnuAnnees"};

TEST(Form1Analysis, NeedsAFile) {
  test::Form1Machine m;
  m.form->Charge({});
  for (const char* entry : entries) EXPECT_FALSE(m.Entree(entry)->isEnabled()) << entry;
  AnalysisForm open;
  for (const char* entry : entries) EXPECT_TRUE(open.Entree(entry)->isEnabled()) << entry;
}

TEST(Form1Analysis, ChartsOpenTheChartWindowWithTheirPoints) {
  AnalysisForm m;
  for (const auto& [entry, points] : {std::pair{"mnuPhenolo", 12}, std::pair{"mnuDecades", 36}}) {
    int shown = 0;
    const DialogDriver driver("frmGraphique", [&](QDialog& dialog) {
      shown = dialog.findChild<ChartPlot*>()->Image().numPoints;
      dialog.reject();
    });
    m.Entree(entry)->trigger();
    EXPECT_EQ(shown, points) << entry;
  }
}

TEST(Form1Analysis, TheSummaryOpensItsTable) {
  AnalysisForm m;
  int rows = 0;
  const DialogDriver driver("frmResume", [&](QDialog& dialog) {
    rows = dialog.findChild<QTableWidget*>()->rowCount();
    dialog.reject();
  });
  m.Entree("mnuResume")->trigger();
  EXPECT_GE(rows, 4);
}

TEST(Form1Analysis, StandardisingShowsTheNewNumbersAndMarksTheFile) {
  AnalysisForm m;
  m.Entree("mnustd_1")->trigger();
  ASSERT_EQ(m.dialogues.boxes.size(), 1U);
  EXPECT_EQ(m.dialogues.boxes[0].text, "Moyenne N1=2\rSTD N1=1");
  const auto* grid = m.Controle<TDBGrid>("TDBGrid1")->model();
  EXPECT_EQ(grid->index(0, 3).data().toString(), "-1");
  EXPECT_TRUE(m.state.document.FichierModifie());
}

TEST(Form1Analysis, ClosingTheMainWindowClosesAChartFirst) {
  AnalysisForm m;
  const DialogDriver driver("frmGraphique", [&](QDialog& dialog) {
    m.form->close();
    EXPECT_FALSE(dialog.isVisible());
  });
  m.Entree("mnuPhenolo")->trigger();
}

}  // namespace
}  // namespace talpena

// The window of the summary.
#include "analysis/windows/frm_resume.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "analysis/number_rows.h"

namespace talpena::test {
namespace {

class SummaryWindow : public testing::Test, protected NumberWorld {
 protected:
  SummaryWindow() {
    Montre({{1, 1, 50, 4, "1999/05/01", 1, "F"}, {2, 1, 50, 4, "1999/05/01", 2, "F"}});
    window = std::make_unique<frmResume>(state, io, ResumeLignes(context), "/moles");
    window->show();
  }
  QTableWidget& Table() { return *window->findChild<QTableWidget*>(QStringLiteral("Grid")); }
  void Presse(const char* button) {
    QTest::mouseClick(window->findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
  }

  std::unique_ptr<frmResume> window;
};

TEST_F(SummaryWindow, ShowsALineForEachGroupAndValue) {
  EXPECT_EQ(Table().rowCount(), 12) << "all rows and two periods, four values each";
  EXPECT_EQ(Table().columnCount(), 11);
  EXPECT_EQ(Table().horizontalHeaderItem(6)->text(), "Median");
  EXPECT_EQ(Table().item(0, 6)->text(), "1.5");
  EXPECT_EQ(Table().item(4, 0)->text(), "Period 1");
  EXPECT_EQ(window->findChild<QLabel*>("lblRemarque")->text(), "Rows counted: 2 (all)");
  EXPECT_EQ(window->windowTitle(), "Summary");
}

TEST_F(SummaryWindow, CopiesTheWholeTableWithTabs) {
  Presse("cmdCopier");
  const QString copied = QApplication::clipboard()->text();
  EXPECT_TRUE(copied.startsWith("Rows\tValue\tn\t"));
  EXPECT_EQ(copied.count('\n'), 13);
}

TEST_F(SummaryWindow, SavesItWithCommas) {
  dialogues.paths = {"/out/summary.csv"};
  Presse("cmdNombres");
  EXPECT_TRUE(files.Contenu("/out/summary.csv").starts_with("Rows,Value,n,"));
  EXPECT_EQ(dialogues.fileDialogs.back().folder, "/moles");
}

TEST_F(SummaryWindow, FollowsTheLanguage) {
  state.Langue = 0;
  QEvent event(QEvent::LanguageChange);
  QApplication::sendEvent(window.get(), &event);
  EXPECT_EQ(Table().horizontalHeaderItem(6)->text(), "Médiane");
}

}  // namespace
}  // namespace talpena::test

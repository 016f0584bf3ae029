#include "interchange/windows/waypoint_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

namespace talpena {
namespace {

/// A list of waypoints in a window of its own.
class WaypointViewTest : public testing::Test {
 protected:
  void Ouvre(const std::vector<std::string>& names) {
    text_.captions = {"Header", "Name", "Description"};
    for (std::size_t i = 0; i < names.size(); ++i) {
      const std::string line = "Waypoint\t" + names[i] + "\tplace " + std::to_string(i % 3);
      text_.items.Ajoute(line, static_cast<std::int64_t>(i) + 6);
    }
    list_.Points().Montre(text_);
    list_.resize(600, 300);
    list_.show();
    list_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list_));
    list_.setFocus();
    list_.setCurrentIndex(list_.model()->index(0, 0));
  }
  std::vector<std::string> Noms() const {
    std::vector<std::string> names;
    for (int i = 0; i < list_.model()->rowCount(); ++i) names.push_back(Nom(i));
    return names;
  }
  std::string Nom(int row) const {
    return list_.model()->index(row, 1).data().toString().toStdString();
  }
  /// The names of the checked ones, in the order of the list.
  std::string Coches() const {
    std::string names;
    for (int i = 0; i < list_.model()->rowCount(); ++i) {
      if (list_.model()->index(i, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked)
        names += Nom(i);
    }
    return names;
  }
  void CliqueTitre(int column) {
    QHeaderView* header = list_.header();
    const QPoint middle(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
  }

  MapSourceText text_;
  WaypointView list_;
};

TEST_F(WaypointViewTest, ShowsEveryPointCheckedUnderTheCaptionsOfTheFile) {
  Ouvre({"A", "B", "C"});
  EXPECT_EQ(list_.model()->columnCount(), 3);
  EXPECT_EQ(list_.model()->headerData(0, Qt::Horizontal).toString(), "Header");
  EXPECT_EQ(list_.model()->headerData(2, Qt::Horizontal).toString(), "Description");
  EXPECT_EQ(list_.model()->index(1, 0).data().toString(), "Waypoint");
  EXPECT_EQ(list_.model()->index(1, 2).data().toString(), "place 1");
  EXPECT_EQ(Coches(), "ABC");
}

TEST_F(WaypointViewTest, SelectsWholeLinesAndSeveralOfThem) {
  Ouvre({"A", "B", "C"});
  QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(list_.selectionModel()->selectedRows().size(), 2);
  EXPECT_EQ(list_.selectionModel()->selectedIndexes().size(), 6);
}

TEST_F(WaypointViewTest, SpaceTurnsTheChecksOfTheSelectedLines) {
  Ouvre({"A", "B", "C", "D"});
  QSignalSpy changes(&list_.Points(), &WaypointModel::Change);
  QTest::keyClick(&list_, Qt::Key_Space);
  EXPECT_EQ(Coches(), "BCD");
  QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&list_, Qt::Key_Space);
  EXPECT_EQ(Coches(), "D") << "all three take the new state of the line with the cursor";
  QTest::keyClick(&list_, Qt::Key_Space);
  EXPECT_EQ(Coches(), "ABCD");
  EXPECT_EQ(changes.count(), 3) << "once for each key, not for each line";
}

TEST_F(WaypointViewTest, SpaceTurnsTheLineWithTheCursorWhenItIsNotSelected) {
  Ouvre({"A", "B", "C"});
  list_.selectionModel()->clearSelection();
  QTest::keyClick(&list_, Qt::Key_Space);
  EXPECT_EQ(Coches(), "BC");
}

TEST_F(WaypointViewTest, AClickOnTheBoxTurnsThatCheck) {
  Ouvre({"A", "B", "C"});
  const QRect line = list_.visualRect(list_.model()->index(1, 0));
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, {line.left() + 8, line.center().y()});
  EXPECT_EQ(Coches(), "AC");
}

TEST_F(WaypointViewTest, ChecksTheSelectedLinesAndLeavesTheOthers) {
  Ouvre({"A", "B", "C"});
  QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
  list_.CocheChoisies(false);
  EXPECT_EQ(Coches(), "C");
  list_.CocheChoisies(true);
  EXPECT_EQ(Coches(), "ABC");
}

TEST_F(WaypointViewTest, AClickOnACaptionSortsAndASecondOneReverses) {
  Ouvre({"beta", "Alpha", "gamma", "alpha"});
  const std::vector<std::string> ascending = {"Alpha", "alpha", "beta", "gamma"};
  CliqueTitre(1);
  EXPECT_EQ(Noms(), ascending) << "capitals make no difference";
  CliqueTitre(1);
  EXPECT_EQ(Noms(), (std::vector<std::string>{"gamma", "beta", "Alpha", "alpha"}));
  EXPECT_EQ(list_.header()->sortIndicatorOrder(), Qt::DescendingOrder);
  CliqueTitre(2);
  CliqueTitre(1);
  EXPECT_EQ(Noms(), (std::vector<std::string>{"alpha", "Alpha", "beta", "gamma"}))
      << "another column first: equal names stand as that left them";
}

TEST_F(WaypointViewTest, ChecksAndSelectionGoWithTheirLines) {
  Ouvre({"C", "B", "A"});
  QTest::keyClick(&list_, Qt::Key_Space);
  CliqueTitre(1);
  EXPECT_EQ(Noms(), (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(Coches(), "AB");
  ASSERT_EQ(list_.selectionModel()->selectedRows().size(), 1);
  EXPECT_EQ(list_.selectionModel()->selectedRows().front().row(), 2);
  const std::vector<WaypointChoice>& choice = list_.Points().Choix();
  ASSERT_EQ(choice.size(), 3U);
  EXPECT_EQ(choice[2].item, 0U) << "the import goes through them as they stand";
  EXPECT_FALSE(choice[2].checked);
}

TEST_F(WaypointViewTest, SortsByTheKeyboard) {
  Ouvre({"b", "a"});
  QTest::keyClick(&list_, Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(Noms(), (std::vector<std::string>{"a", "b"}));
  QTest::keyClick(&list_, Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(Noms(), (std::vector<std::string>{"b", "a"}));
  QTest::keyClick(&list_, Qt::Key_9, Qt::ControlModifier);  // no ninth column
  EXPECT_EQ(Noms(), (std::vector<std::string>{"b", "a"}));
}

TEST_F(WaypointViewTest, CutsWhatNobodyCouldRead) {
  Ouvre({std::string(1000000, 'x')});
  EXPECT_LE(list_.model()->index(0, 1).data().toString().size(), 500);
}

/// Work in proportion to the square of their number would not end here.
TEST_F(WaypointViewTest, UnchecksManyPointsSorted) {
  std::vector<std::string> names;
  for (int i = 0; i < 50000; ++i) names.push_back("point " + std::to_string(i * 7919 % 50000));
  Ouvre(names);
  CliqueTitre(1);
  list_.selectAll();
  QTest::keyClick(&list_, Qt::Key_Space);
  EXPECT_EQ(Coches(), "");
}

}  // namespace
}  // namespace talpena

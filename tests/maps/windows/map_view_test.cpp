// The presses of the mouse that a map takes.
#include "maps/windows/map_view.h"

#include <gtest/gtest.h>

#include "map_machine.h"

namespace talpena {
namespace {

using test::MapMachine;

TEST(MapView, TheSecondPressOfADoubleClickAddsNothing) {
  MapMachine m;
  m.Ouvre(m.Carte());
  m.Clique(Qt::LeftButton, 30, 40);
  QTest::mouseDClick(m.Vue(), Qt::LeftButton, {}, m.Point(30, 40));  // the second press alone
  MapMachine::Traite();
  EXPECT_EQ(m.Lignes().size(), 3U);
}

TEST(MapView, TheSecondPressOfTheRightButtonTakesAnotherRowBack) {
  MapMachine m;
  m.vue.selection = {1, 2};
  m.Ouvre(m.Carte());
  m.Clique(Qt::RightButton, 30, 40);
  QTest::mouseDClick(m.Vue(), Qt::RightButton, {}, m.Point(30, 40));
  MapMachine::Traite();
  EXPECT_TRUE(m.Lignes().empty());
}

}  // namespace
}  // namespace talpena

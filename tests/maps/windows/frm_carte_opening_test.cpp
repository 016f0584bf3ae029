// The window of the map is there before the rows, which may take their time.
#include <gtest/gtest.h>

#include "map_machine.h"

namespace talpena {
namespace {

using test::MapMachine;

TEST(FrmCarte, IsOnTheScreenWithItsPictureBeforeTheRows) {
  MapMachine m;
  m.Charge(m.Carte());
  m.form->show();
  const auto colour = [&m] {
    const QImage shown = m.Vue()->grab().toImage();
    return shown.pixel(m.Point(150, 100)) | 0xFF000000U;  // 50 N, 5 E
  };
  EXPECT_EQ(colour(), test::land);
  MapMachine::Traite();
  EXPECT_NE(colour(), test::land);
}

// The dialog comes up before the window was painted.
TEST(FrmCarte, DrawsTheRowsOfTheLastMapWhenNoOtherIsChosen) {
  MapMachine m;
  m.Charge(m.Carte());
  m.dialogues.paths = {""};
  m.form->show();
  m.form->OuvreCarte();
  MapMachine::Traite();
  const QImage shown = m.Vue()->grab().toImage();
  EXPECT_NE(shown.pixel(m.Point(150, 100)) | 0xFF000000U, test::land);
}

}  // namespace
}  // namespace talpena

// The application object paints in legible colours, from the start and after a change of the
// desktop's.
#include "shell/windows/application.h"

#include <gtest/gtest.h>

#include "fakes/dark_palette.h"
#include "platform/qt/legible_palette.h"

namespace talpena {
namespace {

TEST(ApplicationColours, AreLegibleFromTheStart) {
  EXPECT_EQ(PaletteLisible(QApplication::palette()), QApplication::palette());
}

TEST(ApplicationColours, StayLegibleWhenTheDesktopChanges) {
  const QPalette light = QApplication::palette();
  for (const QPalette& desktop : {test::PaletteSombre(), light}) {
    QApplication::setPalette(desktop);
    EXPECT_EQ(PaletteLisible(QApplication::palette()), QApplication::palette());
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), desktop.color(QPalette::Window));
  }
}

}  // namespace
}  // namespace talpena

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const talpena::Application application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

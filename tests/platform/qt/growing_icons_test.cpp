// Icons of boxes and tools grow with the font beside them.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QToolButton>

#include "fakes/dialog_driver.h"
#include "platform/qt/controls.h"
#include "platform/qt/qt_dialogues.h"

namespace talpena {
namespace {

using test::DialogDriver;

/// For as long as it lives.
struct LargeFont {
  LargeFont() {
    QFont large = before;
    large.setPixelSize(2 * QFontInfo(before).pixelSize());
    QApplication::setFont(large);
  }
  LargeFont(const LargeFont&) = delete;
  LargeFont& operator=(const LargeFont&) = delete;
  ~LargeFont() { QApplication::setFont(before); }
  QFont before = QApplication::font();
};

TEST(GrowingIcons, TheSignOfABoxGrowsWithTheFont) {
  QtDialogues dialogues;
  const auto side = [&dialogues](Icon icon) {
    int width = 0;
    const DialogDriver driver("MessageBox", [&](QDialog& dialog) {
      const auto* sign = dialog.findChild<QLabel*>("qt_msgboxex_icon_label");
      width = qRound(sign->pixmap().deviceIndependentSize().width());
      EXPECT_NE(dynamic_cast<QMessageBox&>(dialog).icon(), QMessageBox::NoIcon) << "its meaning";
      dialog.close();
    });
    dialogues.Demande({.text = "?", .icon = icon});
    return width;
  };
  for (const Icon icon : {Icon::Information, Icon::Question, Icon::Exclamation, Icon::Stop}) {
    const int normal = side(icon);
    EXPECT_GT(normal, 0);
    const LargeFont large;
    EXPECT_GT(side(icon), normal * 3 / 2);
  }
}

TEST(GrowingIcons, ToolsGrowWithTheFont) {
  QWidget window;
  const QToolButton* tool = Outil(&window, "cmd");
  const int normal = tool->iconSize().width();
  EXPECT_GE(normal, 20);
  const LargeFont large;
  window.setFont(QApplication::font());
  const QToolButton* larger = Outil(&window, "cmd2");
  EXPECT_GT(larger->iconSize().width(), normal * 3 / 2);
  EXPECT_GT(tool->iconSize().width(), normal * 3 / 2) << "one that is there already, too";
}

}  // namespace
}  // namespace talpena

// What holds for every window of the program, in every language.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalBlocker>

#include "fakes/cut_texts.h"
#include "pictures/gallery.h"
#include "shell/windows/form1_machine.h"

namespace talpena::test {
namespace {

constexpr int languages[] = {0, 1, 3, 4, 5};

/// Parametrised by the size of the letters, points.
class AllWindows : public Form1Machine, public ::testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    QFont font = font_;
    font.setPointSize(GetParam());
    QApplication::setFont(font);
    form = std::make_unique<Form1>(state, io);
    ASSERT_TRUE(form->Charge(Fichier(Lignes(12))));
    form->resize(1600, 900);
  }
  void TearDown() override { QApplication::setFont(font_); }

  /// Calls `look` with the main window and every other one, on show, in each language.
  template <typename Look>
  void Regarde(Look look) {
    for (const int language : languages) {
      MnuLang_Click(form->Contexte(), language);
      const std::string where = " in language " + std::to_string(language);
      Montre(*form, "main" + where, look);
      for (const GalleryWindow& entry : ToutesLesFenetres()) {
        const auto window = entry.cree(form->Contexte());
        Montre(*window, entry.name + where, look);
      }
    }
  }

 private:
  template <typename Look>
  static void Montre(QWidget& window, const std::string& name, Look look) {
    SCOPED_TRACE(name);
    window.show();
    // Each level of nested layouts takes its size one round later when the machine is busy.
    for (int round = 0; round < 6; ++round) QCoreApplication::processEvents();
    look(window);
    window.hide();
  }

  QFont font_ = QApplication::font();
};

// The desktop's own size, and that of people who want larger letters.
INSTANTIATE_TEST_SUITE_P(Points, AllWindows, ::testing::Values(9, 14));

TEST(CutTexts, AreFound) {
  QWidget window;
  QLabel label(QStringLiteral("Original coordinates"), &window);
  QPushButton button(QStringLiteral("Original coordinates"), &window);
  QComboBox list(&window);
  list.addItem(QStringLiteral("Original coordinates"));
  for (QWidget* child : window.findChildren<QWidget*>()) child->resize(400, 60);
  EXPECT_EQ(TextesCoupes(window), std::vector<std::string>{});
  for (QWidget* child : std::initializer_list<QWidget*>{&label, &button, &list}) {
    child->resize(60, 60);
  }
  EXPECT_EQ(TextesCoupes(window).size(), 3U);
}

TEST_P(AllWindows, CutNoText) {
  Regarde([](const QWidget& window) {
    for (const std::string& text : TextesCoupes(window)) ADD_FAILURE() << text;
  });
}

TEST_P(AllWindows, FitASmallScreen) {
  if (GetParam() > 9) GTEST_SKIP() << "larger letters may scroll";
  Regarde([](const QWidget& window) {
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    EXPECT_LE(least.width(), 1024);
    EXPECT_LE(least.height(), 720);
  });
}

TEST_P(AllWindows, NameEveryControlForScreenReaders) {
  Regarde([](const QWidget& window) {
    for (QWidget* child : window.findChildren<QWidget*>()) {
      const bool reached = child->focusPolicy() != Qt::NoFocus && child->isVisibleTo(&window) &&
                           !child->objectName().startsWith(QLatin1String("qt_"));
      if (!reached) continue;
      const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(child);
      ASSERT_NE(face, nullptr);
      EXPECT_FALSE(face->text(QAccessible::Name).isEmpty())
          << child->metaObject()->className() << " " << child->objectName().toStdString();
    }
  });
}

TEST_P(AllWindows, TakeNoLineBreakIntoABoxOfOneLine) {
  if (GetParam() > 9) GTEST_SKIP() << "the same boxes";
  static const QRegularExpression breaks(QStringLiteral("[\\r\\n\\v\\f\u0085\u2028\u2029]"));
  Regarde([](const QWidget& window) {
    for (auto* box : window.findChildren<QLineEdit*>()) {
      if (box->isReadOnly()) continue;
      const QSignalBlocker silent(box);
      const QString before = box->text();
      box->setText(QStringLiteral("1\r\n2\r3\n4\u20285"));
      EXPECT_FALSE(box->text().contains(breaks)) << box->objectName().toStdString();
      box->setText(before);
    }
  });
}

TEST_P(AllWindows, BearATitle) {
  Regarde([](const QWidget& window) {
    if (window.windowFlags().testFlag(Qt::FramelessWindowHint)) return;
    EXPECT_FALSE(window.windowTitle().isEmpty());
  });
}

}  // namespace
}  // namespace talpena::test

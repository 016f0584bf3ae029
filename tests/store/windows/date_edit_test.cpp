// The masked date of the record editor.
#include "store/windows/date_edit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace talpena {
namespace {

struct DateWindow : QWidget {
  DateWindow() {
    auto* column = new QVBoxLayout(this);
    column->addWidget(date = new DateEdit(this));
    column->addWidget(next = new QLineEdit(this));
    show();
    activateWindow();
    date->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
  }
  void Montre(const char* masque) const {
    date->ChangeMasque(QLatin1String(masque));
    date->selectAll();
  }
  std::string Masque() const { return date->Masque().toStdString(); }
  void Tape(const char* keys) const { QTest::keyClicks(date, QLatin1String(keys)); }
  DateEdit* date;
  QLineEdit* next;
};

struct TypedCase {
  const char* keys;
  const char* masque;
};

TEST(DateEdit, DigitsJumpOverTheSlashes) {
  constexpr TypedCase cases[] = {
      {"", "____/__/__"},          {"19980714", "1998/07/14"},   {"1998", "1998/__/__"},
      {"199807", "1998/07/__"},    {"1998/07/14", "1998/07/14"}, {"1998-7-4", "1998/07/4_"},
      {"1998.7.14", "1998/07/14"}, {"1998/7/", "1998/07/__"},    {"1998  14", "1998/__/14"},
      {"19  0714", "19__/07/14"},  {"abc1998", "1998/__/__"},    {"19980714999", "1998/07/14"},
      {"    07", "____/07/__"},    {"1998//", "1998/__/__"},     {"1998/7/4/", "1998/07/04"},
  };
  for (const TypedCase& c : cases) {
    SCOPED_TRACE(c.keys);
    const DateWindow w;
    w.Tape(c.keys);
    EXPECT_EQ(w.Masque(), c.masque);
  }
}

TEST(DateEdit, TypingReplacesADateThatTheKeysCameTo) {
  const DateWindow w;
  w.date->ChangeMasque(QStringLiteral("1998/07/14"));
  w.next->setFocus(Qt::TabFocusReason);
  w.date->setFocus(Qt::BacktabFocusReason);
  w.Tape("2003");
  EXPECT_EQ(w.Masque(), "2003/__/__");
}

TEST(DateEdit, BackspaceAndDeleteEmptyPlaces) {
  const DateWindow w;
  w.Montre("1998/07/14");
  w.date->end(false);
  QTest::keyClick(w.date, Qt::Key_Backspace);
  EXPECT_EQ(w.Masque(), "1998/07/1_");
  QTest::keyClick(w.date, Qt::Key_Backspace);
  QTest::keyClick(w.date, Qt::Key_Backspace);
  EXPECT_EQ(w.Masque(), "1998/0_/__");
  w.date->home(false);
  QTest::keyClick(w.date, Qt::Key_Delete);
  EXPECT_EQ(w.Masque(), "_998/0_/__");
  w.date->selectAll();
  QTest::keyClick(w.date, Qt::Key_Delete);
  EXPECT_EQ(w.Masque(), "____/__/__");
}

TEST(DateEdit, ALoneDigitIsMadeTwoWhenTheFieldIsLeft) {
  const DateWindow w;
  w.Tape("1998074");
  w.next->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(w.Masque(), "1998/07/04");
}

TEST(DateEdit, LeavesAStoredDateAsItIs) {
  const DateWindow w;
  const QSignalSpy edited(w.date, &QLineEdit::textEdited);
  w.Montre("199_/7_/__");
  w.next->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(w.Masque(), "199_/7_/__");
  EXPECT_EQ(edited.count(), 0);
  w.date->ChangeMasque(QStringLiteral("summer 98."));
  EXPECT_EQ(w.Masque(), "summer 98.");
}

TEST(DateEdit, TellsOfEveryChangeByTheUser) {
  const DateWindow w;
  const QSignalSpy edited(w.date, &QLineEdit::textEdited);
  w.Tape("1");
  EXPECT_EQ(edited.count(), 1);
  w.Tape(" ");
  EXPECT_EQ(edited.count(), 2);
  w.date->ChangeMasque(QStringLiteral("1998/07/14"));
  EXPECT_EQ(edited.count(), 2);
}

struct WrittenCase {
  const char* text;
  const char* masque;
};

constexpr WrittenCase written[] = {
    {"1998/07/14", "1998/07/14"},
    {"1998-7-14", "1998/07/14"},
    {" 1998.7.4 ", "1998/07/04"},
    {"14.7.1998", "1998/07/14"},
    {"14/07/1998", "1998/07/14"},
    {"14. 7. 1998", "1998/07/14"},
    {"19980714", "1998/07/14"},
    {"1998-7", "1998/07/__"},
    {"1998", "1998/__/__"},
    {"199_/__/__", "199_/__/__"},
    {"1998 7 14", "1998/07/14"},
    {"July 1998", ""},
    {"", ""},
    {"98-7-14", ""},
    {"1998-7-14-5", ""},
};

TEST(DateTapee, ReadsDatesAsPeopleWriteThem) {
  for (const WrittenCase& c : written) {
    EXPECT_EQ(DateTapee(QLatin1String(c.text)).toStdString(), c.masque) << c.text;
  }
}

TEST(DateEdit, PastesDatesAsPeopleWriteThem) {
  for (const WrittenCase& c : written) {
    if (*c.masque == '\0') continue;
    SCOPED_TRACE(c.text);
    const DateWindow w;
    const QSignalSpy edited(w.date, &QLineEdit::textEdited);
    QApplication::clipboard()->setText(QLatin1String(c.text));
    QTest::keyClick(w.date, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.Masque(), c.masque);
    EXPECT_EQ(edited.count(), 1);
  }
}

TEST(DateEdit, PastesFromItsMenu) {
  const DateWindow w;
  QApplication::clipboard()->setText(QStringLiteral("14.7.1998"));
  QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3),
                          w.date->mapToGlobal(QPoint(3, 3)));
  QApplication::sendEvent(w.date, &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  for (QAction* action : menu->actions()) {
    if (action->text().contains(QLatin1String("Paste"))) action->trigger();
  }
  menu->close();
  EXPECT_EQ(w.Masque(), "1998/07/14");
}

TEST(DateEdit, TakesADroppedDate) {
  const DateWindow w;
  QMimeData data;
  data.setText(QStringLiteral("1998-7-14"));
  QDragEnterEvent enter({3, 3}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(w.date, &enter);
  QDropEvent drop(QPointF(3, 3), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(w.date, &drop);
  EXPECT_EQ(w.Masque(), "1998/07/14");
}

}  // namespace
}  // namespace talpena

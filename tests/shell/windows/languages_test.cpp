// The switch of language while windows are open.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <map>

#include "pictures/gallery.h"
#include "platform/qt/qt_dialogues.h"
#include "shell/windows/form1_machine.h"

namespace talpena::test {
namespace {

constexpr int languages[] = {0, 3, 4, 5, 1};

using Captions = std::map<std::string, std::string>;

/// What a window says: its title and every caption and accessible name in it, by control.
Captions LitLegendes(const QWidget& window) {
  Captions captions = {{"title", window.windowTitle().toStdString()}};
  for (const QWidget* child : window.findChildren<QWidget*>()) {
    if (child->objectName().isEmpty()) continue;
    const std::string name = child->objectName().toStdString();
    captions[name + " is called"] = child->accessibleName().toStdString();
    captions[name + " hints"] = child->toolTip().toStdString();
    QString text;
    if (const auto* label = qobject_cast<const QLabel*>(child)) text = label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(child)) text = button->text();
    if (const auto* frame = qobject_cast<const QGroupBox*>(child)) text = frame->title();
    if (const auto* list = qobject_cast<const QComboBox*>(child)) {
      for (int i = 0; i < list->count(); ++i) text += list->itemText(i) + '\n';
    }
    captions[name] = text.toStdString();
  }
  return captions;
}

class Languages : public testing::Test, protected Form1Machine {
 protected:
  void SetUp() override { ASSERT_TRUE(form->Charge(Fichier(Lignes(3)))); }
  void Parle(int index) { Entree(("MnuLang_" + std::to_string(index)).c_str())->trigger(); }
  std::unique_ptr<QWidget> Ouvre(const GalleryWindow& entry) {
    std::unique_ptr<QWidget> window = entry.cree(form->Contexte());
    window->show();
    return window;
  }
};

TEST_F(Languages, EveryOpenWindowFollowsTheSwitch) {
  for (const GalleryWindow& entry : ToutesLesFenetres()) {
    const std::string name = entry.name;
    if (name == "message" || name == "wait-cancel") continue;  // they say what a command told them
    SCOPED_TRACE(entry.name);
    const auto window = Ouvre(entry);
    const Captions english = LitLegendes(*window);
    for (const int language : languages) {
      SCOPED_TRACE(language);
      Parle(language);
      const Captions followed = LitLegendes(*window);
      EXPECT_EQ(followed, LitLegendes(*Ouvre(entry))) << "as one that is opened now";
      EXPECT_EQ(followed == english, language == 1);
    }
  }
}

TEST_F(Languages, AWindowThatBelongsToAnotherFollowsToo) {
  const GalleryWindow& about = ToutesLesFenetres().front();
  const std::unique_ptr<QWidget> window = Ouvre(about);
  window->setParent(form.get(), window->windowFlags());
  window->show();
  Parle(3);
  EXPECT_EQ(LitLegendes(*window), LitLegendes(*Ouvre(about)));
}

TEST_F(Languages, WhatTheUserTypedStays) {
  for (const GalleryWindow& entry : ToutesLesFenetres()) {
    SCOPED_TRACE(entry.name);
    Parle(1);
    const auto window = Ouvre(entry);
    std::map<QLineEdit*, QString> typed;
    for (auto* box : window->findChildren<QLineEdit*>()) {
      if (box->isReadOnly()) continue;
      box->setText("typed by the user");
      typed[box] = box->text();
    }
    for (const int language : languages) Parle(language);
    for (const auto& [box, text] : typed) {
      EXPECT_EQ(box->text(), text) << box->objectName().toStdString();
    }
  }
}

TEST_F(Languages, TheChosenEntryOfAListStays) {
  for (const GalleryWindow& entry : ToutesLesFenetres()) {
    const auto window = Ouvre(entry);
    for (auto* list : window->findChildren<QComboBox*>()) {
      if (list->count() == 0) list->addItems({"first", "second"});
      list->setCurrentIndex(list->count() - 2);
      Q_EMIT list->activated(list->currentIndex());  // as the user does
    }
    Parle(0);
    for (const auto* list : window->findChildren<QComboBox*>()) {
      EXPECT_EQ(list->currentIndex(), list->count() - 2) << list->objectName().toStdString();
    }
    Parle(1);
  }
}

TEST_F(Languages, SpanishLeavesOpenWindowsAlone) {
  const auto window = Ouvre(ToutesLesFenetres().front());
  const Captions english = LitLegendes(*window);
  Parle(2);
  EXPECT_EQ(LitLegendes(*window), english);
  EXPECT_EQ(state.Langue, 1000);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Feature unavailable in this version");
}

TEST_F(Languages, TheUsersOwnHeadingsAreNoCaptions) {
  state.LabelNumeric1 = "Nests";
  for (const int language : languages) {
    Parle(language);
    EXPECT_EQ(state.LabelNumeric1, "Nests");
    EXPECT_EQ(form->findChild<QAbstractItemView*>("TDBGrid1")
                  ->model()
                  ->headerData(3, Qt::Horizontal)
                  .toString(),
              "Nests");
  }
}

/// Puts up one of the toolkit's boxes, switches the language, looks, and closes it.
template <typename Shows, typename Looks>
void PendantUneBoite(Shows shows, Looks looks) {
  bool seen = false;
  QTimer::singleShot(0, [&] {
    QWidget* box = QApplication::activeModalWidget();
    ASSERT_NE(box, nullptr);
    looks(*box);
    seen = true;
    box->close();
  });
  shows();
  EXPECT_TRUE(seen);
}

TEST_F(Languages, BoxesThatAreUpFollowTheSwitch) {
  QtDialogues boxes;
  boxes.SuitLangue(state.Langue);
  PendantUneBoite([&] { boxes.Demande({.text = "Save file ?", .buttons = Buttons::YesNo}); },
                  [&](QWidget& box) {
                    const auto* yes = dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes);
                    EXPECT_EQ(yes->text(), "&Yes");
                    Parle(0);
                    EXPECT_TRUE(QTest::qWaitFor([&] { return yes->text() == "&Oui"; }));
                  });
  PendantUneBoite([&] { boxes.Saisie({.prompt = "Text"}); },
                  [&](QWidget& box) {
                    auto& input = dynamic_cast<QInputDialog&>(box);
                    Parle(3);
                    EXPECT_TRUE(QTest::qWaitFor(
                        [&] { return input.cancelButtonText().remove('&') == "Abbrechen"; }));
                  });
  Parle(1);
}

TEST_F(Languages, FileDialogsThatAreUpFollowTheSwitch) {
  QtDialogues boxes;
  boxes.SuitLangue(state.Langue);
  PendantUneBoite([&] { EXPECT_THROW(boxes.OuvreFichier({.filter = "All (*)|*"}), TalpenaError); },
                  [&](QWidget& box) {
                    auto& dialog = dynamic_cast<QFileDialog&>(box);
                    const QString english = dialog.labelText(QFileDialog::FileName);
                    Parle(0);
                    EXPECT_TRUE(QTest::qWaitFor(
                        [&] { return dialog.labelText(QFileDialog::FileName) != english; }));
                  });
  Parle(1);
}

}  // namespace
}  // namespace talpena::test

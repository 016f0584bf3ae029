// The record editor over a real table and the shipped datums, used by its keys.
#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "store/coords_world.h"
#include "store/windows/date_edit.h"
#include "store/windows/edit_form.h"
#include "store/windows/free_fields_grid.h"

namespace talpena::test {

using Lines = std::vector<std::string>;

/// What a row holds unless a test says otherwise.
inline CoordsWorld::Row Rangee(const std::string& original = "mgr 31 U FR1664",
                               const std::string& comment = "a/b/remark") {
  return {"WGS84", original, "50.3", "3.9", comment};
}

struct FormMachine : CoordsWorld {
  /// A file with these rows, all of period 1, and free fields of these labels.
  explicit FormMachine(const std::vector<Row>& rows = {Rangee(), Rangee(), Rangee()},
                       const std::vector<std::string>& labels = {"Toponym", "Collector  "}) {
    for (const std::string& label : labels) {
      state.FreeFieldDefs.push_back({label, "STAT." + label, 0});
    }
    state.FreeFieldCount = static_cast<std::int16_t>(labels.size());
    state.NbPivots = 2;
    Montre(rows);
    state.WorkingDb->Execute("UPDATE TALPENA SET PERIOD = 1, N1 = 5, N2 = 6, SEX = 'F'");
    state.FichierModifie = false;
  }
  ~FormMachine() { form.reset(); }

  EditForm& Ouvre() {
    form = std::make_unique<EditForm>(state, io, vue);
    form->show();
    form->activateWindow();
    Traite();
    return *form;
  }

  /// What a key sets off is done in steps, each posted by the one before.
  static void Traite() {
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
  }

  template <typename Control>
  Control* Controle(const char* name) const {
    auto* control = form->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  QLineEdit* Champ(const char* name) const { return Controle<QLineEdit>(name); }
  std::string Texte(const char* name) const { return Champ(name)->text().toStdString(); }
  std::string Libelle(const char* name) const {
    return Controle<QLabel>(name)->text().toStdString();
  }
  QPushButton* Bouton(const char* name) const { return Controle<QPushButton>(name); }

  static std::string Focus() {
    const QWidget* widget = QApplication::focusWidget();
    return widget != nullptr ? widget->objectName().toStdString() : std::string();
  }
  void PlaceFocus(const char* name) const {
    Controle<QWidget>(name)->setFocus(Qt::TabFocusReason);
    Traite();
  }
  /// A key for whatever has the focus.
  static void Touche(int key, Qt::KeyboardModifiers modifiers = {}) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    Traite();
  }
  /// Letter by letter, since the first may open an editor.
  static void Tape(const char* text) {
    for (const QChar letter : QString::fromUtf8(text)) {
      ASSERT_NE(QApplication::focusWidget(), nullptr);
      QTest::keyClicks(QApplication::focusWidget(), letter);
    }
    Traite();
  }
  /// Replaces the text of a field, as a user who comes to it by the keys, and goes on by Enter.
  void Entre(const char* name, const char* text) {
    PlaceFocus(name);
    Tape(text);
    Touche(Qt::Key_Return);
  }

  std::unique_ptr<EditForm> form;
};

}  // namespace talpena::test

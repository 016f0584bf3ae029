// frmGeoQuery over a small gazetteer, used by its keys.
#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fakes/dialog_driver.h"
#include "gazetteer/geo_world.h"
#include "gazetteer/windows/frm_geo_query.h"
#include "gazetteer/windows/typed_pane.h"

namespace talpena::test {

struct GeoQueryMachine : GeoWorld {
  GeoQueryMachine() {
    state.GeoFipsField.clear();
    state.Silence = true;
  }
  ~GeoQueryMachine() { form.reset(); }

  /// Opens the dialog and lets `use` work with it; whether a place was chosen.
  bool Avec(const std::function<void()>& use) {
    if (!form) form = std::make_unique<frmGeoQuery>(geo);
    const DialogDriver driver("frmGeoQuery", [&](QDialog& dialog) {
      EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
      EXPECT_TRUE(QTest::qWaitFor([&] { return Tapes()->EstAuRepos(); }));
      use();
      if (dialog.isVisible()) dialog.reject();
    });
    return form->Cherche(ecran);
  }

  template <typename Control>
  Control* Controle(const char* name) const {
    auto* control = form->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  TypedPane* Tapes() const { return Controle<TypedPane>("TypedPane"); }
  /// What the keys type into txt.
  void Tape(const char* text) const {
    auto* txt = Controle<QLineEdit>("txt");
    txt->clear();
    for (const QChar letter : QString::fromUtf8(text)) {
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
      QApplication::sendEvent(txt, &press);
    }
  }
  QTreeView* Liste(const char* name = "ListView1") const { return Controle<QTreeView>(name); }
  std::string Libelle(const char* name) const {
    return Controle<QLabel>(name)->text().toStdString();
  }
  void Cherche(const char* text, const char* button) const {
    Controle<QLineEdit>("txt")->setText(QString::fromUtf8(text));
    QTest::mouseClick(Controle<QPushButton>(button), Qt::LeftButton);
  }
  std::vector<std::string> Noms(const char* list = "ListView1", int column = 0) const {
    std::vector<std::string> names;
    const QAbstractItemModel& model = *Liste(list)->model();
    for (int row = 0; row < model.rowCount(); ++row)
      names.push_back(model.index(row, column).data().toString().toStdString());
    return names;
  }

  std::unique_ptr<frmGeoQuery> form;
};

}  // namespace talpena::test

// A real table behind a real grid, for tests.
#pragma once
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <memory>
#include <string>

#include "fakes/fake_machine.h"
#include "fakes/temp_folder.h"
#include "platform/sqlite/sqlite_engine.h"
#include "store/table.h"
#include "store/windows/tdb_grid.h"

namespace talpena::test {

/// Columns of the grid.
namespace column {
inline constexpr int period = 0, latitude = 1, n1 = 3, sex = 5, datum = 6, original = 7, date = 8,
                     comment = 9;
}

/// Rows 1 to `rows`: PERIOD 1, LATITUDE 50.1, LONGITUDE 4.5, N1 the row's number.
struct GridMachine {
  explicit GridMachine(int rows = 5) {
    state.WorkingDb = engine->CreateDatabase(folder / "grid.mdb", "");
    CreateTable(state);
    state.Data1.Lie(*state.WorkingDb);
    Ajoute(rows);
    state.Data1.RecordSource = state.SqlCourant;
  }

  void Ajoute(int rows) {
    const auto table = state.WorkingDb->OpenRecordset("TALPENA");
    Transaction transaction(*state.WorkingDb);
    for (int i = 1; i <= rows; ++i) {
      table->AddNew();
      table->Set("PERIOD", Cell::Of(std::int64_t{1}));
      table->Set("LATITUDE", Cell::Of(50.1));
      table->Set("LONGITUDE", Cell::Of(4.5));
      table->Set("N1", Cell::Of(std::int64_t{i}));
      table->Update();
    }
    transaction.Valide();
  }

  FakeMachine machine;
  TempFolder folder;
  std::unique_ptr<TableEngine> engine = CreeMoteurSqlite();
  StoreState state;
};

/// The same, bound and on show.
struct ShownGrid : GridMachine {
  explicit ShownGrid(int rows = 5) : GridMachine(rows), grid(state, machine.io) {
    grid.InitTDBgrid();
    grid.resize(1200, 300);
    grid.show();
    state.Data1.Refresh();
    grid.activateWindow();
    grid.setFocus();
    QApplication::processEvents();
  }

  QModelIndex Cellule(int row, int column) const { return grid.model()->index(row, column); }
  std::string Texte(int row, int column) const {
    return Cellule(row, column).data(Qt::EditRole).toString().toStdString();
  }
  QLineEdit* Editeur() const { return grid.findChild<QLineEdit*>(); }
  /// Types a text into a cell and ends with a key.
  void Tape(int row, int column, const QString& text, Qt::Key end = Qt::Key_Return) {
    grid.setCurrentIndex(Cellule(row, column));
    QTest::keyClick(&grid, Qt::Key_F2);
    ASSERT_NE(Editeur(), nullptr);
    Editeur()->selectAll();
    if (text.isEmpty()) {
      QTest::keyClick(Editeur(), Qt::Key_Delete);
    } else {
      QTest::keyClicks(Editeur(), text);
    }
    QTest::keyClick(Editeur(), end);
    Traite();
  }
  /// What a key sets off is done in steps, each posted by the one before.
  static void Traite() {
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  TDBGrid grid;
};

}  // namespace talpena::test

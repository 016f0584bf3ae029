// The whole main window over a real table, with scripted boxes.
#pragma once
#include <QAction>
#include <QApplication>
#include <QTest>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fakes/fake_platform.h"
#include "fakes/temp_folder.h"
#include "platform/foreign/jet_format.h"
#include "platform/os/file_system.h"
#include "platform/sqlite/sqlite_engine.h"
#include "shell/windows/form1.h"

namespace talpena::test {

struct Form1Machine : FakeServices {
  Form1Machine() {
    QApplication::setQuitOnLastWindowClosed(false);  // the test program goes on
    environment.variables["TEMP"] = folder.path().string();
    state.AppDir = TALPENA_RUNTIME_DIR;  // where DATUM.MDB is made
    environment.prive = Cache().path().string();
    settings.values["TALPENA/GRID/WINDOWSTATE"] = "0";
    settings.values["TALPENA/GRID/WIDTH"] = "18000";
    settings.values["TALPENA/GRID/HEIGHT"] = "9000";
    form = std::make_unique<Form1>(state, io);
  }

  /// A file of form 2 with these rows, and its path.
  std::string Fichier(const std::string& rows, const std::string& name = "a.deg") const {
    std::string path = folder / name;
    std::ofstream(path, std::ios::binary)
        << "<TALPENA 2.0>\r\nWGS84\r\n<END>\r\nMoles\r\nA comment\r\n"
           " 0000 - 1949   1950 - 1989   1990 - 2011\r\nstatistics\r\nA comment\r\n"
        << rows;
    return path;
  }
  static std::string Ligne(int n1) {
    std::string number = std::to_string(n1);
    number.insert(0, 5 - number.size(), ' ');
    return "1K+50.10000   4.50000" + number + "    01990/01/01 WGS84deg +50.10000 +004.50000x\r\n";
  }
  static std::string Lignes(int count) {
    std::string rows;
    for (int i = 1; i <= count; ++i) rows += Ligne(i);
    return rows;
  }

  template <typename Control>
  Control* Controle(const char* name) const {
    auto* control = form->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  QAction* Entree(const char* name) const { return Controle<QAction>(name); }

  /// Of all cases of a test program: the first of them reads DATUM.MDB.
  static const TempFolder& Cache() {
    static const TempFolder cache;
    return cache;
  }
  static std::unique_ptr<TableEngine> Moteur() {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(CreeFormatJet());
    return CreeMoteurSqlite(std::move(formats));
  }

  TempFolder folder;
  std::unique_ptr<TableEngine> engine = Moteur();
  std::unique_ptr<FileSystem> files = CreeSystemeDeFichiers();
  Platform io{*engine, *files, settings, dialogues, clock, environment, sound};
  ProcessState state;
  std::unique_ptr<Form1> form;
};

}  // namespace talpena::test

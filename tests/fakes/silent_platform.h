// A machine for benchmarks: real files and tables, no settings, and no user to ask.
#pragma once
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "common/talpena_error.h"
#include "platform/os/file_system.h"
#include "platform/platform.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena::test {

/// Ends the process at the first box: nothing is to fail here.
class NoDialogues : public Dialogues {
 public:
  Answer Demande(const MessageBox& box) override { Echoue(box.text); }
  std::string Saisie(const InputBox& box) override { Echoue(box.prompt); }
  std::string OuvreFichier(const FileDialog& dialog) override { Echoue(dialog.filter); }
  std::string EnregistreFichier(const FileDialog& dialog) override { Echoue(dialog.filter); }
  std::string ChoisitDossier(const std::string& title, const std::string&) override {
    Echoue(title);
  }
  std::uint32_t ChoisitCouleur(std::uint32_t) override { Echoue("colour"); }
  Font ChoisitPolice(const Font&) override { Echoue("font"); }
  void Imprime() override { Echoue("print"); }
  Printer& Imprimante() override { Echoue("printer"); }
  void Apercu(const std::function<void(Printer&)>&) override { Echoue("preview"); }

 private:
  [[noreturn]] static void Echoue(const std::string& what) {
    std::fprintf(stderr, "unexpected box: %s\n", what.c_str());
    std::exit(1);
  }
};

class NoSettings : public SettingsStore {
 public:
  std::string Lit(std::string_view, std::string_view, std::string_view,
                  std::string_view defaultText) override {
    return std::string(defaultText);
  }
  void Ecrit(std::string_view, std::string_view, std::string_view, std::string_view) override {}
};

class StandingClock : public Clock {
 public:
  int AnneeCourante() override { return 2011; }
  CalendarDate DateCourante() override { return {2011, 7, 4}; }
  DayTime HeureCourante() override { return {}; }
};

class NoEnvironment : public Environment {
 public:
  std::string Variable(std::string_view) override { return {}; }
  std::string DossierTemporaire() override { return {}; }
  std::string DossierPrive() override { return {}; }
  std::string LecteurCD() override { return "D:\\"; }
  bool ChangeDossier(const std::string&) override { return true; }
};

class NoSound : public Sound {
 public:
  void Bip() override {}
};

struct SilentPlatform {
  std::unique_ptr<TableEngine> engine = CreeMoteurSqlite();
  std::unique_ptr<FileSystem> files = CreeSystemeDeFichiers();
  NoSettings settings;
  NoDialogues dialogues;
  StandingClock clock;
  NoEnvironment environment;
  NoSound sound;
  Platform io{*engine, *files, settings, dialogues, clock, environment, sound};
};

}  // namespace talpena::test

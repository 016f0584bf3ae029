// Builds the state, the platform and the main window, and nothing else.
#include <csignal>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/foreign/jet_reader.h"
#include "platform/os/file_system.h"
#include "platform/qt/qt_dialogues.h"
#include "platform/qt/qt_system.h"
#include "platform/qt/single_instance.h"
#include "platform/sqlite/sqlite_engine.h"
#include "shell/start_stop.h"
#include "shell/windows/application.h"
#include "shell/windows/form1.h"
#include "shell/windows/start.h"

namespace {

// A broken pipe and a file at its size limit are errors of the write, not the end of the process.
void IgnoreSignaux() {
#ifdef SIGPIPE
  std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);
#endif
}

}  // namespace

int main(int argc, char** argv) {
  using namespace talpena;
  IgnoreSignaux();
  const std::string commandLine =
      LigneDeCommande(std::span<const char* const>(argv, static_cast<std::size_t>(argc)));

  // The arguments are one path, as it stands: the toolkit takes none of them for its own.
  int toolkitArguments = 1;
  Application application(toolkitArguments, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Talpena"));
  QGuiApplication::setDesktopFileName(QStringLiteral("talpena"));

  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  const auto engine = CreeMoteurSqlite(std::move(formats));
  const auto files = CreeSystemeDeFichiers();
  QtSettingsStore settings;
  QtDialogues dialogues;
  QtClock clock;
  QtEnvironment environment;
  QtSound sound;
  Platform io{*engine, *files, settings, dialogues, clock, environment, sound};
  application.ChangePlatform(&io);

  SingleInstance instance;
  if (!EstSeuleInstance([&instance] { return instance.Acquiert(); }, dialogues)) return 0;
  ProcessState state;
  Start splash(state);
  splash.Montre();

  state.AppDir = DossierDuProgramme();
  Form1 form(state, io);
  dialogues.SuitLangue(state.Langue);
  dialogues.ChangeParent(&form);
  form.ChangeSplash(&splash);
  QObject::connect(&form, &Form1::Fini, &application, [] { QCoreApplication::exit(0); });
  if (!form.Charge(commandLine)) return 0;
  return Application::exec();
}

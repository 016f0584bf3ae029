// Builds the state, the platform and the main window, and nothing else.
#include <csignal>
#include <memory>
#include <span>
#include <string>

#include "machine.h"
#include "platform/qt/single_instance.h"
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

  Machine machine;
  Platform& io = machine.io;
  ProcessState state;
  application.ChangePlatform(&io, &state);

  SingleInstance instance;
  if (!EstSeuleInstance([&instance] { return instance.Acquiert(); }, machine.dialogues)) return 0;
  Start splash(state);
  splash.Montre();

  state.AppDir = DossierDuProgramme();
  Form1 form(state, io);
  machine.dialogues.SuitLangue(state.Langue);
  machine.dialogues.ChangeParent(&form);
  form.ChangeSplash(&splash);
  QObject::connect(&form, &Form1::Fini, &application, [] { QCoreApplication::exit(0); });
  if (!form.Charge(commandLine)) return 0;
  return Application::exec();
}

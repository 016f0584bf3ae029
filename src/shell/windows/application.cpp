#include "shell/windows/application.h"

#include <QEvent>
#include <QFileInfo>
#include <QPalette>
#include <exception>
#include <new>

#include "common/talpena_error.h"
#include "platform/commands.h"
#include "platform/qt/legible_palette.h"

namespace talpena {
namespace {

constexpr int outOfMemory = 7;
constexpr int internalError = 51;

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  setPalette(PaletteLisible(palette()));
}

bool Application::event(QEvent* event) {
  const bool handled = QApplication::event(event);
  if (event->type() == QEvent::ApplicationPaletteChange) {
    const QPalette legible = PaletteLisible(palette());
    if (legible != palette()) setPalette(legible);
  }
  return handled;
}

void Application::Montre(int number, const std::string& description) {
  if (io_ != nullptr && number != ErrorNumber::Cancelled) AfficheErreur(*io_, number, description);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const TalpenaError& e) {
    Montre(e.number(), e.description());
  } catch (const std::bad_alloc&) {
    Montre(outOfMemory, "Out of memory");
  } catch (const std::exception& e) {
    Montre(internalError, std::string("Internal error: ") + e.what());
  }
  return false;
}

std::string DossierDuProgramme() {
  return QFileInfo(QCoreApplication::applicationFilePath()).canonicalPath().toStdString();
}

}  // namespace talpena

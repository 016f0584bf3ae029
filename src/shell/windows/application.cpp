#include "shell/windows/application.h"

#include <QEvent>
#include <QFileInfo>
#include <QPalette>
#include <exception>
#include <new>

#include "platform/commands.h"
#include "platform/qt/legible_palette.h"

namespace talpena {

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

void Application::Montre(const TalpenaError& failure) {
  if (io_ == nullptr || failure.number() == ErrorNumber::Cancelled) return;
  AfficheErreur(*state_, *io_, failure);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const TalpenaError& e) {
    Montre(e);
  } catch (const std::bad_alloc&) {
    Montre({ErrorNumber::OutOfMemory, "Out of memory"});
  } catch (const std::exception& e) {
    Montre({ErrorNumber::InternalError,
            std::string("Internal error: ") + e.what(),
            {.about = {e.what()}}});
  }
  return false;
}

std::string DossierDuProgramme() {
  return QFileInfo(QCoreApplication::applicationFilePath()).canonicalPath().toStdString();
}

}  // namespace talpena

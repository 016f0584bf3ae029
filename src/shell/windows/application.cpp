#include "shell/windows/application.h"

#include <QFileInfo>
#include <exception>
#include <new>

#include "platform/commands.h"

namespace talpena {

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

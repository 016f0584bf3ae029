// The application object: the last handler of every failure.
#pragma once
#include <QApplication>

#include "platform/platform.h"

namespace talpena {

/// No exception may travel through Qt's event loop: what no command caught is shown in the common
/// box here, and the program goes on. It paints in the desktop's colours, made legible.
class Application : public QApplication {
  Q_OBJECT

 public:
  Application(int& argc, char** argv);
  void ChangePlatform(Platform* io) { io_ = io; }
  bool notify(QObject* receiver, QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Montre(int number, const std::string& description);

  Platform* io_ = nullptr;
};

/// Folder of the executable's file, reached through whatever links it was started by; UTF-8,
/// without a separator behind.
std::string DossierDuProgramme();

}  // namespace talpena

// Pictures of every window of the program, for machines without a display:
//   take_pictures FOLDER [FILE.deg]
// starts as the program does, with its data and on the file named, and leaves a PNG picture of each
// window in FOLDER, in each language, in light and in dark: main_en.png, main_en_dark.png, ... A
// box that comes up meanwhile is pictured (box_1.png, ...) and closed, so that nobody has to answer
// it. TALPENA_FOLDER in the environment takes the place of the program's folder: paths under it
// are seen in the pictures.
#include <QDir>
#include <QPalette>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <array>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "fakes/dark_palette.h"
#include "gazetteer/windows/typed_pane.h"
#include "machine.h"
#include "pictures/gallery.h"
#include "platform/qt/single_instance.h"
#include "shell/start_stop.h"
#include "shell/windows/application.h"
#include "shell/windows/form1.h"
#include "shell/windows/start.h"

namespace talpena {
namespace {

struct LanguageName {
  int index;
  const char* code;
};
constexpr std::array languages = {LanguageName{0, "fr"}, LanguageName{3, "de"},
                                  LanguageName{4, "it"}, LanguageName{5, "nl"},
                                  LanguageName{1, "en"}};

class Photographer {
 public:
  explicit Photographer(const QString& folder) : folder_(folder) {}

  void Prend(QWidget& window, const QString& name) {
    window.ensurePolished();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    good_ = window.grab().save(folder_.filePath(name + QStringLiteral(".png"))) && good_;
  }
  /// A window that is not on show: shown for the picture only.
  void PrendFenetre(QWidget& window, const QString& name) {
    window.show();
    Prend(window, name);
    window.hide();
  }
  bool Reussi() const { return good_; }

 private:
  QDir folder_;
  bool good_ = true;
};

void PrendToutes(Photographer& photographer, Form1& form, const GalleryContext& context,
                 const QString& suffix) {
  photographer.Prend(form, QStringLiteral("main") + suffix);
  for (const GalleryWindow& entry : ToutesLesFenetres()) {
    const std::unique_ptr<QWidget> window = entry.cree(context);
    if (const auto* typed = window->findChild<TypedPane*>()) {
      while (!typed->EstAuRepos()) QCoreApplication::processEvents();
    }
    photographer.PrendFenetre(*window, QLatin1String(entry.name) + suffix);
  }
}

/// False when a picture could not be written.
bool PrendImages(Form1& form, const QString& folder) {
  QDir().mkpath(folder);
  Photographer photographer(folder);
  const QPalette light = QApplication::palette();
  for (const LanguageName& language : languages) {
    const QString code = QLatin1Char('_') + QLatin1String(language.code);
    QApplication::setPalette(light);
    MnuLang_Click(form.Contexte(), language.index);
    PrendToutes(photographer, form, form.Contexte(), code);
    QApplication::setPalette(test::PaletteSombre());
    PrendToutes(photographer, form, form.Contexte(), code + QStringLiteral("_dark"));
  }
  return photographer.Reussi();
}

/// For as long as it is kept, every box that comes up is pictured and closed.
std::unique_ptr<QObject> FermeBoites(const QString& folder) {
  auto watch = std::make_unique<QTimer>();
  const auto count = std::make_shared<int>(0);
  QObject::connect(watch.get(), &QTimer::timeout, watch.get(), [folder, count] {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    QDir().mkpath(folder);
    box->grab().save(QDir(folder).filePath(QStringLiteral("box_%1.png").arg(++*count)));
    box->close();
  });
  watch->start(50);
  return watch;
}

/// Starts the program on a file and takes the pictures: the exit status.
int Execute(Application& application, const QString& folder, const std::string& commandLine) {
  Machine machine;
  Platform& io = machine.io;
  ProcessState state;
  application.ChangePlatform(&io, &state);

  // The working database of a program that runs is not to be deleted.
  SingleInstance instance;
  if (!instance.Acquiert()) {
    std::fprintf(stderr, "the program runs: no pictures are taken\n");
    return 1;
  }
  auto boxes = FermeBoites(folder);
  Start splash(state);
  splash.Montre();

  state.AppDir = qEnvironmentVariable("TALPENA_FOLDER", TALPENA_RUNTIME_DIR).toStdString();
  Form1 form(state, io);
  machine.dialogues.SuitLangue(state.Langue);
  machine.dialogues.ChangeParent(&form);
  form.ChangeSplash(&splash);
  if (!form.Charge(commandLine)) return 1;
  boxes.reset();
  return PrendImages(form, folder) ? 0 : 1;
}

}  // namespace
}  // namespace talpena

int main(int argc, char** argv) {
  using namespace talpena;
  const std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
  if (arguments.size() < 2) {
    std::fprintf(stderr, "usage: take_pictures FOLDER [FILE.deg]\n");
    return 2;
  }
  int toolkitArguments = 1;
  Application application(toolkitArguments, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Talpena"));
  QGuiApplication::setDesktopFileName(QStringLiteral("talpena"));
  return Execute(application, QString::fromLocal8Bit(arguments[1]),
                 LigneDeCommande(arguments.subspan(1)));
}

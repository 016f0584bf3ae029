#include "platform/qt/qt_dialogues.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QTreeView>
#include <exception>
#include <functional>
#include <utility>

#include "common/msg_id.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "platform/qt/colours.h"
#include "platform/qt/controls.h"
#include "platform/qt/file_filter.h"
#include "platform/qt/file_icons.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/one_line.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/toolkit_translator.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

/// Line breaks as Qt draws them, from CR LF, CR or LF.
QString EnLignes(const std::string& text) {
  return EnQt(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

/// The ordinary pointer for as long as a box is up, also when a command holds the hourglass.
class PointeurNormal {
 public:
  PointeurNormal() : active_(QApplication::overrideCursor() != nullptr) {
    if (active_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  PointeurNormal(const PointeurNormal&) = delete;
  PointeurNormal& operator=(const PointeurNormal&) = delete;
  ~PointeurNormal() {
    if (active_) QApplication::restoreOverrideCursor();
  }

 private:
  bool active_;
};

/// Shows a dialog; Cancel is raised.
void Execute(QDialog& dialog) {
  const PointeurNormal pointeur;
  if (dialog.exec() != QDialog::Accepted) {
    throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
  }
}

QMessageBox::Icon EnIcone(Icon icon) {
  switch (icon) {
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Stop:
      return QMessageBox::Critical;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

/// The sign of a box grows with its text.
void AgranditIcone(QMessageBox& box) {
  constexpr std::pair<QMessageBox::Icon, QStyle::StandardPixmap> signs[] = {
      {QMessageBox::Information, QStyle::SP_MessageBoxInformation},
      {QMessageBox::Question, QStyle::SP_MessageBoxQuestion},
      {QMessageBox::Warning, QStyle::SP_MessageBoxWarning},
      {QMessageBox::Critical, QStyle::SP_MessageBoxCritical}};
  // The toolkit's own label: a sign of the program's would take the meaning from the box.
  auto* label = box.findChild<QLabel*>(u"qt_msgboxex_icon_label"_s);
  const int normal = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
  const int side = CoteIcone(box.fontMetrics(), normal);
  if (label == nullptr || side == normal) return;
  const qreal ratio = box.devicePixelRatioF();
  for (const auto& [icon, sign] : signs) {
    if (box.icon() != icon) continue;
    const QIcon picture = box.style()->standardIcon(sign, nullptr, &box);
    QPixmap larger = picture.pixmap(QSize(side, side), ratio);
    larger = larger.scaledToWidth(qRound(side * ratio), Qt::SmoothTransformation);
    larger.setDevicePixelRatio(ratio);
    label->setPixmap(larger);
  }
}

struct ButtonSet {
  QMessageBox::StandardButtons shown;
  QMessageBox::StandardButton first;
  QMessageBox::StandardButton closing;  ///< what closing the box counts as
};

ButtonSet EnBoutons(Buttons buttons) {
  using B = QMessageBox;
  switch (buttons) {
    case Buttons::OkCancel:
      return {B::Ok | B::Cancel, B::Ok, B::Cancel};
    case Buttons::YesNo:
      return {B::Yes | B::No, B::Yes, B::No};
    case Buttons::YesNoCancel:
      return {B::Yes | B::No | B::Cancel, B::Yes, B::Cancel};
    case Buttons::Ok:
      break;
  }
  return {B::Ok, B::Ok, B::Ok};
}

constexpr std::pair<Answer, QMessageBox::StandardButton> answers[] = {
    {Answer::Ok, QMessageBox::Ok},
    {Answer::Cancel, QMessageBox::Cancel},
    {Answer::Yes, QMessageBox::Yes},
    {Answer::No, QMessageBox::No},
};

int Legende(Answer answer) {
  switch (answer) {
    case Answer::Cancel:
      return MsgId::BoutonAnnuler;
    case Answer::Yes:
      return MsgId::BoutonOui;
    case Answer::No:
      return MsgId::BoutonNon;
    case Answer::Ok:
      break;
  }
  return MsgId::BoutonOk;
}

QMessageBox::StandardButton EnBouton(Answer answer) {
  for (const auto& [known, button] : answers) {
    if (known == answer) return button;
  }
  return QMessageBox::NoButton;
}

Answer EnReponse(int button, QMessageBox::StandardButton closing) {
  for (const auto& [answer, known] : answers) {
    if (known == button) return answer;
  }
  return EnReponse(closing, QMessageBox::Ok);  // gone without a button, as at the session's end
}

/// Captions of a box that is up: put on at once, and again when the language changes, behind the
/// toolkit, which then puts on its own.
class Legendes : public QObject {
 public:
  Legendes(QWidget& window, std::function<void()> pose) : pose_(std::move(pose)) {
    pose_();
    window.installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::LanguageChange) QTimer::singleShot(0, this, pose_);
    return QObject::eventFilter(watched, event);
  }

 private:
  std::function<void()> pose_;
};

/// Where a file dialog starts: in the folder of the name offered, else in the one asked for,
/// else where the process is, or at the user's home when that is nowhere in particular.
QString DossierDepart(const FileDialog& dialog) {
  for (const std::string& folder : {DossierDe(dialog.name), dialog.folder}) {
    if (folder.empty()) continue;
    QString native = EnQt(RendNatif(folder));
    if (QFileInfo(native).isDir()) return native;
  }
  return QDir::current().isRoot() ? QDir::homePath() : QDir::currentPath();
}

/// Sizes, kinds and dates whole, whatever the language; the name has the rest.
void ElargitColonnes(QFileDialog& dialog) {
  dialog.resize(dialog.sizeHint().expandedTo({760, 480}));
  const auto* list = dialog.findChild<QTreeView*>(u"treeView"_s);
  if (list == nullptr) return;
  list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

void PrepareFichiers(QFileDialog& dialog, FileIcons& icons, const FileDialog& wanted) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setIconProvider(&icons);
  dialog.setFileMode(QFileDialog::AnyFile);
  if (!wanted.title.empty()) dialog.setWindowTitle(EnQt(wanted.title));
  QStringList names;
  for (const FileFilter& filter : LitFiltres(wanted.filter)) names << filter.nameFilter;
  if (!names.isEmpty()) dialog.setNameFilters(names);
  dialog.setDirectory(DossierDepart(wanted));
  if (!wanted.name.empty()) dialog.selectFile(EnQt(NomDe(wanted.name)));
  ElargitColonnes(dialog);
}

std::string CheminChoisi(QFileDialog& dialog) {
  Execute(dialog);
  return QDir::toNativeSeparators(dialog.selectedFiles().constFirst()).toStdString();
}

/// Keeps the suffix that is added to a bare name in step with the filter that is chosen.
void SuitSuffixe(QFileDialog& dialog, const std::string& filter) {
  const auto prend = [&dialog, filters = LitFiltres(filter)](const QString& chosen) {
    for (const FileFilter& f : filters) {
      if (f.nameFilter == chosen) dialog.setDefaultSuffix(f.suffix);
    }
  };
  prend(dialog.selectedNameFilter());
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, prend);
}

}  // namespace

QtDialogues::QtDialogues() = default;
QtDialogues::~QtDialogues() = default;

void QtDialogues::SuitLangue(const std::int16_t& langue) {
  langue_ = &langue;
  translator_ = std::make_unique<ToolkitTranslator>(langue);
  QCoreApplication::installTranslator(translator_.get());
}

QWidget* QtDialogues::Parent() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  // Before the main window is up, a box stands in the middle of the screen.
  return parent_ && parent_->isVisible() ? parent_.data() : QApplication::activeWindow();
}

Answer QtDialogues::Demande(const MessageBox& box) {
  const ButtonSet buttons = EnBoutons(box.buttons);
  QMessageBox window(EnIcone(box.icon), EnQt(box.title), {}, buttons.shown, Parent());
  window.setObjectName(u"MessageBox"_s);
  window.setTextFormat(Qt::PlainText);
  window.setText(EnLignes(box.text));
  window.setInformativeText(EnLignes(box.detail));
  for (QLabel* label : window.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  window.setDefaultButton(box.defaultButton ? EnBouton(*box.defaultButton) : buttons.first);
  const auto closing = box.closing ? EnBouton(*box.closing) : buttons.closing;
  window.setEscapeButton(closing);
  AgranditIcone(window);
  const Legendes captions(window, [&] {
    Mnemonics letters;
    for (const auto& [answer, button] : answers) {
      QAbstractButton* shown = langue_ == nullptr ? nullptr : window.button(button);
      if (shown != nullptr) shown->setText(letters.Marque(Texte(*langue_, Legende(answer))));
    }
  });
  const PointeurNormal pointeur;
  return EnReponse(window.exec(), closing);
}

std::string QtDialogues::Saisie(const InputBox& box) {
  QInputDialog window(Parent());
  window.setObjectName(u"InputBox"_s);
  window.setWindowTitle(EnQt(box.title));
  window.setLabelText(EnLignes(box.prompt));
  window.setTextValue(EnQt(box.text));
  for (auto* line : window.findChildren<QLineEdit*>()) GardeUneLigne(*line);
  for (QLabel* label : window.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  const Legendes captions(window, [&] {
    if (langue_ == nullptr) return;
    Mnemonics letters;
    window.setOkButtonText(letters.Marque(Texte(*langue_, MsgId::BoutonOk)));
    window.setCancelButtonText(letters.Marque(Texte(*langue_, MsgId::BoutonAnnuler)));
  });
  const PointeurNormal pointeur;
  return window.exec() == QDialog::Accepted ? window.textValue().toStdString() : std::string();
}

std::string QtDialogues::OuvreFichier(const FileDialog& dialog) {
  FileIcons icons;  // outlives the window
  QFileDialog window(Parent());
  window.setObjectName(u"OpenDialog"_s);
  window.setAcceptMode(QFileDialog::AcceptOpen);
  PrepareFichiers(window, icons, dialog);
  return CheminChoisi(window);
}

std::string QtDialogues::EnregistreFichier(const FileDialog& dialog) {
  FileIcons icons;  // outlives the window
  QFileDialog window(Parent());
  window.setObjectName(u"SaveDialog"_s);
  window.setAcceptMode(QFileDialog::AcceptSave);
  window.setOption(QFileDialog::DontConfirmOverwrite, !dialog.confirmReplace);
  PrepareFichiers(window, icons, dialog);
  SuitSuffixe(window, dialog.filter);
  return CheminChoisi(window);
}

std::string QtDialogues::ChoisitDossier(const std::string& title, const std::string& start) {
  FileIcons icons;  // outlives the window
  QFileDialog window(Parent());
  window.setObjectName(u"FolderDialog"_s);
  PrepareFichiers(window, icons, {.title = title, .filter = {}, .folder = start});
  window.setFileMode(QFileDialog::Directory);
  window.setOption(QFileDialog::ShowDirsOnly);
  return CheminChoisi(window);
}

std::uint32_t QtDialogues::ChoisitCouleur(std::uint32_t start) {
  QColorDialog window(EnQColor(start, QApplication::palette()), Parent());
  window.setObjectName(u"ColourDialog"_s);
  window.setOption(QColorDialog::DontUseNativeDialog);
  Execute(window);
  return EnCouleur(window.selectedColor());
}

Font QtDialogues::ChoisitPolice(const Font& start) {
  QFont font(EnQt(start.family));
  font.setPointSizeF(start.sizePoints);
  font.setBold(start.bold);
  font.setItalic(start.italic);
  QFontDialog window(font, Parent());
  window.setObjectName(u"FontDialog"_s);
  window.setOption(QFontDialog::DontUseNativeDialog);
  Execute(window);
  const QFont chosen = window.selectedFont();
  return {chosen.family().toStdString(), chosen.pointSizeF(), chosen.bold(), chosen.italic()};
}

void QtDialogues::Imprime() {
  QPrintDialog window(&ImprimanteNative(), Parent());
  window.setObjectName(u"PrintDialog"_s);
  Execute(window);
}

Printer& QtDialogues::Imprimante() {
  if (!printer_) printer_ = std::make_unique<QtPrinter>();
  return *printer_;
}

QPrinter& QtDialogues::ImprimanteNative() {
  Imprimante();
  return printer_->Natif();
}

void QtDialogues::Apercu(const std::function<void(Printer&)>& dessine) {
  QPrintPreviewDialog window(&ImprimanteNative(), Parent());
  window.setObjectName(u"PrintPreviewDialog"_s);
  window.setWindowFlag(Qt::WindowMaximizeButtonHint);
  window.resize(window.screen()->availableGeometry().size() * 3 / 4);
  std::exception_ptr failure;  // none may travel through the event loop
  QObject::connect(&window, &QPrintPreviewDialog::paintRequested, &window, [&] {
    try {
      dessine(Imprimante());
    } catch (...) {
      failure = std::current_exception();
      QTimer::singleShot(0, &window, &QDialog::reject);
    }
  });
  const PointeurNormal pointeur;
  window.exec();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace talpena

#include "maps/windows/frm_carte.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QStackedLayout>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "maps/map_files.h"
#include "maps/redraw.h"
#include "maps/windows/map_view.h"
#include "platform/commands.h"
#include "platform/qt/window_place.h"

namespace talpena {
namespace {

constexpr std::string_view application = "TALPENA", section = "Carto";
constexpr std::string_view placeAtFirst = "100";
constexpr int borders = 120, titleAndBorders = 475;  // twips that a fitted window has for them

constexpr QSize ofTheDesktop(16, 48);  // borders and title of a window, more or less

int Twips(int pixels) { return static_cast<int>(EnTwips(pixels)); }
int Pixels(int twips) { return EnPixels(static_cast<float>(twips)); }

}  // namespace

frmCarte::frmCarte(CommandContext contexte, QWidget* parent)
    : QDialog(parent),
      contexte_(contexte),
      state_(contexte.state),
      io_(contexte.io),
      canevas_(parent != nullptr ? parent->devicePixelRatioF() : qApp->devicePixelRatio()) {
  setObjectName(QStringLiteral("frmCarte"));
  setModal(true);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  ConstruitMenus();
  ConstruitOutils();
  ConstruitCentre();
  ConstruitBarreEtat();
  Dispose();
  ChargeIcones();
  AppliqueLangue();
  Relie();
  PlaceFenetre();
  ActiveControles();
}

frmCarte::~frmCarte() = default;

/// Nearly as large as the screen, and so it stays for a picture of that size.
void frmCarte::PlaceFenetre() {
  const auto stored = [this](std::string_view key) {
    return EnPixels(
        static_cast<float>(Val(io_.settings.Lit(application, section, key, placeAtFirst))));
  };
  const QSize room = screen()->availableGeometry().size() - ofTheDesktop;
  voulue_ = QPoint(stored("Left"), stored("Top"));
  const QRect place = PlaceVisible(QRect(voulue_, room));
  resize(place.size());
  move(place.topLeft());
}

void frmCarte::done(int result) {
  if (enCours_) return;
  if (chargee_) {
    const QPoint place = isMaximized() || isFullScreen() ? normalGeometry().topLeft() : pos();
    ExecuteCommande(state_, io_, {}, [&] {
      const std::array entries = {
          SettingEntry{std::string(section), "Top", Str(EnTwips(place.y()))},
          SettingEntry{std::string(section), "Left", Str(EnTwips(place.x()))}};
      io_.settings.EcritTout(application, entries);
      SauveVue(Contexte());
    });
    chargee_ = false;
  }
  QDialog::done(result);
}

void frmCarte::ActiveEps(bool enabled) {
  eps_ = enabled;
  ActiveControles();
}

void frmCarte::MontrePanneau(int panel, const std::string& text) {
  QLabel* shown = panneaux_.at(static_cast<std::size_t>(panel) - 1);
  const QString wanted = QString::fromStdString(text);
  if (shown->text() != wanted) shown->setText(wanted);
}

void frmCarte::MontreCanevas() {
  picCarte->Rafraichit();
  pages_->setCurrentWidget(canevas_.TailleImage().isEmpty() ? lblVide : cadre_);
  ActiveControles();
}

void frmCarte::QuandPeinte(const std::function<void()>& body) {
  attendue_ = nullptr;
  if (isVisible()) return body();
  attendue_ = body;
}

void frmCarte::DessineAttendue() {
  if (enCours_ || !chargee_) return;
  if (const auto body = std::exchange(attendue_, nullptr)) Commande(body);
}

/// A position, as long as no other map is opened.
void frmCarte::ChangeTitre(const std::string& text) {
  titrePris_ = true;
  setWindowTitle(QString::fromStdString(text));
}

void frmCarte::AppliqueTitre() {
  if (titrePris_) return;
  std::string title = Texte(state_.Langue, MsgId::Carte);
  if (!canevas_.TailleImage().isEmpty()) {
    title += " - " + NomDe(io_.settings.Lit(application, section, "LastMap", ""));
  }
  setWindowTitle(QString::fromStdString(title));
}

void frmCarte::ActiveControles() {
  const CarteEtat etat{.picture = !canevas_.TailleImage().isEmpty(), .georeference = eps_};
  for (const CarteEntree& menu : MenusCarte()) {
    menus_.at(NomObjet(menu))->setEnabled(EstActif(menu, etat));
  }
  for (const auto& [action, entry] : entrees_) action->setEnabled(EstActif(*entry, etat));
  for (const auto& [button, entry] : outils_) button->setEnabled(EstActif(*entry, etat));
}

MapFrame frmCarte::Cadre() const {
  return {Twips(Toolbar1->sizeHint().height()), Twips(StatusBar1->sizeHint().height()),
          Twips(VScroll1->sizeHint().width()), Twips(HScroll1->sizeHint().height())};
}

TwipsSize frmCarte::Interieur() const {
  const MapFrame frame = Cadre();
  return {Twips(centre_->width()),
          frame.toolbarHeight + Twips(centre_->height()) + frame.statusHeight};
}

TwipsSize frmCarte::Image() const { return {canevas_.LargeurTwips(), canevas_.HauteurTwips()}; }

/// The borders and the title are the desktop's own: what the fitted size has for them is room for
/// the menus and a margin, or what these need.
void frmCarte::AjusteMap() {
  MontreCanevas();
  if (canevas_.TailleImage().isEmpty()) return;
  if (!isMaximized() && !isFullScreen()) {
    const QRect room = screen()->availableGeometry();
    const FittedWindow fitted =
        AjusteFenetre(Cadre(), Image(), {Twips(room.width()), Twips(room.height())});
    QSize wanted = size();
    if (fitted.width) wanted.setWidth(Pixels(*fitted.width));
    if (fitted.height) {
      const int menus = Twips(barreMenus_->heightForWidth(wanted.width())) + borders;
      wanted.setHeight(Pixels(*fitted.height - titleAndBorders + std::max(titleAndBorders, menus)));
    }
    // Where it stood, though the window was too large for that until it had its picture.
    const QPoint at = isVisible() ? pos() : voulue_;
    wanted = wanted.boundedTo(room.size() - ofTheDesktop).expandedTo(minimumSizeHint());
    const QRect place = PlaceVisible(QRect(at, wanted));
    resize(place.size());
    if (place.topLeft() != pos()) move(place.topLeft());
    layout()->activate();
  }
  CalculeScroll();
}

void frmCarte::CalculeScroll() {
  const MapFrame frame = SansBarresInutiles(Cadre(), Interieur(), Image());
  const MapScroll scroll = CalculeBarres(frame, Interieur(), Image());
  const auto regle = [](QScrollBar& bar, const ScrollRange& range) {
    bar.setValue(0);
    bar.setRange(0, std::max(0, Pixels(-range.maximum)));
    bar.setSingleStep(std::max(1, Pixels(range.smallStep)));
    bar.setPageStep(std::max(1, Pixels(range.largeStep)));
    bar.setVisible(range.maximum < 0);
  };
  regle(*HScroll1, scroll.horizontal);
  regle(*VScroll1, scroll.vertical);
  PetitCarre->setVisible(scroll.horizontal.maximum < 0 && scroll.vertical.maximum < 0);
}

/// Moves the picture so that the cross can be seen.
void frmCarte::MontreCroix(QPoint pixel) {
  const auto montre = [](QScrollBar& bar, int at, int room) {
    const int margin = std::min(24, room / 4);
    if (at < bar.value() + margin) bar.setValue(at - margin);
    if (at > bar.value() + room - margin) bar.setValue(at - room + margin);
  };
  montre(*HScroll1, pixel.x(), picCarte->width());
  montre(*VScroll1, pixel.y(), picCarte->height());
}

// In a window too narrow for their captions the tool buttons show their icons alone.
void frmCarte::AjusteOutils() {
  const auto montre = [this](Qt::ToolButtonStyle style) {
    for (const auto& [button, entry] : outils_) button->setToolButtonStyle(style);
  };
  montre(Qt::ToolButtonTextBesideIcon);
  if (Toolbar1->layout()->minimumSize().width() > width()) montre(Qt::ToolButtonIconOnly);
}

void frmCarte::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  AjusteOutils();
  pages_->currentWidget() == cadre_ ? picCarte->setFocus() : lblVide->setFocus();
  connect(windowHandle(), &QWindow::screenChanged, this, &frmCarte::SuitEcran,
          Qt::UniqueConnection);
  SuitEcran();
}

/// On a screen of another density the map is drawn anew.
void frmCarte::SuitEcran() {
  const double ratio = devicePixelRatioF();
  if (ratio == canevas_.Rapport()) return;
  canevas_.ChangeRapport(ratio);
  if (!canevas_.TailleImage().isEmpty()) Commande([this] { RedrawMap(Contexte()); });
}

void frmCarte::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
  if (event->type() == QEvent::PaletteChange && picCarte != nullptr) ChargeIcones();
}

void frmCarte::closeEvent(QCloseEvent* event) {
  if (enCours_) {
    event->ignore();
    return;
  }
  QDialog::closeEvent(event);
}

bool frmCarte::eventFilter(QObject* watched, QEvent* event) {
  if (watched == centre_ && event->type() == QEvent::Resize) {
    AjusteOutils();
    CalculeScroll();
  }
  if (attendue_ && event->type() == QEvent::Paint) {
    QTimer::singleShot(0, this, &frmCarte::DessineAttendue);
  }
  if (watched == picCarte && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool sideways = key->modifiers().testFlag(Qt::ControlModifier);
    QScrollBar& bar = sideways ? *HScroll1 : *VScroll1;
    if (key->key() == Qt::Key_PageUp) bar.setValue(bar.value() - bar.pageStep());
    if (key->key() == Qt::Key_PageDown) bar.setValue(bar.value() + bar.pageStep());
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace talpena

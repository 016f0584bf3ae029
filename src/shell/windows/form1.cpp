#include "shell/windows/form1.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScreen>
#include <QStackedLayout>
#include <QToolButton>
#include <algorithm>

#include "platform/qt/colours.h"
#include "platform/qt/window_place.h"
#include "shell/windows/attente.h"
#include "shell/windows/help_desk.h"
#include "store/cell_text.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

enum : std::int16_t { Normale = 0, Reduite = 1, Agrandie = 2 };  // EtatFenetre

}  // namespace

Form1::Form1(ProcessState& state, Platform& io, QWidget* parent)
    : QMainWindow(parent), state_(state), io_(io) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Talpena"));
  ConstruitMenus();
  ConstruitCentre();
  ConstruitBarreEtat();
  OrdonneTabulation();
  ChargeIcones();
  ConstruitAttente();
  aide_ = std::make_unique<HelpDesk>(state_, io_);
  ActiveControles();
  Relie();
  observed_ = state_.document.Observe([this](Changes changes) { SuitDocument(changes); });
}

// The base class moves the focus while it goes: nobody is to be told any more. The working database
// outlives the window that shows it at work.
Form1::~Form1() {
  disconnect(qApp, nullptr, this, nullptr);
  if (state_.document.WorkingDb) state_.document.WorkingDb->SuitTravail({});
}

ShellContext Form1::Contexte() { return {state_, io_, *this, *attente_, *this, *this}; }

void Form1::SuitDocument(Changes changes) {
  const Document& document = state_.document;
  if (changes.Touche(Aspect::Title)) {
    setWindowTitle(QString::fromStdString(document.Montre().titreFenetre));
  }
  if (changes.Touche(Aspect::Header)) MontreEntete();
  MontreAffichage(changes);
  if (changes.Touche(Aspect::Rows) || changes.Touche(Aspect::Position)) {
    AffichePosition();
    ActiveOutils();
  }
  if (changes.Touche(Aspect::Rows)) SuitLignes();
}

/// The boxes keep their cursors while somebody types into them.
void Form1::MontreEntete() {
  const DistributionHeader& entete = state_.document.Entete();
  const auto montre = [](QLineEdit& box, const std::string& text) {
    if (box.text().toStdString() == text) return;
    box.setText(QString::fromStdString(text));
    box.setCursorPosition(0);
  };
  montre(*BoxTitre_, entete.BoxTitre);
  montre(*Commentaire_, entete.Commentaire);
  AffichePanneauDatum();
}

void Form1::AffichePanneauDatum() {
  panels_[2]->setText(QString::fromStdString(state_.document.Entete().DatumFichierCode));
}

void Form1::MontreAffichage(Changes changes) {
  const Display& display = state_.document.Montre();
  if (changes.Touche(Aspect::TitleLines)) {
    for (QLineEdit* box : {BoxTitre_, Commentaire_}) {
      box->setText(box->text());  // nothing of the file before comes back by an undo
      box->setCursorPosition(0);
    }
    for (QWidget* widget :
         std::initializer_list<QWidget*>{BoxTitre_, LabelTitre, LabelCommentaire, Commentaire_}) {
      widget->setVisible(display.titres);
    }
  }
  if (changes.Touche(Aspect::Grid)) AjusteGrille();
  if (changes.Touche(Aspect::Notice)) AfficheFiltre();
  if (changes.Touche(Aspect::Words)) lbl1->setVisible(display.lbl1);
  if (changes.Touche(Aspect::Menus)) ActiveControles();
}

void Form1::AjusteGrille() {
  if (isMinimized()) return;
  pages_->setCurrentWidget(TDBGrid1);  // the layout gives it all the room that there is
  Picture1->update();
}

void Form1::ActiveControles() {
  const MenuState state = etat_ = Etat();
  Parcourt(ArbreDesMenus(), [this, &state](const MenuEntry& entry) {
    if (entry.EstSeparateur()) return;
    actions_.at(NomObjet(entry))->setEnabled(EstActif(entry, state));
  });
  ActiveOutils();
  for (QToolButton* button : cmdFirstLast) button->setEnabled(FichierOuvert());
}

MenuState Form1::Etat() const {
  return {.fileOpen = FichierOuvert(),
          .hasRow = FichierOuvert() && state_.document.Data1.EstLie() &&
                    state_.document.Data1.recordset().RecordCount() > 0,
          .searched = state_.RechercheAboutie};
}

/// As rows come and go: the record editor needs one.
void Form1::ActiveOutils() {
  const MenuState state = Etat();
  for (const auto& [button, entry] : outils_) button->setEnabled(EstActif(*entry, state));
}

void Form1::PlaceFocusGrille() { TDBGrid1->setFocus(); }

void Form1::AffichePosition() {
  panels_[0]->setText(QString::fromStdString(TextePosition(state_.document.Data1)));
}

void Form1::AfficheDerniersFichiers() {
  const std::array<std::string, 4>& paths = derniersFichiers_ = state_.LastFiles;
  bool any = false;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    QAction* entry = actions_.at("MnuLastFile_" + std::to_string(i + 1));
    QString path = QString::fromStdString(paths[i]);
    path.replace(QLatin1Char('&'), QStringLiteral("&&"));  // an ampersand of the path itself
    entry->setText(
        QString::fromStdString(LibelleDernierFichier(static_cast<int>(i) + 1, path.toStdString())));
    entry->setVisible(!paths[i].empty());
    any = any || !paths[i].empty();
  }
  actions_.at("MnuLastFile_0")->setVisible(any);
}

void Form1::DesactiveMenus() { state_.document.DesactiveMenus(); }

ScreenSize Form1::TailleEcran() const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QSize size = screen != nullptr ? screen->size() : QSize(1024, 768);
  return {EnTwips(size.width()), EnTwips(size.height())};
}

void Form1::FondGrilleSysteme() { TDBGrid1->ChangeFond(SystemColour::ButtonFace); }

void Form1::AppliqueReglages() {
  const QRect stored(EnPixels(state_.GrilleGauche), EnPixels(state_.GrilleHaut),
                     EnPixels(state_.GrilleLargeur), EnPixels(state_.GrilleHauteur));
  const QRect place = PlaceVisible(stored, state_.EtatFenetre == Agrandie);
  resize(place.size());
  move(place.topLeft());
  TDBGrid1->AppliqueLargeurs();
  TDBGrid1->AppliqueCouleurs();
  AfficheDerniersFichiers();
}

void Form1::ReleveReglages() {
  state_.EtatFenetre = isMinimized() ? Reduite : isMaximized() ? Agrandie : Normale;
  state_.GrilleGauche = EnTwips(x());
  state_.GrilleHaut = EnTwips(y());
  state_.GrilleLargeur = EnTwips(width());
  state_.GrilleHauteur = EnTwips(height());
  TDBGrid1->ReleveLargeurs();
}

void Form1::InitTDBgrid() { TDBGrid1->InitTDBgrid(); }

void Form1::ColoreOptTri() {
  for (QRadioButton* option : OptTri) option->setBackgroundRole(Picture1->backgroundRole());
}

void Form1::ColoreFenetres() {
  // The desktop's own face colour; its light or dark palette comes with it.
  for (QWidget* widget : std::initializer_list<QWidget*>{this, LabelTitre, LabelCommentaire}) {
    widget->setBackgroundRole(QPalette::Window);
  }
}

void Form1::MontreFenetre() {
  if (state_.EtatFenetre == Agrandie) {
    showMaximized();
  } else if (state_.EtatFenetre == Reduite) {
    showMinimized();
  } else {
    showNormal();
  }
}

void Form1::FermeSplash() {
  if (splash_ != nullptr) splash_->close();
  splash_ = nullptr;
}

void Form1::Termine() {
  ended_ = true;
  close();
  Q_EMIT Fini();
}

void Form1::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (state_.document.Montre().grille) AjusteGrille();
  AjusteOutils();
}

// In a window too narrow for their captions the tool buttons show their icons alone.
void Form1::AjusteOutils() {
  const auto montre = [this](Qt::ToolButtonStyle style) {
    for (QToolButton* button : cmd) button->setToolButtonStyle(style);
    cmdMap->setToolButtonStyle(style);
  };
  montre(Qt::ToolButtonTextBesideIcon);
  if (Picture1->layout()->sizeHint().width() > width()) montre(Qt::ToolButtonIconOnly);
}

void Form1::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && cmdMap != nullptr) ChargeIcones();
}

}  // namespace talpena

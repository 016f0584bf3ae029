// What the controls of Form1 do: each calls one procedure of the logic.
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolButton>

#include "analysis/windows/frm_options_periodes.h"
#include "common/msg_id_errors.h"
#include "common/string_table.h"
#include "coord_commands/adjust.h"
#include "coords/snap.h"
#include "coords/windows/ajustement.h"
#include "coords/windows/frm_datum.h"
#include "coords/windows/frm_lmb_ifbl.h"
#include "interchange/windows/options_export.h"
#include "maps/windows/frm_carte.h"
#include "maps/windows/map.h"
#include "maps/windows/options_map.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "platform/qt/colours.h"
#include "platform/qt/command_actions.h"
#include "shell/windows/attente.h"
#include "shell/windows/form1.h"
#include "shell/windows/frm_eastern.h"
#include "shell/windows/help_desk.h"
#include "shell/windows/prefer.h"
#include "store/edition.h"
#include "store/file_commands.h"
#include "store/row_commands.h"
#include "store/sort.h"
#include "store/windows/edit_form.h"
#include "store/windows/grid_colours.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

/// Longest interval of the timer, milliseconds: the program's "minute".
constexpr int tickMs = 65535;

/// Counts a command while it runs, also when it is left by an exception.
class Running {
 public:
  explicit Running(int& count) : count_(count) { ++count_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() { --count_; }

 private:
  int& count_;
};

}  // namespace

bool Form1::Commande(const std::function<void()>& body) {
  if (running_ > 0 || !TDBGrid1->ValideEdition()) return false;
  bool done = false;
  {
    const Running running(running_);
    ExecuteCommande(state_, io_, {}, [&] {
      body();
      done = true;
    });
  }
  ApresCommande();
  return done;
}

void Form1::ApresCommande() {
  if (derniersFichiers_ != state_.LastFiles) AfficheDerniersFichiers();
  if (etat_ != Etat()) ActiveControles();
  if (tickWaits_) {
    tickWaits_ = false;
    QTimer::singleShot(0, this, &Form1::Timer1_Tick);
  }
  if (closeWaits_) {
    closeWaits_ = false;
    QTimer::singleShot(0, this, &QWidget::close);
  }
}

void Form1::Relie() {
  for (const auto& [button, entry] : outils_) {
    const auto runs = [this, entry = entry] { Execute(*entry); };
    connect(button, &QToolButton::clicked, this, runs);
    for (const QKeySequence& keys : Touches(entry->key)) {
      connect(new QShortcut(keys, this), &QShortcut::activated, this, runs);
    }
  }
  for (std::size_t i = 0; i < cmdFirstLast.size(); ++i) {
    connect(cmdFirstLast[i], &QToolButton::clicked, this,
            [this, i] { cmdFirstLast_Click(static_cast<int>(i)); });
  }
  CmbTri->installEventFilter(this);
  connect(CmbTri, &QComboBox::currentIndexChanged, this, &Form1::CmbTri_Click);
  connect(OptTri[1], &QRadioButton::toggled, this, &Form1::CmbTri_Click);
  ChangeTexte(*BoxTitre_, &DistributionHeader::BoxTitre);
  ChangeTexte(*Commentaire_, &DistributionHeader::Commentaire);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { SuitFocus(now); });
  connect(lbl1, &QLabel::linkActivated, this, [this](const QString& link) {
    Execute(
        RangeeNommee(ArbreDesMenus(), link == QLatin1String("new") ? "MnuNouveau" : "MnuOuvrir"));
  });
  connect(panels_[1], &QLabel::linkActivated, this,
          [this] { Commande([this] { RouvreEnLf(Commandes()); }); });
  connect(TDBGrid1, &QTableView::doubleClicked, this, &Form1::MontreEdition);
  Timer1 = new QTimer(this);
  Timer1->setObjectName(QStringLiteral("Timer1"));
  Timer1->setInterval(tickMs);
  connect(Timer1, &QTimer::timeout, this, &Form1::Timer1_Tick);
  Timer1->start();
}

/// What is typed into a box is the document's at once.
void Form1::ChangeTexte(QLineEdit& box, std::string DistributionHeader::*text) {
  const auto prend = [this, text](const QString& shown, bool typed) {
    const std::string now = shown.toStdString();
    if (!typed && state_.document.Entete().*text == now) return;
    Edition edition(state_.document, "Title");
    if (!typed) edition.LaisseNonModifie();
    edition.Entete().*text = now;
    edition.Valide();
  };
  connect(&box, &QLineEdit::textEdited, this, [prend](const QString& t) { prend(t, true); });
  // What an aid for the disabled puts there is not typed, and is saved all the same.
  connect(&box, &QLineEdit::textChanged, this, [prend](const QString& t) { prend(t, false); });
}

/// While it paints, no command runs and no row is read: a statement may be under way.
void Form1::ConstruitAttente() {
  attente_ = new Attente(state_, *this, *ProgressBar1);
  attente_->Fige = [this](bool painting) {
    running_ += painting ? 1 : -1;
    TDBGrid1->Fige(painting);
  };
  attente_->SePeint = [this] { return TDBGrid1->SePeint(); };
  attente_->Gele = [this](bool frozen) { TDBGrid1->setUpdatesEnabled(!frozen); };
  connect(attente_, &Attente::Fini, this, [this] {
    if (running_ == 0) ApresCommande();
  });
}

bool Form1::Charge(const std::string& commandLine) {
  {
    const Running running(running_);
    const auto failure = ChargeForm1(Contexte(), commandLine);
    if (failure) DitArretDeCharge(Contexte(), *failure);
    if (failure && !isVisible()) FermeSplash(), Termine();  // nothing else is on the screen
  }
  ApresCommande();
  return !ended_;
}

void Form1::Execute(const MenuEntry& entry) {
  const MenuEntry& runs = RangeeDe(ArbreDesMenus(), entry);
  if (runs.run != nullptr) runs.run(*this, runs.index);
}

void Form1::MnuLang_Click(int index) {
  Commande([&] { talpena::MnuLang_Click(Contexte(), index); });
  actions_.at("MnuLang_" + std::to_string(state_.Langue / 1000))->setChecked(true);
}

void Form1::MnuPreferences_Click() { Prefer(Commandes(), this).exec(); }

void Form1::MnuLmbIfbl_Click() { frmLmbIfbl(state_, this).exec(); }

/// At any time: what is typed in the grid may stay as it is.
void Form1::MnuAideTexte_Click() {
  ExecuteCommande(state_, io_, {}, [this] { aide_->MnuAideTexte_Click(); });
}

void Form1::cmdFirstLast_Click(int index) {
  Commande([&] { talpena::cmdFirstLast_Click(Commandes(), index); });
}

void Form1::CmbTri_Click() {
  const int index = CmbTri->currentIndex();
  const bool descending = OptTri[1]->isChecked();
  const bool sorted = Commande([&] {
    Busy busy(*attente_);
    busy.Annulable();
    ChangeTri(state_.document, index, descending);
  });
  if (sorted) {
    sortIndex_ = index;
    sortDescending_ = descending;
    return;
  }
  const QSignalBlocker list(CmbTri);  // the controls show the order that the grid has
  const QSignalBlocker option(OptTri[1]);
  CmbTri->setCurrentIndex(sortIndex_);
  OptTri[sortDescending_ ? 1 : 0]->setChecked(true);
}

// The colour that is shown may be another one than that of the settings, which stays unless the
// user chooses a new one.
void Form1::ChangeCouleur(std::uint32_t& stored, QColor GridColours::*shown) {
  const GridColours colours =
      CouleursDeGrille(state_, state_.CouleurFondGrille, QApplication::palette());
  const std::uint32_t now = EnCouleur(colours.*shown);
  const std::uint32_t chosen = io_.dialogues.ChoisitCouleur(now);
  if (chosen != now) stored = chosen;
  TDBGrid1->AppliqueCouleurs();
}

void Form1::MnuGrille_Click() { ChangeCouleur(state_.CouleurFondGrille, &GridColours::background); }

void Form1::MnuTxtGrille_Click() { ChangeCouleur(state_.CouleurTexteGrille, &GridColours::text); }

void Form1::MnuInfo_Click() { frmEastern(state_, this).exec(); }

/// A key asked for a row, and there is none.
void Form1::DitSansLigne() {
  const int text = FichierOuvert() ? MsgId::EchecSansLigne : MsgId::EchecSansFichier;
  Bip(state_, io_);
  io_.dialogues.Demande({.text = Texte(state_.Langue, text), .icon = Icon::Information});
}

/// Ctrl+Home and Ctrl+End where no control has a use of its own for them.
bool Form1::VaParTouche(const QKeyEvent& event) {
  const bool first = event.key() == Qt::Key_Home;
  if (event.modifiers() != Qt::ControlModifier) return false;
  if (!first && event.key() != Qt::Key_End) return false;
  if (running_ > 0) return true;
  if (!Etat().hasRow) {
    DitSansLigne();
    return true;
  }
  cmdFirstLast_Click(first ? 0 : 1);
  PlaceFocusGrille();
  return true;
}

void Form1::keyPressEvent(QKeyEvent* event) {
  if (!VaParTouche(*event)) QMainWindow::keyPressEvent(event);
}

/// The sort list would take these keys for its own first and last entry.
bool Form1::eventFilter(QObject* watched, QEvent* event) {
  const bool key = watched == CmbTri && event->type() == QEvent::KeyPress;
  if (key && VaParTouche(*static_cast<QKeyEvent*>(event))) return true;
  return QMainWindow::eventFilter(watched, event);
}

/// The record editor on the current row. It is no command itself, since it may stay open all day:
/// ticks of Timer1 save the file meanwhile.
void Form1::MontreEdition() {
  if (running_ > 0 || editForm_ != nullptr || !TDBGrid1->ValideEdition()) return;
  if (!cmd[3]->isEnabled()) return DitSansLigne();
  EditForm form(Commandes(), this);
  editForm_ = &form;
  form.exec();
  editForm_ = nullptr;
  PlaceFocusGrille();
  ApresCommande();
}

/// One map at a time. As the record editor, none is a command itself.
bool Form1::PeutMontrerCarte() {
  const bool free = running_ == 0 && carteOuverte_ == nullptr && cmdMap->isEnabled();
  return free && TDBGrid1->ValideEdition();
}

void Form1::MontreCarte(bool choisit) {
  if (!PeutMontrerCarte()) return;
  frmCarte view(Commandes(), this);
  carteOuverte_ = &view;
  view.Montre(choisit);
  ApresCarte();
}

void Form1::MontreCarteRaster(CarteRaster choisie) {
  if (!PeutMontrerCarte()) return;
  Map view(Commandes(), state_.raster, this);
  carteOuverte_ = &view;
  ExecuteCommande(state_, io_, {}, [&] {
    view.Charge(choisie);
    view.exec();
  });
  ApresCarte();
}

void Form1::ApresCarte() {
  carteOuverte_ = nullptr;
  PlaceFocusGrille();
  ApresCommande();
}

void Form1::MnuOptionsCartes_Click() { OptionsMap(state_, io_, this).exec(); }

void Form1::MnuVisAutre_Click() { MontreCarte(true); }

void Form1::cmdMap_Click() { MontreCarte(false); }

void Form1::MontreOptionsPeriodes() { frmOptionsPeriodes(state_, io_, *attente_, this).exec(); }

void Form1::MnuDatumFichier_Click() {
  frmDatum chooser(state_, this);
  chooser.Selectionne(state_.document.Entete().DatumFichierCode);
  chooser.exec();
  if (!chooser.Resultat().empty()) ChangeDatumFichier(Commandes(), chooser.Resultat());
}

bool Form1::MontreAjustement() { return Ajustement(state_, this).Demande(); }

bool Form1::MontreOptionsExport(ExportKind kind) {
  return OptionsExport(state_, io_, kind, this).Demande();
}

std::vector<Bookmark> Form1::LignesSelectionnees() { return TDBGrid1->LignesChoisies(); }

void Form1::ChoisitLignes(const std::vector<Bookmark>& rows) { TDBGrid1->ChoisitLignes(rows); }

std::optional<ColumnRange> Form1::ColonnesSelectionnees() { return TDBGrid1->ColonnesChoisies(); }

void Form1::SelectionneColonnes(ColumnRange columns) { TDBGrid1->SelectionneColonnes(columns); }

int Form1::ColonneCourante() { return TDBGrid1->ColonneCourante(); }

void Form1::RecalculeCoordonnees() { AjusteDegres(Commandes(), SansMaille, SansMaille); }

void Form1::Timer1_Tick() {
  if (running_ > 0) {
    tickWaits_ = true;
    return;
  }
  {
    // What is half typed in the grid stays half typed.
    const Running running(running_);
    ExecuteCommande(state_, io_, {}, [this] { Timer1_Timer(Commandes()); });
  }
  ApresCommande();
}

void Form1::closeEvent(QCloseEvent* event) {
  event->accept();
  if (ended_) return;
  if (running_ > 0) {
    closeWaits_ = true;
    event->ignore();
    return;
  }
  if (editForm_ != nullptr) {
    closeWaits_ = editForm_->close();  // it may ask to save, and stay
    event->ignore();
    return;
  }
  if (carteOuverte_ != nullptr) {
    closeWaits_ = carteOuverte_->close();
    event->ignore();
    return;
  }
  if (analyse_ != nullptr) {
    closeWaits_ = analyse_->close();
    event->ignore();
    return;
  }
  TDBGrid1->TermineEdition();
  const Running running(running_);
  ExecuteCommande(state_, io_, {}, [this] { Form1_Unload(Contexte()); });
}

}  // namespace talpena

// Form1: the main window.
#pragma once
#include <QMainWindow>
#include <QPointer>
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "coord_commands/adjust.h"
#include "gazetteer/gazetteer_context.h"
#include "interchange/export_dialogs.h"
#include "interchange/import_context.h"
#include "platform/chart.h"
#include "platform/platform.h"
#include "shell/process_state.h"
#include "shell/shell_view.h"
#include "shell/start_stop.h"
#include "shell/windows/menus.h"
#include "store/windows/grid_colours.h"

class QAbstractButton;
class QComboBox;
class QDialog;
class QLabel;
class QLineEdit;
class QMenu;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStackedLayout;
class QToolButton;

namespace talpena {

class Attente;
class EditForm;
class HelpDesk;
class TDBGrid;
class frmGeoQuery;

/// Menu bar, tool buttons, title lines, the grid and the status bar. What its controls do are
/// procedures of the logic; every one of them runs inside Commande.
class Form1 : public QMainWindow,
              public MainWindowView,
              public StorePort,
              public AdjustDialogs,
              public ExportDialogs,
              public ImportDialogs,
              public ChartPort,
              public GazetteerDialogs,
              public ShellView {
  Q_OBJECT

 public:
  Form1(ProcessState& state, Platform& io, QWidget* parent = nullptr);
  ~Form1() override;

  /// Brings the window up and opens the file of the command line. False when the process has to
  /// end: there is no datum catalogue.
  bool Charge(const std::string& commandLine);
  /// The splash that FermeSplash closes.
  void ChangeSplash(QWidget* splash) { splash_ = splash; }
  ShellContext Contexte();
  CommandContext Commandes() { return Contexte().Commandes(); }
  ImportContext Importations() { return {Commandes(), state_.interchange, *this}; }

  /// Runs one that makes a chart, which is shown once the command has ended: it may stay open all
  /// day.
  void CommandeGraphique(const std::function<void()>& body);

  /// Runs a command under the common handler, with what is typed in the grid stored before. A
  /// tick of Timer1 and the close box wait until it has ended. False when it did not end well.
  bool Commande(const std::function<void()>& body);

  // What rows of the table of commands run.
  void MnuLang_Click(int index);
  void MnuPreferences_Click();
  void MnuSelection_Click();
  void MnuGrille_Click();
  void MnuTxtGrille_Click();
  void MnuDatumFichier_Click();
  void MnuLmbIfbl_Click();
  void MnuVisAutre_Click();
  void mnuResume_Click();
  void MnuAideTexte_Click();
  void MnuInfo_Click();
  void MontreEdition();
  void cmdMap_Click();
  void MontreCarteRaster(CarteRaster choisie);
  void MnuOptionsCartes_Click();

  // MainWindowView
  std::vector<Bookmark> LignesSelectionnees() override;
  void ChoisitLignes(const std::vector<Bookmark>& rows) override;
  std::optional<ColumnRange> ColonnesSelectionnees() override;
  void SelectionneColonnes(ColumnRange columns) override;
  int ColonneCourante() override;
  void PlaceFocusGrille() override;
  void PlaceFocusColonne(int column) override;

  // StorePort
  void MontreOptionsPeriodes() override;
  void RecalculeCoordonnees() override;
  void ChercheLieu(RecordScreen& fiche) override;

  // AdjustDialogs
  bool MontreAjustement() override;

  // ExportDialogs
  bool MontreOptionsExport(ExportKind kind) override;

  // ImportDialogs
  void MontreImportation() override;
  void MontreImportGarmin(const std::string& fileName, int type) override;

  // ChartPort
  void MontreGraphique(const ChartPicture& picture) override { graphique_ = picture; }

  // GazetteerDialogs
  void MontreGeoSetup() override;

  // ShellView
  ScreenSize TailleEcran() const override;
  void DesactiveMenus() override;
  void FondGrilleSysteme() override;
  void AppliqueReglages() override;
  void ReleveReglages() override;
  void AppliqueLangue() override;
  void InitFenetres() override;
  void InitTDBgrid() override;
  void ColoreOptTri() override;
  void ColoreFenetres() override;
  void MontreFenetre() override;
  void FermeSplash() override;
  void Termine() override;

 Q_SIGNALS:
  void Fini();  ///< the process has to end

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ConstruitMenus();
  void ConstruitMenu(QMenu& menu, std::span<const MenuEntry> entries);
  QAction* ConstruitEntree(const MenuEntry& entry, QWidget& owner);
  void ConstruitPicture1();
  void ConstruitTitres();
  void ConstruitCentre();
  void ConstruitBarreEtat();
  void ConstruitAttente();
  void OrdonneTabulation();
  void ChargeIcones();
  void Relie();

  void ApresCommande();

  /// The command of an entry, or the one that it repeats.
  void Execute(const MenuEntry& entry);
  MenuState Etat() const;
  void cmdFirstLast_Click(int index);
  void ChangeCouleur(std::uint32_t& stored, QColor GridColours::*shown);
  void CmbTri_Click();
  bool PeutMontrerCarte();
  void MontreCarte(bool choisit);
  void ApresCarte();
  void MontreAnalyse(QDialog& window);
  void Timer1_Tick();
  void SuitDocument(Changes changes);
  void MontreEntete();
  void MontreAffichage(Changes changes);
  void AjusteGrille();
  void AffichePanneauDatum();
  void DitSansLigne();
  bool VaParTouche(const QKeyEvent& event);
  void ChangeTexte(QLineEdit& box, std::string DistributionHeader::*text);
  bool FichierOuvert() const { return state_.document.Montre().menus; }
  void AfficheDerniersFichiers();
  void ActiveControles();
  void ActiveOutils();
  void AjusteOutils();
  void SouligneLettres();
  void SuitFocus(QWidget* now);
  void QuitteMenus();
  void AffichePosition();
  void SuitLignes();
  void AfficheFiltre();
  void OffreFinsLf();
  void AfficheTri();

  ProcessState& state_;
  Platform& io_;
  QWidget* splash_ = nullptr;
  MenuState etat_;                                 ///< what the menus show
  std::array<std::string, 4> derniersFichiers_{};  ///< so does this
  bool ended_ = false;
  int running_ = 0;          ///< commands under way
  bool tickWaits_ = false;   ///< a tick fell inside a command
  bool closeWaits_ = false;  ///< so did the close box
  int sortIndex_ = 0;        ///< order that the grid shows
  bool sortDescending_ = false;
  bool filtered_ = false;               ///< a filter is on
  bool filterGone_ = false;             ///< the rows on show are the first ones behind a filter
  QPointer<QWidget> focusBesideMenus_;  ///< where the keys go when no menu has them

  std::map<std::string, QAction*> actions_;  ///< by object name
  std::map<std::string, QMenu*> menus_;
  QWidget* Picture1 = nullptr;  ///< the strip of tools
  std::array<QToolButton*, 6> cmd{};
  QToolButton* cmdMap = nullptr;
  std::vector<std::pair<QToolButton*, const MenuEntry*>> outils_;  ///< these seven
  QLabel* LblTri = nullptr;
  QComboBox* CmbTri = nullptr;
  std::array<QRadioButton*, 2> OptTri{};
  std::array<QToolButton*, 2> cmdFirstLast{};
  QLabel* LabelTitre = nullptr;
  QLineEdit* BoxTitre_ = nullptr;
  QLabel* LabelCommentaire = nullptr;
  QLineEdit* Commentaire_ = nullptr;
  QLabel* lbl1 = nullptr;
  TDBGrid* TDBGrid1 = nullptr;
  QStackedLayout* pages_ = nullptr;  ///< lbl1 until a file is open, then the grid
  std::array<QLabel*, 3> panels_{};
  QProgressBar* ProgressBar1 = nullptr;
  QTimer* Timer1 = nullptr;
  Attente* attente_ = nullptr;
  EditForm* editForm_ = nullptr;           ///< while it is open
  QDialog* carteOuverte_ = nullptr;        ///< a map, of either kind, while it is open
  QDialog* analyse_ = nullptr;             ///< as is this: a chart, a summary
  std::optional<ChartPicture> graphique_;  ///< what the command under way made
  frmGeoQuery* frmGeoQuery_ = nullptr;     ///< from its first opening on
  std::unique_ptr<HelpDesk> aide_;         ///< opens the user guide
  Subscription observed_;
};

}  // namespace talpena

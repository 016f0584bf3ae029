// frmCarte: the map view.
#pragma once
#include <QDialog>
#include <QPointF>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "maps/map_context.h"
#include "maps/map_fitting.h"
#include "maps/windows/carte_menus.h"
#include "platform/qt/qt_canvas.h"

class QAction;
class QLabel;
class QMenu;
class QMenuBar;
class QScrollBar;
class QStackedLayout;
class QStatusBar;
class QTimer;
class QToolButton;

namespace talpena {

class MapView;
enum class OngletCartes : std::uint8_t;

/// Modal window over the rows of Data1. It owns the map state, the options and the canvas; what its
/// controls do are procedures of the logic, one at a time. Its place is kept in application
/// "TALPENA", section "Carto".
class frmCarte : public QDialog, public MapWindow {
  Q_OBJECT

 public:
  explicit frmCarte(CommandContext contexte, QWidget* parent = nullptr);
  ~frmCarte() override;

  /// The last map, or the one that the user opens when there is none, and the distribution.
  void Charge();
  /// Charge, and the window until it is closed. With `choisit` the open dialog comes up at once.
  void Montre(bool choisit);

  /// Captions in the current language.
  void AppliqueLangue();

  MapContext Contexte() {
    return {carte_, options_, canevas_, *this, state_, io_, contexte_.vue, contexte_.attente};
  }
  /// One command at a time, under the common handler; a dialog of it may be up while keys come in.
  void Commande(const std::function<void()>& body);

  // What rows of the table of commands run.
  void OuvreCarte();
  void MontreMaille();  ///< asks for its step
  void ChoisitCouches();
  void ChoisitSymboles();

  // MapWindow
  void ActiveEps(bool enabled) override;
  void AjusteMap() override;
  void ChangeTitre(const std::string& text) override;
  void MontrePanneau(int panel, const std::string& text) override;
  void MontreCanevas() override;
  void QuandPeinte(const std::function<void()>& body) override;

  /// Keeps its place and the look of the symbols.
  void done(int result) override;

 protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // frm_carte_build.cpp: the controls, and where they stand.
  void ConstruitMenus();
  void ConstruitMenu(const CarteEntree& menu);
  void ConstruitOutils();
  void ConstruitCentre();
  void ConstruitBarreEtat();
  void Dispose();
  void Relie();
  void ChargeIcones();

  /// The command of an entry, or the one that it repeats.
  void Execute(const CarteEntree& entry);
  void SetOptions(OngletCartes onglet);
  void picCarte_MouseDown(Qt::MouseButton button, QPointF pixel);
  void SuitPosition();

  void CalculeScroll();
  MapFrame Cadre() const;
  TwipsSize Interieur() const;
  TwipsSize Image() const;
  void MontreCroix(QPoint pixel);
  void PlaceFenetre();
  void SuitEcran();
  void AjusteOutils();
  void ActiveControles();
  void AppliqueTitre();
  void DessineAttendue();

  CommandContext contexte_;
  StoreState& state_;
  Platform& io_;
  MapState carte_;
  MapOption options_;
  QtCanvas canevas_;
  std::function<void()> attendue_;  ///< runs once the window is painted and no command under way
  bool chargee_ = false;
  bool enCours_ = false;     ///< a command is under way
  bool eps_ = false;         ///< the map is georeferenced
  bool titrePris_ = false;   ///< the caption tells a position
  QPoint voulue_;            ///< place of the settings
  QPointF position_;         ///< of the mouse, pixels of the picture
  QTimer* suivi_ = nullptr;  ///< the read-out follows once the events have been worked off

  std::map<std::string, QMenu*> menus_;
  std::vector<std::pair<QAction*, const CarteEntree*>> entrees_;
  QMenuBar* barreMenus_ = nullptr;
  QWidget* Toolbar1 = nullptr;
  std::vector<std::pair<QToolButton*, const CarteEntree*>> outils_;
  QWidget* centre_ = nullptr;  ///< picture and bars, or the hint
  QStackedLayout* pages_ = nullptr;
  QWidget* cadre_ = nullptr;  ///< picture and bars
  QLabel* lblVide = nullptr;  ///< until a map is open
  MapView* picCarte = nullptr;
  QScrollBar* HScroll1 = nullptr;
  QScrollBar* VScroll1 = nullptr;
  QWidget* PetitCarre = nullptr;
  QStatusBar* StatusBar1 = nullptr;
  std::array<QLabel*, 3> panneaux_{};
};

}  // namespace talpena

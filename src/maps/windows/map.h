// Map: the raster map view.
#pragma once
#include <QDialog>
#include <QPointF>
#include <functional>

#include "maps/raster/raster_context.h"
#include "platform/qt/qt_canvas.h"
#include "store/command_context.h"

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QTimer;
class QToolButton;

namespace talpena {

class MapView;

/// Modal window over the rows of Data1 and one of the raster maps, whose picture fills it as far as
/// its proportions allow. What its controls do are procedures of the logic, one at a time. Its
/// place is kept in application "TLP", section "Map".
class Map : public QDialog, public RasterWindow {
  Q_OBJECT

 public:
  /// @param carte  the map on show, which outlives the window
  Map(CommandContext contexte, RasterMap& carte, QWidget* parent = nullptr);

  /// Takes the map; its rows are drawn when it is first painted. A picture that is missing is
  /// thrown, and then the window is not to be shown.
  void Charge(CarteRaster choisie);

  /// Captions in the current language; what was typed stays.
  void AppliqueLangue();

  RasterContext Contexte();
  /// One command at a time, under the common handler.
  void Commande(const std::function<void()>& body);

  // RasterWindow
  void MontreCanevas() override;

  /// Asks whether new points stay, keeps its place.
  void done(int result) override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // map_build.cpp: the controls, and where they stand.
  void ConstruitEntrees(QBoxLayout& column);
  void ConstruitCarte(QBoxLayout& column);
  void ConstruitLectures(QBoxLayout& column);
  void Relie();
  void ChargeIcones();
  void PlaceFenetre();

  void AppliqueCarte();
  void AjusteTaille();
  void SuitEcran();
  void SuitPosition();
  void VideLectures();
  void GardePlace();
  void txtAnnee_Change();
  void Picture1_MouseDown(Qt::MouseButton button, QPointF pixel);
  void cmdOptions_Click();
  void Command1_Click();

  CommandContext contexte_;
  StoreState& state_;
  Platform& io_;
  RasterMap& carte_;
  RasterSession session_;
  QtCanvas canevas_;
  int legende_ = 0;  ///< base id of the map's name
  bool chargee_ = false;
  bool peinte_ = false;           ///< the rows have been drawn, or are about to be
  bool enCours_ = false;          ///< a command is under way
  QPointF position_;              ///< of the mouse, pixels of the picture
  QTimer* suivi_ = nullptr;       ///< the read-out follows once the events have been worked off
  QTimer* ajustement_ = nullptr;  ///< so does the picture when the window has another size

  QLabel* lblAnnee = nullptr;
  QLineEdit* txtAnnee = nullptr;
  QLabel* lblPeriode = nullptr;
  QComboBox* ChoixPeriode = nullptr;
  QToolButton* Command1 = nullptr;
  QToolButton* cmdOptions = nullptr;
  QToolButton* cmdFermer = nullptr;
  MapView* Picture1 = nullptr;
  QLabel* LblPosition = nullptr;
  QLabel* LblUTM = nullptr;
  QLabel* LblMGRS = nullptr;
  QLabel* LblGrille = nullptr;  ///< caption of LblBNG
  QLabel* LblBNG = nullptr;
};

}  // namespace talpena

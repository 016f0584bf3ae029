#include "maps/windows/map.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <array>
#include <utility>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "maps/raster/raster_clicks.h"
#include "maps/raster/raster_plot.h"
#include "maps/raster/raster_readout.h"
#include "maps/windows/map_view.h"
#include "maps/windows/options_map.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/window_place.h"

namespace talpena {
namespace {

PointKm EnKm(QPointF units) { return {units.x(), units.y()}; }

}  // namespace

RasterContext Map::Contexte() {
  return {carte_, session_, canevas_, *this, state_, io_, contexte_.vue, contexte_.attente};
}

void Map::Commande(const std::function<void()>& body) {
  if (std::exchange(enCours_, true)) return;
  ExecuteCommande(state_, io_, {}, body);
  enCours_ = false;
  MontreCanevas();
}

void Map::Charge(CarteRaster choisie) {
  ChargeCarteRaster(Contexte(), choisie);
  legende_ = LigneRaster(choisie).caption;
  chargee_ = true;
  AppliqueCarte();
  PlaceFenetre();
  MontreCanevas();
}

void Map::AppliqueCarte() {
  const GrilleLocale grille = GrilleDe(carte_.FichierCarte);
  LblGrille->setText(EnQt(NomGrille(grille)));
  LblGrille->setVisible(grille != GrilleLocale::None);
  LblBNG->setVisible(grille != GrilleLocale::None);
  Command1->setVisible(grille == GrilleLocale::British);
  ChoixPeriode->clear();
  for (int period = 1; period <= NombrePeriodes(state_.document.Entete()); ++period) {
    ChoixPeriode->addItem(QString::number(period));
  }
  AppliqueLangue();
}

void Map::MontreCanevas() { Picture1->Rafraichit(); }

/// The picture as large as the window has room for, with all that was drawn on it.
void Map::AjusteTaille() {
  if (!chargee_) return;
  if (enCours_) return ajustement_->start();
  const QSize wanted =
      canevas_.TailleFichier().scaled(Picture1->size(), Qt::KeepAspectRatio).expandedTo({1, 1});
  if (wanted == canevas_.TailleImage()) return;
  Commande([&] {
    canevas_.ChangeTaille(wanted);
    if (peinte_) RedessineRaster(Contexte());
  });
}

/// On a screen of another density the map is drawn anew.
void Map::SuitEcran() {
  const double ratio = devicePixelRatioF();
  if (!chargee_ || ratio == canevas_.Rapport()) return;
  Commande([&] {
    canevas_.ChangeRapport(ratio);
    RedessineRaster(Contexte());
  });
}

void Map::SuitPosition() {
  if (enCours_ || !chargee_) return;
  const RasterLabels labels =
      LitPositionRaster(state_.Catalogue, carte_, EnKm(canevas_.EnUnites(position_)));
  LblPosition->setText(EnQt(labels.LblPosition));
  LblUTM->setText(EnQt(labels.LblUTM));
  LblMGRS->setText(EnQt(labels.LblMGRS));
  LblBNG->setText(EnQt(labels.LblBNG));
}

void Map::VideLectures() {
  suivi_->stop();
  for (QLabel* label : {LblPosition, LblUTM, LblMGRS, LblBNG}) label->clear();
}

void Map::txtAnnee_Change() {
  const int period = PeriodeDeLAnnee(txtAnnee->text().toStdString(), state_.document.Entete());
  ChoixPeriode->setCurrentIndex(period - 1);
}

void Map::Picture1_MouseDown(Qt::MouseButton button, QPointF pixel) {
  const PointKm point = EnKm(canevas_.EnUnites(pixel));
  if (button == Qt::LeftButton) {
    const RasterEntry entry{static_cast<std::int16_t>(ChoixPeriode->currentIndex() + 1),
                            txtAnnee->text().toStdString()};
    Commande([&] { AjoutePointRaster(Contexte(), entry, point); });
  }
  if (button == Qt::RightButton) Commande([this] { RetirePointRaster(Contexte()); });
}

void Map::cmdOptions_Click() {
  Commande([this] {
    if (OptionsMap(state_, io_, this).exec() == QDialog::Accepted) RedessineRaster(Contexte());
  });
}

void Map::Command1_Click() {
  Commande([this] { EcritGrillesPrn(Contexte()); });
}

void Map::GardePlace() {
  const QPoint place = isMaximized() || isFullScreen() ? normalGeometry().topLeft() : pos();
  const std::array entries = {SettingEntry{"Map", "Top", Str(EnTwips(place.y()))},
                              SettingEntry{"Map", "Left", Str(EnTwips(place.x()))}};
  io_.settings.EcritTout("TLP", entries);
}

void Map::done(int result) {
  if (enCours_) return;
  if (std::exchange(chargee_, false)) {
    Commande([this] { FermeRaster(Contexte()); });
    ExecuteCommande(state_, io_, {}, [this] { GardePlace(); });
  }
  QDialog::done(result);
}

void Map::closeEvent(QCloseEvent* event) {
  if (enCours_) return event->ignore();
  QDialog::closeEvent(event);
}

void Map::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
  if (event->type() == QEvent::PaletteChange && Picture1 != nullptr) ChargeIcones();
}

void Map::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  AjusteTaille();  // the controls have their places now
  Picture1->setFocus();
  connect(windowHandle(), &QWindow::screenChanged, this, &Map::SuitEcran, Qt::UniqueConnection);
}

/// The window and its picture are on the screen before the rows, which may take a while.
bool Map::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Picture1 && event->type() == QEvent::Paint && !std::exchange(peinte_, true)) {
    QTimer::singleShot(0, this, [this] { Commande([this] { RedessineRaster(Contexte()); }); });
  }
  if (watched == Picture1 && event->type() == QEvent::Resize && isVisible()) ajustement_->start();
  return QDialog::eventFilter(watched, event);
}

}  // namespace talpena

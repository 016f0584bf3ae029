// What the controls of frmCarte do: each calls one procedure of the logic.
#include <QTimer>
#include <optional>
#include <utility>

#include "maps/canvas_sink.h"
#include "maps/grid_overlay.h"
#include "maps/map_files.h"
#include "maps/plot.h"
#include "maps/redraw.h"
#include "maps/symbol_cover.h"
#include "maps/windows/frm_carte.h"
#include "maps/windows/frm_cartes_options.h"
#include "maps/windows/land_share.h"
#include "maps/windows/map_view.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"

namespace talpena {

void frmCarte::Commande(const std::function<void()>& body) {
  if (std::exchange(enCours_, true)) return;
  ExecuteCommande(state_, io_, {}, body);
  enCours_ = false;
  MontreCanevas();
  if (attendue_ && isVisible()) QTimer::singleShot(0, this, &frmCarte::DessineAttendue);
}

void frmCarte::Charge() {
  chargee_ = true;
  Commande([this] { ChargeVue(Contexte()); });
  AppliqueTitre();
}

void frmCarte::Montre(bool choisit) {
  Charge();
  if (choisit) QTimer::singleShot(0, this, &frmCarte::OuvreCarte);
  exec();
}

void frmCarte::Execute(const CarteEntree& entry) {
  const CarteEntree& runs = RangeeDe(MenusCarte(), entry);
  if (runs.run != nullptr) runs.run(*this, runs.index);
}

void frmCarte::MontreMaille() {
  Commande([this] {
    carte_.Grille = true;
    ScreenSink ecran(Contexte());
    DisplayGrid(Contexte(), ecran, true);
  });
}

void frmCarte::ChoisitCouches() { SetOptions(OngletCartes::Tlp); }

void frmCarte::ChoisitSymboles() { SetOptions(OngletCartes::Symboles); }

void frmCarte::OuvreCarte() {
  titrePris_ = false;
  Commande([this] { OuvrirCarte(Contexte()); });
  AppliqueTitre();
}

void frmCarte::SetOptions(OngletCartes onglet) {
  Commande([this, onglet] {
    frmCartesOptions dialogue(state_, io_, carte_, options_, onglet, this);
    const std::optional<double> land = PartDeTerre(EnQt(carte_.FichierImage));
    if (land) dialogue.Conseille(ConseilDiametre(Contexte(), *land));
    dialogue.exec();
    if (options_.Cancel == 0) RedrawMap(Contexte());
  });
}

void frmCarte::picCarte_MouseDown(Qt::MouseButton button, QPointF pixel) {
  const QPointF at = canevas_.EnUnites(pixel);
  const auto x = static_cast<float>(at.x()), y = static_cast<float>(at.y());
  if (button == Qt::LeftButton) Commande([&] { AjouteLigneCarte(Contexte(), x, y); });
  if (button == Qt::RightButton) Commande([&] { RetireLigneCarte(Contexte(), x, y); });
}

void frmCarte::SuitPosition() {
  if (enCours_ || canevas_.TailleImage().isEmpty()) return;
  const QPointF at = canevas_.EnUnites(position_);
  ExecuteCommande(state_, io_, {}, [&] {
    MontrePosition(Contexte(), static_cast<float>(at.x()), static_cast<float>(at.y()));
  });
}

}  // namespace talpena

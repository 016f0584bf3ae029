// What Form1 shows of an analysis: charts and the summary.
#include "analysis/windows/frm_graphique.h"
#include "analysis/windows/frm_resume.h"
#include "common/paths.h"
#include "shell/windows/form1.h"

namespace talpena {

void Form1::CommandeGraphique(const std::function<void()>& body) {
  graphique_.reset();
  if (!Commande(body) || !graphique_) return;
  frmGraphique window(state_, io_, *graphique_, DossierDe(state_.document.Fichier.NomFichier),
                      this);
  MontreAnalyse(window);
}

void Form1::mnuResume_Click() {
  std::optional<Summary> summary;
  if (!Commande([&] { summary = ResumeLignes(Commandes()); })) return;
  frmResume window(state_, io_, std::move(*summary), DossierDe(state_.document.Fichier.NomFichier),
                   this);
  MontreAnalyse(window);
}

/// As the map it is no command itself: ticks of Timer1 save the file meanwhile.
void Form1::MontreAnalyse(QDialog& window) {
  analyse_ = &window;
  window.exec();
  analyse_ = nullptr;
  PlaceFocusGrille();
  ApresCommande();
}

}  // namespace talpena

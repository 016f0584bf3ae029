// A main window that shows nothing, for benchmarks and fuzzing.
#pragma once
#include <array>
#include <string>

#include "platform/main_window_view.h"

namespace talpena::test {

class SilentView : public MainWindowView {
 public:
  int progressions = 0;  ///< how often the progress bar was moved
  int tours = 0;         ///< how often the message loop ran

  void ChangeTitreFenetre(const std::string&) override {}
  std::string BoxTitre() const override { return titre_; }
  void ChangeBoxTitre(const std::string& text) override { titre_ = text; }
  std::string Commentaire() const override { return commentaire_; }
  void ChangeCommentaire(const std::string& text) override { commentaire_ = text; }
  void MontreTitres() override {}
  void AjusteGrille() override {}
  void ActiveMenus() override {}
  void CacheLbl1() override {}
  void PlaceFocusGrille() override {}
  bool GrilleVisible() const override { return true; }
  std::string TexteCellule(int) override { return "1"; }
  void AfficheMessage(const std::string&) override {}
  void FermeMessage() override {}
  void ChangeSablier(bool) override {}
  void MontreBarre(bool) override {}
  void MontreProgression(double) override { ++progressions; }
  void TraiteMessages() override { ++tours; }
  void AffichePanneauDatum(const std::string&) override {}
  void AfficheDerniersFichiers(const std::array<std::string, 4>&) override {}
  void MontreOptionsPeriodes() override {}
  bool MontreAjustement() override { return false; }
  std::vector<Bookmark> LignesSelectionnees() override { return {}; }
  void ChoisitLignes(const std::vector<Bookmark>&) override {}
  std::optional<ColumnRange> ColonnesSelectionnees() override { return {}; }
  void SelectionneColonnes(ColumnRange) override {}
  int ColonneCourante() override { return 0; }
  void ActiveSuivant() override {}
  void GeleGrille(bool) override {}
  void RecalculeCoordonnees() override {}

 private:
  std::string titre_;
  std::string commentaire_;
};

}  // namespace talpena::test

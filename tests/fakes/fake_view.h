// The main window as a list of what it was told.
#pragma once
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "coord_commands/adjust.h"
#include "fakes/document_states.h"
#include "interchange/import_context.h"
#include "platform/main_window_view.h"
#include "platform/wait_view.h"
#include "store/document.h"
#include "store/store_port.h"

namespace talpena::test {

class FakeView : public MainWindowView,
                 public WaitView,
                 public StorePort,
                 public AdjustDialogs,
                 public ImportDialogs {
 public:
  std::vector<std::string> calls;  ///< every call, as "Name text"
  std::string titre, boxTitre, commentaire, panneauDatum, message;
  std::vector<int> progression;
  bool menusActifs = false, sablier = false, barre = false, titresVisibles = false,
       grilleVisible = false;
  int periodes = 0;                         ///< how often frmOptionsPeriodes was shown
  bool ajustement = true;                   ///< what Ajustement answers
  std::function<void()> importation;        ///< what is done in frmImportation
  std::function<void(RecordScreen&)> lieu;  ///< and in frmGeoQuery
  std::vector<Bookmark> selection;          ///< rows chosen in the grid
  std::optional<ColumnRange> colonnes;      ///< columns chosen in the grid
  int colonneCourante = 0;
  bool grilleGelee = false;
  Annulation annulable = Annulation::Aucune;  ///< the user may give up
  int abandonDans = 0;                        ///< beats until he does; 0 for never
  std::vector<bool> sabliers;                 ///< every hourglass and every pointer, in order

  /// From now on it shows the document, as the main window does.
  void Suit(Document& document) {
    observed_ = document.Observe([this, &document](Changes changes) {
      if (changes.Touche(Aspect::Title)) {
        Note("ChangeTitreFenetre", titre = document.Montre().titreFenetre);
      }
      if (changes.Touche(Aspect::Header)) MontreEntete(document.Entete());
      MontreAffichage(changes, document.Montre());
    });
  }

  void AfficheMessage(const std::string& t) override { Note("AfficheMessage", message = t); }
  void FermeMessage() override { message.clear(), Note("FermeMessage"); }
  void ChangeSablier(bool h) override {
    sablier = h;
    sabliers.push_back(h);
  }
  void MontreBarre(bool v) override { barre = v; }
  void MontreProgression(double p) override { progression.push_back(static_cast<int>(p)); }
  void TraiteMessages() override { Note("TraiteMessages"); }
  void GeleGrille(bool frozen) override { grilleGelee = frozen; }
  bool Bat() override { return annulable != Annulation::Instruction || !EstAbandonne(); }
  bool EstAbandonne() override {
    return annulable != Annulation::Aucune && abandonDans > 0 && --abandonDans == 0;
  }
  void PermetAnnulation(Annulation where) override { annulable = where; }

  void MontreOptionsPeriodes() override { ++periodes, Note("MontreOptionsPeriodes"); }
  void RecalculeCoordonnees() override { Note("RecalculeCoordonnees"); }
  void ChercheLieu(RecordScreen& fiche) override {
    Note("ChercheLieu");
    if (lieu) lieu(fiche);
  }
  bool MontreAjustement() override { return Note("MontreAjustement"), ajustement; }

  void MontreImportation() override {
    Note("MontreImportation");
    if (importation) importation();
  }
  void MontreImportGarmin(const std::string& fileName, int type) override {
    Note("MontreImportGarmin", std::to_string(type) + " " + fileName);
  }

  std::vector<Bookmark> LignesSelectionnees() override { return selection; }
  void ChoisitLignes(const std::vector<Bookmark>& rows) override {
    selection = rows;
    Note("ChoisitLignes");
  }
  std::optional<ColumnRange> ColonnesSelectionnees() override { return colonnes; }
  void SelectionneColonnes(ColumnRange c) override {
    colonnes = c;
    Note("SelectionneColonnes");
  }
  int ColonneCourante() override { return colonneCourante; }
  void PlaceFocusGrille() override { Note("PlaceFocusGrille"); }
  void PlaceFocusColonne(int column) override {
    Note("PlaceFocusColonne", std::to_string(colonneCourante = column));
  }

 private:
  void Note(const std::string& name, const std::string& text = {}) {
    calls.push_back(text.empty() ? name : name + " " + text);
  }
  void MontreEntete(const DistributionHeader& entete) {
    if (panneauDatum != entete.DatumFichierCode) {
      Note("AffichePanneauDatum", panneauDatum = entete.DatumFichierCode);
    }
    if (boxTitre != entete.BoxTitre) Note("ChangeBoxTitre", boxTitre = entete.BoxTitre);
    if (commentaire != entete.Commentaire) {
      Note("ChangeCommentaire", commentaire = entete.Commentaire);
    }
  }
  void MontreAffichage(Changes changes, const Display& display) {
    if (changes.Touche(Aspect::TitleLines)) {
      titresVisibles = display.titres;
      Note("MontreTitres");
    }
    if (changes.Touche(Aspect::Grid)) {
      grilleVisible = display.grille;
      Note("AjusteGrille");
    }
    if (changes.Touche(Aspect::Menus)) {
      menusActifs = display.menus;
      Note(menusActifs ? "ActiveMenus" : "DesactiveMenus");
    }
    if (changes.Touche(Aspect::Words)) Note("CacheLbl1");
  }

  Subscription observed_;
};

}  // namespace talpena::test

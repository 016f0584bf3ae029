// What the commands ask of the main window.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/table_engine.h"

namespace talpena {

/// Grid columns from one to another, both included.
struct ColumnRange {
  int first = 0;
  int last = 0;
  bool operator==(const ColumnRange&) const = default;
};

class MainWindowView {
 public:
  virtual ~MainWindowView() = default;

  virtual void ChangeTitreFenetre(const std::string& title) = 0;
  virtual std::string BoxTitre() const = 0;
  virtual void ChangeBoxTitre(const std::string& text) = 0;  ///< does not set FichierModifie
  virtual std::string Commentaire() const = 0;
  virtual void ChangeCommentaire(const std::string& text) = 0;  ///< nor does this
  /// Shows BoxTitre, LabelTitre, LabelCommentaire and Commentaire.
  virtual void MontreTitres() = 0;
  virtual void AjusteGrille() = 0;
  virtual void ActiveMenus() = 0;
  virtual void CacheLbl1() = 0;
  virtual void PlaceFocusGrille() = 0;
  virtual bool GrilleVisible() const = 0;

  /// Text of a grid column in the grid's current row, "" when there is no row.
  virtual std::string TexteCellule(int column) = 0;

  virtual void AfficheMessage(const std::string& text) = 0;  ///< the wait window; never fails
  virtual void FermeMessage() = 0;
  virtual void ChangeSablier(bool hourglass) = 0;
  virtual void MontreBarre(bool visible) = 0;          ///< ProgressBar1
  virtual void MontreProgression(double percent) = 0;  ///< clamped to 0..100, integer part
  virtual void TraiteMessages() = 0;                   ///< runs the message loop once

  virtual void AffichePanneauDatum(const std::string& code) = 0;  ///< panel 3 of StatusBar1
  virtual void AfficheDerniersFichiers(const std::array<std::string, 4>& paths) = 0;
  virtual void MontreOptionsPeriodes() = 0;  ///< frmOptionsPeriodes, modal
  virtual bool MontreAjustement() = 0;       ///< Ajustement, modal; false when it was cancelled
  /// Bookmarks of the rows chosen in the grid, in the order in which they were chosen; none when no
  /// row is chosen.
  virtual std::vector<Bookmark> LignesSelectionnees() = 0;
  /// From now on these rows are chosen in the grid, in this order, and no others; names of rows
  /// that it does not show are passed over.
  virtual void ChoisitLignes(const std::vector<Bookmark>& rows) = 0;
  /// The columns chosen in the grid by their headings; empty when none is.
  virtual std::optional<ColumnRange> ColonnesSelectionnees() = 0;
  virtual void SelectionneColonnes(ColumnRange columns) = 0;
  virtual int ColonneCourante() = 0;         ///< of the grid's cursor; 0 when it stands nowhere
  virtual void ActiveSuivant() = 0;          ///< there is a search that Next can go on with
  virtual void GeleGrille(bool frozen) = 0;  ///< while frozen, the grid is not drawn
  /// Latitude and longitude of every row anew from its original coordinates.
  virtual void RecalculeCoordonnees() = 0;
};

}  // namespace talpena

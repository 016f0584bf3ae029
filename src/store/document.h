// The open distribution: its rows and how they are on show, what its header says, the file that it
// came from, and what differs from that file. Whoever shows any of it observes the document;
// whoever changes rows or header does so by an Edition.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "common/subscription.h"
#include "platform/files.h"
#include "platform/table_engine.h"
#include "store/data_control.h"
#include "store/distribution_header.h"
#include "store/rows_shown.h"

namespace talpena {

/// What an observer is told of.
enum class Aspect : unsigned {
  Rows = 1,       ///< rows came or went, or other ones are on show
  Values = 2,     ///< values of rows; the list of rows is the same
  Position = 4,   ///< the current row is another one
  Header = 8,     ///< datum, free fields, periods, title or comment
  Modified = 16,  ///< FichierModifie
  Title = 32,     ///< of the window
  // Parts of the window that Display tells of:
  Menus = 64,
  TitleLines = 128,
  Grid = 256,
  Words = 512,  ///< of an empty window
  Notice = 1024
};

/// Several at once.
class Changes {
 public:
  Changes() = default;
  Changes(Aspect aspect) : bits_(static_cast<unsigned>(aspect)) {}  // NOLINT: one is some
  bool Touche(Aspect aspect) const { return (bits_ & static_cast<unsigned>(aspect)) != 0; }
  bool Aucun() const { return bits_ == 0; }
  Changes& operator|=(Changes other) {
    bits_ |= other.bits_;
    return *this;
  }
  bool operator==(const Changes&) const = default;

 private:
  unsigned bits_ = 0;
};

/// The open file as this process left or found it on the disk.
struct FileOnDisk {
  std::string NomFichier;                     ///< full path; empty when the rows have no file yet
  std::optional<FileStamp> EmpreinteFichier;  ///< NomFichier as this process read or wrote it
  /// Path that a save of this process left cut short or missing; its .BAK is the last whole state.
  std::string FichierIncomplet;
  bool LignesHorsFichier = false;  ///< the last save left out rows that a filter hid
  bool FinsLf = false;             ///< its lines seem to end in LF alone: they make one row
  bool LecturePartielle = false;   ///< reading NomFichier failed: the table holds only part of it
};

/// The title bar while the rows have no file.
inline constexpr std::string_view TitreSansFichier = "Talpena";

/// What the main window shows of the document.
struct Display {
  std::string titreFenetre{TitreSansFichier};
  bool menus = false;   ///< the nine entries that need a file can be chosen
  bool titres = false;  ///< title and comment
  bool grille = false;
  bool lbl1 = true;  ///< the words of an empty window
  std::string avis;  ///< what the status bar says of the file until that is over; "" for nothing
};

class Document {
 public:
  Document();
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  [[nodiscard]] Subscription Observe(Observers<Changes>::Observer observer) {
    return observers_.Ajoute(std::move(observer));
  }

  // The rows.
  std::unique_ptr<Database> WorkingDb;  ///< made at start; holds the table TALPENA
  DataControl Data1;
  Database& Base();  ///< DatabaseNotFound (3024) when there is none

  /// Which rows these are: another number once the table was emptied for those of another file.
  std::int64_t NumeroContenu() const { return contents_; }

  /// The order of the sort list, which files are opened in, as its SELECT.
  std::string SqlCourant() const { return SelectDe(order_); }
  void ChangeOrdre(const RowOrder& order) { order_ = order; }
  const RowOrder& Ordre() const { return order_; }

  const RowsShown& LignesMontrees() const { return shown_; }
  bool FiltreActif() const { return Data1.EstLie() && shown_.EstFiltre(); }
  /// Binds the data control to other rows of the table; the current row stays it when it is among
  /// them. When the engine refuses them, nothing has changed and the failure is thrown.
  void MontreLignes(const RowsShown& rows);
  /// The same, from the first row.
  void Relie(const RowsShown& rows);
  /// Relie in the order of SqlCourant.
  void RelieSqlCourant() { Relie(RowsShown::Dans(order_)); }

  // The header.
  const DistributionHeader& Entete() const { return header_; }
  /// The datum that rows will be on, as long as none are on show.
  void PrendDatumParDefaut(const std::string& code, std::int16_t index);

  // The file.
  FileOnDisk Fichier;
  bool FichierModifie() const { return modified_; }
  /// What the table holds stands in a file, or may be lost.
  void OublieModifications();

  bool NouveauEnCours = false;  ///< only while New shows the periods dialog

  // The main window.
  const Display& Montre() const { return display_; }
  void ChangeTitreFenetre(const std::string& title);
  void ActiveMenus();
  void DesactiveMenus();
  void MontreTitres();  ///< shows BoxTitre, LabelTitre, LabelCommentaire and Commentaire
  void AjusteGrille();  ///< shows the grid
  void CacheLbl1();
  void ChangeAvis(const std::string& text);  ///< OublieModifications takes it away
  /// What a command has come to: the same, which goes too with the next edit of rows and when other
  /// ones are on show. "" takes such a notice away, and no other.
  void DitResultat(const std::string& text);

 private:
  friend class Edition;
  void ChangeModifie(bool modified);
  void Signale(Changes changes);
  void Affiche(bool Display::*part, bool shown, Aspect aspect);

  DistributionHeader header_;
  RowOrder order_;
  RowsShown shown_ = RowsShown::Table();
  std::int64_t contents_ = 0;
  bool modified_ = false;
  Display display_;
  bool resultat_ = false;  ///< the notice is one of DitResultat
  Observers<Changes> observers_;
};

}  // namespace talpena

// EditForm: the record editor, one row of the distribution at a time.
#pragma once
#include <QDialog>
#include <QSize>
#include <QStringList>
#include <array>
#include <bitset>
#include <optional>
#include <string>
#include <string_view>

#include "store/command_context.h"
#include "store/record/record_screen.h"

class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace talpena {

class DateEdit;
class FreeFieldsGrid;
class HintLabel;
class Mnemonics;
class Scrolled;
class TypedList;

/// Modal window over the row on which Data1 stands; it stays open from row to row. What the keys
/// do beside Tab: Enter goes to the next field (over the latitude and the longitude that the boxes
/// gave), Shift+Enter to the one before; the shortcuts of the buttons are in their tool tips;
/// Escape closes. Its place is kept in application "TLP", section "EditForm".
class EditForm : public QDialog {
  Q_OBJECT

 public:
  explicit EditForm(CommandContext contexte, QWidget* parent = nullptr);

  /// Captions in the current language; what was typed stays, and stays unsaved.
  void AppliqueLangue();

  /// ButEsc: asks to save what was changed; stays open when the user wants to or saving fails.
  void reject() override;
  void done(int result) override;

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// A one-line field and the text that it shows.
  struct Champ {
    QLineEdit* edit;
    std::string RecordScreen::*text;
  };
  /// A line of Control: what the value is, and the value.
  struct Valeur {
    QLabel* caption;
    QLabel* value;
  };

  CommandContext Contexte() { return contexte_; }

  // edit_form_build.cpp: the controls and what they are tied to.
  void Construit();
  void ConstruitChamps(QWidget* parent);
  void ConstruitCoordonnees(QWidget* parent);
  void ConstruitTextes(QWidget* parent);
  void ConstruitControle(QWidget* parent);
  Valeur ConstruitValeur(const char* name, const QString& caption, QGridLayout& grid, int row,
                         int lines = 1);
  void ConstruitBoutons();
  QLineEdit* Ligne(QWidget* parent, const char* name, int characters);
  QLabel* Etiquette(QWidget* parent, const char* name);
  void Relie();
  void RelieBoutons();
  void Raccourci(QPushButton& button, const QKeySequence& keys, void (EditForm::*pressed)());

  // edit_form_language.cpp: captions.
  void TraduitAvis();
  void NommeFenetre();
  void NommeBoutons(Mnemonics& letters);
  void NommeChamps(Mnemonics& letters);
  void NommeSystemes();
  void NommeBoites();
  void NommeValeurs();
  QString TouchesDe(const QPushButton& button) const;

  // edit_form_layout.cpp: where the controls stand, and where the form stands.
  void Dispose(QWidget* content);
  void DisposeEntete(QGridLayout& grid);
  void DisposeCoordonnees(QGridLayout& grid);
  void DisposeNombres(QGridLayout& grid);
  void DisposeTextes(QGridLayout& grid);
  QLayout* DisposeBoutons();
  void OrdonneTabulation();
  int LitPixels(std::string_view key) const;
  void PlaceFenetre();
  void GardePlace();

  template <typename Procedure>
  void Execute(Procedure procedure);
  void Releve();
  void Montre();
  void MontreBoites();
  void MontreControle();
  void MontrePosition();
  void MontreAvis();
  bool EstADire(RecordField field) const;
  void Marque();
  void FormeChange();
  bool QuitteChamps();
  bool ApresChamp();
  void PlaceFocus(RecordField field);
  void NoteDebut();
  void PlaceAuDebut();
  RecordField PremiereBoite() const;
  QWidget* Controle(RecordField field) const;
  void Avance(bool forward);
  bool PointCalcule() const;

  void Grid_Tape();
  void Grid_Modifie();
  void Grid_Abandonne();
  void cmbSystem_Click(int index);
  void cmdChangeDatum_Click();
  void cmdSearch_Click();
  void ButNew_Click();
  void ButDupl_Click();
  void ButOk_Click();
  void cmdNavig_Click(int index);
  void Suivant() { cmdNavig_Click(0); }
  void Precedent() { cmdNavig_Click(1); }

  CommandContext contexte_;
  StoreState& state_;
  Platform& io_;
  RecordScreen ecran_;
  bool enCours_ = false;    ///< a procedure of the editor is under way
  bool remplit_ = false;    ///< the form fills itself
  bool parTape_ = false;    ///< it counts as changed only for what is typed in the open cell
  bool pointTape_ = false;  ///< latitude or longitude were typed
  std::array<bool, 3> boiteTapee_{};  ///< typed in since it was left
  std::bitset<16> quittes_;           ///< fields that the user has left, by RecordField
  QWidget* avise_ = nullptr;          ///< field whose fault is told
  std::optional<RecordField> debut_;  ///< where a record was begun last
  int debutRang_ = 0;                 ///< there, in Grid
  bool commence_ = false;             ///< the record on show was begun

  QSize tailleVoulue_;  ///< by the user or by its fields, on whatever screen
  QSize tailleDonnee_;  ///< what this screen has room for

  std::array<Champ, 6> champs_{};
  Scrolled* defilement_ = nullptr;

  QLabel* LabelPeriode;
  QLineEdit* ChampPeriode;
  QLabel* LabelDate;
  DateEdit* ChampAnnee;
  QLabel* LabelOriginales;
  QLabel* LabelSysteme;
  TypedList* cmbSystem;
  QLabel* lblSysteme;
  std::array<QLabel*, 3> LabelBox;  ///< the examples
  std::array<QLineEdit*, 3> EditBox;
  QLabel* LabelDatum;
  QLabel* lblDatum;
  QPushButton* cmdChangeDatum;
  QPushButton* cmdSearch;
  QLabel* LabelLatitude;
  QLineEdit* ChampLatitude;
  QLabel* LabelLongitude;
  QLineEdit* ChampLongitude;
  std::array<HintLabel*, 3> lblAvis;  ///< for period and date, the coordinates, the rest

  QFrame* FrameControle;
  QLabel* LabelControle;
  Valeur ValeurDMS{};
  Valeur ValeurUtmMetrique{};
  Valeur ValeurUtmAlpha{};
  Valeur ValeurLibre{};

  QLabel* LabelCh1;
  QLineEdit* ChampCh1;
  QLabel* LabelCh2;
  QLineEdit* ChampCh2;
  QLabel* LabelSex;
  QLineEdit* ChampSex;
  QLabel* LabelGrid;
  FreeFieldsGrid* Grid;
  QLabel* LabelLibre;
  QPlainTextEdit* ChampLibre;

  std::array<QPushButton*, 2> cmdNavig;  ///< next, previous
  QLabel* lblCpt;
  QPushButton* ButOk;
  QPushButton* ButNew;
  QPushButton* ButDupl;
  QPushButton* ButEsc;
};

}  // namespace talpena

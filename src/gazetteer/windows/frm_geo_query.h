// frmGeoQuery: looks a place up by its name, for the record that is being edited.
#pragma once
#include <QDialog>
#include <array>
#include <cstddef>

#include "gazetteer/gazetteer_context.h"
#include "gazetteer/gazetteer_settings.h"
#include "gazetteer/geo_query.h"
#include "gazetteer/windows/place_icons.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTreeView;

namespace talpena {

class PlaceModel;
class TypedPane;
struct RecordScreen;

/// Modal over the record editor. While a name is typed into txt the first tab shows what comes
/// next; the two buttons fill the second. Enter in txt searches for the exact name; Enter or a
/// double click in a list chooses a place; Arrow down goes from txt to the list on show; Escape
/// hides the dialog, whose list stays for the next opening. A click on a caption, or Ctrl and the
/// number of its column, sorts by it, the same again the other way round. The window is kept in
/// application "TALPENA", section "GeoQuery".
class frmGeoQuery : public QDialog {
  Q_OBJECT

 public:
  explicit frmGeoQuery(GazetteerContext c, QWidget* parent = nullptr);

  /// All but showing it.
  void Prepare(RecordScreen& fiche);
  /// Shows the dialog over a record form, which takes the place that is chosen. True when one was.
  bool Cherche(RecordScreen& fiche);

  /// Captions in the current language; those of the list and its buttons are the same in all.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Construit();
  void ConstruitListe();
  QWidget* AvecAilleurs();
  void Dispose();
  void Relie();
  void RelieTris();

  void Charge();
  void Decharge();
  void PlaceDevant();
  void PlaceFenetre();
  void SauvePlace();

  template <typename Procedure>
  void Execute(Procedure procedure);
  void Releve();
  void Montre();
  void MontreChoix();
  void MontreNom();
  void MontreAilleurs();
  void onglets_Change();
  void Suit();
  bool ToucheDeListe(int key);
  bool ToucheDeTexte(int key);
  bool MontreTapes() const;
  void TexteTape(const QString& text);
  void TypedPane_LieuChange();
  void ChoisitTape();

  void cmd_Click(std::size_t index);
  void cmdSetup_Click();
  void ListView1_ItemClick();
  void ListView1_DblClick();
  void ListView1_ColumnClick(int column);

  GazetteerContext c_;
  GeoQueryScreen ecran_;
  GeoQueryPlace place_;
  RecordScreen* fiche_ = nullptr;  ///< while the dialog is up
  bool charge_ = false;            ///< from the first opening until it is closed
  bool montre_ = false;            ///< while the list is shown anew: nobody has clicked on it

  QLabel* lblNom;
  QLineEdit* txt;
  std::array<QPushButton*, 2> cmd;
  QPushButton* cmdSetup;
  QTabWidget* onglets;
  TypedPane* typed_;
  QTreeView* ListView1;
  QLabel* lblAilleurs;
  PlaceIcons icones_;
  PlaceModel* lieux_;
  QLabel* lblNombre;
  QLabel* lblNbre;
  QLabel* PicName;
};

}  // namespace talpena

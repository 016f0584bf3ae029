// What is found while a name is typed: a list, and a small map of its current place.
#pragma once
#include <QTimer>
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "gazetteer/gazetteer_context.h"
#include "gazetteer/typed_search.h"
#include "gazetteer/windows/place_icons.h"

class QLabel;
class QTreeWidget;

namespace talpena {

class PlaceMapView;

/// Reads the gazetteer while the window has no events to work off, and searches at each letter.
/// What fails is told in a line of its own: the buttons beside it tell their failures themselves.
class TypedPane : public QWidget {
  Q_OBJECT

 public:
  TypedPane(GazetteerContext c, const PlaceIcons& icons, QWidget* parent = nullptr);

  /// Once the window is up: begins to read, for a record form with this point.
  void Ouvre(std::optional<GeoPoint> point);
  /// Looks whether the gazetteer is another one by now.
  void Relit();
  /// Between the two nothing is read: a command is at work.
  void Suspend();
  void Reprend();

  void Cherche(const QString& typed);
  /// The keys go to the list, on its first line where none is chosen.
  void PrendFocus();
  QTreeWidget* Liste() { return lstTape; }
  /// The line that is chosen; nullptr for none.
  const PlaceItem* Lieu() const;
  /// The same as a place that can be taken. None of a gazetteer that changed on disk: it is read
  /// anew. None of a place without a usable point: a line says so, with a beep.
  const PlaceItem* LieuAPrendre();
  /// The same lines again: their pictures or words are others.
  void Montre();
  /// All is read and measured.
  bool TrouveQuelqueChose() const { return !lieux_.empty(); }
  bool EstAuRepos() const { return !timer_.isActive() && !attendu_; }

  void AppliqueLangue();

 Q_SIGNALS:
  void LieuChange();  ///< another line is chosen

 private:
  void Construit();
  void Dispose();
  void Commence();
  void Travaille();
  void Ajoute(const TypedPlace& place);
  const TypedPlace* Choisi() const;
  void MontreAide();
  void Dit(int text);
  void MontreCarte();
  QString Km(std::optional<double> km) const;

  GazetteerContext c_;
  const PlaceIcons& icons_;
  TypedSearch recherche_;
  QTimer timer_;
  bool attendu_ = false;  ///< Commence is on its way
  int echec_ = 0;         ///< the text that says why nothing is read; 0 while nothing failed
  std::optional<GeoPoint> point_;
  std::string tape_;
  std::vector<TypedPlace> lieux_;

  QTreeWidget* lstTape;
  QLabel* lblTape;
  PlaceMapView* PicCarte;
  QLabel* lblProche;
};

}  // namespace talpena

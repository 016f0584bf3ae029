// The list of places as the view of frmGeoQuery asks for it.
#pragma once
#include <QAbstractTableModel>

#include "gazetteer/place_list.h"
#include "gazetteer/windows/place_icons.h"

namespace talpena {

/// Shows a list of places, each of which is read when it comes into view. The list changes behind
/// its back: between Vide and Montre there is nothing to see.
class PlaceModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  PlaceModel(PlaceList& list, const PlaceIcons& icons, QObject* parent = nullptr);

  /// No rows, while the list is at work.
  void Vide();
  /// The list as it stands now.
  void Montre();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  void PoseLignes(std::size_t rows);
  QVariant DonneesDe(const PlaceItem& item, int column, int role) const;

  PlaceList& list_;
  int rows_ = 0;
  const PlaceIcons& icons_;
};

}  // namespace talpena

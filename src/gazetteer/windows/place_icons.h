// The small pictures of places: ImageList1.
#pragma once
#include <QHash>
#include <QIcon>
#include <QPalette>

#include "gazetteer/place_item.h"

namespace talpena {

class PlaceIcons {
 public:
  /// In the colours of a palette, from now on.
  void Charge(const QPalette& palette);
  /// The picture of a place; an empty one of the same size for a place without.
  QIcon De(const PlaceItem& item) const;

 private:
  QHash<QString, QIcon> icons_;  ///< by the keys of PlaceIcon
  QIcon aucune_;
};

}  // namespace talpena

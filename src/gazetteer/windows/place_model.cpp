#include "gazetteer/windows/place_model.h"

#include <algorithm>
#include <limits>

#include "common/talpena_error.h"
#include "platform/qt/controls.h"

using namespace Qt::StringLiterals;

namespace talpena {
PlaceModel::PlaceModel(PlaceList& list, const PlaceIcons& icons, QObject* parent)
    : QAbstractTableModel(parent), list_(list), icons_(icons) {}

void PlaceModel::PoseLignes(std::size_t rows) {
  constexpr std::size_t most = std::numeric_limits<int>::max();
  beginResetModel();
  rows_ = static_cast<int>(std::min(rows, most));
  endResetModel();
}

void PlaceModel::Vide() { PoseLignes(0); }

void PlaceModel::Montre() { PoseLignes(list_.Nombre()); }

int PlaceModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int PlaceModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(PlaceColumnCount);
}

QVariant PlaceModel::DonneesDe(const PlaceItem& item, int column, int role) const {
  if (role == Qt::DecorationRole) {
    return column == 0 ? QVariant(icons_.De(item)) : QVariant();
  }
  return EnQt(item.texts[static_cast<std::size_t>(column)]);
}

QVariant PlaceModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_) return {};
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::DecorationRole) return {};
  try {
    const PlaceItem& item = list_.Item(static_cast<std::size_t>(index.row()));
    return DonneesDe(item, index.column(), role);
  } catch (const TalpenaError&) {
    return {};  // a row that cannot be read any more is blank; the next search tells why
  }
}

QVariant PlaceModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::ToolTipRole) return u"Ctrl+%1"_s.arg((section + 1) % 10);
  if (role != Qt::DisplayRole) return {};
  return EnQt(TitresDesLieux[static_cast<std::size_t>(section)].caption);
}

}  // namespace talpena

#include "interchange/windows/rehearsal_model.h"

#include <QFont>
#include <algorithm>

#include "platform/qt/controls.h"

namespace talpena {
namespace {

constexpr auto fate = static_cast<int>(RehearsalColumn::Fate);

bool EstNombre(int column) {
  const auto shown = static_cast<std::size_t>(column);
  return shown == RehearsalColumn::Line || shown == RehearsalColumn::Period ||
         (shown >= RehearsalColumn::Latitude && shown <= RehearsalColumn::Number2);
}

}  // namespace

RehearsalModel::RehearsalModel(const SharedState& state, QObject* parent)
    : QAbstractTableModel(parent), state_(state) {}

void RehearsalModel::Montre(const Rehearsal* rehearsal) {
  beginResetModel();
  rehearsal_ = rehearsal;
  shown_ = 0;
  endResetModel();
}

/// Where the import would end stands behind the last row.
int RehearsalModel::LigneArret() const {
  return rehearsal_->Arret() ? static_cast<int>(rehearsal_->Lignes().Nombre()) : -1;
}

void RehearsalModel::Suit() {
  if (rehearsal_ == nullptr) return;
  const int now =
      static_cast<int>(rehearsal_->Lignes().Nombre()) + (rehearsal_->Arret().has_value() ? 1 : 0);
  if (now <= shown_) return;
  beginInsertRows({}, shown_, now - 1);
  shown_ = now;
  endInsertRows();
}

bool RehearsalModel::EstProbleme(int row) const {
  return row == LigneArret() || rehearsal_->Lignes().Ligne(row).EstProbleme();
}

int RehearsalModel::ProchainProbleme(int from) const {
  if (rehearsal_ == nullptr) return -1;
  for (const int begin : {from, 0}) {
    const auto found = static_cast<int>(rehearsal_->Lignes().ProchainProbleme(begin));
    if (found >= 0 && found < shown_) return found;
    if (LigneArret() >= begin) return LigneArret();
  }
  return -1;
}

RehearsalCells RehearsalModel::Cellules(int row) const {
  if (row == LigneArret()) return CellulesArret(state_.Langue, *rehearsal_->Arret());
  return CellulesRepetition(state_.Langue, rehearsal_->Lignes().Ligne(row));
}

int RehearsalModel::ColonnesDuSort(int row) const {
  const RehearsalCells cells = Cellules(row);
  const auto begin = cells.begin() + fate + 1;
  const auto end = std::find_if(begin, cells.end(), [](const auto& c) { return !c.empty(); });
  return 1 + static_cast<int>(end - begin);
}

/// What is far may be so no more, so its words are never kept.
void RehearsalModel::AppliqueLangue() {
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  if (shown_ > 0) Q_EMIT dataChanged(index(0, 0), index(shown_ - 1, columnCount() - 1));
}

int RehearsalModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shown_;
}

int RehearsalModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(RehearsalColumn::Count);
}

QVariant RehearsalModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= shown_) return {};
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: {
      const std::string text = Cellules(index.row())[static_cast<std::size_t>(column)];
      return role == Qt::ToolTipRole && text.empty() ? QVariant() : EnQt(text);
    }
    case Qt::TextAlignmentRole:
      return QVariant((EstNombre(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::FontRole:
      return column == fate && EstProbleme(index.row()) ? EnGras(QFont()) : QVariant();
    default:
      return {};
  }
}

QVariant RehearsalModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return EnQt(TitresRepetition(state_).at(static_cast<std::size_t>(section)));
}

}  // namespace talpena

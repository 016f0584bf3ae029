#include "store/windows/grid_model.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <utility>

#include "common/text.h"
#include "store/cell_text.h"
#include "store/windows/grid_cells.h"

namespace talpena {
namespace {

/// A line break inside a remark, shown on the cell's single line.
const QChar lineBreakMark(0x21B5);

QString SurUneLigne(QString text) {
  return text.replace(QStringLiteral("\r\n"), lineBreakMark)
      .replace(QLatin1Char('\n'), lineBreakMark)
      .replace(QLatin1Char('\r'), lineBreakMark);
}

constexpr int longText = 30;  ///< characters from which a cell tells its text in a tool tip too
constexpr std::size_t longestShown = 1000;  ///< characters; who edits the cell has them all

QString Montrable(std::string_view text) {
  const std::string_view shown = PremiersCaracteres(text, longestShown);
  const QString begin = QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
  return shown.size() < text.size() ? begin + QChar(0x2026) : begin;
}

}  // namespace

GridModel::GridModel(StoreState& state, QObject* parent)
    : QAbstractTableModel(parent),
      settings_(state),
      document_(state.document),
      read_(RememberedRows) {}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : count_; }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : Column::GridCount;
}

void GridModel::PlaceSur(int row) const {
  if (placedOn_ == row) return;
  placedOn_ = -1;
  rows_->SetAbsolutePosition(row);
  placedOn_ = row;
}

std::string GridModel::Texte(int row, int gridColumn) const {
  const int field = gridColumn + Column::FirstInGrid;
  try {
    PlaceSur(row);
    return TexteDeCellule(rows_->Fields().at(static_cast<std::size_t>(field)), rows_->Get(field));
  } catch (const TalpenaError&) {  // the row was deleted a moment ago; the refresh follows
    return {};
  }
}

QString GridModel::TexteMontre(int row, int gridColumn) const {
  ReadCell& cell = read_[static_cast<std::size_t>(row % RememberedRows)].at(
      static_cast<std::size_t>(gridColumn));
  if (!fixed_) {
    cell = {row, Montrable(Texte(row, gridColumn))};
  } else if (cell.row != row) {
    lacking_ = true;
    return {};
  }
  return cell.text;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !rows_) return {};
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
      return SurUneLigne(TexteMontre(index.row(), column));
    case Qt::EditRole:
      return QString::fromStdString(Texte(index.row(), column));
    case Qt::ToolTipRole: {
      const QString text = TexteMontre(index.row(), column);
      return text.size() >= longText ? QVariant(text) : QVariant();
    }
    case Qt::TextAlignmentRole: {
      const auto field = static_cast<std::size_t>(column) + std::size_t{Column::FirstInGrid};
      const bool number = EstColonneNumerique(rows_->Fields().at(field));
      return QVariant::fromValue(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
    }
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    if (role == Qt::DisplayRole) return section + 1;
    if (role == Qt::TextAlignmentRole) {
      return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    }
    return {};
  }
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
    return titles_.at(static_cast<std::size_t>(section));
  }
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable |
                               Qt::ItemNeverHasChildren
                         : Qt::NoItemFlags;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole || !rows_) return false;
  const int field = index.column() + Column::FirstInGrid;
  placedOn_ = -1;
  try {
    EcritCellule(document_, *rows_, index.row(), field, value.toString().toStdString());
    return true;
  } catch (const TalpenaError& e) {
    refus_ =
        RaisonDuRefus(settings_.Langue, rows_->Fields().at(static_cast<std::size_t>(field)), e);
    return false;
  }
}

void GridModel::RelitManquants() {
  if (fixed_ || !std::exchange(lacking_, false) || count_ == 0) return;
  Q_EMIT dataChanged(index(0, 0), index(count_ - 1, Column::GridCount - 1), {Qt::DisplayRole});
}

void GridModel::Recharge() {
  beginResetModel();
  read_.assign(RememberedRows, {});
  rows_ = document_.Data1.EstLie() ? document_.Data1.Clone() : nullptr;
  placedOn_ = -1;
  const std::int64_t count = rows_ ? rows_->RecordCount() : 0;
  count_ = static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
  endResetModel();
}

void GridModel::RafraichitValeurs() {
  placedOn_ = -1;
  if (count_ > 0) {
    Q_EMIT dataChanged(index(0, 0), index(count_ - 1, Column::GridCount - 1),
                       {Qt::DisplayRole, Qt::EditRole});
  }
}

void GridModel::ChangeTitres(const std::array<std::string, Column::GridCount>& titles) {
  std::transform(titles.begin(), titles.end(), titles_.begin(),
                 [](const std::string& t) { return QString::fromStdString(t).trimmed(); });
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, Column::GridCount - 1);
}

void GridModel::AjouteSignets(int from, int to, std::vector<Bookmark>& bookmarks) const {
  PlaceSur(from);
  placedOn_ = -1;
  for (int left = std::abs(to - from) + 1; left > 0 && !rows_->EOF_() && !rows_->BOF(); --left) {
    bookmarks.push_back(rows_->GetBookmark());
    from <= to ? rows_->MoveNext() : rows_->MovePrevious();
  }
}

std::vector<int> GridModel::LignesDe(const std::vector<Bookmark>& bookmarks) const {
  std::vector<int> lines;
  if (!rows_) return lines;
  placedOn_ = -1;
  lines.reserve(bookmarks.size());
  for (const Bookmark bookmark : bookmarks) {
    try {
      rows_->SetBookmark(bookmark);
      lines.push_back(static_cast<int>(rows_->AbsolutePosition()));
    } catch (const TalpenaError& e) {
      if (e.number() != ErrorNumber::InvalidBookmark) throw;
    }
  }
  return lines;
}

}  // namespace talpena

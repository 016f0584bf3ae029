#include "interchange/windows/waypoint_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QShortcut>
#include <algorithm>
#include <numeric>

#include "platform/qt/controls.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

/// Headings that a key sorts by, Ctrl+1 to Ctrl+9.
constexpr int columnsWithKeys = 9;

/// Characters of a text that are shown, of which UTF-8 takes four bytes each at most.
constexpr std::size_t longestShown = 500;

}  // namespace

void WaypointModel::Montre(const MapSourceText& text) {
  beginResetModel();
  text_ = &text;
  items_ = TousLesPoints(text);
  endResetModel();
  Q_EMIT Change();
}

QString WaypointModel::Texte(const WaypointChoice& item, int column) const {
  return EnQt(text_->items.Texte(item.item, static_cast<std::size_t>(column)));
}

QString WaypointModel::Montrable(const WaypointChoice& item, int column) const {
  const std::string_view text = text_->items.Texte(item.item, static_cast<std::size_t>(column));
  return EnQt(text.substr(0, 4 * longestShown)).left(longestShown);
}

/// The lines in the order of a column, by their places of before.
std::vector<int> WaypointModel::Ordre(int column, Qt::SortOrder order) const {
  std::vector<QString> keys;
  keys.reserve(items_.size());
  for (const WaypointChoice& item : items_) keys.push_back(Texte(item, column).toCaseFolded());
  std::vector<int> lines(items_.size());
  std::iota(lines.begin(), lines.end(), 0);
  std::stable_sort(lines.begin(), lines.end(), [&](int a, int b) {
    const QString& first = keys[static_cast<std::size_t>(a)];
    const QString& second = keys[static_cast<std::size_t>(b)];
    return order == Qt::AscendingOrder ? first < second : second < first;
  });
  return lines;
}

void WaypointModel::Coche(const QItemSelection& lines, bool checked) {
  if (lines.isEmpty()) return;
  for (const QItemSelectionRange& range : lines) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      items_[static_cast<std::size_t>(row)].checked = checked;
    }
    Q_EMIT dataChanged(index(range.top(), 0), index(range.bottom(), 0), {Qt::CheckStateRole});
  }
  Q_EMIT Change();
}

void WaypointModel::DecochePremiers(std::int64_t count) {
  if (count <= 0) return;
  for (WaypointChoice& item : items_) {
    if (count == 0) break;
    if (!item.checked || text_->items.Texte(item.item, WaypointColumn::Position).empty()) continue;
    item.checked = false;
    --count;
  }
  Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
  Q_EMIT Change();
}

int WaypointModel::PremierCoche() const {
  const auto found = std::ranges::find_if(items_, &WaypointChoice::checked);
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

int WaypointModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(items_.size());
}

int WaypointModel::columnCount(const QModelIndex& parent) const {
  if (parent.isValid() || text_ == nullptr) return 0;
  return static_cast<int>(text_->captions.size());
}

QVariant WaypointModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const WaypointChoice& item = items_[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return Montrable(item, index.column());
  if (role == Qt::CheckStateRole && index.column() == 0) {
    return item.checked ? Qt::Checked : Qt::Unchecked;
  }
  return {};
}

bool WaypointModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || index.column() != 0 || role != Qt::CheckStateRole) return false;
  Coche(QItemSelection(index, index), value.toInt() == Qt::Checked);
  return true;
}

QVariant WaypointModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return EnQt(text_->captions[static_cast<std::size_t>(section)]);
  if (role == Qt::ToolTipRole && section < columnsWithKeys) return u"Ctrl+%1"_s.arg(section + 1);
  return {};
}

Qt::ItemFlags WaypointModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags line = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
  return index.column() == 0 ? line | Qt::ItemIsUserCheckable : line;
}

void WaypointModel::sort(int column, Qt::SortOrder order) {
  Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
  const std::vector<int> lines = Ordre(column, order);
  std::vector<WaypointChoice> sorted;
  sorted.reserve(lines.size());
  std::vector<int> places(lines.size());
  for (const int line : lines) {
    places[static_cast<std::size_t>(line)] = static_cast<int>(sorted.size());
    sorted.push_back(items_[static_cast<std::size_t>(line)]);
  }
  items_ = std::move(sorted);
  const QModelIndexList before = persistentIndexList();
  QModelIndexList after;
  after.reserve(before.size());
  for (const QModelIndex& one : before) {
    after << index(places[static_cast<std::size_t>(one.row())], one.column());
  }
  changePersistentIndexList(before, after);
  Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
  Q_EMIT Change();
}

WaypointView::WaypointView(QWidget* parent) : QTreeView(parent), model_(new WaypointModel(this)) {
  setObjectName(u"LV"_s);
  setModel(model_);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  header()->setSectionsClickable(true);
  header()->setStretchLastSection(false);
  connect(header(), &QHeaderView::sectionClicked, this, &WaypointView::ColumnClick);
  for (int i = 0; i < columnsWithKeys; ++i) {
    const QKeySequence keys(static_cast<int>(Qt::CTRL) | (static_cast<int>(Qt::Key_1) + i));
    auto* key = new QShortcut(keys, this);
    connect(key, &QShortcut::activated, this, [this, i] { ColumnClick(i); });
  }
}

void WaypointView::CocheChoisies(bool checked) {
  model_->Coche(selectionModel()->selection(), checked);
}

void WaypointView::ColumnClick(int column) {
  if (column >= model_->columnCount()) return;
  descendant_ = column == colonneTri_ && !descendant_;
  colonneTri_ = column;
  const Qt::SortOrder order = descendant_ ? Qt::DescendingOrder : Qt::AscendingOrder;
  header()->setSortIndicator(column, order);
  header()->setSortIndicatorShown(true);
  model_->sort(column, order);
  if (currentIndex().isValid()) scrollTo(currentIndex());
}

void WaypointView::keyPressEvent(QKeyEvent* event) {
  const QModelIndex line = currentIndex().siblingAtColumn(0);
  const bool toggles = event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier;
  if (!toggles || !line.isValid()) return QTreeView::keyPressEvent(event);
  const bool checked = line.data(Qt::CheckStateRole).toInt() == Qt::Checked;
  if (selectionModel()->isRowSelected(line.row(), {})) {
    CocheChoisies(!checked);
  } else {
    model_->Coche(QItemSelection(line, line), !checked);
  }
}

}  // namespace talpena

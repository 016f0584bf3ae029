// LV: the waypoints of a file, with check boxes.
#pragma once
#include <QAbstractTableModel>
#include <QItemSelection>
#include <QTreeView>
#include <cstdint>
#include <vector>

#include "interchange/mapsource_reader.h"

namespace talpena {

/// Waypoints in the order in which they are shown.
class WaypointModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// All waypoints of a text, which outlives this, checked.
  void Montre(const MapSourceText& text);
  /// In the order shown.
  const std::vector<WaypointChoice>& Choix() const { return items_; }
  void Coche(const QItemSelection& lines, bool checked);
  /// Takes the checks from the first so many that are checked and have a position.
  void DecochePremiers(std::int64_t count);
  /// The first line that is checked; -1 for none.
  int PremierCoche() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Texts without regard to case; equal ones keep their order.
  void sort(int column, Qt::SortOrder order) override;

 Q_SIGNALS:
  void Change();  ///< checks or order

 private:
  QString Texte(const WaypointChoice& item, int column) const;
  QString Montrable(const WaypointChoice& item, int column) const;
  std::vector<int> Ordre(int column, Qt::SortOrder order) const;

  const MapSourceText* text_ = nullptr;
  std::vector<WaypointChoice> items_;
};

/// Lines are selected as in any list; Space checks the selected ones, or takes their checks away.
/// A click on a heading, or Ctrl and its number, sorts by that column; a second one reverses the
/// order.
class WaypointView : public QTreeView {
  Q_OBJECT

 public:
  explicit WaypointView(QWidget* parent = nullptr);

  WaypointModel& Points() { return *model_; }
  /// Checks of the selected lines.
  void CocheChoisies(bool checked);
  void ColumnClick(int column);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  WaypointModel* model_;
  int colonneTri_ = -1;      ///< that the list is sorted by; none at first
  bool descendant_ = false;  ///< in which order
};

}  // namespace talpena

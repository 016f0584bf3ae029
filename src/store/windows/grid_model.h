// The rows of the data control, as the grid asks for them.
#pragma once
#include <QAbstractTableModel>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "store/state.h"
#include "store/table.h"

namespace talpena {

/// Reads through a clone of Data1's recordset, one row at a time and only rows that are looked
/// at, so that a million rows cost what one screen of them costs.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridModel(StoreState& state, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// Writes a typed text. False when the table refused it; Refus() then says why.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  const std::optional<std::string>& Refus() const { return refus_; }
  void OublieRefus() { refus_.reset(); }

  /// While it is fixed, rows are not read: what was shown last stands in for them, and cells that
  /// were not are empty until RelitManquants.
  void Fige(bool fixed) { fixed_ = fixed; }
  void RelitManquants();

  void Recharge();           ///< the data control has other rows
  void RafraichitValeurs();  ///< the same rows with other values
  void ChangeTitres(const std::array<std::string, Column::GridCount>& titles);

  /// Appends the bookmarks of neighbouring rows, in the order from the one to the other.
  void AjouteSignets(int from, int to, std::vector<Bookmark>& bookmarks) const;
  /// The rows of bookmarks, in their order; those that are not shown are left out.
  std::vector<int> LignesDe(const std::vector<Bookmark>& bookmarks) const;

 private:
  /// What a cell showed last.
  struct ReadCell {
    int row = -1;
    QString text;
  };
  /// More rows than a screen has; each has its place by its number.
  static constexpr int RememberedRows = 256;

  std::string Texte(int row, int gridColumn) const;
  /// As much of it as a cell shows.
  QString TexteMontre(int row, int gridColumn) const;
  void PlaceSur(int row) const;

  const SettingsState& settings_;
  Document& document_;
  std::unique_ptr<Recordset> rows_;
  mutable int placedOn_ = -1;  ///< row on which rows_ stands
  int count_ = 0;
  bool fixed_ = false;
  mutable bool lacking_ = false;  ///< a cell was asked for while fixed and not known
  mutable std::vector<std::array<ReadCell, Column::GridCount>> read_;
  std::array<QString, Column::GridCount> titles_;
  std::optional<std::string> refus_;
};

}  // namespace talpena

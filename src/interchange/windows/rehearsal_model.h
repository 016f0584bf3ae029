// The rows of a rehearsal as the list shows them.
#pragma once
#include <QAbstractTableModel>
#include <cstdint>

#include "interchange/rehearsal.h"
#include "interchange/rehearsal_words.h"
#include "platform/settings_state.h"

namespace talpena {

class RehearsalModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  RehearsalModel(const SharedState& state, QObject* parent);

  /// From now on the rows of this rehearsal, none for null; it has to live until the next call.
  void Montre(const Rehearsal* rehearsal);
  /// It has read on: its new rows are shown.
  void Suit();
  /// The row of the next problem from one on, counting on from the first; -1 when there is none.
  int ProchainProbleme(int from) const;
  bool EstProbleme(int row) const;
  RehearsalCells Cellules(int row) const;
  /// How many columns the fate of a row may take: its own and those behind it without a text.
  int ColonnesDuSort(int row) const;
  void AppliqueLangue();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  int LigneArret() const;

  const SharedState& state_;
  const Rehearsal* rehearsal_ = nullptr;
  int shown_ = 0;
};

}  // namespace talpena

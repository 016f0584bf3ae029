// A line for a condition, which knows the former ones and the names of the columns.
#pragma once
#include <QComboBox>
#include <QStringList>

class QCompleter;

namespace talpena {

/// An editable list of former conditions. The name of a column is offered as soon as it is begun:
/// Tab takes the first one, the arrows go to another one, Enter takes that. What stands between
/// quotes is a text and no name.
class ConditionEdit : public QComboBox {
  Q_OBJECT

 public:
  /// @param columns  the names that are offered
  ConditionEdit(const QStringList& columns, QWidget* parent);

  /// The former conditions, the newest first; the text stays.
  void ChangeConditions(const QStringList& conditions);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ProposeColonnes();
  void PrendColonne(const QString& name);

  QCompleter* columns_;
};

}  // namespace talpena

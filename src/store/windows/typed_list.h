// A list whose entries are found by what is typed: their names, or their codes.
#pragma once
#include <QComboBox>
#include <QTimer>
#include <optional>

namespace talpena {

/// Letters, digits and blanks that follow each other without a long pause name an entry by the
/// beginning of its code (Qt::UserRole) or of its text, whatever their case and accents. It is
/// shown at once. It counts as chosen, and `activated` tells so, when no other one fits, after the
/// pause, by Enter, or when the list is left; Escape goes back to the one before. A letter that
/// fits nowhere is passed over.
class TypedList : public QComboBox {
  Q_OBJECT

 public:
  explicit TypedList(QWidget* parent = nullptr);

  /// Chooses the entry that is shown by what was typed so far.
  void Valide();

  /// The entry that a text names, when the search goes on with one more piece of it. Called by the
  /// list on show, too.
  std::optional<int> Cherche(const QString& typed);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void Tape(const QString& typed);
  void Abandonne();

  QString typed_;
  QTimer pause_;
  int before_ = -1;             ///< entry that counts until another one is chosen
  std::optional<int> montree_;  ///< entry that is shown only
};

}  // namespace talpena

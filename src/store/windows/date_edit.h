// The masked date of the record editor.
#pragma once
#include <QLineEdit>

namespace talpena {

/// A date as people write it, "1998/07/14", "1998-7-14", "14.7.1998", "19980714", "1998/7" or
/// "1998", in the ten characters of the mask; empty when the text is none. A place without a digit
/// is "_". The values are not checked.
QString DateTapee(const QString& text);

/// Year, month, day over the mask "####/##/##", "_" in the empty places. Digits jump over the
/// slashes; "/", "-" and "." go to the next part, a blank leaves a place empty; Backspace and
/// Delete empty places. A pasted date may be written in other ways: DateTapee.
class DateEdit : public QLineEdit {
  Q_OBJECT

 public:
  explicit DateEdit(QWidget* parent = nullptr);

  /// The ten characters; as long as the user has not edited it, what was put in, even where the
  /// mask has no place for it.
  QString Masque() const;
  void ChangeMasque(const QString& masque);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Colle(const QString& text);
  void Remplace(const QString& masque, int cursor);
  void PartieSuivante();
  QString Complete(int from) const;

  QString given_;        ///< what was put in
  bool edited_ = false;  ///< by the user, since then
};

}  // namespace talpena

// One half of frmGarminOptions: where rows get their date from, or their altitude.
#pragma once
#include <QGroupBox>
#include <array>
#include <functional>
#include <string>

#include "interchange/garmin_options_form.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace talpena {

class Mnemonics;

/// Nothing, one text for all rows, or a part of a column, of which the first text that is not empty
/// is shown. Controls that the choice has no use for are out of sight.
class GarminFieldBox : public QGroupBox {
  Q_OBJECT

 public:
  /// @param field   "Date" or "Altitude", in the names of the controls
  /// @param fixe    the box of the text for all rows
  /// @param format  how the part of the column is written; nullptr where nobody has to know
  /// @param sample  the text of a column that is shown; "" for none
  GarminFieldBox(const QString& field, QLineEdit* fixe, QComboBox* format,
                 std::function<std::string(int column)> sample, QWidget* parent);

  /// The columns that are offered; a list of choice, with none chosen.
  void ChangeColonnes(const std::vector<std::string>& captions);
  /// All but the fixed text, which the box keeps as it likes.
  void Montre(const GarminFieldForm& form);
  /// The same the other way round.
  GarminFieldForm Releve() const;
  void AppliqueLangue(std::int16_t langue, int title, Mnemonics& letters);
  /// From a control before to the last of these, which comes back.
  QWidget* OrdonneTabulation(QWidget* before);
  /// The box of the first character, or of their number.
  QLineEdit& Place(std::size_t index) { return *txtChar_[index]; }

 private:
  void Dispose(QGridLayout& grid);
  void Relie();
  GarminSource Source() const;
  void Active();
  void DetTxtExemple();
  void MontreExemple();

  std::function<std::string(int)> echantillon_;
  std::string texte_;                   ///< that is shown of the column
  std::array<QRadioButton*, 3> opt_{};  ///< in the order of GarminSource
  QLineEdit* fixe_;
  QComboBox* cmbField_ = nullptr;
  std::array<QLabel*, 2> titreChar_{};
  std::array<QLineEdit*, 2> txtChar_{};  ///< first character, number of characters
  QLabel* titreFormat_ = nullptr;
  QComboBox* format_;
  QLabel* titreExemple_ = nullptr;
  QLabel* lblSample_ = nullptr;
};

}  // namespace talpena

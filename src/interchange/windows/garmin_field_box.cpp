#include "interchange/windows/garmin_field_box.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "common/msg_id_import.h"
#include "common/string_table.h"
#include "interchange/garmin_samples.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/one_line.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr std::size_t wayFixed = 1, wayColumn = 2;  // of the three ways

constexpr int sampleShown = 40;  ///< characters of a sample

/// It keeps its room while it is out of sight: nothing jumps.
template <typename Widget>
Widget* AvecPlace(Widget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
  return widget;
}

}  // namespace

GarminFieldBox::GarminFieldBox(const QString& field, QLineEdit* fixe, QComboBox* format,
                               std::function<std::string(int)> sample, QWidget* parent)
    : QGroupBox(parent), echantillon_(std::move(sample)), fixe_(fixe), format_(format) {
  setObjectName(u"frame"_s + field);
  for (std::size_t i = 0; i < opt_.size(); ++i) {
    opt_[i] = Nomme(new QRadioButton(this), u"opt%1_%2"_s.arg(field).arg(i));
  }
  cmbField_ = Nomme(new QComboBox(this), u"cmbField"_s + field);
  cmbField_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  for (std::size_t i = 0; i < txtChar_.size(); ++i) {
    titreChar_[i] = Nomme(new QLabel(this), u"lbl%1Char_%2"_s.arg(field).arg(i));
    txtChar_[i] = Nomme(new QLineEdit(this), u"txt%1Char_%2"_s.arg(field).arg(i));
    GardeUneLigne(*txtChar_[i]);
    titreChar_[i]->setBuddy(txtChar_[i]);
  }
  if (format_ != nullptr) {
    titreFormat_ = Nomme(new QLabel(this), u"lblFormat"_s + field);
    titreFormat_->setBuddy(format_);
  }
  titreExemple_ = Nomme(new QLabel(this), u"lblTitreSample"_s + field);
  lblSample_ = Nomme(new QLabel(this), u"lblSample"_s + field);
  lblSample_->setTextFormat(Qt::PlainText);
  auto* grid = new QGridLayout(this);
  Dispose(*grid);
  Relie();
  Active();
}

void GarminFieldBox::Dispose(QGridLayout& grid) {
  for (std::size_t i = 0; i < opt_.size(); ++i) grid.addWidget(opt_[i], static_cast<int>(i), 0);
  grid.addWidget(AvecPlace(fixe_), 1, 1);
  grid.addWidget(AvecPlace(cmbField_), 2, 1);
  int row = 3;
  const auto ajoute = [&](QLabel* title, QWidget* control) {
    title->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(AvecPlace(title), row, 0);
    grid.addWidget(AvecPlace(control), row++, 1);
  };
  for (std::size_t i = 0; i < txtChar_.size(); ++i) ajoute(titreChar_[i], txtChar_[i]);
  if (format_ != nullptr) ajoute(titreFormat_, format_);
  ajoute(titreExemple_, lblSample_);
  grid.setRowStretch(row, 1);
  grid.setColumnStretch(1, 1);
}

/// The fixed text behind its way, which was made before.
QWidget* GarminFieldBox::OrdonneTabulation(QWidget* before) {
  for (QWidget* next :
       std::initializer_list<QWidget*>{opt_[0], opt_[wayFixed], fixe_, opt_[wayColumn], cmbField_,
                                       txtChar_[0], txtChar_[1], format_}) {
    if (next == nullptr) continue;
    setTabOrder(before, next);
    before = next;
  }
  return before;
}

void GarminFieldBox::Relie() {
  for (QRadioButton* option : opt_) {
    connect(option, &QRadioButton::toggled, this, &GarminFieldBox::Active);
  }
  connect(cmbField_, &QComboBox::currentIndexChanged, this, &GarminFieldBox::DetTxtExemple);
  for (QLineEdit* box : txtChar_) {
    connect(box, &QLineEdit::textChanged, this, &GarminFieldBox::MontreExemple);
  }
}

void GarminFieldBox::ChangeColonnes(const std::vector<std::string>& captions) {
  cmbField_->clear();
  for (const std::string& caption : captions) cmbField_->addItem(EnQt(caption));
  cmbField_->setCurrentIndex(-1);
}

void GarminFieldBox::Montre(const GarminFieldForm& form) {
  // Any other number in the settings makes the import take none.
  const auto source = static_cast<std::size_t>(form.source);
  opt_[source < opt_.size() ? source : 0]->setChecked(true);
  txtChar_[0]->setText(EnQt(form.begin));
  txtChar_[1]->setText(EnQt(form.length));
  const auto exactly = Qt::MatchExactly | Qt::MatchCaseSensitive;
  cmbField_->setCurrentIndex(
      form.colonne.empty() ? -1 : cmbField_->findText(EnQt(form.colonne), exactly));
}

GarminFieldForm GarminFieldBox::Releve() const {
  return {Source(),
          {},
          cmbField_->currentText().toStdString(),
          txtChar_[0]->text().toStdString(),
          txtChar_[1]->text().toStdString()};
}

/// As long as neither of the first two is on it is the third.
GarminSource GarminFieldBox::Source() const {
  return opt_[0]->isChecked()          ? GarminSource::None
         : opt_[wayFixed]->isChecked() ? GarminSource::Fixed
                                       : GarminSource::Column;
}

void GarminFieldBox::Active() {
  fixe_->setVisible(opt_[wayFixed]->isChecked());
  const bool shown = opt_[wayColumn]->isChecked();
  for (QWidget* control :
       std::initializer_list<QWidget*>{cmbField_, titreChar_[0], titreChar_[1], txtChar_[0],
                                       txtChar_[1], titreExemple_, lblSample_}) {
    control->setVisible(shown);
  }
  if (format_ == nullptr) return;
  titreFormat_->setVisible(shown);
  format_->setVisible(shown);
}

void GarminFieldBox::DetTxtExemple() {
  const int chosen = cmbField_->currentIndex();
  texte_ = chosen < 0 ? std::string() : echantillon_(chosen);
  MontreExemple();
}

void GarminFieldBox::MontreExemple() {
  const auto cut =
      Exemple(txtChar_[0]->text().toStdString(), txtChar_[1]->text().toStdString(), texte_);
  if (texte_.empty()) lblSample_->clear();
  if (cut) lblSample_->setText(EnQt(*cut).left(sampleShown));
}

void GarminFieldBox::AppliqueLangue(std::int16_t langue, int title, Mnemonics& letters) {
  const QString name = EnQt(SansMnemonique(Texte(langue, title)));
  setTitle(name);
  const auto legende = [&](auto* control, int id) {
    control->setText(letters.Marque(Texte(langue, id)));
    return u"%1, %2"_s.arg(name, EnQt(SansMnemonique(Texte(langue, id))));
  };
  for (std::size_t i = 0; i < opt_.size(); ++i) {
    opt_[i]->setAccessibleName(legende(opt_[i], MsgId::GarminSans + static_cast<int>(i)));
  }
  fixe_->setAccessibleName(opt_[wayFixed]->accessibleName());
  cmbField_->setAccessibleName(opt_[wayColumn]->accessibleName());
  txtChar_[0]->setAccessibleName(legende(titreChar_[0], MsgId::PremierCaractere));
  txtChar_[1]->setAccessibleName(legende(titreChar_[1], MsgId::NombreCaracteres));
  if (format_ != nullptr) format_->setAccessibleName(legende(titreFormat_, MsgId::GarminFormat));
  titreExemple_->setText(EnQt(SansMnemonique(Texte(langue, MsgId::GarminExemple))));
}

}  // namespace talpena

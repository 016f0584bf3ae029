#include "interchange/windows/frm_garmin_options.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/msg_id_import.h"
#include "common/string_table.h"
#include "interchange/garmin_samples.h"
#include "interchange/windows/garmin_field_box.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/one_line.h"
#include "store/windows/date_edit.h"

using namespace Qt::StringLiterals;

namespace talpena {

frmGarminOptions::frmGarminOptions(const SharedState& state, Platform& io, objGraminImport& options,
                                   const MapSourceText& text,
                                   const std::vector<WaypointChoice>& items, QWidget* parent)
    : QDialog(parent), state_(state), io_(io), options_(options), text_(text), items_(items) {
  setObjectName(u"frmGarminOptions"_s);
  setModal(true);
  Construit();
  Dispose();
  AppliqueLangue();
  Montre();
  for (std::size_t i = 0; i < cmdOptionGarmin.size(); ++i) {
    connect(cmdOptionGarmin[i], &QPushButton::clicked, this,
            [this, i] { cmdOptionGarmin_Click(static_cast<int>(i)); });
  }
  PlaceFocus(GarminFocus::Period);
}

void frmGarminOptions::Construit() {
  lblPeriod = Nomme(new QLabel(this), u"lblPeriod"_s);
  txtPeriod = Nomme(new QLineEdit(this), u"txtPeriod"_s);
  txtPeriod->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
  lblPeriod->setBuddy(txtPeriod);
  txtDate = Nomme(new DateEdit(this), u"txtDate"_s);
  txtAltitude = Nomme(new QLineEdit(this), u"txtAltitude"_s);
  for (QLineEdit* box : {txtPeriod, txtAltitude}) GardeUneLigne(*box);
  cmbDateFormat = Nomme(new QComboBox(this), u"cmbDateFormat"_s);
  cmbDateFormat->addItem(EnQt(FormatDateGarmin));
  const auto sample = [this](int column) { return TexteExemple(text_, items_, column); };
  date_ = new GarminFieldBox(u"Date"_s, txtDate, cmbDateFormat, sample, this);
  altitude_ = new GarminFieldBox(u"Altitude"_s, txtAltitude, nullptr, sample, this);
  for (std::size_t i = 0; i < cmdOptionGarmin.size(); ++i) {
    cmdOptionGarmin[i] = Nomme(new QPushButton(this), NomIndexe("cmdOptionGarmin", i));
  }
  cmdOptionGarmin[0]->setDefault(true);
}

void frmGarminOptions::Dispose() {
  auto* layout = new QVBoxLayout(this);
  auto* period = new QFormLayout;
  period->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  period->addRow(lblPeriod, txtPeriod);
  layout->addLayout(period);
  auto* halves = new QHBoxLayout;
  halves->addWidget(date_, 1);
  halves->addWidget(altitude_, 1);
  layout->addLayout(halves, 1);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(cmdOptionGarmin[0], QDialogButtonBox::AcceptRole);
  buttons->addButton(cmdOptionGarmin[1], QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
  QWidget* last = altitude_->OrdonneTabulation(date_->OrdonneTabulation(txtPeriod));
  for (QPushButton* button : cmdOptionGarmin) {
    setTabOrder(last, button);
    last = button;
  }
}

void frmGarminOptions::AppliqueLangue() {
  Mnemonics letters;
  const auto legende = [&](auto* control, int id) {
    control->setText(letters.Marque(Texte(state_.Langue, id)));
    return EnQt(SansMnemonique(Texte(state_.Langue, id)));
  };
  setWindowTitle(EnQt(Texte(state_.Langue, MsgId::OptionsGarmin)));
  constexpr std::array captions{MsgId::BoutonOk, MsgId::BoutonAnnuler};
  for (std::size_t i = 0; i < captions.size(); ++i) {
    cmdOptionGarmin[i]->setAccessibleName(legende(cmdOptionGarmin[i], captions[i]));
  }
  txtPeriod->setAccessibleName(legende(lblPeriod, MsgId::EditionPeriode));
  date_->AppliqueLangue(state_.Langue, MsgId::Date, letters);
  altitude_->AppliqueLangue(state_.Langue, MsgId::Altitude, letters);
}

void frmGarminOptions::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void frmGarminOptions::Montre() {
  const GarminOptionsForm form = RempliOptionsGarmin(options_);
  txtPeriod->setText(EnQt(form.period));
  txtDate->ChangeMasque(EnQt(form.date.fixe));
  txtAltitude->setText(EnQt(form.altitude.fixe));
  for (GarminFieldBox* half : {date_, altitude_}) half->ChangeColonnes(text_.captions);
  date_->Montre(form.date);
  altitude_->Montre(form.altitude);
}

GarminOptionsForm frmGarminOptions::Releve() const {
  GarminOptionsForm form{txtPeriod->text().toStdString(), date_->Releve(), altitude_->Releve()};
  form.date.fixe = txtDate->Masque().toStdString();
  form.altitude.fixe = txtAltitude->text().toStdString();
  return form;
}

/// Into the options and into the settings.
void frmGarminOptions::SauveOptions() {
  GarminFocus focus = GarminFocus::None;
  bool done = false;
  ExecuteCommande(state_, io_, {}, [&] {
    const objGraminImport wanted = LitOptionsGarmin(Releve(), options_, focus);
    talpena::SauveOptions(io_.settings, wanted);
    options_ = wanted;
    done = true;
  });
  if (done) return accept();
  PlaceFocus(focus);
}

void frmGarminOptions::PlaceFocus(GarminFocus focus) {
  QLineEdit* box = focus == GarminFocus::Period           ? txtPeriod
                   : focus == GarminFocus::DateBegin      ? &date_->Place(0)
                   : focus == GarminFocus::DateLength     ? &date_->Place(1)
                   : focus == GarminFocus::AltitudeBegin  ? &altitude_->Place(0)
                   : focus == GarminFocus::AltitudeLength ? &altitude_->Place(1)
                                                          : nullptr;
  if (box == nullptr) return;
  box->setFocus();
  box->selectAll();
}

void frmGarminOptions::cmdOptionGarmin_Click(int index) {
  if (index == 1) return reject();
  SauveOptions();
}

}  // namespace talpena

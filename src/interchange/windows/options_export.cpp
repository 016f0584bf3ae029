#include "interchange/windows/options_export.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/msg_id_export.h"
#include "common/string_table.h"
#include "interchange/export_options.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"

namespace talpena {
namespace {

constexpr std::size_t latitudeBox = 1;
constexpr int rowsOfBoxes = 5;

/// A line that tells what the export does. It keeps its room while it has nothing to say, unless it
/// never has.
QLabel* Avis(QWidget* parent, const QString& name, bool speaks = true) {
  auto* label = Nomme(new QLabel(parent), name);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  QSizePolicy policy = label->sizePolicy();
  policy.setRetainSizeWhenHidden(speaks);
  label->setSizePolicy(policy);
  return label;
}

}  // namespace

OptionsExport::OptionsExport(SharedState& state, Platform& io, ExportKind kind, QWidget* parent)
    : QDialog(parent), state_(state), io_(io), kind_(kind) {
  setObjectName("OptionsExport");
  setModal(true);
  Construit();
  Dispose();
  AppliqueLangue();
  Montre();
  connect(IncludeField[latitudeBox], &QCheckBox::toggled, this, &OptionsExport::MontreAvis);
  connect(cmbSystem, &QComboBox::currentIndexChanged, this, &OptionsExport::MontreAvis);
  connect(ButOk, &QPushButton::clicked, this, &OptionsExport::ButOk_Click);
  connect(ButEsc, &QPushButton::clicked, this, &OptionsExport::reject);
}

void OptionsExport::Construit() {
  Frame3D1 = Nomme(new QGroupBox(this), "Frame3D1");
  for (std::size_t i = 0; i < IncludeField.size(); ++i) {
    IncludeField[i] = Nomme(new QCheckBox(Frame3D1), NomIndexe("IncludeField", i));
  }
  lblSansSud = Avis(Frame3D1, "lblSansSud", kind_ == ExportKind::Text);
  lblCoordSystem = Nomme(new QLabel(this), "lblCoordSystem");
  cmbSystem = Nomme(new QComboBox(this), "cmbSystem");
  lblCoordSystem->setBuddy(cmbSystem);
  for (const ExportSystem& system : SystemesExport) {
    cmbSystem->addItem(EnQt(system.caption), system.value);
  }
  lblDatumXY = Avis(this, "lblDatumXY");
  ButOk = Nomme(new QPushButton(this), "ButOk");
  ButOk->setDefault(true);
  ButEsc = Nomme(new QPushButton(this), "ButEsc");
}

void OptionsExport::Dispose() {
  auto* boxes = new QGridLayout(Frame3D1);
  for (std::size_t i = 0; i < IncludeField.size(); ++i) {
    const int place = static_cast<int>(i);
    boxes->addWidget(IncludeField[i], place % rowsOfBoxes, place / rowsOfBoxes);
  }
  boxes->addWidget(lblSansSud, rowsOfBoxes, 0, 1, 2);
  auto* system = new QHBoxLayout;
  system->addWidget(lblCoordSystem);
  system->addWidget(cmbSystem, 1);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(ButOk, QDialogButtonBox::AcceptRole);
  buttons->addButton(ButEsc, QDialogButtonBox::RejectRole);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(Frame3D1);
  layout->addLayout(system);
  layout->addWidget(lblDatumXY);
  layout->addStretch();
  layout->addWidget(buttons);
}

void OptionsExport::AppliqueLangue() {
  Mnemonics letters;
  const auto nom = [this](int caption) {
    return EnQt(SansMnemonique(Texte(state_.Langue, caption)));
  };
  const auto pose = [&](auto* control, const std::string& text) {
    control->setText(letters.Marque(text));
    control->setAccessibleName(EnQt(SansMnemonique(text)));
  };
  setWindowTitle(nom(MsgId::ExportFenetre));
  Frame3D1->setTitle(nom(MsgId::ChampsInclus));
  pose(ButOk, Texte(state_.Langue, MsgId::ExportOk));
  pose(ButEsc, Texte(state_.Langue, MsgId::ExportAnnuler));
  for (std::size_t i = 0; i < IncludeField.size(); ++i) {
    const ExportBox& box = CasesExport()[i];
    pose(IncludeField[i],
         box.caption != 0 ? Texte(state_.Langue, box.caption) : std::string(box.literal));
  }
  pose(lblCoordSystem, Texte(state_.Langue, MsgId::ExportXY));
  cmbSystem->setAccessibleName(nom(MsgId::ExportXY));
  lblSansSud->setText(nom(MsgId::ExportSansSud));
  lblDatumXY->setText(nom(MsgId::ExportDatumXY));
  MontreAvis();
}

void OptionsExport::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void OptionsExport::Montre() {
  const ExportForm form = RempliOptionsExport(state_);
  for (std::size_t i = 0; i < IncludeField.size(); ++i) {
    IncludeField[i]->setChecked(form.IncludeField[i]);
  }
  cmbSystem->setCurrentIndex(static_cast<int>(form.cmbSystem));
  MontreAvis();
  IncludeField[0]->setFocus();
}

/// What a reader of the screen hears of a notice belongs to the control that brings it up.
void OptionsExport::MontreAvis() {
  const bool latitudes = kind_ == ExportKind::Text && IncludeField[latitudeBox]->isChecked();
  const bool xy = cmbSystem->currentData().toInt() > 0;
  lblSansSud->setVisible(latitudes);
  lblDatumXY->setVisible(xy);
  IncludeField[latitudeBox]->setAccessibleDescription(latitudes ? lblSansSud->text() : QString());
  cmbSystem->setAccessibleDescription(xy ? lblDatumXY->text() : QString());
}

void OptionsExport::ButOk_Click() {
  ExportForm form;
  for (std::size_t i = 0; i < IncludeField.size(); ++i) {
    form.IncludeField[i] = IncludeField[i]->isChecked();
  }
  form.cmbSystem = static_cast<std::size_t>(cmbSystem->currentIndex());
  ValideOptionsExport(state_, io_, form);
  accept();
}

}  // namespace talpena

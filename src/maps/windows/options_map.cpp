#include "maps/windows/options_map.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "maps/windows/colour_label.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/one_line.h"

namespace talpena {

OptionsMap::OptionsMap(SharedState& state, Platform& io, QWidget* parent)
    : QDialog(parent), state_(state), io_(io), options_(LitOptionsRaster(state)) {
  setObjectName(QStringLiteral("OptionsMap"));
  setModal(true);
  Construit();
  AppliqueLangue();
  MontreCouleurs();
  Combo1->setEditText(EnQt(options_.Combo1));
  Combo1->lineEdit()->selectAll();
}

void OptionsMap::Construit() {
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  for (std::size_t i = 0; i < LabelCoulFill.size(); ++i) {
    lblCouleur[i] = Nomme(new QLabel(this), NomIndexe("lblCouleur", i));
    LabelCoulFill[i] = Nomme(new ColourLabel(this), NomIndexe("LabelCoulFill", i));
    lblCouleur[i]->setBuddy(LabelCoulFill[i]);
    form->addRow(lblCouleur[i], LabelCoulFill[i]);
    connect(LabelCoulFill[i], &ColourLabel::Clique, this,
            [this, i] { LabelCoulFill_Click(static_cast<int>(i)); });
  }
  lblDiametre = Nomme(new QLabel(this), QStringLiteral("lblDiametre"));
  Combo1 = Nomme(new QComboBox(this), QStringLiteral("Combo1"));
  Combo1->setEditable(true);
  GardeUneLigne(*Combo1->lineEdit());
  Combo1->setInsertPolicy(QComboBox::NoInsert);
  Combo1->addItem(EnQt(RasterAuto));
  Combo1->setMinimumWidth(fontMetrics().averageCharWidth() * 18);
  lblDiametre->setBuddy(Combo1);
  form->addRow(lblDiametre, Combo1);
  auto* buttons = new QDialogButtonBox(this);
  cmdOk = Nomme(new QPushButton(this), QStringLiteral("cmdOk"));
  cmdAnnuler = Nomme(new QPushButton(this), QStringLiteral("cmdAnnuler"));
  buttons->addButton(cmdOk, QDialogButtonBox::AcceptRole);
  buttons->addButton(cmdAnnuler, QDialogButtonBox::RejectRole);
  cmdOk->setDefault(true);
  connect(cmdOk, &QPushButton::clicked, this, &OptionsMap::cmdOk_Click);
  connect(cmdAnnuler, &QPushButton::clicked, this, &OptionsMap::reject);
  auto* column = new QVBoxLayout(this);
  column->addLayout(form);
  column->addStretch(1);
  column->addWidget(buttons);
}

void OptionsMap::AppliqueLangue() {
  Mnemonics letters;
  const auto texte = [this](int base) { return Texte(state_.Langue, base); };
  const auto pose = [&](QLabel* label, QWidget* field, const std::string& caption) {
    label->setText(letters.Marque(caption));
    field->setAccessibleName(EnQt(caption));
  };
  const auto bouton = [&](QPushButton* button, int base) {
    button->setText(letters.Marque(texte(base)));
    button->setAccessibleName(EnQt(SansMnemonique(texte(base))));
  };
  setWindowTitle(EnQt(texte(MsgId::OptionsMapFenetre)));
  bouton(cmdOk, MsgId::BoutonOk);
  bouton(cmdAnnuler, MsgId::BoutonAnnuler);
  const std::size_t outline = LabelCoulFill.size() - 1;
  for (std::size_t i = 0; i < outline; ++i) {
    pose(lblCouleur[i], LabelCoulFill[i],
         Remplace(texte(MsgId::CouleurPeriode), "%1", std::to_string(i + 1)));
  }
  pose(lblCouleur[outline], LabelCoulFill[outline], texte(MsgId::CouleurContour));
  pose(lblDiametre, Combo1, texte(MsgId::DiametrePoints));
  Combo1->lineEdit()->setAccessibleName(Combo1->accessibleName());
}

void OptionsMap::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void OptionsMap::MontreCouleurs() {
  for (std::size_t i = 0; i < LabelCoulFill.size(); ++i) {
    LabelCoulFill[i]->ChangeCouleur(options_.LabelCoulFill[i]);
  }
}

void OptionsMap::LabelCoulFill_Click(int index) {
  ExecuteCommande(state_, io_, {}, [&] { ChoisitCouleurRaster(options_, index, io_); });
  MontreCouleurs();
}

void OptionsMap::cmdOk_Click() {
  options_.Combo1 = Combo1->currentText().toStdString();
  if (ValideOptionsRaster(options_, state_, io_)) return accept();
  Combo1->setFocus();
  Combo1->lineEdit()->selectAll();
}

}  // namespace talpena

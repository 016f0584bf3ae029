#include "analysis/windows/frm_options_periodes.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/busy.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/one_line.h"

namespace talpena {
namespace {

/// One page of FramePivot: labels with their boxes.
QWidget* Page(QWidget* parent, std::initializer_list<std::pair<QLabel*, QLineEdit*>> rows) {
  auto* page = new QWidget(parent);
  auto* layout = new QFormLayout(page);
  for (const auto& [label, box] : rows) {
    layout->addRow(label, box);
    label->setBuddy(box);
  }
  return page;
}

}  // namespace

frmOptionsPeriodes::frmOptionsPeriodes(StoreState& state, Platform& io, WaitView& attente,
                                       QWidget* parent)
    : QDialog(parent), state_(state), io_(io), attente_(attente) {
  setObjectName("frmOptionsPeriodes");
  for (std::size_t i = 0; i < OptionPivot.size(); ++i) {
    OptionPivot[i] = Nomme(new QRadioButton(this), QString("OptionPivot_%1").arg(i));
  }
  ConstruitCadre();
  for (std::size_t i = 0; i < Command1.size(); ++i) {
    Command1[i] = Nomme(new QPushButton(this), QString("Command1_%1").arg(i));
  }
  Command1[0]->setDefault(true);
  Dispose();
  AppliqueLangue();
  const PeriodsForm form = RempliPeriodes(state_);
  Montre(form);
  OptionPivot.at(static_cast<std::size_t>(form.OptionPivot))->setFocus();
  Relie();
}

void frmOptionsPeriodes::ConstruitCadre() {
  FramePivot = Nomme(new QFrame(this), "FramePivot");
  FramePivot->setFrameShape(QFrame::StyledPanel);
  lblPivot1 = Nomme(new QLabel(FramePivot), "lblPivot1");
  lblPivot21 = Nomme(new QLabel(FramePivot), "lblPivot21");
  lblPivot22 = Nomme(new QLabel(FramePivot), "lblPivot22");
  TxtPivot1 = Nomme(new QLineEdit(FramePivot), "TxtPivot1");
  TxtPivot21 = Nomme(new QLineEdit(FramePivot), "TxtPivot21");
  TxtPivot22 = Nomme(new QLineEdit(FramePivot), "TxtPivot22");
  for (QLineEdit* box : {TxtPivot1, TxtPivot21, TxtPivot22}) GardeUneLigne(*box);
  pages_ = new QStackedLayout(FramePivot);
  pages_->addWidget(Page(FramePivot, {}));
  pages_->addWidget(Page(FramePivot, {{lblPivot1, TxtPivot1}}));
  pages_->addWidget(Page(FramePivot, {{lblPivot21, TxtPivot21}, {lblPivot22, TxtPivot22}}));
  QSizePolicy policy = FramePivot->sizePolicy();
  policy.setRetainSizeWhenHidden(true);  // the window keeps its size from option to option
  FramePivot->setSizePolicy(policy);
}

void frmOptionsPeriodes::Dispose() {
  auto* layout = new QVBoxLayout(this);
  for (QRadioButton* option : OptionPivot) layout->addWidget(option);
  layout->addWidget(FramePivot);
  layout->addStretch();
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(Command1[0], QDialogButtonBox::AcceptRole);
  buttons->addButton(Command1[1], QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
}

void frmOptionsPeriodes::Relie() {
  for (QRadioButton* option : OptionPivot) {
    connect(option, &QRadioButton::toggled, this, &frmOptionsPeriodes::OptionPivot_Click);
  }
  for (std::size_t i = 0; i < Command1.size(); ++i) {
    connect(Command1[i], &QPushButton::clicked, this,
            [this, i] { Command1_Click(static_cast<int>(i)); });
  }
}

void frmOptionsPeriodes::AppliqueLangue() {
  Mnemonics letters;
  const auto pose = [&](auto* widget, int caption) {
    const std::string text = Texte(state_.Langue, caption);
    widget->setText(letters.Marque(text));
    return QString::fromStdString(SansMnemonique(text));
  };
  setWindowTitle(
      QString::fromStdString(SansMnemonique(Texte(state_.Langue, MsgId::PeriodesFenetre))));
  FramePivot->setAccessibleName(windowTitle());
  for (std::size_t i = 0; i < OptionPivot.size(); ++i) {
    OptionPivot[i]->setAccessibleName(
        pose(OptionPivot[i], MsgId::UnePeriode + static_cast<int>(i)));
  }
  TxtPivot1->setAccessibleName(pose(lblPivot1, MsgId::LibelleAnneeCharniere));
  TxtPivot21->setAccessibleName(pose(lblPivot21, MsgId::LibellePremiereAnnee));
  TxtPivot22->setAccessibleName(pose(lblPivot22, MsgId::LibelleSecondeAnnee));
  Command1[0]->setAccessibleName(pose(Command1[0], MsgId::PeriodesOk));
  Command1[1]->setAccessibleName(pose(Command1[1], MsgId::PeriodesAnnuler));
}

void frmOptionsPeriodes::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void frmOptionsPeriodes::OptionPivot_Click() {
  const int option = Lit().OptionPivot;
  pages_->setCurrentIndex(option);
  FramePivot->setVisible(option > 0);
}

void frmOptionsPeriodes::Command1_Click(int index) {
  if (index == 1) {
    reject();
    return;
  }
  PeriodsForm form = Lit();
  const PeriodsOutcome outcome = Valide(form);
  if (outcome.ferme) {
    accept();
    return;
  }
  Montre(form);
  PlaceFocus(outcome.focus);
}

/// All rows may be gone through; a box that asks lays the hourglass aside.
PeriodsOutcome frmOptionsPeriodes::Valide(PeriodsForm& form) {
  const Busy busy(attente_);
  return ValidePeriodes(state_, io_, form);
}

void frmOptionsPeriodes::Montre(const PeriodsForm& form) {
  OptionPivot.at(static_cast<std::size_t>(form.OptionPivot))->setChecked(true);
  TxtPivot1->setText(QString::fromStdString(form.TxtPivot1));
  TxtPivot21->setText(QString::fromStdString(form.TxtPivot21));
  TxtPivot22->setText(QString::fromStdString(form.TxtPivot22));
  OptionPivot_Click();
}

PeriodsForm frmOptionsPeriodes::Lit() const {
  PeriodsForm form;
  for (std::size_t i = 0; i < OptionPivot.size(); ++i) {
    if (OptionPivot[i]->isChecked()) form.OptionPivot = static_cast<int>(i);
  }
  form.TxtPivot1 = TxtPivot1->text().toStdString();
  form.TxtPivot21 = TxtPivot21->text().toStdString();
  form.TxtPivot22 = TxtPivot22->text().toStdString();
  return form;
}

void frmOptionsPeriodes::PlaceFocus(PeriodsFocus focus) {
  const std::pair<PeriodsFocus, QLineEdit*> boxes[] = {{PeriodsFocus::TxtPivot1, TxtPivot1},
                                                       {PeriodsFocus::TxtPivot21, TxtPivot21},
                                                       {PeriodsFocus::TxtPivot22, TxtPivot22}};
  for (const auto& [wanted, box] : boxes) {
    if (wanted != focus) continue;
    box->setFocus();
    box->selectAll();
  }
}

}  // namespace talpena

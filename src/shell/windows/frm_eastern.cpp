#include "shell/windows/frm_eastern.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/qt/icons.h"
#include "platform/qt/mnemonics.h"

namespace talpena {
namespace {

QLabel* Ligne(QWidget* parent, const QString& name) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  return label;
}

}  // namespace

QString VersionDuProgramme() { return QStringLiteral(TALPENA_VERSION); }

frmEastern::frmEastern(const SharedState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName(QStringLiteral("frmEastern"));
  auto* picture = new QLabel(this);
  picture->setObjectName(QStringLiteral("Image1"));
  picture->setPixmap(Image(QStringLiteral("talpena"), palette(), 96, devicePixelRatioF()));
  auto* name = Ligne(this, QStringLiteral("lblTitle"));
  name->setText(QStringLiteral("Talpena"));
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.8);
  large.setBold(true);
  name->setFont(large);
  lblVersion = Ligne(this, QStringLiteral("lblVersion"));
  lblDescription = Ligne(this, QStringLiteral("lblDescription"));
  lblDisclaimer = Ligne(this, QStringLiteral("lblDisclaimer"));

  auto* buttons = new QDialogButtonBox(this);
  cmdOK = new QPushButton(buttons);
  cmdOK->setObjectName(QStringLiteral("cmdOK"));
  cmdOK->setDefault(true);
  buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

  auto* text = new QVBoxLayout;
  text->setSpacing(2);
  text->addWidget(name);
  text->addWidget(lblVersion);
  text->addSpacing(8);
  text->addWidget(lblDescription);
  text->addWidget(lblDisclaimer);
  text->addStretch(1);
  auto* top = new QHBoxLayout;
  top->setSpacing(20);
  top->addWidget(picture, 0, Qt::AlignTop);
  top->addLayout(text, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 24, 24, 16);
  layout->setSpacing(16);
  layout->addLayout(top);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  AppliqueLangue();
}

void frmEastern::AppliqueLangue() {
  const auto texte = [this](int id) { return QString::fromStdString(Texte(state_.Langue, id)); };
  setWindowTitle(texte(MsgId::APropos));
  lblVersion->setText(texte(MsgId::Version).arg(VersionDuProgramme()));
  lblDescription->setText(texte(MsgId::Description));
  lblDisclaimer->setText(texte(MsgId::Licence));
  Mnemonics letters;
  cmdOK->setText(letters.Marque(Texte(state_.Langue, MsgId::BoutonOk)));
}

void frmEastern::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

}  // namespace talpena

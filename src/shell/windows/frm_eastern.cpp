#include "shell/windows/frm_eastern.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "shell/windows/icons.h"

namespace talpena {
namespace {

QLabel* Ligne(QWidget* parent, const QString& name, const QString& text) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  return label;
}

}  // namespace

QString VersionDuProgramme() { return QStringLiteral(TALPENA_VERSION); }

frmEastern::frmEastern(std::int16_t langue, QWidget* parent) : QDialog(parent) {
  const auto texte = [langue](int id) { return QString::fromStdString(Texte(langue, id)); };
  setObjectName(QStringLiteral("frmEastern"));
  setWindowTitle(texte(MsgId::APropos));

  auto* picture = new QLabel(this);
  picture->setObjectName(QStringLiteral("Image1"));
  picture->setPixmap(Image(QStringLiteral("talpena"), palette(), 96, devicePixelRatioF()));
  auto* name = Ligne(this, QStringLiteral("lblTitle"), QStringLiteral("Talpena"));
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.8);
  large.setBold(true);
  name->setFont(large);
  auto* version =
      Ligne(this, QStringLiteral("lblVersion"), texte(MsgId::Version).arg(VersionDuProgramme()));
  auto* description = Ligne(this, QStringLiteral("lblDescription"), texte(MsgId::Description));
  auto* licence = Ligne(this, QStringLiteral("lblDisclaimer"), texte(MsgId::Licence));

  auto* buttons = new QDialogButtonBox(this);
  auto* ok = new QPushButton(texte(MsgId::BoutonOk), buttons);
  ok->setObjectName(QStringLiteral("cmdOK"));
  ok->setDefault(true);
  buttons->addButton(ok, QDialogButtonBox::AcceptRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

  auto* text = new QVBoxLayout;
  text->setSpacing(2);
  text->addWidget(name);
  text->addWidget(version);
  text->addSpacing(8);
  text->addWidget(description);
  text->addWidget(licence);
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
}

}  // namespace talpena

#include "coords/windows/frm_lmb_ifbl.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFontMetrics>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/ifbl.h"
#include "coords/tokens.h"
#include "platform/qt/mnemonics.h"

namespace talpena {
namespace {

constexpr int CaptionLambert = 40, CaptionIfbl = MsgId::IfblBelgique;
constexpr int levelKilometre = 6;
constexpr int messageWidth = 56, messageLines = 3;  // characters, lines

/// A box as a number of metres; a decimal comma is accepted. Empty when it is none.
std::optional<double> LitMetres(const QLineEdit* box) {
  const std::string text = AvecBlancsSimples(box->text().toStdString());
  if (!EstNumerique(text)) return std::nullopt;
  try {
    return Val(Remplace(text, ",", "."));
  } catch (const TalpenaError&) {  // beyond the range of numbers
    return std::nullopt;
  }
}

/// A named box behind its label, in a form.
void Ajoute(QFormLayout* form, QLabel*& label, QLineEdit*& box, const QString& boxName,
            const QString& labelName) {
  label = new QLabel(form->parentWidget());
  label->setObjectName(labelName);
  box = new QLineEdit(form->parentWidget());
  box->setObjectName(boxName);
  label->setBuddy(box);
  form->addRow(label, box);
}

}  // namespace

frmLmbIfbl::frmLmbIfbl(const CoordState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmLmbIfbl");
  ConstruitCadres();
  Dispose();
  AppliqueLangue();
  for (QLineEdit* box : {txtLambert[0], txtLambert[1], txtIFBL}) box->installEventFilter(this);
  txtLambert[0]->setFocus();
  Command1[1]->setDefault(true);
}

void frmLmbIfbl::ConstruitCadres() {
  frameLambert = new QGroupBox(this);
  frameLambert->setObjectName("frameLambert");
  auto* lambert = new QFormLayout(frameLambert);
  for (std::size_t i = 0; i < txtLambert.size(); ++i) {
    Ajoute(lambert, lblLambert[i], txtLambert[i], QString("txtLambert_%1").arg(i),
           QString("lblLambert_%1").arg(i));
  }
  AjouteCommande(lambert, 1);
  frameIFBL = new QGroupBox(this);
  frameIFBL->setObjectName("frameIFBL");
  auto* ifbl = new QFormLayout(frameIFBL);
  Ajoute(ifbl, lblIFBL, txtIFBL, "txtIFBL", "lblIFBL");
  AjouteCommande(ifbl, 0);
}

void frmLmbIfbl::AjouteCommande(QFormLayout* form, int index) {
  auto* command = new QPushButton(form->parentWidget());
  command->setObjectName(QString("Command1_%1").arg(index));
  connect(command, &QPushButton::clicked, this, [this, index] { Command1_Click(index); });
  form->addRow(nullptr, command);
  Command1.at(static_cast<std::size_t>(index)) = command;
}

void frmLmbIfbl::Dispose() {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(frameLambert);
  layout->addWidget(frameIFBL);
  lblMessage = new QLabel(this);
  lblMessage->setObjectName("lblMessage");
  lblMessage->setWordWrap(true);
  lblMessage->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  const QFontMetrics metrics = lblMessage->fontMetrics();  // room for all messages: no jump later
  lblMessage->setMinimumSize(messageWidth * metrics.averageCharWidth(),
                             messageLines * metrics.lineSpacing());
  layout->addWidget(lblMessage, 1);
  auto* buttons = new QDialogButtonBox(this);
  cmdFermer = new QPushButton(this);
  cmdFermer->setObjectName("cmdFermer");
  buttons->addButton(cmdFermer, QDialogButtonBox::RejectRole);
  connect(cmdFermer, &QPushButton::clicked, this, &frmLmbIfbl::reject);
  layout->addWidget(buttons);
}

void frmLmbIfbl::AppliqueLangue() {
  Mnemonics letters;
  const auto texte = [&](int caption) { return Texte(state_.Langue, caption); };
  const auto pose = [&](auto* widget, int caption) {
    widget->setText(letters.Marque(texte(caption)));
    return QString::fromStdString(SansMnemonique(texte(caption)));
  };
  setWindowTitle(QString::fromStdString(texte(MsgId::LmbIfblFenetre)));
  frameLambert->setTitle(QString::fromStdString(SansMnemonique(texte(CaptionLambert))));
  frameIFBL->setTitle(QString::fromStdString(texte(CaptionIfbl)));
  cmdFermer->setAccessibleName(pose(cmdFermer, MsgId::EditionFermer));
  txtLambert[0]->setAccessibleName(pose(lblLambert[0], MsgId::LmbIfblX));
  txtLambert[1]->setAccessibleName(pose(lblLambert[1], MsgId::LmbIfblY));
  txtIFBL->setAccessibleName(pose(lblIFBL, MsgId::LmbIfblCode));
  Command1[1]->setAccessibleName(pose(Command1[1], MsgId::LambertEnIfbl));
  Command1[0]->setAccessibleName(pose(Command1[0], MsgId::IfblEnLambert));
  Annonce(message_);
}

void frmLmbIfbl::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

/// Enter belongs to the frame that has the cursor.
bool frmLmbIfbl::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) Command1[watched == txtIFBL ? 0 : 1]->setDefault(true);
  return QDialog::eventFilter(watched, event);
}

void frmLmbIfbl::Command1_Click(int index) {
  Annonce(0);
  index == 0 ? IfblEnLambert() : LambertEnIfbl();
}

void frmLmbIfbl::IfblEnLambert() {
  const std::string code = txtIFBL->text().toStdString();
  double x = 0, y = 0;
  std::int16_t error = 0;
  IfblVersLambert(code, x, y, error);
  if (error != 0) {
    for (QLineEdit* box : txtLambert) box->clear();
    Refuse(MsgId::IfblRefuse, txtIFBL);
    return;
  }
  txtLambert[0]->setText(QString::fromStdString(Str(x)));
  txtLambert[1]->setText(QString::fromStdString(Str(y)));
  if (!NommeCarreIfbl(code)) Refuse(MsgId::IfblSansCarre, txtIFBL);
}

void frmLmbIfbl::LambertEnIfbl() {
  txtIFBL->clear();
  for (QLineEdit* box : txtLambert) {
    if (LitMetres(box)) continue;
    Refuse(MsgId::MetresAttendus, box);
    return;
  }
  std::string code;
  std::int16_t error = 0;
  LambertVersIfbl(*LitMetres(txtLambert[0]), *LitMetres(txtLambert[1]), code, error,
                  levelKilometre);
  if (error != 0) {
    Refuse(MsgId::IfblHorsLimites, txtLambert[0]);
    return;
  }
  txtIFBL->setText(QString::fromStdString(code));
  if (!NommeCarreIfbl(code)) Refuse(MsgId::IfblSansCarre, txtLambert[0]);
}

void frmLmbIfbl::Annonce(int message) {
  message_ = message;
  lblMessage->setText(message == 0 ? QString()
                                   : QString::fromStdString(Texte(state_.Langue, message)));
  if (message == 0) return;
  QAccessibleEvent alert(lblMessage, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void frmLmbIfbl::Refuse(int message, QLineEdit* box) {
  Annonce(message);
  box->setFocus();
  box->selectAll();
}

}  // namespace talpena

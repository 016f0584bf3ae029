#include "shell/windows/frm_message.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/qt/controls.h"
#include "platform/qt/icons.h"

namespace talpena {

frmMessage::frmMessage(const SharedState& state, QWidget* parent, Bouton bouton)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), state_(state) {
  const bool cancelable = bouton == Bouton::Annuler;
  setObjectName(cancelable ? QStringLiteral("frmAnnulation") : QStringLiteral("frmMessage"));
  setWindowTitle(QStringLiteral("Talpena"));
  imgMsg = new QLabel(this);
  imgMsg->setObjectName(QStringLiteral("imgMsg"));
  lblMsg = new QLabel(this);
  lblMsg->setObjectName(QStringLiteral("lblMsg"));
  lblMsg->setWordWrap(true);
  lblMsg->setTextFormat(Qt::PlainText);
  lblMsg->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
  auto* message = new QHBoxLayout;
  message->setSpacing(16);
  message->addWidget(imgMsg, 0, Qt::AlignVCenter);
  message->addWidget(lblMsg, 1, Qt::AlignVCenter);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(20, 20, 24, 20);
  layout->addLayout(message);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  if (!cancelable) {
    // The focus stays where it is, and with it what is typed ahead.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlag(Qt::WindowDoesNotAcceptFocus);
    return;
  }
  setWindowModality(Qt::ApplicationModal);
  cmdAnnuler = new QPushButton(this);
  cmdAnnuler->setObjectName(QStringLiteral("cmdAnnuler"));
  layout->addSpacing(8);
  layout->addWidget(cmdAnnuler, 0, Qt::AlignRight);
  connect(cmdAnnuler, &QPushButton::clicked, this, &frmMessage::reject);
  AppliqueLangue();
}

void frmMessage::Prend(const QString& text) {
  imgMsg->setPixmap(
      Image(QStringLiteral("wait"), palette(), CoteIcone(fontMetrics(), 32), devicePixelRatioF()));
  lblMsg->setText(text);
  setAccessibleName(text);
}

void frmMessage::Affiche(const QString& text) {
  Prend(text);
  show();
}

void frmMessage::Affiche(const QString& text, QWidget& under) {
  Prend(text);
  ensurePolished();
  adjustSize();
  if (cmdAnnuler != nullptr) cmdAnnuler->setEnabled(true);
  const QRect place = under.isVisible() ? under.frameGeometry() : screen()->availableGeometry();
  move(place.center() - rect().center());
  create();  // there is a window to be put in front from now on
  windowHandle()->setTransientParent(under.window()->windowHandle());
  show();
  raise();
}

void frmMessage::AppliqueLangue() {
  if (cmdAnnuler == nullptr) return;
  const QString caption = QString::fromStdString(Texte(state_.Langue, MsgId::BoutonAnnuler));
  cmdAnnuler->setText(caption);
  cmdAnnuler->setAccessibleName(caption);
}

void frmMessage::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void frmMessage::reject() {
  if (cmdAnnuler == nullptr) return;
  cmdAnnuler->setEnabled(false);
  Q_EMIT Annulee();
}

}  // namespace talpena

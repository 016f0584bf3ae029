#include "shell/windows/frm_message.h"

#include <QHBoxLayout>
#include <QLabel>

#include "platform/qt/icons.h"

namespace talpena {

frmMessage::frmMessage(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
  setObjectName(QStringLiteral("frmMessage"));
  // The focus stays where it is, and with it what is typed ahead.
  setAttribute(Qt::WA_ShowWithoutActivating);
  setWindowFlag(Qt::WindowDoesNotAcceptFocus);
  setWindowTitle(QStringLiteral("Talpena"));
  imgMsg = new QLabel(this);
  imgMsg->setObjectName(QStringLiteral("imgMsg"));
  lblMsg = new QLabel(this);
  lblMsg->setObjectName(QStringLiteral("lblMsg"));
  lblMsg->setWordWrap(true);
  lblMsg->setTextFormat(Qt::PlainText);
  lblMsg->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(20, 20, 24, 20);
  layout->setSpacing(16);
  layout->addWidget(imgMsg, 0, Qt::AlignVCenter);
  layout->addWidget(lblMsg, 1, Qt::AlignVCenter);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmMessage::Affiche(const QString& text) {
  imgMsg->setPixmap(Image(QStringLiteral("wait"), palette(), 32, devicePixelRatioF()));
  lblMsg->setText(text);
  setAccessibleName(text);
  show();
}

}  // namespace talpena

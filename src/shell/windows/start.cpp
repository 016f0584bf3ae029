#include "shell/windows/start.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/qt/icons.h"
#include "shell/windows/frm_eastern.h"

namespace talpena {
namespace {

/// Version and date, a carriage return between them.
QString TexteVersion() {
  return QStringLiteral("version %1\r03.III.2011").arg(VersionDuProgramme());
}

}  // namespace

Start::Start(const SharedState& state, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), state_(state) {
  setObjectName(QStringLiteral("Start"));
  setWindowTitle(QStringLiteral("Talpena"));
  setAttribute(Qt::WA_QuitOnClose);
  setAutoFillBackground(true);

  Image1 = new QLabel(this);
  Image1->setObjectName(QStringLiteral("Image1"));
  Image1->setAccessibleName(QStringLiteral("Talpena"));
  Image1->setPixmap(Image(QStringLiteral("talpena"), palette(), 128, devicePixelRatioF()));
  Label1 = new QLabel(this);
  Label1->setObjectName(QStringLiteral("Label1"));
  Label1->setToolTip(QStringLiteral("Click here for more information..."));
  Label1->setCursor(Qt::PointingHandCursor);
  Label2 = new QLabel(this);
  Label2->setObjectName(QStringLiteral("Label2"));
  Label2->setTextFormat(Qt::PlainText);
  Label2->setText(TexteVersion().replace(QLatin1Char('\r'), QLatin1Char('\n')));
  for (QLabel* label : {Image1, Label1, Label2}) label->installEventFilter(this);

  auto* texts = new QVBoxLayout;
  texts->addStretch();
  texts->addWidget(Label1);
  texts->addSpacing(16);
  texts->addWidget(Label2);
  texts->addStretch();
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(32, 32, 40, 32);
  layout->setSpacing(28);
  layout->addWidget(Image1);
  layout->addLayout(texts);
  AppliqueLangue();
}

void Start::AppliqueLangue() {
  const auto texte = [this](int id) {
    return QString::fromStdString(Texte(state_.Langue, id)).toHtmlEscaped();
  };
  Label1->setText(QStringLiteral("<p style='font-size:xx-large'><b>Talpena</b></p><p>%1<br>%2</p>")
                      .arg(texte(MsgId::Description), texte(MsgId::Licence)));
}

void Start::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void Start::Montre() {
  adjustSize();
  if (const QScreen* screen = QGuiApplication::primaryScreen(); screen != nullptr) {
    const QRect area = screen->geometry();
    move(area.left() + area.width() / 2 - width() / 2,
         area.top() + area.height() / 2 - height() / 2);
  }
  show();
  QCoreApplication::processEvents();
}

void Start::mousePressEvent(QMouseEvent*) { close(); }

void Start::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) close();
}

bool Start::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::MouseButtonPress) return QWidget::eventFilter(object, event);
  if (object == Label1) {
    frmEastern(state_, this).exec();
  } else {
    close();
  }
  return true;
}

bool EstSeuleInstance(const std::function<bool()>& acquiert, Dialogues& dialogues) {
  if (acquiert()) return true;
  dialogues.Demande({.text = "TLP is already running!", .icon = Icon::Stop});
  return false;
}

}  // namespace talpena

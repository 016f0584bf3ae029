#include "shell/windows/attente.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QProgressBar>
#include <QThread>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "shell/windows/frm_message.h"

namespace talpena {
namespace {

/// Longest wait for the desktop to bring a window up, milliseconds; the paintings that follow
/// catch up with a slower one.
constexpr qint64 exposureMs = 80;

/// Has a window that was just shown on the screen before anything else is done.
void AttendPeinture(QWidget& window) {
  QElapsedTimer waited;
  waited.start();
  for (;;) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (window.windowHandle() != nullptr && window.windowHandle()->isExposed()) break;
    if (waited.elapsed() > exposureMs) return;
    QThread::msleep(1);
  }
  window.repaint();
}

}  // namespace

/// One painting: it is not painted within, and nobody reads rows.
class Attente::Peinture {
 public:
  explicit Peinture(Attente& attente)
      : attente_(attente), before_(std::exchange(attente.painting_, true)) {
    if (!before_ && attente_.Fige) attente_.Fige(true);
  }
  Peinture(const Peinture&) = delete;
  Peinture& operator=(const Peinture&) = delete;
  ~Peinture() {
    attente_.painting_ = before_;
    if (!before_ && attente_.Fige) attente_.Fige(false);
  }

 private:
  Attente& attente_;
  bool before_;
};

Attente::Attente(const SharedState& state, QWidget& fenetre, QProgressBar& barre)
    : QObject(&fenetre),
      state_(state),
      fenetre_(fenetre),
      ProgressBar1(barre),
      frmMessage_(new frmMessage(state, &fenetre)) {}

bool Attente::SeLaisseAnnuler() const {
  return frmAnnulation_ != nullptr && frmAnnulation_->isVisible();
}

std::string Attente::Texte() const {
  return texte_.empty() ? talpena::Texte(state_.Langue, MsgId::Patientez) : texte_;
}

void Attente::AfficheMessage(const std::string& text) {
  texte_ = text;
  demandee_ = true;
  const Peinture peinture(*this);
  if (SeLaisseAnnuler()) {
    frmAnnulation_->Affiche(QString::fromStdString(text));
    return;
  }
  Place(*frmMessage_);
  AttendPeinture(*frmMessage_);
}

void Attente::FermeMessage() {
  texte_.clear();
  demandee_ = false;
  frmMessage_->hide();
  CacheAnnulation();
}

/// Over the window that has the keys.
void Attente::Place(frmMessage& window) {
  QWidget* active = QApplication::activeWindow();
  const bool other = active != nullptr && active != frmMessage_ && active != frmAnnulation_;
  QWidget& under = other ? *active : fenetre_;
  window.Affiche(QString::fromStdString(Texte()), under);
}

void Attente::ChangeSablier(bool hourglass) {
  if (hourglass) Commence();
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  if (hourglass) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
    Termine();
  }
}

void Attente::Commence() {
  depuis_.start();
  prochain_ = BattementMs;
  shownAt_ = lastTenthMs_ = 0;
  modale_ = QApplication::activeModalWidget();
  QCoreApplication::instance()->installEventFilter(this);
}

/// A box of the command comes up: under it there is nothing to wait for, and nothing to give up.
bool Attente::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && watched->isWidgetType()) {
    const auto* window = qobject_cast<QDialog*>(watched);
    if (window != nullptr && window->isModal() && window != frmAnnulation_) LaissePlace();
  }
  return QObject::eventFilter(watched, event);
}

/// What comes up by itself does so again with the next beats.
void Attente::LaissePlace() {
  if (SeLaisseAnnuler()) frmAnnulation_->hide();
  if (!demandee_) frmMessage_->hide();
}

/// A box of the command is open, which runs the message loop, or the work is that of a painting.
bool Attente::PeintAilleurs() const {
  const QWidget* modal = QApplication::activeModalWidget();
  return (modal != nullptr && modal != modale_ && modal != frmAnnulation_) ||
         (SePeint && SePeint());
}

void Attente::Termine() {
  QCoreApplication::instance()->removeEventFilter(this);
  FermeMessage();
  MontreBarre(false);
  Q_EMIT Fini();
}

void Attente::MontreBarre(bool visible) {
  Mesure();
  ProgressBar1.setValue(0);
  ProgressBar1.setVisible(visible);
  shown_ = 0;
  shownAt_ = depuis_.isValid() ? depuis_.elapsed() : 0;
  lastTenthMs_ = 0;
}

void Attente::MontreProgression(double percent) {
  const int whole = static_cast<int>(std::clamp(percent, 0.0, 100.0));
  const qint64 now = depuis_.isValid() ? depuis_.elapsed() : 0;
  lastTenthMs_ = whole - shown_ == 10 ? now - shownAt_ : 0;
  shown_ = whole;
  shownAt_ = now;
  Mesure();
  ProgressBar1.setValue(whole);
  ProgressBar1.repaint();
}

/// From now on the bar tells how far the work is.
void Attente::Mesure() {
  roams_ = false;
  ProgressBar1.setTextVisible(true);
}

/// How far the work is nobody may know: the bar moves all the same. Between two tenths
/// it goes on as fast as it went, up to short of the next.
void Attente::AvanceBarre() {
  constexpr qint64 roundMs = 2000;
  if (roams_) ProgressBar1.setValue(static_cast<int>(depuis_.elapsed() % roundMs * 100 / roundMs));
  if (lastTenthMs_ == 0 || roams_) return;
  const qint64 since = depuis_.elapsed() - shownAt_;
  const auto further = static_cast<int>(std::min<qint64>(9, 10 * since / lastTenthMs_));
  ProgressBar1.setValue(std::min(99, shown_ + further));
}

void Attente::TraiteMessages() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Attente::GeleGrille(bool frozen) {
  if (Gele) Gele(frozen);
}

bool Attente::Bat() {
  if (!hourglass_ || painting_ || depuis_.elapsed() < prochain_ || PeintAilleurs()) return true;
  Peint();
  prochain_ = depuis_.elapsed() + BattementMs;
  return annulation_ != Annulation::Instruction || !EstAbandonne();
}

bool Attente::EstAbandonne() {
  if (!cancelled_) return false;
  PermetAnnulation(Annulation::Aucune);  // what is put back is not given up too
  return true;
}

void Attente::Peint() {
  const Peinture peinture(*this);
  const qint64 now = depuis_.elapsed();
  if (now >= FenetreMs) MontreFenetre();
  if (now >= AnnulationMs && annulation_ != Annulation::Aucune) MontreAnnulation();
  AvanceBarre();
  QCoreApplication::processEvents(SeLaisseAnnuler() ? QEventLoop::AllEvents
                                                    : QEventLoop::ExcludeUserInputEvents);
}

/// What work that lasts shows though the command did not ask for it.
void Attente::MontreFenetre() {
  if (!ProgressBar1.isVisible()) {
    MontreBarre(true);
    roams_ = true;
    ProgressBar1.setTextVisible(false);
  }
  if (frmMessage_->isVisible() || SeLaisseAnnuler()) return;
  Place(*frmMessage_);
  AttendPeinture(*frmMessage_);
}

void Attente::PermetAnnulation(Annulation where) {
  annulation_ = where;
  cancelled_ = false;
  if (where == Annulation::Aucune) CacheAnnulation();
}

void Attente::MontreAnnulation() {
  if (SeLaisseAnnuler()) return;
  if (frmAnnulation_ == nullptr) {
    frmAnnulation_ = new frmMessage(state_, &fenetre_, frmMessage::Bouton::Annuler);
    connect(frmAnnulation_, &frmMessage::Annulee, this,
            [this] { cancelled_ = annulation_ != Annulation::Aucune; });
  }
  avant_ = QApplication::activeWindow();
  Place(*frmAnnulation_);
  frmMessage_->hide();
  frmAnnulation_->activateWindow();
  AttendPeinture(*frmAnnulation_);
}

void Attente::CacheAnnulation() {
  if (!SeLaisseAnnuler()) return;
  frmAnnulation_->hide();
  QWidget& next = avant_ != nullptr ? *avant_ : fenetre_;
  next.activateWindow();
}

}  // namespace talpena

#include "platform/busy.h"

#include <utility>

#include "common/talpena_error.h"

namespace talpena {

Busy::Busy(WaitView& attente) : attente_(attente) {
  if (attente_.works_++ == 0) attente_.ChangeSablier(true);
}

Busy::~Busy() {
  FermeFenetres();
  if (cancelable_) attente_.PermetAnnulation(Annulation::Aucune);
  if (--attente_.works_ == 0) attente_.ChangeSablier(false);
  if (frozen_) attente_.GeleGrille(false);
}

Busy& Busy::Message(const std::string& text) {
  message_ = true;
  attente_.AfficheMessage(text);
  return *this;
}

Busy& Busy::Barre() {
  bar_ = true;
  attente_.MontreBarre(true);
  return *this;
}

Busy& Busy::GrilleGelee() {
  frozen_ = true;
  attente_.GeleGrille(true);
  return *this;
}

Busy& Busy::Annulable(Annulation where) {
  cancelable_ = true;
  attente_.PermetAnnulation(where);
  return *this;
}

void Busy::FermeFenetres() {
  if (std::exchange(bar_, false)) {
    if (shown_ >= 0) attente_.MontreProgression(0);
    attente_.MontreBarre(false);
  }
  if (std::exchange(message_, false)) attente_.FermeMessage();
}

void Busy::Avance(std::int64_t done, std::int64_t total) {
  const int percent = total > 0 ? static_cast<int>(100 * done / total) : 100;
  if (percent == shown_) return;
  const bool tenth = percent / 10 != shown_ / 10;
  shown_ = percent;
  attente_.MontreProgression(percent);
  if (tenth) attente_.TraiteMessages();
}

void Busy::Respire() {
  attente_.ChangeSablier(true);
  attente_.TraiteMessages();
}

void Busy::Bat() {
  if (!attente_.Bat() || attente_.EstAbandonne())
    throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
}

}  // namespace talpena

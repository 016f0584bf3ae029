#include "store/busy_window.h"

namespace talpena {

void Avancement::Montre(std::int64_t done, std::int64_t total) {
  const int percent = total > 0 ? static_cast<int>(100 * done / total) : 100;
  if (percent == shown_) return;
  const bool tenth = percent / 10 != shown_ / 10;
  shown_ = percent;
  vue_.MontreProgression(percent);
  if (tenth) vue_.TraiteMessages();
}

}  // namespace talpena

// A write beyond the file size limit as a failure, not as a signal.
#pragma once
#include <signal.h>

namespace talpena {

/// While it lives a write beyond the file size limit fails instead of ending the process.
class SansSignalDeTaille {
 public:
  SansSignalDeTaille() {
    sigemptyset(&signal_);
    sigaddset(&signal_, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signal_, &former_);
    wasPending_ = EnAttente();
  }
  SansSignalDeTaille(const SansSignalDeTaille&) = delete;
  SansSignalDeTaille& operator=(const SansSignalDeTaille&) = delete;
  ~SansSignalDeTaille() {
    if (!wasPending_ && EnAttente()) {
      int taken = 0;
      sigwait(&signal_, &taken);
    }
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
  }

 private:
  static bool EnAttente() {
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    return sigismember(&pending, SIGXFSZ) == 1;
  }

  sigset_t signal_{};
  sigset_t former_{};
  bool wasPending_ = false;
};

}  // namespace talpena

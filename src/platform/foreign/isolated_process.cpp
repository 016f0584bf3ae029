#include "platform/foreign/isolated_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#ifdef __linux__
#include <sys/prctl.h>
#endif

#include "common/talpena_error.h"

namespace talpena {
namespace {

constexpr std::size_t tailleLecture = 65536;
constexpr rlim_t secondesProcesseur = 600;

void Limite(int resource, rlim_t value) {
  const rlimit limit{value, value};
  setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

void LimiteMemoire() {
#if !defined(TALPENA_SANITIZED)  // the sanitizer itself reserves terabytes
  constexpr rlim_t octets = rlim_t{4} << 30;
  Limite(RLIMIT_AS, octets);
#endif
}

void RetablitSignaux() {
  for (const int s : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL, SIGPIPE, SIGTERM, SIGINT}) {
    signal(s, SIG_DFL);
  }
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
}

void RendMuet() {
  const int nowhere = open("/dev/null", O_RDWR);
  if (nowhere < 0) _exit(1);
  dup2(nowhere, STDIN_FILENO);
  dup2(nowhere, STDOUT_FILENO);
  dup2(nowhere, STDERR_FILENO);
}

[[noreturn]] void Enfant(const ProcessusIsole::Travail& travail, int ecriture) {
#ifdef __linux__
  prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
  RetablitSignaux();
  RendMuet();
  Limite(RLIMIT_CORE, 0);
  Limite(RLIMIT_FSIZE, 0);
  Limite(RLIMIT_CPU, secondesProcesseur);
  LimiteMemoire();
  clearenv();  // libraries take options from it
  try {
    Tuyau tuyau(ecriture);
    travail(tuyau);
    tuyau.Vide();
  } catch (...) {
    _exit(1);
  }
  _exit(0);  // nothing of the parent's is torn down here
}

}  // namespace

Descripteur& Descripteur::operator=(Descripteur&& other) noexcept {
  std::swap(fd_, other.fd_);
  return *this;
}

void Descripteur::Ferme() {
  if (fd_ >= 0) close(fd_);
  fd_ = -1;
}

void Tuyau::Ecrit(std::string_view bytes) {
  if (tampon_.size() + bytes.size() > taille) Vide();
  tampon_.insert(tampon_.end(), bytes.begin(), bytes.end());
}

void Tuyau::Vide() {
  for (std::size_t done = 0; done < tampon_.size();) {
    const ssize_t n = write(fd_, tampon_.data() + done, tampon_.size() - done);
    if (n < 0 && errno != EINTR) _exit(1);
    if (n > 0) done += static_cast<std::size_t>(n);
  }
  tampon_.clear();
}

ProcessusIsole::ProcessusIsole(const Travail& travail, std::chrono::milliseconds silence)
    : silence_(silence), tampon_(tailleLecture) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw TalpenaError(ErrorNumber::DeviceFault, "Device I/O error");
  lecture_ = Descripteur(ends[0]);
  const Descripteur ecriture(ends[1]);
  enfant_ = fork();
  if (enfant_ < 0) throw TalpenaError(ErrorNumber::DeviceFault, "Device I/O error");
  if (enfant_ == 0) {
    lecture_.Ferme();
    Enfant(travail, ecriture.Numero());
  }
}

ProcessusIsole::~ProcessusIsole() {
  lecture_.Ferme();
  if (enfant_ <= 0) return;
  kill(enfant_, SIGKILL);
  while (waitpid(enfant_, nullptr, 0) < 0 && errno == EINTR) {
  }
}

bool ProcessusIsole::Lit(char* buffer, std::size_t count) {
  while (count > 0) {
    if (debut_ == fin_ && !Remplit()) return false;
    const std::size_t part = std::min(count, fin_ - debut_);
    std::memcpy(buffer, tampon_.data() + debut_, part);
    debut_ += part;
    buffer += part;
    count -= part;
  }
  return true;
}

bool ProcessusIsole::Remplit() {
  using Clock = std::chrono::steady_clock;
  const auto until = Clock::now() + silence_;
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now());
    pollfd waiting{lecture_.Numero(), POLLIN, 0};
    const int ready = poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) return false;
    const ssize_t n = read(lecture_.Numero(), tampon_.data(), tampon_.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    debut_ = 0;
    fin_ = static_cast<std::size_t>(n);
    return true;
  }
}

}  // namespace talpena

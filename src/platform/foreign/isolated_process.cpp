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
#include <fstream>
#include <optional>
#include <utility>

#ifdef __linux__
#include <sys/prctl.h>
#endif

#include "common/talpena_error.h"

namespace talpena {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t tailleLecture = 65536;
constexpr rlim_t secondesProcesseur = 600;
constexpr std::chrono::milliseconds pas{50};       ///< between two calls of who waits
constexpr std::chrono::milliseconds unSigne{500};  ///< between two signs of life

void Limite(int resource, rlim_t value) {
  const rlimit limit{value, value};
  setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

/// Bytes of private memory that this process has, as the system counts them against RLIMIT_DATA;
/// empty where it does not say.
std::optional<rlim_t> MemoirePresente() {
  std::ifstream counts("/proc/self/statm");
  rlim_t pages[6] = {};  // whole, resident, shared, text, 0, data and stack
  for (rlim_t& count : pages) counts >> count;
  if (!counts) return std::nullopt;
  return pages[5] * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

/// The child begins with all the memory of its parent, which may hold a million rows: what it adds
/// is limited. Files that it maps for reading are not counted.
void LimiteMemoire(std::size_t octets) {
#if defined(TALPENA_SANITIZED)
  octets *= 4;  // of what is freed the sanitizer keeps up to 256 MB, and it pads the rest
#endif
  if (const auto present = MemoirePresente()) Limite(RLIMIT_DATA, *present + octets);
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

/// Ends with the parent, also with one that is gone before it could be asked for.
void MeurtAvec([[maybe_unused]] pid_t parent) {
#ifdef __linux__
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
#endif
}

[[noreturn]] void Enfant(const ProcessusIsole::Travail& travail, std::size_t octetsMemoire,
                         int ecriture) {
  RetablitSignaux();
  RendMuet();
  Limite(RLIMIT_CORE, 0);
  Limite(RLIMIT_FSIZE, 0);
  Limite(RLIMIT_CPU, secondesProcesseur);
  LimiteMemoire(octetsMemoire);
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
  vide_ = Clock::now();
}

void Tuyau::DonneSigne(char mark) {
  if (Clock::now() - vide_ < unSigne) return;
  Ecrit({&mark, 1});
  Vide();
}

ProcessusIsole::ProcessusIsole(const Travail& travail, const LimitesProcessus& limites,
                               Attente attente)
    : silence_(limites.silence), attente_(std::move(attente)), tampon_(tailleLecture) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw TalpenaError(ErrorNumber::DeviceFault, "Device I/O error");
  lecture_ = Descripteur(ends[0]);
  const Descripteur ecriture(ends[1]);
  const pid_t parent = getpid();
  enfant_ = fork();
  if (enfant_ < 0) throw TalpenaError(ErrorNumber::DeviceFault, "Device I/O error");
  if (enfant_ == 0) {
    MeurtAvec(parent);
    lecture_.Ferme();
    Enfant(travail, limites.octetsMemoire, ecriture.Numero());
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

void ProcessusIsole::Respire() {
  const Heure now = Clock::now();
  if (!attente_ || now - respire_ < pas) return;
  if (!attente_()) throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
  respire_ = Clock::now();
}

/// False when the child was silent until then. What it said while this process was busy elsewhere
/// counts, however late it is.
bool ProcessusIsole::AttendOctets(Heure until) {
  for (;;) {
    Respire();
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
    const auto slice = std::clamp(left, std::chrono::milliseconds{0}, pas);
    pollfd waiting{lecture_.Numero(), POLLIN, 0};
    const int ready = poll(&waiting, 1, static_cast<int>(slice.count()));
    if (ready > 0) return true;
    if ((ready < 0 && errno != EINTR) || left.count() <= 0) return false;
  }
}

bool ProcessusIsole::Remplit() {
  if (!AttendOctets(Clock::now() + silence_)) return false;
  ssize_t n = 0;
  do {
    n = read(lecture_.Numero(), tampon_.data(), tampon_.size());
  } while (n < 0 && errno == EINTR);
  if (n <= 0) return false;
  debut_ = 0;
  fin_ = static_cast<std::size_t>(n);
  return true;
}

}  // namespace talpena

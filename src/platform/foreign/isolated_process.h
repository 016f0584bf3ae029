// Work that may crash or hang, done in a child process and watched from here.
#pragma once
#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace talpena {

/// A file descriptor, closed with its owner.
class Descripteur {
 public:
  Descripteur() = default;
  explicit Descripteur(int fd) : fd_(fd) {}
  Descripteur(Descripteur&& other) noexcept : fd_(other.fd_) { other.fd_ = -1; }
  Descripteur& operator=(Descripteur&& other) noexcept;
  ~Descripteur() { Ferme(); }
  int Numero() const { return fd_; }
  bool Ouvert() const { return fd_ >= 0; }
  void Ferme();

 private:
  int fd_ = -1;
};

/// The child's end of the pipe, in blocks. Ends the child at once when nobody reads any more.
class Tuyau {
 public:
  explicit Tuyau(int fd) : fd_(fd) { tampon_.reserve(taille); }
  void Ecrit(std::string_view bytes);
  void Vide();  ///< hands on what is still held back
  /// A sign of life from long work that writes little: when nothing went out for half a second,
  /// this mark behind what is held back.
  void DonneSigne(char mark);

 private:
  static constexpr std::size_t taille = 65536;
  int fd_;
  std::chrono::steady_clock::time_point vide_ = std::chrono::steady_clock::now();
  std::vector<char> tampon_;
};

/// What a child process is given.
struct LimitesProcessus {
  std::chrono::milliseconds silence{5'000};  ///< longest wait for its next byte
  /// Memory beyond what it begins with, which is that of its parent.
  std::size_t octetsMemoire = std::size_t{256} << 20;
};

/// Runs a function in a child process. The child sees the memory of this moment, writes nothing
/// to the terminal, may write no file, leaves no core, and dies with its parent; whatever
/// happens in it (a fault, an endless loop, an exception, more memory than it is given) is here
/// only an end of its bytes.
class ProcessusIsole {
 public:
  using Travail = std::function<void(Tuyau&)>;
  /// Called at least every 50 ms while Lit waits, and as often while bytes come. False leaves Lit
  /// with the failure Cancelled.
  using Attente = std::function<bool()>;

  /// Raises DeviceFault (57) when the system has no process left.
  ProcessusIsole(const Travail& travail, const LimitesProcessus& limites, Attente attente = {});
  ProcessusIsole(const ProcessusIsole&) = delete;
  ProcessusIsole& operator=(const ProcessusIsole&) = delete;
  ~ProcessusIsole();  ///< ends the child if it still runs

  /// Fills the whole buffer; false when the child ended before or was silent for too long.
  bool Lit(char* buffer, std::size_t count);

 private:
  using Heure = std::chrono::steady_clock::time_point;

  bool Remplit();
  bool AttendOctets(Heure until);
  void Respire();

  pid_t enfant_ = -1;
  Descripteur lecture_;
  std::chrono::milliseconds silence_;
  Attente attente_;
  Heure respire_{};  ///< when attente_ was called last
  std::vector<char> tampon_;
  std::size_t debut_ = 0, fin_ = 0;  ///< what of the buffer is not handed out yet
};

}  // namespace talpena

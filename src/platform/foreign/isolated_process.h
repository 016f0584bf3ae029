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

 private:
  static constexpr std::size_t taille = 65536;
  int fd_;
  std::vector<char> tampon_;
};

/// Runs a function in a child process. The child sees the memory of this moment, writes nothing
/// to the terminal, may write no file, leaves no core, and dies with its parent; whatever
/// happens in it (a fault, an endless loop, an exception) is here only an end of its bytes.
class ProcessusIsole {
 public:
  using Travail = std::function<void(Tuyau&)>;

  /// @param silence  how long Lit waits for the next byte
  /// Raises DeviceFault (57) when the system has no process left.
  ProcessusIsole(const Travail& travail, std::chrono::milliseconds silence);
  ProcessusIsole(const ProcessusIsole&) = delete;
  ProcessusIsole& operator=(const ProcessusIsole&) = delete;
  ~ProcessusIsole();  ///< ends the child if it still runs

  /// Fills the whole buffer; false when the child ended before or was silent for too long.
  bool Lit(char* buffer, std::size_t count);

 private:
  bool Remplit();

  pid_t enfant_ = -1;
  Descripteur lecture_;
  std::chrono::milliseconds silence_;
  std::vector<char> tampon_;
  std::size_t debut_ = 0, fin_ = 0;  ///< what of the buffer is not handed out yet
};

}  // namespace talpena
